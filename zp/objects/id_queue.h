// SPDX-License-Identifier: MIT
// Objects that wait for something.
#pragma once

#include <unordered_set>
#include <vector>

#include "dbid.h"

namespace zp {

/// Ids in the order in which they came, each once.
class IdQueue {
public:
    void put(AcDbObjectId id) {
        if (m_seen.insert(id.asOldId()).second) m_order.push_back(id);
    }
    bool has(AcDbObjectId id) const { return m_seen.contains(id.asOldId()); }
    bool empty() const { return m_order.empty(); }
    const std::vector<AcDbObjectId>& order() const { return m_order; }

private:
    std::vector<AcDbObjectId> m_order;
    std::unordered_set<Adesk::LongPtr> m_seen;
};

}  // namespace zp
