// SPDX-License-Identifier: MIT
// Loops: fitting of radii, check, lines and arcs.
#include "zp/objects/secao/outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace zp::secao {
namespace {

constexpr double kPi = std::numbers::pi;

Point difference(const Vertex& a, const Vertex& b) { return {a.x - b.x, a.y - b.y}; }
double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }

/// Sizes are limited to 1e9, so nothing overflows that a slower form would save.
double norm(double x, double y) { return std::sqrt(x * x + y * y); }

/// Corner: unit directions to its neighbours; sine and cosine of its inner angle.
struct Corner {
    Point before;
    Point after;
    double sine = 0.0;
    double cosine = 0.0;
    double cotangent = 0.0;  ///< of half the angle
    double sideAfter = 0.0;

    /// Asked for where it is needed only: the functions of angles are what a section costs.
    double angle() const { return std::atan2(sine, cosine); }
    /// Below 1e-6 or no angle at all.
    bool closed() const { return cosine >= 0.0 && sine <= 1e-6; }
    /// Within 1e-9 of a straight line.
    bool straight() const { return cosine < 0.0 && sine <= 1e-9; }
    /// 1 where a path that arrives here turns to the left, -1 to the right.
    double turn() const { return cross(after, before) > 0.0 ? 1.0 : -1.0; }
};

std::vector<Corner> corners(const std::vector<Vertex>& v) {
    const std::size_t n = v.size();
    std::vector<Corner> r(n);
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t j = (i + 1) % n;
        const Point d = difference(v[j], v[i]);
        const double side = norm(d.x, d.y);
        r[i].sideAfter = side;
        const double k = side > 0.0 ? 1.0 / side : 0.0;
        r[i].after = {d.x * k, d.y * k};
        r[j].before = {-d.x * k, -d.y * k};
    }
    for (Corner& c : r) {
        c.sine = std::abs(cross(c.before, c.after));
        c.cosine = dot(c.before, c.after);
        // Of the two forms the one that loses no digits.
        c.cotangent = c.cosine > 0.0 ? (1.0 + c.cosine) / c.sine : c.sine / (1.0 - c.cosine);
    }
    return r;
}

double tangent(const Corner& c, double radius) {
    return radius > 0.0 && !c.straight() ? radius * c.cotangent : 0.0;
}

double doubleArea(const std::vector<Vertex>& v) {
    double sum = 0.0;
    for (std::size_t i = 0; i < v.size(); ++i) {
        const Vertex& a = v[i];
        const Vertex& b = v[(i + 1) % v.size()];
        sum += a.x * b.y - a.y * b.x;
    }
    return sum;
}

/// Whether the stretches from a to b and from c to d of one axis are apart: most pairs of sides
/// are.
bool apart(double a, double b, double c, double d, double tol) {
    return std::max(a, b) + 2.0 * tol < std::min(c, d) ||
           std::max(c, d) + 2.0 * tol < std::min(a, b);
}

/// True when the two sides cross, or lie on each other along more than `tol`. Touching is allowed:
/// a lip may end on another one.
bool sidesCross(const Vertex& a, const Vertex& b, const Vertex& c, const Vertex& d, double tol) {
    if (apart(a.x, b.x, c.x, d.x, tol) || apart(a.y, b.y, c.y, d.y, tol)) return false;
    const Point u = difference(b, a);
    const Point w = difference(d, c);
    const double lu = norm(u.x, u.y);
    const double lw = norm(w.x, w.y);
    const double c1 = cross(u, difference(c, a)) / lu;
    const double d1 = cross(u, difference(d, a)) / lu;
    const double a2 = cross(w, difference(a, c)) / lw;
    const double b2 = cross(w, difference(b, c)) / lw;
    if (std::abs(c1) <= tol && std::abs(d1) <= tol) {
        const double s0 = dot(u, difference(c, a)) / lu;
        const double s1 = dot(u, difference(d, a)) / lu;
        return std::min(lu, std::max(s0, s1)) - std::max(0.0, std::min(s0, s1)) > tol;
    }
    return std::min(c1, d1) < -tol && std::max(c1, d1) > tol && std::min(a2, b2) < -tol &&
           std::max(a2, b2) > tol;
}

bool crossesItself(const std::vector<Vertex>& v, double tol) {
    const std::size_t n = v.size();
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = i + 2; j < n; ++j) {
            if (i == 0 && j == n - 1) continue;
            if (sidesCross(v[i], v[i + 1], v[j], v[(j + 1) % n], tol)) return true;
        }
    return false;
}

void add(Outline& c, const Segment& s) {
    c.segments.push_back(s);
    c.bounds.include(boundsOf(s));
}

Outline circle(const Loop& loop) {
    Outline c;
    c.hole = loop.hole;
    c.circle = true;
    const double r = loop.circleRadius;
    const double sweep = loop.hole ? -kPi : kPi;
    for (const double start : {0.0, kPi}) {
        const double sign = start == 0.0 ? 1.0 : -1.0;
        add(c, {{loop.centre.x + sign * r, loop.centre.y},
                {loop.centre.x - sign * r, loop.centre.y},
                loop.centre,
                r,
                start,
                sweep});
    }
    return c;
}

}  // namespace

double Bounds::side() const { return std::max(largura(), altura()); }

void Bounds::include(const Bounds& other) {
    if (other.empty()) return;
    include(other.x0, other.y0);
    include(other.x1, other.y1);
}

double Segment::comprimento() const {
    return arc() ? radius * std::abs(sweep) : norm(b.x - a.x, b.y - a.y);
}

double Segment::bulge() const { return arc() ? std::tan(0.25 * sweep) : 0.0; }

Point Segment::point(double fraction) const {
    if (!arc()) return {a.x + (b.x - a.x) * fraction, a.y + (b.y - a.y) * fraction};
    const double angle = start + sweep * fraction;
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

Bounds boundsOf(const Segment& s) {
    Bounds bounds;
    bounds.include(s.a.x, s.a.y);
    bounds.include(s.b.x, s.b.y);
    if (!s.arc()) return bounds;
    const double smallest = std::min(s.start, s.start + s.sweep);
    const double largest = std::max(s.start, s.start + s.sweep);
    for (int q = static_cast<int>(std::ceil(smallest / (0.5 * kPi))); q * 0.5 * kPi <= largest;
         ++q) {
        const int quadrant = ((q % 4) + 4) % 4;
        constexpr double kCos[4] = {1.0, 0.0, -1.0, 0.0};
        constexpr double kSin[4] = {0.0, 1.0, 0.0, -1.0};
        bounds.include(s.centre.x + s.radius * kCos[quadrant],
                       s.centre.y + s.radius * kSin[quadrant]);
    }
    return bounds;
}

Point furthest(const std::vector<Outline>& outlines, const Point& direction) {
    const double angle = std::atan2(direction.y, direction.x);
    const auto along = [&](const Point& p) { return direction.x * p.x + direction.y * p.y; };
    std::optional<Point> most;
    const auto take = [&](const Point& p) {
        if (!most || along(p) > along(*most)) most = p;
    };
    for (const Outline& c : outlines)
        for (const Segment& s : c.segments) {
            take(s.a);
            take(s.b);
            const double sign = s.sweep < 0.0 ? -1.0 : 1.0;
            double turn = std::fmod(sign * (angle - s.start), 2.0 * kPi);
            if (turn < 0.0) turn += 2.0 * kPi;
            if (s.arc() && turn < std::abs(s.sweep))
                take({s.centre.x + s.radius * std::cos(angle),
                      s.centre.y + s.radius * std::sin(angle)});
        }
    return most.value_or(Point{});
}

bool fitRadii(Loop& loop) {
    std::vector<Vertex>& v = loop.vertices;
    if (v.size() < 3) return false;
    Bounds bounds;
    for (const Vertex& p : v) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y)) return false;
        bounds.include(p.x, p.y);
    }
    const double tol = 1e-9 * bounds.side();
    if (bounds.largura() <= tol || bounds.altura() <= tol) return false;
    const std::vector<Corner> corner = corners(v);
    double k = 1.0;
    for (std::size_t i = 0; i < v.size(); ++i) {
        if (corner[i].sideAfter <= tol || corner[i].closed()) return false;
        const std::size_t j = (i + 1) % v.size();
        const double sum = tangent(corner[i], v[i].radius) + tangent(corner[j], v[j].radius);
        if (sum > 0.0) k = std::min(k, corner[i].sideAfter / sum);
    }
    if (k < 1.0)
        for (Vertex& p : v) p.radius *= k;
    const double area = doubleArea(v);
    if (loop.hole ? area >= 0.0 : area <= 0.0) return false;
    return !crossesItself(v, tol);
}

double area(const Loop& loop) {
    if (loop.circleRadius > 0.0)
        return (loop.hole ? -kPi : kPi) * loop.circleRadius * loop.circleRadius;
    const std::vector<Vertex>& v = loop.vertices;
    const std::vector<Corner> corner = corners(v);
    double sum = 0.5 * doubleArea(v);
    for (std::size_t i = 0; i < v.size(); ++i) {
        const double t = tangent(corner[i], v[i].radius);
        if (t <= 0.0) continue;
        // Between the two tangents and the arc.
        const double cutOff = v[i].radius * (t - 0.5 * v[i].radius * (kPi - corner[i].angle()));
        sum -= corner[i].turn() * cutOff;
    }
    return sum;
}

double straight(const Loop& loop, std::size_t i) {
    const std::vector<Vertex>& v = loop.vertices;
    const std::vector<Corner> corner = corners(v);
    const std::size_t j = (i + 1) % v.size();
    return corner[i].sideAfter - tangent(corner[i], v[i].radius) - tangent(corner[j], v[j].radius);
}

Outline trace(const Loop& loop) {
    if (loop.circleRadius > 0.0) return circle(loop);
    Outline c;
    c.hole = loop.hole;
    const std::vector<Vertex>& v = loop.vertices;
    const std::vector<Corner> corner = corners(v);
    c.segments.reserve(2 * v.size());
    double scale = 0.0;
    for (const Corner& k : corner) scale = std::max(scale, k.sideAfter);
    Point current;
    const std::size_t n = v.size();
    // The corner at 0 closes the loop, so its leaving tangent point is where the walk begins.
    for (std::size_t step = 0; step <= n; ++step) {
        const std::size_t i = step % n;
        const double t = tangent(corner[i], v[i].radius);
        const Point arrival{v[i].x + t * corner[i].before.x, v[i].y + t * corner[i].before.y};
        const Point departure{v[i].x + t * corner[i].after.x, v[i].y + t * corner[i].after.y};
        const Point leg{arrival.x - current.x, arrival.y - current.y};
        if (step > 0 && dot(leg, leg) > 1e-24 * scale * scale)
            add(c, {current, arrival, {}, 0.0, 0.0, 0.0});
        current = departure;
        if (step == 0 || t <= 0.0) continue;
        const double turn = corner[i].turn();
        // The centre lies at the radius from the side that arrives, on the side the path turns to.
        const Point centre{arrival.x + turn * v[i].radius * corner[i].before.y,
                           arrival.y - turn * v[i].radius * corner[i].before.x};
        const double start = std::atan2(arrival.y - centre.y, arrival.x - centre.x);
        if (v[i].type == Rounding::Toe) c.toes.push_back({{v[i].x, v[i].y}, c.segments.size()});
        add(c, {arrival, departure, centre, v[i].radius, start, turn * (kPi - corner[i].angle())});
    }
    return c;
}

void move(Loop& loop, double dx, double dy) {
    for (Vertex& v : loop.vertices) {
        v.x += dx;
        v.y += dy;
    }
    loop.centre.x += dx;
    loop.centre.y += dy;
}

void halfTurn(Loop& loop) {
    for (Vertex& v : loop.vertices) {
        v.x = -v.x;
        v.y = -v.y;
    }
    loop.centre = {-loop.centre.x, -loop.centre.y};
}

void mirror(Loop& loop) {
    for (Vertex& v : loop.vertices) v.x = -v.x;
    loop.centre.x = -loop.centre.x;
    std::reverse(loop.vertices.begin(), loop.vertices.end());
}

void rotate(Loop& loop, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    for (Vertex& v : loop.vertices) {
        const double x = v.x * c - v.y * s;
        v.y = v.x * s + v.y * c;
        v.x = x;
    }
    const double x = loop.centre.x * c - loop.centre.y * s;
    loop.centre.y = loop.centre.x * s + loop.centre.y * c;
    loop.centre.x = x;
}

}  // namespace zp::secao
