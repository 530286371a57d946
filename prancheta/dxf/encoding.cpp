// SPDX-License-Identifier: MIT
// Charset of values, both ways.
#include "prancheta/dxf/encoding.h"

#include <algorithm>

#include "prancheta/base/caret.h"
#include "prancheta/base/code_point.h"
#include "prancheta/base/text.h"

namespace prancheta::dxf {
namespace {

// 0x80 to 0x9f of Windows-1252. The five bytes without a character keep their own number, so that
// they come back as they were.
constexpr char16_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// 0x80 to 0xff of the code page of MS-DOS in western Europe.
constexpr char16_t kDos850[128] = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF,
    0x00EE, 0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA,
    0x00F1, 0x00D1, 0x00AA, 0x00BA, 0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0, 0x00A9, 0x2563, 0x2551, 0x2557,
    0x255D, 0x00A2, 0x00A5, 0x2510, 0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4, 0x00F0, 0x00D0, 0x00CA, 0x00CB,
    0x00C8, 0x0131, 0x00CD, 0x00CE, 0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE, 0x00DE, 0x00DA, 0x00DB, 0x00D9,
    0x00FD, 0x00DD, 0x00AF, 0x00B4, 0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0};

bool isPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= 0x20 && c < 0x7f && c != '\\' && c != '^'; });
}

std::wstring wideFrom1252(std::string_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        out.push_back(byte >= 0x80 && byte < 0xA0 ? static_cast<wchar_t>(kHigh[byte - 0x80U])
                                                  : static_cast<wchar_t>(byte));
    }
    return out;
}

std::wstring wideFrom850(std::string_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        out.push_back(static_cast<wchar_t>(byte >= 0x80 ? kDos850[byte - 0x80U] : byte));
    }
    return out;
}

/// Byte of a character in Windows-1252, -1 when it has none.
int byteOf(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
    const auto* const at = std::find(std::begin(kHigh), std::end(kHigh), static_cast<char16_t>(c));
    return c > 0xFFFF || at == std::end(kHigh) ? -1 : 0x80 + static_cast<int>(at - kHigh);
}

/// Number of \U+XXXX at `at`, or -1.
int escapeAt(std::wstring_view text, std::size_t at) {
    if (text.size() - at < 7 || text.substr(at, 3) != L"\\U+") return -1;
    int value = 0;
    for (std::size_t i = at + 3; i < at + 7; ++i) {
        const wchar_t c = text[i];
        const int digit = c >= L'0' && c <= L'9'   ? c - L'0'
                          : c >= L'A' && c <= L'F' ? c - L'A' + 10
                          : c >= L'a' && c <= L'f' ? c - L'a' + 10
                                                   : -1;
        if (digit < 0) return -1;
        value = value * 16 + digit;
    }
    return value;
}

/// Decodes \U+XXXX; control characters, which would break lines, and half surrogates stay escaped.
void decodeEscapes(std::wstring& text) {
    if (text.find(L"\\U+") == std::wstring::npos) return;
    std::wstring out;
    for (std::size_t at = 0; at < text.size();) {
        int c = escapeAt(text, at);
        std::size_t length = 7;
        if (isHighSurrogate(static_cast<char32_t>(c))) {
            const int low = at + 7 < text.size() ? escapeAt(text, at + 7) : -1;
            if (isLowSurrogate(static_cast<char32_t>(low))) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                length = 14;
            }
        }
        if (c < 0x20 || (c >= 0xD800 && c < 0xE000)) {
            out.push_back(text[at++]);
        } else {
            appendWide(out, static_cast<char32_t>(c));
            at += length;
        }
    }
    text = std::move(out);
}

std::wstring decodeWide(std::string_view value, Charset charset) {
    std::wstring text = charset.page() != nullptr ? charset.page()->toWide(value)
                        : charset == Charset::Utf8 && isValidUtf8(value) ? toWide(value)
                        : charset == Charset::Dos850                     ? wideFrom850(value)
                                                                         : wideFrom1252(value);
    decodeEscapes(text);
    return text;
}

void appendEscape(std::string& out, unsigned unit) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4) out.push_back(kDigits[(unit >> shift) & 0xFU]);
}

}  // namespace

Charset charsetOf(std::string_view acadVersion) {
    return acadVersion >= "AC1021" ? Charset::Utf8 : Charset::Windows1252;
}

std::string decode(std::string_view value, Charset charset) {
    if (isPlain(value)) return std::string(value);
    return toUtf8(decodeWide(value, charset));
}

std::wstring decodeText(std::string_view value, Charset charset) {
    if (isPlain(value)) return {value.begin(), value.end()};
    std::wstring text = decodeWide(value, charset);
    decodeCarets(text);
    return text;
}

void appendEncoded(std::string& out, std::string_view utf8, Charset charset) {
    const auto isSafe = [](char c) {
        return static_cast<signed char>(c) > 0 && c != '\n' && c != '\r';
    };
    if (std::all_of(utf8.begin(), utf8.end(), isSafe)) {
        out += utf8;
        return;
    }
    const std::wstring wide = toWide(utf8);
    for (std::size_t at = 0; at < wide.size();) {
        const std::size_t first = at;
        const char32_t c = nextWide(wide, at);
        if (c == L'\n' || c == L'\r' || c == L'\0') {
            out.push_back('^');
            out.push_back(static_cast<char>(c + '@'));
        } else if (charset == Charset::Utf8) {
            out += toUtf8(std::wstring_view(wide).substr(first, at - first));
        } else if (charset.page() != nullptr && charset.page()->append(out, c)) {
            continue;
        } else if (const int byte = charset.page() == nullptr ? byteOf(c) : -1; byte >= 0) {
            out.push_back(static_cast<char>(byte));
        } else if (c > 0xFFFF) {
            const auto rest = c - 0x10000U;
            appendEscape(out, 0xD800U + (rest >> 10));
            appendEscape(out, 0xDC00U + (rest & 0x3FFU));
        } else {
            appendEscape(out, static_cast<unsigned>(c));
        }
    }
}

std::string encodeText(std::wstring_view text) {
    std::wstring out;
    for (const wchar_t c : text) {
        if (c < 0x20) {
            out.push_back(L'^');
            out.push_back(c + L'@');
        } else {
            out.push_back(c);
            if (c == L'^') out.push_back(L' ');
        }
    }
    return toUtf8(out);
}

}  // namespace prancheta::dxf
