// SPDX-License-Identifier: MIT
// Paints what a program put into an image tile, sharp at any resolution.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>

#include <vector>

#include "prancheta/dcl/dialog.h"

namespace prancheta::desktop {

/// Colours that image tiles know by number: the drawing's palette, and negative ones of the dialog.
class ImageColors {
public:
    ImageColors(const QPalette& palette, const QColor& ground)
        : m_palette(palette), m_ground(ground) {}

    /// As a fill: 7 is white, an unknown number is the dialog's ground.
    QColor fill(int index) const;
    /// As a stroke on `ground`: 7 and 0 stand out from it.
    QColor stroke(int index, const QColor& ground) const;

private:
    QPalette m_palette;
    QColor m_ground;
};

/// Paints in the order of the calls, clipped to a tile of `size` logical pixels at the painter's
/// origin. `ground` is what the tile has before anything is painted.
void paintImage(QPainter& painter, const std::vector<dcl::Paint>& paints, const QSize& size,
                const QColor& ground, const ImageColors& colors);

}  // namespace prancheta::desktop
