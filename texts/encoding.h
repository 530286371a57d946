// SPDX-License-Identifier: MIT
// Text encodings of files and of paths: UTF-8, UTF-16 and the Windows code page 1252.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace texts {

/// Stands before UTF-8 in files.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Nothing when the bytes are not valid UTF-8.
std::optional<std::wstring> decodeUtf8(std::string_view bytes);
std::string encodeUtf8(std::wstring_view text);

/// Unpaired surrogates become U+FFFD; a last odd byte is dropped.
std::wstring decodeUtf16(std::string_view bytes, bool bigEndian);
std::string encodeUtf16(std::wstring_view text, bool bigEndian);

/// Every byte has a character: the five unassigned ones stand for the control of the same number.
std::wstring decodeWindows1252(std::string_view bytes);
/// Nothing when a character is not in the code page.
std::optional<std::string> encodeWindows1252(std::wstring_view text);

/// UTF-8 with or without mark, else the code page.
std::wstring decodeText(std::string_view bytes);

}  // namespace texts
