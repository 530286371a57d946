// SPDX-License-Identifier: MIT
// Areas bounded by curves: how often a ray to the right crosses the border.
#include "prancheta/curves/region.h"

#include <algorithm>

#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

/// A stretch from a to b on which y only rises or only falls; half open in y, so that a corner
/// counts once.
bool crosses(const Segment& s, double from, double to, const Vec2& a, const Vec2& b,
             const Vec2& p) {
    if ((a.y > p.y) == (b.y > p.y)) return false;
    if (!s.isRound()) return a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y)) > p.x;
    double low = from;
    double high = to;
    for (int i = 0; i < 60; ++i) {
        const double t = (low + high) / 2.0;
        ((s.at(t).y > p.y) == (a.y > p.y) ? low : high) = t;
    }
    return s.at(high).x > p.x;
}

/// `end` is where the next segment begins: rounding leaves no gap between the two.
int crossingsOf(const Segment& s, const Vec2& end, const Vec2& p) {
    const Vec2 begin = s.at(0.0);
    if (!s.isRound()) return crosses(s, 0.0, 1.0, begin, end, p);
    const double level = std::atan2(s.v.y, s.u.y);
    double turns[4] = {0.0, s.parameterOfAngle(level), s.parameterOfAngle(level + kPi), 1.0};
    for (double& turn : turns) turn = std::min(turn, 1.0);
    std::sort(turns, turns + 4);
    int count = 0;
    Vec2 from = begin;
    for (int i = 0; i < 3; ++i) {
        const Vec2 to = turns[i + 1] < 1.0 ? s.at(turns[i + 1]) : end;
        count += crosses(s, turns[i], turns[i + 1], from, to, p);
        from = to;
    }
    return count;
}

}  // namespace

bool insideOddly(std::span<const Curve> loops, const Vec2& p) {
    int count = 0;
    for (const Curve& loop : loops) {
        if (loop.empty()) continue;
        const std::vector<Segment>& chain = loop.segments();
        for (std::size_t i = 0; i < chain.size(); ++i) {
            const bool last = i + 1 == chain.size();
            const Vec2 end = !last           ? chain[i + 1].at(0.0)
                             : loop.closed() ? loop.start()
                                             : loop.end();
            count += crossingsOf(chain[i], end, p);
        }
        if (!loop.closed())
            count += crossingsOf(straight(loop.end(), loop.start()), loop.start(), p);
    }
    return count % 2 != 0;
}

}  // namespace prancheta
