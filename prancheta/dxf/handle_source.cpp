// SPDX-License-Identifier: MIT
// Handles in a file that is being written.
#include "prancheta/dxf/handle_source.h"

#include <algorithm>

#include "prancheta/database/object_access.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/entities/insert_parts.h"

namespace prancheta::dxf {

void HandleSource::collect(DatabaseCore& core) {
    m_core = &core;
    collectOwners(core);
    Adesk::UInt64 largest = 0;
    Adesk::UInt64 again = 0;
    const StubPool& stubs = ObjectAccess::stubs(core);
    for (std::size_t i = 0; i < stubs.size(); ++i)
        if (stubs[i].object != nullptr && !stubs[i].erased)
            largest = std::max(largest, stubs[i].handle);
    forEachKeptHandle(core, [&](Adesk::UInt64 handle) {
        if (isGone(handle)) return;
        largest = std::max(largest, handle);
        const bool isNew = handle != 0 && m_kept.insert(handle).second;
        if (!isNew || isTaken(handle)) ++again;
    });
    m_nextPart = largest + 1;
    m_next = m_nextPart + again;
}

void HandleSource::collectOwners(DatabaseCore& core) {
    for (const RawTags& object : core.foreign().objects)
        if (const Adesk::UInt64 handle = ownHandle(object); handle != 0)
            m_owners.emplace(handle, ownerHandle(object));
    const StubPool& stubs = ObjectAccess::stubs(core);
    for (std::size_t i = 0; i < stubs.size(); ++i) {
        const auto* const reference = AcDbBlockReference::cast(stubs[i].object);
        if (reference == nullptr || reference->parts() == nullptr) continue;
        if (ObjectAccess::isAlive(*reference)) continue;
        for (const InsertPart& part : reference->parts()->list)
            m_owners.emplace(part.handle, stubs[i].handle);
    }
    // A copy that still stands has them too.
    forEachKeptPart(core, [this](Adesk::UInt64 handle) { m_owners.erase(handle); });
}

bool HandleSource::isGone(Adesk::UInt64 handle) const {
    // Owners of a damaged file may go in a circle; no real chain is that long.
    for (int depth = 0; depth < 100; ++depth) {
        const auto kept = m_owners.find(handle);
        if (kept == m_owners.end()) break;
        handle = kept->second;
    }
    const AcDbStub* const stub = m_core->find(handle);
    return stub != nullptr && stub->object != nullptr && !ObjectAccess::isAlive(*stub->object);
}

bool HandleSource::mayOwn(Adesk::UInt64 owner, Adesk::UInt64 object) const {
    const auto kept = m_owners.find(object);
    return !isGone(object) && (kept == m_owners.end() || kept->second == owner);
}

bool HandleSource::isTaken(Adesk::UInt64 handle) const {
    const AcDbStub* const stub = m_core->find(handle);
    return stub != nullptr && stub->object != nullptr && !stub->erased;
}

Adesk::UInt64 HandleSource::ofPart(Adesk::UInt64 handle) {
    if (handle == 0) return 0;
    return m_parts.insert(handle).second && !isTaken(handle) ? handle : m_nextPart++;
}

Adesk::UInt64 HandleSource::of(AcDbObjectId id) const {
    const AcDbStub* const stub = id;
    if (stub == nullptr) return 0;
    if (stub->object != nullptr) return ObjectAccess::isAlive(*stub->object) ? stub->handle : 0;
    return m_kept.contains(stub->handle) ? stub->handle : 0;
}

}  // namespace prancheta::dxf
