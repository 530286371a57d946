// SPDX-License-Identifier: MIT
// Edges at which objects are cut. Objects are looked at from the nearest on, and no further than
// the nearest edge: the distance to an object's box is no longer than the way along the curve.
#include "prancheta/editor/commands/edges.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "dbpl.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/plane_curve.h"
#include "protocol/attach.h"
#include "protocol/length.h"
#include "protocol/markers.h"

namespace prancheta::commands {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Candidate {
    AcDbObjectId id;
    double least = 0.0;  ///< no edge of it is nearer
};

double distanceTo(const Box2d& box, const Vec2& p) {
    return Vec2{std::max({box.left - p.x, p.x - box.right, 0.0}),
                std::max({box.bottom - p.y, p.y - box.top, 0.0})}
        .length();
}

/// What was found so far on both sides of a place; distances along the curve.
class Nearest {
public:
    Nearest(const Curve& curve, double at)
        : m_curve(curve),
          m_at(curve.lengthAt(at)),
          m_whole(curve.segments().front().isBounded() ? curve.length() : kInfinity),
          m_near(8.0 * curve.tolerance()) {
        // Nothing lies before the start of an open one.
        if (!curve.closed() && m_at <= m_near) m_back = 0.0;
        if (!curve.closed() && m_at >= m_whole - m_near) m_on = 0.0;
    }

    void add(double t) {
        const double way = m_curve.lengthAt(t);
        if (!m_curve.closed()) {
            if (way <= m_near || way >= m_whole - m_near) return;
            return way <= m_at ? takeBefore(m_at - way, t) : takeBehind(way - m_at, t);
        }
        const double back = way <= m_at ? m_at - way : m_at - way + m_whole;
        takeBefore(back, way <= m_at ? t : t - m_curve.count());
        const double on = m_whole - back;
        takeBehind(on, way <= m_at ? t + m_curve.count() : t);
    }
    /// Nothing farther can count.
    double reach() const { return std::max(m_back, m_on); }
    CuttingEdges::Between found() const {
        CuttingEdges::Between result = m_found;
        // One place all round cuts nothing out of a closed curve.
        if (m_curve.closed() && m_back + m_on >= m_whole - m_near) result = {};
        return result;
    }

private:
    void takeBefore(double way, double t) {
        if (!(way < m_back)) return;
        m_back = way;
        m_found.before = t;
    }
    void takeBehind(double way, double t) {
        if (!(way < m_on)) return;
        m_on = way;
        m_found.behind = t;
    }

    const Curve& m_curve;
    double m_at;
    double m_whole;
    double m_near;
    double m_back = kInfinity;
    double m_on = kInfinity;
    CuttingEdges::Between m_found;
};

/// Calls `sink(Segment)` for the edges of an object.
template <class Sink>
void forEachSegmentOf(const Editor& editor, AcDbObjectId id, const CurveIndex& index, bool implied,
                      Sink&& sink) {
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) return;
        if (const std::optional<Curve> edge = planeCurve(*entity.object())) {
            for (const Segment& s : edge->segments()) sink(s);
            for (const CurveEnd end : {CurveEnd::Start, CurveEnd::End})
                if (const auto on = implied ? extensionOf(*edge, end) : std::nullopt)
                    for (const Segment& s : on->curve.segments()) sink(s);
            return;
        }
        if (!hasEdges(*entity.object())) return;
    }
    const Box2d box = index.curve().box();
    for (const PrimitiveView& primitive : editor.display().picture(id)) {
        if (primitive.traits().marker == protocol::kCentreLineMarker) continue;
        forEachEdge(primitive, [&](const Edge& edge) {
            const Segment s = segmentOf(edge);
            if (box.meets(s.box())) sink(s);
        });
    }
}

/// Only curves go on beyond their box.
bool goesOn(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk &&
           (entity->isKindOf(AcDbLine::desc()) || entity->isKindOf(AcDbArc::desc()) ||
            entity->isKindOf(AcDbPolyline::desc()));
}

/// Nearest first.
template <class Fits>
std::vector<Candidate> candidates(const Editor& editor, const CurveIndex& index, const Vec2& place,
                                  bool implied, Fits&& fits) {
    constexpr double kAll = 1e300;
    std::vector<Candidate> all;
    const double near = index.curve().tolerance();
    const Box2d area = implied ? Box2d{-kAll, -kAll, kAll, kAll} : index.curve().box().grown(near);
    editor.display().query(area, [&](const DisplayList::Item& item) {
        if (item.box.empty() || !fits(item.id)) return;
        if (index.mayMeet(item.box.grown(near)))
            all.push_back({item.id, implied ? 0.0 : distanceTo(item.box, place)});
        else if (implied && goesOn(item.id))
            all.push_back({item.id, 0.0});
    });
    std::sort(all.begin(), all.end(),
              [](const Candidate& a, const Candidate& b) { return a.least < b.least; });
    return all;
}

}  // namespace

void CuttingEdges::choose(const Ids& chosen) {
    m_chosen.clear();
    for (const AcDbObjectId& id : chosen) m_chosen.insert(id.asOldId());
}

void CuttingEdges::follow(AcDbObjectId edge, const Ids& parts) {
    if (!m_chosen.contains(edge.asOldId())) return;
    for (const AcDbObjectId& id : parts) m_chosen.insert(id.asOldId());
}

CuttingEdges::Between CuttingEdges::around(const Editor& editor, const Curve& curve, double at,
                                           AcDbObjectId self, bool implied) const {
    const CurveIndex index(curve);
    Nearest nearest(curve, at);
    const AcDbObjectPointer<AcDbEntity> cut(self, AcDb::kForRead);
    const protocol::EntityLength* const bar = cut.openStatus() == Acad::eOk
                                                  ? protocol::extensionOf<protocol::EntityLength>(
                                                        *cut.object(), protocol::kEntityLengthClass)
                                                  : nullptr;
    const auto fits = [&](AcDbObjectId id) {
        return id != self && (m_chosen.empty() || m_chosen.contains(id.asOldId())) &&
               (bar == nullptr || !bar->takesAlong(*cut.object(), id));
    };
    std::vector<Meeting> meetings;
    for (const Candidate& each : candidates(editor, index, curve.at(at), implied, fits)) {
        if (each.least > nearest.reach()) break;
        meetings.clear();
        forEachSegmentOf(editor, each.id, index, implied,
                         [&](const Segment& s) { index.appendMeetingsWith(s, meetings); });
        for (const Meeting& m : meetings) nearest.add(m.first);
    }
    return nearest.found();
}

}  // namespace prancheta::commands
