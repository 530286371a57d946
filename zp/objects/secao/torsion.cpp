// SPDX-License-Identifier: MIT
// Torsion constants: walls, joints and cells.
#include "zp/objects/secao/torsion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zp::secao {
namespace {

/// What the end of a rectangle lacks, over its thickness to the fourth power.
constexpr double kEnd = 0.105;

double wall(double l, double t) { return std::max(0.0, l) * t * t * t / 3.0; }

double fourth(double v) { return v * v * v * v; }

/// The same of the thinner end of a tapered wall.
double taperedEnd(double slope) {
    return 0.10504 + slope * (0.1 + slope * (0.0848 + slope * (0.06746 + slope * 0.05153)));
}

/// A wall from thickness m to n, ends not regarded.
double tapered(double l, double m, double n) {
    return std::max(0.0, l) * (m + n) * (m * m + n * n) / 12.0;
}

/// Circle inscribed where two walls meet at a corner.
double cornerCircle(double t1, double t2, double r) {
    return 2.0 * (3.0 * r + t1 + t2 - std::sqrt(2.0 * (2.0 * r + t1) * (2.0 * r + t2)));
}

bool sound(const RolledSizes& m) { return m.tf - m.fall > 0.0 && m.tw > 0.0 && m.b > m.tw; }

}  // namespace

double torsionOfStrip(double area, double t) { return t > 0.0 ? wall(area / t, t) : 0.0; }

double torsionOfCell(const Cell& c) {
    if (!(c.b > 0.0 && c.h > 0.0 && c.tUpright > 0.0 && c.tLying > 0.0)) return 0.0;
    constexpr double kPi = std::numbers::pi;
    const double rounded = (2.0 - 0.5 * kPi) * c.r;  // of each wall, at both of its ends
    const double area = c.b * c.h - (4.0 - kPi) * c.r * c.r;
    const double upright = 2.0 * (c.h - rounded);
    const double lying = 2.0 * (c.b - rounded);
    return 4.0 * area * area / (upright / c.tUpright + lying / c.tLying) +
           wall(upright, c.tUpright) + wall(lying, c.tLying);
}

double torsionOfI(const RolledSizes& m) {
    if (!sound(m)) return 0.0;
    const double tw = m.tw;
    const double r = m.r;
    if (m.fall == 0.0) {
        const double k = tw / m.tf;
        const double q = r / m.tf;
        const double alpha = -0.042 + 0.2204 * k + 0.1355 * q - 0.0865 * k * q - 0.0725 * k * k;
        const double d = ((m.tf + r) * (m.tf + r) + tw * (r + 0.25 * tw)) / (2.0 * r + m.tf);
        return 2.0 * wall(m.b, m.tf) + wall(m.h - 2.0 * m.tf, tw) + 2.0 * alpha * fourth(d) -
               4.0 * kEnd * fourth(m.tf);
    }
    const double slope = 4.0 * m.fall / (m.b - tw);
    const double thin = m.tf - m.fall;
    const double thick = m.tf + m.fall;
    const double k = tw / thick;
    const double q = r / thick;
    const double alpha = -0.0836 + 0.2536 * k + 0.1268 * q - 0.0806 * k * q - 0.0858 * k * k;
    const double f = slope * (r * (std::sqrt(1.0 / (slope * slope) + 1.0) - 1.0) - 0.5 * tw);
    const double d = ((f + thick) * (f + thick) + tw * (r + 0.25 * tw)) / (f + r + thick);
    return 2.0 * tapered(m.b - tw, thin, thick) + 2.0 * wall(tw, thick) +
           wall(m.h - 2.0 * thick, tw) + 2.0 * alpha * fourth(d) -
           4.0 * taperedEnd(slope) * fourth(thin);
}

double torsionOfU(const RolledSizes& m) {
    if (!sound(m)) return 0.0;
    const double slope = 2.0 * m.fall / (m.b - m.tw);
    const double thin = m.tf - m.fall;
    const double k = m.tw / m.tf;
    const double q = m.r / m.tf;
    const double alpha = -0.0908 + 0.2621 * k + 0.1231 * q - 0.0752 * k * q - 0.0945 * k * k;
    return 2.0 * tapered(m.b - m.tw, thin, m.tf + m.fall) + wall(m.h, m.tw) +
           2.0 * alpha * fourth(cornerCircle(m.tw, m.tf, m.r)) -
           2.0 * taperedEnd(slope) * fourth(thin) - 2.0 * kEnd * fourth(m.tw);
}

double torsionOfL(double h, double b, double t, double r) {
    if (!(t > 0.0)) return 0.0;
    return wall(h + b - t, t) + (0.0768 + 0.0479 * r / t) * fourth(cornerCircle(t, t, r)) -
           2.0 * kEnd * fourth(t);
}

double torsionOfPlates(double h, double bc, double tc, double bb, double tb, double tw) {
    return wall(bc, tc) + wall(bb, tb) + wall(h - 0.5 * (tc + tb), tw);
}

}  // namespace zp::secao
