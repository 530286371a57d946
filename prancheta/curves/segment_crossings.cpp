// SPDX-License-Identifier: MIT
// Where two segments meet.
//
// All is reckoned from differences of coordinates, so that a drawing far from the origin loses no
// more than its coordinates lost. What is nearer than rounding, or 1e-10 of the shorter segment,
// counts as touching.
#include <algorithm>
#include <limits>

#include "prancheta/curves/conic_roots.h"
#include "prancheta/curves/crossings.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

double sizeOf(const Segment& s) {
    if (!s.isBounded()) return std::numeric_limits<double>::infinity();
    return s.isRound() ? std::max(s.u.length(), s.v.length()) * std::abs(s.sweep) : s.u.length();
}

/// Of the coordinates that reckoning with the segment goes through.
double farthest(const Segment& s) {
    return std::max({std::abs(s.origin.x), std::abs(s.origin.y), s.u.length(), s.v.length()});
}

double touching(const Segment& a, const Segment& b) {
    const double size = std::min(sizeOf(a), sizeOf(b));
    return (std::isfinite(size) ? 1e-10 * size : 0.0) +
           16.0 * std::numeric_limits<double>::epsilon() * std::max(farthest(a), farthest(b));
}

/// The parameter, brought to the segment's end when it is that near; false when it is off.
bool onto(const Segment& s, double& t, double slack) {
    if (!(t >= s.low - slack && t <= s.high + slack)) return false;
    if (t <= s.low + slack) t = s.low;
    if (t >= s.high - slack) t = s.high;
    return true;
}

/// Of an angle on a round segment; false when the segment does not pass it.
bool passes(const Segment& s, double angle, double near, double& t) {
    const double slack = near / (std::min(s.u.length(), s.v.length()) * std::abs(s.sweep));
    t = s.parameterOfAngle(angle);
    if (t >= kTwoPi / std::abs(s.sweep) - slack) t = 0.0;
    return onto(s, t, slack);
}

void addAt(const Segment& a, double s, double t, std::vector<Meeting>& out) {
    out.push_back({s, t, a.at(s)});
}

/// Both straight and on one line: `shorter` is bounded.
void appendShared(const Segment& longer, const Segment& shorter, double near,
                  std::vector<Meeting>& out) {
    const double square = dot(longer.u, longer.u);
    const auto along = [&](const Vec2& p) { return dot(p - longer.origin, longer.u) / square; };
    const double p = along(shorter.at(0.0));
    const double q = along(shorter.at(1.0));
    const double slack = near / std::sqrt(square);
    double from = std::max(longer.low, std::min(p, q));
    double to = std::min(longer.high, std::max(p, q));
    if (from > to + slack || p == q) return;
    const auto add = [&](double s) {
        double t = std::clamp((s - p) / (q - p), 0.0, 1.0);
        (void)onto(longer, s, slack);
        (void)onto(shorter, t, near / shorter.u.length());
        addAt(longer, s, t, out);
    };
    add(from);
    if (to > from + slack) add(to);
}

void meetStraight(const Segment& a, const Segment& b, double near, std::vector<Meeting>& out) {
    const double lengthA = a.u.length();
    const double lengthB = b.u.length();
    if (!(lengthA > 0.0 && lengthB > 0.0)) return;
    const Vec2 between = b.origin - a.origin;
    const double turn = cross(a.u, b.u);
    const double aside = cross(a.u, between) / lengthA;  // of b's first point from a's line
    const double rise = turn / lengthA;                  // from there to its second point
    const bool bounded = b.isBounded();
    if (bounded && std::abs(aside) <= near && std::abs(aside + rise) <= near)
        return appendShared(a, b, near, out);
    if (std::abs(turn) <= 1e-13 * lengthA * lengthB) return;
    double s = cross(between, b.u) / turn;
    double t = -aside / rise;
    if (onto(a, s, near / lengthA) && onto(b, t, near / lengthB)) addAt(a, s, t, out);
}

/// In the frame in which the ellipse is the unit circle.
void meetLineRound(const Segment& line, const Segment& round, double near,
                   std::vector<Meeting>& out) {
    const double turn = cross(round.u, round.v);
    const double widest = std::max(round.u.length(), round.v.length());
    const double length = line.u.length();
    if (!(length > 0.0) || std::abs(turn) <= 1e-14 * widest * widest) return;
    const auto mapped = [&](const Vec2& v) {
        return Vec2{cross(v, round.v) / turn, cross(round.u, v) / turn};
    };
    const Vec2 from = mapped(line.origin - round.origin);
    const Vec2 along = mapped(line.u);
    const double slack = near * widest / std::abs(turn);
    const double size = along.length();
    const double middle = -dot(from, along) / (size * size);
    const double aside = std::abs(cross(from, along)) / size;
    if (aside > 1.0 + slack) return;
    const double half = aside >= 1.0 - slack ? 0.0 : std::sqrt((1.0 - aside) * (1.0 + aside));
    const auto add = [&](double s) {
        const Vec2 p = from + along * s;
        double t = 0.0;
        if (onto(line, s, near / length) && passes(round, std::atan2(p.y, p.x), near, t))
            addAt(line, s, t, out);
    };
    add(middle - half / size);
    if (half > 0.0) add(middle + half / size);
}

/// On one circle or ellipse: the ends of each that lie on the other.
void appendSharedRound(const Segment& a, const Segment& b, double near, std::vector<Meeting>& out) {
    if (!a.isWhole())
        for (const double s : {0.0, 1.0})
            if (double t = 0.0; passes(b, b.angleTo(a.at(s)), near, t)) addAt(a, s, t, out);
    if (!b.isWhole())
        for (const double t : {0.0, 1.0})
            if (double s = 0.0; passes(a, a.angleTo(b.at(t)), near, s)) addAt(a, s, t, out);
}

void addOnBoth(const Segment& a, const Segment& b, const Vec2& p, double near,
               std::vector<Meeting>& out) {
    double s = 0.0;
    double t = 0.0;
    if (passes(a, a.angleTo(p), near, s) && passes(b, b.angleTo(p), near, t)) addAt(a, s, t, out);
}

void meetCircles(const Segment& a, const Segment& b, double near, std::vector<Meeting>& out) {
    const double r = a.radius();
    const double q = b.radius();
    const Vec2 between = b.origin - a.origin;
    const double apart = between.length();
    if (apart <= near && std::abs(r - q) <= near) return appendSharedRound(a, b, near, out);
    if (apart > r + q + near || apart < std::abs(r - q) - near || !(apart > 0.0)) return;
    const Vec2 along = between * (1.0 / apart);
    const bool touches = apart >= r + q - near || apart <= std::abs(r - q) + near;
    if (touches) {
        const double side = apart < r + q - near && r < q ? -r : r;
        return addOnBoth(a, b, a.origin + along * side, near, out);
    }
    const double foot = (apart + (r - q) * (r + q) / apart) / 2.0;
    const double half = std::sqrt(std::max(0.0, (r - foot) * (r + foot)));
    for (const double side : {half, -half})
        addOnBoth(a, b, a.origin + along * foot + along.left() * side, near, out);
}

/// Points of b, |m|^2 = 1 in the frame in which a is the unit circle.
void meetEllipses(const Segment& a, const Segment& b, double near, std::vector<Meeting>& out) {
    const double turn = cross(a.u, a.v);
    const double widest = std::max(a.u.length(), a.v.length());
    if (std::abs(turn) <= 1e-14 * widest * widest) return;
    const auto mapped = [&](const Vec2& v) {
        return Vec2{cross(v, a.v) / turn, cross(a.u, v) / turn};
    };
    const Vec2 c = mapped(b.origin - a.origin);
    const Vec2 u = mapped(b.u);
    const Vec2 v = mapped(b.v);
    const TrigonometricQuadratic f = {dot(c, c) + (dot(u, u) + dot(v, v)) / 2.0 - 1.0,
                                      2.0 * dot(c, u), 2.0 * dot(c, v),
                                      (dot(u, u) - dot(v, v)) / 2.0, dot(u, v)};
    const double slack = 4.0 * near * widest / std::abs(turn);
    if (f.size() <= slack) return appendSharedRound(a, b, near, out);
    for (const double angle : rootsOf(f, slack)) {
        const SineCosine sc = sineCosine(angle);
        addOnBoth(a, b, b.origin + b.u * sc.cosine + b.v * sc.sine, 8.0 * near, out);
    }
}

}  // namespace

void appendMeetings(const Segment& a, const Segment& b, std::vector<Meeting>& out) {
    const double near = touching(a, b);
    // A line before a circle; of lines the longer one: its direction is the surer.
    const bool swapped = a.isRound() ? !b.isRound() : !b.isRound() && sizeOf(a) < sizeOf(b);
    const Segment& first = swapped ? b : a;
    const Segment& second = swapped ? a : b;
    const std::size_t before = out.size();
    if (!second.isRound())
        meetStraight(first, second, near, out);
    else if (!first.isRound())
        meetLineRound(first, second, near, out);
    else if (first.isCircular() && second.isCircular())
        meetCircles(first, second, near, out);
    else
        meetEllipses(first, second, near, out);
    if (swapped)
        for (std::size_t i = before; i < out.size(); ++i) std::swap(out[i].first, out[i].second);
}

}  // namespace prancheta
