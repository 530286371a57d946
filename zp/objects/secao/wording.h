// SPDX-License-Identifier: MIT
// Rules by which the classes make their names and sizes as texts.
#pragma once

#include "zp/objects/secao/kinds.h"

namespace zp::secao::textos {

/// Of no class.
Texto nenhum;
/// Names that depend on the values.
Texto u, caixa, tuboRetangular, iDobrado, iSoldado, iLaminado;
/// Sizes, named after what they show in its order; "aba" is the lip, shown where there is one.
Texto hbt, hht, hbtComAba, hbtComLargura, hbtComVao, hhtComVao, hbtComVaos, hbtComAbaEVao,
    diametroEParede, diametro, massaDeUma, massaDeDuasComVao, larguraEEspessura, soldado, laminado;

}  // namespace zp::secao::textos
