// SPDX-License-Identifier: MIT
// The palette of indexed colours.
#pragma once

#include <cstdint>

namespace prancheta {

struct Rgb {
    std::uint8_t red = 255, green = 255, blue = 255;
    bool operator==(const Rgb&) const = default;
};

/// Colour 1..255 of the index palette. 7 is white here: whoever draws on a light ground draws it
/// black.
Rgb paletteColor(int index);

/// Index of the colour that is nearest by the distance of the three shares; the least of several.
int nearestIndex(Rgb color);

}  // namespace prancheta
