// SPDX-License-Identifier: MIT
// The section classes as data: names, what each constructor value means, outline and texts.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace zp::secao {

/// Numbers are filed with every piece: never renumber, only append.
enum class Kind : std::uint8_t {
    None = 0,
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
inline constexpr int kKinds = static_cast<int>(Kind::kTotal);

/// What one constructor value is. The symbols are the trade's: h height, b width, t thickness, e
/// distances of axes.
enum class Role : std::uint8_t {
    End = 0,  ///< ends a list
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
    Species,
    Type,
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
inline constexpr int kRoles = static_cast<int>(Role::kTotal);
inline constexpr int kMaxValues = 14;

/// Values in the order of one constructor.
using Roles = std::array<Role, kMaxValues>;

/// Number of values of a list.
constexpr int count(const Roles& roles) {
    int n = 0;
    while (n < kMaxValues && roles[static_cast<std::size_t>(n)] != Role::End) ++n;
    return n;
}

/// What is known of one shape of a section beyond the values of its constructor.
struct Printed {
    double root = -1.0;  ///< radius of its fillets, mm; negative: no table says
    double toe = -1.0;   ///< radius of its toes, mm
    double area = 0.0;   ///< mm2; 0: no table says
    /// Mass and area that the constructor got belong to another size.
    bool otherMass = false;
    bool operator==(const Printed&) const = default;
};

/// Values by role; roles that a class lacks are 0.
struct RoleValues {
    std::array<double, kRoles> v{};
    double operator[](Role p) const { return v[static_cast<std::size_t>(p)]; }
    double& operator[](Role p) { return v[static_cast<std::size_t>(p)]; }
    /// Which form of constructor the values came from: 1 where a class has a second form.
    int variant = 0;
    Printed printed;
};

struct Assembly;
/// Loops of the section about the member's axis, the turn about it not yet applied.
using Builder = Assembly(const RoleValues&);
/// Name or sizes as a draughtsman reads them; `series` is the series of a welded I.
using TextRule = std::wstring(const RoleValues&, int series);

/// A text that is always the same, or one that depends on the values.
struct Name {
    constexpr Name(const wchar_t* fixed) : fixed(fixed) {}
    constexpr Name(TextRule* rule) : rule(rule) {}
    const wchar_t* fixed = nullptr;
    TextRule* rule = nullptr;
};

/// What a size is called in one class, where it means something of its own.
struct Label {
    Role role = Role::End;
    const wchar_t* text = nullptr;
};

enum class Composition : std::uint8_t {
    One,
    Two,       ///< height and width are those of the whole
    TwoInCm2,  ///< the same; the area handed over is in cm2
};

/// One section class: everything that other sources need to know of it. Only the labels may be
/// left out.
struct Description {
    Kind kind;
    const wchar_t* name;  ///< of the run-time class
    /// Forms of the constructors; a class has at most two of each, an empty one does not exist.
    std::array<Roles, 2> onePoint;
    std::array<Roles, 2> twoPoints;
    Composition composition;
    Builder& build;
    Name perfil;          ///< "Ue"
    TextRule& dimensoes;  ///< "200x75x20x2,65"
    std::array<Label, 3> labels{};
};

const Description& description(Kind kind);

/// The constructor of a class with one or two points and so many values; null when there is none.
const Roles* rolesOf(Kind kind, int points, int values);

/// Place of a role in a constructor's values; -1 when it has none, or `roles` is null.
int placeOf(const Roles* roles, Role role);

/// `values` as handed to the constructor with so many points: mm, radians, kg/m.
RoleValues roleValuesOf(Kind kind, int points, std::span<const double> values);

/// Power of the scale factor by which a uniform scaling multiplies a value of this role.
int power(Role role);

}  // namespace zp::secao
