// SPDX-License-Identifier: MIT
// Arcs as curves or chords.
#include "prancheta/plot/flatten.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace prancheta {
namespace {

constexpr double kQuarter = std::numbers::pi / 2.0;

/// Radial error of the usual cubic for a quarter of the unit circle; it falls with the sixth power
/// of the angle.
constexpr double kQuarterError = 2.73e-4;

double radiusOf(const DeviceArc& arc) {
    return std::max(std::hypot(arc.x.x(), arc.x.y()), std::hypot(arc.y.x(), arc.y.y()));
}

/// Bisection of the part between `from` and `to`. A part whose surroundings are out of sight is one
/// chord, so that the cost follows what is seen.
struct Bisection {
    QPainterPath& path;
    const DeviceArc& arc;
    const QRectF& visible;
    double deviation;
    double radius;

    void part(double from, double to, const QPointF& a, const QPointF& b) {
        const double span = to - from;
        const double sagitta = radius * (1.0 - std::cos(span / 2.0));
        const QRectF reach =
            QRectF(a, b).normalized().adjusted(-sagitta, -sagitta, sagitta, sagitta);
        const bool seen = reach.right() >= visible.left() && reach.left() <= visible.right() &&
                          reach.bottom() >= visible.top() && reach.top() <= visible.bottom();
        if (std::abs(span) <= kQuarter && (sagitta <= deviation || !seen)) {
            path.lineTo(b);
            return;
        }
        const double middle = (from + to) / 2.0;
        const QPointF m = arc.at(middle);
        part(from, middle, a, m);
        part(middle, to, m, b);
    }
};

}  // namespace

QPointF DeviceArc::at(double t) const { return center + x * std::cos(t) + y * std::sin(t); }

void appendCubics(QPainterPath& path, const DeviceArc& arc, double deviation) {
    const double worst = kQuarterError * radiusOf(arc);
    const double step =
        worst > deviation ? kQuarter * std::pow(deviation / worst, 1.0 / 6.0) : kQuarter;
    const int count = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / step - 1e-9)));
    const double turn = arc.sweep / count;
    const double reach = 4.0 / 3.0 * std::tan(turn / 4.0);
    double s0 = 0.0;
    double c0 = 1.0;
    for (int i = 1; i <= count; ++i) {
        const double s1 = std::sin(turn * i);
        const double c1 = std::cos(turn * i);
        const QPointF from = arc.center + arc.x * c0 + arc.y * s0;
        const QPointF to = arc.center + arc.x * c1 + arc.y * s1;
        path.cubicTo(from + (arc.y * c0 - arc.x * s0) * reach,
                     to - (arc.y * c1 - arc.x * s1) * reach, to);
        s0 = s1;
        c0 = c1;
    }
}

void appendChords(QPainterPath& path, const DeviceArc& arc, double deviation,
                  const QRectF& visible) {
    const double radius = radiusOf(arc);
    // Up to here even chords all round are cheap, and evenly spaced ones look best.
    constexpr double kFewChords = 500.0;
    if (radius > kFewChords) {
        Bisection{path, arc, visible, deviation, radius}.part(0.0, arc.sweep, arc.at(0.0),
                                                              arc.at(arc.sweep));
        return;
    }
    const double cosine = std::clamp(1.0 - deviation / std::max(radius, 1e-9), -1.0, 1.0);
    const double step = std::min(2.0 * std::acos(cosine), kQuarter / 2.0);
    const int count = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / step - 1e-9)));
    for (int i = 1; i <= count; ++i) path.lineTo(arc.at(arc.sweep * i / count));
}

}  // namespace prancheta
