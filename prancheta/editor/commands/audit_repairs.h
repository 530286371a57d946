// SPDX-License-Identifier: MIT
// What AUDIT can put right.
#pragma once

#include <unordered_set>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/verify/verify.h"

namespace prancheta::commands {

/// In what objects keep of foreign files: references to what the drawing does not have become null,
/// control characters in texts blanks. Tells each; how many. O(objects + groups kept).
std::size_t repairKept(const CommandContext& context);
/// The same in what no object stands for, which no undo brings back: for drawings just read.
std::size_t repairForeign(const CommandContext& context);

/// Handles of all that a file of this drawing would have.
std::unordered_set<Adesk::UInt64> handlesOf(DatabaseCore& core);
/// The drawing as its file would be; nothing else changes.
Result<verify::Verdict> examineDrawing(const CommandContext& context);

}  // namespace prancheta::commands
