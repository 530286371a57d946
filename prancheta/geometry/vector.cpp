// SPDX-License-Identifier: MIT
// Vectors.
#include "gevec3d.h"

#include <cmath>

#include "gemat3d.h"
#include "prancheta/geometry/angles.h"

constinit const AcGeVector3d AcGeVector3d::kIdentity{};
constinit const AcGeVector3d AcGeVector3d::kXAxis{1.0, 0.0, 0.0};
constinit const AcGeVector3d AcGeVector3d::kYAxis{0.0, 1.0, 0.0};
constinit const AcGeVector3d AcGeVector3d::kZAxis{0.0, 0.0, 1.0};

double AcGeVector3d::length() const { return std::hypot(x, y, z); }

AcGeVector3d& AcGeVector3d::normalize(const AcGeTol& tol) {
    const double l = length();
    // A vector of length 1 by rounding is left alone, so that normalizing twice changes nothing.
    if (l > tol.equalVector() && l != 1.0) *this = *this / l;
    return *this;
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const {
    AcGeVector3d v = *this;
    return v.normalize(tol);
}

double AcGeVector3d::angleTo(const AcGeVector3d& v) const {
    return std::atan2(crossProduct(v).length(), dotProduct(v));
}

double AcGeVector3d::angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const {
    const double angle = angleTo(v);
    const bool clockwise = crossProduct(v).dotProduct(reference) < 0.0;
    return clockwise ? prancheta::positiveAngle(prancheta::kTwoPi - angle) : angle;
}

AcGeVector3d AcGeVector3d::perpVector() const { return prancheta::arbitraryXAxis(*this); }

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m) { return *this = m * *this; }

bool AcGeVector3d::isEqualTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    return (*this - v).lengthSqrd() <= tol.equalVector() * tol.equalVector();
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    const double lengths = length() * v.length();
    if (lengths <= tol.equalVector() * tol.equalVector()) return false;
    return crossProduct(v).length() <= tol.equalVector() * lengths;
}

bool AcGeVector3d::isZeroLength(const AcGeTol& tol) const { return length() <= tol.equalVector(); }

AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v) {
    const auto& e = m.entry;
    return {e[0][0] * v.x + e[0][1] * v.y + e[0][2] * v.z,
            e[1][0] * v.x + e[1][1] * v.y + e[1][2] * v.z,
            e[2][0] * v.x + e[2][1] * v.y + e[2][2] * v.z};
}
