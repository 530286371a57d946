// SPDX-License-Identifier: MIT
// Affine transformation in three dimensions: p' = M p with column vectors, translation in column 3.
#pragma once

#include "gepnt3d.h"

class AcGeMatrix3d {
public:
    static const AcGeMatrix3d kIdentity;

    constexpr AcGeMatrix3d() = default;

    AcGeMatrix3d& setToIdentity();
    AcGeMatrix3d& setToTranslation(const AcGeVector3d& v);
    /// Radians, right hand about the axis. Sine and cosine are exact at multiples of a right angle.
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    /// Reflection in the plane through `point` perpendicular to `normal`.
    AcGeMatrix3d& setToMirroring(const AcGePoint3d& point, const AcGeVector3d& normal);
    static AcGeMatrix3d translation(const AcGeVector3d& v);
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d mirroring(const AcGePoint3d& point, const AcGeVector3d& normal);

    /// A * B applies B first.
    AcGeMatrix3d operator*(const AcGeMatrix3d& m) const;
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left);
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right);
    /// A singular matrix stays as it is.
    AcGeMatrix3d& invert();
    AcGeMatrix3d inverse() const;
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    double det() const;
    bool isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix3d& m) const { return isEqualTo(m); }
    /// True when all directions are scaled alike and stay perpendicular.
    bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Cube root of the absolute determinant.
    double scale() const;

    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                 const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                        AcGeVector3d& zAxis) const;

    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};
