// SPDX-License-Identifier: MIT
// Arcs as users give them.
#include "prancheta/editor/commands/arcs.h"

#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta::commands {

namespace {

constexpr double kStraight = 1e-12;

double cross(const AcGeVector3d& a, const AcGeVector3d& b) { return a.x * b.y - a.y * b.x; }

}  // namespace

std::optional<PlaneCircle> circleThrough(const AcGePoint3d& a, const AcGePoint3d& b,
                                         const AcGePoint3d& c) {
    // Relative to `a`, so that drawings far from the origin lose no digits.
    const AcGeVector3d u(b.x - a.x, b.y - a.y, 0.0);
    const AcGeVector3d v(c.x - a.x, c.y - a.y, 0.0);
    const double doubled = 2.0 * cross(u, v);
    if (std::abs(doubled) <= kStraight * (u.lengthSqrd() + v.lengthSqrd())) return std::nullopt;
    const AcGeVector3d toCenter((v.y * u.lengthSqrd() - u.y * v.lengthSqrd()) / doubled,
                                (u.x * v.lengthSqrd() - v.x * u.lengthSqrd()) / doubled, 0.0);
    return PlaneCircle{a + toCenter, toCenter.length()};
}

double directionOf(const AcGePoint3d& from, const AcGePoint3d& to) {
    return std::atan2(to.y - from.y, to.x - from.x);
}

double endDirectionOf(const AcGePoint3d& from, const AcGePoint3d& to, double bulge) {
    return directionOf(from, to) + 2.0 * std::atan(bulge);
}

std::optional<double> bulgeByDirection(const AcGePoint3d& a, const AcGePoint3d& b,
                                       double direction) {
    if (a.distanceTo(b) < AcGeContext::gTol.equalPoint()) return std::nullopt;
    // Between tangent and chord lies half the sweep.
    const double half = std::remainder(directionOf(a, b) - direction, kTwoPi);
    if (std::abs(std::abs(half) - kPi) < 1e-9) return std::nullopt;
    return std::tan(half / 2.0);
}

std::optional<double> bulgeThrough(const AcGePoint3d& a, const AcGePoint3d& middle,
                                   const AcGePoint3d& b) {
    const AcGeVector3d toA = a - middle;
    const AcGeVector3d toB = b - middle;
    const double turn = cross(toB, toA);
    if (std::abs(turn) <= kStraight * (toA.lengthSqrd() + toB.lengthSqrd())) return std::nullopt;
    return std::copysign(bulgeOfSweep(2.0 * halfSweepThrough(a, middle, b)), turn);
}

std::optional<double> bulgeByRadius(const AcGePoint3d& a, const AcGePoint3d& b, double radius) {
    const double half = std::hypot(b.x - a.x, b.y - a.y) / 2.0;
    if (half < AcGeContext::gTol.equalPoint() || half > std::abs(radius)) return std::nullopt;
    return std::copysign(std::tan(std::asin(half / std::abs(radius)) / 2.0), radius);
}

}  // namespace prancheta::commands
