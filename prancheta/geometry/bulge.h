// SPDX-License-Identifier: MIT
// Arc segments given by a bulge: tan(angle / 4), positive counter-clockwise about the normal.
#pragma once

#include "gepnt3d.h"

namespace prancheta {

struct BulgeArc {
    AcGePoint3d center;
    AcGeVector3d start;  ///< unit vector from the centre to the first point
    double radius = 0.0;
    double sweep = 0.0;  ///< signed, radians about the normal
};

/// Arc from `a` to `b` in the plane through them perpendicular to the unit vector `normal`. False
/// for a bulge of 0 or points that coincide: a straight segment.
bool arcOfBulge(const AcGePoint3d& a, const AcGePoint3d& b, double bulge,
                const AcGeVector3d& normal, BulgeArc& arc);

/// Sweep in radians, counter-clockwise above 0; tan of its quarter.
double bulgeOfSweep(double sweep);

/// Half the sweep of the arc from `a` to `b` through `middle`, without sign; 0 where they stand on
/// one line in this order or two coincide.
double halfSweepThrough(const AcGePoint3d& a, const AcGePoint3d& middle, const AcGePoint3d& b);

}  // namespace prancheta
