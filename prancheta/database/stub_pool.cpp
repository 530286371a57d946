// SPDX-License-Identifier: MIT
// Records of objects, at addresses that never move.
#include "prancheta/database/stub_pool.h"

#include <map>

namespace prancheta {
namespace {

/// First record of every chunk with the number of records in use; keyed by address, because what is
/// asked about may point anywhere.
std::map<std::uintptr_t, std::size_t>& chunkTable() {
    static std::map<std::uintptr_t, std::size_t> table;
    return table;
}

std::uintptr_t addressOf(const AcDbStub* stub) { return reinterpret_cast<std::uintptr_t>(stub); }

}  // namespace

StubPool::~StubPool() {
    for (const auto& chunk : m_chunks) chunkTable().erase(addressOf(chunk.get()));
}

AcDbStub& StubPool::add() {
    if (m_size % kChunk == 0) m_chunks.push_back(std::make_unique<AcDbStub[]>(kChunk));
    AcDbStub* first = m_chunks.back().get();
    chunkTable()[addressOf(first)] = m_size % kChunk + 1;
    return first[m_size++ % kChunk];
}

bool StubPool::owns(const AcDbStub* stub) {
    const auto& table = chunkTable();
    auto next = table.upper_bound(addressOf(stub));
    if (next == table.begin()) return false;
    const auto& [first, used] = *std::prev(next);
    const std::uintptr_t offset = addressOf(stub) - first;
    return offset % sizeof(AcDbStub) == 0 && offset / sizeof(AcDbStub) < used;
}

}  // namespace prancheta
