// SPDX-License-Identifier: MIT
// Line.
#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbEntity, 0, 0, 0, LINE, "Prancheta")

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_start = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_end = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_start);
    filer->writePoint3d(m_end);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbLine::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_start);
    filer->readPoint3d(&m_end);
    return filer->filerStatus();
}

Adesk::Boolean AcDbLine::subWorldDraw(AcGiWorldDraw* draw) {
    const AcGePoint3d points[2] = {m_start, m_end};
    draw->geometry().polyline(2, points);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbLine::subTransformBy(const AcGeMatrix3d& m) {
    assertWriteEnabled();
    m_start.transformBy(m);
    m_end.transformBy(m);
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbLine::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    const AcGeVector3d delta = m_end - m_start;
    listPoint(L"a partir do ponto,", m_start);
    listPoint(L"até o ponto,", m_end);
    listNumber(L"Comprimento =", delta.length());
    listDirection(L"Ângulo no plano XY =", angleInPlane(delta, AcGeVector3d::kZAxis));
    listText(L"Delta", L"X = " + commaText(delta.x, 4) + L", Y = " + commaText(delta.y, 4) +
                           L", Z = " + commaText(delta.z, 4));
}

Acad::ErrorStatus AcDbLine::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                             AcDbIntArray&) const {
    points.append(m_start);
    points.append(m_end);
    points.append(m_start + (m_end - m_start) * 0.5);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                AcDbIntArray&) const {
    points.append(m_start);
    points.append(m_end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                const AcGeVector3d& offset) {
    assertWriteEnabled();
    bool start = false;
    bool end = false;
    for (const int index : indices) {
        start = start || index != 1;
        end = end || index != 0;
    }
    if (start) m_start += offset;
    if (end) m_end += offset;
    return Acad::eOk;
}
