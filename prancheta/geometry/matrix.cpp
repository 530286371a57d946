// SPDX-License-Identifier: MIT
// Affine transformations. The last row is always 0 0 0 1.
#include "gemat3d.h"

#include <algorithm>
#include <cmath>

#include "prancheta/geometry/angles.h"

constinit const AcGeMatrix3d AcGeMatrix3d::kIdentity{};

namespace {

AcGeVector3d column(const AcGeMatrix3d& m, int c) {
    return {m.entry[0][c], m.entry[1][c], m.entry[2][c]};
}

void setColumn(AcGeMatrix3d& m, int c, const AcGeVector3d& v) {
    m.entry[0][c] = v.x;
    m.entry[1][c] = v.y;
    m.entry[2][c] = v.z;
}

/// Sets the translation so that `fixed` stays where it is.
void keepPoint(AcGeMatrix3d& m, const AcGePoint3d& fixed) {
    setColumn(m, 3, fixed.asVector() - m * fixed.asVector());
}

}  // namespace

AcGeMatrix3d& AcGeMatrix3d::setToIdentity() { return *this = AcGeMatrix3d(); }

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& v) {
    setToIdentity();
    setColumn(*this, 3, v);
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis,
                                          const AcGePoint3d& center) {
    setToIdentity();
    if (axis.isZeroLength()) return *this;
    const AcGeVector3d a = axis.normal();
    const auto [s, c] = prancheta::sineCosine(angle);
    const double n[3] = {a.x, a.y, a.z};
    const double cross[3][3] = {{0.0, -a.z, a.y}, {a.z, 0.0, -a.x}, {-a.y, a.x, 0.0}};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            entry[i][j] = n[i] * n[j] + c * ((i == j ? 1.0 : 0.0) - n[i] * n[j]) + s * cross[i][j];
    keepPoint(*this, center);
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double factor, const AcGePoint3d& center) {
    setToIdentity();
    for (int i = 0; i < 3; ++i) entry[i][i] = factor;
    keepPoint(*this, center);
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePoint3d& point, const AcGeVector3d& normal) {
    setToIdentity();
    if (normal.isZeroLength()) return *this;
    const double n[3] = {normal.x, normal.y, normal.z};
    const double k = 2.0 / normal.lengthSqrd();
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) entry[i][j] -= k * n[i] * n[j];
    keepPoint(*this, point);
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& v) {
    return AcGeMatrix3d().setToTranslation(v);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis,
                                    const AcGePoint3d& center) {
    return AcGeMatrix3d().setToRotation(angle, axis, center);
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center) {
    return AcGeMatrix3d().setToScaling(factor, center);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& point, const AcGeVector3d& normal) {
    return AcGeMatrix3d().setToMirroring(point, normal);
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& m) const {
    AcGeMatrix3d product;
    for (int c = 0; c < 3; ++c) setColumn(product, c, *this * column(m, c));
    setColumn(product, 3, *this * column(m, 3) + column(*this, 3));
    return product;
}

AcGeMatrix3d& AcGeMatrix3d::preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }

AcGeMatrix3d& AcGeMatrix3d::postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }

double AcGeMatrix3d::det() const {
    return column(*this, 0).dotProduct(column(*this, 1).crossProduct(column(*this, 2)));
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const {
    // Relative to the columns: a drawing scaled to a thousandth is not singular.
    const double lengths =
        column(*this, 0).length() * column(*this, 1).length() * column(*this, 2).length();
    return !(std::abs(det()) > tol.equalVector() * lengths);
}

AcGeMatrix3d& AcGeMatrix3d::invert() {
    if (isSingular()) return *this;
    const AcGeVector3d x = column(*this, 0);
    const AcGeVector3d y = column(*this, 1);
    const AcGeVector3d z = column(*this, 2);
    const AcGeVector3d shift = column(*this, 3);
    const double d = det();
    const AcGeVector3d rows[3] = {y.crossProduct(z) / d, z.crossProduct(x) / d,
                                  x.crossProduct(y) / d};
    for (int i = 0; i < 3; ++i) {
        entry[i][0] = rows[i].x;
        entry[i][1] = rows[i].y;
        entry[i][2] = rows[i].z;
        entry[i][3] = -rows[i].dotProduct(shift);
    }
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::inverse() const {
    AcGeMatrix3d m = *this;
    return m.invert();
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol) const {
    for (int c = 0; c < 3; ++c)
        if (!column(*this, c).isEqualTo(column(m, c), tol)) return false;
    return (column(*this, 3) - column(m, 3)).length() <= tol.equalPoint();
}

bool AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const {
    const AcGeVector3d x = column(*this, 0);
    const AcGeVector3d y = column(*this, 1);
    const AcGeVector3d z = column(*this, 2);
    const double size = x.lengthSqrd();
    if (!(size > 0.0)) return false;
    // A hundred times the tolerance: products of many rotations drift, true scalings differ far
    // more.
    const double slack = size * std::max(tol.equalVector() * 100.0, 1e-15);
    return std::abs(y.lengthSqrd() - size) <= slack && std::abs(z.lengthSqrd() - size) <= slack &&
           std::abs(x.dotProduct(y)) <= slack && std::abs(x.dotProduct(z)) <= slack &&
           std::abs(y.dotProduct(z)) <= slack;
}

double AcGeMatrix3d::scale() const { return std::cbrt(std::abs(det())); }

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
    setToIdentity();
    setColumn(*this, 0, xAxis);
    setColumn(*this, 1, yAxis);
    setColumn(*this, 2, zAxis);
    setColumn(*this, 3, origin.asVector());
    return *this;
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const {
    xAxis = column(*this, 0);
    yAxis = column(*this, 1);
    zAxis = column(*this, 2);
    origin.set(entry[0][3], entry[1][3], entry[2][3]);
}
