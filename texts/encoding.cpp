// SPDX-License-Identifier: MIT
// Text encodings, written out because wide characters have 16 bits on one target and 32 on the
// other.
#include "texts/encoding.h"

#include <cstddef>
#include <cstdint>

namespace texts {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

/// Characters 0x80 to 0x9F of the code page.
constexpr char32_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void appendWide(std::wstring& text, char32_t c) {
    if (kWideIsUtf16 && c > 0xFFFF) {
        text += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
        text += static_cast<wchar_t>(c);
    }
}

/// Next character of a wide text; `at` moves past it.
char32_t nextWide(std::wstring_view text, std::size_t& at) {
    const auto unit = static_cast<char32_t>(text[at++]);
    if (isHighSurrogate(unit) && at < text.size() &&
        isLowSurrogate(static_cast<char32_t>(text[at]))) {
        const auto low = static_cast<char32_t>(text[at++]);
        return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
    const bool bad = isHighSurrogate(unit) || isLowSurrogate(unit) || unit > 0x10FFFF;
    return bad ? kReplacement : unit;
}

/// One character of UTF-8; nothing for an overlong form, a surrogate or a cut sequence.
std::optional<char32_t> nextUtf8(std::string_view bytes, std::size_t& at) {
    const auto first = static_cast<unsigned char>(bytes[at++]);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4) return std::nullopt;
    char32_t c = first & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        if (at >= bytes.size()) return std::nullopt;
        const auto next = static_cast<unsigned char>(bytes[at++]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        c = (c << 6) | (next & 0x3F);
    }
    constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
    const bool bad = c < kSmallest[more] || c > 0x10FFFF || isHighSurrogate(c) || isLowSurrogate(c);
    return bad ? std::nullopt : std::optional(c);
}

}  // namespace

std::optional<std::wstring> decodeUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const std::optional<char32_t> c = nextUtf8(bytes, at);
        if (!c) return std::nullopt;
        appendWide(text, *c);
    }
    return text;
}

std::string encodeUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextWide(text, at);
        const auto tail = [&](int shift) {
            bytes += static_cast<char>(0x80 | ((c >> shift) & 0x3F));
        };
        if (c < 0x80) {
            bytes += static_cast<char>(c);
        } else if (c < 0x800) {
            bytes += static_cast<char>(0xC0 | (c >> 6));
            tail(0);
        } else if (c < 0x10000) {
            bytes += static_cast<char>(0xE0 | (c >> 12));
            tail(6), tail(0);
        } else {
            bytes += static_cast<char>(0xF0 | (c >> 18));
            tail(12), tail(6), tail(0);
        }
    }
    return bytes;
}

std::wstring decodeUtf16(std::string_view bytes, bool bigEndian) {
    std::wstring units;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        units += static_cast<wchar_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    std::wstring text;
    text.reserve(units.size());
    for (std::size_t at = 0; at < units.size();) appendWide(text, nextWide(units, at));
    return text;
}

std::string encodeUtf16(std::wstring_view text, bool bigEndian) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    const auto put = [&](char32_t unit) {
        const auto high = static_cast<char>(unit >> 8);
        const auto low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    };
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextWide(text, at);
        if (c <= 0xFFFF) {
            put(c);
            continue;
        }
        put(0xD800 + ((c - 0x10000) >> 10));
        put(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
    return bytes;
}

std::wstring decodeWindows1252(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto c = static_cast<unsigned char>(byte);
        text += static_cast<wchar_t>(c >= 0x80 && c <= 0x9F ? kHighControls[c - 0x80] : c);
    }
    return text;
}

std::optional<std::string> encodeWindows1252(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t wide : text) {
        const auto c = static_cast<char32_t>(wide);
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            bytes += static_cast<char>(c);
            continue;
        }
        int slot = 0;
        while (slot < 32 && kHighControls[slot] != c) ++slot;
        if (slot == 32) return std::nullopt;
        bytes += static_cast<char>(0x80 + slot);
    }
    return bytes;
}

std::wstring decodeText(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
    std::optional<std::wstring> text = decodeUtf8(bytes);
    return text ? *std::move(text) : decodeWindows1252(bytes);
}

}  // namespace texts
