// SPDX-License-Identifier: MIT
// Rules by which the classes make their names and sizes as texts.
#pragma once

#include "zp/objects/secao/kinds.h"

namespace zp::secao::wording {

/// Of no class.
TextRule none;
/// Names that depend on the values.
TextRule u, caixa, tuboRetangular, iDobrado, iSoldado, iLaminado;
/// Sizes, named after what they show in its order; "aba" is the lip, shown where there is one.
TextRule hbt, hht, hbtWithAba, hbtWithLargura, hbtWithVao, hhtWithVao, hbtWithVaos,
    hbtWithAbaAndVao, diametroAndParede, diametro, pesoOfOne, pesoOfTwoWithVao, larguraAndEspessura,
    soldado, laminado;

}  // namespace zp::secao::wording
