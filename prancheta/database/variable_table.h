// SPDX-License-Identifier: MIT
// The literal table of system variables.
#pragma once

#include <vector>

#include "prancheta/database/sysvars.h"

namespace prancheta {

/// All variables with their defaults, in alphabetical order.
std::vector<VariableInfo> variableTable();

}  // namespace prancheta
