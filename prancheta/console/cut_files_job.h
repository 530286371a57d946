// SPDX-License-Identifier: MIT
// What is cut from sheets, in files for the shop.
#pragma once

#include <string>

class AcDbDatabase;

namespace prancheta::console {

/// `destination` as --chapas names it. Prints what was written; without that, on standard error,
/// why: kScriptError where the pieces are not to be handed over, kFileError where a file cannot be
/// written.
int cutFilesJob(AcDbDatabase& drawing, const std::string& destination, bool forced);

}  // namespace prancheta::console
