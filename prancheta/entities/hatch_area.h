// SPDX-License-Identifier: MIT
// The area of a hatch: its loops as lines and arcs, and what lies between them.
#pragma once

#include <span>

#include "dbhatch.h"

namespace prancheta {

/// Corners of a closed outline, in the plane of the hatch.
using HatchOutline = std::vector<HatchVertex>;

/// The loop as lines and arcs, whatever it is told in: ellipses and splines as fine chords. Curves
/// that stand the wrong way round are turned, gaps between them closed by a line. Empty for less
/// than two corners.
HatchOutline outlineOf(const HatchLoop& loop);

/// Those loops between which the hatch lies by the even-odd rule, as its style has it.
std::vector<HatchOutline> filledOutlines(const AcDbHatch& hatch);

/// Signed, positive counter-clockwise.
double areaOf(const HatchOutline& outline);
/// By the even-odd rule, for outlines that do not cross. O(n log n + pairs whose boxes meet).
double areaBetween(std::span<const HatchOutline> outlines);
/// On the line itself: either.
bool isInside(const HatchOutline& outline, double x, double y);

/// A line or an arc of an outline.
struct HatchSegment {
    AcGePoint2d a;
    AcGePoint2d b;
    AcGePoint2d center;
    double radius = 0.0;  ///< 0: a line
    double start = 0.0;   ///< angle at which the arc begins
    double sweep = 0.0;   ///< signed
};
std::vector<HatchSegment> segmentsOf(std::span<const HatchOutline> outlines);

}  // namespace prancheta
