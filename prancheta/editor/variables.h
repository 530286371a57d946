// SPDX-License-Identifier: MIT
// System variables at the command line.
#pragma once

#include <string>
#include <string_view>

#include "prancheta/base/result.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/editor/command.h"

namespace prancheta {

/// Value as it is shown and typed: numbers with decimal point, points as "x,y,z".
std::wstring variableText(const VariableValue& value);
/// What was typed, as a value of the variable's type. Points are read by `frame`'s rules elsewhere.
Result<VariableValue> readVariable(const VariableInfo& info, std::wstring_view text);
/// Shows a read-only variable, or asks "Digite novo valor para X <...>:" and sets it. The name is
/// one that exists.
CommandTask askVariable(CommandContext context, std::wstring name);

}  // namespace prancheta
