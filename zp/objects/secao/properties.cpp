// SPDX-License-Identifier: MIT
// Green's theorem: moments of a region as integrals along its boundary.
#include "zp/objects/secao/properties.h"

#include <cmath>

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
    if (radius > 1e-12 * mean) p.principalAngle = 0.5 * std::atan2(-2.0 * p.ixy, p.ix - p.iy);
    p.rx = std::sqrt(p.ix / p.area);
    p.ry = std::sqrt(p.iy / p.area);
    p.r1 = std::sqrt(p.i1 / p.area);
    p.r2 = std::sqrt(std::max(0.0, p.i2) / p.area);
}

}  // namespace

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
    p.wxUpper = p.ix / (bounds.y1 - p.yg);
    p.wxLower = p.ix / (p.yg - bounds.y0);
    p.wyLeft = p.iy / (p.xg - bounds.x0);
    p.wyRight = p.iy / (bounds.x1 - p.xg);
    principalAxes(p);
    return p;
}

}  // namespace zp::secao
