// SPDX-License-Identifier: MIT
// Block reference.
#include <cmath>
#include <memory>

#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/graphics/picture_recorder.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, 0, 0, 0, INSERT, "Prancheta")

namespace {

double signOf(double v) { return v < 0.0 ? -1.0 : 1.0; }

bool perpendicular(const AcGeVector3d& a, const AcGeVector3d& b) {
    return std::abs(a.dotProduct(b)) <= 1e-8 * a.length() * b.length();
}

/// The point by which a text was placed.
AcGePoint3d gripOf(const AcDbText& text) {
    const bool justified = text.horizontalMode() != 0 || text.verticalMode() != 0;
    return justified ? text.alignmentPoint() : text.position();
}

/// Frame of a reference without its place: what rotation, factors and normal can say.
struct Frame {
    AcGeVector3d scale;
    AcGeVector3d normal;
    double rotation = 0.0;
};

/// False when the axes are no longer perpendicular or one has vanished. A mirror shows in the sign
/// of the factor of x.
bool frameOf(const AcGeMatrix3d& m, const AcGeVector3d& formerScale, Frame& frame) {
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    m.getCoordSystem(origin, x, y, z);
    if (x.isZeroLength() || y.isZeroLength() || z.isZeroLength()) return false;
    if (!perpendicular(x, y) || !perpendicular(y, z) || !perpendicular(x, z)) return false;
    frame.scale.z = z.length() * signOf(formerScale.z);
    frame.scale.y = y.length() * signOf(formerScale.y);
    frame.normal = z / frame.scale.z;
    const AcGeVector3d xAxis = (y / frame.scale.y).crossProduct(frame.normal);
    frame.scale.x = x.length() * signOf(x.dotProduct(xAxis));
    frame.rotation = angleInPlane(xAxis, frame.normal);
    return true;
}

}  // namespace

AcDbBlockReference::AcDbBlockReference() = default;
AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord)
    : m_position(position), m_block(blockTableRecord) {}
AcDbBlockReference::~AcDbBlockReference() = default;

InsertParts& AcDbBlockReference::partsForChange() {
    assertWriteEnabled();
    if (m_parts == nullptr) m_parts = std::make_unique<InsertParts>();
    return *m_parts;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (attribute == nullptr) return Acad::eNullEntityPointer;
    partsForChange().list.push_back({std::unique_ptr<AcDbEntity>(attribute), 0});
    return Acad::eOk;
}

void AcDbBlockReference::takePartsAlong(const AcGeMatrix3d& former) {
    if (m_parts == nullptr) return;
    const AcGeMatrix3d by = blockTransform() * former.inverse();
    // What cannot be stretched stays where it was.
    for (InsertPart& part : m_parts->list) (void)part.entity->transformBy(by);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (id.isNull()) return Acad::eNullObjectId;
    assertWriteEnabled();
    m_block = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    const AcGeMatrix3d former = blockTransform();
    m_position = p;
    takePartsAlong(former);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    const AcGeMatrix3d former = blockTransform();
    m_rotation = angle;
    takePartsAlong(former);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeVector3d& scale) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (scale.x == 0.0 || scale.y == 0.0 || scale.z == 0.0) return Acad::eInvalidInput;
    assertWriteEnabled();
    const AcGeMatrix3d former = blockTransform();
    m_scale = scale;
    takePartsAlong(former);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    const AcGeMatrix3d former = blockTransform();
    m_normal = normal.normal();
    takePartsAlong(former);
    return Acad::eOk;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    AcGeMatrix3d scale;
    scale.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis * m_scale.x,
                         AcGeVector3d::kYAxis * m_scale.y, AcGeVector3d::kZAxis * m_scale.z);
    return AcGeMatrix3d::translation(m_position.asVector()) * planeToWorld(m_normal) *
           AcGeMatrix3d::rotation(m_rotation, AcGeVector3d::kZAxis) * scale *
           AcGeMatrix3d::translation(-blockOrigin(m_block).asVector());
}

Acad::ErrorStatus AcDbBlockReference::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_position);
    filer->writeHardPointerId(m_block);
    filer->writeVector3d(m_scale);
    filer->writeVector3d(m_normal);
    filer->writeDouble(m_rotation);
    return writeParts(*filer, m_parts.get());
}

Acad::ErrorStatus AcDbBlockReference::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_position);
    AcDbHardPointerId block;
    filer->readHardPointerId(&block);
    m_block = block;
    filer->readVector3d(&m_scale);
    filer->readVector3d(&m_normal);
    filer->readDouble(&m_rotation);
    return readParts(*filer, m_parts);
}

Adesk::Boolean AcDbBlockReference::subWorldDraw(AcGiWorldDraw* draw) {
    const Picture content = blockPicture(m_block, traitsOf(*this));
    std::size_t drawn = 0;
    for (const AcGeMatrix3d& place : placesOf(*this)) {
        if (drawn > kMostPrimitives) break;
        drawn += content.size();
        replayAt(content, place, *draw);
    }
    if (m_parts != nullptr)
        replay(partsPicture(*m_parts, traitsOf(*this), m_block.database()), *draw);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbBlockReference::subTransformBy(const AcGeMatrix3d& m) {
    Frame frame;
    if (!frameOf(m * blockTransform(), m_scale, frame)) return Acad::eCannotScaleNonUniformly;
    InsertParts moved;
    if (m_parts != nullptr)
        if (const Acad::ErrorStatus es = movedParts(*m_parts, m, moved); es != Acad::eOk) return es;
    assertWriteEnabled();
    if (m_parts != nullptr) *m_parts = std::move(moved);
    m_position.transformBy(m);
    m_scale = frame.scale;
    m_normal = frame.normal;
    m_rotation = frame.rotation;
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subExplode(AcDbVoidPtrArray& set) const {
    assertReadEnabled();
    std::vector<ExplodedPart> parts = explodedParts(*this);
    for (ExplodedPart& part : parts) set.append(part.entity.release());
    // A reference that leaves nothing behind would only be lost.
    return parts.empty() ? Acad::eCannotExplodeEntity : Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subGetOsnapPoints(
    AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pick, const AcGePoint3d& last,
    const AcGeMatrix3d& view, AcGePoint3dArray& points, AcDbIntArray& geomIds) const {
    if (mode == AcDb::kOsModeIns) points.append(m_position);
    return AcDbEntity::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
}

void AcDbBlockReference::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    const AcDbObjectPointer<AcDbBlockTableRecord> record(m_block, AcDb::kForRead);
    const ACHAR* name = nullptr;
    if (record.openStatus() == Acad::eOk && record->getName(name) == Acad::eOk)
        listText(L"Nome do bloco:", name);
    listPoint(L"no ponto,", m_position);
    listNumber(L"fator de escala X:", m_scale.x);
    listNumber(L"fator de escala Y:", m_scale.y);
    listNumber(L"fator de escala Z:", m_scale.z);
    listDirection(L"ângulo de rotação:", m_rotation);
    for (const AcDbAttribute* const attribute : attributesOf(*this))
        listText(L"atributo " + std::wstring(attribute->tagConst()) + L":",
                 attribute->textStringConst());
}

Acad::ErrorStatus AcDbBlockReference::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                       AcDbIntArray&) const {
    points.append(m_position);
    for (const AcDbAttribute* const attribute : attributesOf(*this))
        points.append(gripOf(*attribute));
    return Acad::eOk;
}

/// With the reference its attributes move; by itself each moves alone.
Acad::ErrorStatus AcDbBlockReference::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                          const AcGeVector3d& offset) {
    assertWriteEnabled();
    const AcGeMatrix3d by = AcGeMatrix3d::translation(offset);
    if (indices.contains(0)) return setPosition(m_position + offset);
    const std::vector<AcDbAttribute*> attributes = attributesForChange(*this);
    for (std::size_t i = 0; i < attributes.size(); ++i)
        if (indices.contains(static_cast<int>(i) + 1)) (void)attributes[i]->transformBy(by);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                          AcDbIntArray&) const {
    points.append(m_position);
    return Acad::eOk;
}
