// SPDX-License-Identifier: MIT
// Whether the numbers that a user typed are those of a size, and how far they are from them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "perfis/catalogues/size_text.h"

namespace perfis {

using SizeNumbers = std::vector<SizeNumber>;

/// mm; what may be inches beside a number that is, is.
double inMm(const SizeNumber& n);

/// In any unit in which both may be read; sizes are one within the rounding of the lists.
bool isSame(const SizeNumber& a, const SizeNumber& b);

/// Each number that was typed is the row's at its place, or that without its last decimals.
bool saysTheSame(const SizeNumbers& typed, const SizeNumbers& has);

/// {sum of fits, sum of places apart}, the better the smaller; nothing when a typed number fits
/// none. A number fits that is the same or begins so; with `repair` also with one digit more.
std::optional<std::array<int, 2>> numbersFit(const SizeNumbers& typed, const SizeNumbers& has,
                                             bool repair);

/// How far a row is from the numbers that were typed.
struct SizeDistance {
    int numbers = 0;  ///< that differ; one that the row lacks counts twice
    double sum = 0.0;
    std::vector<std::optional<std::size_t>> pairs;  ///< the row's number for each that was typed
    auto key() const { return std::pair(numbers, sum); }
};

/// `mass` is that of the row, 0 for none. It is paired with a number that is the same, or that was
/// typed where the name of the size has it, as in "W 200x46".
SizeDistance distanceOf(const SizeNumbers& typed, const SizeNumbers& has, double mass);

/// What the size `has`, whose distance it is, has instead: in the order that was typed, for users.
std::wstring differenceInWords(const SizeDistance& distance, const SizeNumbers& typed,
                               const SizeNumbers& has);

/// "a, b, c".
std::wstring joined(const std::vector<std::wstring>& parts);

}  // namespace perfis
