// SPDX-License-Identifier: MIT
// Dynamic libraries and the running program, as the system knows them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace prancheta {

/// Loads a library whole. Null when that fails; `reason` is for the user.
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
/// Variable of the environment; empty when it is not set.
std::string environment(const char* name);
/// Sets a variable of the environment for this process and its children.
void setEnvironment(const char* name, const std::string& utf8Value);
/// The program's arguments in UTF-8, its own name first.
std::vector<std::string> programArguments(int argc, const char* const* argv);

/// From here on a terminal shows and gives UTF-8.
void useUtf8Terminal();
/// Whether somebody types the standard input.
bool inputIsTerminal();
/// Whether standard error is one that takes what moves its cursor.
bool errorIsTerminal();
/// From here on the interrupt key (Ctrl+C) no longer ends the program: it is noted, and breaks off
/// whoever waits for input. On Windows it still ends the program.
void catchInterrupts();
/// Whether the interrupt key was hit since the last call.
bool takeInterrupt();
/// From here on a wish that the program should end (SIGTERM, SIGHUP, and the interrupt key where
/// catchInterrupts() was not called) is noted, and ends the standard input, for whoever waits for
/// it, too. The same wish again ends the program at once; what its caller switched off stays so. On
/// Windows every wish does.
void catchEndWishes();
/// Number of the signal that was the wish; 0: there was none.
int endWish();
/// Descriptor that is ready for reading from the wish on; -1 where there is no such thing.
int endWishDescriptor();
/// A reader of an output that goes away is an error of that output, not the end of the program.
void ignoreBrokenPipes();
/// Waits until the standard input has something to read, or until the interrupt key was hit.
void waitForInput();

}  // namespace prancheta
