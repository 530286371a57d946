// SPDX-License-Identifier: MIT
// The palette of indexed colours.
#include "prancheta/graphics/palette.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"

namespace prancheta {
namespace {

constexpr int kWhite = 7;

constexpr Rgb kFixed[] = {
    {255, 255, 255}, {255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},
    {0, 0, 255},     {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192},
};

/// Truncated, as the palette is published.
std::uint8_t level(double share) { return static_cast<std::uint8_t>(share * 255.0 + 1e-9); }

/// Hue in degrees, the others 0 to 1.
Rgb fromHsv(double hue, double saturation, double value) {
    const auto channel = [&](double shift) {
        const double k = std::fmod(shift + hue / 60.0, 6.0);
        return level(value - value * saturation * std::clamp(std::min(k, 4.0 - k), 0.0, 1.0));
    };
    return {channel(5.0), channel(3.0), channel(1.0)};
}

}  // namespace

Rgb paletteColor(int index) {
    if (index < 1 || index > 255) return kFixed[kWhite];
    if (index < 10) return kFixed[index];
    if (index >= 250) {
        const double grey = 0.2 + 0.16 * (index - 250);
        return {level(grey), level(grey), level(grey)};
    }
    constexpr double kValues[] = {1.0, 0.65, 0.5, 0.3, 0.15};
    const int hues = index / 10 - 1;
    const double hue = 15.0 * hues;
    return fromHsv(hue, index % 2 == 0 ? 1.0 : 0.5, kValues[index % 10 / 2]);
}

std::optional<Rgb> readRgb(std::wstring_view text) {
    std::uint8_t shares[3];
    for (int i = 0; i < 3; ++i) {
        const std::size_t comma = i < 2 ? text.find(L',') : text.size();
        double share = 0.0;
        if (comma == std::wstring_view::npos || !parseNumber(trim(text.substr(0, comma)), share) ||
            share < 0.0 || share > 255.0 || share != std::floor(share))
            return {};
        shares[i] = static_cast<std::uint8_t>(share);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return Rgb{shares[0], shares[1], shares[2]};
}

std::wstring rgbText(Rgb color) {
    return std::to_wstring(color.red) + L"," + std::to_wstring(color.green) + L"," +
           std::to_wstring(color.blue);
}

Rgb rgbOf(long long number) {
    const auto share = [number](int shift) {
        return static_cast<std::uint8_t>(number >> shift & 0xFF);
    };
    return {share(16), share(8), share(0)};
}

long long numberOf(Rgb color) { return color.red << 16 | color.green << 8 | color.blue; }

int nearestIndex(Rgb color) {
    const auto distance = [color](int index) {
        const Rgb known = paletteColor(index);
        const int red = known.red - color.red;
        const int green = known.green - color.green;
        const int blue = known.blue - color.blue;
        return red * red + green * green + blue * blue;
    };
    int nearest = 1;
    for (int index = 2; index <= 255; ++index)
        if (distance(index) < distance(nearest)) nearest = index;
    return nearest;
}

}  // namespace prancheta
