// SPDX-License-Identifier: MIT
// Small pictures drawn by hand, readable on light and dark grounds.
#pragma once

#include <QColor>
#include <QIcon>

namespace prancheta::desktop {

enum class Glyph {
    On,
    Off,
    Frozen,
    Thawed,
    Locked,
    Unlocked,
    Plotted,
    NotPlotted,
    Current,
    Add,
    Remove
};

/// Side of the pictures, pixels of the layout.
inline constexpr int kIconSize = 16;

/// Made once for each glyph and ground, then shared. `ink` is the colour of texts beside it.
QIcon glyphIcon(Glyph glyph, const QColor& ink);
/// Colour 1..255 of the palette, and 7 as half black and half white. ByLayer and ByBlock are empty
/// frames.
QIcon swatchIcon(int color, const QColor& frame);
QColor swatchColor(int color);

}  // namespace prancheta::desktop
