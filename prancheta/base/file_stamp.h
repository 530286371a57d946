// SPDX-License-Identifier: MIT
// Whether a file is still the one that was read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace prancheta {

/// What changes when a file is written or replaced.
struct FileStamp {
    std::int64_t seconds = 0;  ///< of the last change
    std::int64_t nanoseconds = 0;
    std::uint64_t size = 0;
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    bool operator==(const FileStamp&) const = default;
};

/// Empty when there is no such file. One question to the system.
std::optional<FileStamp> fileStampOf(const std::filesystem::path& path);

}  // namespace prancheta
