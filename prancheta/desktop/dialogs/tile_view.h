// SPDX-License-Identifier: MIT
// The widget of one tile: how it is made, and how it follows the tile.
#pragma once

#include <QLabel>
#include <QWidget>

#include <functional>

#include "prancheta/dcl/dialog.h"
#include "prancheta/dcl/layout.h"

namespace prancheta::desktop {

/// What tile widgets need of the window around them.
class TileHost {
public:
    virtual ~TileHost() = default;
    virtual dcl::Dialog& dialog() = 0;
    /// Parent of all widgets; layout rectangles are in its pixels.
    virtual QWidget& face() = 0;
    /// Does what the user did at the tile. Refused: a beep, and the widget shows the tile again.
    /// The window may be over afterwards: callers must not go on.
    virtual void act(dcl::Tile& tile, const std::function<Result<void>()>& action) = 0;
};

/// Widgets belong to the face.
struct TileView {
    QWidget* widget = nullptr;   ///< has the keyboard and is enabled; null: nothing to see
    QLabel* label = nullptr;     ///< beside or above the widget
    std::function<void()> show;  ///< brings value, rows or picture up to date; may be empty
};

/// `box` in pixels of the dialog.
TileView makeTileView(TileHost& host, dcl::Tile& tile, const dcl::Box& box);

/// Label with its mnemonic as Qt marks it, also where the attribute `mnemonic` gives it.
QString mnemonicLabel(const dcl::Tile& tile);

QRect toRect(const dcl::Rect& rect);

}  // namespace prancheta::desktop
