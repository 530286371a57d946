// SPDX-License-Identifier: MIT
// What the commands ask that make sheets.
#pragma once

#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// A name that no tab has; empty after Esc. No name is offered for an empty `usual`.
Task<std::wstring> askTabName(CommandContext context, std::wstring question, std::wstring usual);
/// [Paisagem/Retrato]: the keyword Portrait, or that it lies.
Task<InputValue> askOrientation(CommandContext context);

}  // namespace prancheta::commands
