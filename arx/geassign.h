// SPDX-License-Identifier: MIT
// Points and vectors seen as the arrays of the C-style interface, and back.
#pragma once

#include "gepnt3d.h"

inline double* asDblArray(AcGePoint3d& p) { return &p.x; }
inline const double* asDblArray(const AcGePoint3d& p) { return &p.x; }
inline double* asDblArray(AcGeVector3d& v) { return &v.x; }
inline const double* asDblArray(const AcGeVector3d& v) { return &v.x; }
inline AcGePoint3d& asPnt3d(double* p) { return *reinterpret_cast<AcGePoint3d*>(p); }
inline const AcGePoint3d& asPnt3d(const double* p) {
    return *reinterpret_cast<const AcGePoint3d*>(p);
}
inline AcGeVector3d& asVec3d(double* p) { return *reinterpret_cast<AcGeVector3d*>(p); }
inline const AcGeVector3d& asVec3d(const double* p) {
    return *reinterpret_cast<const AcGeVector3d*>(p);
}
