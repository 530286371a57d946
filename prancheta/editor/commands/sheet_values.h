// SPDX-License-Identifier: MIT
// What the program itself writes into the title block of a sheet.
#pragma once

#include <string_view>
#include <vector>

#include "prancheta/database/layouts.h"
#include "prancheta/editor/command.h"

namespace prancheta::commands {

struct SheetValue {
    const wchar_t* tag;
    std::wstring value;
};

/// The sheet's number among those with a title block, from 1, and theirs.
struct SheetNumber {
    std::size_t number;
    std::size_t count;
};

/// Scale, number, weight of the material lists, file and date.
std::vector<SheetValue> filledValues(const CommandContext& context, const Tab& sheet,
                                     SheetNumber number);
/// True for a field among them.
bool isFilled(std::wstring_view tag);

}  // namespace prancheta::commands
