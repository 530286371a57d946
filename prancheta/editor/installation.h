// SPDX-License-Identifier: MIT
// The installation folder that comes with the program, and the user's own copy of it.
#pragma once

#include <filesystem>

#include "prancheta/base/result.h"

namespace prancheta {

/// The folder to work with when nobody names one: `instalacao` beside the folder of the programs,
/// in place; of an installed system (`share/prancheta/instalacao`) the user's copy, since commands
/// write their lists there. The copy is made on first use and brought up to date after a new
/// version: dialogs, slides, menus and tables are replaced, lists and texts that the user may have
/// changed stay. Empty when there is none.
Result<std::filesystem::path> usableInstallation(const std::filesystem::path& programFolder);

}  // namespace prancheta
