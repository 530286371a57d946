// SPDX-License-Identifier: MIT
// Differences of lists as multisets of rows: catalogues are not read in sequence.
#include "perfis/catalogues/list_merge.h"

#include <cstddef>
#include <map>
#include <string_view>

namespace perfis {
namespace {

/// The views are of the rows that were counted.
using Count = std::map<std::wstring_view, std::ptrdiff_t>;

Count countOf(const Rows& rows) {
    Count count;
    for (const std::wstring& row : rows) ++count[row];
    return count;
}

/// Rows of `rows` beyond those of `others`, in their order.
Rows beyond(const Rows& rows, const Rows& others) {
    Count known = countOf(others);
    Rows out;
    for (const std::wstring& row : rows) {
        const auto at = known.find(row);
        if (at == known.end() || at->second-- <= 0) out.push_back(row);
    }
    return out;
}

}  // namespace

Rows mergedRows(const Rows& before, const Rows& mine, const Rows& theirs) {
    const Rows removed = beyond(before, mine);
    const Rows added = beyond(mine, before);
    const Rows addedByThem = beyond(theirs, before);
    const Count alreadyThere = countOf(addedByThem);
    std::multimap<std::wstring_view, std::size_t> leaving;
    for (std::size_t i = 0; i < removed.size(); ++i) leaving.emplace(removed[i], i);

    Rows merged;
    std::vector<bool> placed(added.size(), false);
    const auto put = [&](std::size_t i) {
        if (!alreadyThere.contains(added[i])) merged.push_back(added[i]);
        placed[i] = true;
    };
    for (const std::wstring& row : theirs) {
        const auto gone = leaving.find(row);
        if (gone == leaving.end()) {
            merged.push_back(row);
            continue;
        }
        // The i-th row that went made room for the i-th one that came.
        if (gone->second < added.size()) put(gone->second);
        leaving.erase(gone);
    }
    for (std::size_t i = 0; i < added.size(); ++i)
        if (!placed[i]) put(i);
    return merged;
}

}  // namespace perfis
