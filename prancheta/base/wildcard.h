// SPDX-License-Identifier: MIT
// Names against patterns, as users type them.
#pragma once

#include <string_view>

namespace prancheta {

/// True when `name` fits one of the patterns, which are separated by commas; case ignored, blanks
/// about a pattern too. `*` any text, `?` any character, `#` a digit, `[ab-c]` one of these,
/// `[~ab]` none of these. O(name * pattern).
bool fitsWildcards(std::wstring_view name, std::wstring_view patterns);

}  // namespace prancheta
