// SPDX-License-Identifier: MIT
// A polyline's vertices as a list.
#include "prancheta/entities/polyline_vertices.h"

#include <algorithm>

#include "prancheta/entities/common.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta {

std::vector<PolylineVertex> verticesOf(const AcDbPolyline& polyline) {
    const AcGeMatrix3d toPlane = planeToWorld(polyline.normal()).inverse();
    std::vector<PolylineVertex> all(polyline.numVerts());
    for (unsigned i = 0; i < polyline.numVerts(); ++i) {
        AcGePoint3d p;
        (void)polyline.getPointAt(i, p);  // the indices are there
        (void)polyline.getBulgeAt(i, all[i].bulge);
        (void)polyline.getWidthsAt(i, all[i].startWidth, all[i].endWidth);
        p = toPlane * p;
        all[i].at = {p.x, p.y};
    }
    return all;
}

void setVertices(AcDbPolyline& polyline, const std::vector<PolylineVertex>& vertices) {
    while (polyline.numVerts() > 0) (void)polyline.removeVertexAt(polyline.numVerts() - 1);
    for (const PolylineVertex& v : vertices)
        (void)polyline.addVertexAt(polyline.numVerts(), {v.at.x, v.at.y}, v.bulge, v.startWidth,
                                   v.endWidth);
}

std::vector<Segment> segmentsOf(const std::vector<PolylineVertex>& vertices, bool closed) {
    std::vector<Segment> all;
    for (std::size_t i = 0; i + (closed ? 0 : 1) < vertices.size(); ++i)
        all.push_back(
            bulged(vertices[i].at, vertices[(i + 1) % vertices.size()].at, vertices[i].bulge));
    return all;
}

PolylineVertex vertexOfPart(const PolylineVertex& vertex, const Segment& segment, double low,
                            double high) {
    const auto width = [&](double t) {
        return vertex.startWidth + (vertex.endWidth - vertex.startWidth) * std::clamp(t, 0.0, 1.0);
    };
    const bool all = low == 0.0 && high == 1.0;
    return {segment.at(low), all ? vertex.bulge : bulgeOfSweep(segment.sweep * (high - low)),
            width(low), width(high)};
}

}  // namespace prancheta
