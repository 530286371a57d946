// SPDX-License-Identifier: MIT
// Blocks and spaces: owners of entities.
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, 0, 0, 0, BLOCK_RECORD, "")

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    id.setNull();
    if (entity == nullptr) return Acad::eNullEntityPointer;
    if (!entity->objectId().isNull()) return Acad::eAlreadyInDb;
    if (objectId().isNull()) return Acad::eNoDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    return database()->core().appendWithHandle(objectId(), entity, 0, id);
}
Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator) const {
    std::vector<AcDbObjectId> ids;
    ids.reserve(m_entities.size());
    for (AcDbObjectId id : m_entities)
        if (!id.isErased()) ids.push_back(id);
    iterator = new AcDbBlockTableRecordIterator(std::move(ids));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_origin = origin;
    return Acad::eOk;
}

bool AcDbBlockTableRecord::isLayout() const {
    const std::wstring name = foldCase(ObjectAccess::name(*this));
    return name.starts_with(foldCase(ACDB_MODEL_SPACE)) ||
           name.starts_with(foldCase(ACDB_PAPER_SPACE));
}
bool AcDbBlockTableRecord::isAnonymous() const {
    return ObjectAccess::name(*this).starts_with(L'*') && !isLayout();
}

// The list of entities is not filed: appended ones are recorded one by one, and those that are
// erased keep their place in it.
Acad::ErrorStatus AcDbBlockTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    return filer->writePoint3d(m_origin);
}
Acad::ErrorStatus AcDbBlockTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    return filer->readPoint3d(&m_origin);
}
