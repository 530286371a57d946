// SPDX-License-Identifier: MIT
// Walls out of loops; sectorial coordinates along them.
#include "zp/objects/secao/thin_walled.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace zp::secao {
namespace {

Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
Point times(Point p, double k) { return {p.x * k, p.y * k}; }
double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
double length(Point v) { return std::hypot(v.x, v.y); }
Point at(const Vertex& v) { return {v.x, v.y}; }
Point middle(Point a, Point b) { return {0.5 * (a.x + b.x), 0.5 * (a.y + b.y)}; }

/// A loop that runs along one face of a chain of walls and back along the other.
class Chain {
public:
    /// `cap` is the corner where the side across its first end begins.
    Chain(const Loop& loop, std::size_t cap) : m_loop(loop), m_cap(cap) {}
    std::size_t nodes() const { return m_loop.vertices.size() / 2; }
    std::size_t near(std::size_t k) const {
        const std::size_t n = m_loop.vertices.size();
        return (m_cap + n - k) % n;
    }
    std::size_t far(std::size_t k) const { return (m_cap + 1 + k) % m_loop.vertices.size(); }
    Point across(std::size_t k) const {
        return at(m_loop.vertices[far(k)]) - at(m_loop.vertices[near(k)]);
    }
    Point node(std::size_t k) const {
        return middle(at(m_loop.vertices[near(k)]), at(m_loop.vertices[far(k)]));
    }
    double radius(std::size_t k) const {
        return 0.5 * (m_loop.vertices[near(k)].radius + m_loop.vertices[far(k)].radius);
    }

private:
    const Loop& m_loop;
    std::size_t m_cap;
};

/// Both ends of a chain are sides between corners that are neither bends nor roots, opposite to
/// each other.
std::optional<std::size_t> capOf(const Loop& loop) {
    const std::vector<Vertex>& v = loop.vertices;
    const std::size_t half = v.size() / 2;
    const auto end = [&](std::size_t i) {
        const Rounding type = v[i % v.size()].type;
        return type == Rounding::None || type == Rounding::Toe;
    };
    for (std::size_t i = 0; i < half; ++i)
        if (end(i) && end(i + 1) && end(i + half) && end(i + half + 1)) return i;
    return {};
}

std::vector<Wall> bentChain(const Chain& chain) {
    const double t = length(chain.across(0));
    Loop middleLine;
    for (std::size_t k = 0; k < chain.nodes(); ++k) {
        const Point p = chain.node(k);
        const bool inner = k > 0 && k + 1 < chain.nodes();
        middleLine.vertices.push_back(
            {p.x, p.y, inner ? chain.radius(k) : 0.0, inner ? Rounding::Bend : Rounding::None});
    }
    std::vector<Segment> lines = trace(middleLine).segments;
    // The loop was closed from the last node to the first one.
    const Point last = chain.node(chain.nodes() - 1);
    if (!lines.empty() && length(lines.back().a - last) <= 1e-9 * t) lines.pop_back();
    std::vector<Wall> walls;
    walls.reserve(lines.size());
    for (const Segment& line : lines)
        walls.push_back({line, t, t, static_cast<int>(walls.size()) - 1,
                         line.arc() ? Element{} : Element{line.comprimento(), t}});
    return walls;
}

/// Walls at half their mean thickness from the outer faces, which meet at right angles.
std::vector<Wall> rolledChain(const Loop& loop, const Chain& chain) {
    const std::size_t last = chain.nodes() - 1;
    const auto corner = [&](std::size_t i) { return at(loop.vertices[i]); };
    const auto reach = [&](auto side) {
        double sum = 0.0;
        for (std::size_t k = 0; k < last; ++k) sum += length(corner(side(k + 1)) - corner(side(k)));
        return sum;
    };
    const auto near = [&](std::size_t k) { return chain.near(k); };
    const auto far = [&](std::size_t k) { return chain.far(k); };
    const bool nearIsOuter = reach(near) > reach(far);
    const auto outer = [&](std::size_t k) { return corner(nearIsOuter ? near(k) : far(k)); };
    std::vector<Wall> walls;
    std::vector<Point> inwards;
    for (std::size_t k = 0; k < last; ++k) {
        const Point face = outer(k + 1) - outer(k);
        const double l = length(face);
        if (!(l > 0.0)) return {};
        const double across = cross(face, chain.across(k)) / l * (nearIsOuter ? 1.0 : -1.0);
        const double other = cross(face, chain.across(k + 1)) / l * (nearIsOuter ? 1.0 : -1.0);
        const double t = 0.5 * std::abs(across + other);
        inwards.push_back(times({-face.y, face.x}, (across > 0.0 ? 0.5 : -0.5) * t / l));
        const bool end = k == 0 || k + 1 == last;
        const double b = end ? l : std::min(straight(loop, near(k + 1)), straight(loop, far(k)));
        walls.push_back({{}, t, t, static_cast<int>(k) - 1, {b, t}});
    }
    for (std::size_t k = 0; k < last; ++k) {
        Segment& line = walls[k].line;
        line.a = outer(k) + inwards[k];
        line.b = outer(k + 1) + inwards[k];
        if (k > 0) line.a = line.a + inwards[k - 1];
        if (k + 1 < last) line.b = line.b + inwards[k + 1];
    }
    return walls;
}

/// Corners as the blocks of an I set them: lower right half upwards, then the mirror image. Half a
/// flange runs on with its taper to the middle of the web, its mid-line as at mid overhang.
std::vector<Wall> wallsOfI(const Loop& loop) {
    const std::vector<Vertex>& v = loop.vertices;
    const double tw = length(at(v[2]) - at(v[9]));
    struct Flange {
        Point left, middle, right;
        double b, t, tTip, tMiddle;
    };
    const auto flange = [&](std::array<std::size_t, 3> right, std::size_t left) {
        const auto [outer, tip, root] = right;
        const Point across = at(v[outer]) - at(v[left]);
        const double b = 0.5 * length(across);
        const double fall = std::abs(cross(across, at(v[root]) - at(v[tip]))) / (2.0 * b);
        const double run = std::max(b - 0.5 * tw, 1e-9 * b);
        const double tTip = length(at(v[tip]) - at(v[outer]));
        const double t = tTip + 0.5 * fall;
        const Point down = times(at(v[tip]) - at(v[outer]), 0.5 * t / tTip);
        const Point r = at(v[outer]) + down;
        const Point l = at(v[left]) + down;
        return Flange{l, middle(l, r), r, b, t, tTip, tTip + fall * b / run};
    };
    const Flange low = flange({0, 1, 2}, 11);
    const Flange top = flange({5, 4, 3}, 6);
    const auto wall = [](Point a, Point b, double ta, double tb, int from) {
        return Wall{{a, b, {}, 0.0, 0.0, 0.0}, ta, tb, from};
    };
    std::vector<Wall> walls{wall(low.left, low.middle, low.tTip, low.tMiddle, -1),
                            wall(low.middle, low.right, low.tMiddle, low.tTip, 0),
                            wall(low.middle, top.middle, tw, tw, 0),
                            wall(top.middle, top.left, top.tMiddle, top.tTip, 2),
                            wall(top.middle, top.right, top.tMiddle, top.tTip, 2)};
    const std::array<Element, 5> elements{
        {{low.b, low.t}, {low.b, low.t}, {straight(loop, 2), tw}, {top.b, top.t}, {top.b, top.t}}};
    for (std::size_t i = 0; i < walls.size(); ++i) walls[i].element = elements[i];
    return walls;
}

/// A point of a wall with the area that stands for it; `w` its sectorial coordinate.
struct Sample {
    Point p;
    double area;
    double w;
};

/// Gauss with five points: exact for what occurs on straight walls.
constexpr std::array<std::array<double, 2>, 5> kGauss{{{0.046910077030668004, 0.11846344252809454},
                                                       {0.23076534494715845, 0.23931433524968323},
                                                       {0.5, 0.28444444444444444},
                                                       {0.76923465505284155, 0.23931433524968323},
                                                       {0.953089922969332, 0.11846344252809454}}};

/// What the sectorial coordinate grows by from the wall's beginning to its point p.
double swept(const Segment& s, Point p, double fraction, Point pole) {
    if (!s.arc()) return cross(s.a - pole, p - pole);
    return s.radius * s.radius * s.sweep * fraction + cross(s.centre - pole, p - s.a);
}

std::vector<Sample> samplesOf(std::span<const Wall> walls, Point pole) {
    std::vector<Sample> samples;
    samples.reserve(kGauss.size() * walls.size());
    std::vector<double> ends;
    ends.reserve(walls.size());
    for (const Wall& wall : walls) {
        const double w = wall.from < 0 ? 0.0 : ends[static_cast<std::size_t>(wall.from)];
        const double l = wall.line.comprimento();
        for (const auto& [fraction, weight] : kGauss) {
            const Point p = wall.line.point(fraction);
            const double t = wall.tBegin + (wall.tEnd - wall.tBegin) * fraction;
            samples.push_back({p, weight * l * t, w + swept(wall.line, p, fraction, pole)});
        }
        ends.push_back(w + swept(wall.line, wall.line.b, 1.0, pole));
    }
    return samples;
}

double varianceOf(std::span<const Sample> samples) {
    double area = 0.0;
    double sum = 0.0;
    double squares = 0.0;
    for (const Sample& s : samples) {
        area += s.area;
        sum += s.w * s.area;
    }
    for (const Sample& s : samples) {
        const double w = s.w - sum / area;
        squares += w * w * s.area;
    }
    return squares;
}

}  // namespace

bool isBent(const Loop& loop) {
    return !loop.hole &&
           std::ranges::find(loop.vertices, Rounding::Bend, &Vertex::type) != loop.vertices.end() &&
           capOf(loop);
}

std::vector<Wall> wallsOf(const Loop& loop) {
    const std::size_t n = loop.vertices.size();
    if (loop.hole || n < 6 || n % 2 != 0) return {};
    if (isBent(loop)) return bentChain({loop, *capOf(loop)});
    if (n == 12) return wallsOfI(loop);
    const std::optional<std::size_t> cap = capOf(loop);
    return cap ? rolledChain(loop, {loop, *cap}) : std::vector<Wall>();
}

std::vector<Wall> reversed(const std::vector<Wall>& chain) {
    std::vector<Wall> walls(chain.rbegin(), chain.rend());
    for (std::size_t i = 0; i < walls.size(); ++i) {
        Wall& wall = walls[i];
        std::swap(wall.line.a, wall.line.b);
        wall.line.start += wall.line.sweep;
        wall.line.sweep = -wall.line.sweep;
        std::swap(wall.tBegin, wall.tEnd);
        wall.from = static_cast<int>(i) - 1;
    }
    return walls;
}

std::vector<Wall> mirrored(const std::vector<Wall>& walls, double x) {
    std::vector<Wall> other = walls;
    for (Wall& wall : other) {
        for (Point* const p : {&wall.line.a, &wall.line.b, &wall.line.centre})
            p->x = 2.0 * x - p->x;
        wall.line.start = std::numbers::pi - wall.line.start;
        wall.line.sweep = -wall.line.sweep;
    }
    return other;
}

double sectorialMoment(std::span<const Wall> walls, Point pole) {
    return varianceOf(samplesOf(walls, pole));
}

Warping warping(std::span<const Wall> walls) {
    if (walls.empty()) return {};
    const Point pole = walls.front().line.a;
    std::vector<Sample> samples = samplesOf(walls, pole);
    double area = 0.0;
    Point g;
    for (const Sample& s : samples) {
        area += s.area;
        g.x += s.area * s.p.x;
        g.y += s.area * s.p.y;
    }
    g = {g.x / area, g.y / area};
    double ix = 0.0, iy = 0.0, ixy = 0.0, wx = 0.0, wy = 0.0;
    for (const Sample& s : samples) {
        const Point p = s.p - g;
        ix += p.y * p.y * s.area;
        iy += p.x * p.x * s.area;
        ixy += p.x * p.y * s.area;
        wx += s.w * p.x * s.area;
        wy += s.w * p.y * s.area;
    }
    // About the shear centre the sectorial coordinate has no moment with x nor with y.
    const double determinant = ix * iy - ixy * ixy;
    const Point step{(iy * wy - ixy * wx) / determinant, (ixy * wy - ix * wx) / determinant};
    for (Sample& s : samples) s.w += step.y * (s.p.x - g.x) - step.x * (s.p.y - g.y);
    return {{pole.x + step.x, pole.y + step.y}, varianceOf(samples)};
}

}  // namespace zp::secao
