// SPDX-License-Identifier: MIT
// Sources of sizes of the welded I: the user's favourites and the three standard series.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace perfis {

inline constexpr int kFavourites = 0;

/// A source; its place in the table is the sub-type of the entity.
struct WeldedSource {
    const wchar_t* radio;   ///< tile that chooses it
    const wchar_t* shown;   ///< list file whose lines are shown
    const wchar_t* values;  ///< list file whose line at the same place carries the numbers
    const wchar_t* header;  ///< of the columns shown
};

inline constexpr int kWeldedSourceCount = 4;
/// 0 favourites, 1 VS, 2 CVS, 3 CS.
const WeldedSource& weldedSource(int source);

/// Lines of a value file; none when it is missing.
std::vector<std::wstring> weldedRows(std::wstring_view path);
/// Fields of line `index` of a value file: H, B, tf, tw in mm and kg/m, as texts. None when the
/// file or the line is missing.
std::vector<std::wstring> weldedValues(std::wstring_view path, int index);

}  // namespace perfis
