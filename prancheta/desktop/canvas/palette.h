// SPDX-License-Identifier: MIT
// Colours of the drawing area.
#pragma once

#include <QColor>

namespace prancheta::desktop {

struct Palette {
    QColor ground;
    QColor grid;
    QColor gridMajor;
    QColor cursor;
    QColor band;  ///< rubber bands
    QColor tag;   ///< ground of small texts
    QColor tagText;
    QColor highlight;
    QColor snap;  ///< markers of snaps and tracking
    bool dark;    ///< the ground is
    bool operator==(const Palette&) const = default;
};
const Palette& darkPalette();
const Palette& lightPalette();
/// Black, white and yellow, for who sees little.
const Palette& contrastPalette();

}  // namespace prancheta::desktop
