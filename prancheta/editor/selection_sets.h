// SPDX-License-Identifier: MIT
// Selection sets that programs hold by name.
#pragma once

#include <map>
#include <vector>

#include "adsdef.h"
#include "dbid.h"

namespace prancheta {

class SelectionSets {
public:
    /// Writes the name of a new set.
    void add(std::vector<AcDbObjectId> ids, ads_name name) {
        m_sets[++m_last] = std::move(ids);
        name[0] = m_last;
        name[1] = kMark;
    }
    /// Null when the name is no set's.
    std::vector<AcDbObjectId>* find(const ads_name name) {
        if (name == nullptr || name[1] != kMark) return nullptr;
        const auto at = m_sets.find(name[0]);
        return at == m_sets.end() ? nullptr : &at->second;
    }
    bool free(const ads_name name) { return find(name) != nullptr && m_sets.erase(name[0]) == 1; }
    void clear() { m_sets.clear(); }

private:
    /// Second word of a set's name; entities have another one there.
    static constexpr std::intptr_t kMark = 0x5E7;
    std::map<std::intptr_t, std::vector<AcDbObjectId>> m_sets;
    std::intptr_t m_last = 0;
};

}  // namespace prancheta
