// SPDX-License-Identifier: MIT
// A straight or round piece of a plane curve.
#include "prancheta/curves/segment.h"

#include <algorithm>
#include <limits>

#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Length of an arc of an ellipse from angle to angle: Gauss and Legendre with five points on
/// sixteenths of a turn, exact to twelve digits for axes up to 1 : 20.
double ellipticLength(const Segment& s, double from, double to) {
    constexpr double kPlace[] = {0.0, 0.5384693101056831, 0.9061798459386640};
    constexpr double kWeight[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
    const auto speed = [&](double a) {
        const SineCosine sc = sineCosine(a);
        return (s.v * sc.cosine - s.u * sc.sine).length();
    };
    const int parts = 1 + static_cast<int>(std::abs(to - from) / (kPi / 32.0));
    const double half = (to - from) / parts / 2.0;
    double sum = 0.0;
    for (int i = 0; i < parts; ++i) {
        const double middle = from + half * (2 * i + 1);
        sum += kWeight[0] * speed(middle);
        for (int k = 1; k < 3; ++k)
            sum +=
                kWeight[k] * (speed(middle - half * kPlace[k]) + speed(middle + half * kPlace[k]));
    }
    return sum * half;
}

/// Angle of the ellipse's point nearest to `p`, in [low, high]: of what 32 steps find, the best
/// halved until nothing is gained.
double ellipticNearest(const Segment& s, const Vec2& p) {
    constexpr int kSteps = 32;
    const auto miss = [&](double t) { return distance(s.at(t), p); };
    int best = 0;
    for (int i = 1; i <= kSteps; ++i)
        if (miss(double(i) / kSteps) < miss(double(best) / kSteps)) best = i;
    double low = std::max(0, best - 1) / double(kSteps);
    double high = std::min(kSteps, best + 1) / double(kSteps);
    for (int i = 0; i < 60; ++i) {
        const double t = (low + high) / 2.0;
        // Where the way to the point stands square on the curve.
        (dot(s.tangent(t), p - s.at(t)) > 0.0 ? low : high) = t;
    }
    return (low + high) / 2.0;
}

}  // namespace

bool Segment::isWhole() const { return std::abs(sweep) >= kTwoPi - 1e-12; }

bool Segment::isCircular() const {
    const double size = u.length();
    return isRound() && std::abs(v.length() - size) <= 1e-9 * size &&
           std::abs(dot(u, v)) <= 1e-9 * size * size;
}

bool Segment::isBounded() const { return low == 0.0 && high == 1.0; }

Vec2 Segment::at(double t) const {
    if (!isRound()) return origin + u * t;
    const SineCosine sc = sineCosine(start + sweep * t);
    return origin + u * sc.cosine + v * sc.sine;
}

Vec2 Segment::tangent(double t) const {
    if (!isRound()) return u;
    const SineCosine sc = sineCosine(start + sweep * t);
    return (v * sc.cosine - u * sc.sine) * sweep;
}

double Segment::lengthBetween(double from, double to) const {
    if (!isRound()) return u.length() * (to - from);
    if (isCircular()) return radius() * std::abs(sweep) * (to - from);
    const double length = ellipticLength(*this, start + sweep * from, start + sweep * to);
    return sweep < 0.0 ? -length : length;
}

double Segment::parameterAt(double length) const {
    if (!isRound()) return u.length() > 0.0 ? length / u.length() : 0.0;
    if (isCircular()) return length / (radius() * std::abs(sweep));
    double t = length / lengthBetween(0.0, 1.0);
    for (int i = 0; i < 50; ++i) {
        const double step = (length - lengthBetween(0.0, t)) / tangent(t).length();
        t += step;
        if (std::abs(step) <= 1e-15) break;
    }
    return t;
}

double Segment::nearest(const Vec2& p) const {
    const Vec2 arm = p - origin;
    if (!isRound()) {
        const double square = dot(u, u);
        return square > 0.0 ? std::clamp(dot(arm, u) / square, low, high) : 0.0;
    }
    if (!isCircular()) return ellipticNearest(*this, p);
    const double t = parameterOfAngle(angleTo(p));
    if (t <= 1.0) return t;
    return distance(at(0.0), p) <= distance(at(1.0), p) ? 0.0 : 1.0;
}

double Segment::areaAbout(const Vec2& about) const {
    if (!isRound()) return cross(origin - about, u) / 2.0;
    return (cross(origin - about, at(1.0) - at(0.0)) + cross(u, v) * sweep) / 2.0;
}

double Segment::angleTo(const Vec2& p) const {
    const Vec2 arm = p - origin;
    const double turn = cross(u, v);
    return std::atan2(cross(u, arm) / turn, cross(arm, v) / turn);
}

double Segment::parameterOfAngle(double angle) const {
    return positiveAngle(sweep > 0.0 ? angle - start : start - angle) / std::abs(sweep);
}

Box2d Segment::box() const {
    Box2d box;
    if (!isRound()) {
        for (const double t : {low, high}) {
            if (std::isfinite(t)) {
                const Vec2 p = at(t);
                box.add(p.x, p.y);
                continue;
            }
            const auto beyond = [&](double along, double from) {
                return along * t > 0.0 ? kInfinity : along * t < 0.0 ? -kInfinity : from;
            };
            box.add(u.x == 0.0 ? origin.x : beyond(u.x, 0.0),
                    u.y == 0.0 ? origin.y : beyond(u.y, 0.0));
        }
        return box;
    }
    for (const double t : {0.0, 1.0}) {
        const Vec2 p = at(t);
        box.add(p.x, p.y);
    }
    // Where the curve runs along an axis.
    for (const double angle : {std::atan2(v.x, u.x), std::atan2(v.y, u.y)})
        for (const double extreme : {angle, angle + kPi}) {
            const double t = parameterOfAngle(extreme);
            if (t > 1.0) continue;
            const Vec2 p = at(t);
            box.add(p.x, p.y);
        }
    return box;
}

Segment Segment::part(double from, double to) const {
    if (!isRound()) return straight(at(from), at(to));
    Segment s = *this;
    s.start = start + sweep * from;
    s.sweep = sweep * (to - from);
    return s;
}

Segment Segment::reversed() const {
    Segment s = *this;
    if (isRound()) {
        s.start = start + sweep;
        s.sweep = -sweep;
        return s;
    }
    s.origin = origin + u;
    s.u = -u;
    s.low = 1.0 - high;
    s.high = 1.0 - low;
    return s;
}

Segment straight(const Vec2& a, const Vec2& b) { return {a, b - a, {}}; }

Segment circular(const Vec2& center, double radius, double start, double sweep) {
    return {center, {radius, 0.0}, {0.0, radius}, start, sweep};
}

Segment bulged(const Vec2& a, const Vec2& b, double bulge) {
    const double chord = distance(a, b);
    if (std::abs(bulge) < 1e-12 || !(chord > 0.0)) return straight(a, b);
    const Vec2 along = b - a;
    const Vec2 center = a + along * 0.5 + along.left() * ((1.0 - bulge * bulge) / (4.0 * bulge));
    const Vec2 arm = a - center;
    return {center, arm, arm.left(), 0.0, 4.0 * std::atan(bulge)};
}

}  // namespace prancheta
