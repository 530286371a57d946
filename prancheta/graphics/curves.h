// SPDX-License-Identifier: MIT
// Curves of pictures as chords.
#pragma once

#include <vector>

#include "prancheta/geometry/bulge.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Number of chords that keep within `deviation` (drawing units) of an arc; 1 to 1000, 8 at least
/// for a full turn.
unsigned chordCount(double radius, double sweep, double deviation);

/// Appends the `count` + 1 ends of the chords of an arc; `start` is a unit vector, the sweep
/// signed.
void appendArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
               const AcGeVector3d& start, double sweep, unsigned count,
               std::vector<AcGePoint3d>& out);

/// Appends the line that the primitive draws, arcs as chords within `deviation`; that of a closed
/// one ends where it begins. A text gives its box.
void appendOutline(const PrimitiveView& primitive, double deviation, std::vector<AcGePoint3d>& out);

/// Calls `line(a, b)` or `arc(BulgeArc, a, b)` for each segment of a Pline.
template <class Line, class Arc>
void forEachSegment(std::span<const AcGePoint3d> points, std::span<const double> bulges,
                    bool closed, const AcGeVector3d& normal, Line&& line, Arc&& arc) {
    const std::size_t count = closed ? points.size() : points.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const AcGePoint3d& a = points[i];
        const AcGePoint3d& b = points[(i + 1) % points.size()];
        BulgeArc shape;
        if (arcOfBulge(a, b, bulges[i], normal, shape))
            arc(shape, a, b);
        else
            line(a, b);
    }
}

}  // namespace prancheta
