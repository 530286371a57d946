// SPDX-License-Identifier: MIT
// Curves turned, mirrored, scaled and moved: what was found has to move along.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "prancheta/curves/curve.h"

namespace prancheta::test {

struct Motion {
    double turn;
    double scale;
    bool mirror;
    Vec2 move;

    Vec2 vector(const Vec2& v) const {
        const Vec2 m = mirror ? Vec2{v.x, -v.y} : v;
        return Vec2{m.x * std::cos(turn) - m.y * std::sin(turn),
                    m.x * std::sin(turn) + m.y * std::cos(turn)} *
               scale;
    }
    Vec2 point(const Vec2& p) const { return vector(p) + move; }
    Curve curve(const Curve& c) const {
        std::vector<Segment> chain = c.segments();
        for (Segment& s : chain) {
            s.origin = point(s.origin);
            s.u = vector(s.u);
            s.v = vector(s.v);
        }
        return Curve(std::move(chain), c.closed());
    }
    /// What may be missed by, for figures of about 1000 units.
    double near() const { return 1e-6 * scale + 1e-14 * (std::abs(move.x) + std::abs(move.y)); }
};

/// From a thousandth to a million times, near and far from the origin.
inline const std::vector<Motion>& motions() {
    static const std::vector<Motion> kAll = {
        {0.0, 1.0, false, {}},
        {0.7, 1.0, true, {}},
        {2.1, 1e-3, false, {}},
        {-1.0, 1e6, true, {}},
        {M_PI / 2, 1.0, false, {1e6, -3e6}},
        {4.0, 1e3, true, {-1e7, 1e5}},
    };
    return kAll;
}

inline Curve polyline(const std::vector<Vec2>& points, bool closed,
                      const std::vector<double>& bulges = {}) {
    std::vector<Segment> chain;
    for (std::size_t i = 0; i + (closed ? 0 : 1) < points.size(); ++i)
        chain.push_back(bulged(points[i], points[(i + 1) % points.size()],
                               i < bulges.size() ? bulges[i] : 0.0));
    return Curve(std::move(chain), closed);
}

inline Curve line(const Vec2& a, const Vec2& b) { return Curve(straight(a, b)); }

}  // namespace prancheta::test
