// SPDX-License-Identifier: MIT
// Paragraphs of text as an entity.
#include "dbmtext.h"

#include <algorithm>

#include "acutmem.h"
#include "dblead.h"
#include "dbsymtb.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/object_extra.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_motion.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/paragraphs.h"
#include "prancheta/entities/picture_entities.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbMText, AcDbEntity, 0, 0, 0, MTEXT, "Prancheta")

namespace {

ParagraphStyle styleOf(const AcDbMText& text) {
    ParagraphStyle style;
    const AcDbObjectPointer<AcDbTextStyleTableRecord> record(text.textStyle(), AcDb::kForRead);
    if (record.openStatus() == Acad::eOk) {
        if (record->xScale() > 0.0) style.widthFactor = record->xScale();
        style.oblique = record->obliquingAngle();
    }
    style.height = text.textHeight();
    style.width = text.width();
    style.spacing = text.lineSpacingFactor();
    style.evenLines = text.lineSpacingStyle() == 2;
    style.column = (text.attachment() - 1) % 3;
    return style;
}

SetParagraphs setOf(const AcDbMText& text) {
    return setParagraphs(text.contentsConst(), styleOf(text));
}

}  // namespace

double AcDbMText::rotation() const { return angleInPlane(m_direction, m_normal); }

ACHAR* AcDbMText::contents() const {
    ACHAR* copy = nullptr;
    (void)acutNewString(m_contents.c_str(), copy);
    return copy;
}

double AcDbMText::actualWidth() const { return setOf(*this).width; }
double AcDbMText::actualHeight() const { return setOf(*this).height; }

Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_location = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    const double angle = rotation();
    m_normal = normal.normal();
    m_direction = directionInPlane(angle, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const AcGeVector3d flat = direction - m_normal * direction.dotProduct(m_normal);
    if (flat.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_direction = flat.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setRotation(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_direction = directionInPlane(angle, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setWidth(double width) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(width >= 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_width = width;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setDefinedHeight(double height) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(height >= 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_definedHeight = height;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(height > 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_height = height;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (attachment < kTopLeft || attachment > kBottomRight) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_attachment = static_cast<Adesk::Int16>(attachment);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setFlowDirection(int direction) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_flow = static_cast<Adesk::Int16>(direction);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(factor >= 0.25 && factor <= 4.0)) return Acad::eOutOfRange;
    assertWriteEnabled();
    m_spacing = factor;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setLineSpacingStyle(int style) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (style != 1 && style != 2) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_spacingStyle = static_cast<Adesk::Int16>(style);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_style = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* contents) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (contents == nullptr) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_contents = contents;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_location);
    filer->writeVector3d(m_normal);
    filer->writeVector3d(m_direction);
    filer->writeString(m_contents.c_str());
    filer->writeHardPointerId(m_style);
    for (const double v : {m_height, m_width, m_definedHeight, m_spacing}) filer->writeDouble(v);
    for (const Adesk::Int16 v : {m_attachment, m_flow, m_spacingStyle}) filer->writeInt16(v);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_location);
    filer->readVector3d(&m_normal);
    filer->readVector3d(&m_direction);
    es = readText(filer, m_contents);
    if (es != Acad::eOk) return es;
    AcDbHardPointerId style;
    filer->readHardPointerId(&style);
    m_style = style;
    for (double* v : {&m_height, &m_width, &m_definedHeight, &m_spacing}) filer->readDouble(v);
    for (Adesk::Int16* v : {&m_attachment, &m_flow, &m_spacingStyle}) filer->readInt16(v);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::subClose() {
    const ObjectExtra* const extra = ObjectAccess::extra(*this);
    if (extra != nullptr && isWriteEnabled() && !isUndoing() && !isErased())
        for (const AcDbObjectId& id : std::vector<AcDbObjectId>(extra->reactors)) {
            const AcDbObjectPointer<AcDbLeader> leader(id, AcDb::kForWrite);
            if (leader.openStatus() == Acad::eOk) leader->follow(objectId(), m_location);
        }
    return AcDbEntity::subClose();
}

Adesk::Boolean AcDbMText::subWorldDraw(AcGiWorldDraw* draw) {
    const SetParagraphs set = setOf(*this);
    const AcGeVector3d up = m_normal.crossProduct(m_direction);
    const int column = (m_attachment - 1) % 3;
    const int row = (m_attachment - 1) / 3;
    const AcGePoint3d corner =
        m_location - m_direction * (set.frame * column / 2.0) + up * (set.height * row / 2.0);
    drawParagraphs(set, corner, m_direction, m_normal, traitsOf(*this), *draw);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbMText::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    m_location.transformBy(m);
    m_normal = mappedNormal(m, m_normal);
    m_direction = (m * m_direction).normal();
    m_height *= m.scale();
    m_width *= m.scale();
    m_definedHeight *= m.scale();
    xDataTransformBy(m);
    if (m.det() > 0.0) return Acad::eOk;
    // A mirror keeps the text readable in the mirrored place: either what was on top is at the
    // bottom, or what was left is right.
    int column = (m_attachment - 1) % 3;
    int row = (m_attachment - 1) / 3;
    if (isReadable(planeToWorld(m_normal).inverse() * m_direction)) {
        row = 2 - row;
    } else {
        m_direction = -m_direction;
        column = 2 - column;
    }
    m_attachment = static_cast<Adesk::Int16>(1 + 3 * row + column);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subExplode(AcDbVoidPtrArray& set) const {
    const int first = set.length();
    const Acad::ErrorStatus es = AcDbEntity::subExplode(set);
    for (int i = first; es == Acad::eOk && i < set.length(); ++i)
        if (auto* const text = AcDbText::cast(static_cast<AcDbEntity*>(set[i])))
            (void)text->setTextStyle(m_style);  // not resident: cannot be refused
    return es;
}

Acad::ErrorStatus AcDbMText::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                               const AcGePoint3d& pick, const AcGePoint3d& last,
                                               const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                               AcDbIntArray& geomIds) const {
    if (mode != AcDb::kOsModeIns)
        return AcDbEntity::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
    points.append(m_location);
    return Acad::eOk;
}

void AcDbMText::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listPoint(L"no ponto,", m_location);
    for (const std::wstring& line : plainParagraphs(m_contents)) listText(L"texto", line);
    listNumber(L"altura", m_height);
    listNumber(L"largura", m_width);
    listDirection(L"ângulo de rotação", rotation());
    listNumber(L"espaçamento de linha", m_spacing);
}

Acad::ErrorStatus AcDbMText::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                              AcDbIntArray&) const {
    points.append(m_location);
    if (m_width > 0.0)
        points.append(m_location + m_direction * (m_width * ((m_attachment % 3) == 0 ? -1.0 : 1.0) *
                                                  ((m_attachment % 3) == 2 ? 0.5 : 1.0)));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                 const AcGeVector3d& offset) {
    if (indices.isEmpty()) return Acad::eOk;
    assertWriteEnabled();
    if (indices.contains(0)) {
        m_location += offset;
        return Acad::eOk;
    }
    // The far edge of the frame; both edges of a centred one.
    const int column = (m_attachment - 1) % 3;
    const double factor = column == 2 ? -1.0 : 1.0 + column;
    m_width = std::max(m_width + offset.dotProduct(m_direction) * factor, m_height);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                 AcDbIntArray&) const {
    points.append(m_location);
    return Acad::eOk;
}
