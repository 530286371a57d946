// SPDX-License-Identifier: MIT
// Moves, turns, scales and mirrors hatches.
#include <algorithm>
#include <cmath>

#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta {

namespace {

/// What the groups of a hatch mean depends on where they stand; see drawHatch for the order.
class HatchMover {
public:
    HatchMover(RawTags& tags, const Motion& motion) : m_tags(tags), m_motion(motion) {}

    void run() {
        const std::size_t end = knownLength(m_tags);
        for (std::size_t i = 0; i < end; ++i) {
            const int code = m_tags[i].code;
            if (code == 91) m_part = Part::Paths;
            if (code == 75) m_part = Part::Pattern;
            if (code == 98) m_part = Part::Seeds;
            if (code == 92) m_polylinePath = (tagWhole(m_tags[i]) & 2) != 0;
            if (code == 72 && m_part == Part::Paths) m_edge = tagWhole(m_tags[i]);
            if (m_part == Part::Head && code == 30) moveElevation(m_tags[i], m_motion);
            if (m_part == Part::Paths) path(i);
            if (m_part == Part::Pattern) pattern(i);
            if (m_part == Part::Seeds && code == 10) movePoint(m_tags, i, m_motion);
            if (m_part == Part::Seeds && code == 460) moveGradient(m_tags[i]);
        }
    }

private:
    enum class Part { Head, Paths, Pattern, Seeds };
    enum Edge { kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4 };

    void path(std::size_t i) {
        const int code = m_tags[i].code;
        if (code == 10) movePoint(m_tags, i, m_motion);
        if (m_polylinePath) {
            if (code == 42) moveBulge(m_tags[i], m_motion);
            return;
        }
        const bool curved = m_edge == kArc || m_edge == kEllipse;
        if (code == 11 && m_edge != kEllipse) movePoint(m_tags, i, m_motion);
        if (code == 11 && m_edge == kEllipse) moveVector(m_tags, i, m_motion, Length::Scaled);
        if (code == 12 || code == 13) moveVector(m_tags, i, m_motion, Length::Kept);
        if (code == 40 && m_edge == kArc) moveLength(m_tags[i], m_motion);
        if (code == 50 && m_edge == kArc) turnArc(i);
        // Both kinds give their angles in the sense in which they run: a mirror changes only that,
        // and angles of an ellipse count from its own axis.
        if (code == 73 && curved && m_motion.mirrored)
            setNumber(m_tags[i], tagWhole(m_tags[i]) != 0 ? 0.0 : 1.0);
    }

    /// Both angles together, so that the sweep between them stays.
    void turnArc(std::size_t i) {
        const double turn = clockwise(i) != m_motion.mirrored ? -m_motion.turn : m_motion.turn;
        const double start = tagNumber(m_tags[i]) + turn;
        const double whole = std::floor(start / 360.0) * 360.0;
        setNumber(m_tags[i], start - whole);
        if (i + 1 < m_tags.size() && m_tags[i + 1].code == 51)
            setNumber(m_tags[i + 1], tagNumber(m_tags[i + 1]) + turn - whole);
    }

    /// Clockwise arcs give their angles clockwise; the flag stands after them.
    bool clockwise(std::size_t i) const {
        for (std::size_t k = i + 1; k < m_tags.size() && k < i + 3; ++k)
            if (m_tags[k].code == 73) return tagWhole(m_tags[k]) == 0;
        return false;
    }

    void pattern(std::size_t i) {
        const int code = m_tags[i].code;
        if (code == 52) turnPattern(i);
        if (code == 53) moveAngle(m_tags[i], m_motion);
        if (code == 41 || code == 47 || code == 49) moveLength(m_tags[i], m_motion);
        // Pairs 43/44 and 45/46 are a point and a vector whose codes do not step by ten.
        if ((code == 43 || code == 45) && i + 1 < m_tags.size() && m_tags[i + 1].code == code + 1) {
            const AcGePoint3d given(tagNumber(m_tags[i]), tagNumber(m_tags[i + 1]), 0.0);
            const AcGePoint3d moved =
                code == 43 ? m_motion.matrix * given
                           : AcGePoint3d::kOrigin + m_motion.matrix * given.asVector();
            setNumber(m_tags[i], moved.x);
            setNumber(m_tags[i + 1], moved.y);
        }
    }

    /// As its first family of lines turns: who makes the lines anew from the pattern's name gets
    /// those right even in a mirror.
    void turnPattern(std::size_t i) {
        const auto line =
            std::find_if(m_tags.begin() + static_cast<std::ptrdiff_t>(i), m_tags.end(),
                         [](const RawTag& tag) { return tag.code == 53; });
        if (line == m_tags.end()) return moveAngle(m_tags[i], m_motion);
        const double angle = tagNumber(*line);
        const double turned = tagNumber(m_tags[i]) + movedAngle(angle, m_motion) - angle;
        if (m_motion.turn != 0.0 || m_motion.mirrored)
            setNumber(m_tags[i], turned - std::floor(turned / 360.0) * 360.0);
    }

    void moveGradient(RawTag& radians) {
        if (m_motion.turn != 0.0 || m_motion.mirrored)
            setNumber(radians,
                      movedAngle(tagNumber(radians) * 180.0 / kPi, m_motion) * kPi / 180.0);
    }

    RawTags& m_tags;
    const Motion& m_motion;
    Part m_part = Part::Head;
    bool m_polylinePath = false;
    int m_edge = 0;
};

}  // namespace

void moveHatch(RawTags& tags, const Motion& inPlane) { HatchMover(tags, inPlane).run(); }

}  // namespace prancheta
