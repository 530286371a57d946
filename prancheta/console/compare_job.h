// SPDX-License-Identifier: MIT
// `--compara`: what became of the job between two drawings of it, on standard output.
#pragma once

#include <string>

#include "protocol/comparison.h"

class AcDbDatabase;

namespace prancheta {
class Editor;
}

namespace prancheta::console {

/// Compares the editor's drawing with the earlier one of a file. Exit code: 0 when nothing differs,
/// 1 when something does, 3 when the file cannot be read or no loaded module can compare.
int compareJob(Editor& editor, const std::string& earlier, protocol::ComparisonForm form);

}  // namespace prancheta::console
