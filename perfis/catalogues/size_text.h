// SPDX-License-Identifier: MIT
// The words and numbers of a size, however it is written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace perfis {

/// A number of a size as it is written.
struct SizeNumber {
    /// Of a text with an inch sign or a fraction, a number without either may be mm or inches.
    enum class Unit { kMm, kInches, kEither };
    std::wstring digits;  ///< as written, with a decimal point; empty for a fraction
    std::wstring typed;   ///< all of it, for messages
    double value = 0.0;   ///< in its own unit
    Unit unit = Unit::kMm;
};

/// "W 200 x 46,1": words in small letters and numbers, both in their order. An x between numbers,
/// units and what stands before an equals sign are no words; the 2 of "2L" belongs to its word. The
/// forms of built-ups are words, x and + where they stand behind a "2L"; so is every sign that
/// nobody writes in a size.
struct SizeText {
    std::vector<std::wstring> words;
    std::vector<SizeNumber> numbers;
};
SizeText readSize(std::wstring_view text);

}  // namespace perfis
