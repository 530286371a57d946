// SPDX-License-Identifier: MIT
// Corners of polylines, rounded or cut off.
#include "prancheta/editor/commands/polyline_corners.h"

#include <cmath>
#include <utility>

#include "prancheta/entities/polyline_vertices.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta::commands {

namespace {

/// The polyline as segments, with what is cut off the ends of each.
class Corners {
public:
    explicit Corners(const AcDbPolyline& polyline)
        : m_vertices(verticesOf(polyline)),
          m_segments(segmentsOf(m_vertices, polyline.isClosed())),
          m_cuts(m_segments.size()),
          m_closed(polyline.isClosed()) {}

    std::size_t count() const { return m_segments.size(); }
    /// Whether the segment ends in a corner.
    bool hasCorner(std::size_t i) const { return m_closed || i + 1 < count(); }
    /// At the end of segment i; false when it is round, in line, or too short.
    /// `swapped`: the segment behind it is the first one.
    bool cut(std::size_t i, const CornerMaker& maker, bool swapped) {
        const std::size_t j = (i + 1) % count();
        const Segment& before = m_segments[i];
        const Segment& behind = m_segments[j];
        if (i == j || before.isRound() || behind.isRound()) return false;
        const double turn = std::atan2(cross(before.u, behind.u), dot(before.u, behind.u));
        if (std::abs(turn) < 1e-9 || std::abs(turn) > kPi - 1e-9) return false;
        CornerCut cut = maker.cut(turn);
        if (swapped) std::swap(cut.before, cut.behind);
        const double slack = 1e-9 * (before.u.length() + behind.u.length());
        if (cut.before > left(i) + slack || cut.behind > left(j) + slack) return false;
        m_cuts[i].atEnd = cut.before;
        m_cuts[i].sweep = cut.sweep;
        m_cuts[i].cornered = true;
        m_cuts[j].atStart = cut.behind;
        return true;
    }
    std::vector<PolylineVertex> vertices() const {
        std::vector<PolylineVertex> all;
        for (std::size_t i = 0; i < count(); ++i) {
            const Segment& s = m_segments[i];
            const Cut& cut = m_cuts[i];
            const double length = s.u.length();
            const bool whole = !(cut.atStart > 0.0 || cut.cornered);
            const double low = whole ? 0.0 : cut.atStart / length;
            const double high = whole ? 1.0 : 1.0 - cut.atEnd / length;
            if (high - low > 1e-9 || whole)
                all.push_back(vertexOfPart(m_vertices[i], s, low, high));
            if (!cut.cornered) continue;
            const double width = vertexOfPart(m_vertices[i], s, low, high).endWidth;
            all.push_back({s.at(high), bulgeOfSweep(cut.sweep), width, width});
        }
        if (!m_closed) all.push_back(m_vertices.back());
        return all;
    }

private:
    struct Cut {
        double atStart = 0.0;  // drawing units
        double atEnd = 0.0;
        double sweep = 0.0;
        bool cornered = false;
    };
    double left(std::size_t i) const {
        return m_segments[i].u.length() - m_cuts[i].atStart - m_cuts[i].atEnd;
    }

    std::vector<PolylineVertex> m_vertices;
    std::vector<Segment> m_segments;
    std::vector<Cut> m_cuts;
    bool m_closed;
};

}  // namespace

bool cutAllCorners(const CommandContext& context, const CornerMaker& maker, AcDbObjectId id) {
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForWrite);
    if (polyline.openStatus() != Acad::eOk) {
        refuse(context, L"O objeto não é uma polilinha.");
        return false;
    }
    Corners corners(*polyline.object());
    std::size_t done = 0;
    std::size_t missed = 0;
    for (std::size_t i = 0; i < corners.count() && !maker.sharp(); ++i)
        if (corners.hasCorner(i)) ++(corners.cut(i, maker, false) ? done : missed);
    if (done > 0) setVertices(*polyline.object(), corners.vertices());
    say(context,
        counted(done, L"canto feito", L"cantos feitos") +
            (missed > 0 ? L"; " + counted(missed, L"não: em arco, em linha ou curto demais.",
                                          L"não: em arco, em linha ou curtos demais.")
                        : L"."));
    return done > 0;
}

bool cutCornerBetween(const CommandContext& context, const CornerMaker& maker,
                      const CornerSide& picked, std::size_t other) {
    const AcDbObjectPointer<AcDbPolyline> polyline(picked.target.id, AcDb::kForWrite);
    if (polyline.openStatus() != Acad::eOk || picked.segment == other) {
        refuse(context, L"Selecione dois objetos, ou dois segmentos de uma polilinha.");
        return false;
    }
    Corners corners(*polyline.object());
    const auto follows = [&](std::size_t a, std::size_t b) {
        return corners.hasCorner(a) && (a + 1) % corners.count() == b;
    };
    const bool forward = follows(picked.segment, other);
    if (!forward && !follows(other, picked.segment)) {
        refuse(context, L"Os segmentos não são vizinhos.");
        return false;
    }
    if (!corners.cut(forward ? picked.segment : other, maker, !forward)) {
        refuse(context, L"O canto não cabe nos segmentos: peça menos.");
        return false;
    }
    setVertices(*polyline.object(), corners.vertices());
    return true;
}

}  // namespace prancheta::commands
