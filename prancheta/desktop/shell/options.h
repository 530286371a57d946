// SPDX-License-Identifier: MIT
// What the user sets for the window, kept between sessions.
#pragma once

#include <QString>

#include "prancheta/desktop/canvas/palette.h"
#include "prancheta/desktop/shell/theme.h"

namespace prancheta::desktop {

struct WindowOptions {
    Theme theme = Theme::System;
    bool darkGround = true;  ///< of the drawing area, but with Theme::Contrast
    QColor ground;           ///< these three: invalid for the colour that goes with the ground
    QColor cursor;
    QColor snap;
    bool decimalPoint = false;  ///< in panels and dialogs of the window, else a comma
    QString font;               ///< of the window, as QFont::toString(); empty: the system's
    QString commandFont;        ///< of the command line; empty: the system's of fixed pitch
    int crosshair = 100;        ///< percent of the screen, CURSORSIZE
    int pickBox = 3;            ///< half its side in pixels, PICKBOX
    bool grips = true;          ///< GRIPS
    int gripSize = 5;           ///< half its side in pixels, GRIPSIZE
    int snaps = 4135;           ///< object snaps of a new session, OSMODE
    int recoveryMinutes = 10;   ///< 0: no recovery copies
    QString templateFile;       ///< of new drawings; empty: that of the installation folder
    QString drawingFolder;      ///< where file windows begin; empty: where the last one ended

    static WindowOptions load();
    void save() const;
    /// Of the drawing area.
    Palette colors() const;
};

}  // namespace prancheta::desktop
