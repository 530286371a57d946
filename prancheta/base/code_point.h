// SPDX-License-Identifier: MIT
// Characters of wide texts, whose units have 16 bits on one system and 32 on another.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace prancheta {

inline constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

constexpr bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
constexpr bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

/// Appends one character; where units have 16 bits, as two halves when it needs them.
inline void appendWide(std::wstring& out, char32_t c) {
    if (kWideIsUtf16 && c > 0xFFFF) {
        out.push_back(static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10)));
        out.push_back(static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    } else {
        out.push_back(static_cast<wchar_t>(c));
    }
}

/// The character at `at`, which moves past it. A half without its other half comes as it is.
inline char32_t nextWide(std::wstring_view text, std::size_t& at) {
    const auto unit = static_cast<char32_t>(text[at++]);
    if (!kWideIsUtf16 || !isHighSurrogate(unit) || at == text.size()) return unit;
    const auto low = static_cast<char32_t>(text[at]);
    if (!isLowSurrogate(low)) return unit;
    ++at;
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

}  // namespace prancheta
