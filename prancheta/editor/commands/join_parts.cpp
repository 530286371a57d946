// SPDX-License-Identifier: MIT
// Open curves that are put one behind the other.
#include "prancheta/editor/commands/join_parts.h"

#include <algorithm>

#include "prancheta/entities/polyline_vertices.h"

namespace prancheta::commands {

std::optional<JoinPart> joinPartOf(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return {};
    std::optional<Curve> curve = planeCurve(*entity.object());
    AcDbExtents box;
    if (!curve || curve->closed() || entity->getGeomExtents(box) != Acad::eOk) return {};
    for (const Segment& s : curve->segments())
        if (s.isRound() && !s.isCircular()) return {};
    if (box.maxPoint().z - box.minPoint().z > curve->tolerance()) return {};
    JoinPart part{id, std::move(*curve), box.minPoint().z, {}};
    if (const auto* const polyline = AcDbPolyline::cast(entity.object()))
        for (const PolylineVertex& v : verticesOf(*polyline))
            part.widths.push_back({v.startWidth, v.endWidth});
    part.widths.resize(part.curve.segments().size());
    return part;
}

double nearOf(const std::vector<JoinPart>& parts) {
    double near = 0.0;
    for (const JoinPart& part : parts) near = std::max(near, 64.0 * part.curve.tolerance());
    return near;
}

std::unique_ptr<AcDbPolyline> joinedPolyline(const std::vector<JoinPart>& parts,
                                             const std::vector<Curve>& curves,
                                             const EndChain& chain, double height) {
    std::vector<SegmentWidth> widths;
    for (const EndChain::Link& link : chain.links) {
        std::vector<SegmentWidth> own = parts[link.curve].widths;
        if (link.reversed) {
            std::reverse(own.begin(), own.end());
            for (SegmentWidth& width : own) std::swap(width.start, width.end);
        }
        widths.insert(widths.end(), own.begin(), own.end());
    }
    return polylineOf(chain.curve(curves), height, widths);
}

}  // namespace prancheta::commands
