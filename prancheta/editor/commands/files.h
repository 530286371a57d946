// SPDX-License-Identifier: MIT
// File names on the command line.
#pragma once

#include <filesystem>
#include <string_view>

namespace prancheta::commands {

/// Path as typed: quotation marks around it are dropped, `\` separates folders.
std::filesystem::path typedPath(std::wstring_view text);

}  // namespace prancheta::commands
