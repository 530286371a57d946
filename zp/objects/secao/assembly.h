// SPDX-License-Identifier: MIT
// From constructor values to loops: how each class is put together of blocks.
#pragma once

#include <vector>

#include "zp/objects/secao/kinds.h"
#include "zp/objects/secao/outline.h"

namespace zp::secao {

struct Montagem {
    std::vector<Laco> lacos;
    bool invalida = false;
    double torcao = 0.0;
    /// Outer contour of a closed box of two pieces; 0 for all others.
    double contornoExterno = 0.0;
};

/// How each class is put together; `nenhuma` has no outline.
namespace montagem {
Montador nenhuma, uDobradoSimples, z, chapeu, cantoneira, caixaDobrado, tuboRetangular, redondo, bn,
    cantLaminada, caixaDeCantoneiras, uLaminadoSimples, tDobrada, uDeDobradas, xDobrado, tLaminada,
    uDeLaminadas, bnDupla, cruz, zDeLaminadas, uULaminado, doisULaminado, iDobrado, iSoldado,
    iLaminado;
}  // namespace montagem

/// Flange thickness of a rolled U at mid overhang, recovered from the area of one piece.
double flangeMedia(double area, double h, double bSup, double bInf, double t, double declarada);

/// A lip that counts: 0 when it is not longer than t.
double abaEfetiva(double aba, double t);

}  // namespace zp::secao
