// SPDX-License-Identifier: MIT
// Circles that touch two curves: their centres lie where parallels of the curves, one radius away,
// meet. Up to eight; the one that touches nearest to the picks is taken, of two alike the one that
// is nearer to the first pick.
#include "prancheta/editor/commands/tangent_circle.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace prancheta::commands {

namespace {

constexpr double kNegligible = 1e-9;  // share of a length
/// Picks at equal distances are usual: rounding, which differs from place to place, decides
/// nothing.
constexpr double kAlike = 1e-6;  // share of a length

/// A curve in the plane of the first one's pick, or a parallel of it; relative to that pick, so
/// that drawings far from the origin lose no digits.
struct TangentCurve {
    double x = 0.0, y = 0.0;    // of a point, or the centre
    double ux = 0.0, uy = 0.0;  // of a line, length 1
    double radius = 0.0;        // 0: a line
};

struct Place {
    double x = 0.0, y = 0.0;
};

TangentCurve curveOf(const TouchedCurve& touched, const AcGePoint3d& origin) {
    TangentCurve curve{touched.point.x - origin.x, touched.point.y - origin.y, 0.0, 0.0,
                       touched.radius};
    const double length = std::hypot(touched.along.x, touched.along.y);
    if (touched.radius > 0.0 || !(length > 0.0)) return curve;
    curve.ux = touched.along.x / length;
    curve.uy = touched.along.y / length;
    return curve;
}

std::vector<TangentCurve> parallels(const TangentCurve& of, double distance) {
    std::vector<TangentCurve> both(2, of);
    if (of.radius > 0.0) {
        both[0].radius = of.radius + distance;
        both[1].radius = std::abs(of.radius - distance);
        if (both[1].radius <= kNegligible * of.radius) both.pop_back();
        return both;
    }
    for (TangentCurve& one : both) {
        one.x -= of.uy * distance;
        one.y += of.ux * distance;
        distance = -distance;
    }
    return both;
}

/// Where the line of `along` through the foot of the centre cuts the circle.
void cut(const TangentCurve& circle, const Place& foot, double alongX, double alongY,
         std::vector<Place>& out) {
    const double aside = std::hypot(foot.x - circle.x, foot.y - circle.y);
    const double square = circle.radius * circle.radius - aside * aside;
    if (square < -kNegligible * circle.radius * circle.radius) return;
    const double half = std::sqrt(std::max(square, 0.0));
    out.push_back({foot.x + alongX * half, foot.y + alongY * half});
    out.push_back({foot.x - alongX * half, foot.y - alongY * half});
}

void meet(const TangentCurve& a, const TangentCurve& b, std::vector<Place>& out) {
    if (!(a.radius > 0.0) && b.radius > 0.0) return meet(b, a, out);
    const double x = b.x - a.x;
    const double y = b.y - a.y;
    if (a.radius > 0.0 && b.radius > 0.0) {
        const double distance = std::hypot(x, y);
        if (distance <= kNegligible * (a.radius + b.radius)) return;
        const double along =
            (distance * distance + a.radius * a.radius - b.radius * b.radius) / (2.0 * distance);
        const Place foot{a.x + x / distance * along, a.y + y / distance * along};
        return cut(a, foot, -y / distance, x / distance, out);
    }
    if (a.radius > 0.0) {
        const double back = -(x * b.ux + y * b.uy);
        return cut(a, {b.x + b.ux * back, b.y + b.uy * back}, b.ux, b.uy, out);
    }
    const double cross = a.ux * b.uy - a.uy * b.ux;
    if (std::abs(cross) <= kNegligible) return;
    const double along = (x * b.uy - y * b.ux) / cross;
    out.push_back({a.x + a.ux * along, a.y + a.uy * along});
}

/// How far from the pick a circle about `center` touches the curve.
double missOf(const TangentCurve& curve, const Place& center, double radius, const Place& pick) {
    double x = center.x - curve.x;
    double y = center.y - curve.y;
    if (!(curve.radius > 0.0)) {
        const double along = x * curve.ux + y * curve.uy;
        return std::hypot(curve.x + curve.ux * along - pick.x, curve.y + curve.uy * along - pick.y);
    }
    const double distance = std::hypot(x, y);
    // A circle that goes around the curve touches it on the far side.
    const bool around = std::abs(radius - curve.radius - distance) < kNegligible * radius;
    const double scale = (around ? -curve.radius : curve.radius) / distance;
    return std::hypot(curve.x + x * scale - pick.x, curve.y + y * scale - pick.y);
}

}  // namespace

std::optional<AcGePoint3d> centerTouching(const TouchedCurve& first, const TouchedCurve& second,
                                          double radius) {
    const AcGePoint3d& origin = first.pick;
    const TangentCurve a = curveOf(first, origin);
    const TangentCurve b = curveOf(second, origin);
    std::vector<Place> centers;
    for (const TangentCurve& ofFirst : parallels(a, radius))
        for (const TangentCurve& ofSecond : parallels(b, radius)) meet(ofFirst, ofSecond, centers);
    std::optional<AcGePoint3d> best;
    double least = std::numeric_limits<double>::infinity();
    double leastOfFirst = least;
    const Place secondPick{second.pick.x - origin.x, second.pick.y - origin.y};
    for (const Place& center : centers) {
        const double ofFirst = missOf(a, center, radius, {});
        const double miss = std::hypot(ofFirst, missOf(b, center, radius, secondPick));
        const double alike = kAlike * (radius + miss);
        const bool tie = std::abs(miss - least) <= alike;
        if (!(tie ? ofFirst < leastOfFirst - alike : miss < least)) continue;
        least = miss;
        leastOfFirst = ofFirst;
        best = AcGePoint3d(origin.x + center.x, origin.y + center.y, first.point.z);
    }
    return best;
}

}  // namespace prancheta::commands
