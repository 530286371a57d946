// SPDX-License-Identifier: MIT
// Green's theorem: moments of a region as integrals along its boundary.
#include "zp/objects/secao/properties.h"

#include <cmath>
#include <numbers>

namespace zp::secao {
namespace {

struct Moments {
    double a = 0.0;
    double sx = 0.0;
    double sy = 0.0;
    double ix = 0.0;
    double iy = 0.0;
    double ixy = 0.0;
};

void addLine(Moments& m, Point p, Point q) {
    const double dx = q.x - p.x;
    const double dy = q.y - p.y;
    m.a += 0.5 * (p.x * q.y - p.y * q.x);
    m.sx -= dx * (p.y * p.y + p.y * q.y + q.y * q.y) / 6.0;
    m.sy += dy * (p.x * p.x + p.x * q.x + q.x * q.x) / 6.0;
    m.ix -= dx * (p.y + q.y) * (p.y * p.y + q.y * q.y) / 12.0;
    m.iy += dy * (p.x + q.x) * (p.x * p.x + q.x * q.x) / 12.0;
    m.ixy += dy *
             (3.0 * p.x * p.x * p.y + p.x * p.x * q.y + 2.0 * p.x * q.x * (p.y + q.y) +
              q.x * q.x * p.y + 3.0 * q.x * q.x * q.y) /
             24.0;
}

/// Integrals over the angle of an arc: `ccs` is that of cos^2 sin, and so on.
struct Powers {
    explicit Powers(const Segment& arc);
    double c, s, cc, ss, cs, ccc, sss, ccs, cccc, ssss, cccs;
};

/// The ends of the arc say cosine and sine of its angles.
Powers::Powers(const Segment& arc) {
    const double sweep = arc.sweep;
    const double c0 = (arc.a.x - arc.centre.x) / arc.radius;
    const double s0 = (arc.a.y - arc.centre.y) / arc.radius;
    const double c1 = (arc.b.x - arc.centre.x) / arc.radius;
    const double s1 = (arc.b.y - arc.centre.y) / arc.radius;
    // Halves of the differences of sin 2t, and eighths of those of sin 4t.
    const double doubled = s1 * c1 - s0 * c0;
    const double quadrupled =
        0.5 * (s1 * c1 * (c1 - s1) * (c1 + s1) - s0 * c0 * (c0 - s0) * (c0 + s0));
    c = s1 - s0;
    s = c0 - c1;
    cc = 0.5 * (sweep + doubled);
    ss = 0.5 * (sweep - doubled);
    cs = 0.5 * c * (s1 + s0);
    ccc = c - (s1 * s1 * s1 - s0 * s0 * s0) / 3.0;
    ccs = (c0 * c0 * c0 - c1 * c1 * c1) / 3.0;
    sss = s - ccs;
    cccc = 0.375 * sweep + 0.5 * doubled + 0.25 * quadrupled;
    ssss = 0.375 * sweep - 0.5 * doubled + 0.25 * quadrupled;
    cccs = 0.25 * (c0 * c0 * c0 * c0 - c1 * c1 * c1 * c1);
}

/// Exact: x and y of an arc are cosine and sine of its angle, so every integrand is a polynomial in
/// them.
void addArc(Moments& m, const Segment& arc, Point origin) {
    const Powers p(arc);
    const double x = arc.centre.x - origin.x;
    const double y = arc.centre.y - origin.y;
    const double r = arc.radius;
    m.a += 0.5 * r * (x * p.c + y * p.s + r * arc.sweep);
    m.sx += 0.5 * r * (y * y * p.s + r * (2.0 * y * p.ss + r * p.sss));
    m.sy += 0.5 * r * (x * x * p.c + r * (2.0 * x * p.cc + r * p.ccc));
    m.ix +=
        r * (y * y * y * p.s + r * (3.0 * y * y * p.ss + r * (3.0 * y * p.sss + r * p.ssss))) / 3.0;
    m.iy +=
        r * (x * x * x * p.c + r * (3.0 * x * x * p.cc + r * (3.0 * x * p.ccc + r * p.cccc))) / 3.0;
    m.ixy += 0.5 * r *
             (x * x * (y * p.c + r * p.cs) +
              r * (2.0 * x * (y * p.cc + r * p.ccs) + r * (y * p.ccc + r * p.cccs)));
}

void principalAxes(Properties& p) {
    const double mean = 0.5 * (p.ix + p.iy);
    const double radius = std::hypot(0.5 * (p.ix - p.iy), p.ixy);
    p.i1 = mean + radius;
    p.i2 = mean - radius;
    if (radius > 1e-12 * mean) p.principalAngle = 0.5 * std::atan2(0.0 - 2.0 * p.ixy, p.ix - p.iy);
    p.rx = std::sqrt(p.ix / p.area);
    p.ry = std::sqrt(p.iy / p.area);
    p.r1 = std::sqrt(p.i1 / p.area);
    p.r2 = std::sqrt(std::max(0.0, p.i2) / p.area);
}

/// Area of what lies above a line parallel to x, and its first moment about that line: Green's
/// theorem over max(y - level, 0).
struct Above {
    double area = 0.0;
    double moment = 0.0;
};

void addLineAbove(Above& m, Point p, Point q) {
    if (p.y <= 0.0 && q.y <= 0.0) return;
    if (p.y < 0.0) p = {p.x + (q.x - p.x) * p.y / (p.y - q.y), 0.0};
    if (q.y < 0.0) q = {q.x + (p.x - q.x) * q.y / (q.y - p.y), 0.0};
    const double dx = q.x - p.x;
    m.area -= 0.5 * dx * (p.y + q.y);
    m.moment -= dx * (p.y * p.y + p.y * q.y + q.y * q.y) / 6.0;
}

/// A direction seen from an arc's centre.
struct Direction {
    double angle;
    double c;
    double s;
};

Direction directionOf(double angle) { return {angle, std::cos(angle), std::sin(angle)}; }

/// The ends of the arc say cosine and sine of their angles.
Direction directionOf(const Segment& arc, Point p, double angle) {
    return {angle, (p.x - arc.centre.x) / arc.radius, (p.y - arc.centre.y) / arc.radius};
}

/// An arc of which all lies above; `y` of its centre.
void addArcAbove(Above& m, double y, double r, const Direction& from, const Direction& to) {
    const double s = from.c - to.c;
    const double ss = 0.5 * (to.angle - from.angle - (to.s * to.c - from.s * from.c));
    const double sss = s - (from.c * from.c * from.c - to.c * to.c * to.c) / 3.0;
    m.area += r * (y * s + r * ss);
    m.moment += 0.5 * r * (y * y * s + r * (2.0 * y * ss + r * sss));
}

void addArcAbove(Above& m, const Segment& arc, double level) {
    const double y = arc.centre.y - level;
    const double r = arc.radius;
    if (y + r <= 0.0) return;
    const Direction begin = directionOf(arc, arc.a, arc.start);
    const Direction end = directionOf(arc, arc.b, arc.start + arc.sweep);
    if (y >= r) {
        addArcAbove(m, y, r, begin, end);
        return;
    }
    const bool forward = arc.sweep > 0.0;
    const Direction& from = forward ? begin : end;
    const Direction& to = forward ? end : begin;
    Above part;
    // The stretch above the line comes round with every turn.
    const double rise = std::asin(-y / r);
    const double set = std::numbers::pi - rise;
    constexpr double kTurn = 2.0 * std::numbers::pi;
    for (double k = kTurn * std::floor((from.angle - set) / kTurn); k + rise < to.angle; k += kTurn)
        if (k + set > from.angle)
            addArcAbove(part, y, r, from.angle > k + rise ? from : directionOf(k + rise),
                        to.angle < k + set ? to : directionOf(k + set));
    m.area += forward ? part.area : -part.area;
    m.moment += forward ? part.moment : -part.moment;
}

Above above(const std::vector<Segment>& boundary, double level) {
    Above m;
    for (const Segment& s : boundary)
        if (s.arc())
            addArcAbove(m, s, level);
        else
            addLineAbove(m, {s.a.x, s.a.y - level}, {s.b.x, s.b.y - level});
    return m;
}

/// The level that halves the area by regula falsi (Illinois): the area above falls steadily. An
/// error of the level counts only squared in the modulus, which is least there.
double plasticModulus(const std::vector<Segment>& boundary, double area, double centroid, double y0,
                      double y1) {
    const double close = 1e-7 * area;
    double level = centroid;
    Above m = above(boundary, level);
    double low = 0.5 * area;
    double high = -0.5 * area;
    for (int i = 0; i < 60 && std::abs(m.area - 0.5 * area) > close; ++i) {
        const double excess = m.area - 0.5 * area;
        if (excess > 0.0) {
            y0 = level;
            low = excess;
            high *= 0.5;
        } else {
            y1 = level;
            high = excess;
            low *= 0.5;
        }
        level = (y0 * high - y1 * low) / (high - low);
        m = above(boundary, level);
    }
    return 2.0 * m.moment - area * (centroid - level);
}

}  // namespace

PlasticModuli plasticModuli(const std::vector<Outline>& outlines, const Properties& p) {
    if (!(p.area > 0.0)) return {};
    std::vector<Segment> boundary;
    Bounds bounds;
    for (const Outline& c : outlines) {
        bounds.include(c.bounds);
        boundary.insert(boundary.end(), c.segments.begin(), c.segments.end());
    }
    PlasticModuli moduli;
    moduli.zx = plasticModulus(boundary, p.area, p.yg, bounds.y0, bounds.y1);
    // A right angle on, what was x is y.
    for (Segment& s : boundary) {
        s.a = {-s.a.y, s.a.x};
        s.b = {-s.b.y, s.b.x};
        s.centre = {-s.centre.y, s.centre.x};
        s.start += 0.5 * std::numbers::pi;
    }
    moduli.zy = plasticModulus(boundary, p.area, p.xg, bounds.x0, bounds.x1);
    return moduli;
}

Properties properties(const std::vector<Outline>& outlines) {
    Properties p;
    Bounds bounds;
    for (const Outline& c : outlines) bounds.include(c.bounds);
    if (bounds.empty()) return p;
    // Moments about the middle of the box lose no digits to a far origin.
    const Point middle{0.5 * (bounds.x0 + bounds.x1), 0.5 * (bounds.y0 + bounds.y1)};
    Moments m;
    for (const Outline& c : outlines)
        for (const Segment& s : c.segments) {
            p.perimetro += s.comprimento();
            if (s.arc())
                addArc(m, s, middle);
            else
                addLine(m, {s.a.x - middle.x, s.a.y - middle.y},
                        {s.b.x - middle.x, s.b.y - middle.y});
        }
    if (!(m.a > 0.0)) return p;
    const double gx = m.sy / m.a;
    const double gy = m.sx / m.a;
    p.area = m.a;
    p.xg = middle.x + gx;
    p.yg = middle.y + gy;
    p.ix = m.ix - m.a * gy * gy;
    p.iy = m.iy - m.a * gx * gx;
    p.ixy = m.ixy - m.a * gx * gy;
    // Of a symmetric section nothing but rounding is left, which would tilt its axes.
    if (std::abs(p.ixy) <= 1e-13 * (p.ix + p.iy)) p.ixy = 0.0;
    p.wxUpper = p.ix / (bounds.y1 - p.yg);
    p.wxLower = p.ix / (p.yg - bounds.y0);
    p.wyLeft = p.iy / (p.xg - bounds.x0);
    p.wyRight = p.iy / (bounds.x1 - p.xg);
    principalAxes(p);
    return p;
}

}  // namespace zp::secao
