// SPDX-License-Identifier: MIT
// Arc.
#include <cmath>
#include <utility>

#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/geometry/bulge.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbEntity, 0, 0, 0, ARC, "Prancheta")

namespace {

/// Equal angles are a full turn.
double sweepOf(const AcDbArc& arc) {
    const double sweep = positiveAngle(arc.endAngle() - arc.startAngle());
    return sweep > 0.0 ? sweep : kTwoPi;
}

}  // namespace

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_center = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setRadius(double radius) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(radius >= 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_radius = radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_startAngle = positiveAngle(angle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_endAngle = positiveAngle(angle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_center);
    filer->writeVector3d(m_normal);
    filer->writeDouble(m_radius);
    filer->writeDouble(m_startAngle);
    filer->writeDouble(m_endAngle);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbArc::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_center);
    filer->readVector3d(&m_normal);
    filer->readDouble(&m_radius);
    filer->readDouble(&m_startAngle);
    filer->readDouble(&m_endAngle);
    return filer->filerStatus();
}

Adesk::Boolean AcDbArc::subWorldDraw(AcGiWorldDraw* draw) {
    draw->geometry().circularArc(m_center, m_radius, m_normal,
                                 directionInPlane(m_startAngle, m_normal), sweepOf(*this));
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbArc::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    AcGeVector3d start = m * directionInPlane(m_startAngle, m_normal);
    AcGeVector3d end = m * directionInPlane(m_endAngle, m_normal);
    if (m.det() < 0.0) std::swap(start, end);
    m_normal = mappedNormal(m, m_normal);
    m_startAngle = angleInPlane(start, m_normal);
    m_endAngle = angleInPlane(end, m_normal);
    m_center.transformBy(m);
    m_radius *= m.scale();
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbArc::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listPoint(L"ponto central,", m_center);
    listNumber(L"raio", m_radius);
    listDirection(L"ângulo inicial", m_startAngle);
    listDirection(L"ângulo final", m_endAngle);
    listNumber(L"comprimento", m_radius * sweepOf(*this));
}

Acad::ErrorStatus AcDbArc::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                            AcDbIntArray&) const {
    const double middle = m_startAngle + sweepOf(*this) / 2.0;
    points.append(m_center);
    for (const double angle : {m_startAngle, m_endAngle, middle})
        points.append(m_center + directionInPlane(angle, m_normal) * m_radius);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::subMoveGripPointsAt(const AcDbIntArray& indices,
                                               const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.isEmpty()) return Acad::eOk;
    if (indices.contains(0)) {
        m_center += offset;
        return Acad::eOk;
    }
    AcGePoint3dArray grips;
    AcDbIntArray unused;
    (void)subGetGripPoints(grips, unused, unused);
    for (const int index : indices) {
        if (index < 1 || index > 3) continue;
        const AcGeVector3d arm = grips[index] + offset - m_center;
        if (arm.isZeroLength()) continue;
        // Ends turn about the centre, the middle changes the radius.
        if (index == 1) m_startAngle = angleInPlane(arm, m_normal);
        if (index == 2) m_endAngle = angleInPlane(arm, m_normal);
        if (index == 3) m_radius = arm.length();
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                               AcDbIntArray&) const {
    for (const double angle : {m_startAngle, m_endAngle})
        points.append(m_center + directionInPlane(angle, m_normal) * m_radius);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::subMoveStretchPointsAt(const AcDbIntArray& indices,
                                                  const AcGeVector3d& offset) {
    if (indices.contains(0) && indices.contains(1))
        return subTransformBy(AcGeMatrix3d::translation(offset));
    AcGePoint3dArray ends;
    AcDbIntArray unused;
    (void)subGetStretchPoints(ends, unused, unused);
    const double chord = ends[0].distanceTo(ends[1]);
    const AcGeVector3d inPlane = offset - m_normal * offset.dotProduct(m_normal);
    (indices.contains(0) ? ends[0] : ends[1]) += inPlane;
    const double bulge = bulgeOfSweep(sweepOf(*this)) * chord / ends[0].distanceTo(ends[1]);
    BulgeArc arc;
    if (!std::isfinite(bulge) || !arcOfBulge(ends[0], ends[1], bulge, m_normal, arc))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_center = arc.center;
    m_radius = arc.radius;
    m_startAngle = angleInPlane(ends[0] - m_center, m_normal);
    m_endAngle = angleInPlane(ends[1] - m_center, m_normal);
    return Acad::eOk;
}
