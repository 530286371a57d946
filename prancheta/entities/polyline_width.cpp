// SPDX-License-Identifier: MIT
// Wide polylines.
#include "prancheta/entities/polyline_width.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "prancheta/geometry/angles.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta {

namespace {

/// Both sides of a segment in `steps` pieces, one point on each side per step.
struct Band {
    std::vector<AcGePoint3d> left;
    std::vector<AcGePoint3d> right;

    void add(const AcGePoint3d& p, const AcGeVector3d& aside, double width) {
        left.push_back(p + aside * (width / 2.0));
        right.push_back(p - aside * (width / 2.0));
    }
};

Band straightBand(const AcGePoint3d& a, const AcGePoint3d& b, const SegmentWidth& width) {
    const AcGeVector3d aside = AcGeVector3d::kZAxis.crossProduct(b - a).normalize();
    Band band;
    band.add(a, aside, width.start);
    band.add(b, aside, width.end);
    return band;
}

Band roundBand(const BulgeArc& arc, const SegmentWidth& width) {
    const int steps = std::max(2, static_cast<int>(std::ceil(std::abs(arc.sweep) / (kPi / 24.0))));
    Band band;
    for (int i = 0; i <= steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        AcGeVector3d arm = arc.start;
        arm.rotateBy(arc.sweep * part, AcGeVector3d::kZAxis);
        band.add(arc.center + arm * arc.radius, arm, std::lerp(width.start, width.end, part));
    }
    return band;
}

}  // namespace

void drawWidths(std::span<const AcGePoint3d> points, std::span<const double> bulges,
                std::span<const SegmentWidth> widths, bool closed, AcGiGeometry& to) {
    const std::size_t segments = points.empty() || closed ? points.size() : points.size() - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        if (!(widths[i].start > 0.0) && !(widths[i].end > 0.0)) continue;
        const AcGePoint3d& a = points[i];
        const AcGePoint3d& b = points[(i + 1) % points.size()];
        BulgeArc arc;
        Band band = arcOfBulge(a, b, bulges[i], AcGeVector3d::kZAxis, arc)
                        ? roundBand(arc, widths[i])
                        : straightBand(a, b, widths[i]);
        band.left.insert(band.left.end(), band.right.rbegin(), band.right.rend());
        to.polygon(static_cast<Adesk::UInt32>(band.left.size()), band.left.data());
    }
}

}  // namespace prancheta
