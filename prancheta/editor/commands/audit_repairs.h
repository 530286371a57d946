// SPDX-License-Identifier: MIT
// What AUDIT can put right.
#pragma once

#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// In what objects keep of foreign files: references to what the drawing does not have become null,
/// control characters in texts blanks. Tells each; how many. O(objects + groups kept).
std::size_t repairKept(const CommandContext& context);
/// The same in what no object stands for, which no undo brings back: for drawings just read.
std::size_t repairForeign(const CommandContext& context);

}  // namespace prancheta::commands
