// SPDX-License-Identifier: MIT
// Columns of a list row, by the tab stops of its list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prancheta/dcl/dialog.h"

namespace prancheta::dcl {

/// Piece of a row between two tabs; pixels from the left edge of the rows.
struct Cell {
    std::wstring text;
    double x = 0;
    double room = 0;  ///< up to where the text is cut; 0 = not cut
};

/// The first cell starts at 0, every tab goes on to a stop of `tabs`, and beyond those to every
/// eighth character. With tab_truncate the n-th tab means the n-th stop and the text before it is
/// cut there; without, a long text pushes what follows on to the next free stop.
std::vector<Cell> cellsOf(const Tile& list, std::wstring_view row, const Metrics& metrics);

/// Words of a heading, parted by tabs or by blanks that stand together, each over its column of
/// `row`, which is parted likewise. Over a row with fewer columns, as an empty one, they stand at
/// the stops of `list`.
std::vector<Cell> headingOver(const Tile& list, std::wstring_view row, std::wstring_view heading,
                              const Metrics& metrics);

}  // namespace prancheta::dcl
