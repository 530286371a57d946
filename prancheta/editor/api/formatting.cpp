// SPDX-License-Identifier: MIT
// Formatted texts as modules write them.
#include "prancheta/editor/api/formatting.h"

#include <cstdio>
#include <variant>
#include <vector>

#include "prancheta/base/text.h"

namespace prancheta {
namespace {

/// One conversion of a format: `%[position$][flags][width][.precision][length]type`.
struct Conversion {
    int position = 0;
    std::string flags;
    int width = -1;
    int precision = -1;
    bool starWidth = false;
    bool starPrecision = false;
    std::wstring length;
    wchar_t type = 0;
};

using Argument = std::variant<std::monostate, long long, unsigned long long, double, const void*>;

int takeNumber(const ACHAR*& at) {
    int value = 0;
    while (*at >= L'0' && *at <= L'9') value = std::min(value * 10 + (*at++ - L'0'), 100000);
    return value;
}

/// Reads what follows the `%`; false at the end of the format or at an unknown type.
bool readConversion(const ACHAR*& at, Conversion& c) {
    const ACHAR* const start = at;
    const int number = takeNumber(at);
    if (number > 0 && *at == L'$') {
        c.position = number;
        ++at;
    } else {
        at = start;
    }
    while (*at == L'-' || *at == L'+' || *at == L' ' || *at == L'#' || *at == L'0')
        c.flags += static_cast<char>(*at++);
    if (*at == L'*') {
        c.starWidth = true;
        ++at;
    } else if (*at >= L'0' && *at <= L'9') {
        c.width = takeNumber(at);
    }
    if (*at == L'.') {
        ++at;
        c.starPrecision = *at == L'*';
        if (c.starPrecision) {
            ++at;
        } else {
            c.precision = takeNumber(at);
        }
    }
    // Conversions of the host's own; they take a whole number and show nothing.
    if (*at == L'q' && at[1] >= L'0' && at[1] <= L'3') {
        c.type = L'q';
        at += 2;
        return true;
    }
    while (std::wstring_view(L"hlLqjztIw").find(*at) != std::wstring_view::npos && *at != 0) {
        c.length += *at++;
        if (c.length == L"I" && (std::wstring_view(at).starts_with(L"64") ||
                                 std::wstring_view(at).starts_with(L"32"))) {
            c.length += *at++;
            c.length += *at++;
        }
    }
    c.type = *at;
    if (c.type == 0 ||
        std::wstring_view(L"diuxXoceEfFgGaAsSCp").find(c.type) == std::wstring_view::npos)
        return false;
    ++at;
    return true;
}

bool is64(const std::wstring& length) {
    return length == L"ll" || length == L"I64" || length == L"q" || length == L"j" ||
           length == L"z" || length == L"t" || length == L"I";
}

/// `%l` is 32 bits where modules come from and 64 here; callers of this platform pass a long.
Argument takeArgument(const Conversion& c, std::va_list& arguments) {
    switch (c.type) {
        case L'q':
            return static_cast<long long>(va_arg(arguments, int));
        case L'd':
        case L'i':
            if (is64(c.length)) return va_arg(arguments, long long);
            if (c.length == L"l") return static_cast<long long>(va_arg(arguments, long));
            return static_cast<long long>(va_arg(arguments, int));
        case L'u':
        case L'x':
        case L'X':
        case L'o':
            if (is64(c.length)) return va_arg(arguments, unsigned long long);
            if (c.length == L"l")
                return static_cast<unsigned long long>(va_arg(arguments, unsigned long));
            return static_cast<unsigned long long>(va_arg(arguments, unsigned int));
        case L'c':
        case L'C':
            return static_cast<long long>(va_arg(arguments, int));
        case L's':
        case L'S':
        case L'p':
            return static_cast<const void*>(va_arg(arguments, void*));
        default:
            if (c.length == L"L") return static_cast<double>(va_arg(arguments, long double));
            return va_arg(arguments, double);
    }
}

void appendPadded(std::wstring& out, std::wstring_view text, const Conversion& c) {
    const std::size_t width = c.width > 0 ? static_cast<std::size_t>(c.width) : 0;
    const std::size_t blanks = width > text.size() ? width - text.size() : 0;
    const bool left = c.flags.find('-') != c.flags.npos;
    if (!left) out.append(blanks, L' ');
    out += text;
    if (left) out.append(blanks, L' ');
}

std::wstring textOf(const Conversion& c, const void* pointer) {
    if (pointer == nullptr) return L"(null)";
    const bool narrow = c.length == L"h" || (c.type == L'S' && c.length.empty());
    std::wstring text = narrow ? toWide(static_cast<const char*>(pointer))
                               : std::wstring(static_cast<const wchar_t*>(pointer));
    if (c.precision >= 0 && text.size() > static_cast<std::size_t>(c.precision))
        text.resize(static_cast<std::size_t>(c.precision));
    return text;
}

void appendNumeric(std::wstring& out, const Conversion& c, const Argument& argument) {
    std::string format = "%" + c.flags;
    if (c.width >= 0) format += std::to_string(c.width);
    if (c.precision >= 0) format += "." + std::to_string(c.precision);
    char buffer[512];
    int length = 0;
    if (const double* real = std::get_if<double>(&argument)) {
        format += static_cast<char>(c.type);
        length = std::snprintf(buffer, sizeof buffer, format.c_str(), *real);
    } else if (const long long* whole = std::get_if<long long>(&argument)) {
        format += "ll";
        format += static_cast<char>(c.type);
        length = std::snprintf(buffer, sizeof buffer, format.c_str(), *whole);
    } else if (const unsigned long long* natural = std::get_if<unsigned long long>(&argument)) {
        format += "ll";
        format += static_cast<char>(c.type);
        length = std::snprintf(buffer, sizeof buffer, format.c_str(), *natural);
    } else {
        length = std::snprintf(buffer, sizeof buffer, "%p", std::get<const void*>(argument));
    }
    const auto used =
        std::min<std::size_t>(static_cast<std::size_t>(std::max(length, 0)), sizeof buffer - 1);
    out += toWide(std::string_view(buffer, used));
}

void appendConverted(std::wstring& out, const Conversion& c, const Argument& argument) {
    if (c.type == L'q') return;
    if (c.type == L's' || c.type == L'S') {
        appendPadded(out, textOf(c, std::get<const void*>(argument)), c);
    } else if (c.type == L'c' || c.type == L'C') {
        appendPadded(out, std::wstring(1, static_cast<wchar_t>(std::get<long long>(argument))), c);
    } else {
        appendNumeric(out, c, argument);
    }
}

/// Texts between conversions and the conversions themselves.
struct Piece {
    std::wstring text;
    Conversion conversion;  // type 0: plain text
};

std::vector<Piece> split(const ACHAR* format) {
    std::vector<Piece> pieces(1);
    for (const ACHAR* at = format; *at != 0;) {
        if (*at != L'%') {
            pieces.back().text += *at++;
            continue;
        }
        if (at[1] == L'%') {
            pieces.back().text += L'%';
            at += 2;
            continue;
        }
        const ACHAR* const start = at++;
        Conversion c;
        if (!readConversion(at, c)) {
            pieces.back().text += start;
            break;
        }
        pieces.back().conversion = c;
        pieces.emplace_back();
    }
    return pieces;
}

void takeStars(Conversion& c, std::va_list& arguments) {
    if (c.starWidth) {
        c.width = va_arg(arguments, int);
        if (c.width < 0) {
            c.flags += '-';
            c.width = -c.width;
        }
    }
    if (c.starPrecision) c.precision = va_arg(arguments, int);
}

}  // namespace

std::wstring formatText(const ACHAR* format, std::va_list& arguments) {
    std::wstring out;
    if (format == nullptr) return out;
    std::vector<Piece> pieces = split(format);
    // With positions, arguments are taken in their own order before anything is written.
    std::vector<Argument> byPosition;
    int highest = 0;
    for (const Piece& p : pieces) highest = std::max(highest, p.conversion.position);
    for (int position = 1; position <= highest; ++position) {
        for (const Piece& p : pieces) {
            if (p.conversion.position != position) continue;
            byPosition.push_back(takeArgument(p.conversion, arguments));
            break;
        }
        if (byPosition.size() < static_cast<std::size_t>(position))
            return format;  // a gap: types unknown
    }
    for (Piece& p : pieces) {
        out += p.text;
        if (p.conversion.type == 0) continue;
        takeStars(p.conversion, arguments);
        const int position = p.conversion.position;
        appendConverted(out, p.conversion,
                        position > 0 ? byPosition[static_cast<std::size_t>(position - 1)]
                                     : takeArgument(p.conversion, arguments));
    }
    return out;
}

}  // namespace prancheta
