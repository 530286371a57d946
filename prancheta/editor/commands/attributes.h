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

/// Asks for those that are not preset, whatever ATTREQ says: Enter keeps the value, a lone point
/// empties it. RTCAN after Esc.
Task<int> askAttributes(CommandContext context, AcDbBlockReference* insertion);

/// A copy of an insertion to ask about, so that nothing is open meanwhile and Esc leaves all as it
/// was; null when it cannot be read.
std::unique_ptr<AcDbBlockReference> draftOf(AcDbObjectId insertion);
/// Gives the insertion the values of its draft; false when it cannot be changed.
bool takeValues(AcDbObjectId insertion, const AcDbBlockReference& draft);

}  // namespace prancheta::commands
