// SPDX-License-Identifier: MIT
// `--verifica`: what is wrong with a DXF file, one line each on standard output.
#pragma once

#include <string>

namespace prancheta::console {

/// Exit code: 0 when nothing is wrong (warnings may be there), 1 for errors, 3 for a file that
/// cannot be read.
int verifyFile(const std::string& path);

}  // namespace prancheta::console
