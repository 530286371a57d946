// SPDX-License-Identifier: MIT
// From object ids to small numbers: open addressing over four bytes an entry.
#pragma once

#include <cstdint>
#include <vector>

#include "dbid.h"

namespace prancheta {

/// The numbers are places in a list that the owner keeps; `idAt(number)` tells the id that stands
/// there. Nothing is ever taken out but by clear().
class IdTable {
public:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    void clear() {
        m_cells.clear();
        m_used = 0;
    }
    /// kNone for an id that is not in the table.
    template <class IdAt>
    std::uint32_t find(AcDbObjectId id, const IdAt& idAt) const {
        if (m_cells.empty()) return kNone;
        for (std::size_t at = start(id);; at = (at + 1) & (m_cells.size() - 1))
            if (m_cells[at] == kNone || idAt(m_cells[at]) == id) return m_cells[at];
    }
    /// The id is not in the table yet.
    template <class IdAt>
    void add(AcDbObjectId id, std::uint32_t number, const IdAt& idAt) {
        if (m_used + m_used / 2 >= m_cells.size()) grow(idAt);
        put(id, number);
        ++m_used;
    }
    std::size_t bytes() const { return m_cells.capacity() * sizeof(std::uint32_t); }

private:
    /// Records stand side by side: multiplying spreads their addresses.
    std::size_t start(AcDbObjectId id) const {
        const auto bits = static_cast<std::uint64_t>(id.asOldId()) * 0x9E3779B97F4A7C15u;
        return static_cast<std::size_t>(bits >> 32) & (m_cells.size() - 1);
    }
    void put(AcDbObjectId id, std::uint32_t number) {
        std::size_t at = start(id);
        while (m_cells[at] != kNone) at = (at + 1) & (m_cells.size() - 1);
        m_cells[at] = number;
    }
    template <class IdAt>
    void grow(const IdAt& idAt) {
        const std::vector<std::uint32_t> former = std::move(m_cells);
        m_cells.assign(former.empty() ? 64 : former.size() * 2, kNone);
        for (const std::uint32_t number : former)
            if (number != kNone) put(idAt(number), number);
    }

    std::vector<std::uint32_t> m_cells;  ///< a power of two
    std::size_t m_used = 0;
};

}  // namespace prancheta
