// SPDX-License-Identifier: MIT
// Pieces: picture, extents, explode, object snaps, grips.
#include <cmath>
#include <numbers>

#include "dbents.h"
#include "dbpl.h"
#include "perfis/entities/zpobject.h"
#include "protocol/markers.h"
#include "zp/objects/ends.h"
#include "zp/objects/peca.h"
#include "zp/objects/picture.h"
#include "zp/objects/watch.h"

using zp::Linetype;
using zp::Stroke;

namespace {

/// Centre, radius and sweep of the arc from a to b with a bulge.
struct BulgeArc {
    AcGePoint3d centre;
    double radius;
    double start;
    double sweep;
};

BulgeArc arcOf(const AcGePoint3d& a, const AcGePoint3d& b, double bulge) {
    const AcGeVector3d chord = b - a;
    const double k = (1.0 - bulge * bulge) / (4.0 * bulge);
    const AcGePoint3d centre(0.5 * (a.x + b.x) - k * chord.y, 0.5 * (a.y + b.y) + k * chord.x, a.z);
    return {centre, centre.distanceTo(a), std::atan2(a.y - centre.y, a.x - centre.x),
            4.0 * std::atan(bulge)};
}

AcGePoint3d pointOnArc(const BulgeArc& arc, double angle) {
    return {arc.centre.x + arc.radius * std::cos(angle),
            arc.centre.y + arc.radius * std::sin(angle), arc.centre.z};
}

/// Points of the circle's quadrants that lie on the arc.
void quadrants(const BulgeArc& arc, AcGePoint3dArray& points) {
    constexpr double kQuarter = 0.5 * std::numbers::pi;
    const double smallest = std::min(arc.start, arc.start + arc.sweep);
    const double largest = std::max(arc.start, arc.start + arc.sweep);
    for (double q = std::ceil(smallest / kQuarter - 1e-9); q * kQuarter <= largest + 1e-9; q += 1.0)
        points.append(pointOnArc(arc, q * kQuarter));
}

/// Calls f(a, b, bulge) for each part of a stroke that is no circle.
template <class F>
void eachPart(const Stroke& t, F f) {
    const std::size_t n = t.points.size();
    for (std::size_t i = 0; i + (t.closed() ? 0 : 1) < n; ++i)
        f(t.points[i], t.points[(i + 1) % n], t.closed() ? t.bulges[i] : 0.0);
}

void circlePoints(const Stroke& t, AcDb::OsnapMode mode, AcGePoint3dArray& points) {
    if (mode == AcDb::kOsModeCen) points.append(t.points[0]);
    if (mode == AcDb::kOsModeQuad)
        quadrants({t.points[0], t.radius, 0.0, 1.5 * std::numbers::pi}, points);
}

std::unique_ptr<AcDbEntity> entityOf(const Stroke& t) {
    if (t.circle())
        return std::make_unique<AcDbCircle>(t.points[0], AcGeVector3d::kZAxis, t.radius);
    if (!t.closed()) return std::make_unique<AcDbLine>(t.points[0], t.points[1]);
    auto linetype = std::make_unique<AcDbPolyline>();
    for (unsigned i = 0; i < t.points.size(); ++i)
        (void)linetype->addVertexAt(i, {t.points[i].x, t.points[i].y},
                                    t.bulges[i]);  // at the end: always valid
    (void)linetype->setElevation(t.points.front().z);
    (void)linetype->setClosed(true);
    return linetype;
}

}  // namespace

Adesk::Boolean ZpObject::subWorldDraw(AcGiWorldDraw* draw) {
    assertReadEnabled();
    AcDbDatabase* drawing =
        database() != nullptr ? database() : acdbHostApplicationServices()->workingDatabase();
    Linetype current = Linetype::Own;
    const auto penFor = [&](Linetype linetype) {
        draw->subEntityTraits().setLineWeight(zp::lineWeightOf(*m_peca, linetype, lineWeight()));
    };
    penFor(current);
    for (const Stroke& t : zp::pictureOf(*m_peca)) {
        if (t.linetype != current) {
            current = t.linetype;
            penFor(current);
            const AcDbObjectId type = zp::linetypeId(drawing, current);
            if (!type.isNull()) draw->subEntityTraits().setLineType(type);
            if (current == Linetype::Axis) {
                draw->subEntityTraits().setColor(zp::kAxisColour);
                draw->subEntityTraits().setSelectionMarker(protocol::kCentreLineMarker);
            }
        }
        AcGiWorldGeometry& g = draw->geometry();
        const auto n = static_cast<Adesk::UInt32>(t.points.size());
        Adesk::Boolean stops = Adesk::kFalse;
        if (t.circle())
            stops = g.circle(t.points[0], t.radius, AcGeVector3d::kZAxis);
        else if (t.closed())
            stops = g.pline(n, t.points.data(), t.bulges.data(), true);
        else
            stops = g.polyline(n, t.points.data());
        if (stops) break;
    }
    return Adesk::kTrue;
}

Acad::ErrorStatus ZpObject::subGetGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    for (const Stroke& t : zp::pictureOf(*m_peca)) {
        if (t.circle()) {
            extents.addPoint(t.points[0] - AcGeVector3d(t.radius, t.radius, 0.0));
            extents.addPoint(t.points[0] + AcGeVector3d(t.radius, t.radius, 0.0));
            continue;
        }
        eachPart(t, [&](const AcGePoint3d& a, const AcGePoint3d& b, double bulge) {
            extents.addPoint(a);
            extents.addPoint(b);
            if (bulge == 0.0) return;
            AcGePoint3dArray extremes;
            quadrants(arcOf(a, b, bulge), extremes);
            for (const AcGePoint3d& p : extremes) extents.addPoint(p);
        });
    }
    return extents.isEmpty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus ZpObject::subExplode(AcDbVoidPtrArray& set) const {
    assertReadEnabled();
    for (const Stroke& t : zp::pictureOf(*m_peca)) {
        std::unique_ptr<AcDbEntity> part = entityOf(t);
        (void)part->setPropertiesFrom(this);  // a new object takes any properties
        if (const AcDbObjectId type = zp::linetypeId(database(), t.linetype); !type.isNull())
            (void)part->setLinetype(type);
        (void)part->setLineWeight(zp::lineWeightOf(*m_peca, t.linetype, lineWeight()));
        if (t.linetype == Linetype::Axis) (void)part->setColorIndex(zp::kAxisColour);
        set.append(part.release());
    }
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker,
                                              const AcGePoint3d&, const AcGePoint3d&,
                                              const AcGeMatrix3d&, AcGePoint3dArray& points,
                                              AcDbIntArray&) const {
    assertReadEnabled();
    if (mode == AcDb::kOsModeIns) {
        points.append(m_peca->start);
        return Acad::eOk;
    }
    for (const Stroke& t : zp::pictureOf(*m_peca)) {
        if (t.circle()) {
            circlePoints(t, mode, points);
            continue;
        }
        eachPart(t, [&](const AcGePoint3d& a, const AcGePoint3d& b, double bulge) {
            if (mode == AcDb::kOsModeEnd) {
                points.append(a);
                if (!t.closed()) points.append(b);
            }
            if (bulge == 0.0) {
                if (mode == AcDb::kOsModeMid) points.append(a + (b - a) * 0.5);
                return;
            }
            const BulgeArc arc = arcOf(a, b, bulge);
            if (mode == AcDb::kOsModeMid)
                points.append(pointOnArc(arc, arc.start + 0.5 * arc.sweep));
            if (mode == AcDb::kOsModeCen) points.append(arc.centre);
            if (mode == AcDb::kOsModeQuad) quadrants(arc, points);
        });
    }
    return Acad::eOk;
}

// Longitudinal views: 0 start, 1 end, 2 middle. Section views and plates: 0 the start point, then
// the four corners.
Acad::ErrorStatus ZpObject::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                             AcDbIntArray&) const {
    assertReadEnabled();
    points.append(m_peca->start);
    if (!m_peca->inSecao() && !m_peca->chapa()) {
        const AcGePoint3d end = m_peca->end();
        points.append(end);
        points.append(m_peca->start + (end - m_peca->start) * 0.5);
        return Acad::eOk;
    }
    AcGePoint3d f[4];
    GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
    for (const AcGePoint3d& p : f) points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                const AcGeVector3d& offset) {
    if (indices.isEmpty()) return Acad::eOk;
    const bool stretches = !m_peca->inSecao() && !m_peca->chapa();
    const bool start = indices.contains(0);
    if (!stretches || indices.contains(2) || start == indices.contains(1))
        return transformBy(AcGeMatrix3d::translation(offset));
    return moveOneEnd(start, offset);
}

Acad::ErrorStatus ZpObject::moveOneEnd(bool start, const AcGeVector3d& offset) {
    zp::ends::Ends fresh = zp::ends::endsOf(*m_peca);
    (start ? fresh.start : fresh.end) += offset;
    if (database() == nullptr)  // what is dragged
        return zp::ends::put(*m_peca, fresh) ? Acad::eOk : Acad::eInvalidInput;
    if (const std::wstring reason = zp::ends::refusal(*this, fresh); !reason.empty()) {
        zp::watch::refused(objectId(), reason);
        return Acad::eInvalidInput;
    }
    zp::ends::move(*this, fresh);
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                AcDbIntArray&) const {
    assertReadEnabled();
    points.append(m_peca->start);
    if (!m_peca->inSecao() && !m_peca->chapa()) points.append(m_peca->end());
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::subMoveStretchPointsAt(const AcDbIntArray& indices,
                                                   const AcGeVector3d& offset) {
    const bool start = indices.contains(0);
    if (m_peca->inSecao() || m_peca->chapa() || start == indices.contains(1))
        return transformBy(AcGeMatrix3d::translation(offset));
    return moveOneEnd(start, offset);
}
