// SPDX-License-Identifier: MIT
// Names of temporary files, by which those of dead programs are known.
#pragma once

#include <filesystem>
#include <string>

namespace files {

/// A name that no other temporary file has: it says which process of which machine it belongs to.
/// Its length does not depend on the file's that it stands for, which may be the longest possible.
std::string temporaryName();

/// Removes the temporary files of processes of this machine that are gone. A folder is looked
/// through once in a row: O(its files), one question each for those with our names.
void removeDeadTemporaries(const std::filesystem::path& folder);

}  // namespace files
