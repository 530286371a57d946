// SPDX-License-Identifier: MIT
// Mapped files that another program shortens.
#pragma once

#include <cstddef>

namespace prancheta {

/// The system ends a program that looks at a page which the mapped file has lost. While this lives
/// such pages of the range, and those behind, read as zeros instead. Any thread.
class BusGuard {
public:
    BusGuard() = default;
    ~BusGuard();
    BusGuard(const BusGuard&) = delete;
    BusGuard& operator=(const BusGuard&) = delete;

    /// False when too many ranges are guarded already. Once.
    bool watch(const void* begin, std::size_t size);
    /// True once a lost page was looked at.
    bool hit() const;

private:
    int m_slot = -1;
};

}  // namespace prancheta
