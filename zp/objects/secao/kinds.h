// SPDX-License-Identifier: MIT
// The section classes as data: names, what each constructor value means, outline and texts.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace zp::secao {

/// Numbers are filed with every piece: never renumber, only append.
enum class Classe : std::uint8_t {
    Nenhuma = 0,
    UDobrado = 1,
    ZDobrado = 2,
    Cartola = 3,
    CantoneiraDobrada = 4,
    CaixaDobrado = 5,
    Box = 6,
    Tubo = 7,
    BarraRedonda = 8,
    BNLaminado = 9,
    CantLaminada = 10,
    CantLaminadaCaixa = 11,
    ULaminado = 12,
    CantTDobrada = 13,
    CantUDobrada = 14,
    XDobrado = 15,
    CantTEELaminada = 16,
    CantULaminada = 17,
    BNDuplaLaminada = 18,
    CantCruzLaminada = 19,
    CantZLaminada = 20,
    UULaminado = 21,
    DoisULaminado = 22,
    IDobrado = 23,
    ISoldado = 24,
    ILaminadoUSA = 25,
    Chapa = 26,
    kTotal,
};
inline constexpr int kClasses = static_cast<int>(Classe::kTotal);

/// What one constructor value is. The symbols are the trade's: h height, b width, t thickness, e
/// distances of axes.
enum class Papel : std::uint8_t {
    Fim = 0,  ///< ends a list
    H,
    B1,  ///< width, upper flange
    B2,
    T,
    Ri,  ///< inner bend radius, or root radius of rolled shapes
    Ang1,
    Ang2,
    Aba,   ///< lip
    Vao,   ///< gap between two pieces, or outside width of the whole
    VaoV,  ///< gap or shift in height
    E,
    Ex,
    Ey,
    D,
    Dint,
    Tf1,
    Tf2,
    Bc,
    Bb,
    Tc,
    Tb,
    Tw,
    Especie,
    Tipo,
    Giro,  ///< turn about the piece's own axis
    L,
    M,  ///< kg/m
    A,  ///< area
    D1,
    D2,
    D3,
    Rot1,
    Rot2,
    Zero,  ///< carries nothing
    kTotal,
};
inline constexpr int kPapeis = static_cast<int>(Papel::kTotal);
inline constexpr int kMaxValores = 14;

/// Values in the order of one constructor.
using Papeis = std::array<Papel, kMaxValores>;

/// Number of values of a list.
constexpr int quantos(const Papeis& papeis) {
    int n = 0;
    while (n < kMaxValores && papeis[static_cast<std::size_t>(n)] != Papel::Fim) ++n;
    return n;
}

/// Values by role; roles that a class lacks are 0.
struct Dados {
    std::array<double, kPapeis> v{};
    double operator[](Papel p) const { return v[static_cast<std::size_t>(p)]; }
    double& operator[](Papel p) { return v[static_cast<std::size_t>(p)]; }
    /// Which form of constructor the values came from: 1 where a class has a second form.
    int variante = 0;
};

struct Montagem;
/// Loops of the section about the member's axis, the turn about it not yet applied.
using Montador = Montagem(const Dados&);
/// Name or sizes as a draughtsman reads them; `subtipo` is the series of a welded I.
using Texto = std::wstring(const Dados&, int subtipo);

/// A text that is always the same, or one that depends on the values.
struct Nome {
    constexpr Nome(const wchar_t* fixo) : fixo(fixo) {}
    constexpr Nome(Texto* regra) : regra(regra) {}
    const wchar_t* fixo = nullptr;
    Texto* regra = nullptr;
};

/// What a size is called in one class, where it means something of its own.
struct Rotulo {
    Papel papel = Papel::Fim;
    const wchar_t* texto = nullptr;
};

enum class Composicao : std::uint8_t {
    Uma,
    Duas,       ///< height and width are those of the whole
    DuasEmCm2,  ///< the same; the area handed over is in cm2
};

/// One section class: everything that other sources need to know of it. Only the labels may be
/// left out.
struct Descricao {
    Classe classe;
    const wchar_t* nome;  ///< of the run-time class
    /// Forms of the constructors; a class has at most two of each, an empty one does not exist.
    std::array<Papeis, 2> umPonto;
    std::array<Papeis, 2> doisPontos;
    Composicao composicao;
    Montador& monta;
    Nome perfil;       ///< "Ue"
    Texto& dimensoes;  ///< "200x75x20x2,65"
    std::array<Rotulo, 3> rotulos{};
};

const Descricao& descricao(Classe classe);

/// The constructor of a class with one or two points and so many values; null when there is none.
const Papeis* papeisDe(Classe classe, int pontos, int valores);

/// Place of a role in a constructor's values; -1 when it has none, or `papeis` is null.
int lugarDe(const Papeis* papeis, Papel papel);

/// `valores` as handed to the constructor with so many points: mm, radians, kg/m.
Dados dadosDe(Classe classe, int pontos, std::span<const double> valores);

/// Power of the scale factor by which a uniform scaling multiplies a value of this role.
int potencia(Papel papel);

}  // namespace zp::secao
