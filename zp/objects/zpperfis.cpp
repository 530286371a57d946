// SPDX-License-Identifier: MIT
// The section classes as run-time classes: their constructors, made from one row each and held
// against the table of sections while compiling, and what single classes add.
#include <string_view>
#include <type_traits>
#include <utility>

#include "perfis/entities/zpentidades.h"
#include "zp/objects/peca.h"
#include "zp/objects/published.h"
#include "zp/objects/secao/blocks.h"
#include "zp/objects/secao/table.h"
#include "zp/objects/zp_classes.h"

namespace {

using zp::secao::Kind;
using zp::secao::Role;
using zp::secao::row;

template <class Enumeration>
constexpr int number(Enumeration e) {
    return static_cast<int>(e);
}

template <class>
using Value = double;

/// True when the class can be made from these arguments and n numbers after them.
template <class Perfil, class... First, std::size_t... I>
constexpr bool accepts(std::index_sequence<I...>) {
    return std::is_constructible_v<Perfil, First...,
                                   Value<std::integral_constant<std::size_t, I>>...>;
}

/// True when the class declares just the constructors that its row in the table of sections has.
template <class Perfil, Kind kKind>
constexpr bool asInTable() {
    using Point = const AcGePoint3d&;
    using Vista = ZpObject::ZpVistas;
    constexpr auto kOne = static_cast<std::size_t>(count(row(kKind).onePoint[0]));
    constexpr auto kTwo = static_cast<std::size_t>(count(row(kKind).twoPoints[0]));
    return accepts<Perfil, Point, Vista>(std::make_index_sequence<kOne>()) == (kOne > 0) &&
           accepts<Perfil, Point, Point, Vista>(std::make_index_sequence<kTwo>()) == (kTwo > 0);
}

}  // namespace

// clang-format off
/// All classes: X(run-time class, section class, DXF name).
#define ZP_PERFIS(X)                                                 \
    X(ZpUDobrado, UDobrado, ZPUDOBRADO)                              \
    X(ZpZDobrado, ZDobrado, ZPZDOBRADO)                              \
    X(ZpCartola, Cartola, ZPCARTOLA)                                 \
    X(ZpCantoneiraDobrada, CantoneiraDobrada, ZPCANTONEIRADOBRADA)   \
    X(ZpCaixaDobrado, CaixaDobrado, ZPCAIXADOBRADO)                  \
    X(ZpBox, Box, ZPBOX)                                             \
    X(ZpTubo, Tubo, ZPTUBO)                                          \
    X(ZpBarraRedonda, BarraRedonda, ZPBARRAREDONDA)                  \
    X(ZpCantTDobrada, CantTDobrada, ZPCANTTDOBRADA)                  \
    X(ZpCantUDobrada, CantUDobrada, ZPCANTUDOBRADA)                  \
    X(ZpXDobrado, XDobrado, ZPXDOBRADO)                              \
    X(ZpIDobrado, IDobrado, ZPIDOBRADO)                              \
    X(ZpBNLaminado, BNLaminado, ZPBNLAMINADO)                        \
    X(ZpCantLaminada, CantLaminada, ZPCANTLAMINADA)                  \
    X(ZpCantLaminadaCaixa, CantLaminadaCaixa, ZPCANTLAMINADACAIXA)   \
    X(ZpULaminado, ULaminado, ZPULAMINADO)                           \
    X(ZpCantTEELaminada, CantTEELaminada, ZPCANTTEELAMINADA)         \
    X(ZpCantULaminada, CantULaminada, ZPCANTULAMINADA)               \
    X(ZpBNDuplaLaminada, BNDuplaLaminada, ZPBNDUPLALAMINADA)         \
    X(ZpCantCruzLaminada, CantCruzLaminada, ZPCANTCRUZLAMINADA)      \
    X(ZpCantZLaminada, CantZLaminada, ZPCANTZLAMINADA)               \
    X(ZpUULaminado, UULaminado, ZPUULAMINADO)                        \
    X(Zp2ULaminado, DoisULaminado, ZP2ULAMINADO)                     \
    X(ZpISoldado, ISoldado, ZPISOLDADO)                              \
    X(ZpILaminadoUSA, ILaminadoUSA, ZPILAMINADOUSA)                  \
    X(ZpChapa, Chapa, ZPCHAPA)

#define ZP_N1 double v1
#define ZP_N2 ZP_N1, double v2
#define ZP_N3 ZP_N2, double v3
#define ZP_N4 ZP_N3, double v4
#define ZP_N5 ZP_N4, double v5
#define ZP_N6 ZP_N5, double v6
#define ZP_N7 ZP_N6, double v7
#define ZP_N8 ZP_N7, double v8
#define ZP_N9 ZP_N8, double v9
#define ZP_N10 ZP_N9, double v10
#define ZP_N11 ZP_N10, double v11
#define ZP_N12 ZP_N11, double v12
#define ZP_N13 ZP_N12, double v13
#define ZP_N14 ZP_N13, double v14
#define ZP_V1 v1
#define ZP_V2 ZP_V1, v2
#define ZP_V3 ZP_V2, v3
#define ZP_V4 ZP_V3, v4
#define ZP_V5 ZP_V4, v5
#define ZP_V6 ZP_V5, v6
#define ZP_V7 ZP_V6, v7
#define ZP_V8 ZP_V7, v8
#define ZP_V9 ZP_V8, v9
#define ZP_V10 ZP_V9, v10
#define ZP_V11 ZP_V10, v11
#define ZP_V12 ZP_V11, v12
#define ZP_V13 ZP_V12, v13
#define ZP_V14 ZP_V13, v14
// clang-format on

/// Constructors from one and from two points with so many numbers, in the order of the table.
#define ZP_ONE_POINT(PERFIL, KIND, N)                                 \
    PERFIL::PERFIL(const AcGePoint3d& point, ZpVistas vista, ZP_N##N) \
        : ZpObject(number(Kind::KIND), point, vista, {ZP_V##N}) {}    \
    static_assert(count(row(Kind::KIND).onePoint[0]) == N);
#define ZP_TWO_POINTS(PERFIL, KIND, N)                                                        \
    PERFIL::PERFIL(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, ZP_N##N) \
        : ZpObject(number(Kind::KIND), start, end, vista, {ZP_V##N}) {}                       \
    static_assert(count(row(Kind::KIND).twoPoints[0]) == N);
#define ZP_CONSTRUCTORS(PERFIL, KIND, ONE, TWO) \
    ZP_ONE_POINT(PERFIL, KIND, ONE)             \
    ZP_TWO_POINTS(PERFIL, KIND, TWO)            \
    static_assert(asInTable<PERFIL, Kind::KIND>());

#define ZP_CLASS(PERFIL, KIND, DXF)                                                               \
    ACRX_DXF_DEFINE_MEMBERS(PERFIL, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, DXF, \
                            "ZpObjects18|Perfis de aço")                                          \
    PERFIL::PERFIL() : ZpObject(number(Kind::KIND)) {}                                            \
    static_assert(std::wstring_view(row(Kind::KIND).name) == L## #PERFIL);
ZP_PERFIS(ZP_CLASS)

ZP_CONSTRUCTORS(ZpUDobrado, UDobrado, 11, 9)
ZP_CONSTRUCTORS(ZpZDobrado, ZDobrado, 12, 10)
ZP_CONSTRUCTORS(ZpCartola, Cartola, 8, 6)
ZP_CONSTRUCTORS(ZpCantoneiraDobrada, CantoneiraDobrada, 9, 7)
ZP_CONSTRUCTORS(ZpCaixaDobrado, CaixaDobrado, 9, 7)
ZP_CONSTRUCTORS(ZpBox, Box, 7, 5)
ZP_TWO_POINTS(ZpTubo, Tubo, 2)
ZP_CONSTRUCTORS(ZpBarraRedonda, BarraRedonda, 3, 1)
ZP_CONSTRUCTORS(ZpCantTDobrada, CantTDobrada, 9, 7)
ZP_CONSTRUCTORS(ZpCantUDobrada, CantUDobrada, 9, 7)
ZP_CONSTRUCTORS(ZpXDobrado, XDobrado, 10, 8)
ZP_CONSTRUCTORS(ZpIDobrado, IDobrado, 10, 8)
ZP_CONSTRUCTORS(ZpBNLaminado, BNLaminado, 9, 7)
ZP_CONSTRUCTORS(ZpCantLaminada, CantLaminada, 11, 9)
ZP_CONSTRUCTORS(ZpCantLaminadaCaixa, CantLaminadaCaixa, 9, 7)
ZP_CONSTRUCTORS(ZpULaminado, ULaminado, 13, 11)
ZP_CONSTRUCTORS(ZpCantTEELaminada, CantTEELaminada, 12, 10)
ZP_CONSTRUCTORS(ZpCantULaminada, CantULaminada, 12, 10)
ZP_CONSTRUCTORS(ZpBNDuplaLaminada, BNDuplaLaminada, 10, 8)
ZP_CONSTRUCTORS(ZpCantCruzLaminada, CantCruzLaminada, 11, 9)
ZP_CONSTRUCTORS(ZpCantZLaminada, CantZLaminada, 11, 9)
ZP_CONSTRUCTORS(ZpUULaminado, UULaminado, 13, 11)
ZP_CONSTRUCTORS(Zp2ULaminado, DoisULaminado, 14, 12)
ZP_CONSTRUCTORS(ZpISoldado, ISoldado, 9, 7)
ZP_ONE_POINT(ZpChapa, Chapa, 5)

// The second form of the welded I has its view among the numbers.
ZpISoldado::ZpISoldado(const AcGePoint3d& point, double H, double bc, double bb, double tc,
                       double tb, double tw, double L, ZpVistas vista, double reserved1,
                       double reserved2, double reserved3)
    : ZpObject(number(Kind::ISoldado), point, vista,
               {H, bc, bb, tc, tb, tw, L, reserved1, reserved2, reserved3}) {}

ZpISoldado::ZpISoldado(const AcGePoint3d& start, const AcGePoint3d& end, double H, double bc,
                       double bb, double tc, double tb, double tw, ZpVistas vista, double reserved1,
                       double reserved2)
    : ZpObject(number(Kind::ISoldado), start, end, vista,
               {H, bc, bb, tc, tb, tw, reserved1, reserved2}) {}

// That of the rolled I has its type among them.
ZpILaminadoUSA::ZpILaminadoUSA(const AcGePoint3d& point, ZpVistas vista, double H, double B,
                               double tw, double tf, ISolType type, double reserved1,
                               double reserved2, double L, double A, double m)
    : ZpObject(number(Kind::ILaminadoUSA), point, vista,
               {H, B, tw, tf, static_cast<double>(type), reserved1, reserved2, L, A, m}) {}

ZpILaminadoUSA::ZpILaminadoUSA(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista,
                               double H, double B, double tw, double tf, ISolType type,
                               double reserved1, double A, double m)
    : ZpObject(number(Kind::ILaminadoUSA), start, end, vista,
               {H, B, tw, tf, static_cast<double>(type), reserved1, A, m}) {}

static_assert(count(row(Kind::ISoldado).onePoint[1]) == 10 &&
              count(row(Kind::ISoldado).twoPoints[1]) == 8 &&
              count(row(Kind::ILaminadoUSA).onePoint[0]) == 10 &&
              count(row(Kind::ILaminadoUSA).twoPoints[0]) == 8);
static_assert(asInTable<ZpTubo, Kind::Tubo>() && asInTable<ZpChapa, Kind::Chapa>());

#define ZP_DEFINE_VALUE(PERFIL, NAME, ROLE)               \
    Acad::ErrorStatus PERFIL::NAME(double& value) const { \
        return readValue(number(Role::ROLE), value);      \
    }                                                     \
    Acad::ErrorStatus PERFIL::set##NAME(double value) {   \
        return writeValue(number(Role::ROLE), value);     \
    }
#define ZP_DEFINE_ROLLED(PERFIL)           \
    ZP_DEFINE_VALUE(PERFIL, KgMetro, M)    \
    ZP_DEFINE_VALUE(PERFIL, Area, A)       \
    ZP_DEFINE_VALUE(PERFIL, RaioDobra, Ri) \
    ZP_DEFINE_VALUE(PERFIL, Espessura, T)
#define ZP_DEFINE_AXES(PERFIL)         \
    ZP_DEFINE_VALUE(PERFIL, EixoX, Ex) \
    ZP_DEFINE_VALUE(PERFIL, EixoY, Ey)

ZP_DEFINE_ROLLED(ZpBNLaminado)
ZP_DEFINE_ROLLED(ZpCantLaminada)
ZP_DEFINE_AXES(ZpCantLaminada)
ZP_DEFINE_ROLLED(ZpCantLaminadaCaixa)
ZP_DEFINE_ROLLED(ZpULaminado)
ZP_DEFINE_VALUE(ZpULaminado, EixoX, Ex)
ZP_DEFINE_ROLLED(ZpCantTEELaminada)
ZP_DEFINE_AXES(ZpCantTEELaminada)
ZP_DEFINE_ROLLED(ZpCantULaminada)
ZP_DEFINE_AXES(ZpCantULaminada)
ZP_DEFINE_ROLLED(ZpBNDuplaLaminada)
ZP_DEFINE_ROLLED(ZpCantCruzLaminada)
ZP_DEFINE_ROLLED(ZpCantZLaminada)
ZP_DEFINE_ROLLED(ZpUULaminado)
ZP_DEFINE_ROLLED(Zp2ULaminado)
ZP_DEFINE_VALUE(ZpTubo, Diametro, D)
ZP_DEFINE_VALUE(ZpTubo, DiametroInt, Dint)

double ZpULaminado::calcDeslocF(double b, double t) { return zp::secao::halfFlangeFall(b, t); }

Acad::ErrorStatus ZpTubo::KgMetro(double& value) const {
    value = getLinearWeight();
    return Acad::eOk;
}

Acad::ErrorStatus ZpTubo::Area(double& value) const {
    value = getArea();
    return Acad::eOk;
}

// In the section view the corners are those of the inner diameter, negative ones included: the
// command widens them by the wall and so dimensions the outer one.
void ZpTubo::GetLimitPointsOfFaces(AcGePoint3d& f0, AcGePoint3d& f1, AcGePoint3d& f2,
                                   AcGePoint3d& f3) const {
    const zp::Peca& p = zp::Access::of(*this);
    if (!p.inSecao()) return ZpObject::GetLimitPointsOfFaces(f0, f1, f2, f3);
    assertReadEnabled();
    const double half = 0.5 * p.roles()[Role::Dint];
    const zp::Frame q = p.frame();
    f0 = q.toWorld(-half, half);
    f1 = q.toWorld(-half, -half);
    f2 = q.toWorld(half, half);
    f3 = q.toWorld(half, -half);
}

Acad::ErrorStatus ZpISoldado::setSubType(SubType type) {
    if (type < kFavoritos || type > kCS) return Acad::eInvalidInput;
    assertWriteEnabled();
    zp::Peca& p = zp::Access::of(*this);
    p.series = static_cast<std::uint8_t>(type);
    p.barraStale = true;
    zp::published::take(p);
    return Acad::eOk;
}

Acad::ErrorStatus ZpISoldado::subType(SubType& type) const {
    assertReadEnabled();
    type = static_cast<SubType>(zp::Access::of(*this).series);
    return Acad::eOk;
}

Acad::ErrorStatus ZpChapa::espessura(double& value) const {
    value = getEspessura();
    return Acad::eOk;
}

Acad::ErrorStatus ZpChapa::largura(double& value) const {
    value = getLargura();
    return Acad::eOk;
}

double ZpChapa::getVolume() const { return getLargura() * getEspessura() * getComprimentoReal(); }

namespace zp {
namespace {

struct ZpClass {
    void (*init)();
    AcRxClass* (*description)();
};

#define ZP_ENTRY(PERFIL, KIND, DXF) {PERFIL::rxInit, PERFIL::desc},
constexpr ZpClass kZpClasses[] = {ZP_PERFIS(ZP_ENTRY)};
static_assert(std::size(kZpClasses) == static_cast<std::size_t>(Kind::kTotal) - 1);

}  // namespace

void registerClasses() {
    ZpObject::rxInit();
    for (const ZpClass& c : kZpClasses) c.init();
    acrxBuildClassHierarchy();
}

void unregisterClasses() {
    for (const ZpClass& c : kZpClasses) deleteAcRxClass(c.description());
    deleteAcRxClass(ZpObject::desc());
}

}  // namespace zp
