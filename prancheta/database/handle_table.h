// SPDX-License-Identifier: MIT
// Records by handle. Handles are nearly always given one after the other, so they are kept in short
// runs: a run costs a pointer a handle, and far-apart handles of a foreign file cost one run each.
#pragma once

#include <array>
#include <cstddef>
#include <unordered_map>

#include "adesk.h"

class AcDbStub;

namespace prancheta {

class HandleTable {
public:
    /// Null when nobody has this handle. O(1).
    AcDbStub* find(Adesk::UInt64 handle) const {
        const auto found = m_runs.find(handle / kRun);
        return found != m_runs.end() ? found->second[handle % kRun] : nullptr;
    }
    /// False, and no change, when the handle is taken.
    bool add(Adesk::UInt64 handle, AcDbStub* stub) {
        AcDbStub*& place = m_runs[handle / kRun][handle % kRun];
        if (place != nullptr) return false;
        place = stub;
        return true;
    }
    void remove(Adesk::UInt64 handle) {
        if (const auto found = m_runs.find(handle / kRun); found != m_runs.end())
            found->second[handle % kRun] = nullptr;
    }

private:
    static constexpr std::size_t kRun = 16;
    std::unordered_map<Adesk::UInt64, std::array<AcDbStub*, kRun>> m_runs;
};

}  // namespace prancheta
