// SPDX-License-Identifier: MIT
// List of texts.
#pragma once

#include <vector>

#include "zp/forja/zpstring.h"

class ZpStringList {
public:
    void append(const ZpString& text) { m_items.push_back(text); }
    void clear() { m_items.clear(); }
    int length() const { return static_cast<int>(m_items.size()); }
    bool contains(const ZpString& text) const { return index(text) >= 0; }
    /// Position of the first equal text, -1 when there is none.
    int index(const ZpString& text) const;
    /// The element at a position; an empty text outside the list.
    const ZpString& at(int position) const;
    const ZpString& operator[](int position) const { return at(position); }
    /// Nothing happens outside the list.
    void setAt(int position, const ZpString& text);
    void removeAt(int position);

private:
    std::vector<ZpString> m_items;
};
