// SPDX-License-Identifier: MIT
// List of texts.
#include "zp/forja/zpstringlist.h"

#include <algorithm>

int ZpStringList::index(const ZpString& text) const {
    const auto found = std::find(m_items.begin(), m_items.end(), text);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

const ZpString& ZpStringList::at(int position) const {
    static const ZpString kEmpty;
    return position >= 0 && position < length() ? m_items[static_cast<std::size_t>(position)]
                                                : kEmpty;
}

void ZpStringList::setAt(int position, const ZpString& text) {
    if (position >= 0 && position < length()) m_items[static_cast<std::size_t>(position)] = text;
}

void ZpStringList::removeAt(int position) {
    if (position >= 0 && position < length()) m_items.erase(m_items.begin() + position);
}
