// SPDX-License-Identifier: MIT
// UTF-8, wide characters, Windows-1252, case.
#include "prancheta/base/text.h"

#include <algorithm>
#include <array>

#include "prancheta/base/code_point.h"

namespace prancheta {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// 0x80 to 0x9f of Windows-1252; the rest is Latin-1.
constexpr std::array<char16_t, 32> kLatinHigh = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

char32_t fromLatin(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kLatinHigh[byte - 0x80U] : byte;
}

void appendUtf8(std::string& out, char32_t c) {
    if (c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) c = kReplacement;
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

/// Decodes one character at `at` and moves on; false, without moving, when the bytes are no valid
/// UTF-8 (overlong forms and surrogates included).
bool decode(std::string_view text, std::size_t& at, char32_t& c) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at);
    if (first < 0x80) {
        c = first;
        ++at;
        return true;
    }
    const std::size_t extra = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4 || at + extra >= text.size()) return false;
    char32_t value = first & (0x3FU >> extra);
    for (std::size_t i = 1; i <= extra; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return false;
        value = (value << 6) | (byte(at + i) & 0x3FU);
    }
    constexpr std::array<char32_t, 4> kLeast = {0, 0x80, 0x800, 0x10000};
    if (value < kLeast[extra] || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000))
        return false;
    c = value;
    at += extra + 1;
    return true;
}

template <class View>
View trimmed(View text, View blanks) {
    const auto first = text.find_first_not_of(blanks);
    if (first == View::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) appendUtf8(out, nextWide(text, at));
    return out;
}

std::wstring toWide(std::string_view utf8) {
    std::wstring out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t c = 0;
        if (!decode(utf8, at, c)) c = fromLatin(static_cast<unsigned char>(utf8[at++]));
        appendWide(out, c);
    }
    return out;
}

bool isValidUtf8(std::string_view text) {
    char32_t c = 0;
    for (std::size_t at = 0; at < text.size();)
        if (!decode(text, at, c)) return false;
    return true;
}

std::string utf8FromLatin(std::string_view windows1252) {
    std::string out;
    out.reserve(windows1252.size());
    for (const char c : windows1252) appendUtf8(out, fromLatin(static_cast<unsigned char>(c)));
    return out;
}

wchar_t foldCase(wchar_t c) {
    const bool capital = (c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
    return capital ? static_cast<wchar_t>(c + 32) : c;
}

std::wstring foldCase(std::wstring_view text) {
    std::wstring out(text);
    std::transform(out.begin(), out.end(), out.begin(), [](wchar_t c) { return foldCase(c); });
    return out;
}

bool equalNoCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return foldCase(x) == foldCase(y); });
}

std::wstring withoutAccents(std::wstring_view text) {
    // U+00C0 to U+00DE; the small letters stand 32 places further on.
    constexpr std::wstring_view kPlain = L"AAAAAA\u00C6CEEEEIIII\u00D0NOOOOO\u00D7OUUUUY\u00DE";
    std::wstring out(text);
    for (wchar_t& c : out) {
        const bool small = c >= 0xE0 && c <= 0xFE;
        const wchar_t capital = small ? static_cast<wchar_t>(c - 32) : c;
        if (capital < 0xC0 || capital > 0xDE) continue;
        c = static_cast<wchar_t>(kPlain[static_cast<std::size_t>(capital - 0xC0)] + (c - capital));
    }
    return out;
}

std::string harmless(std::string_view utf8) {
    std::wstring out;
    for (const wchar_t c : toWide(utf8)) {
        if (c == L'\n' || c == L'\t' || (c >= 0x20 && c < 0x7F) || c >= 0xA0) {
            out.push_back(c);
        } else if (c < 0x80) {
            out.push_back(L'^');
            out.push_back(c ^ 0x40);
        } else {
            out.push_back(static_cast<wchar_t>(kReplacement));
        }
    }
    return toUtf8(out);
}

std::wstring_view trim(std::wstring_view text) {
    return trimmed<std::wstring_view>(text, L" \t\r\n");
}
std::string_view trim(std::string_view text) { return trimmed<std::string_view>(text, " \t\r\n"); }

}  // namespace prancheta
