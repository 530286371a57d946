// SPDX-License-Identifier: MIT
// Picking.
#include "prancheta/graphics/hit.h"

#include <algorithm>
#include <limits>

#include "prancheta/graphics/edges.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

/// Even-odd rule.
bool encloses(std::span<const AcGePoint3d> area, const AcGePoint3d& p) {
    bool inside = false;
    for (std::size_t i = 0, before = area.size() - 1; i < area.size(); before = i++) {
        const AcGePoint3d& a = area[i];
        const AcGePoint3d& b = area[before];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

/// Clips the segment against the four borders in turn.
bool touches(const AcGePoint3d& a, const AcGePoint3d& b, const Window& w) {
    double first = 0.0;
    double last = 1.0;
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double borders[4][2] = {
        {-dx, a.x - w.left}, {dx, w.right - a.x}, {-dy, a.y - w.bottom}, {dy, w.top - a.y}};
    for (const auto& [slope, room] : borders) {
        if (slope == 0.0) {
            if (room < 0.0) return false;
        } else if (slope < 0.0) {
            first = std::max(first, room / slope);
        } else {
            last = std::min(last, room / slope);
        }
    }
    return first <= last;
}

/// Neither end is inside: it touches when it meets a border.
bool arcMeetsBorder(const Edge& arc, const Window& w) {
    const auto meets = [&](double distance, double from, double to, bool vertical) {
        const double square = arc.radius * arc.radius - distance * distance;
        if (square < 0.0) return false;
        for (const double along : {std::sqrt(square), -std::sqrt(square)}) {
            const double place = along + (vertical ? arc.center.y : arc.center.x);
            const double angle =
                vertical ? std::atan2(along, distance) : std::atan2(distance, along);
            if (place >= from && place <= to && arc.reaches(angle)) return true;
        }
        return false;
    };
    return meets(w.left - arc.center.x, w.bottom, w.top, true) ||
           meets(w.right - arc.center.x, w.bottom, w.top, true) ||
           meets(w.bottom - arc.center.y, w.left, w.right, false) ||
           meets(w.top - arc.center.y, w.left, w.right, false);
}

bool touches(const Edge& edge, const Window& w) {
    if (!edge.isArc()) return touches(edge.a, edge.b, w);
    return w.contains(edge.a) || w.contains(edge.b) || arcMeetsBorder(edge, w);
}

/// Areas that count as a whole: filled polygons and texts.
bool isArea(const PrimitiveView& p) {
    return p.kind() == PrimitiveKind::Polygon || p.kind() == PrimitiveKind::Text;
}

template <class Visit>
void forEachAreaEdge(const PrimitiveView& p, std::span<const AcGePoint3d> area, Visit&& visit) {
    if (p.kind() != PrimitiveKind::Text) return forEachEdge(p, visit);
    for (std::size_t i = 0; i < area.size(); ++i)
        visit(lineEdge(area[i], area[(i + 1) % area.size()]));
}

/// Outline of an area; empty for other primitives. `box` keeps that of a text.
std::span<const AcGePoint3d> areaOf(const PrimitiveView& p, std::array<AcGePoint3d, 4>& box) {
    if (!isArea(p) || p.traits().marker == kCoverMarker) return {};
    if (p.kind() == PrimitiveKind::Polygon) return p.points();
    box = textBox(p);
    return box;
}

}  // namespace

Window::Window(const AcGePoint3d& corner, const AcGePoint3d& opposite)
    : left(std::min(corner.x, opposite.x)),
      bottom(std::min(corner.y, opposite.y)),
      right(std::max(corner.x, opposite.x)),
      top(std::max(corner.y, opposite.y)) {}

bool Window::overlaps(const AcDbExtents& box) const {
    return !box.isEmpty() && box.minPoint().x <= right && box.maxPoint().x >= left &&
           box.minPoint().y <= top && box.maxPoint().y >= bottom;
}

AcGePoint3d nearestOn(const Edge& edge, const AcGePoint3d& p) {
    if (edge.isArc()) {
        const double angle = std::atan2(p.y - edge.center.y, p.x - edge.center.x);
        if (edge.reaches(angle)) return edge.at(angle);
        return planeDistance(edge.a, p) <= planeDistance(edge.b, p) ? edge.a : edge.b;
    }
    const AcGeVector3d along = edge.b - edge.a;
    const double square = along.x * along.x + along.y * along.y;
    if (!(square > 0.0)) return edge.a;
    const double t = ((p.x - edge.a.x) * along.x + (p.y - edge.a.y) * along.y) / square;
    return edge.a + along * std::clamp(t, 0.0, 1.0);
}

Nearness nearness(const Picture& picture, const AcGePoint3d& p) {
    constexpr double kFar = std::numeric_limits<double>::infinity();
    Nearness near{kFar, kFar, kFar};
    std::array<AcGePoint3d, 4> box;
    for (const PrimitiveView primitive : picture) {
        const auto area = areaOf(primitive, box);
        const bool isText = primitive.kind() == PrimitiveKind::Text;
        if (!area.empty() && encloses(area, p)) (isText ? near.text : near.area) = 0.0;
        double& least = isText ? near.text : near.line;
        if (primitive.kind() == PrimitiveKind::Polyline || primitive.kind() == PrimitiveKind::Pline)
            least = std::min(least, planeDistance(primitive.points()[0], p));
        forEachAreaEdge(primitive, area, [&](const Edge& edge) {
            least = std::min(least, planeDistance(nearestOn(edge, p), p));
        });
    }
    return near;
}

double distanceTo(const Picture& picture, const AcGePoint3d& p) {
    const Nearness near = nearness(picture, p);
    return std::min({near.line, near.text, near.area});
}

bool isInside(const Picture& picture, const Window& window) {
    const AcDbExtents box = picture.extents();
    return !box.isEmpty() && window.contains(box.minPoint()) && window.contains(box.maxPoint());
}

bool touches(const Picture& picture, const Window& window) {
    std::array<AcGePoint3d, 4> box;
    const AcGePoint3d corner(window.left, window.bottom, 0.0);
    for (const PrimitiveView primitive : picture) {
        const auto area = areaOf(primitive, box);
        if (!area.empty() && encloses(area, corner)) return true;
        bool hit = primitive.kind() != PrimitiveKind::Circle &&
                   primitive.kind() != PrimitiveKind::Arc && window.contains(primitive.points()[0]);
        forEachAreaEdge(primitive, area,
                        [&](const Edge& edge) { hit = hit || touches(edge, window); });
        if (hit) return true;
    }
    return false;
}

}  // namespace prancheta
