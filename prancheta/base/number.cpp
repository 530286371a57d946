// SPDX-License-Identifier: MIT
// Numbers to text and back, free of locale.
#include <array>
#include <charconv>
#include <cmath>

#include "prancheta/base/text.h"

namespace prancheta {

void appendNumber(std::string& out, double value) {
    if (value == 0.0) value = 0.0;  // minus zero
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    out.append(buffer.data(), end);
}

std::string numberText(double value) {
    std::string out;
    appendNumber(out, value);
    return out;
}

std::wstring numberTextWide(double value) {
    const std::string text = numberText(value);
    return {text.begin(), text.end()};
}

bool parseNumber(std::string_view text, double& value) {
    text = trim(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    // from_chars takes words such as "inf": a number begins with a digit, a point or a minus.
    if (text.empty() || text.find_first_not_of("0123456789.eE+-") != std::string_view::npos)
        return false;
    double parsed = 0.0;
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, parsed);
    if (error != std::errc() || at != end || !std::isfinite(parsed)) return false;
    value = parsed;
    return true;
}

bool parseNumber(std::wstring_view text, double& value) {
    std::string narrow;
    for (const wchar_t c : text) {
        if (c > 0x7e) return false;
        narrow.push_back(static_cast<char>(c));
    }
    return parseNumber(std::string_view(narrow), value);
}

bool parseTypedNumber(std::wstring_view text, double& value) {
    std::wstring typed(text);
    const auto digitAt = [&](std::size_t i) {
        return i < typed.size() && typed[i] >= L'0' && typed[i] <= L'9';
    };
    // A second sign of either kind is left for parseNumber to refuse.
    const std::size_t comma = typed.find(L',');
    if (comma != typed.npos && comma > 0 && digitAt(comma - 1) && digitAt(comma + 1))
        typed[comma] = L'.';
    return parseNumber(std::wstring_view(typed), value);
}

}  // namespace prancheta
