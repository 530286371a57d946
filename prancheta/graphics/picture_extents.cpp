// SPDX-License-Identifier: MIT
// Box of a picture.
#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

/// Ends, and for each axis the two places where the circle goes farthest, if the sweep reaches
/// them.
void addArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
            const AcGeVector3d& start, double sweep, AcDbExtents& box) {
    const AcGeVector3d u = start * radius;
    const AcGeVector3d v = normal.crossProduct(u);
    const auto at = [&](double angle) {
        const auto [s, c] = sineCosine(angle);
        return center + u * c + v * s;
    };
    box.addPoint(at(0.0));
    box.addPoint(at(sweep));
    const double along[3][2] = {{u.x, v.x}, {u.y, v.y}, {u.z, v.z}};
    for (const auto& [cosine, sine] : along) {
        if (std::hypot(cosine, sine) < radius * 1e-12) continue;
        const double farthest = std::atan2(sine, cosine);
        for (const double angle : {farthest, farthest + kPi}) {
            const double turned = positiveAngle(sweep < 0.0 ? -angle : angle);
            if (turned < std::abs(sweep)) box.addPoint(at(angle));
        }
    }
}

void add(const PrimitiveView& p, AcDbExtents& box) {
    switch (p.kind()) {
        case PrimitiveKind::Polyline:
        case PrimitiveKind::Polygon:
            for (const AcGePoint3d& point : p.points()) box.addPoint(point);
            return;
        case PrimitiveKind::Circle:
            return addArc(p.center(), p.radius(), p.normal(), arbitraryXAxis(p.normal()), kTwoPi,
                          box);
        case PrimitiveKind::Arc:
            return addArc(p.center(), p.radius(), p.normal(), p.start(), p.sweep(), box);
        case PrimitiveKind::Text:
            for (const AcGePoint3d& point : textBox(p)) box.addPoint(point);
            return;
        case PrimitiveKind::Pline: {
            const AcGeVector3d normal = p.normal();
            for (const AcGePoint3d& point : p.points()) box.addPoint(point);
            forEachSegment(
                p.points(), p.bulges(), p.closed(), normal,
                [](const AcGePoint3d&, const AcGePoint3d&) {},
                [&](const BulgeArc& arc, const AcGePoint3d&, const AcGePoint3d&) {
                    addArc(arc.center, arc.radius, normal, arc.start, arc.sweep, box);
                });
            return;
        }
    }
}

}  // namespace

AcDbExtents Picture::extents() const {
    AcDbExtents box;
    for (const PrimitiveView p : *this)
        if (p.traits().marker != kEndlessMarker) add(p, box);
    return box;
}

AcDbExtents Picture::reach() const {
    AcDbExtents box;
    for (const PrimitiveView p : *this) add(p, box);
    return box;
}

}  // namespace prancheta
