// SPDX-License-Identifier: MIT
// Leader.
#include "dblead.h"

#include <algorithm>
#include <cmath>

#include "dbmtext.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/object_extra.h"
#include "prancheta/entities/arrow_head.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/listing.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbLeader, AcDbEntity, 0, 0, 0, LEADER, "Prancheta")

namespace {

/// True when the note knows the leader, too: a copy of the leader alone is tied to nothing.
bool isTied(const AcDbLeader& leader, const AcDbMText& note) {
    const ObjectExtra* const extra = ObjectAccess::extra(note);
    return extra != nullptr && std::find(extra->reactors.begin(), extra->reactors.end(),
                                         leader.objectId()) != extra->reactors.end();
}

double arrowSize(const AcDbLeader& leader) {
    const AcDbDimStyleValues style =
        styleValues(leader, leader.dimensionStyle(), leader.ownDimscale());
    return style.dimasz * style.dimscale;
}

/// Cubic pieces through the points, each tangent along its neighbours.
std::vector<AcGePoint3d> curveThrough(const std::vector<AcGePoint3d>& points) {
    constexpr int kSteps = 16;
    const auto at = [&](std::size_t i) { return points[std::min(i, points.size() - 1)]; };
    std::vector<AcGePoint3d> curve{points.front()};
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const AcGeVector3d from = (at(i + 1) - at(i == 0 ? 0 : i - 1)) * (i == 0 ? 1.0 : 0.5);
        const AcGeVector3d to = (at(i + 2) - at(i)) * (i + 2 < points.size() ? 0.5 : 1.0);
        for (int k = 1; k <= kSteps; ++k) {
            const double t = static_cast<double>(k) / kSteps;
            const double u = 1.0 - t;
            curve.push_back(points[i] + (points[i + 1] - points[i]) * (t * t * (3.0 - 2.0 * t)) +
                            from * (t * u * u) - to * (t * t * u));
        }
    }
    return curve;
}

}  // namespace

AcDbLeader::AnnoType AcDbLeader::annoType() const {
    return m_annotation.isNull() || m_annotation.isErased() ? kNoAnno
                                                            : static_cast<AnnoType>(m_annoType);
}

Acad::ErrorStatus AcDbLeader::appendVertex(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_vertices.push_back(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setVertexAt(int index, const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (index < 0 || index >= numVertices()) return Acad::eInvalidIndex;
    assertWriteEnabled();
    if (index + 1 == numVertices()) m_offset += p - m_vertices.back();
    m_vertices[static_cast<std::size_t>(index)] = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setNormal(const AcGeVector3d& normal) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setHorizontalDirection(const AcGeVector3d& direction) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (direction.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_horizontal = direction.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setHasArrowHead(bool arrow) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_arrow = arrow;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setSplined(bool splined) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_splined = splined;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setHook(Hook hook) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_hook = hook != Hook::None;
    m_hookAlong = hook != Hook::Against;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setDimensionStyle(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_style = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::setDimscale(double scale) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(scale >= 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_dimscale = scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::attachAnnotation(AcDbObjectId note) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const AcDbObjectPointer<AcDbMText> text(note, AcDb::kForWrite);
    if (text.openStatus() != Acad::eOk)
        return text.openStatus() == Acad::eNotThatKindOfClass ? Acad::eWrongObjectType
                                                              : text.openStatus();
    assertWriteEnabled();
    m_annotation = note;
    m_annoType = kMText;
    m_offset = lastVertex() - text->location();
    return text->addPersistentReactor(objectId());
}

Acad::ErrorStatus AcDbLeader::setFiledAnnotation(AcDbObjectId note, AnnoType type,
                                                 const AcGeVector3d& offset) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_annotation = note;
    m_annoType = static_cast<Adesk::Int16>(type);
    m_offset = offset;
    return Acad::eOk;
}

void AcDbLeader::follow(AcDbObjectId note, const AcGePoint3d& place) {
    if (note != m_annotation || m_vertices.empty()) return;
    const AcGePoint3d end = place + m_offset;
    if (end.isEqualTo(m_vertices.back())) return;
    assertWriteEnabled();
    m_vertices.back() = end;
}

Acad::ErrorStatus AcDbLeader::subClose() {
    // A note that is being changed itself tells its place when that is done.
    if (isWriteEnabled() && !isUndoing() && !isErased()) {
        const AcDbObjectPointer<AcDbMText> note(m_annotation, AcDb::kForRead);
        if (note.openStatus() == Acad::eOk && isTied(*this, *note))
            follow(m_annotation, note->location());
    }
    return AcDbEntity::subClose();
}

Acad::ErrorStatus AcDbLeader::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writeInt32(numVertices());
    for (const AcGePoint3d& p : m_vertices) filer->writePoint3d(p);
    for (const AcGeVector3d& v : {m_normal, m_horizontal, m_offset}) filer->writeVector3d(v);
    filer->writeHardPointerId(m_style);
    filer->writeSoftPointerId(m_annotation);
    filer->writeDouble(m_dimscale);
    filer->writeInt16(m_annoType);
    for (const bool flag : {m_arrow, m_splined, m_hook, m_hookAlong}) filer->writeBool(flag);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbLeader::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    Adesk::Int32 count = 0;
    filer->readInt32(&count);
    m_vertices.resize(static_cast<std::size_t>(std::max(count, 0)));
    for (AcGePoint3d& p : m_vertices) filer->readPoint3d(&p);
    for (AcGeVector3d* v : {&m_normal, &m_horizontal, &m_offset}) filer->readVector3d(v);
    AcDbHardPointerId style;
    filer->readHardPointerId(&style);
    m_style = style;
    AcDbSoftPointerId note;
    filer->readSoftPointerId(&note);
    m_annotation = note;
    filer->readDouble(&m_dimscale);
    filer->readInt16(&m_annoType);
    for (bool* flag : {&m_arrow, &m_splined, &m_hook, &m_hookAlong}) filer->readBool(flag);
    return filer->filerStatus();
}

Adesk::Boolean AcDbLeader::subWorldDraw(AcGiWorldDraw* draw) {
    if (m_vertices.size() < 2) return Adesk::kTrue;
    AcGiGeometry& to = draw->geometry();
    std::vector<AcGePoint3d> path = m_splined ? curveThrough(m_vertices) : m_vertices;
    const double size = arrowSize(*this);
    const AcGeVector3d first = path[1] - path[0];
    const bool arrow = m_arrow && size > 0.0 && (m_vertices[1] - m_vertices[0]).length() > size;
    if (arrow) drawArrowHead(path[0], -first.normal(), size, m_normal, to);
    if (m_hook) path.push_back(path.back() + m_horizontal * (m_hookAlong ? size : -size));
    to.polyline(static_cast<Adesk::UInt32>(path.size()), path.data());
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbLeader::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    for (AcGePoint3d& p : m_vertices) p.transformBy(m);
    m_normal = mappedNormal(m, m_normal);
    m_horizontal = (m * m_horizontal).normal();
    m_offset = m * m_offset;
    xDataTransformBy(m);
    return Acad::eOk;
}

void AcDbLeader::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    for (int i = 0; i < numVertices(); ++i)
        listPoint(i == 0 ? L"ponta da seta," : L"vértice,", vertexAt(i));
    listText(L"caminho", m_splined ? L"curvo" : L"reto");
    listText(L"anotação", annoType() == kNoAnno ? L"nenhuma" : L"ligada");
}

Acad::ErrorStatus AcDbLeader::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                               AcDbIntArray&) const {
    for (const AcGePoint3d& p : m_vertices) points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                  const AcGeVector3d& offset) {
    for (int i = 0; i < indices.length(); ++i) {
        const int at = indices[i];
        if (at >= 0 && at < numVertices()) (void)setVertexAt(at, vertexAt(at) + offset);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                  AcDbIntArray&) const {
    for (const AcGePoint3d& p : m_vertices) points.append(p);
    return Acad::eOk;
}
