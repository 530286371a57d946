// SPDX-License-Identifier: MIT
// From constructor values to loops: how each class is put together of blocks.
#pragma once

#include <vector>

#include "zp/objects/secao/kinds.h"
#include "zp/objects/secao/outline.h"

namespace zp::secao {

struct Assembly {
    std::vector<Loop> loops;
    bool invalid = false;
    double torsion = 0.0;
    /// Outer contour of a closed box of two pieces; 0 for all others.
    double outerOutline = 0.0;
};

/// How each class is put together; `none` has no outline.
namespace assembly {
Builder none, uDobradoSingle, z, cartolaSingle, cantoneira, caixaDobrado, tuboRetangular, redondo,
    bn, cantLaminada, caixaOfCantoneiras, uLaminadoSingle, tDobrada, uOfDobradas, xDobrado,
    tLaminada, uOfLaminadas, bnDouble, cruz, zOfLaminadas, uULaminado, doisULaminado, iDobrado,
    iSoldado, iLaminado;
}  // namespace assembly

/// Flange thickness of a rolled U at mid overhang, recovered from the area of one piece.
double meanFlange(double area, double h, double bUpper, double bLower, double t, double declared);

/// A lip that counts: 0 when it is not longer than t.
double effectiveAba(double aba, double t);

}  // namespace zp::secao
