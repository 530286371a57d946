// SPDX-License-Identifier: MIT
// Other programs: none of those that are asked for exists there.
#include "prancheta/base/process.h"

namespace prancheta {

Result<std::string> outputOf(const std::vector<std::string>&) { return Error{}; }

}  // namespace prancheta
