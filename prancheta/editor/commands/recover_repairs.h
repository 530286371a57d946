// SPDX-License-Identifier: MIT
// What RECOVER makes of a drawing that was read from a damaged file, so that it can be saved whole.
#pragma once

#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// Kept objects belong to the dictionaries that name them again, or go; names lose characters that
/// none may have; references to nothing become null; what strict readers would still refuse is
/// left out. Tells each; how many. For drawings just read: no undo brings it back.
std::size_t repairRecovered(const CommandContext& context);

}  // namespace prancheta::commands
