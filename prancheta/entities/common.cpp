// SPDX-License-Identifier: MIT
// What the sources of the simple entities share.
#include "prancheta/entities/common.h"

#include <cmath>

#include "acutmem.h"

namespace prancheta {

Acad::ErrorStatus readVersion(AcDbDwgFiler* filer) {
    Adesk::Int16 version = 0;
    const Acad::ErrorStatus es = filer->readInt16(&version);
    if (es != Acad::eOk) return es;
    return version == kFieldsVersion ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus readText(AcDbDwgFiler* filer, std::wstring& text) {
    ACHAR* read = nullptr;
    const Acad::ErrorStatus es = filer->readString(&read);
    if (es != Acad::eOk) return es;
    text = read != nullptr ? read : L"";
    acutDelString(read);
    return Acad::eOk;
}

double angleInPlane(const AcGeVector3d& direction, const AcGeVector3d& normal) {
    const AcGeMatrix3d plane = planeToWorld(normal);
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    plane.getCoordSystem(origin, x, y, z);
    const double angle = std::atan2(direction.dotProduct(y), direction.dotProduct(x));
    const double quarters = std::nearbyint(angle / (kPi / 2.0));
    const bool onAxis = std::abs(angle - quarters * (kPi / 2.0)) < 1e-14;
    return positiveAngle(onAxis ? quarters * (kPi / 2.0) : angle);
}

AcGeVector3d directionInPlane(double angle, const AcGeVector3d& normal) {
    const auto [s, c] = sineCosine(angle);
    return planeToWorld(normal) * AcGeVector3d(c, s, 0.0);
}

AcGeVector3d mappedNormal(const AcGeMatrix3d& m, const AcGeVector3d& normal) {
    return (m * normal).normalize();
}

}  // namespace prancheta
