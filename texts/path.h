// SPDX-License-Identifier: MIT
// Paths from texts of users and back.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace texts {

/// A backslash separates on every system.
std::filesystem::path pathOf(std::wstring_view text);

/// The entry of a folder with this name whatever its case; the name itself when there is none.
std::filesystem::path entryOf(const std::filesystem::path& folder,
                              const std::filesystem::path& name);

/// To be shown only: of a path that is no text what is not ASCII becomes question marks.
std::wstring shown(const std::filesystem::path& path);

}  // namespace texts
