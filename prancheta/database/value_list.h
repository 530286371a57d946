// SPDX-License-Identifier: MIT
// Typed lists: what kind of value stands behind a type or group code.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "acdb.h"
#include "acutads.h"

namespace prancheta {

enum class ValueKind { None, Text, Real, Point, Int16, Int32, Name, Binary, List, Unknown };

/// Kind of value of an RT* code or of a DXF group code. References (330 to 369, -1) are names,
/// handles (5, 105, 320 to 329, 390, 1005) texts.
ValueKind kindOfValue(int type);

struct ReleaseList {
    void operator()(resbuf* list) const { acutRelRb(list); }
};
using ListOwner = std::unique_ptr<resbuf, ReleaseList>;

/// Deep copy of a list; null for null.
ListOwner copyList(const resbuf* list);

/// New element that holds a copy of the text.
resbuf* newTextItem(int type, std::wstring_view text);

/// Builds a list item by item.
class ListBuilder {
public:
    void add(resbuf* item) {
        *m_end = item;
        m_end = &item->rbnext;
    }
    /// The caller frees the list.
    resbuf* release() {
        m_end = &m_first;
        return std::exchange(m_first, nullptr);
    }
    ListBuilder() = default;
    ~ListBuilder() { acutRelRb(m_first); }
    ListBuilder(const ListBuilder&) = delete;
    ListBuilder& operator=(const ListBuilder&) = delete;

private:
    resbuf* m_first = nullptr;
    resbuf** m_end = &m_first;
};

}  // namespace prancheta
