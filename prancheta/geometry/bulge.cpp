// SPDX-License-Identifier: MIT
// Arc segments given by a bulge.
#include "prancheta/geometry/bulge.h"

#include <cmath>

#include "prancheta/geometry/angles.h"

namespace prancheta {

bool arcOfBulge(const AcGePoint3d& a, const AcGePoint3d& b, double bulge,
                const AcGeVector3d& normal, BulgeArc& arc) {
    const AcGeVector3d along = b - a;
    const double chord = along.length();
    if (std::abs(bulge) < 1e-12 || !(chord > AcGeContext::gTol.equalPoint())) return false;
    // Distance of the centre from the middle of the chord, to the left of it, over the chord.
    const double offset = (1.0 - bulge * bulge) / (4.0 * bulge);
    arc.center = a + along * 0.5 + normal.crossProduct(along) * offset;
    arc.radius = chord * (1.0 + bulge * bulge) / (4.0 * std::abs(bulge));
    arc.start = (a - arc.center) / arc.radius;
    arc.sweep = 4.0 * std::atan(bulge);
    return true;
}

double bulgeOfSweep(double sweep) { return std::tan(sweep / 4.0); }

// The chord is seen from the middle point under a half turn less half the sweep.
double halfSweepThrough(const AcGePoint3d& a, const AcGePoint3d& middle, const AcGePoint3d& b) {
    const AcGeVector3d u = a - middle;
    const AcGeVector3d v = b - middle;
    if (u.isZeroLength() || v.isZeroLength()) return 0.0;
    return kPi - std::atan2(u.crossProduct(v).length(), u.dotProduct(v));
}

}  // namespace prancheta
