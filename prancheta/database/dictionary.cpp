// SPDX-License-Identifier: MIT
// Dictionaries.
#include "dbdict.h"

#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, 0, 0, 0, DICTIONARY, "")

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObjectId& id) const {
    id.setNull();
    if (key == nullptr) return Acad::eInvalidKey;
    const auto found = m_byKey.find(foldCase(key));
    if (found == m_byKey.end() || m_entries[found->second].second.isErased())
        return Acad::eKeyNotFound;
    id = m_entries[found->second].second;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObject*& object,
                                        AcDb::OpenMode mode) const {
    object = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = getAt(key, id);
    return es == Acad::eOk ? acdbOpenObject(object, id, mode) : es;
}

bool AcDbDictionary::has(const ACHAR* key) const {
    AcDbObjectId id;
    return getAt(key, id) == Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id) {
    id.setNull();
    if (key == nullptr || *key == L'\0') return Acad::eInvalidKey;
    if (object == nullptr) return Acad::eNullObjectPointer;
    if (!object->objectId().isNull()) return Acad::eAlreadyInDb;
    if (objectId().isNull()) return Acad::eNoDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (has(key)) {
        const Acad::ErrorStatus es = remove(key);
        if (es != Acad::eOk) return es;
    }
    DatabaseCore& core = database()->core();
    (void)core.makeResident(*object, objectId());  // fails for taken handles only
    id = object->objectId();
    ObjectAccess::addEntry(*this, key, id);
    core.announce(*object);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    AcDbObject* object = nullptr;
    Acad::ErrorStatus es = getAt(key, object, AcDb::kForWrite);
    if (es != Acad::eOk) return es;
    es = object->erase();
    object->close();
    return es;
}

Adesk::UInt32 AcDbDictionary::numEntries() const {
    const auto alive = std::count_if(m_entries.begin(), m_entries.end(),
                                     [](const auto& entry) { return !entry.second.isErased(); });
    return static_cast<Adesk::UInt32>(alive);
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const {
    std::vector<std::pair<std::wstring, AcDbObjectId>> alive;
    for (const auto& entry : m_entries)
        if (!entry.second.isErased()) alive.push_back(entry);
    return new AcDbDictionaryIterator(std::move(alive));
}

// For undo the entries are not filed: objects are recorded one by one when they come and go, and
// keep their entries.
Acad::ErrorStatus AcDbDictionary::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    if (filer->filerType() == AcDb::kUndoFiler) return filer->filerStatus();
    filer->writeUInt32(numEntries());
    for (const auto& [key, id] : m_entries) {
        if (id.isErased()) continue;
        writeText(*filer, key);
        filer->writeSoftOwnershipId(id);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDictionary::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    if (filer->filerType() == AcDb::kUndoFiler) return filer->filerStatus();
    m_entries.clear();
    m_byKey.clear();
    Adesk::UInt32 count = 0;
    filer->readUInt32(&count);
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        std::wstring key = readText(*filer);
        AcDbSoftOwnershipId id;
        filer->readSoftOwnershipId(&id);
        if (!id.isNull()) ObjectAccess::addEntry(*this, std::move(key), id);
    }
    return filer->filerStatus();
}

namespace prancheta {

void ObjectAccess::addEntry(AcDbDictionary& d, std::wstring key, AcDbObjectId id) {
    d.m_byKey[foldCase(key)] = d.m_entries.size();
    d.m_entries.emplace_back(std::move(key), id);
}

}  // namespace prancheta
