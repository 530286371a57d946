// SPDX-License-Identifier: MIT
// Cold-formed sections, tubes and round bars: which constructor is which class.
#include "perfis/entities/zpdobrados.h"

#include "zp/objects/peca.h"
#include "zp/objects/secao/classes.h"

using zp::secao::Classe;
using zp::secao::Papel;

namespace {

template <class Enumeracao>
constexpr int numero(Enumeracao e) {
    return static_cast<int>(e);
}

}  // namespace

#define ZP_DEFINE_VALOR(CLASSE, NOME, PAPEL)              \
    Acad::ErrorStatus CLASSE::NOME(double& valor) const { \
        return leValor(numero(Papel::PAPEL), valor);      \
    }                                                     \
    Acad::ErrorStatus CLASSE::set##NOME(double valor) {   \
        return gravaValor(numero(Papel::PAPEL), valor);   \
    }

ACRX_DXF_DEFINE_MEMBERS(ZpUDobrado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPUDOBRADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpZDobrado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPZDOBRADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCartola, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCARTOLA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantoneiraDobrada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent,
                        0, ZPCANTONEIRADOBRADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCaixaDobrado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCAIXADOBRADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpBox, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, ZPBOX,
                        "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpTubo, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, ZPTUBO,
                        "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpBarraRedonda, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPBARRAREDONDA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantTDobrada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCANTTDOBRADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantUDobrada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCANTUDOBRADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpXDobrado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPXDOBRADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpIDobrado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPIDOBRADO, "ZpObjects18|Perfis de aço")

ZpUDobrado::ZpUDobrado() : ZpObject(numero(Classe::UDobrado)) {}

ZpUDobrado::ZpUDobrado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b1, double b2,
                       double t, double ri, double a1, double a2, double L, double r,
                       double reservado1, double aba)
    : ZpObject(numero(Classe::UDobrado), ponto, vista,
               {h, b1, b2, t, ri, a1, a2, L, r, reservado1, aba}) {}

ZpUDobrado::ZpUDobrado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double h,
                       double b1, double b2, double t, double ri, double a1, double a2,
                       double reservado1, double aba)
    : ZpObject(numero(Classe::UDobrado), inicio, fim, vista,
               {h, b1, b2, t, ri, a1, a2, reservado1, aba}) {}

ZpZDobrado::ZpZDobrado() : ZpObject(numero(Classe::ZDobrado)) {}

ZpZDobrado::ZpZDobrado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b, double aba,
                       double t, double ri, double a1, double a2, double L, double reservado1,
                       double reservado2, double reservado3, double reservado4)
    : ZpObject(numero(Classe::ZDobrado), ponto, vista,
               {h, b, aba, t, ri, a1, a2, L, reservado1, reservado2, reservado3, reservado4}) {}

ZpZDobrado::ZpZDobrado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double h,
                       double b, double aba, double t, double ri, double a1, double a2,
                       double reservado1, double reservado2, double reservado3)
    : ZpObject(numero(Classe::ZDobrado), inicio, fim, vista,
               {h, b, aba, t, ri, a1, a2, reservado1, reservado2, reservado3}) {}

ZpCartola::ZpCartola() : ZpObject(numero(Classe::Cartola)) {}

ZpCartola::ZpCartola(const AcGePoint3d& ponto, ZpVistas vista, double h, double b, double t,
                     double ri, double aba, double L, double reservado1, double reservado2)
    : ZpObject(numero(Classe::Cartola), ponto, vista,
               {h, b, t, ri, aba, L, reservado1, reservado2}) {}

ZpCartola::ZpCartola(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double h,
                     double b, double t, double ri, double aba, double reservado1)
    : ZpObject(numero(Classe::Cartola), inicio, fim, vista, {h, b, t, ri, aba, reservado1}) {}

ZpCantoneiraDobrada::ZpCantoneiraDobrada() : ZpObject(numero(Classe::CantoneiraDobrada)) {}

ZpCantoneiraDobrada::ZpCantoneiraDobrada(const AcGePoint3d& ponto, ZpVistas vista, double h,
                                         double b, double t, double ri, double angulo, double L,
                                         double r, double reservado1, double reservado2)
    : ZpObject(numero(Classe::CantoneiraDobrada), ponto, vista,
               {h, b, t, ri, angulo, L, r, reservado1, reservado2}) {}

ZpCantoneiraDobrada::ZpCantoneiraDobrada(const AcGePoint3d& inicio, const AcGePoint3d& fim,
                                         ZpVistas vista, double h, double b, double t, double ri,
                                         double angulo, double reservado1, double reservado2)
    : ZpObject(numero(Classe::CantoneiraDobrada), inicio, fim, vista,
               {h, b, t, ri, angulo, reservado1, reservado2}) {}

ZpCaixaDobrado::ZpCaixaDobrado() : ZpObject(numero(Classe::CaixaDobrado)) {}

ZpCaixaDobrado::ZpCaixaDobrado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                               double t, double ri, double w, double L, double reservado1,
                               double reservado2, double aba)
    : ZpObject(numero(Classe::CaixaDobrado), ponto, vista,
               {h, b, t, ri, w, L, reservado1, reservado2, aba}) {}

ZpCaixaDobrado::ZpCaixaDobrado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                               double h, double b, double t, double ri, double w, double reservado1,
                               double aba)
    : ZpObject(numero(Classe::CaixaDobrado), inicio, fim, vista,
               {h, b, t, ri, w, reservado1, aba}) {}

ZpBox::ZpBox() : ZpObject(numero(Classe::Box)) {}

ZpBox::ZpBox(const AcGePoint3d& ponto, ZpVistas vista, double h, double b, double t, double ri,
             double L, double reservado1, double reservado2)
    : ZpObject(numero(Classe::Box), ponto, vista, {h, b, t, ri, L, reservado1, reservado2}) {}

ZpBox::ZpBox(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double h, double b,
             double t, double ri, double reservado1)
    : ZpObject(numero(Classe::Box), inicio, fim, vista, {h, b, t, ri, reservado1}) {}

ZpTubo::ZpTubo() : ZpObject(numero(Classe::Tubo)) {}

ZpTubo::ZpTubo(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double d,
               double dint)
    : ZpObject(numero(Classe::Tubo), inicio, fim, vista, {d, dint}) {}

ZP_DEFINE_VALOR(ZpTubo, Diametro, D)
ZP_DEFINE_VALOR(ZpTubo, DiametroInt, Dint)

ZpBarraRedonda::ZpBarraRedonda() : ZpObject(numero(Classe::BarraRedonda)) {}

ZpBarraRedonda::ZpBarraRedonda(const AcGePoint3d& ponto, ZpVistas vista, double d, double L,
                               double reservado1)
    : ZpObject(numero(Classe::BarraRedonda), ponto, vista, {d, L, reservado1}) {}

ZpBarraRedonda::ZpBarraRedonda(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                               double d)
    : ZpObject(numero(Classe::BarraRedonda), inicio, fim, vista, {d}) {}

ZpCantTDobrada::ZpCantTDobrada() : ZpObject(numero(Classe::CantTDobrada)) {}

ZpCantTDobrada::ZpCantTDobrada(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                               double t, double ri, double vao, double L, double r,
                               double reservado1, double reservado2)
    : ZpObject(numero(Classe::CantTDobrada), ponto, vista,
               {h, b, t, ri, vao, L, r, reservado1, reservado2}) {}

ZpCantTDobrada::ZpCantTDobrada(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                               double h, double b, double t, double ri, double vao,
                               double reservado1, double reservado2)
    : ZpObject(numero(Classe::CantTDobrada), inicio, fim, vista,
               {h, b, t, ri, vao, reservado1, reservado2}) {}

ZpCantUDobrada::ZpCantUDobrada() : ZpObject(numero(Classe::CantUDobrada)) {}

ZpCantUDobrada::ZpCantUDobrada(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                               double t, double ri, double w, double L, double r, double reservado1,
                               double reservado2)
    : ZpObject(numero(Classe::CantUDobrada), ponto, vista,
               {h, b, t, ri, w, L, r, reservado1, reservado2}) {}

ZpCantUDobrada::ZpCantUDobrada(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                               double h, double b, double t, double ri, double w, double reservado1,
                               double reservado2)
    : ZpObject(numero(Classe::CantUDobrada), inicio, fim, vista,
               {h, b, t, ri, w, reservado1, reservado2}) {}

ZpXDobrado::ZpXDobrado() : ZpObject(numero(Classe::XDobrado)) {}

ZpXDobrado::ZpXDobrado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b, double t,
                       double ri, double vao, double L, double r, double reservado1,
                       double reservado2, double reservado3)
    : ZpObject(numero(Classe::XDobrado), ponto, vista,
               {h, b, t, ri, vao, L, r, reservado1, reservado2, reservado3}) {}

ZpXDobrado::ZpXDobrado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double h,
                       double b, double t, double ri, double vao, double reservado1,
                       double reservado2, double reservado3)
    : ZpObject(numero(Classe::XDobrado), inicio, fim, vista,
               {h, b, t, ri, vao, reservado1, reservado2, reservado3}) {}

ZpIDobrado::ZpIDobrado() : ZpObject(numero(Classe::IDobrado)) {}

ZpIDobrado::ZpIDobrado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b1, double b2,
                       double t, double ri, double vao, double L, double aba, double especie,
                       double reservado1)
    : ZpObject(numero(Classe::IDobrado), ponto, vista,
               {h, b1, b2, t, ri, vao, L, aba, especie, reservado1}) {}

ZpIDobrado::ZpIDobrado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double h,
                       double b1, double b2, double t, double ri, double vao, double aba,
                       double especie)
    : ZpObject(numero(Classe::IDobrado), inicio, fim, vista,
               {h, b1, b2, t, ri, vao, aba, especie}) {}

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
