// SPDX-License-Identifier: MIT
// Point in three dimensions.
#pragma once

#include "gevec3d.h"

class AcGePoint3d {
public:
    static const AcGePoint3d kOrigin;

    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double px, double py, double pz) : x(px), y(py), z(pz) {}

    constexpr AcGePoint3d operator+(const AcGeVector3d& v) const {
        return {x + v.x, y + v.y, z + v.z};
    }
    constexpr AcGePoint3d operator-(const AcGeVector3d& v) const {
        return {x - v.x, y - v.y, z - v.z};
    }
    constexpr AcGeVector3d operator-(const AcGePoint3d& p) const {
        return {x - p.x, y - p.y, z - p.z};
    }
    AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }

    double distanceTo(const AcGePoint3d& p) const { return (p - *this).length(); }
    constexpr AcGeVector3d asVector() const { return {x, y, z}; }
    AcGePoint3d& transformBy(const AcGeMatrix3d& m);
    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis,
                          const AcGePoint3d& center = kOrigin);
    bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Within the default tolerance, not bit by bit.
    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint3d& p) const { return !isEqualTo(p); }
    AcGePoint3d& set(double px, double py, double pz) { return *this = AcGePoint3d(px, py, pz); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p);
