// SPDX-License-Identifier: MIT
// The colours of the window.
#pragma once

#include <QPalette>

namespace prancheta::desktop {

enum class Theme {
    System,  ///< what the desktop sets
    Light,
    Dark,
    Contrast,  ///< white on black
};

/// Colours of a theme; of System those that the program was started with.
QPalette paletteOf(Theme theme);

/// For the whole program, windows that are open too.
void applyTheme(Theme theme);

}  // namespace prancheta::desktop
