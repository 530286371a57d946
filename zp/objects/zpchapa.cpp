// SPDX-License-Identifier: MIT
// Plates.
#include "perfis/entities/zpchapa.h"

#include "zp/objects/secao/classes.h"

using zp::secao::Classe;

namespace {

template <class Enumeracao>
constexpr int numero(Enumeracao e) {
    return static_cast<int>(e);
}

}  // namespace

ACRX_DXF_DEFINE_MEMBERS(ZpChapa, ZpObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0, ZPCHAPA,
                        "ZpObjects18|Perfis de aço")

ZpChapa::ZpChapa() : ZpObject(numero(Classe::Chapa)) {}

ZpChapa::ZpChapa(const AcGePoint3d& origem, ZpVistas vista, double d1, double d2, double d3,
                 double rot1, double rot2)
    : ZpObject(numero(Classe::Chapa), origem, vista, {d1, d2, d3, rot1, rot2}) {}

Acad::ErrorStatus ZpChapa::espessura(double& valor) const {
    valor = getEspessura();
    return Acad::eOk;
}

Acad::ErrorStatus ZpChapa::largura(double& valor) const {
    valor = getLargura();
    return Acad::eOk;
}

double ZpChapa::getVolume() const { return getLargura() * getEspessura() * getComprimentoReal(); }
