// SPDX-License-Identifier: MIT
// `--pecas`: a module draws a table of pieces before the script runs.
#pragma once

#include <string>

#include "prancheta/base/result.h"

namespace prancheta {
class Editor;
}

namespace prancheta::console {

/// What the module cannot draw it tells the user interface; `partial`: rows that are wrong are left
/// out. An error when no module draws tables or the file is none.
Result<void> drawPieces(Editor& editor, const std::string& file, bool partial);

}  // namespace prancheta::console
