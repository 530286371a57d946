// SPDX-License-Identifier: MIT
// State of a piece, its frame in the drawing, and its links with dimensions and plates.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "gemat3d.h"
#include "perfis/entities/zpobject.h"
#include "zp/objects/secao/secao.h"

namespace zp {

/// Frame of a piece: origin at the start, x along the axis, y to the left of it, or to the right
/// when the piece was mirrored. z is the drawing's.
struct Quadro {
    AcGePoint3d origem;
    AcGeVector3d x = AcGeVector3d::kXAxis;
    AcGeVector3d y = AcGeVector3d::kYAxis;

    /// From the piece's coordinates (x along the member) to the world's.
    AcGePoint3d paraFora(double px, double py, double pz = 0.0) const;
    /// Back again.
    AcGeVector3d paraDentro(const AcGePoint3d& p) const;
};

/// Unit vector of an angle; exact at multiples of a right angle.
AcGeVector3d direcao(double angulo);
/// Angle of a direction in XY, [0, 2 pi), exact at multiples of a right angle.
double anguloDe(const AcGeVector3d& v);

/// One defining point of something linked, in the piece's frame: offset from the start or from the
/// end.
struct PontoAprendido {
    AcGeVector3d desvio;
    bool noFim = false;
};

/// Up to four of them; the marks of the end share one byte, because a drawing has as many links as
/// dimensions.
class PontosAprendidos {
public:
    class Lugar {
    public:
        Lugar(PontosAprendidos& pontos, std::size_t i) : m_pontos(pontos), m_i(i) {}
        operator PontoAprendido() const { return std::as_const(m_pontos)[m_i]; }
        Lugar& operator=(const PontoAprendido& p) {
            m_pontos.m_desvios[m_i] = p.desvio;
            m_pontos.marca(m_i, p.noFim);
            return *this;
        }

    private:
        PontosAprendidos& m_pontos;
        std::size_t m_i;
    };
    static constexpr std::size_t size() { return 4; }
    PontoAprendido operator[](std::size_t i) const {
        return {m_desvios[i], (m_noFim >> i & 1) != 0};
    }
    Lugar operator[](std::size_t i) { return {*this, i}; }
    void marca(std::size_t i, bool noFim) {
        const auto bit = static_cast<std::uint8_t>(1U << i);
        m_noFim = static_cast<std::uint8_t>(noFim ? m_noFim | bit : m_noFim & ~bit);
    }
    void escala(double k) {
        for (AcGeVector3d& desvio : m_desvios) desvio *= k;
    }

private:
    std::array<AcGeVector3d, 4> m_desvios;
    std::uint8_t m_noFim = 0;
};

struct Ligacao {
    enum class Papel : std::uint8_t {
        Cota = 0,   ///< a dimension of this piece
        Segue = 1,  ///< a piece that goes where this one goes
        Dona = 2,   ///< the piece that this one follows
    };
    AcDbSoftPointerId id;
    [[no_unique_address]] PontosAprendidos pontos;
    Papel papel = Papel::Cota;
    /// Points in use: the dimension's (two measured, one on the line, the text's when it was placed
    /// by hand) or the piece's start.
    std::uint8_t quantos = 0;
    bool espelhada = false;  ///< of a piece: mirrored relative to this one
    double angulo = 0.0;     ///< of a piece: relative to this one
};

struct Peca {
    secao::Classe classe = secao::Classe::Nenhuma;
    std::uint8_t forma = 1;  ///< points of the constructor
    std::uint8_t vista = 0;
    std::uint8_t quantos = 0;
    std::uint8_t tipoBarra = 0;
    std::uint8_t subtipo = 0;
    bool espelhada = false;
    bool barraVelha = false;  ///< bar data in the drawing are to be written again
    double angulo = 0.0;
    double comprimento = 0.0;
    AcGePoint3d inicio;
    std::array<AcGePoint3d, 2> pontos;                ///< as handed to the constructor
    std::array<double, secao::kMaxValores> dados{};   ///< as handed to the constructor
    std::array<double, secao::kMaxValores> atuais{};  ///< after scaling and changes
    std::unique_ptr<std::vector<Ligacao>> ligacoes;
    mutable std::shared_ptr<const secao::Secao> secaoGuardada;

    /// In the order of the constructor; mm, radians, kg/m.
    std::span<const double> valores() const { return {atuais.data(), quantos}; }
    /// Roles of the values, in their order; null when the class has no such constructor.
    const secao::Papeis* ordem() const { return secao::papeisDe(classe, forma, quantos); }
    /// Place of a role among the values; -1 when the constructor has none.
    int lugar(secao::Papel papel) const { return secao::lugarDe(ordem(), papel); }
    /// The present value of a role; null when the constructor has none.
    double* valor(secao::Papel papel) {
        const int i = lugar(papel);
        return i < 0 ? nullptr : &atuais[static_cast<std::size_t>(i)];
    }
    const double* valor(secao::Papel papel) const { return const_cast<Peca*>(this)->valor(papel); }
    secao::Dados papeis() const { return secao::dadosDe(classe, forma, valores()); }
    const secao::Secao& secao() const;
    bool chapa() const { return classe == secao::Classe::Chapa; }
    bool emSecao() const { return vista == 0; }
    Quadro quadro() const;
    /// World coordinates.
    AcGePoint3d fim() const;
    /// Frame of the picture: that of the piece, for a plate with its own turn.
    Quadro quadroDaFigura() const;
    /// Box of the picture in that frame.
    secao::Caixa figura() const;

    void acrescenta(const Ligacao& l);
    /// The same, not behind all others: `lugar` counts from 0.
    void insere(std::ptrdiff_t lugar, const Ligacao& l);
    std::span<const Ligacao> ligadas() const;
    Ligacao* ligacao(AcDbObjectId id);
    void desliga(AcDbObjectId id);
};

struct Acesso {
    static Peca& de(ZpObject& objeto) { return *objeto.m_peca; }
    static const Peca& de(const ZpObject& objeto) { return *objeto.m_peca; }
};

}  // namespace zp
