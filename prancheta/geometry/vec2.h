// SPDX-License-Identifier: MIT
// Point or vector of the plan.
#pragma once

#include <cmath>

namespace prancheta {

struct Vec2 {
    double x = 0.0;
    double y = 0.0;

    Vec2 operator+(const Vec2& b) const { return {x + b.x, y + b.y}; }
    Vec2 operator-(const Vec2& b) const { return {x - b.x, y - b.y}; }
    Vec2 operator-() const { return {-x, -y}; }
    Vec2 operator*(double f) const { return {x * f, y * f}; }
    bool operator==(const Vec2&) const = default;
    double length() const { return std::hypot(x, y); }
    /// A quarter turn to the left.
    Vec2 left() const { return {-y, x}; }
};

inline double dot(const Vec2& a, const Vec2& b) { return a.x * b.x + a.y * b.y; }
/// Above 0 when `b` points to the left of `a`.
inline double cross(const Vec2& a, const Vec2& b) { return a.x * b.y - a.y * b.x; }
inline double distance(const Vec2& a, const Vec2& b) { return (b - a).length(); }

}  // namespace prancheta
