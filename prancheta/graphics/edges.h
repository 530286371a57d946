// SPDX-License-Identifier: MIT
// Pictures as plane edges, seen from above: what picking, window tests and snaps work on.
#pragma once

#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"

namespace prancheta {

/// Marks what fills an area: nobody snaps to its lines or takes them for a boundary.
constexpr Adesk::GsMarker kFillMarker = -2;

/// Straight segment, or arc in a plane of constant z (`sweep` not 0, signed, from `startAngle`).
struct Edge {
    AcGePoint3d a;
    AcGePoint3d b;
    AcGePoint3d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0;

    bool isArc() const { return sweep != 0.0; }
    bool isCircle() const { return std::abs(sweep) >= kTwoPi; }
    /// Angle in radians from the edge's axis.
    AcGePoint3d at(double angle) const {
        const auto [s, c] = sineCosine(angle);
        return {center.x + radius * c, center.y + radius * s, center.z};
    }
    /// For arcs: does it pass the direction `angle`? `slack` is a length along the arc.
    bool reaches(double angle, double slack = 1e-9) const {
        if (isCircle()) return true;
        const double turned = positiveAngle(sweep > 0.0 ? angle - startAngle : startAngle - angle);
        const double beyond = slack / radius;
        return turned <= std::abs(sweep) + beyond || turned >= kTwoPi - beyond;
    }
};

/// World coordinates.
inline Edge lineEdge(const AcGePoint3d& a, const AcGePoint3d& b) {
    return {a, b, {}, 0.0, 0.0, 0.0};
}

/// Calls `sink(Edge)` for every edge of a curve primitive; none for texts and single points.
/// Circles out of the plane come as chords.
template <class Sink>
void forEachEdge(const PrimitiveView& p, Sink&& sink) {
    const auto arc = [&](const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                         const AcGeVector3d& start, double sweep) {
        if (normal.z > 1.0 - 1e-12) {
            Edge edge{{}, {}, center, radius, std::atan2(start.y, start.x), sweep};
            edge.a = center + start * radius;
            edge.b = edge.at(edge.startAngle + sweep);
            sink(edge);
            return;
        }
        std::vector<AcGePoint3d> points;
        appendArc(center, radius, normal, start, sweep, chordCount(radius, sweep, radius / 500.0),
                  points);
        for (std::size_t i = 1; i < points.size(); ++i) sink(lineEdge(points[i - 1], points[i]));
    };
    const auto points = p.points();
    switch (p.kind()) {
        case PrimitiveKind::Polyline:
        case PrimitiveKind::Polygon:
            for (std::size_t i = 1; i < points.size(); ++i)
                sink(lineEdge(points[i - 1], points[i]));
            if (p.kind() == PrimitiveKind::Polygon) sink(lineEdge(points.back(), points.front()));
            return;
        case PrimitiveKind::Circle:
            return arc(p.center(), p.radius(), p.normal(), arbitraryXAxis(p.normal()), kTwoPi);
        case PrimitiveKind::Arc:
            return arc(p.center(), p.radius(), p.normal(), p.start(), p.sweep());
        case PrimitiveKind::Text:
            return;
        case PrimitiveKind::Pline: {
            const AcGeVector3d normal = p.normal();
            forEachSegment(
                points, p.bulges(), p.closed(), normal,
                [&](const AcGePoint3d& a, const AcGePoint3d& b) { sink(lineEdge(a, b)); },
                [&](const BulgeArc& shape, const AcGePoint3d&, const AcGePoint3d&) {
                    arc(shape.center, shape.radius, normal, shape.start, shape.sweep);
                });
            return;
        }
    }
}

/// Point of the edge nearest to `p` in the plane.
AcGePoint3d nearestOn(const Edge& edge, const AcGePoint3d& p);

/// Distance of two points seen from above.
inline double planeDistance(const AcGePoint3d& a, const AcGePoint3d& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

}  // namespace prancheta
