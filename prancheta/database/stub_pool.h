// SPDX-License-Identifier: MIT
// Records of objects, at addresses that never move.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "dbmain.h"

/// One object's record. Lives as long as its database, also when the object is erased.
class AcDbStub {
public:
    AcDbDatabase* database = nullptr;
    AcDbObject* object = nullptr;  ///< owned; null: only the handle is known so far
    Adesk::UInt64 handle = 0;
    std::int16_t readers = 0;
    bool writer = false;
    bool erased = false;          ///< erased, or taken out by undo
    bool wasErased = false;       ///< when it was opened for write
    bool isNew = false;           ///< appended and not yet closed
    bool recorded = false;        ///< state kept for undo since it was opened for write
    bool modified = false;        ///< changed since it was opened for write
    std::uint8_t notifying = 0;   ///< open for notification so often
    std::uint8_t telling = 0;     ///< reactors are being told of it
    std::uint32_t undoGroup = 0;  ///< the undo group that holds a state of it, or its making
};

namespace prancheta {

/// Hands out records in chunks; knows all chunks of the process, so that a stray pointer can be
/// told from a record.
class StubPool {
public:
    StubPool() = default;
    ~StubPool();
    StubPool(const StubPool&) = delete;
    StubPool& operator=(const StubPool&) = delete;

    AcDbStub& add();
    std::size_t size() const { return m_size; }
    AcDbStub& operator[](std::size_t i) const { return m_chunks[i / kChunk][i % kChunk]; }

    /// True when `stub` is a record of some open database. O(log chunks).
    static bool owns(const AcDbStub* stub);

private:
    static constexpr std::size_t kChunk = 256;
    std::vector<std::unique_ptr<AcDbStub[]>> m_chunks;
    std::size_t m_size = 0;
};

}  // namespace prancheta
