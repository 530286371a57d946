// SPDX-License-Identifier: MIT
// Filled triangle or quadrangle.
#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, 0, 0, 0, SOLID, "Prancheta")

Acad::ErrorStatus AcDbSolid::getPointAt(Adesk::UInt16 index, AcGePoint3d& p) const {
    if (index > 3) return Acad::eInvalidIndex;
    p = m_points[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::setPointAt(Adesk::UInt16 index, const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (index > 3) return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_points[index] = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    for (const AcGePoint3d& p : m_points) filer->writePoint3d(p);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbSolid::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    for (AcGePoint3d& p : m_points) filer->readPoint3d(&p);
    return filer->filerStatus();
}

Adesk::Boolean AcDbSolid::subWorldDraw(AcGiWorldDraw* draw) {
    const bool triangle = m_points[2] == m_points[3];
    const AcGePoint3d outline[4] = {m_points[0], m_points[1], m_points[3], m_points[2]};
    draw->geometry().polygon(triangle ? 3 : 4, outline);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbSolid::subTransformBy(const AcGeMatrix3d& m) {
    assertWriteEnabled();
    for (AcGePoint3d& p : m_points) p.transformBy(m);
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbSolid::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    constexpr const wchar_t* kLabels[4] = {L"primeiro ponto,", L"segundo ponto,",
                                           L"terceiro ponto,", L"quarto ponto,"};
    for (int i = 0; i < 4; ++i) listPoint(kLabels[i], m_points[i]);
}

Acad::ErrorStatus AcDbSolid::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                              AcDbIntArray&) const {
    for (const AcGePoint3d& p : m_points) points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                 const AcGeVector3d& offset) {
    assertWriteEnabled();
    for (const int index : indices)
        if (index >= 0 && index < 4) m_points[index] += offset;
    return Acad::eOk;
}
