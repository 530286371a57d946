// SPDX-License-Identifier: MIT
// What names of layers, blocks, styles may not hold.
#pragma once

#include <string_view>

namespace prancheta {

/// Characters, beside control characters, that no name of a symbol table record has. The comma is
/// one of them: it parts the names of a list.
inline constexpr std::string_view kForbiddenInNames = "<>/\\\":;?*|,=`";

}  // namespace prancheta
