// SPDX-License-Identifier: MIT
// What the dynamic linker knows about a loaded module.
#pragma once

#include <filesystem>
#include <vector>

namespace prancheta {

/// Where the library is mapped to which this code or datum belongs; null for none. Equal for all of
/// one library.
const void* libraryOf(const void* address);

/// Modules (`.arx`) that a library is linked to, as the linker found them.
std::vector<std::filesystem::path> neededModules(void* handle);

}  // namespace prancheta
