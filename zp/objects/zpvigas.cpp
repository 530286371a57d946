// SPDX-License-Identifier: MIT
// Welded and rolled I: which constructor is which class.
#include "perfis/entities/zpvigas.h"

#include "zp/objects/peca.h"
#include "zp/objects/secao/classes.h"

using zp::secao::Classe;

namespace {

template <class Enumeracao>
constexpr int numero(Enumeracao e) {
    return static_cast<int>(e);
}

}  // namespace

ACRX_DXF_DEFINE_MEMBERS(ZpISoldado, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPISOLDADO, "ZpObjects18|Perfis de aço")
ACRX_DXF_DEFINE_MEMBERS(ZpILaminadoUSA, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ZPILAMINADOUSA, "ZpObjects18|Perfis de aço")

ZpISoldado::ZpISoldado() : ZpObject(numero(Classe::ISoldado)) {}

ZpISoldado::ZpISoldado(const AcGePoint3d& ponto, ZpVistas vista, double H, double bSup, double bInf,
                       double tw, double tf, double L, double reservado1, double reservado2,
                       double m)
    : ZpObject(numero(Classe::ISoldado), ponto, vista,
               {H, bSup, bInf, tw, tf, L, reservado1, reservado2, m}) {}

ZpISoldado::ZpISoldado(const AcGePoint3d& ponto, double H, double bc, double bb, double tc,
                       double tb, double tw, double L, ZpVistas vista, double reservado1,
                       double reservado2, double reservado3)
    : ZpObject(numero(Classe::ISoldado), ponto, vista,
               {H, bc, bb, tc, tb, tw, L, reservado1, reservado2, reservado3}) {}

ZpISoldado::ZpISoldado(const AcGePoint3d& inicio, const AcGePoint3d& fim, ZpVistas vista, double H,
                       double bSup, double bInf, double tw, double tf, double reservado1, double m)
    : ZpObject(numero(Classe::ISoldado), inicio, fim, vista,
               {H, bSup, bInf, tw, tf, reservado1, m}) {}

ZpISoldado::ZpISoldado(const AcGePoint3d& inicio, const AcGePoint3d& fim, double H, double bc,
                       double bb, double tc, double tb, double tw, ZpVistas vista,
                       double reservado1, double reservado2)
    : ZpObject(numero(Classe::ISoldado), inicio, fim, vista,
               {H, bc, bb, tc, tb, tw, reservado1, reservado2}) {}

ZpILaminadoUSA::ZpILaminadoUSA() : ZpObject(numero(Classe::ILaminadoUSA)) {}

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
