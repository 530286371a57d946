// SPDX-License-Identifier: MIT
// Changing the values of a piece that stands in a drawing, with all that is tied to it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "perfis/entities/zpchapa.h"
#include "zp/objects/secao/kinds.h"

namespace zp {
struct Peca;
}

namespace zp::edicao {

/// All that a constructor gives: values, view, length, role. What was derived of them is made anew.
void copiaValores(const Peca& de, Peca& para);

secao::Classe classeDe(const ZpObject& peca);
/// Constructor values as they are now, by role.
secao::Dados valoresDe(const ZpObject& peca);
/// Made with the constructor of two points.
bool deDoisPontos(const ZpObject& peca);
/// What is tied to a piece and still in the drawing, in the order in which it was tied.
std::vector<AcDbObjectId> cotasDe(const ZpObject& peca);
std::vector<AcDbObjectId> chapasDe(const ZpObject& peca);
/// The piece that this one follows; null when it follows none.
AcDbObjectId donaDe(const ZpObject& peca);

/// `nova` takes the values of `peca` that are not those of `regra`, which is how a rule makes such
/// a piece: the user's own ones. Not length, turn, type, mass and area. All three are of one class.
void mantem(const ZpObject& peca, const ZpObject& regra, ZpObject& nova);

/// The four limit points of a piece, in world coordinates.
struct Faces {
    AcGePoint3d f[4];
};
Faces facesDe(const ZpObject& peca);

/// Points of a dimension in the frame of its piece: what it measures and a point on its line.
struct Cota {
    AcGePoint3d de;
    AcGePoint3d ate;
    AcGePoint3d linha;
};
/// A dimension that a rule made, and how the same rule makes it after the change.
struct CotaMudada {
    Cota antes;
    Cota depois;
};

/// One change of one piece. From the construction to termina() the piece is open for write and
/// stands straight: direction 0, not mirrored, its start where it is. What is tied to it follows in
/// termina().
class Edicao {
public:
    explicit Edicao(AcDbObjectId peca);
    ~Edicao();
    Edicao(const Edicao&) = delete;
    Edicao& operator=(const Edicao&) = delete;

    /// Of opening the piece; nothing else may be called unless eOk.
    Acad::ErrorStatus status() const { return m_status; }
    ZpObject& peca() { return *m_peca; }
    /// Plates tied to the piece when the change began.
    const std::vector<AcDbObjectId>& chapas() const { return m_chapas; }

    /// The piece takes values, view, length, role and series of `modelo`, which is of its class and
    /// in no drawing. Dimensions that fit an entry of `cotas` go where that says, the others with
    /// the edges of the picture that they measure. eNotThatKindOfClass, and no change, for another
    /// class.
    Acad::ErrorStatus refaz(const ZpObject& modelo, std::span<const CotaMudada> cotas = {});
    /// A plate of chapas() takes values and place of `modelo`. False when it cannot be opened.
    bool refazChapa(AcDbObjectId chapa, const ZpChapa& modelo);
    /// Erases something tied to the piece.
    void apaga(AcDbObjectId ligada);

    /// Puts the piece back into its direction, closes it, puts what is tied to it in its place and
    /// tells the listeners.
    void termina();

private:
    void fecha();

    ZpObject* m_peca = nullptr;
    AcDbObjectId m_id;
    Acad::ErrorStatus m_status;
    double m_angulo = 0.0;
    bool m_espelhada = false;
    Faces m_faces;
    std::vector<AcDbObjectId> m_chapas;
    std::vector<Faces> m_facesDasChapas;
};

/// Hears of pieces whose values were changed, plates included. `antes` are the limit points that
/// the piece had.
class Ouvinte {
public:
    virtual ~Ouvinte() = default;
    virtual void editada(AcDbObjectId peca, const Faces& antes) = 0;
    /// Why `peca`, open for read, may not become `modelo`, for the user; empty when it may.
    virtual std::wstring recusa(const ZpObject& peca, const ZpObject& modelo) {
        (void)peca, (void)modelo;
        return {};
    }
};
/// What the first listener that refuses says; empty when none does.
std::wstring recusaDe(const ZpObject& peca, const ZpObject& modelo);
/// The listener belongs to the caller, who takes it away before it goes.
void ouve(Ouvinte* ouvinte);
void deixa(Ouvinte* ouvinte);

}  // namespace zp::edicao
