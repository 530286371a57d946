// SPDX-License-Identifier: MIT
// Closed polylines that commands draw at once.
#include "prancheta/editor/commands/shapes.h"

namespace prancheta::commands {

// New entities take any value: the results of their setters are dropped.
std::unique_ptr<AcDbPolyline> closedPolyline(std::span<const ShapeCorner> corners, double width) {
    auto polyline = std::make_unique<AcDbPolyline>();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const ShapeCorner& corner = corners[i];
        const AcGePoint3d& next = corners[(i + 1) % corners.size()].at;
        if (corner.at.distanceTo(next) <= 1e-9) continue;
        (void)polyline->addVertexAt(polyline->numVerts(), {corner.at.x, corner.at.y}, corner.bulge,
                                    width, width);
    }
    if (!corners.empty()) (void)polyline->setElevation(corners.front().at.z);
    (void)polyline->setClosed(true);
    return polyline;
}

}  // namespace prancheta::commands
