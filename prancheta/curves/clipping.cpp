// SPDX-License-Identifier: MIT
// What of a drawing lies inside a closed border.
#include "prancheta/curves/clipping.h"

#include <algorithm>
#include <cmath>

#include "prancheta/curves/crossings.h"
#include "prancheta/curves/region.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

/// Of a full turn: the chords leave the circle by 4e-5 of its radius.
constexpr double kChordsOfTurn = 360.0;

/// Above 0 to the left of the edge from a to b.
double sideOf(const Vec2& a, const Vec2& b, const Vec2& p) { return cross(b - a, p - a); }

}  // namespace

std::vector<Curve> partsInside(const Curve& curve, const Curve& border) {
    std::vector<Curve> parts;
    const auto isInside = [&](const Vec2& p) { return insideOddly({&border, 1}, p); };
    std::vector<double> ends;
    for (const Meeting& m : meetingsOf(curve, border)) ends.push_back(m.first);
    if (curve.closed() && !ends.empty()) {
        // Round about, from meeting to meeting.
        ends.push_back(ends.front() + curve.count());
    } else {
        ends.insert(ends.begin(), 0.0);
        ends.push_back(curve.count());
    }
    const double least = 4.0 * std::max(curve.tolerance(), border.tolerance());
    for (std::size_t i = 1; i < ends.size(); ++i) {
        if (curve.lengthAt(ends[i]) - curve.lengthAt(ends[i - 1]) <= least) continue;
        const Vec2 middle = curve.at((ends[i - 1] + ends[i]) / 2.0);
        const bool along = (border.at(border.nearest(middle)) - middle).length() <= least;
        if (along || !isInside(middle)) continue;
        const bool whole = ends[i] - ends[i - 1] == curve.count();
        parts.push_back(whole ? curve : curve.part(ends[i - 1], ends[i]));
    }
    return parts;
}

std::vector<Vec2> polygonInside(std::vector<Vec2> polygon, const std::vector<Vec2>& convex) {
    for (std::size_t i = 0; i < convex.size() && !polygon.empty(); ++i) {
        const Vec2& a = convex[i];
        const Vec2& b = convex[(i + 1) % convex.size()];
        std::vector<Vec2> left;
        for (std::size_t k = 0; k < polygon.size(); ++k) {
            const Vec2& p = polygon[k];
            const Vec2& q = polygon[(k + 1) % polygon.size()];
            const double at = sideOf(a, b, p);
            const double next = sideOf(a, b, q);
            if (at >= 0.0) left.push_back(p);
            if ((at > 0.0 && next < 0.0) || (at < 0.0 && next > 0.0))
                left.push_back(p + (q - p) * (at / (at - next)));
        }
        polygon = std::move(left);
    }
    if (polygon.size() < 3) polygon.clear();
    return polygon;
}

std::vector<Vec2> cornersOf(const Curve& border) {
    std::vector<Vec2> corners;
    for (const Segment& s : border.segments()) {
        const double chords =
            s.isRound() ? std::ceil(kChordsOfTurn * std::abs(s.sweep) / kTwoPi) : 1;
        for (double i = 0.0; i < chords; i += 1.0) corners.push_back(s.at(i / chords));
    }
    if (border.area() < 0.0) std::reverse(corners.begin(), corners.end());
    return corners;
}

}  // namespace prancheta
