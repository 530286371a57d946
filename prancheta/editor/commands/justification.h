// SPDX-License-Identifier: MIT
// By which point a line of text stands.
#pragma once

#include "dbents.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

struct Justification {
    Word word;
    const wchar_t* prompt;
    int horizontal;  ///< DXF 72
    int vertical;    ///< DXF 73
};
/// The first one is the left end of the baseline, by which a text stands if nothing is said.
std::span<const Justification> justifications();

/// Asks which, and for the point; `chosen` receives it.
Task<InputValue> askJustifiedPoint(CommandContext context, const Justification** chosen);
/// Puts a text that has its words, style and size there.
void placeText(AcDbText& text, const AcGePoint3d& at, const Justification& justification);

}  // namespace prancheta::commands
