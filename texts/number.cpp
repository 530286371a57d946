// SPDX-License-Identifier: MIT
// Numbers go through the library's own conversions, which know no locale.
#include "texts/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>

namespace texts {
namespace {

constexpr bool isBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }
constexpr bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

/// The number's own characters, ready for from_chars, and the decimal exponent of its first
/// significant digit, which tells too large from too small.
struct RealText {
    std::string digits;
    long magnitude = 0;
};

std::size_t skipBlanks(std::wstring_view text) {
    std::size_t at = 0;
    while (at < text.size() && isBlank(text[at])) ++at;
    return at;
}

/// A comma between two digits is a decimal sign as well, when no other sign follows its decimals:
/// "1,234,567" and "1,234.5" do not tell which number is meant.
bool isDecimalComma(std::wstring_view text, std::size_t at) {
    const auto digitAt = [&](std::size_t i) { return i < text.size() && isDigit(text[i]); };
    if (text[at] != L',' || at == 0 || !digitAt(at - 1) || !digitAt(at + 1)) return false;
    std::size_t end = at + 1;
    while (digitAt(end)) ++end;
    const bool signFollows = end < text.size() && (text[end] == L',' || text[end] == L'.');
    return !(signFollows && digitAt(end + 1));
}

/// Appends "e", a sign and digits when the text has them at `at`; returns the exponent.
long scanExponent(std::wstring_view text, std::size_t at, std::string& digits) {
    if (at >= text.size() || (text[at] != L'e' && text[at] != L'E')) return 0;
    ++at;
    const bool negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) ++at;
    if (at >= text.size() || !isDigit(text[at])) return 0;
    long exponent = 0;
    for (; at < text.size() && isDigit(text[at]); ++at)
        if (exponent < 100000) exponent = exponent * 10 + (text[at] - L'0');
    if (negative) exponent = -exponent;
    digits += 'e' + std::to_string(exponent);
    return exponent;
}

RealText scanReal(std::wstring_view text, DecimalSign sign) {
    RealText real;
    std::size_t at = skipBlanks(text);
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) {
        if (text[at] == L'-') real.digits += '-';
        ++at;
    }
    bool any = false;
    bool significant = false;
    bool fraction = false;
    for (; at < text.size(); ++at) {
        if (!isDigit(text[at])) {
            const bool comma = sign == DecimalSign::kPointOrComma && isDecimalComma(text, at);
            if (fraction || (text[at] != L'.' && !comma)) break;
            fraction = true;
            real.digits += '.';
            continue;
        }
        real.digits += static_cast<char>(text[at]);
        any = true;
        significant = significant || text[at] != L'0';
        if (!fraction && significant) ++real.magnitude;
        if (fraction && !significant) --real.magnitude;
    }
    if (!any) return {};
    real.magnitude += scanExponent(text, at, real.digits);
    return real;
}

}  // namespace

double toReal(std::wstring_view text, DecimalSign sign) {
    const RealText real = scanReal(text, sign);
    if (real.digits.empty()) return 0.0;
    double value = 0.0;
    const char* const end = real.digits.data() + real.digits.size();
    const auto result = std::from_chars(real.digits.data(), end, value);
    if (result.ec != std::errc::result_out_of_range) return value;
    const double limit = real.magnitude > 0 ? HUGE_VAL : 0.0;
    return real.digits[0] == '-' ? -limit : limit;
}

int toInt(std::wstring_view text) {
    std::size_t at = skipBlanks(text);
    const bool negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) ++at;
    long long value = 0;
    for (; at < text.size() && isDigit(text[at]); ++at)
        if (value <= INT_MAX) value = value * 10 + (text[at] - L'0');
    if (negative) value = -value;
    if (value > INT_MAX) return INT_MAX;
    return value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

std::optional<double> exactReal(std::wstring_view text) {
    std::string digits;
    for (const wchar_t c : text) {
        if (c == L' ') continue;
        if (c > 127) return std::nullopt;
        digits += c == L',' ? '.' : static_cast<char>(c);
    }
    const char* const begin = digits.data() + (digits.starts_with('+') ? 1 : 0);
    const char* const end = digits.data() + digits.size();
    double value = 0.0;
    const auto [stopped, error] = std::from_chars(begin, end, value);
    const bool exact = error == std::errc() && stopped == end && std::isfinite(value);
    return exact ? std::optional(value) : std::nullopt;
}

int realToInt(double value) {
    const double whole = std::trunc(value);
    const bool fits =
        whole >= static_cast<double>(INT_MIN) && whole <= static_cast<double>(INT_MAX);
    return fits ? static_cast<int>(whole) : INT_MIN;
}

std::wstring fixed(double value, int decimals) {
    std::array<char, 400> text;  // the largest double has 309 digits before the point
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    return {text.data(), end};
}

std::wstring rounded(double value, int decimals) {
    std::array<char, 400> buffer;
    if (!std::isfinite(value)) value = 0.0;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                   std::chars_format::fixed)
                         .ptr;
    std::wstring text(buffer.data(), end);
    std::size_t point = text.find(L'.');
    if (point == std::wstring::npos) {
        point = text.size();
        text += L'.';
    }
    const std::size_t kept = point + 1 + static_cast<std::size_t>(decimals);
    const bool up = text.size() > kept && text[kept] >= L'5';
    text.resize(decimals > 0 ? kept : point, L'0');
    bool carry = up;
    for (std::size_t i = text.size(); carry && i-- > 0;) {
        if (text[i] == L'.') continue;
        carry = text[i] == L'9';
        text[i] = carry ? L'0' : static_cast<wchar_t>(text[i] + 1);
    }
    if (carry) text.insert(0, L"1");
    const bool zero = text.find_first_not_of(L"0.") == std::wstring::npos;
    return value < 0.0 && !zero ? L'-' + text : text;
}

std::wstring withoutZeros(std::wstring fixed) {
    if (fixed.find(L'.') == std::wstring::npos) return fixed;
    fixed.erase(fixed.find_last_not_of(L'0') + 1);
    if (fixed.back() == L'.') fixed.pop_back();
    return fixed;
}

std::wstring withPoint(double value, int decimals) {
    std::wstring text = withoutZeros(fixed(value, decimals));
    return text == L"-0" || !std::isfinite(value) ? L"0" : text;
}

std::wstring withComma(double value, int decimals) {
    std::wstring text = withPoint(value, decimals);
    std::ranges::replace(text, L'.', L',');
    return text;
}

}  // namespace texts
