// SPDX-License-Identifier: MIT
// Circle.
#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbEntity, 0, 0, 0, CIRCLE, "Prancheta")

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_center = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(radius >= 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_radius = radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_center);
    filer->writeVector3d(m_normal);
    filer->writeDouble(m_radius);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbCircle::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_center);
    filer->readVector3d(&m_normal);
    filer->readDouble(&m_radius);
    return filer->filerStatus();
}

Adesk::Boolean AcDbCircle::subWorldDraw(AcGiWorldDraw* draw) {
    draw->geometry().circle(m_center, m_radius, m_normal);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbCircle::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    m_center.transformBy(m);
    m_normal = mappedNormal(m, m_normal);
    m_radius *= m.scale();
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbCircle::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listPoint(L"ponto central,", m_center);
    listNumber(L"raio", m_radius);
    listNumber(L"circunferência", kTwoPi * m_radius);
    listNumber(L"área", kPi * m_radius * m_radius);
}

Acad::ErrorStatus AcDbCircle::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                               AcDbIntArray&) const {
    points.append(m_center);
    for (int i = 0; i < 4; ++i)
        points.append(m_center + directionInPlane(i * kPi / 2.0, m_normal) * m_radius);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                  AcDbIntArray&) const {
    points.append(m_center);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                  const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.isEmpty()) return Acad::eOk;
    if (indices.contains(0)) {
        m_center += offset;
        return Acad::eOk;
    }
    // The quadrant that is dragged gives the radius.
    const double angle = (indices[0] - 1) * kPi / 2.0;
    const AcGeVector3d arm = directionInPlane(angle, m_normal) * m_radius + offset;
    if (arm.length() > 0.0) m_radius = arm.length();
    return Acad::eOk;
}
