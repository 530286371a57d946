// SPDX-License-Identifier: MIT
// Dialog files on disk: found, read and brought to UTF-8.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "prancheta/base/result.h"
#include "prancheta/dcl/definition.h"

namespace prancheta::dcl {

/// Path of a dialog file as a program or an include names it (backslashes, any case, `.dcl` left
/// out). A relative name is looked for in the current folder, then in `folder` when that is not
/// empty. What is not found keeps its spelling.
std::filesystem::path findSource(std::string_view name, const std::filesystem::path& folder = {});

/// Whole text as UTF-8 without byte-order mark; a file that is not valid UTF-8 is Windows-1252.
Result<std::string> readSource(const std::filesystem::path& path);

/// Date and size of the file now; zero when there is none.
SourceStamp stampOf(const std::filesystem::path& path);

}  // namespace prancheta::dcl
