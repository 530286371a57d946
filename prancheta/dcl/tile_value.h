// SPDX-License-Identifier: MIT
// Values of tiles: what each kind accepts, and what follows from it.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "prancheta/dcl/dialog.h"

namespace prancheta::dcl {

/// Gives a tile a value as a program does; false when no such value exists for it, and nothing
/// changes. Radio clusters and their buttons move together. Rows beyond a list are left out.
bool setValue(Tile& tile, std::wstring_view value);

/// Presses the button and releases the others of its cluster.
void pressRadioButton(Tile& button);

/// Row numbers with blanks between, in rising order and each once; empty when the text is something
/// else.
std::optional<std::vector<std::size_t>> rowNumbers(std::wstring_view text);

/// A popup always shows a row when it has one.
void showFirstRow(Tile& list);

struct SliderRange {
    int start;  ///< its minimum, which may be the larger number
    int low;
    int high;
};
SliderRange sliderRange(const Tile& slider);

/// Number of an attribute; `fallback` when it is absent or no number.
double numberAttribute(const Tile& tile, std::string_view name, double fallback);
bool flagAttribute(const Tile& tile, std::string_view name);

}  // namespace prancheta::dcl
