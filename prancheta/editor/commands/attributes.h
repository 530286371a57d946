// SPDX-License-Identifier: MIT
// Questions about the attributes of insertions.
#pragma once

#include "dbents.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// Asks for the attributes of a new insertion, which has them as they are offered: for each that is
/// not preset, and once more for those that are to be verified. ATTREQ 0 asks for none. RTCAN after
/// Esc.
Task<int> askNewAttributes(CommandContext context, AcDbBlockReference* insertion);

}  // namespace prancheta::commands
