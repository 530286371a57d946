// SPDX-License-Identifier: MIT
// The lines of a hatch's pattern.
#include "prancheta/entities/hatch_lines.h"

#include <algorithm>
#include <cmath>

#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

/// A line of a family, by its number from the base, where the boundary crosses it.
struct Crossing {
    long long line;
    double x;
    bool operator<(const Crossing& other) const {
        return line != other.line ? line < other.line : x < other.x;
    }
};

struct Stroke {
    AcGePoint2d a;
    AcGePoint2d b;
};

/// One family, in a frame in which its lines run along x and the first one has y = 0.
class Family {
public:
    Family(const HatchFamily& family, std::vector<Stroke>& out)
        : m_family(family), m_turn(sineCosine(family.angle)), m_out(out) {
        const AcGePoint2d step = turned({family.offset.x, family.offset.y});
        m_shift = step.x;
        m_pitch = step.y;
        for (const double dash : family.dashes) m_period += std::abs(dash);
    }

    /// False when there are too many.
    bool run(const std::vector<HatchSegment>& boundary) {
        if (std::abs(m_pitch) < 1e-9) return true;  // all in one line: no area
        if (!crossAll(boundary)) return false;
        std::sort(m_crossings.begin(), m_crossings.end());
        for (std::size_t i = 0; i + 1 < m_crossings.size();) {
            const Crossing& from = m_crossings[i];
            const Crossing& to = m_crossings[i + 1];
            if (from.line != to.line) {
                ++i;  // an end was lost to rounding
                continue;
            }
            if (!strokes(static_cast<double>(from.line), from.x, to.x)) return false;
            i += 2;
        }
        return true;
    }

private:
    AcGePoint2d turned(const AcGePoint2d& v) const {
        return {v.x * m_turn.cosine + v.y * m_turn.sine, v.y * m_turn.cosine - v.x * m_turn.sine};
    }
    AcGePoint2d toFrame(const AcGePoint2d& p) const {
        return turned({p.x - m_family.base.x, p.y - m_family.base.y});
    }
    AcGePoint2d toPlane(double x, double y) const {
        return {m_family.base.x + x * m_turn.cosine - y * m_turn.sine,
                m_family.base.y + x * m_turn.sine + y * m_turn.cosine};
    }

    bool crossAll(const std::vector<HatchSegment>& boundary) {
        for (const HatchSegment& s : boundary) {
            const AcGePoint2d a = toFrame(s.a);
            const AcGePoint2d b = toFrame(s.b);
            const bool good = s.radius == 0.0 ? crossLine(a, b) : crossArc(s, a, b);
            if (!good) return false;
        }
        return true;
    }

    /// Calls x(y) for the lines from `low` to below `high`: an end that lies on a line counts for
    /// one of the two segments that meet there.
    template <class At>
    bool crossBetween(double y1, double y2, At&& x) {
        const double low = std::min(y1, y2) / m_pitch;
        const double high = std::max(y1, y2) / m_pitch;
        const double first = std::ceil(std::min(low, high));
        const double last = std::ceil(std::max(low, high));
        if (!(last - first + static_cast<double>(m_crossings.size()) < 2.0 * kMostStrokes))
            return false;
        for (double line = first; line < last; line += 1.0)
            m_crossings.push_back({static_cast<long long>(line), x(line * m_pitch)});
        return true;
    }

    bool crossLine(const AcGePoint2d& a, const AcGePoint2d& b) {
        return crossBetween(a.y, b.y,
                            [&](double y) { return a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y); });
    }

    /// In parts between its highest and lowest points, each of which a line crosses once.
    bool crossArc(const HatchSegment& s, const AcGePoint2d& a, const AcGePoint2d& b) {
        const AcGePoint2d center = toFrame(s.center);
        const double start = s.start - m_family.angle;
        const double end = start + s.sweep;
        const double side = s.sweep > 0.0 ? 1.0 : -1.0;
        // Quarters at which it turns: odd multiples of a right angle.
        double next =
            side > 0.0 ? std::floor(start / kPi - 0.5) + 1.0 : std::ceil(start / kPi - 0.5) - 1.0;
        double y = a.y;
        double angle = start;
        for (;;) {
            const double turn = (next + 0.5) * kPi;
            const bool last = side * turn >= side * end;
            const bool up = std::fmod(std::abs(next), 2.0) < 0.5;
            const double to = last ? b.y : center.y + (up ? s.radius : -s.radius);
            const double middle = (angle + (last ? end : turn)) / 2.0;
            const double half = std::cos(middle) < 0.0 ? -1.0 : 1.0;
            const bool good = crossBetween(y, to, [&](double at) {
                const double h = at - center.y;
                return center.x + half * std::sqrt(std::max(s.radius * s.radius - h * h, 0.0));
            });
            if (!good || last) return good;
            y = to;
            angle = turn;
            next += side;
        }
    }

    bool add(double y, double from, double to) {
        if (m_out.size() >= kMostStrokes) return false;
        m_out.push_back({toPlane(from, y), toPlane(to, y)});
        return true;
    }

    bool strokes(double line, double from, double to) {
        const double y = line * m_pitch;
        if (!(to > from)) return true;
        if (!(m_period > 0.0)) return add(y, from, to);
        const double dot = m_period * 1e-3;
        // The dashes of this line begin at its own base.
        const double base = line * m_shift;
        const double periods = (to - from) / m_period;
        if (!(periods * static_cast<double>(m_family.dashes.size()) < 2.0 * kMostStrokes))
            return false;
        double at = base + std::floor((from - base) / m_period) * m_period;
        while (at < to) {
            for (const double dash : m_family.dashes) {
                const double length = dash == 0.0 ? dot : dash;
                const double left = std::max(at, from);
                const double right = std::min(at + length, to);
                if (dash >= 0.0 && right > left && !add(y, left, right)) return false;
                at += std::abs(dash);
            }
        }
        return true;
    }

    const HatchFamily& m_family;
    SineCosine m_turn;
    std::vector<Stroke>& m_out;
    std::vector<Crossing> m_crossings;
    double m_pitch = 0.0;   ///< from line to line
    double m_shift = 0.0;   ///< of the dashes, from line to line
    double m_period = 0.0;  ///< of the dashes; 0: whole lines
};

}  // namespace

bool patternStrokes(std::span<const HatchOutline> outlines, std::span<const HatchFamily> families,
                    const std::function<void(const AcGePoint2d&, const AcGePoint2d&)>& stroke) {
    const std::vector<HatchSegment> boundary = segmentsOf(outlines);
    std::vector<Stroke> strokes;
    for (const HatchFamily& family : families)
        if (!Family(family, strokes).run(boundary)) return false;
    for (const Stroke& each : strokes) stroke(each.a, each.b);
    return true;
}

}  // namespace prancheta
