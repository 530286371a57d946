// SPDX-License-Identifier: MIT
// A slide: strokes and filled polygons recorded in pixels.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "prancheta/base/result.h"

namespace prancheta::slides {

/// Pixel of the recording screen: origin lower left, y up.
struct Pixel {
    std::int16_t x = 0;
    std::int16_t y = 0;
    bool operator==(const Pixel&) const = default;
};

/// A stroke has two points, a filled polygon three or more.
struct Element {
    std::uint8_t color = 7;  ///< colour index
    std::vector<Pixel> points;
    bool operator==(const Element&) const = default;
};

struct Slide {
    int width = 0;  ///< pixels of the recording screen
    int height = 0;
    double aspect = 1.0;            ///< physical width / height
    std::vector<Element> elements;  ///< in file order: later ones cover earlier ones
};

/// Decodes a `.sld` image, either byte order, current and old header. Bytes after its end are left
/// alone. Errors carry the offset in their text.
Result<Slide> readSlide(std::string_view bytes);

/// Little-endian, current header. What the format cannot hold is left out: polygons of more than 10
/// points or with a corner below the screen, strokes that lie wholly to the left of it.
std::string writeSlide(const Slide& slide);

}  // namespace prancheta::slides
