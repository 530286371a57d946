// SPDX-License-Identifier: MIT
// Wide polylines: the filled band of each segment.
#pragma once

#include <span>

#include "acgi.h"

namespace prancheta {

struct SegmentWidth {
    double start;
    double end;
};

/// Draws the bands of the segments that have a width, in the plane of the points (bulges about z).
void drawWidths(std::span<const AcGePoint3d> points, std::span<const double> bulges,
                std::span<const SegmentWidth> widths, bool closed, AcGiGeometry& to);

}  // namespace prancheta
