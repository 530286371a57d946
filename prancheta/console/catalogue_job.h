// SPDX-License-Identifier: MIT
// `--catalogos`: what a module finds wrong with its catalogues, one line each on standard output.
#pragma once

#include <string>

namespace prancheta::console {

/// Exit code: 0 without faults (hints may be there), 1 for faults, 3 when there is nothing to
/// examine, or no loaded module that knows how.
int checkCatalogues(const std::string& folder);

}  // namespace prancheta::console
