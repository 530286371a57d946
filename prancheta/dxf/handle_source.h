// SPDX-License-Identifier: MIT
// Handles in a file that is being written.
#pragma once

#include <unordered_map>
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
    /// Handle of a part that is kept group by group: its own the first time, unless an object has
    /// it, then a new one. 0 stays 0. To be asked once for each part.
    Adesk::UInt64 ofPart(Adesk::UInt64 handle);
    /// Handle of a part that has none yet; collect() counted it.
    Adesk::UInt64 ofNewPart() { return m_nextPart++; }
    /// Handle with which a reference to the object is written: 0 when the file will not have it.
    Adesk::UInt64 of(AcDbObjectId id) const;
    /// Whether the file will have a record with this handle that it did not make itself.
    bool has(Adesk::UInt64 handle) const { return isTaken(handle) || m_kept.contains(handle); }
    /// True for what is erased, and for a kept object that belongs to it: the file will not have
    /// it.
    bool isGone(Adesk::UInt64 handle) const;
    /// Whether an entity may name the object as its own: not one that is gone, and of a kept one
    /// only that which says so itself. A copy of an entity names what belongs to the original.
    bool mayOwn(Adesk::UInt64 owner, Adesk::UInt64 object) const;

private:
    void collectOwners(DatabaseCore& core);
    bool isTaken(Adesk::UInt64 handle) const;

    const DatabaseCore* m_core = nullptr;
    Adesk::UInt64 m_next = 1;
    Adesk::UInt64 m_nextPart = 1;               ///< of as many as collect() found to be there twice
    std::unordered_set<Adesk::UInt64> m_parts;  ///< given to a part already
    std::unordered_set<Adesk::UInt64> m_kept;   ///< of objects that are kept group by group
    std::unordered_map<Adesk::UInt64, Adesk::UInt64>
        m_owners;  ///< of kept objects and parts of erased references
};

}  // namespace prancheta::dxf
