// SPDX-License-Identifier: MIT
// Vector in three dimensions.
#pragma once

#include "getol.h"

class AcGeMatrix3d;

class AcGeVector3d {
public:
    static const AcGeVector3d kIdentity;
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double vx, double vy, double vz) : x(vx), y(vy), z(vz) {}

    constexpr AcGeVector3d operator+(const AcGeVector3d& v) const {
        return {x + v.x, y + v.y, z + v.z};
    }
    constexpr AcGeVector3d operator-(const AcGeVector3d& v) const {
        return {x - v.x, y - v.y, z - v.z};
    }
    constexpr AcGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr AcGeVector3d operator*(double k) const { return {x * k, y * k, z * k}; }
    constexpr AcGeVector3d operator/(double k) const { return {x / k, y / k, z / k}; }
    AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    AcGeVector3d& operator*=(double k) { return *this = *this * k; }

    double length() const;
    constexpr double lengthSqrd() const { return x * x + y * y + z * z; }
    /// A vector too short to have a direction stays as it is.
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    constexpr double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    /// Radians in [0, pi].
    double angleTo(const AcGeVector3d& v) const;
    /// Radians in [0, 2 pi), counter-clockwise seen from the tip of `reference`.
    double angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const;
    /// Some vector perpendicular to this one, by the arbitrary axis rule of the DXF format.
    AcGeVector3d perpVector() const;
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& transformBy(const AcGeMatrix3d& m);
    bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector3d& v) const { return !isEqualTo(v); }
    AcGeVector3d& set(double vx, double vy, double vz) { return *this = AcGeVector3d(vx, vy, vz); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

constexpr AcGeVector3d operator*(double k, const AcGeVector3d& v) { return v * k; }
AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v);
