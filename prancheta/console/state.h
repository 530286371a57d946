// SPDX-License-Identifier: MIT
// The drawing's final state as one JSON object.
#pragma once

#include <filesystem>

#include "prancheta/base/result.h"
#include "prancheta/editor/editor.h"

namespace prancheta::console {

/// Replaces the file atomically.
Result<void> writeState(Editor& editor, const std::filesystem::path& path);

}  // namespace prancheta::console
