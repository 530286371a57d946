// SPDX-License-Identifier: MIT
// Colours of the drawing area.
#include "prancheta/desktop/canvas/palette.h"

namespace prancheta::desktop {

const Palette& darkPalette() {
    static const Palette palette{QColor(30, 36, 44),    QColor(48, 56, 67),
                                 QColor(70, 80, 94),    QColor(225, 228, 232),
                                 QColor(255, 176, 46),  QColor(58, 66, 78),
                                 QColor(240, 242, 245), QColor(70, 150, 255),
                                 QColor(80, 230, 90),   true};
    return palette;
}

const Palette& lightPalette() {
    static const Palette palette{QColor(255, 255, 255), QColor(226, 230, 235),
                                 QColor(196, 203, 211), QColor(40, 44, 50),
                                 QColor(200, 100, 0),   QColor(250, 250, 225),
                                 QColor(20, 24, 30),    QColor(30, 110, 235),
                                 QColor(0, 140, 40),    false};
    return palette;
}

const Palette& contrastPalette() {
    static const Palette palette{QColor(0, 0, 0),       QColor(64, 64, 64),
                                 QColor(112, 112, 112), QColor(255, 255, 255),
                                 QColor(255, 255, 0),   QColor(0, 0, 0),
                                 QColor(255, 255, 255), QColor(0, 200, 255),
                                 QColor(0, 255, 0),     true};
    return palette;
}

}  // namespace prancheta::desktop
