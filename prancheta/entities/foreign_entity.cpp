// SPDX-License-Identifier: MIT
// An entity of an opened file whose type has no class here.
#include "prancheta/entities/foreign_entity.h"

#include <algorithm>
#include <initializer_list>

#include "prancheta/base/text.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta {

ACRX_CONS_DEFINE_MEMBERS(ForeignEntity, AcDbEntity, 1)

namespace {

void writeBytes(AcDbDwgFiler* filer, const std::string& text) {
    filer->writeUInt32(static_cast<Adesk::UInt32>(text.size()));
    if (!text.empty()) filer->writeBytes(text.data(), static_cast<Adesk::UInt32>(text.size()));
}

Acad::ErrorStatus readBytes(AcDbDwgFiler* filer, std::string& text) {
    Adesk::UInt32 size = 0;
    const Acad::ErrorStatus es = filer->readUInt32(&size);
    if (es != Acad::eOk) return es;
    text.resize(size);
    return size == 0 ? Acad::eOk : filer->readBytes(text.data(), size);
}

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
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
    writeBytes(filer, m_typeName);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_tags.size()));
    for (const RawTag& tag : m_tags) {
        filer->writeInt32(tag.code);
        writeBytes(filer, tag.value);
    }
    if (isDimension(m_typeName))
        filer->writeBytes(&m_sinceDrawn, static_cast<Adesk::UInt32>(sizeof m_sinceDrawn));
    return filer->filerStatus();
}

Acad::ErrorStatus ForeignEntity::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es == Acad::eOk) es = readBytes(filer, m_typeName);
    Adesk::UInt32 count = 0;
    if (es == Acad::eOk) es = filer->readUInt32(&count);
    if (es != Acad::eOk) return es;
    m_tags.resize(count);
    for (RawTag& tag : m_tags) {
        Adesk::Int32 code = 0;
        filer->readInt32(&code);
        tag.code = code;
        es = readBytes(filer, tag.value);
        if (es != Acad::eOk) return es;
    }
    if (isDimension(m_typeName))
        filer->readBytes(&m_sinceDrawn, static_cast<Adesk::UInt32>(sizeof m_sinceDrawn));
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
