// SPDX-License-Identifier: MIT
// Small letters stand 32 places behind the capital ones.
#include "texts/letters.h"

#include <algorithm>

namespace texts {
namespace {

wchar_t lowerOf(wchar_t c) {
    const bool upper = (c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
    return upper ? static_cast<wchar_t>(c + 32) : c;
}

}  // namespace

std::wstring lower(std::wstring_view text) {
    std::wstring small(text);
    std::ranges::transform(small, small.begin(), lowerOf);
    return small;
}

bool equalIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::ranges::equal(a, b, {}, lowerOf, lowerOf);
}

std::wstring trimmed(std::wstring_view text) {
    constexpr std::wstring_view kBlanks = L" \t\r\n";
    const std::size_t from = text.find_first_not_of(kBlanks);
    if (from == text.npos) return {};
    return std::wstring(text.substr(from, text.find_last_not_of(kBlanks) - from + 1));
}

std::vector<std::wstring> trimmedParts(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> parts;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(separator, from), text.size());
        parts.push_back(trimmed(text.substr(from, end - from)));
        from = end + 1;
    }
    return parts;
}

}  // namespace texts
