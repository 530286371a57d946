// SPDX-License-Identifier: MIT
// Angles and plane frames.
#include "prancheta/geometry/angles.h"

#include <cmath>

namespace prancheta {

SineCosine sineCosine(double angle) {
    constexpr double kNear = 1e-14;
    constexpr SineCosine kQuarters[4] = {{0.0, 1.0}, {1.0, 0.0}, {0.0, -1.0}, {-1.0, 0.0}};
    const double quarters = std::nearbyint(angle / (kPi / 2.0));
    if (std::abs(quarters) < 1e6 && std::abs(angle - quarters * (kPi / 2.0)) < kNear) {
        const auto turn = static_cast<unsigned>(static_cast<long>(quarters)) & 3U;
        return kQuarters[turn];
    }
    return {std::sin(angle), std::cos(angle)};
}

double positiveAngle(double angle) {
    double turned = std::fmod(angle, kTwoPi);
    if (turned < 0.0) turned += kTwoPi;
    return turned >= kTwoPi ? 0.0 : turned;
}

AcGeVector3d arbitraryXAxis(const AcGeVector3d& normal) {
    constexpr double kNearPole = 1.0 / 64.0;
    const AcGeVector3d n = normal.normal();
    const bool nearPole = std::abs(n.x) < kNearPole && std::abs(n.y) < kNearPole;
    const AcGeVector3d& reference = nearPole ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis;
    return reference.crossProduct(n).normalize();
}

AcGeMatrix3d planeToWorld(const AcGeVector3d& normal) {
    const AcGeVector3d z = normal.normal();
    if (z.x == 0.0 && z.y == 0.0 && z.z > 0.0) return {};
    const AcGeVector3d x = arbitraryXAxis(z);
    AcGeMatrix3d m;
    m.setCoordSystem(AcGePoint3d::kOrigin, x, z.crossProduct(x), z);
    return m;
}

}  // namespace prancheta
