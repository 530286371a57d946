// SPDX-License-Identifier: MIT
// What bounds the hatches of a drawing.
#include "prancheta/editor/hatch_boundary.h"

#include <algorithm>
#include <cmath>

#include "prancheta/display/display_list.h"
#include "prancheta/entities/plane_curve.h"
#include "prancheta/geometry/bulge.h"
#include "prancheta/graphics/edges.h"
#include "protocol/markers.h"

namespace prancheta {

// A module's marker must be none of the host's own: a centre line would be an endless one.
static_assert(protocol::kCentreLineMarker != kEndlessMarker &&
              protocol::kCentreLineMarker != kCoverMarker &&
              protocol::kCentreLineMarker != kFillMarker);

namespace {

bool bounds(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk && hasEdges(*entity.object());
}

void appendEdges(DisplayList& display, const std::vector<AcDbObjectId>& owners,
                 std::vector<BoundaryFinder::Edge>& out) {
    for (std::uint32_t i = 0; i < owners.size(); ++i)
        for (const PrimitiveView p : display.picture(owners[i])) {
            // Filled areas are arrows, bands and the like.
            if (p.kind() == PrimitiveKind::Polygon || p.traits().marker == kFillMarker ||
                p.traits().marker == protocol::kCentreLineMarker)
                continue;
            forEachEdge(p, [&](const Edge& edge) { out.push_back({segmentOf(edge), i}); });
        }
}

std::vector<AcDbObjectId> thatBound(std::vector<AcDbObjectId> ids) {
    std::erase_if(ids, [](AcDbObjectId id) { return !bounds(id); });
    return ids;
}

std::vector<AcDbObjectId> displayed(DisplayList& display) {
    constexpr double kAll = 1e300;
    std::vector<AcDbObjectId> ids;
    display.query({-kAll, -kAll, kAll, kAll},
                  [&](const DisplayList::Item& item) { ids.push_back(item.id); });
    // So that the same drawing gives the same loops, however it came about.
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::vector<BoundaryFinder::Edge> edgesOf(DisplayList& display,
                                          const std::vector<AcDbObjectId>& owners) {
    std::vector<BoundaryFinder::Edge> edges;
    appendEdges(display, owners, edges);
    return edges;
}

/// Corners of a closed curve; a part of an ellipse as fine chords.
std::vector<HatchVertex> cornersOf(const Curve& curve) {
    constexpr double kChordsOfTurn = 256.0;
    std::vector<HatchVertex> corners;
    for (const Segment& s : curve.segments()) {
        const bool chords = s.isRound() && !s.isCircular();
        const int parts =
            chords ? std::max(2, static_cast<int>(std::abs(s.sweep) / kTwoPi * kChordsOfTurn)) : 1;
        for (int i = 0; i < parts; ++i) {
            const Vec2 p = s.at(static_cast<double>(i) / parts);
            // The other half of a mirrored circle runs the other way than its angles say.
            const double sweep = cross(s.u, s.v) < 0.0 ? -s.sweep : s.sweep;
            corners.push_back({p.x, p.y, s.isRound() && !chords ? bulgeOfSweep(sweep) : 0.0});
        }
    }
    return corners;
}

}  // namespace

HatchBoundary::HatchBoundary(DisplayList& display) : HatchBoundary(display, displayed(display)) {}

HatchBoundary::HatchBoundary(DisplayList& display, const std::vector<AcDbObjectId>& objects)
    : m_owners(thatBound(objects)), m_edges(edgesOf(display, m_owners)), m_finder(m_edges) {}

HatchLoop HatchBoundary::loopOf(const BoundaryFinder::Loop& found, int kind) const {
    HatchLoop loop;
    loop.kind = kind;
    loop.vertices = cornersOf(found.curve);
    for (const std::uint32_t owner : found.owners) loop.sources.push_back(m_owners[owner]);
    return loop;
}

std::vector<HatchLoop> HatchBoundary::around(const AcGePoint3d& p) const {
    constexpr int kOuter = HatchLoop::kExternal | HatchLoop::kPolyline;
    constexpr int kIsland = HatchLoop::kPolyline | HatchLoop::kOutermost;
    std::vector<HatchLoop> loops;
    const std::optional<BoundaryFinder::Area> area = m_finder.around({p.x, p.y});
    if (!area) return loops;
    loops.push_back(loopOf(area->outer, kOuter));
    for (const BoundaryFinder::Loop& island : area->islands)
        loops.push_back(loopOf(island, kIsland));
    return loops;
}

std::vector<HatchLoop> HatchBoundary::outlines() const {
    constexpr int kKind = HatchLoop::kExternal | HatchLoop::kPolyline | HatchLoop::kDerived;
    std::vector<HatchLoop> loops;
    for (const BoundaryFinder::Loop& border : m_finder.borders())
        loops.push_back(loopOf(border, kKind));
    return loops;
}

std::optional<BoundaryFinder::Gap> HatchBoundary::gapAround(const AcGePoint3d& p) const {
    return m_finder.gapAround({p.x, p.y});
}

std::vector<AcGePoint3d> HatchBoundary::besideEdges() const {
    constexpr std::size_t kMost = 2000;
    constexpr double kAside = 1e-3;
    std::vector<AcGePoint3d> points;
    for (const BoundaryFinder::Edge& edge : m_edges) {
        if (points.size() >= kMost) break;
        const Vec2 middle = edge.segment.at(0.5);
        const Vec2 along = edge.segment.tangent(0.5);
        const double length = along.length();
        if (!(length > 0.0)) continue;
        const Vec2 aside = along.left() * (std::min(kAside, length * kAside) / length);
        for (const Vec2& p : {middle + aside, middle - aside}) points.emplace_back(p.x, p.y, 0.0);
    }
    return points;
}

}  // namespace prancheta
