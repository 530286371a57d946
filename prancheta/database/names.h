// SPDX-License-Identifier: MIT
// Names of symbol table records.
#pragma once

#include <string_view>

namespace prancheta {

/// 1 to 255 characters, none of them forbidden in drawings. A block's name may begin with `*`.
bool isValidName(std::wstring_view name, bool isBlock);

/// Names that every drawing has and nobody may change.
bool isReservedName(std::wstring_view name);

}  // namespace prancheta
