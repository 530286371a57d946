// SPDX-License-Identifier: MIT
// Letters without regard to case, blanks around a text. Letters are ASCII and the Latin ones of the
// code page 1252, whatever the locale.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace texts {

std::wstring lower(std::wstring_view text);
/// Of whole texts.
bool equalIgnoringCase(std::wstring_view a, std::wstring_view b);

/// Without spaces, tabs and line ends around it.
std::wstring trimmed(std::wstring_view text);
/// What stands before, between and behind the separators, trimmed.
std::vector<std::wstring> trimmedParts(std::wstring_view text, wchar_t separator);

}  // namespace texts
