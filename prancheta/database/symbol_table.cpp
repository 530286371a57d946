// SPDX-License-Identifier: MIT
// Symbol tables and what their records have in common.
#include "acutmem.h"
#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/names.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, 1)
ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, 1)
ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, 1)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 1)
ACRX_CONS_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, 1)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, 1)

namespace {

/// Class of the records that belong in a table.
AcRxClass* recordClass(const AcDbSymbolTable& table) {
    const std::pair<AcRxClass*, AcRxClass*> kinds[] = {
        {AcDbBlockTable::desc(), AcDbBlockTableRecord::desc()},
        {AcDbLayerTable::desc(), AcDbLayerTableRecord::desc()},
        {AcDbLinetypeTable::desc(), AcDbLinetypeTableRecord::desc()},
        {AcDbTextStyleTable::desc(), AcDbTextStyleTableRecord::desc()},
        {AcDbDimStyleTable::desc(), AcDbDimStyleTableRecord::desc()},
        {AcDbRegAppTable::desc(), AcDbRegAppTableRecord::desc()},
    };
    for (const auto& [tableClass, recordOf] : kinds)
        if (table.isA() == tableClass) return recordOf;
    return nullptr;
}

/// Table of a resident record; null otherwise.
const AcDbSymbolTable* tableOf(const AcDbSymbolTableRecord& record) {
    const AcDbStub* owner = record.ownerId();
    return owner != nullptr ? AcDbSymbolTable::cast(owner->object) : nullptr;
}

/// "*U", "*D" and the like stand for the next free number.
bool isUnnumbered(const std::wstring& name) { return name.size() == 2 && name[0] == L'*'; }

std::wstring nextAnonymous(const AcDbSymbolTable& table, const std::wstring& prefix) {
    // Blocks are never taken out of a table, so counting up from their number always ends soon.
    for (std::size_t n = ObjectAccess::records(table).size();; ++n) {
        std::wstring name = prefix + std::to_wstring(n);
        if (ObjectAccess::lookup(table, name, true).isNull()) return name;
    }
}

}  // namespace

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
    return acutNewString(m_name.c_str(), name);
}
Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
    name = m_name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (name == nullptr || !isValidName(name, isKindOf(AcDbBlockTableRecord::desc())))
        return Acad::eInvalidKey;
    if (const AcDbSymbolTable* table = tableOf(*this)) {
        if (isReservedName(m_name) && m_name != name) return Acad::eNotApplicable;
        const AcDbObjectId other = ObjectAccess::lookup(*table, name);
        if (!other.isNull() && other != objectId()) return Acad::eDuplicateRecordName;
    }
    assertWriteEnabled();
    ObjectAccess::setName(*this, name);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    writeText(*filer, m_name);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbSymbolTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    ObjectAccess::setName(*this, readText(*filer));
    return filer->filerStatus();
}

// A drawing cannot do without what is current and what everything else refers to.
Acad::ErrorStatus AcDbSymbolTableRecord::subErase(Adesk::Boolean erasing) {
    if (!erasing) {
        const AcDbSymbolTable* table = tableOf(*this);
        const bool taken = table != nullptr && !ObjectAccess::lookup(*table, m_name).isNull();
        return taken ? Acad::eDuplicateRecordName : Acad::eOk;
    }
    if (isReservedName(m_name)) return Acad::eNotApplicable;
    const DatabaseCore& core = database()->core();
    for (const auto which : {DatabaseCore::kLayer, DatabaseCore::kLinetype,
                             DatabaseCore::kTextStyle, DatabaseCore::kDimStyle})
        if (core.current(which) == objectId())
            return which == DatabaseCore::kLayer ? Acad::eInvalidLayer : Acad::eNotApplicable;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id,
                                         bool getErased) const {
    id = name != nullptr ? ObjectAccess::lookup(*this, name, getErased) : AcDbObjectId();
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}
bool AcDbSymbolTable::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}
bool AcDbSymbolTable::has(AcDbObjectId id) const {
    return id.isResident() && !id.isErased() &&
           static_cast<AcDbStub*>(id)->object->ownerId() == objectId();
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    id.setNull();
    if (record == nullptr) return Acad::eNullObjectPointer;
    if (!record->objectId().isNull()) return Acad::eAlreadyInDb;
    if (objectId().isNull()) return Acad::eNoDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!record->isKindOf(recordClass(*this))) return Acad::eWrongObjectType;
    const std::wstring& name = ObjectAccess::name(*record);
    if (name.empty()) return Acad::eInvalidKey;
    if (isUnnumbered(name)) ObjectAccess::setName(*record, nextAnonymous(*this, name));
    if (!ObjectAccess::addRecord(*this, record)) return Acad::eDuplicateRecordName;
    id = record->objectId();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator) const {
    std::vector<AcDbObjectId> ids;
    for (AcDbObjectId id : m_records)
        if (!id.isErased()) ids.push_back(id);
    iterator = new AcDbSymbolTableIterator(std::move(ids));
    return Acad::eOk;
}

namespace prancheta {

void ObjectAccess::setName(AcDbSymbolTableRecord& r, std::wstring name) {
    std::swap(r.m_name, name);  // `name` is the former one now
    if (r.m_stub == nullptr || r.m_name == name) return;
    auto* table = const_cast<AcDbSymbolTable*>(tableOf(r));
    if (table == nullptr) return;
    const auto former = table->m_byName.find(foldCase(name));
    if (former != table->m_byName.end() && former->second == r.objectId())
        table->m_byName.erase(former);
    if (!r.m_stub->erased) table->m_byName[foldCase(r.m_name)] = r.objectId();
    r.database()->core().recordChanged(r);
}

AcDbObjectId ObjectAccess::lookup(const AcDbSymbolTable& t, std::wstring_view name, bool erased) {
    const auto found = t.m_byName.find(foldCase(name));
    if (found == t.m_byName.end()) return {};
    return found->second.isErased() && !erased ? AcDbObjectId() : found->second;
}

bool ObjectAccess::addRecord(AcDbSymbolTable& t, AcDbSymbolTableRecord* record,
                             Adesk::UInt64 handle) {
    if (!lookup(t, record->m_name).isNull()) return false;
    DatabaseCore& core = t.database()->core();
    if (!core.makeResident(*record, t.objectId(), handle)) return false;
    t.m_records.push_back(record->objectId());
    t.m_byName[foldCase(record->m_name)] = record->objectId();
    core.announce(*record);
    return true;
}

}  // namespace prancheta
