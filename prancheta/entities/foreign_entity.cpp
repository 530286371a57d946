// SPDX-License-Identifier: MIT
// An entity of an opened file whose type has no class here.
#include "prancheta/entities/foreign_entity.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta {

ACRX_CONS_DEFINE_MEMBERS(ForeignEntity, AcDbEntity, 1)

namespace {

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// An attribute is in no drawing itself, but its layer is.
AcDbDatabase* drawingOf(const ForeignEntity& entity) {
    return entity.database() != nullptr ? entity.database() : entity.layerId().database();
}

/// Records that the groups name, the shown block first (null: none). Between drawings they go out
/// as references, so that they come along.
std::vector<AcDbObjectId> namedRecords(const ForeignEntity& entity) {
    const AcDbDatabase& database = *drawingOf(entity);
    std::vector<AcDbObjectId> found{blockShownBy(entity)};
    const bool dimensioned = isDimension(entity.typeName()) || entity.typeName() == "LEADER" ||
                             entity.typeName() == "TOLERANCE";
    for (const RawTag& tag : entity.tags()) {
        AcDbObjectId table;
        if (tag.code == 3 && dimensioned) table = database.dimStyleTableId();
        if (tag.code == 6) table = database.linetypeTableId();
        if (tag.code == 7) table = database.textStyleTableId();
        if (tag.code == 8) table = database.layerTableId();
        if (table.isNull()) continue;
        const AcDbObjectId record = ObjectAccess::lookup(table, findName({tag}, tag.code));
        if (!record.isNull()) found.push_back(record);
    }
    return found;
}

/// Handle of the object that a group refers to; 0 when it refers to none.
Adesk::UInt64 referenceOf(const RawTag& tag) {
    if (tag.code < 320 || tag.code >= 370) return 0;
    const std::string_view text = trim(std::string_view(tag.value));
    Adesk::UInt64 handle = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), handle, 16);
    return error == std::errc() && end == text.data() + text.size() ? handle : 0;
}

/// What the groups refer to, for another drawing. False when that is something which only the file
/// of this drawing keeps, and without which the entity is nothing (the style of a multileader, the
/// definition of an image).
bool writeReferences(const ForeignEntity& entity, AcDbDwgFiler& filer) {
    const std::vector<AcDbObjectId> named = namedRecords(entity);
    filer.writeUInt32(static_cast<Adesk::UInt32>(named.size()));
    for (const AcDbObjectId& id : named) filer.writeHardPointerId(id);
    for (const RawTag& tag : entity.tags()) {
        const Adesk::UInt64 handle = referenceOf(tag);
        if (handle == 0) continue;
        const AcDbObjectId id(drawingOf(entity)->core().find(handle));
        if (!id.isResident() && tag.code >= 340) return false;
        filer.writeSoftPointerId(id);
    }
    return true;
}

void readReferences(AcDbDwgFiler& filer, RawTags& tags) {
    Adesk::UInt32 count = 0;
    filer.readUInt32(&count);
    for (Adesk::UInt32 i = 0; i < count; ++i) {
        AcDbHardPointerId id;
        filer.readHardPointerId(&id);
        if (i > 0 || id.isNull()) continue;
        // A block without a name of its own has another one here.
        const auto name = std::ranges::find(tags, 2, &RawTag::code);
        if (name != tags.end() && findName(tags, 2) != ObjectAccess::recordName(id))
            name->value = toUtf8(ObjectAccess::recordName(id));
    }
    for (RawTag& tag : tags) {
        if (referenceOf(tag) == 0) continue;
        AcDbSoftPointerId id;
        filer.readSoftPointerId(&id);
        ACHAR handle[17];
        id.handle().getIntoAsciiBuffer(handle);
        tag.value = toUtf8(handle);
    }
}

}  // namespace

Acad::ErrorStatus ForeignEntity::setContent(std::string typeName, RawTags tags) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_typeName = std::move(typeName);
    m_tags = std::move(tags);
    m_sinceDrawn = AcGeMatrix3d::kIdentity;
    return Acad::eOk;
}

Acad::ErrorStatus ForeignEntity::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    writeBytes(*filer, m_typeName);
    writeTags(*filer, m_tags);
    if (isDimension(m_typeName))
        filer->writeBytes(&m_sinceDrawn, static_cast<Adesk::UInt32>(sizeof m_sinceDrawn));
    if (filer->filerType() == AcDb::kWblockCloneFiler && drawingOf(*this) != nullptr &&
        !writeReferences(*this, *filer))
        return Acad::eNotApplicable;
    return filer->filerStatus();
}

Acad::ErrorStatus ForeignEntity::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es == Acad::eOk) es = readBytes(*filer, m_typeName);
    if (es == Acad::eOk) es = readTags(*filer, m_tags);
    if (es != Acad::eOk) return es;
    if (isDimension(m_typeName))
        filer->readBytes(&m_sinceDrawn, static_cast<Adesk::UInt32>(sizeof m_sinceDrawn));
    if (filer->filerType() == AcDb::kWblockCloneFiler) readReferences(*filer, m_tags);
    return filer->filerStatus();
}

Adesk::Boolean ForeignEntity::subWorldDraw(AcGiWorldDraw* draw) {
    drawForeign(*this, *draw);
    return Adesk::kTrue;
}

Acad::ErrorStatus ForeignEntity::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                     AcDbIntArray&) const {
    const bool inWorld = isOneOf(m_typeName, {"MTEXT", "ELLIPSE", "TOLERANCE"});
    if (!inWorld && m_typeName != "INSERT") return Acad::eNotApplicable;
    const AcGePoint3d at = findPoint(m_tags, 10);
    points.append(inWorld ? at : planeToWorld(planeNormal(m_tags)) * at);
    return Acad::eOk;
}

Acad::ErrorStatus ForeignEntity::subMoveStretchPointsAt(const AcDbIntArray&,
                                                        const AcGeVector3d& offset) {
    return subTransformBy(AcGeMatrix3d::translation(offset));
}

Acad::ErrorStatus ForeignEntity::subTransformBy(const AcGeMatrix3d& m) {
    RawTags tags = m_tags;
    if (!transformForeign(m_typeName, tags, m)) return Acad::eNotApplicable;
    assertWriteEnabled();
    m_tags = std::move(tags);
    if (isDimension(m_typeName)) m_sinceDrawn = m * m_sinceDrawn;
    xDataTransformBy(m);
    return Acad::eOk;
}

void ForeignEntity::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listText(L"tipo no arquivo:", toWide(m_typeName));
}

}  // namespace prancheta
