// SPDX-License-Identifier: MIT
// Objects, handles and notifications of one database.
#include "prancheta/database/database_core.h"

#include <algorithm>
#include <new>

#include "prancheta/database/object_access.h"

namespace prancheta {
namespace {

/// Tells every reactor; one that goes away meanwhile is left out. While it lasts the object cannot
/// be opened for write. False when memory ran out on the way: destructors that close objects tell,
/// too, and nothing may leave them.
template <class Tell>
bool tellAll(const std::vector<AcDbDatabaseReactor*>& reactors, const AcDbObject& object,
             Tell&& tell) {
    if (reactors.empty()) return true;
    AcDbStub* stub = object.objectId();
    ++stub->telling;
    bool told = true;
    try {
        // The list changes while it is told.
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::vector<AcDbDatabaseReactor*> present = reactors;
        for (AcDbDatabaseReactor* reactor : present)
            if (std::find(reactors.begin(), reactors.end(), reactor) != reactors.end())
                tell(*reactor);
    } catch (const std::bad_alloc&) {
        told = false;
    }
    --stub->telling;
    return told;
}

}  // namespace

DatabaseCore::~DatabaseCore() {
    m_undo.clear();
    for (std::size_t i = 0; i < m_stubs.size(); ++i) delete m_stubs[i].object;
}

bool DatabaseCore::makeResident(AcDbObject& object, AcDbObjectId owner, Adesk::UInt64 handle) {
    AcDbStub* stub = find(handle);
    if (stub != nullptr && stub->object != nullptr) return false;
    if (stub == nullptr) {
        stub = &m_stubs.add();
        stub->database = &m_database;
        (void)changeHandle(AcDbObjectId(stub), handle != 0 ? handle : m_nextHandle);
    }
    stub->object = &object;
    stub->writer = stub->isNew = stub->recorded = true;
    ObjectAccess::setStub(object, stub);
    ObjectAccess::setOwner(object, owner);
    return true;
}

void DatabaseCore::announce(AcDbObject& object) {
    m_undo.recordAppended(object);
    const AcDbEntity* const entity = AcDbEntity::cast(&object);
    if (entity != nullptr && onEntityAppended) onEntityAppended(*entity);
    notifyAppended(object);
}

Acad::ErrorStatus DatabaseCore::appendWithHandle(AcDbObjectId blockRecord, AcDbEntity* entity,
                                                 Adesk::UInt64 handle, AcDbObjectId& id) {
    id.setNull();
    if (entity == nullptr) return Acad::eNullEntityPointer;
    if (!entity->objectId().isNull()) return Acad::eAlreadyInDb;
    if (blockRecord.objectClass() != AcDbBlockTableRecord::desc()) return Acad::eWrongObjectType;
    const AcDbObjectId layer = ObjectAccess::layer(*entity);
    if (!layer.isNull() && layer.database() != &m_database) return Acad::eWrongDatabase;
    if (!makeResident(*entity, blockRecord, handle)) return Acad::eAlreadyInDb;
    if (layer.isNull()) ObjectAccess::setLayer(*entity, current(kLayer));
    id = entity->objectId();
    auto* record = static_cast<AcDbBlockTableRecord*>(static_cast<AcDbStub*>(blockRecord)->object);
    ObjectAccess::entities(*record).push_back(id);
    announce(*entity);
    return Acad::eOk;
}

AcDbStub* DatabaseCore::find(Adesk::UInt64 handle) const { return m_byHandle.find(handle); }

void DatabaseCore::reserveHandle(Adesk::UInt64 handle) {
    if (handle >= m_nextHandle && handle != UINT64_MAX) m_nextHandle = handle + 1;
}

bool DatabaseCore::changeHandle(AcDbObjectId id, Adesk::UInt64 handle) {
    AcDbStub* stub = id;
    if (stub == nullptr || handle == 0) return false;
    if (stub->handle == handle) return true;
    if (!m_byHandle.add(handle, stub)) return false;
    if (stub->handle != 0) m_byHandle.remove(stub->handle);
    stub->handle = handle;
    reserveHandle(handle);
    return true;
}

void DatabaseCore::assignMissingHandles() {
    for (std::size_t i = 0; i < m_stubs.size(); ++i)
        if (m_stubs[i].handle == 0) (void)changeHandle(AcDbObjectId(&m_stubs[i]), m_nextHandle);
}

AcDbObjectId DatabaseCore::paperSpaceId() const {
    return ObjectAccess::lookup(m_tables[kBlocks], ACDB_PAPER_SPACE);
}

AcDbObjectId DatabaseCore::currentSpaceId() const {
    return m_currentSpace.isNull() || m_currentSpace.isErased() ? m_modelSpace : m_currentSpace;
}

std::vector<AcDbObjectId> DatabaseCore::modelSpace() const {
    const AcDbStub* stub = m_modelSpace;
    const auto& all =
        ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object));
    std::vector<AcDbObjectId> ids;
    ids.reserve(all.size());
    for (AcDbObjectId id : all)
        if (!id.isErased()) ids.push_back(id);
    return ids;
}

bool DatabaseCore::hasObjectsOf(const AcRxClass* entityClass) const {
    for (std::size_t i = 0; i < m_stubs.size(); ++i)
        if (m_stubs[i].object != nullptr && m_stubs[i].object->isKindOf(entityClass)) return true;
    return false;
}

void DatabaseCore::notifyAppended(const AcDbObject& object) {
    m_untold |= !tellAll(m_reactors, object,
                         [&](AcDbDatabaseReactor& r) { r.objectAppended(&m_database, &object); });
}
void DatabaseCore::notifyModified(const AcDbObject& object) {
    m_untold |= !tellAll(m_reactors, object,
                         [&](AcDbDatabaseReactor& r) { r.objectModified(&m_database, &object); });
}
void DatabaseCore::notifyErased(const AcDbObject& object, bool erased) {
    if (const AcDbEntity* entity = AcDbEntity::cast(&object)) {
        const auto& tell = erased ? onEntityErased : onEntityAppended;
        if (tell) tell(*entity);
    }
    m_untold |= !tellAll(m_reactors, object, [&](AcDbDatabaseReactor& r) {
        r.objectErased(&m_database, &object, erased);
    });
}
void DatabaseCore::notifyUnAppended(const AcDbObject& object, bool reAppended) {
    if (const AcDbEntity* entity = AcDbEntity::cast(&object)) {
        const auto& tell = reAppended ? onEntityAppended : onEntityErased;
        if (tell) tell(*entity);
    }
    m_untold |= !tellAll(m_reactors, object, [&](AcDbDatabaseReactor& r) {
        if (reAppended)
            r.objectReAppended(&m_database, &object);
        else
            r.objectUnAppended(&m_database, &object);
    });
}

}  // namespace prancheta
