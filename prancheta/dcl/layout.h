// SPDX-License-Identifier: MIT
// Where every tile of a dialog stands.
//
// Design. Two passes over the tree, each linear. Upwards: every tile's natural size, from its
// attributes, label and kind, never from values or rows. Downwards: a cluster hands its room to its
// children; across its long axis they are stretched or aligned, along it the extra room goes in
// equal shares to those that may grow, and into even gaps when none may. The dialog gets its
// natural size, so extra room arises only between siblings of different size. Sizes are reckoned in
// pixels from the metrics of the font and rounded at the end, edge by edge, so that neighbours
// which touch still touch.
#pragma once

#include <string>
#include <vector>

#include "prancheta/dcl/dialog.h"

namespace prancheta::dcl {

/// Pixels; origin upper left of the dialog's inside, y down.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

struct Box {
    const Tile* tile = nullptr;
    int level = 0;  ///< 0 = the dialog
    Rect frame;
    /// Input part of an edit box or popup, rows of a list box, inside of a cluster; otherwise as
    /// `frame`.
    Rect part;
};

/// Boxes in the order of the file, the dialog first. Points to the tiles, which must outlive it.
struct Layout {
    std::vector<Box> boxes;

    /// Null for a tile of another dialog.
    const Box* find(const Tile& tile) const;
};

Layout layOut(const Tile& root, const Metrics& metrics);

/// One line a tile: indent by level, kind, key (or "-"), "x,y widthxheight", and the part in
/// brackets where a tile has one of its own.
std::string dumpLayout(const Layout& layout);

/// Label without its mnemonic mark ("&Altura" to "Altura", "&&" to "&").
std::wstring labelText(const Tile& tile);

}  // namespace prancheta::dcl
