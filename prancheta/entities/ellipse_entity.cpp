// SPDX-License-Identifier: MIT
// Ellipse and elliptical arc.
#include <algorithm>
#include <cmath>

#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/geometry/bulge.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbEllipse, AcDbEntity, 0, 0, 0, ELLIPSE, "Prancheta")

namespace {

/// Arcs through three points of the ellipse each leave it by less than 1e-5 of its size: smooth on
/// any paper, and a picture of few numbers.
constexpr double kArcsOfTurn = 128.0;

}  // namespace

AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal,
                         const AcGeVector3d& majorAxis, double radiusRatio, double startParam,
                         double endParam)
    : m_center(center),
      m_normal(unitNormal),
      m_major(majorAxis),
      m_ratio(radiusRatio),
      m_start(startParam),
      m_end(endParam) {}

double AcDbEllipse::sweep() const {
    const double turn = m_end - m_start;
    if (turn > 0.0 && turn <= kTwoPi) return turn;
    const double rest = positiveAngle(turn);
    return rest > 0.0 ? rest : kTwoPi;
}

bool AcDbEllipse::isClosed() const { return sweep() > kTwoPi - 1e-9; }

AcGePoint3d AcDbEllipse::pointAt(double param) const {
    const auto [s, c] = sineCosine(param);
    return m_center + m_major * c + minorAxis() * s;
}

bool AcDbEllipse::passes(double param) const {
    const double turned = positiveAngle(param - m_start);
    return turned <= sweep() + 1e-9 || turned >= kTwoPi - 1e-9;
}

Acad::ErrorStatus AcDbEllipse::setCenter(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_center = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::setRadiusRatio(double ratio) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(ratio > 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_ratio = ratio;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::setStartParam(double param) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_start = param;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::setEndParam(double param) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_end = param;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_center);
    filer->writeVector3d(m_normal);
    filer->writeVector3d(m_major);
    for (const double value : {m_ratio, m_start, m_end}) filer->writeDouble(value);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbEllipse::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_center);
    filer->readVector3d(&m_normal);
    filer->readVector3d(&m_major);
    for (double* value : {&m_ratio, &m_start, &m_end}) filer->readDouble(value);
    return filer->filerStatus();
}

Adesk::Boolean AcDbEllipse::subWorldDraw(AcGiWorldDraw* draw) {
    const double major = m_major.length();
    const double minor = major * m_ratio;
    const bool closed = isClosed();
    const auto at = [&](double param) {
        const auto [s, c] = sineCosine(param);
        return AcGePoint3d(major * c, minor * s, 0.0);
    };
    const int count = std::max(1, static_cast<int>(std::ceil(sweep() / kTwoPi * kArcsOfTurn)));
    const double step = sweep() / count;
    std::vector<AcGePoint3d> points;
    std::vector<double> bulges;
    AcGePoint3d from = at(m_start);
    for (int i = 0; i < count; ++i) {
        const AcGePoint3d to = at(m_start + step * (i + 1));
        points.push_back(from);
        bulges.push_back(
            bulgeOfSweep(2.0 * halfSweepThrough(from, at(m_start + step * (i + 0.5)), to)));
        from = to;
    }
    if (!closed) {
        points.push_back(from);
        bulges.push_back(0.0);
    }
    const AcGeVector3d x = m_major.normal();
    AcGeMatrix3d place;
    place.setCoordSystem(m_center, x, m_normal.crossProduct(x), m_normal);
    draw->geometry().pushModelTransform(place);
    draw->geometry().pline(static_cast<Adesk::UInt32>(points.size()), points.data(), bulges.data(),
                           closed);
    draw->geometry().popModelTransform();
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbEllipse::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    const AcGeVector3d minor = m * minorAxis();
    const double turn = sweep();
    m_center.transformBy(m);
    m_normal = mappedNormal(m, m_normal);
    m_major.transformBy(m);
    // A mirror passes the points the other way round.
    if (m_normal.crossProduct(m_major).dotProduct(minor) < 0.0) {
        const double start = turn > kTwoPi - 1e-9 ? 0.0 : positiveAngle(-m_end);
        m_start = start;
        m_end = start + turn;
    }
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbEllipse::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listPoint(L"ponto central,", m_center);
    listVector(L"eixo maior,", m_major);
    listNumber(L"semieixo maior", m_major.length());
    listNumber(L"semieixo menor", m_major.length() * m_ratio);
    if (isClosed()) {
        listNumber(L"área", kPi * m_major.length() * m_major.length() * m_ratio);
    } else {
        listPoint(L"ponto inicial,", pointAt(m_start));
        listPoint(L"ponto final,", pointAt(m_end));
    }
}

Acad::ErrorStatus AcDbEllipse::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                AcDbIntArray&) const {
    points.append(m_center);
    for (int i = 0; i < 4; ++i) points.append(pointAt(i * kPi / 2.0));
    if (isClosed()) return Acad::eOk;
    points.append(pointAt(m_start));
    points.append(pointAt(m_end));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                   AcDbIntArray&) const {
    points.append(m_center);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                   const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.isEmpty()) return Acad::eOk;
    if (indices.contains(0)) {
        m_center += offset;
        return Acad::eOk;
    }
    const int grip = indices[0];
    if (grip >= 5) {
        const AcGeVector3d arm = pointAt(grip == 5 ? m_start : m_end) + offset - m_center;
        const double minor = m_major.length() * m_ratio;
        const double param =
            std::atan2(arm.dotProduct(m_normal.crossProduct(m_major.normal())) / minor,
                       arm.dotProduct(m_major.normal()) / m_major.length());
        (grip == 5 ? m_start : m_end) = positiveAngle(param);
        return Acad::eOk;
    }
    // The end that is dragged gives the length of its axis; that of the major one its direction,
    // too.
    const bool isMajor = grip % 2 == 1;
    const double minor = m_major.length() * m_ratio;
    const double sense = grip > 2 ? -1.0 : 1.0;
    AcGeVector3d arm = ((isMajor ? m_major : minorAxis()) * sense + offset) * sense;
    arm -= m_normal * arm.dotProduct(m_normal);
    const double length = isMajor ? arm.length() : arm.dotProduct(minorAxis().normal());
    if (!(length > 0.0)) return Acad::eOk;
    if (isMajor) m_major = arm;
    m_ratio = (isMajor ? minor : length) / m_major.length();
    if (m_ratio <= 1.0) return Acad::eOk;
    // The longer one is the major one: the parameters count from it.
    m_major = minorAxis();
    m_ratio = 1.0 / m_ratio;
    m_start -= kPi / 2.0;
    m_end -= kPi / 2.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                                 const AcGePoint3d& pick, const AcGePoint3d& last,
                                                 const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                                 AcDbIntArray& geomIds) const {
    switch (mode) {
        case AcDb::kOsModeEnd:
            if (isClosed()) return Acad::eOk;
            points.append(pointAt(m_start));
            points.append(pointAt(m_end));
            return Acad::eOk;
        case AcDb::kOsModeMid:
            if (!isClosed()) points.append(pointAt(m_start + sweep() / 2.0));
            return Acad::eOk;
        case AcDb::kOsModeCen:
            points.append(m_center);
            return Acad::eOk;
        case AcDb::kOsModeQuad:
            for (int i = 0; i < 4; ++i)
                if (passes(i * kPi / 2.0)) points.append(pointAt(i * kPi / 2.0));
            return Acad::eOk;
        default:
            return AcDbEntity::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
    }
}
