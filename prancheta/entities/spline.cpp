// SPDX-License-Identifier: MIT
// Spline.
#include <algorithm>
#include <cmath>
#include <span>

#include "dbspline.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/spline_curve.h"
#include "prancheta/geometry/bulge.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbSpline, AcDbEntity, 0, 0, 0, SPLINE, "Prancheta")

namespace {

constexpr double kSame = 1e-9;

/// Sweep of the arc from a to b through m, counter-clockwise above 0; all at one height.
double sweepThrough(const AcGePoint3d& a, const AcGePoint3d& m, const AcGePoint3d& b) {
    const AcGeVector3d u = a - m;
    const AcGeVector3d v = b - m;
    return std::copysign(2.0 * halfSweepThrough(a, m, b), v.x * u.y - v.y * u.x);
}

double arcLength(const AcGePoint3d& a, const AcGePoint3d& m, const AcGePoint3d& b) {
    const double half = halfSweepThrough(a, m, b);
    const double chord = a.distanceTo(b);
    return half > 1e-6 ? chord * half / std::sin(half) : chord;
}

bool isLevel(const SplineData& data) {
    const std::vector<AcGePoint3d>& points = data.control.empty() ? data.fit : data.control;
    return std::ranges::all_of(points, [&](const AcGePoint3d& p) { return p.z == points[0].z; });
}

void writePoints(AcDbDwgFiler& filer, const std::vector<AcGePoint3d>& points) {
    filer.writeUInt32(static_cast<Adesk::UInt32>(points.size()));
    for (const AcGePoint3d& p : points) filer.writePoint3d(p);
}
void readPoints(AcDbDwgFiler& filer, std::vector<AcGePoint3d>& points) {
    Adesk::UInt32 count = 0;
    filer.readUInt32(&count);
    points.resize(count);
    for (AcGePoint3d& p : points) filer.readPoint3d(&p);
}
void writeNumbers(AcDbDwgFiler& filer, const std::vector<double>& numbers) {
    filer.writeUInt32(static_cast<Adesk::UInt32>(numbers.size()));
    for (const double n : numbers) filer.writeDouble(n);
}
void readNumbers(AcDbDwgFiler& filer, std::vector<double>& numbers) {
    Adesk::UInt32 count = 0;
    filer.readUInt32(&count);
    numbers.resize(count);
    for (double& n : numbers) filer.readDouble(&n);
}

}  // namespace

Acad::ErrorStatus AcDbSpline::setData(SplineData data) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!isCurve(data)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_data = std::move(data);
    follow();
    return Acad::eOk;
}

void AcDbSpline::follow() {
    m_curve = splinePlaces(m_data, isLevel(m_data) ? By::Arcs : By::Chords);
}

bool AcDbSpline::isClosed() const {
    return startPoint().distanceTo(endPoint()) <= kSame * std::max(1.0, length());
}

double AcDbSpline::length() const {
    double sum = 0.0;
    for (std::size_t i = 2; i < m_curve.size(); i += 2)
        sum += arcLength(m_curve[i - 2], m_curve[i - 1], m_curve[i]);
    return sum;
}

Acad::ErrorStatus AcDbSpline::getArea(double& area) const {
    if (!isClosed() || !isLevel(m_data)) return Acad::eInvalidInput;
    // Told from the start, so that no digit is lost far from the origin.
    const AcGePoint3d& o = m_curve.front();
    double sum = 0.0;
    for (std::size_t i = 2; i < m_curve.size(); i += 2) {
        const AcGeVector3d a = m_curve[i - 2] - o;
        const AcGeVector3d b = m_curve[i] - o;
        sum += (a.x * b.y - b.x * a.y) / 2.0;
        // Between the arc and its chord.
        const double sweep = sweepThrough(m_curve[i - 2], m_curve[i - 1], m_curve[i]);
        const double half = std::sin(sweep / 2.0);
        if (std::abs(half) < 1e-9) continue;
        const double radius = (b - a).length() / 2.0 / half;
        sum += radius * radius * (sweep - std::sin(sweep)) / 2.0;
    }
    area = std::abs(sum);
    return Acad::eOk;
}

AcGePoint3d AcDbSpline::middle() const {
    double left = length() / 2.0;
    std::size_t i = 2;
    double piece = arcLength(m_curve[0], m_curve[1], m_curve[2]);
    while (left > piece && i + 2 < m_curve.size()) {
        left -= piece;
        i += 2;
        piece = arcLength(m_curve[i - 2], m_curve[i - 1], m_curve[i]);
    }
    const AcGePoint3d& a = m_curve[i - 2];
    const AcGeVector3d u = m_curve[i] - a;
    const AcGeVector3d v = m_curve[i - 1] - a;
    const AcGeVector3d normal = v.crossProduct(u);
    const double t = piece > 0.0 ? left / piece : 0.0;
    const double half = halfSweepThrough(a, m_curve[i - 1], m_curve[i]);
    if (half <= 1e-6 || normal.isZeroLength()) return a + u * t;
    // The chord to a place of the arc leaves the whole chord by half of what is left of the turn.
    AcGeVector3d chord = u.normal() * (u.length() / std::sin(half) * std::sin(half * t));
    chord.rotateBy(-half * (1.0 - t), normal.normal());
    return a + chord;
}

Acad::ErrorStatus AcDbSpline::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writeInt32(m_data.flags);
    filer->writeInt32(m_data.degree);
    writePoints(*filer, m_data.control);
    writePoints(*filer, m_data.fit);
    writeNumbers(*filer, m_data.knots);
    writeNumbers(*filer, m_data.weights);
    for (const AcGeVector3d& v : {m_data.tangents[0], m_data.tangents[1], m_data.normal})
        filer->writeVector3d(v);
    for (const double t : m_data.tolerances) filer->writeDouble(t);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbSpline::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    Adesk::Int32 flags = 0;
    Adesk::Int32 degree = 0;
    filer->readInt32(&flags);
    filer->readInt32(&degree);
    m_data.flags = flags;
    m_data.degree = degree;
    readPoints(*filer, m_data.control);
    readPoints(*filer, m_data.fit);
    readNumbers(*filer, m_data.knots);
    readNumbers(*filer, m_data.weights);
    for (AcGeVector3d* v : {&m_data.tangents[0], &m_data.tangents[1], &m_data.normal})
        filer->readVector3d(v);
    for (double& t : m_data.tolerances) filer->readDouble(&t);
    if (!isCurve(m_data)) return Acad::eInvalidInput;
    follow();
    return filer->filerStatus();
}

Adesk::Boolean AcDbSpline::subWorldDraw(AcGiWorldDraw* draw) {
    if (!isLevel(m_data)) {
        draw->geometry().polyline(static_cast<Adesk::UInt32>(m_curve.size()), m_curve.data());
        return Adesk::kTrue;
    }
    std::vector<AcGePoint3d> points;
    std::vector<double> bulges;
    for (std::size_t i = 2; i < m_curve.size(); i += 2) {
        points.push_back(m_curve[i - 2]);
        bulges.push_back(bulgeOfSweep(sweepThrough(m_curve[i - 2], m_curve[i - 1], m_curve[i])));
    }
    const bool closed = isClosed();
    if (!closed) {
        points.push_back(m_curve.back());
        bulges.push_back(0.0);
    }
    draw->geometry().pline(static_cast<Adesk::UInt32>(points.size()), points.data(), bulges.data(),
                           closed);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbSpline::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    const bool wasLevel = isLevel(m_data);
    for (std::vector<AcGePoint3d>* points : {&m_data.control, &m_data.fit, &m_curve})
        for (AcGePoint3d& p : *points) p.transformBy(m);
    for (AcGeVector3d& v : m_data.tangents) v = m * v / m.scale();
    if (!m_data.normal.isZeroLength()) m_data.normal = mappedNormal(m, m_data.normal);
    for (double& t : std::span(m_data.tolerances).subspan(1))
        if (t > 0.0) t *= m.scale();
    if (isLevel(m_data) != wasLevel) follow();
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbSpline::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listNumber(L"grau", m_data.degree);
    listText(L"pontos de controle", std::to_wstring(m_data.control.size()));
    listText(L"pontos de ajuste", std::to_wstring(m_data.fit.size()));
    listPoint(L"ponto inicial,", startPoint());
    listPoint(L"ponto final,", endPoint());
    listNumber(L"comprimento", length());
    double area = 0.0;
    if (getArea(area) == Acad::eOk) listNumber(L"área", area);
}

Acad::ErrorStatus AcDbSpline::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                               AcDbIntArray&) const {
    for (const AcGePoint3d& p : m_data.control.empty() ? m_data.fit : m_data.control)
        points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& modes,
                                                  AcDbIntArray& ids) const {
    return subGetGripPoints(points, modes, ids);
}

Acad::ErrorStatus AcDbSpline::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                  const AcGeVector3d& offset) {
    assertWriteEnabled();
    SplineData moved = m_data;
    const bool byControl = !moved.control.empty();
    std::vector<AcGePoint3d>& points = byControl ? moved.control : moved.fit;
    const bool all = indices.length() >= static_cast<int>(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        if (indices.contains(static_cast<int>(i))) points[i] += offset;
    // It does not go through them any longer.
    if (byControl && all)
        for (AcGePoint3d& p : moved.fit) p += offset;
    else if (byControl)
        moved.fit.clear();
    return setData(std::move(moved));
}

Acad::ErrorStatus AcDbSpline::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                                const AcGePoint3d& pick, const AcGePoint3d& last,
                                                const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                                AcDbIntArray& geomIds) const {
    switch (mode) {
        case AcDb::kOsModeEnd:
            points.append(startPoint());
            if (!isClosed()) points.append(endPoint());
            return Acad::eOk;
        case AcDb::kOsModeMid:
            if (!isClosed()) points.append(middle());
            return Acad::eOk;
        case AcDb::kOsModeCen:
        case AcDb::kOsModeQuad:
            return Acad::eOk;  // those of the arcs that it is drawn with are none of its own
        default:
            return AcDbEntity::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
    }
}
