// SPDX-License-Identifier: MIT
// Angles, and the frames that the drawing format derives from a normal.
#pragma once

#include "gemat3d.h"

namespace prancheta {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;

struct SineCosine {
    double sine;
    double cosine;
};

/// Exactly 0, 1 or -1 within 1e-14 of a multiple of a right angle, so that pieces turned by
/// quarters stay on their coordinates.
SineCosine sineCosine(double angle);

/// The same direction in [0, 2 pi).
double positiveAngle(double angle);

/// X axis that belongs to a normal by the arbitrary axis rule of the drawing format; unit length.
AcGeVector3d arbitraryXAxis(const AcGeVector3d& normal);

/// From the plane frame of a normal (arbitrary axis rule, origin at the world's) to the world.
AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);

}  // namespace prancheta
