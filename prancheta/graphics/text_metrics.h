// SPDX-License-Identifier: MIT
// Size of texts, estimated without fonts: enough to pick, to zoom and to place dimension texts.
#pragma once

#include <array>
#include <string_view>

#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Width of one line of text, drawing units. Codes such as %%c count as one character.
double textWidth(std::wstring_view text, double height, double widthFactor);

/// Corners of a text primitive's box, counter-clockwise from the left end of the baseline.
std::array<AcGePoint3d, 4> textBox(const PrimitiveView& text);

}  // namespace prancheta
