// SPDX-License-Identifier: MIT
// The few places where the two targets of this module differ: environment, files.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace perfis {

/// Value of an environment variable; nothing when it is not set or empty.
std::optional<std::wstring> environmentText(const char* name);

/// Whole file as bytes; nothing when it cannot be opened or read, or is none (a pipe, a device). In
/// paths a backslash separates on every system, and names are found without regard to case.
std::optional<std::string> readFile(std::wstring_view path);

/// Gives the file these bytes as files::Replacement does. On failure (also when the file there may
/// not be written) false, and what was there stays.
bool replaceFile(std::wstring_view path, std::string_view bytes);

/// Copies the file under a name beside it that is free: NAME.antigo, NAME.antigo2, ... True when
/// there is nothing to copy; false when that fails.
bool keepOldFile(std::wstring_view path);

/// Changes when a file is written or replaced; 0 when it cannot be asked.
std::uint64_t fileVersion(std::wstring_view path);

/// The same for a file that has been left alone for two seconds, else 0: of two changes within one
/// tick of the file system's clock the second might not show.
std::uint64_t settledFileVersion(std::wstring_view path);

/// Keeps other programs of this kind from replacing files of the same folder while it lives. Where
/// the folder cannot be locked, or is held for longer than kPatience, nothing is kept, and nothing
/// fails.
class FolderLock {
public:
    explicit FolderLock(std::wstring_view fileInFolder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// A program of ours holds a folder while it writes one list.
    static constexpr std::chrono::seconds kPatience{2};

private:
    int m_descriptor = -1;
};

/// True where text files end their lines with carriage return and line feed.
#ifdef _WIN32
inline constexpr bool kNativeLineEndIsCrLf = true;
#else
inline constexpr bool kNativeLineEndIsCrLf = false;
#endif

}  // namespace perfis
