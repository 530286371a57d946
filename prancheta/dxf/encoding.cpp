// SPDX-License-Identifier: MIT
// Charset of values, both ways.
#include "prancheta/dxf/encoding.h"

#include <algorithm>

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

void decodeCarets(std::wstring& text) {
    if (text.find(L'^') == std::wstring::npos) return;
    std::wstring out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t next = at + 1 < text.size() ? text[at + 1] : L'\0';
        if (text[at] == L'^' && next == L' ') {
            out.push_back(L'^');
            ++at;
        } else if (text[at] == L'^' && next >= L'@' && next <= L'_') {
            out.push_back(next - L'@');
            ++at;
        } else {
            out.push_back(text[at]);
        }
    }
    text = std::move(out);
}

std::wstring decodeWide(std::string_view value, Charset charset) {
    std::wstring text =
        charset == Charset::Utf8 && isValidUtf8(value) ? toWide(value) : wideFrom1252(value);
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
        } else if (const int byte = byteOf(c); byte >= 0) {
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
