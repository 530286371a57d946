// SPDX-License-Identifier: MIT
// What the sources of the simple entities share.
#pragma once

#include <string>

#include "dbmain.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

/// Version that every class here writes before its own fields.
constexpr Adesk::Int16 kFieldsVersion = 1;

/// eOk when the version that comes next is one that can be read.
Acad::ErrorStatus readVersion(AcDbDwgFiler* filer);

/// Reads a text that the filer allocates.
Acad::ErrorStatus readText(AcDbDwgFiler* filer, std::wstring& text);

/// Angle of a direction in the plane of `normal`, [0, 2 pi), exact for the plane's axes.
double angleInPlane(const AcGeVector3d& direction, const AcGeVector3d& normal);

/// Direction of an angle in the plane of `normal`, unit length.
AcGeVector3d directionInPlane(double angle, const AcGeVector3d& normal);

/// Normal that a plane has after a similarity; a mirror keeps the side on which it points.
AcGeVector3d mappedNormal(const AcGeMatrix3d& m, const AcGeVector3d& normal);

}  // namespace prancheta
