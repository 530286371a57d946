// SPDX-License-Identifier: MIT
// Handles in a file that is being written.
#pragma once

#include <unordered_set>

#include "prancheta/database/database_core.h"

namespace prancheta::dxf {

/// Handles for what the writer makes itself. They begin behind the largest one of everything that
/// the file keeps, whatever was erased meanwhile, so that the same drawing gets the same ones again
/// after it was saved and loaded.
class HandleSource {
public:
    /// Looks at everything that the file keeps; nothing may come to the drawing afterwards.
    void collect(DatabaseCore& core);

    Adesk::UInt64 next() { return m_next++; }
    Adesk::UInt64 peek() const { return m_next; }
    /// Handle with which a reference to the object is written: 0 when the file will not have it.
    Adesk::UInt64 of(AcDbObjectId id) const;

private:
    Adesk::UInt64 m_next = 1;
    std::unordered_set<Adesk::UInt64> m_kept;  ///< of objects that are kept group by group
};

}  // namespace prancheta::dxf
