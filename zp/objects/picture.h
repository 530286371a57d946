// SPDX-License-Identifier: MIT
// The picture of a piece as strokes in world coordinates: one list for the screen, explode and
// object snaps.
#pragma once

#include <vector>

#include "zp/objects/peca.h"

namespace zp {

enum class TipoDeLinha { Propria, Oculta, Eixo };

/// Open or closed line of straight parts and arcs, or a circle.
struct Traco {
    std::vector<AcGePoint3d> pontos;
    std::vector<double> bulges;  ///< as many as points for a polyline, empty for a plain line
    double raio = 0.0;           ///< a circle about pontos[0] when positive
    TipoDeLinha linha = TipoDeLinha::Propria;

    bool circulo() const { return raio > 0.0; }
    bool fechado() const { return !bulges.empty(); }
};

/// Visible edges and ends first, then hidden edges, then the axis.
std::vector<Traco> figuraDe(const Peca& peca);

/// Name of a linetype of the host's standard file; null for the piece's own.
const ACHAR* nomeDaLinha(TipoDeLinha linha);
/// Its id in a drawing; null when it is not loaded.
AcDbObjectId idDaLinha(AcDbDatabase* desenho, TipoDeLinha linha);
/// Loads hidden and centre lines where they are missing.
void carregaLinhas(AcDbDatabase& desenho);

inline constexpr Adesk::UInt16 kCorDoEixo = 1;

}  // namespace zp
