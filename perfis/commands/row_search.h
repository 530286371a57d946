// SPDX-License-Identifier: MIT
// The rows that a dialog's list shows: all of them, or those that fit what is searched for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "perfis/catalogues/search.h"
#include "perfis/commands/list_row.h"

namespace perfis {

/// Rows count from 0, in the whole list or as they are shown.
class RowSearch {
public:
    /// The whole list is shown; its rows may be others than before.
    void reset() { *this = RowSearch(); }
    bool isWhole() const { return !m_shown; }

    /// Shows what fits; the rows are those of the list in force, whose number is `source`.
    /// Returns what the nearest row has instead where none fits, else an empty text.
    std::wstring search(const std::wstring& query, const PerfilDescription& description,
                        const std::vector<ListRow>& rows, int source);

    /// Row of the whole list for a row that is shown, and back; -1 when there is none.
    int rowAt(int shown) const;
    int shownAs(int row) const;
    const std::vector<std::size_t>& shown() const { return *m_shown; }

private:
    std::optional<SizeSearch> m_index;  ///< made at the first search
    std::optional<std::vector<std::size_t>> m_shown;
};

}  // namespace perfis
