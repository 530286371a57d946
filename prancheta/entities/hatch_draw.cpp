// SPDX-License-Identifier: MIT
// Hatch: what is seen of it, and where it is taken hold of.
#include <algorithm>
#include <cmath>

#include "prancheta/entities/common.h"
#include "prancheta/entities/hatch_lines.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/graphics/curves.h"
#include "prancheta/graphics/snaps.h"

using namespace prancheta;

namespace {

using Points = std::vector<AcGePoint3d>;

/// Chords that stay chords on paper at ten times the size.
constexpr double kDeviation = 1.0 / 5000.0;

Points cornersOf(const HatchOutline& outline, double elevation) {
    Points points;
    for (const HatchVertex& v : outline) points.emplace_back(v.x, v.y, elevation);
    return points;
}

Points chordsOf(const HatchOutline& outline, double elevation) {
    Points points;
    for (const HatchSegment& s : segmentsOf({&outline, 1})) {
        if (s.radius == 0.0) {
            points.emplace_back(s.a.x, s.a.y, elevation);
            continue;
        }
        appendArc({s.center.x, s.center.y, elevation}, s.radius, AcGeVector3d::kZAxis,
                  directionInPlane(s.start, AcGeVector3d::kZAxis), s.sweep,
                  chordCount(s.radius, s.sweep, s.radius * kDeviation), points);
        points.pop_back();
    }
    return points;
}

/// One outline for all loops, holes joined to the first corner: filled by the even-odd rule.
void fill(const std::vector<HatchOutline>& outlines, double elevation, AcGiGeometry& to) {
    Points area;
    for (const HatchOutline& outline : outlines) {
        const Points loop = chordsOf(outline, elevation);
        const bool first = area.empty();
        area.insert(area.end(), loop.begin(), loop.end());
        if (first && outlines.size() == 1) break;
        area.push_back(loop.front());
        if (!first) area.push_back(area.front());
    }
    to.polygon(static_cast<Adesk::UInt32>(area.size()), area.data());
}

void drawOutlines(const std::vector<HatchOutline>& outlines, double elevation, AcGiGeometry& to) {
    for (const HatchOutline& outline : outlines) {
        const Points points = cornersOf(outline, elevation);
        std::vector<double> bulges;
        for (const HatchVertex& v : outline) bulges.push_back(v.bulge);
        to.pline(static_cast<Adesk::UInt32>(points.size()), points.data(), bulges.data(), true);
    }
}

/// The boundary as a picture of its own, in the world.
Picture boundaryOf(const AcDbHatch& hatch) {
    const AcGeMatrix3d plane = planeToWorld(hatch.normal());
    Picture picture;
    for (const HatchOutline& outline : filledOutlines(hatch)) {
        std::vector<double> bulges;
        for (const HatchVertex& v : outline) bulges.push_back(v.bulge);
        picture.addPline(traitsOf(hatch), cornersOf(outline, hatch.elevation()), bulges, true);
    }
    picture.transform(plane);
    return picture;
}

bool drawPattern(const AcDbHatch& hatch, const std::vector<HatchOutline>& outlines,
                 AcGiGeometry& to) {
    return patternStrokes(outlines, hatch.families(),
                          [&](const AcGePoint2d& a, const AcGePoint2d& b) {
                              const AcGePoint3d ends[] = {{a.x, a.y, hatch.elevation()},
                                                          {b.x, b.y, hatch.elevation()}};
                              to.polyline(2, ends);
                          });
}

}  // namespace

Adesk::Boolean AcDbHatch::subWorldDraw(AcGiWorldDraw* draw) {
    const std::vector<HatchOutline> outlines = filledOutlines(*this);
    if (outlines.empty()) return Adesk::kTrue;
    draw->subEntityTraits().setSelectionMarker(kFillMarker);
    AcGiGeometry& to = draw->geometry();
    const bool flat = m_normal.isEqualTo(AcGeVector3d::kZAxis);
    if (!flat) to.pushModelTransform(planeToWorld(m_normal));
    if (m_solid)
        fill(outlines, m_elevation, to);
    else if (m_families.empty() || !drawPattern(*this, outlines, to))
        drawOutlines(outlines, m_elevation, to);
    if (!flat) to.popModelTransform();
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbHatch::subGetGeomExtents(AcDbExtents& extents) const {
    const Picture boundary = boundaryOf(*this);
    if (boundary.empty()) return Acad::eDegenerateGeometry;
    extents = boundary.extents();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker,
                                               const AcGePoint3d& pick, const AcGePoint3d& last,
                                               const AcGeMatrix3d&, AcGePoint3dArray& points,
                                               AcDbIntArray&) const {
    Points found;
    appendSnaps(boundaryOf(*this), mode, pick, last, found);
    for (const AcGePoint3d& p : found) points.append(p);
    return Acad::eOk;
}

void AcDbHatch::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listText(L"padrão", m_patternName);
    if (!m_solid) {
        listNumber(L"escala", m_patternScale);
        listDirection(L"ângulo", m_patternAngle);
    }
    listText(L"associativa:", m_associative ? L"sim" : L"não");
    double area = 0.0;
    if (getArea(area) == Acad::eOk) listNumber(L"área", area);
    const auto ignore = [](const AcGePoint2d&, const AcGePoint2d&) {};
    if (!m_solid && !patternStrokes(filledOutlines(*this), m_families, ignore))
        listText(L"denso demais: só o contorno é mostrado;", L"aumente a escala");
}

/// The middle moves all of it; then the corners of the loops that have any.
Acad::ErrorStatus AcDbHatch::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                              AcDbIntArray&) const {
    AcDbExtents box;
    if (subGetGeomExtents(box) != Acad::eOk) return Acad::eNotApplicable;
    points.append(box.minPoint() + (box.maxPoint() - box.minPoint()) * 0.5);
    const AcGeMatrix3d plane = planeToWorld(m_normal);
    for (const HatchLoop& loop : m_loops)
        for (const HatchVertex& v : loop.vertices)
            points.append(plane * AcGePoint3d(v.x, v.y, m_elevation));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                 const AcGeVector3d& offset) {
    if (indices.contains(0)) return subTransformBy(AcGeMatrix3d::translation(offset));
    assertWriteEnabled();
    const AcGeVector3d inPlane = planeToWorld(m_normal).inverse() * offset;
    std::vector<HatchVertex*> corners{nullptr};
    for (HatchLoop& loop : m_loops)
        for (HatchVertex& v : loop.vertices) corners.push_back(&v);
    for (const int index : indices) {
        if (index < 1 || index >= static_cast<int>(corners.size())) continue;
        corners[static_cast<std::size_t>(index)]->x += inPlane.x;
        corners[static_cast<std::size_t>(index)]->y += inPlane.y;
    }
    return Acad::eOk;
}
