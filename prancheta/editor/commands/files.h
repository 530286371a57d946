// SPDX-License-Identifier: MIT
// File names on the command line.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "prancheta/editor/command.h"

namespace prancheta::commands {

/// Path as typed: quotation marks around it are dropped, `\` separates folders.
std::filesystem::path typedPath(std::wstring_view text);

/// With .dxf behind it where that is missing.
std::filesystem::path withExtension(std::filesystem::path path);

/// True when the user works by hand and wants windows for files (FILEDIA).
bool usesWindows(const CommandContext& context);
/// The file that the user chose in a window, empty when he chose none; nothing when the command has
/// to ask by text.
std::optional<std::filesystem::path> chosenFile(const CommandContext& context,
                                                const FileQuestion& question);

}  // namespace prancheta::commands
