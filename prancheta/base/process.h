// SPDX-License-Identifier: MIT
// Other programs, run for what they print.
#pragma once

#include <string>
#include <vector>

#include "prancheta/base/result.h"

namespace prancheta {

/// What the program writes to its standard output. Arguments go to it as they are, the program's
/// name first, which is looked for as the system does. An error when there is no such program
/// (empty text then), or with what it says when it fails.
Result<std::string> outputOf(const std::vector<std::string>& arguments);

}  // namespace prancheta
