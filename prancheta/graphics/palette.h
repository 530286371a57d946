// SPDX-License-Identifier: MIT
// The palette of indexed colours.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace prancheta {

struct Rgb {
    std::uint8_t red = 255, green = 255, blue = 255;
    bool operator==(const Rgb&) const = default;
};

/// Colour 1..255 of the index palette. 7 is white here: whoever draws on a light ground draws it
/// black.
Rgb paletteColor(int index);

/// Three whole numbers of 0 to 255 with commas between them; nothing for all else.
std::optional<Rgb> readRgb(std::wstring_view text);
std::wstring rgbText(Rgb color);

/// Red in the highest of three bytes, as files number true colours; higher ones do not count.
Rgb rgbOf(long long number);
long long numberOf(Rgb color);

/// Index of the colour that is nearest by the distance of the three shares; the least of several.
int nearestIndex(Rgb color);

}  // namespace prancheta
