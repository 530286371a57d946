// SPDX-License-Identifier: MIT
// Angles as files have them.
#include "prancheta/geometry/degrees.h"

#include <cmath>

#include "prancheta/geometry/angles.h"

namespace prancheta {

double radiansOf(double degrees) { return degrees * (kPi / 180.0); }

double degreesOf(double radians) {
    const double plain = radians * (180.0 / kPi);
    for (const double unit : {1e6, 1e10, 1e12}) {
        const double rounded = std::nearbyint(plain * unit) / unit;
        if (radiansOf(rounded) == radians) return rounded;
    }
    double low = plain;
    double high = plain;
    for (int i = 0; i < 3; ++i) {
        if (radiansOf(low) == radians) return low;
        if (radiansOf(high) == radians) return high;
        low = std::nextafter(low, -1e300);
        high = std::nextafter(high, 1e300);
    }
    return plain;
}

}  // namespace prancheta
