// SPDX-License-Identifier: MIT
// Points and the tolerance of comparisons.
#include "gepnt3d.h"

#include "gemat3d.h"

constinit AcGeTol AcGeContext::gTol{};

constinit const AcGePoint3d AcGePoint3d::kOrigin{};

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m) { return *this = m * *this; }

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis,
                                   const AcGePoint3d& center) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis, center));
}

bool AcGePoint3d::isEqualTo(const AcGePoint3d& p, const AcGeTol& tol) const {
    return (*this - p).lengthSqrd() <= tol.equalPoint() * tol.equalPoint();
}

AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p) {
    const auto& e = m.entry;
    return {e[0][0] * p.x + e[0][1] * p.y + e[0][2] * p.z + e[0][3],
            e[1][0] * p.x + e[1][1] * p.y + e[1][2] * p.z + e[1][3],
            e[2][0] * p.x + e[2][1] * p.y + e[2][2] * p.z + e[2][3]};
}
