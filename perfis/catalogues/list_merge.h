// SPDX-License-Identifier: MIT
// Edits of one list by two programs at once.
#pragma once

#include <string>
#include <vector>

namespace perfis {

using Rows = std::vector<std::wstring>;

/// What the list becomes when `mine` and `theirs` were both made of `before`: their rows, without
/// those that I took out, with those that I put in. A row of mine takes the place of the one that
/// it replaced where that is still there, otherwise it goes to the end; a row that both put in
/// stands there once. O(n log n).
Rows mergedRows(const Rows& before, const Rows& mine, const Rows& theirs);

}  // namespace perfis
