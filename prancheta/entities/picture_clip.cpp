// SPDX-License-Identifier: MIT
// Part of a picture.
#include "prancheta/entities/picture_clip.h"

#include "prancheta/curves/clipping.h"
#include "prancheta/curves/region.h"
#include "prancheta/entities/plane_curve.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta {

namespace {

AcGePoint3d inPlan(const Vec2& p) { return {p.x, p.y, 0.0}; }

/// The strokes of a primitive, one behind the other.
Curve strokesOf(const PrimitiveView& primitive) {
    std::vector<Segment> chain;
    forEachEdge(primitive, [&](const Edge& edge) {
        const Segment segment = segmentOf(edge);
        if (segment.isRound() || segment.u.length() > 0.0) chain.push_back(segment);
    });
    if (chain.empty()) return {};
    const bool closed = chain.front().isWhole() ||
                        (chain.size() > 1 && chain.front().at(0.0) == chain.back().at(1.0));
    return {std::move(chain), closed};
}

void addCurve(const PictureTraits& traits, const Curve& curve, Picture& to) {
    const std::vector<Segment>& chain = curve.segments();
    const Segment& first = chain.front();
    if (chain.size() == 1 && first.isRound()) {
        const Vec2 arm = first.at(0.0) - first.origin;
        return to.addArc(traits, inPlan(first.origin), first.radius(), AcGeVector3d::kZAxis,
                         AcGeVector3d(arm.x, arm.y, 0.0).normal(), first.sweep);
    }
    std::vector<AcGePoint3d> points;
    std::vector<double> bulges;
    for (const Segment& s : chain) {
        points.push_back(inPlan(s.at(0.0)));
        bulges.push_back(s.isRound() ? bulgeOfSweep(s.sweep) : 0.0);
    }
    if (!curve.closed()) {
        points.push_back(inPlan(curve.end()));
        bulges.push_back(0.0);
    }
    to.addPline(traits, points, bulges, curve.closed());
}

void addText(const PrimitiveView& p, Picture& to) {
    to.addText(p.traits(), p.position(), p.normal(), p.direction(), p.height(), p.widthFactor(),
               p.oblique(), p.text());
}

/// The four corners seen from above; the border is convex.
bool isWithin(const Curve& border, const AcDbExtents& box) {
    for (const double x : {box.minPoint().x, box.maxPoint().x})
        for (const double y : {box.minPoint().y, box.maxPoint().y})
            if (!insideOddly({&border, 1}, {x, y})) return false;
    return true;
}

}  // namespace

Picture insideOf(const Picture& picture, const Curve& border) {
    const std::vector<Vec2> corners = cornersOf(border);
    Picture inside;
    for (const PrimitiveView p : picture) {
        if (p.traits().marker == kCoverMarker) continue;
        if (p.kind() == PrimitiveKind::Text) {
            Picture text;
            addText(p, text);
            if (isWithin(border, text.extents())) addText(p, inside);
        } else if (p.kind() == PrimitiveKind::Polygon) {
            std::vector<Vec2> area;
            for (const AcGePoint3d& point : p.points()) area.push_back({point.x, point.y});
            std::vector<AcGePoint3d> left;
            const std::vector<Vec2> clipped = polygonInside(std::move(area), corners);
            left.reserve(clipped.size());
            for (const Vec2& point : clipped) left.push_back(inPlan(point));
            if (!left.empty()) inside.addPolygon(p.traits(), left);
        } else if (p.points().size() == 1 && p.kind() == PrimitiveKind::Polyline) {
            const AcGePoint3d& point = p.points()[0];
            if (insideOddly({&border, 1}, {point.x, point.y}))
                inside.addPolyline(p.traits(), p.points());
        } else if (const Curve strokes = strokesOf(p); !strokes.empty()) {
            for (const Curve& part : partsInside(strokes, border))
                addCurve(p.traits(), part, inside);
        }
    }
    return inside;
}

}  // namespace prancheta
