// SPDX-License-Identifier: MIT
// The picture of a piece as strokes in world coordinates: one list for the screen, explode and
// object snaps.
#pragma once

#include <vector>

#include "zp/objects/peca.h"

namespace zp {

enum class Linetype { Own, Hidden, Axis };

/// Open or closed line of straight parts and arcs, or a circle.
struct Stroke {
    std::vector<AcGePoint3d> points;
    std::vector<double> bulges;  ///< as many as points for a polyline, empty for a plain line
    double radius = 0.0;         ///< a circle about pontos[0] when positive
    Linetype linetype = Linetype::Own;

    bool circle() const { return radius > 0.0; }
    bool closed() const { return !bulges.empty(); }
};

/// Visible edges and ends first, then hidden edges, then the axis.
std::vector<Stroke> pictureOf(const Peca& peca);

/// Name of a linetype of the host's standard file; null for the piece's own.
const ACHAR* linetypeName(Linetype linetype);
/// Its id in a drawing; null when it is not loaded.
AcDbObjectId linetypeId(AcDbDatabase* drawing, Linetype linetype);
/// Loads hidden and centre lines where they are missing.
void loadLinetypes(AcDbDatabase& drawing);

inline constexpr Adesk::UInt16 kAxisColour = 1;

/// Pen of a stroke of a piece whose own one is `own`: what is cut is drawn heavily unless the user
/// gave the piece a pen, hidden edges and axes lightly in any case; else the piece's own.
AcDb::LineWeight lineWeightOf(const Peca& peca, Linetype linetype, AcDb::LineWeight own);

}  // namespace zp
