// SPDX-License-Identifier: MIT
// Rolled angles and U: which constructor is which class.
#include "perfis/entities/zplaminados.h"

#include "zp/objects/secao/blocos.h"
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

ACRX_DXF_DEFINE_MEMBERS(ZpBNLaminado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPBNLAMINADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantLaminada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCANTLAMINADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantLaminadaCaixa, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent,
                        0, ZPCANTLAMINADACAIXA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpULaminado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPULAMINADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantTEELaminada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCANTTEELAMINADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantULaminada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCANTULAMINADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpBNDuplaLaminada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPBNDUPLALAMINADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantCruzLaminada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCANTCRUZLAMINADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpCantZLaminada, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPCANTZLAMINADA, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpUULaminado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPUULAMINADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(Zp2ULaminado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZP2ULAMINADO, "ZpObjects18|Perfis de aço")

ZpBNLaminado::ZpBNLaminado() : ZpObject(numero(Classe::BNLaminado)) {}

ZpBNLaminado::ZpBNLaminado(const AcGePoint3d& ponto, ZpVistas vista, double h, double t, double e,
                           double raio, double reservado1, double reservado2, double L, double m,
                           double A)
    : ZpObject(numero(Classe::BNLaminado), ponto, vista,
               {h, t, e, raio, reservado1, reservado2, L, m, A}) {}

ZpBNLaminado::ZpBNLaminado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                           double h, double t, double e, double raio, double reservado1, double m,
                           double A)
    : ZpObject(numero(Classe::BNLaminado), inicio, fim, vista, {h, t, e, raio, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpBNLaminado, KgMetro, M)
ZP_DEFINE_VALOR(ZpBNLaminado, Area, A)
ZP_DEFINE_VALOR(ZpBNLaminado, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpBNLaminado, Espessura, T)

ZpCantLaminada::ZpCantLaminada() : ZpObject(numero(Classe::CantLaminada)) {}

ZpCantLaminada::ZpCantLaminada(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                               double t, double ex, double ey, double raio, double reservado1,
                               double reservado2, double L, double m, double A)
    : ZpObject(numero(Classe::CantLaminada), ponto, vista,
               {h, b, t, ex, ey, raio, reservado1, reservado2, L, m, A}) {}

ZpCantLaminada::ZpCantLaminada(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                               double h, double b, double t, double ex, double ey, double raio,
                               double reservado1, double m, double A)
    : ZpObject(numero(Classe::CantLaminada), inicio, fim, vista,
               {h, b, t, ex, ey, raio, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpCantLaminada, KgMetro, M)
ZP_DEFINE_VALOR(ZpCantLaminada, Area, A)
ZP_DEFINE_VALOR(ZpCantLaminada, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpCantLaminada, Espessura, T)
ZP_DEFINE_VALOR(ZpCantLaminada, EixoX, Ex)
ZP_DEFINE_VALOR(ZpCantLaminada, EixoY, Ey)

ZpCantLaminadaCaixa::ZpCantLaminadaCaixa() : ZpObject(numero(Classe::CantLaminadaCaixa)) {}

ZpCantLaminadaCaixa::ZpCantLaminadaCaixa(const AcGePoint3d& ponto, ZpVistas vista, double h,
                                         double b, double t, double raio, double reservado1,
                                         double reservado2, double L, double m, double A)
    : ZpObject(numero(Classe::CantLaminadaCaixa), ponto, vista,
               {h, b, t, raio, reservado1, reservado2, L, m, A}) {}

ZpCantLaminadaCaixa::ZpCantLaminadaCaixa(const AcGePoint3d& inicio, const AcGePoint3d& fim,
                                         ZpVistas vista, double h, double b, double t, double raio,
                                         double reservado1, double m, double A)
    : ZpObject(numero(Classe::CantLaminadaCaixa), inicio, fim, vista,
               {h, b, t, raio, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpCantLaminadaCaixa, KgMetro, M)
ZP_DEFINE_VALOR(ZpCantLaminadaCaixa, Area, A)
ZP_DEFINE_VALOR(ZpCantLaminadaCaixa, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpCantLaminadaCaixa, Espessura, T)

ZpULaminado::ZpULaminado() : ZpObject(numero(Classe::ULaminado)) {}

ZpULaminado::ZpULaminado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b1, double t,
                         double b2, double tf1, double tf2, double ex, double raio,
                         double reservado1, double r, double L, double A, double m)
    : ZpObject(numero(Classe::ULaminado), ponto, vista,
               {h, b1, t, b2, tf1, tf2, ex, raio, reservado1, r, L, A, m}) {}

ZpULaminado::ZpULaminado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                         double h, double b1, double t, double b2, double tf1, double tf2,
                         double ex, double raio, double reservado1, double A, double m)
    : ZpObject(numero(Classe::ULaminado), inicio, fim, vista,
               {h, b1, t, b2, tf1, tf2, ex, raio, reservado1, A, m}) {}

ZP_DEFINE_VALOR(ZpULaminado, KgMetro, M)
ZP_DEFINE_VALOR(ZpULaminado, Area, A)
ZP_DEFINE_VALOR(ZpULaminado, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpULaminado, Espessura, T)
ZP_DEFINE_VALOR(ZpULaminado, EixoX, Ex)

ZpCantTEELaminada::ZpCantTEELaminada() : ZpObject(numero(Classe::CantTEELaminada)) {}

ZpCantTEELaminada::ZpCantTEELaminada(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                                     double t, double ex, double ey, double raio, double vao,
                                     double reservado1, double r, double L, double m, double A)
    : ZpObject(numero(Classe::CantTEELaminada), ponto, vista,
               {h, b, t, ex, ey, raio, vao, reservado1, r, L, m, A}) {}

ZpCantTEELaminada::ZpCantTEELaminada(const AcGePoint3d& inicio, const AcGePoint3d& fim,
                                     ZpVistas vista, double h, double b, double t, double ex,
                                     double ey, double raio, double vao, double reservado1,
                                     double m, double A)
    : ZpObject(numero(Classe::CantTEELaminada), inicio, fim, vista,
               {h, b, t, ex, ey, raio, vao, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpCantTEELaminada, KgMetro, M)
ZP_DEFINE_VALOR(ZpCantTEELaminada, Area, A)
ZP_DEFINE_VALOR(ZpCantTEELaminada, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpCantTEELaminada, Espessura, T)
ZP_DEFINE_VALOR(ZpCantTEELaminada, EixoX, Ex)
ZP_DEFINE_VALOR(ZpCantTEELaminada, EixoY, Ey)

ZpCantULaminada::ZpCantULaminada() : ZpObject(numero(Classe::CantULaminada)) {}

ZpCantULaminada::ZpCantULaminada(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                                 double t, double ex, double ey, double raio, double w,
                                 double reservado1, double r, double L, double m, double A)
    : ZpObject(numero(Classe::CantULaminada), ponto, vista,
               {h, b, t, ex, ey, raio, w, reservado1, r, L, m, A}) {}

ZpCantULaminada::ZpCantULaminada(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                                 double h, double b, double t, double ex, double ey, double raio,
                                 double w, double reservado1, double m, double A)
    : ZpObject(numero(Classe::CantULaminada), inicio, fim, vista,
               {h, b, t, ex, ey, raio, w, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpCantULaminada, KgMetro, M)
ZP_DEFINE_VALOR(ZpCantULaminada, Area, A)
ZP_DEFINE_VALOR(ZpCantULaminada, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpCantULaminada, Espessura, T)
ZP_DEFINE_VALOR(ZpCantULaminada, EixoX, Ex)
ZP_DEFINE_VALOR(ZpCantULaminada, EixoY, Ey)

ZpBNDuplaLaminada::ZpBNDuplaLaminada() : ZpObject(numero(Classe::BNDuplaLaminada)) {}

ZpBNDuplaLaminada::ZpBNDuplaLaminada(const AcGePoint3d& ponto, ZpVistas vista, double h, double t,
                                     double e, double raio, double vao, double reservado1, double r,
                                     double L, double m, double A)
    : ZpObject(numero(Classe::BNDuplaLaminada), ponto, vista,
               {h, t, e, raio, vao, reservado1, r, L, m, A}) {}

ZpBNDuplaLaminada::ZpBNDuplaLaminada(const AcGePoint3d& inicio, const AcGePoint3d& fim,
                                     ZpVistas vista, double h, double t, double e, double raio,
                                     double vao, double reservado1, double m, double A)
    : ZpObject(numero(Classe::BNDuplaLaminada), inicio, fim, vista,
               {h, t, e, raio, vao, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpBNDuplaLaminada, KgMetro, M)
ZP_DEFINE_VALOR(ZpBNDuplaLaminada, Area, A)
ZP_DEFINE_VALOR(ZpBNDuplaLaminada, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpBNDuplaLaminada, Espessura, T)

ZpCantCruzLaminada::ZpCantCruzLaminada() : ZpObject(numero(Classe::CantCruzLaminada)) {}

ZpCantCruzLaminada::ZpCantCruzLaminada(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                                       double t, double raio, double vao, double vaoV,
                                       double reservado1, double r, double L, double m, double A)
    : ZpObject(numero(Classe::CantCruzLaminada), ponto, vista,
               {h, b, t, raio, vao, vaoV, reservado1, r, L, m, A}) {}

ZpCantCruzLaminada::ZpCantCruzLaminada(const AcGePoint3d& inicio, const AcGePoint3d& fim,
                                       ZpVistas vista, double h, double b, double t, double raio,
                                       double vao, double vaoV, double reservado1, double m,
                                       double A)
    : ZpObject(numero(Classe::CantCruzLaminada), inicio, fim, vista,
               {h, b, t, raio, vao, vaoV, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpCantCruzLaminada, KgMetro, M)
ZP_DEFINE_VALOR(ZpCantCruzLaminada, Area, A)
ZP_DEFINE_VALOR(ZpCantCruzLaminada, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpCantCruzLaminada, Espessura, T)

ZpCantZLaminada::ZpCantZLaminada() : ZpObject(numero(Classe::CantZLaminada)) {}

ZpCantZLaminada::ZpCantZLaminada(const AcGePoint3d& ponto, ZpVistas vista, double h, double b,
                                 double t, double raio, double vao, double vaoV, double reservado1,
                                 double r, double L, double m, double A)
    : ZpObject(numero(Classe::CantZLaminada), ponto, vista,
               {h, b, t, raio, vao, vaoV, reservado1, r, L, m, A}) {}

ZpCantZLaminada::ZpCantZLaminada(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                                 double h, double b, double t, double raio, double vao, double vaoV,
                                 double reservado1, double m, double A)
    : ZpObject(numero(Classe::CantZLaminada), inicio, fim, vista,
               {h, b, t, raio, vao, vaoV, reservado1, m, A}) {}

ZP_DEFINE_VALOR(ZpCantZLaminada, KgMetro, M)
ZP_DEFINE_VALOR(ZpCantZLaminada, Area, A)
ZP_DEFINE_VALOR(ZpCantZLaminada, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpCantZLaminada, Espessura, T)

ZpUULaminado::ZpUULaminado() : ZpObject(numero(Classe::UULaminado)) {}

ZpUULaminado::ZpUULaminado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b1, double t,
                           double b2, double tf1, double tf2, double w, double raio,
                           double reservado1, double r, double L, double A, double m)
    : ZpObject(numero(Classe::UULaminado), ponto, vista,
               {h, b1, t, b2, tf1, tf2, w, raio, reservado1, r, L, A, m}) {}

ZpUULaminado::ZpUULaminado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                           double h, double b1, double t, double b2, double tf1, double tf2,
                           double w, double raio, double reservado1, double A, double m)
    : ZpObject(numero(Classe::UULaminado), inicio, fim, vista,
               {h, b1, t, b2, tf1, tf2, w, raio, reservado1, A, m}) {}

ZP_DEFINE_VALOR(ZpUULaminado, KgMetro, M)
ZP_DEFINE_VALOR(ZpUULaminado, Area, A)
ZP_DEFINE_VALOR(ZpUULaminado, RaioDobra, Ri)
ZP_DEFINE_VALOR(ZpUULaminado, Espessura, T)

Zp2ULaminado::Zp2ULaminado() : ZpObject(numero(Classe::DoisULaminado)) {}

Zp2ULaminado::Zp2ULaminado(const AcGePoint3d& ponto, ZpVistas vista, double h, double b1, double t,
                           double b2, double tf1, double tf2, double ex, double raio, double vao,
                           double reservado1, double r, double L, double A, double m)
    : ZpObject(numero(Classe::DoisULaminado), ponto, vista,
               {h, b1, t, b2, tf1, tf2, ex, raio, vao, reservado1, r, L, A, m}) {}

Zp2ULaminado::Zp2ULaminado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista,
                           double h, double b1, double t, double b2, double tf1, double tf2,
                           double ex, double raio, double vao, double reservado1, double A,
                           double m)
    : ZpObject(numero(Classe::DoisULaminado), inicio, fim, vista,
               {h, b1, t, b2, tf1, tf2, ex, raio, vao, reservado1, A, m}) {}

ZP_DEFINE_VALOR(Zp2ULaminado, KgMetro, M)
ZP_DEFINE_VALOR(Zp2ULaminado, Area, A)
ZP_DEFINE_VALOR(Zp2ULaminado, RaioDobra, Ri)
ZP_DEFINE_VALOR(Zp2ULaminado, Espessura, T)

double ZpULaminado::calcDeslocF(double b, double t) { return zp::secao::deslocamentoFlange(b, t); }
