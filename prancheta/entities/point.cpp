// SPDX-License-Identifier: MIT
// Point.
#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, 0, 0, 0, POINT, "Prancheta")

Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_position = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_position);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbPoint::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_position);
    return filer->filerStatus();
}

Adesk::Boolean AcDbPoint::subWorldDraw(AcGiWorldDraw* draw) {
    draw->geometry().polyline(1, &m_position);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbPoint::subTransformBy(const AcGeMatrix3d& m) {
    assertWriteEnabled();
    m_position.transformBy(m);
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbPoint::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listPoint(L"no ponto,", m_position);
}

Acad::ErrorStatus AcDbPoint::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                              AcDbIntArray&) const {
    points.append(m_position);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                 const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (!indices.isEmpty()) m_position += offset;
    return Acad::eOk;
}
