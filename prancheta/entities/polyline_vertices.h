// SPDX-License-Identifier: MIT
// A polyline's vertices as a list to work on.
#pragma once

#include <vector>

#include "dbpl.h"
#include "prancheta/curves/segment.h"

namespace prancheta {

struct PolylineVertex {
    Vec2 at;  ///< in the polyline's own plane
    double bulge = 0.0;
    double startWidth = 0.0;  ///< of the segment that begins here
    double endWidth = 0.0;
};

std::vector<PolylineVertex> verticesOf(const AcDbPolyline& polyline);
/// They take the place of what was there; the polyline is open for write or in no drawing.
void setVertices(AcDbPolyline& polyline, const std::vector<PolylineVertex>& vertices);
/// In the polyline's own plane.
std::vector<Segment> segmentsOf(const std::vector<PolylineVertex>& vertices, bool closed);
/// The vertex that begins the part of a segment between two of its parameters.
PolylineVertex vertexOfPart(const PolylineVertex& vertex, const Segment& segment, double low,
                            double high);

}  // namespace prancheta
