// SPDX-License-Identifier: MIT
// Paths from UTF-8 texts: the library takes a narrow text in the system's code page, which is not
// UTF-8 everywhere.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace prancheta {

inline std::filesystem::path pathFromUtf8(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}

}  // namespace prancheta
