// SPDX-License-Identifier: MIT
// System variables at the command line.
#pragma once

#include <string>
#include <string_view>

#include "prancheta/base/result.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/editor/command.h"

namespace prancheta {

/// True for a variable that holds an angle: radians for programs, at the command line by AUNITS.
bool isAngleVariable(std::wstring_view name);
/// Value as it is shown at the command line, angles in the units of `angleUnits` (AUNITS).
std::wstring variableText(const VariableInfo& info, int angleUnits);
/// Value as it is shown and typed: numbers with decimal point, points as "x,y,z".
std::wstring variableText(const VariableValue& value);
/// What was typed, as a value of the variable's type; an angle in the units of `angleUnits`.
Result<VariableValue> readVariable(const VariableInfo& info, std::wstring_view text,
                                   int angleUnits);
/// Shows a read-only variable, or asks "Digite novo valor para X <...>:" and sets it. The name is
/// one that exists.
CommandTask askVariable(CommandContext context, std::wstring name);

}  // namespace prancheta
