// SPDX-License-Identifier: MIT
// Packed groups: code less 1000 and length in a byte each when they fit, else 255 and four bytes.
#include "prancheta/database/object_extra.h"

#include <cstdint>
#include <cstring>

namespace prancheta {
namespace {

constexpr std::uint8_t kLong = 255;
constexpr int kFirstCode = 1000;

using Word = std::uint32_t;

std::size_t sizeOfNumber(Word value) { return value < kLong ? 1 : 1 + sizeof value; }

char* putNumber(char* to, Word value) {
    if (value < kLong) {
        *to = static_cast<char>(value);
        return to + 1;
    }
    *to = static_cast<char>(kLong);
    std::memcpy(to + 1, &value, sizeof value);
    return to + 1 + sizeof value;
}

const char* takeNumber(const char* from, Word& value) {
    value = static_cast<std::uint8_t>(*from++);
    if (value < kLong) return from;
    std::memcpy(&value, from, sizeof value);
    return from + sizeof value;
}

Word packedCode(int code) { return static_cast<Word>(code - kFirstCode); }

}  // namespace

PackedTags::PackedTags(const RawTags& tags) {
    if (tags.empty()) return;
    std::size_t size = 0;
    for (const RawTag& tag : tags)
        size += sizeOfNumber(packedCode(tag.code)) +
                sizeOfNumber(static_cast<Word>(tag.value.size())) + tag.value.size();
    m_bytes = std::make_unique_for_overwrite<char[]>(sizeof(Word) + size);
    const Word length = static_cast<Word>(size);
    std::memcpy(m_bytes.get(), &length, sizeof length);
    char* to = m_bytes.get() + sizeof length;
    for (const RawTag& tag : tags) {
        to = putNumber(to, packedCode(tag.code));
        to = putNumber(to, static_cast<Word>(tag.value.size()));
        to += tag.value.copy(to, tag.value.size());
    }
}

PackedTags::operator RawTags() const {
    RawTags tags;
    tags.reserve(size());
    for (const RawTagView& tag : *this) tags.push_back({tag.code, std::string(tag.value)});
    return tags;
}

const char* PackedTags::first() const { return m_bytes ? m_bytes.get() + sizeof(Word) : nullptr; }

const char* PackedTags::last() const {
    if (!m_bytes) return nullptr;
    Word length = 0;
    std::memcpy(&length, m_bytes.get(), sizeof length);
    return first() + length;
}

void PackedTags::Iterator::read() {
    if (m_at == m_end) return;
    Word code = 0;
    Word length = 0;
    const char* const value = takeNumber(takeNumber(m_at, code), length);
    m_tag = {static_cast<int>(code) + kFirstCode, {value, length}};
    m_next = value + length;
}

}  // namespace prancheta
