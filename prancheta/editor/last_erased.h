// SPDX-License-Identifier: MIT
// The set that OOPS brings back, through ERASE, OOPS and what undo takes back of them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "dbid.h"

namespace prancheta {

/// Moments are told as revisions of the undo log.
class LastErased {
public:
    using Ids = std::vector<AcDbObjectId>;

    /// An ERASE that ended at `revision` took these.
    void erased(Ids ids, std::uint64_t revision) { m_erased = {std::move(ids), revision}; }
    /// With one of them these went, which come back with it.
    void tookAlong(AcDbObjectId one, const Ids& ids) {
        Ids& all = m_erased.ids;
        if (std::ranges::find(all, one) != all.end()) all.insert(all.end(), ids.begin(), ids.end());
    }
    /// Gives the set to an OOPS. Empty after its ERASE was taken back: what is erased of it now,
    /// undo has taken out.
    Ids take(std::uint64_t revision) {
        Ids ids = std::exchange(m_erased.ids, {});
        if (revision < m_erased.at) ids.clear();
        return ids;
    }
    /// The OOPS that took these brought them back; it ended at `revision`.
    void restored(Ids ids, std::uint64_t revision) {
        m_restored = {std::move(ids), m_erased.at};
        m_restoredAt = revision;
    }
    /// Undo went back to `revision`. Once its OOPS is undone a set is there for another one; once
    /// its ERASE is undone it is of no use, whatever is drawn next.
    void undone(std::uint64_t revision) {
        if (revision < m_restoredAt && !m_restored.ids.empty())
            m_erased = std::exchange(m_restored, {});
        if (revision < m_erased.at) m_erased.ids.clear();
    }

private:
    struct Set {
        Ids ids;
        std::uint64_t at = 0;  ///< after its ERASE
    };
    Set m_erased;
    Set m_restored;
    std::uint64_t m_restoredAt = 0;
};

}  // namespace prancheta
