// SPDX-License-Identifier: MIT
// Dynamic libraries and the running program, as the system knows them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace prancheta {

/// Loads a library whole. Null when that fails; `reason` is the system's, in its language.
void* openLibrary(const std::filesystem::path& file, std::string& reason);
void closeLibrary(void* library);
/// Null when the library has no such name.
void* symbolOf(void* library, const char* name);

/// Where the library is mapped to which this code or datum belongs; null for none. Equal for all of
/// one library.
const void* libraryOf(const void* address);
/// File of that library; empty for none.
std::filesystem::path libraryFileOf(const void* address);
/// Modules (`.arx`) that a library is linked to, as the linker found them.
std::vector<std::filesystem::path> neededModules(void* library);

/// Folder of the running program; empty when the system does not tell.
std::filesystem::path folderOfProgram();
/// Sets a variable of the environment for this process and its children.
void setEnvironment(const char* name, const std::string& utf8Value);

}  // namespace prancheta
