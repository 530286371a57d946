// SPDX-License-Identifier: MIT
// Construction lines.
#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/graphics/picture.h"

using prancheta::EndlessLine;

ACRX_DXF_DEFINE_MEMBERS(AcDbXline, EndlessLine, 0, 0, 0, XLINE, "Prancheta")
ACRX_DXF_DEFINE_MEMBERS(AcDbRay, EndlessLine, 0, 0, 0, RAY, "Prancheta")

namespace prancheta {

ACRX_NO_CONS_DEFINE_MEMBERS(EndlessLine, AcDbEntity)

namespace {

/// Ten kilometres in millimetres: no view is wider, and places on the line keep nine decimals.
constexpr double kRecorded = 1e7;
/// Of the grip that turns the line; drawing units.
constexpr double kTurningArm = 100.0;

}  // namespace

Acad::ErrorStatus EndlessLine::setBasePoint(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_base = p;
    return Acad::eOk;
}

Acad::ErrorStatus EndlessLine::setUnitDir(const AcGeVector3d& direction) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (direction.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_direction = direction.normal();
    return Acad::eOk;
}

Acad::ErrorStatus EndlessLine::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_base);
    filer->writeVector3d(m_direction);
    return filer->filerStatus();
}

Acad::ErrorStatus EndlessLine::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_base);
    filer->readVector3d(&m_direction);
    return filer->filerStatus();
}

Adesk::Boolean EndlessLine::subWorldDraw(AcGiWorldDraw* draw) {
    const AcGePoint3d ends[2] = {
        goesBothWays() ? m_base - m_direction * kRecorded : m_base,
        m_base + m_direction * kRecorded,
    };
    draw->subEntityTraits().setSelectionMarker(kEndlessMarker);
    draw->geometry().polyline(2, ends);
    return Adesk::kTrue;
}

/// Any map of points takes lines to lines, unless it leaves nothing of the direction.
Acad::ErrorStatus EndlessLine::subTransformBy(const AcGeMatrix3d& m) {
    const AcGeVector3d direction = m * m_direction;
    if (direction.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_base.transformBy(m);
    m_direction = direction.normal();
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus EndlessLine::subExplode(AcDbVoidPtrArray&) const {
    return Acad::eCannotExplodeEntity;
}

void EndlessLine::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listPoint(goesBothWays() ? L"ponto base," : L"ponto inicial,", m_base);
    listDirection(L"ângulo", angleInPlane(m_direction, AcGeVector3d::kZAxis));
}

/// The base, and a point that turns the line about it.
Acad::ErrorStatus EndlessLine::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                AcDbIntArray&) const {
    points.append(m_base);
    points.append(m_base + m_direction * kTurningArm);
    return Acad::eOk;
}

Acad::ErrorStatus EndlessLine::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                   const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.contains(0)) {
        m_base += offset;
    } else if (indices.contains(1)) {
        const AcGeVector3d arm = m_direction * kTurningArm + offset;
        if (!arm.isZeroLength()) m_direction = arm.normal();
    }
    return Acad::eOk;
}

Acad::ErrorStatus EndlessLine::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                   AcDbIntArray&) const {
    points.append(m_base);
    return Acad::eOk;
}

/// Its middle is where it was set out from, and that is the only end it has.
Acad::ErrorStatus EndlessLine::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                                 const AcGePoint3d& pick, const AcGePoint3d& last,
                                                 const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                                 AcDbIntArray& geomIds) const {
    if (mode != AcDb::kOsModeEnd && mode != AcDb::kOsModeMid)
        return AcDbEntity::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
    if (goesBothWays() == (mode == AcDb::kOsModeMid)) points.append(m_base);
    return Acad::eOk;
}

}  // namespace prancheta
