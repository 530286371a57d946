// SPDX-License-Identifier: MIT
// Loaded dialog files, read once while they do not change.
#pragma once

#include <filesystem>
#include <memory>

#include "prancheta/base/result.h"
#include "prancheta/dcl/definition.h"

namespace prancheta::dcl {

struct LoadedLibrary {
    std::shared_ptr<const Library> library;
    bool fresh = false;  ///< read just now, not taken from an earlier load
};

/// A file is read again when its date or size, or those of a file that it includes, have changed.
/// Failures are not remembered.
Result<LoadedLibrary> loadLibrary(const std::filesystem::path& path);

}  // namespace prancheta::dcl
