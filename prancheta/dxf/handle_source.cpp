// SPDX-License-Identifier: MIT
// Handles in a file that is being written.
#include "prancheta/dxf/handle_source.h"

#include <algorithm>

#include "prancheta/database/object_access.h"
#include "prancheta/dxf/kept_handles.h"

namespace prancheta::dxf {

void HandleSource::collect(DatabaseCore& core) {
    Adesk::UInt64 largest = 0;
    const StubPool& stubs = ObjectAccess::stubs(core);
    for (std::size_t i = 0; i < stubs.size(); ++i)
        if (stubs[i].object != nullptr && !stubs[i].erased)
            largest = std::max(largest, stubs[i].handle);
    forEachKeptHandle(core, [&](Adesk::UInt64 handle) {
        largest = std::max(largest, handle);
        m_kept.insert(handle);
    });
    m_next = largest + 1;
}

Adesk::UInt64 HandleSource::of(AcDbObjectId id) const {
    const AcDbStub* const stub = id;
    if (stub == nullptr) return 0;
    if (stub->object != nullptr) return stub->erased ? 0 : stub->handle;
    return m_kept.contains(stub->handle) ? stub->handle : 0;
}

}  // namespace prancheta::dxf
