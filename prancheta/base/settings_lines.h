// SPDX-License-Identifier: MIT
// Settings files that people write: lines, `;` before comments.
#pragma once

#include <string_view>
#include <vector>

namespace prancheta {

struct SettingsLine {
    std::string_view text;  ///< without comment and blanks around it, never empty; of the file
    int number = 0;         ///< from 1
};

/// A byte-order mark is passed over. O(bytes).
std::vector<SettingsLine> settingsLines(std::string_view file);

/// Parts between separators, without blanks around them; one at least.
std::vector<std::wstring_view> partsOf(std::wstring_view line, wchar_t separator);

}  // namespace prancheta
