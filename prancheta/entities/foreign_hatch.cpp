// SPDX-License-Identifier: MIT
// Draws hatches: solid ones filled, patterns by their boundary.
#include <cmath>
#include <vector>

#include "prancheta/entities/common.h"
#include "prancheta/entities/ellipse.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/geometry/bulge.h"
#include "prancheta/graphics/curves.h"

namespace prancheta {

namespace {

using Points = std::vector<AcGePoint3d>;

/// Walks the groups in their fixed order: paths from 91 on, each begun by 92, ended by 97 or the
/// next 92.
class BoundaryReader {
public:
    explicit BoundaryReader(const RawTags& tags) : m_tags(tags) {}

    std::vector<Points> loops() {
        std::vector<Points> all;
        seek(91);
        while (m_at < m_tags.size() && m_tags[m_at].code != 75) {
            if (m_tags[m_at].code != 92) {
                ++m_at;
                continue;
            }
            const bool polyline = (tagWhole(m_tags[m_at++]) & 2) != 0;
            Points loop = polyline ? polylinePath() : edgePath();
            if (loop.size() > 2) all.push_back(std::move(loop));
        }
        return all;
    }

private:
    bool more() const {
        const int code = m_at < m_tags.size() ? m_tags[m_at].code : 92;
        return code != 92 && code != 97 && code != 75;
    }
    void seek(int code) {
        while (m_at < m_tags.size() && m_tags[m_at].code != code) ++m_at;
    }

    Points polylinePath() {
        Points points;
        std::vector<double> bulges;
        for (; more(); ++m_at) {
            if (m_tags[m_at].code == 10) {
                points.push_back(pointAt(m_tags, m_at));
                bulges.push_back(0.0);
            }
            if (m_tags[m_at].code == 42 && !bulges.empty()) bulges.back() = tagNumber(m_tags[m_at]);
        }
        if (points.empty()) return points;
        Points outline{points[0]};
        const AcGeVector3d z = AcGeVector3d::kZAxis;
        forEachSegment(
            points, bulges, true, z,
            [&](const AcGePoint3d&, const AcGePoint3d& b) { outline.push_back(b); },
            [&](const BulgeArc& arc, const AcGePoint3d&, const AcGePoint3d&) {
                outline.pop_back();
                appendArc(arc.center, arc.radius, z, arc.start, arc.sweep,
                          chordCount(arc.radius, arc.sweep, arc.radius / 500.0), outline);
            });
        return outline;
    }

    Points edgePath() {
        Points outline;
        while (more()) {
            if (m_tags[m_at].code != 72) {
                ++m_at;
                continue;
            }
            const int type = tagWhole(m_tags[m_at++]);
            RawTags edge;
            for (; more() && m_tags[m_at].code != 72; ++m_at) edge.push_back(m_tags[m_at]);
            appendEdge(type, edge, outline);
        }
        return outline;
    }

    static void appendEdge(int type, const RawTags& edge, Points& out) {
        const AcGeVector3d z = AcGeVector3d::kZAxis;
        const AcGePoint3d center = findPoint(edge, 10);
        // Clockwise curves give their angles clockwise.
        const double side = findWhole(edge, 73, 1) != 0 ? 1.0 : -1.0;
        const double first = findNumber(edge, 50, 0.0);
        double last = findNumber(edge, 51, 360.0);
        if (last <= first) last += 360.0;
        const double from = side * first * kPi / 180.0;
        const double to = side * last * kPi / 180.0;
        if (type == 1) {
            out.push_back(center);
            out.push_back(findPoint(edge, 11));
        } else if (type == 2) {
            const double radius = findNumber(edge, 40, 0.0);
            if (radius > 0.0)
                appendArc(center, radius, z, directionInPlane(from, z), to - from,
                          chordCount(radius, to - from, radius / 500.0), out);
        } else if (type == 3) {
            appendEllipse(center, findPoint(edge, 11).asVector(), z, findNumber(edge, 40, 1.0),
                          from, to, out);
        } else if (type == 4) {
            Points curve;
            appendSpline(findWhole(edge, 94, 3), findNumbers(edge, 40), findPoints(edge, 10),
                         findNumbers(edge, 42), curve);
            out.insert(out.end(), curve.begin(), curve.end());
        }
    }

    const RawTags& m_tags;
    std::size_t m_at = 0;
};

}  // namespace

void drawHatch(const RawTags& tags, AcGiGeometry& to) {
    std::vector<Points> loops = BoundaryReader(tags).loops();
    const double elevation = findNumber(tags, 30, 0.0);
    for (Points& loop : loops)
        for (AcGePoint3d& p : loop) p.z = elevation;
    if (loops.empty()) return;
    to.pushModelTransform(planeToWorld(planeNormal(tags)));
    const bool solid = findWhole(tags, 70, 0) != 0;
    if (solid) {
        // One outline for all loops, holes joined to the first corner: filled by the even-odd rule.
        Points area = loops[0];
        const AcGePoint3d home = area[0];
        for (std::size_t i = 1; i < loops.size(); ++i) {
            area.push_back(home);
            area.insert(area.end(), loops[i].begin(), loops[i].end());
            area.push_back(loops[i][0]);
        }
        if (loops.size() > 1) area.push_back(home);
        to.polygon(static_cast<Adesk::UInt32>(area.size()), area.data());
    } else {
        for (const Points& loop : loops) {
            const std::vector<double> straight(loop.size(), 0.0);
            to.pline(static_cast<Adesk::UInt32>(loop.size()), loop.data(), straight.data(), true);
        }
    }
    to.popModelTransform();
}

}  // namespace prancheta
