// SPDX-License-Identifier: MIT
// Polyline of lines and arcs.
#include "dbpl.h"

#include <algorithm>
#include <cmath>

#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/polyline_width.h"
#include "prancheta/geometry/bulge.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbPolyline, AcDbEntity, 0, 0, 0, LWPOLYLINE, "Prancheta")

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& p) const {
    if (index >= m_vertices.size()) return Acad::eInvalidIndex;
    const Vertex& v = m_vertices[index];
    p = planeToWorld(m_normal) * AcGePoint3d(v.x, v.y, m_elevation);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
    if (index >= m_vertices.size()) return Acad::eInvalidIndex;
    bulge = m_vertices[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& start, double& end) const {
    if (index >= m_vertices.size()) return Acad::eInvalidIndex;
    start = m_vertices[index].startWidth;
    end = m_vertices[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& p, double bulge,
                                            double startWidth, double endWidth) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (index > m_vertices.size()) return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_vertices.insert(m_vertices.begin() + index, {p.x, p.y, bulge, startWidth, endWidth});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (index >= m_vertices.size()) return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_vertices.erase(m_vertices.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (index >= m_vertices.size()) return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_vertices[index].x = p.x;
    m_vertices[index].y = p.y;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (index >= m_vertices.size()) return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_vertices[index].bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setClosed(bool closed) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_closed = closed;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setElevation(double elevation) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_elevation = elevation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPlinegen(bool on) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_plinegen = on;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writeBool(m_closed);
    filer->writeBool(m_plinegen);
    filer->writeDouble(m_elevation);
    filer->writeVector3d(m_normal);
    filer->writeUInt32(numVerts());
    if (!m_vertices.empty())
        filer->writeBytes(m_vertices.data(),
                          static_cast<Adesk::UInt32>(m_vertices.size() * sizeof(Vertex)));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readBool(&m_closed);
    filer->readBool(&m_plinegen);
    filer->readDouble(&m_elevation);
    filer->readVector3d(&m_normal);
    Adesk::UInt32 count = 0;
    es = filer->readUInt32(&count);
    if (es != Acad::eOk) return es;
    m_vertices.resize(count);
    if (count > 0)
        filer->readBytes(m_vertices.data(), static_cast<Adesk::UInt32>(count * sizeof(Vertex)));
    return filer->filerStatus();
}

Adesk::Boolean AcDbPolyline::subWorldDraw(AcGiWorldDraw* draw) {
    std::vector<AcGePoint3d> points;
    std::vector<double> bulges;
    std::vector<SegmentWidth> widths;
    for (const Vertex& v : m_vertices) {
        points.emplace_back(v.x, v.y, m_elevation);
        bulges.push_back(v.bulge);
        widths.push_back({v.startWidth, v.endWidth});
    }
    const bool flat = m_normal.isEqualTo(AcGeVector3d::kZAxis);
    if (!flat) draw->geometry().pushModelTransform(planeToWorld(m_normal));
    draw->geometry().pline(numVerts(), points.data(), bulges.data(), m_closed);
    drawWidths(points, bulges, widths, m_closed, draw->geometry());
    if (!flat) draw->geometry().popModelTransform();
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbPolyline::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    const AcGeVector3d normal = mappedNormal(m, m_normal);
    const AcGeMatrix3d map = planeToWorld(normal).inverse() * m * planeToWorld(m_normal);
    const double scale = m.scale();
    const bool mirror = m.det() < 0.0;
    double elevation = m_elevation * scale;
    for (Vertex& v : m_vertices) {
        const AcGePoint3d p = map * AcGePoint3d(v.x, v.y, m_elevation);
        v.x = p.x;
        v.y = p.y;
        if (mirror && v.bulge != 0.0) v.bulge = -v.bulge;
        v.startWidth *= scale;
        v.endWidth *= scale;
        elevation = p.z;
    }
    m_normal = normal;
    m_elevation = elevation;
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subExplode(AcDbVoidPtrArray& set) const {
    assertReadEnabled();
    const unsigned count = numVerts();
    if (count < 2) return Acad::eCannotExplodeEntity;
    const unsigned segments = m_closed ? count : count - 1;
    for (unsigned i = 0; i < segments; ++i) {
        AcGePoint3d a;
        AcGePoint3d b;
        (void)getPointAt(i, a);
        (void)getPointAt((i + 1) % count, b);
        BulgeArc shape;
        AcDbEntity* piece = nullptr;
        if (arcOfBulge(a, b, m_vertices[i].bulge, m_normal, shape)) {
            const AcGeVector3d first = shape.sweep > 0.0 ? a - shape.center : b - shape.center;
            const double start = angleInPlane(first, m_normal);
            auto* arc = new AcDbArc(shape.center, shape.radius, start,
                                    positiveAngle(start + std::abs(shape.sweep)));
            (void)arc->setNormal(m_normal);
            piece = arc;
        } else {
            piece = new AcDbLine(a, b);
        }
        (void)piece->setPropertiesFrom(this);
        set.append(piece);
    }
    return Acad::eOk;
}

void AcDbPolyline::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listText(m_closed ? L"Fechada" : L"Aberta", L"");
    double length = 0.0;
    double area = 0.0;
    const unsigned count = numVerts();
    for (unsigned i = 0; i < count; ++i) {
        const Vertex& v = m_vertices[i];
        AcGePoint3d p;
        (void)getPointAt(i, p);
        listPoint(L"no ponto,", p);
        if (v.bulge != 0.0) listNumber(L"curvatura", v.bulge);
        const Vertex& w = m_vertices[(i + 1) % count];
        // The area is that of the closed outline also for an open polyline.
        BulgeArc arc;
        const bool round =
            arcOfBulge({v.x, v.y, 0}, {w.x, w.y, 0}, v.bulge, AcGeVector3d::kZAxis, arc);
        area += (v.x * w.y - w.x * v.y) / 2.0;
        if (round) area += arc.radius * arc.radius * (arc.sweep - std::sin(arc.sweep)) / 2.0;
        if (m_closed || i + 1 < count)
            length += round ? arc.radius * std::abs(arc.sweep) : std::hypot(w.x - v.x, w.y - v.y);
    }
    listNumber(L"área", std::abs(area));
    listNumber(m_closed ? L"perímetro" : L"comprimento", length);
}

Acad::ErrorStatus AcDbPolyline::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                 AcDbIntArray&) const {
    const AcGeMatrix3d plane = planeToWorld(m_normal);
    for (const Vertex& v : m_vertices) points.append(plane * AcGePoint3d(v.x, v.y, m_elevation));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                    const AcGeVector3d& offset) {
    assertWriteEnabled();
    const AcGeVector3d inPlane = planeToWorld(m_normal).inverse() * offset;
    for (const int index : indices) {
        if (index < 0 || index >= static_cast<int>(m_vertices.size())) continue;
        Vertex& v = m_vertices[static_cast<std::size_t>(index)];
        v.x += inPlane.x;
        v.y += inPlane.y;
    }
    return Acad::eOk;
}
