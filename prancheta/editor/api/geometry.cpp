// SPDX-License-Identifier: MIT
// Plane geometry of the C-style interface.
#include <cmath>

#include "acutads.h"
#include "geassign.h"
#include "prancheta/geometry/angles.h"

ads_real acutDistance(const ads_point a, const ads_point b) {
    return asPnt3d(a).distanceTo(asPnt3d(b));
}

ads_real acutAngle(const ads_point a, const ads_point b) {
    const double x = b[X] - a[X];
    const double y = b[Y] - a[Y];
    return x == 0.0 && y == 0.0 ? 0.0 : prancheta::positiveAngle(std::atan2(y, x));
}

void acutPolar(const ads_point p, ads_real angle, ads_real distance, ads_point result) {
    const prancheta::SineCosine sc = prancheta::sineCosine(angle);
    result[X] = p[X] + distance * sc.cosine;
    result[Y] = p[Y] + distance * sc.sine;
    result[Z] = p[Z];
}
