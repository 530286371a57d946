// SPDX-License-Identifier: MIT
// Texts of DXF files: code page or UTF-8, \U+XXXX, control characters by caret.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "prancheta/base/code_page.h"

namespace prancheta::dxf {

/// How the texts of a file are written.
class Charset {
public:
    /// Dos850 is only read: what comes from such files is written in the charset of its release.
    enum Kind : std::uint8_t { Windows1252, Utf8, Dos850, Page };

    constexpr Charset(Kind kind) : m_kind(kind) {}
    /// Any other page, which has to live as long.
    explicit constexpr Charset(const CodePage& page) : m_kind(Page), m_page(&page) {}

    const CodePage* page() const { return m_page; }
    bool operator==(const Charset&) const = default;

private:
    Kind m_kind;
    const CodePage* m_page = nullptr;
};

/// Charset that a release uses ("AC1015" ...): UTF-8 from AC1021 on.
Charset charsetOf(std::string_view acadVersion);

/// A value as UTF-8: \U+XXXX is decoded in all charsets, carets stay as they are. In a UTF-8 file
/// a text that is no valid UTF-8 is read as Windows-1252.
std::string decode(std::string_view value, Charset charset);
/// The same with carets decoded (^I, ^J, "^ "): what a text means.
std::wstring decodeText(std::string_view value, Charset charset);

/// Appends the bytes of a UTF-8 text. What the code page lacks becomes \U+XXXX; a line end, which
/// would shift all that follows, becomes a caret form.
void appendEncoded(std::string& out, std::string_view utf8, Charset charset);
/// A text as it is meant as the value of a group, UTF-8: carets for control characters, "^ " for ^.
std::string encodeText(std::wstring_view text);

}  // namespace prancheta::dxf
