// SPDX-License-Identifier: MIT
// Arcs as users give them. Everything in the XY plane; angles in radians, counter-clockwise.
#pragma once

#include <optional>

#include "gepnt3d.h"

namespace prancheta::commands {

struct PlaneCircle {
    AcGePoint3d center;
    double radius = 0.0;
};

/// Circle through three points, at the first one's height; nothing when they lie on one line.
std::optional<PlaneCircle> circleThrough(const AcGePoint3d& a, const AcGePoint3d& b,
                                         const AcGePoint3d& c);

/// Direction from one point to another, (-pi, pi].
double directionOf(const AcGePoint3d& from, const AcGePoint3d& to);

/// In which direction an arc of this bulge arrives at `to`.
double endDirectionOf(const AcGePoint3d& from, const AcGePoint3d& to, double bulge);

// Bulges (tan of a quarter of the signed sweep) of the arc from `a` to `b`; nothing where there is
// no such arc.
/// That leaves `a` in this direction.
std::optional<double> bulgeByDirection(const AcGePoint3d& a, const AcGePoint3d& b,
                                       double direction);
/// That passes through `middle`.
std::optional<double> bulgeThrough(const AcGePoint3d& a, const AcGePoint3d& middle,
                                   const AcGePoint3d& b);
/// The smaller one of this radius, counter-clockwise; clockwise for a negative radius.
std::optional<double> bulgeByRadius(const AcGePoint3d& a, const AcGePoint3d& b, double radius);

}  // namespace prancheta::commands
