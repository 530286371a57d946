// SPDX-License-Identifier: MIT
// Object snap points of pictures.
#include "prancheta/graphics/snaps.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "prancheta/graphics/edges.h"

namespace prancheta {

namespace {

using Points = std::vector<AcGePoint3d>;

bool isCurve(const PrimitiveView& p) {
    return p.kind() != PrimitiveKind::Text && p.traits().marker != kFillMarker;
}

void appendEnds(const Edge& edge, Points& out) {
    if (edge.isCircle()) return;
    out.push_back(edge.a);
    out.push_back(edge.b);
}

void appendMiddle(const Edge& edge, Points& out) {
    if (edge.isCircle()) return;
    if (edge.isArc())
        out.push_back(edge.at(edge.startAngle + edge.sweep / 2.0));
    else
        out.push_back(edge.a + (edge.b - edge.a) * 0.5);
}

void appendQuadrants(const Edge& edge, Points& out) {
    if (!edge.isArc()) return;
    for (int i = 0; i < 4; ++i)
        if (edge.reaches(i * kPi / 2.0)) out.push_back(edge.at(i * kPi / 2.0));
}

/// Where the line from `last` meets the edge (or the straight edge's extension) at a right angle.
void appendFeet(const Edge& edge, const AcGePoint3d& last, Points& out) {
    if (edge.isArc()) {
        const double angle = std::atan2(last.y - edge.center.y, last.x - edge.center.x);
        for (const double turned : {angle, angle + kPi})
            if (edge.reaches(turned)) out.push_back(edge.at(turned));
        return;
    }
    const AcGeVector3d along = edge.b - edge.a;
    const double square = along.x * along.x + along.y * along.y;
    if (!(square > 0.0)) return;
    const double t = ((last.x - edge.a.x) * along.x + (last.y - edge.a.y) * along.y) / square;
    out.push_back(edge.a + along * t);
}

void appendTangents(const Edge& edge, const AcGePoint3d& last, Points& out) {
    if (!edge.isArc()) return;
    const double distance = planeDistance(edge.center, last);
    if (distance <= edge.radius) return;
    const double toLast = std::atan2(last.y - edge.center.y, last.x - edge.center.x);
    const double half = std::acos(edge.radius / distance);
    for (const double angle : {toLast + half, toLast - half})
        if (edge.reaches(angle)) out.push_back(edge.at(angle));
}

std::optional<Edge> nearestEdge(const Picture& picture, const AcGePoint3d& pick) {
    std::optional<Edge> best;
    double least = std::numeric_limits<double>::infinity();
    for (const PrimitiveView p : picture) {
        if (!isCurve(p)) continue;
        forEachEdge(p, [&](const Edge& edge) {
            const double distance = planeDistance(nearestOn(edge, pick), pick);
            if (distance >= least) return;
            least = distance;
            best = edge;
        });
    }
    return best;
}

/// Snaps that belong to a whole primitive. True when the mode is one of them.
bool appendOfPrimitive(const PrimitiveView& p, AcDb::OsnapMode mode, Points& out) {
    const bool node = p.kind() == PrimitiveKind::Polyline && p.points().size() == 1;
    const bool text = p.kind() == PrimitiveKind::Text;
    if (mode == AcDb::kOsModeNode) {
        if (node || text) out.push_back(p.points()[0]);
        return true;
    }
    if (mode == AcDb::kOsModeIns) {
        if (text) out.push_back(p.position());
        return true;
    }
    if (mode != AcDb::kOsModeCen) return false;
    if (p.kind() == PrimitiveKind::Circle || p.kind() == PrimitiveKind::Arc)
        out.push_back(p.center());
    if (p.kind() == PrimitiveKind::Pline)
        forEachEdge(p, [&](const Edge& edge) {
            if (edge.isArc()) out.push_back(edge.center);
        });
    return true;
}

bool onSegment(double t) { return t >= -1e-9 && t <= 1.0 + 1e-9; }

void crossLines(const Edge& p, const Edge& q, Points& out) {
    const AcGeVector3d u = p.b - p.a;
    const AcGeVector3d v = q.b - q.a;
    const AcGeVector3d w = q.a - p.a;
    const double cross = u.x * v.y - u.y * v.x;
    if (std::abs(cross) <= 1e-12 * std::hypot(u.x, u.y) * std::hypot(v.x, v.y)) return;
    const double t = (w.x * v.y - w.y * v.x) / cross;
    const double s = (w.x * u.y - w.y * u.x) / cross;
    if (onSegment(t) && onSegment(s)) out.push_back(p.a + u * t);
}

void crossLineArc(const Edge& line, const Edge& arc, Points& out) {
    const AcGeVector3d u = line.b - line.a;
    const double length = std::hypot(u.x, u.y);
    if (!(length > 0.0)) return;
    const double toFoot =
        ((arc.center.x - line.a.x) * u.x + (arc.center.y - line.a.y) * u.y) / length;
    const double aside =
        ((arc.center.x - line.a.x) * u.y - (arc.center.y - line.a.y) * u.x) / length;
    const double square = arc.radius * arc.radius - aside * aside;
    // A tangent touches in one point although rounding may leave it a hair outside.
    if (square < -1e-9 * arc.radius * arc.radius) return;
    const double half = std::sqrt(std::max(square, 0.0));
    for (const double along : {toFoot - half, toFoot + half}) {
        const AcGePoint3d p = line.a + u * (along / length);
        const double angle = std::atan2(p.y - arc.center.y, p.x - arc.center.x);
        if (onSegment(along / length) && arc.reaches(angle)) out.push_back(p);
        if (half == 0.0) return;
    }
}

void crossArcs(const Edge& p, const Edge& q, Points& out) {
    const double dx = q.center.x - p.center.x;
    const double dy = q.center.y - p.center.y;
    const double distance = std::hypot(dx, dy);
    if (distance < 1e-12 * (p.radius + q.radius)) return;
    const double along =
        (distance * distance + p.radius * p.radius - q.radius * q.radius) / (2.0 * distance);
    const double square = p.radius * p.radius - along * along;
    if (square < -1e-9 * p.radius * p.radius) return;
    const double half = std::acos(std::clamp(along / p.radius, -1.0, 1.0));
    const double axis = std::atan2(dy, dx);
    for (const double angle : {axis - half, axis + half}) {
        const AcGePoint3d point = p.at(angle);
        const double seen = std::atan2(point.y - q.center.y, point.x - q.center.x);
        if (p.reaches(angle) && q.reaches(seen)) out.push_back(point);
        if (half == 0.0) return;
    }
}

void cross(const Edge& p, const Edge& q, Points& out) {
    if (p.isArc() && q.isArc())
        crossArcs(p, q, out);
    else if (!p.isArc() && !q.isArc())
        crossLines(p, q, out);
    else
        p.isArc() ? crossLineArc(q, p, out) : crossLineArc(p, q, out);
}

/// Where an edge may be; of an arc all of its circle. A little wider, so that edges that only touch
/// are compared.
struct Extent {
    double left, bottom, right, top;
};

Extent extentOf(const Edge& edge) {
    Extent e{std::min(edge.a.x, edge.b.x), std::min(edge.a.y, edge.b.y),
             std::max(edge.a.x, edge.b.x), std::max(edge.a.y, edge.b.y)};
    if (edge.isArc())
        e = {edge.center.x - edge.radius, edge.center.y - edge.radius, edge.center.x + edge.radius,
             edge.center.y + edge.radius};
    const double margin = 1e-9 * (1.0 + (e.right - e.left) + (e.top - e.bottom));
    return {e.left - margin, e.bottom - margin, e.right + margin, e.top + margin};
}

std::vector<Edge> edgesNear(const Picture& picture, const AcGePoint3d& near, double reach) {
    std::vector<Edge> edges;
    for (const PrimitiveView p : picture) {
        if (!isCurve(p)) continue;
        forEachEdge(p, [&](const Edge& edge) {
            if (planeDistance(nearestOn(edge, near), near) <= reach) edges.push_back(edge);
        });
    }
    return edges;
}

}  // namespace

void appendSnaps(const Picture& picture, AcDb::OsnapMode mode, const AcGePoint3d& pick,
                 const AcGePoint3d& last, std::vector<AcGePoint3d>& out) {
    if (mode == AcDb::kOsModePerp || mode == AcDb::kOsModeNear) {
        const std::optional<Edge> edge = nearestEdge(picture, pick);
        if (!edge) return;
        if (mode == AcDb::kOsModePerp)
            appendFeet(*edge, last, out);
        else
            out.push_back(nearestOn(*edge, pick));
        return;
    }
    for (const PrimitiveView p : picture) {
        if (appendOfPrimitive(p, mode, out) || !isCurve(p)) continue;
        forEachEdge(p, [&](const Edge& edge) {
            if (mode == AcDb::kOsModeEnd) appendEnds(edge, out);
            if (mode == AcDb::kOsModeMid) appendMiddle(edge, out);
            if (mode == AcDb::kOsModeQuad) appendQuadrants(edge, out);
            if (mode == AcDb::kOsModeTan) appendTangents(edge, last, out);
        });
    }
}

void appendEdgesNear(const Picture& picture, const AcGePoint3d& near, double reach,
                     std::size_t owner, std::vector<NearEdge>& out) {
    for (const Edge& edge : edgesNear(picture, near, reach)) out.push_back({edge, owner});
}

// Sweep over x: an edge is compared with those that begin before it ends.
std::vector<Crossing> crossingsOf(const std::vector<NearEdge>& edges, const AcGePoint3d& near,
                                  double reach) {
    struct Swept {
        Extent extent;
        const NearEdge* of;
    };
    std::vector<Swept> swept;
    swept.reserve(edges.size());
    for (const NearEdge& edge : edges) swept.push_back({extentOf(edge.edge), &edge});
    std::sort(swept.begin(), swept.end(),
              [](const Swept& a, const Swept& b) { return a.extent.left < b.extent.left; });
    std::vector<Crossing> crossings;
    Points found;
    for (std::size_t i = 0; i < swept.size(); ++i) {
        const Extent& mine = swept[i].extent;
        for (std::size_t j = i + 1; j < swept.size() && swept[j].extent.left <= mine.right; ++j) {
            const Extent& other = swept[j].extent;
            if (other.bottom > mine.top || other.top < mine.bottom) continue;
            found.clear();
            cross(swept[i].of->edge, swept[j].of->edge, found);
            for (const AcGePoint3d& p : found)
                if (planeDistance(p, near) <= reach)
                    crossings.push_back({p, swept[i].of->owner, swept[j].of->owner});
        }
    }
    return crossings;
}

void appendIntersections(const Picture& first, const Picture& second, const AcGePoint3d& near,
                         double reach, std::vector<AcGePoint3d>& out) {
    const std::vector<Edge> ours = edgesNear(first, near, reach);
    const std::vector<Edge> theirs = edgesNear(second, near, reach);
    Points found;
    for (const Edge& p : ours)
        for (const Edge& q : theirs) cross(p, q, found);
    for (const AcGePoint3d& p : found)
        if (planeDistance(p, near) <= reach) out.push_back(p);
}

}  // namespace prancheta
