// SPDX-License-Identifier: MIT
// The section classes as run-time classes: their constructors, made from one row each and held
// against the table of sections while compiling, and what single classes add.
#include <string_view>
#include <type_traits>
#include <utility>

#include "perfis/entities/zpentidades.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/blocks.h"
#include "zp/objects/secao/table.h"
#include "zp/objects/zp_classes.h"

namespace {

using zp::secao::Classe;
using zp::secao::linha;
using zp::secao::Papel;

template <class Enumeracao>
constexpr int numero(Enumeracao e) {
    return static_cast<int>(e);
}

template <class>
using Valor = double;

/// True when the class can be made from these arguments and n numbers after them.
template <class Perfil, class... Antes, std::size_t... I>
constexpr bool aceita(std::index_sequence<I...>) {
    return std::is_constructible_v<Perfil, Antes...,
                                   Valor<std::integral_constant<std::size_t, I>>...>;
}

/// True when the class declares just the constructors that its row in the table of sections has.
template <class Perfil, Classe kClasse>
constexpr bool comoNaTabela() {
    using Ponto = const AcGePoint3d&;
    using Vista = ZpObject::ZpVistas;
    constexpr auto kUm = static_cast<std::size_t>(quantos(linha(kClasse).umPonto[0]));
    constexpr auto kDois = static_cast<std::size_t>(quantos(linha(kClasse).doisPontos[0]));
    return aceita<Perfil, Ponto, Vista>(std::make_index_sequence<kUm>()) == (kUm > 0) &&
           aceita<Perfil, Ponto, Ponto, Vista>(std::make_index_sequence<kDois>()) == (kDois > 0);
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
#define ZP_UM_PONTO(PERFIL, CLASSE, N)                                 \
    PERFIL::PERFIL(const AcGePoint3d& ponto, ZpVistas vista, ZP_N##N)  \
        : ZpObject(numero(Classe::CLASSE), ponto, vista, {ZP_V##N}) {} \
    static_assert(quantos(linha(Classe::CLASSE).umPonto[0]) == N);
#define ZP_DOIS_PONTOS(PERFIL, CLASSE, N)                                                      \
    PERFIL::PERFIL(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, ZP_N##N) \
        : ZpObject(numero(Classe::CLASSE), inicio, fim, vista, {ZP_V##N}) {}                   \
    static_assert(quantos(linha(Classe::CLASSE).doisPontos[0]) == N);
#define ZP_CONSTRUTORES(PERFIL, CLASSE, UM, DOIS) \
    ZP_UM_PONTO(PERFIL, CLASSE, UM)               \
    ZP_DOIS_PONTOS(PERFIL, CLASSE, DOIS)          \
    static_assert(comoNaTabela<PERFIL, Classe::CLASSE>());

#define ZP_CLASSE(PERFIL, CLASSE, DXF)                                                            \
    ACRX_DXF_DEFINE_MEMBERS(PERFIL, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, DXF, \
                            "ZpObjects18|Perfis de aço")                                          \
    PERFIL::PERFIL() : ZpObject(numero(Classe::CLASSE)) {}                                        \
    static_assert(std::wstring_view(linha(Classe::CLASSE).nome) == L## #PERFIL);
ZP_PERFIS(ZP_CLASSE)

ZP_CONSTRUTORES(ZpUDobrado, UDobrado, 11, 9)
ZP_CONSTRUTORES(ZpZDobrado, ZDobrado, 12, 10)
ZP_CONSTRUTORES(ZpCartola, Cartola, 8, 6)
ZP_CONSTRUTORES(ZpCantoneiraDobrada, CantoneiraDobrada, 9, 7)
ZP_CONSTRUTORES(ZpCaixaDobrado, CaixaDobrado, 9, 7)
ZP_CONSTRUTORES(ZpBox, Box, 7, 5)
ZP_DOIS_PONTOS(ZpTubo, Tubo, 2)
ZP_CONSTRUTORES(ZpBarraRedonda, BarraRedonda, 3, 1)
ZP_CONSTRUTORES(ZpCantTDobrada, CantTDobrada, 9, 7)
ZP_CONSTRUTORES(ZpCantUDobrada, CantUDobrada, 9, 7)
ZP_CONSTRUTORES(ZpXDobrado, XDobrado, 10, 8)
ZP_CONSTRUTORES(ZpIDobrado, IDobrado, 10, 8)
ZP_CONSTRUTORES(ZpBNLaminado, BNLaminado, 9, 7)
ZP_CONSTRUTORES(ZpCantLaminada, CantLaminada, 11, 9)
ZP_CONSTRUTORES(ZpCantLaminadaCaixa, CantLaminadaCaixa, 9, 7)
ZP_CONSTRUTORES(ZpULaminado, ULaminado, 13, 11)
ZP_CONSTRUTORES(ZpCantTEELaminada, CantTEELaminada, 12, 10)
ZP_CONSTRUTORES(ZpCantULaminada, CantULaminada, 12, 10)
ZP_CONSTRUTORES(ZpBNDuplaLaminada, BNDuplaLaminada, 10, 8)
ZP_CONSTRUTORES(ZpCantCruzLaminada, CantCruzLaminada, 11, 9)
ZP_CONSTRUTORES(ZpCantZLaminada, CantZLaminada, 11, 9)
ZP_CONSTRUTORES(ZpUULaminado, UULaminado, 13, 11)
ZP_CONSTRUTORES(Zp2ULaminado, DoisULaminado, 14, 12)
ZP_CONSTRUTORES(ZpISoldado, ISoldado, 9, 7)
ZP_UM_PONTO(ZpChapa, Chapa, 5)

// The second form of the welded I has its view among the numbers.
ZpISoldado::ZpISoldado(const AcGePoint3d& ponto, double H, double bc, double bb, double tc,
                       double tb, double tw, double L, ZpVistas vista, double reservado1,
                       double reservado2, double reservado3)
    : ZpObject(numero(Classe::ISoldado), ponto, vista,
               {H, bc, bb, tc, tb, tw, L, reservado1, reservado2, reservado3}) {}

ZpISoldado::ZpISoldado(const AcGePoint3d& inicio, const AcGePoint3d& fim, double H, double bc,
                       double bb, double tc, double tb, double tw, ZpVistas vista,
                       double reservado1, double reservado2)
    : ZpObject(numero(Classe::ISoldado), inicio, fim, vista,
               {H, bc, bb, tc, tb, tw, reservado1, reservado2}) {}

// That of the rolled I has its type among them.
ZpILaminadoUSA::ZpILaminadoUSA(const AcGePoint3d& ponto, ZpVistas vista, double H, double B,
                               double tw, double tf, ISolType tipo, double reservado1,
                               double reservado2, double L, double A, double m)
    : ZpObject(numero(Classe::ILaminadoUSA), ponto, vista,
               {H, B, tw, tf, static_cast<double>(tipo), reservado1, reservado2, L, A, m}) {}

ZpILaminadoUSA::ZpILaminadoUSA(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                               double H, double B, double tw, double tf, ISolType tipo,
                               double reservado1, double A, double m)
    : ZpObject(numero(Classe::ILaminadoUSA), inicio, fim, vista,
               {H, B, tw, tf, static_cast<double>(tipo), reservado1, A, m}) {}

static_assert(quantos(linha(Classe::ISoldado).umPonto[1]) == 10 &&
              quantos(linha(Classe::ISoldado).doisPontos[1]) == 8 &&
              quantos(linha(Classe::ILaminadoUSA).umPonto[0]) == 10 &&
              quantos(linha(Classe::ILaminadoUSA).doisPontos[0]) == 8);
static_assert(comoNaTabela<ZpTubo, Classe::Tubo>() && comoNaTabela<ZpChapa, Classe::Chapa>());

#define ZP_DEFINE_VALOR(PERFIL, NOME, PAPEL)              \
    Acad::ErrorStatus PERFIL::NOME(double& valor) const { \
        return leValor(numero(Papel::PAPEL), valor);      \
    }                                                     \
    Acad::ErrorStatus PERFIL::set##NOME(double valor) {   \
        return gravaValor(numero(Papel::PAPEL), valor);   \
    }
#define ZP_DEFINE_ROLADO(PERFIL)           \
    ZP_DEFINE_VALOR(PERFIL, KgMetro, M)    \
    ZP_DEFINE_VALOR(PERFIL, Area, A)       \
    ZP_DEFINE_VALOR(PERFIL, RaioDobra, Ri) \
    ZP_DEFINE_VALOR(PERFIL, Espessura, T)
#define ZP_DEFINE_EIXOS(PERFIL)        \
    ZP_DEFINE_VALOR(PERFIL, EixoX, Ex) \
    ZP_DEFINE_VALOR(PERFIL, EixoY, Ey)

ZP_DEFINE_ROLADO(ZpBNLaminado)
ZP_DEFINE_ROLADO(ZpCantLaminada)
ZP_DEFINE_EIXOS(ZpCantLaminada)
ZP_DEFINE_ROLADO(ZpCantLaminadaCaixa)
ZP_DEFINE_ROLADO(ZpULaminado)
ZP_DEFINE_VALOR(ZpULaminado, EixoX, Ex)
ZP_DEFINE_ROLADO(ZpCantTEELaminada)
ZP_DEFINE_EIXOS(ZpCantTEELaminada)
ZP_DEFINE_ROLADO(ZpCantULaminada)
ZP_DEFINE_EIXOS(ZpCantULaminada)
ZP_DEFINE_ROLADO(ZpBNDuplaLaminada)
ZP_DEFINE_ROLADO(ZpCantCruzLaminada)
ZP_DEFINE_ROLADO(ZpCantZLaminada)
ZP_DEFINE_ROLADO(ZpUULaminado)
ZP_DEFINE_ROLADO(Zp2ULaminado)
ZP_DEFINE_VALOR(ZpTubo, Diametro, D)
ZP_DEFINE_VALOR(ZpTubo, DiametroInt, Dint)

double ZpULaminado::calcDeslocF(double b, double t) { return zp::secao::deslocamentoFlange(b, t); }

Acad::ErrorStatus ZpTubo::KgMetro(double& valor) const {
    valor = getLinearWeight();
    return Acad::eOk;
}

Acad::ErrorStatus ZpTubo::Area(double& valor) const {
    valor = getArea();
    return Acad::eOk;
}

// In the section view the corners are those of the inner diameter, negative ones included: the
// command widens them by the wall and so dimensions the outer one.
void ZpTubo::GetLimitPointsOfFaces(AcGePoint3d& f0, AcGePoint3d& f1, AcGePoint3d& f2,
                                   AcGePoint3d& f3) const {
    const zp::Peca& p = zp::Acesso::de(*this);
    if (!p.emSecao()) return ZpObject::GetLimitPointsOfFaces(f0, f1, f2, f3);
    assertReadEnabled();
    const double meio = 0.5 * p.papeis()[Papel::Dint];
    const zp::Quadro q = p.quadro();
    f0 = q.paraFora(-meio, meio);
    f1 = q.paraFora(-meio, -meio);
    f2 = q.paraFora(meio, meio);
    f3 = q.paraFora(meio, -meio);
}

Acad::ErrorStatus ZpISoldado::setSubType(SubType tipo) {
    if (tipo < kFavoritos || tipo > kCS) return Acad::eInvalidInput;
    assertWriteEnabled();
    zp::Peca& p = zp::Acesso::de(*this);
    p.subtipo = static_cast<std::uint8_t>(tipo);
    p.barraVelha = true;
    return Acad::eOk;
}

Acad::ErrorStatus ZpISoldado::subType(SubType& tipo) const {
    assertReadEnabled();
    tipo = static_cast<SubType>(zp::Acesso::de(*this).subtipo);
    return Acad::eOk;
}

Acad::ErrorStatus ZpChapa::espessura(double& valor) const {
    valor = getEspessura();
    return Acad::eOk;
}

Acad::ErrorStatus ZpChapa::largura(double& valor) const {
    valor = getLargura();
    return Acad::eOk;
}

double ZpChapa::getVolume() const { return getLargura() * getEspessura() * getComprimentoReal(); }

namespace zp {
namespace {

struct ClasseZp {
    void (*inicia)();
    AcRxClass* (*descricao)();
};

#define ZP_REGISTRO(PERFIL, CLASSE, DXF) {PERFIL::rxInit, PERFIL::desc},
constexpr ClasseZp kClassesZp[] = {ZP_PERFIS(ZP_REGISTRO)};
static_assert(std::size(kClassesZp) == static_cast<std::size_t>(Classe::kTotal) - 1);

}  // namespace

void registraClasses() {
    ZpObject::rxInit();
    for (const ClasseZp& c : kClassesZp) c.inicia();
    acrxBuildClassHierarchy();
}

void retiraClasses() {
    for (const ClasseZp& c : kClassesZp) deleteAcRxClass(c.descricao());
    deleteAcRxClass(ZpObject::desc());
}

}  // namespace zp
