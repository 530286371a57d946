// SPDX-License-Identifier: MIT
// Searching in the rows of a dialog's list.
#include "perfis/commands/row_search.h"

#include <algorithm>

namespace perfis {

std::wstring RowSearch::search(const std::wstring& query, const PerfilDescription& description,
                               const std::vector<ListRow>& rows, int source) {
    if (!m_index) {
        m_index.emplace();
        for (const ListRow& row : rows)
            m_index->add(writingsOf(description, row, source), medidasOf(description, row).m);
    }
    SizeSearch::Found found = m_index->find(query);
    m_shown = std::move(found.rows);
    return found.difference;
}

int RowSearch::rowAt(int shown) const {
    if (!m_shown || shown < 0) return shown;
    const auto index = static_cast<std::size_t>(shown);
    return index < m_shown->size() ? static_cast<int>((*m_shown)[index]) : -1;
}

int RowSearch::shownAs(int row) const {
    if (!m_shown || row < 0) return row;
    const auto place = std::ranges::find(*m_shown, static_cast<std::size_t>(row));
    return place == m_shown->end() ? -1 : static_cast<int>(place - m_shown->begin());
}

}  // namespace perfis
