// SPDX-License-Identifier: MIT
// Greedy matching with one point to go back to: no recursion.
#include "prancheta/base/wildcard.h"

#include <algorithm>
#include <string>

#include "prancheta/base/text.h"

namespace prancheta {
namespace {

constexpr std::size_t kNone = std::wstring_view::npos;

/// Characters of a set: `set` is what stands between the brackets.
bool inSet(std::wstring_view set, wchar_t c) {
    const bool none = set.starts_with(L'~');
    if (none) set.remove_prefix(1);
    for (std::size_t i = 0; i < set.size(); ++i) {
        const bool range = i + 2 < set.size() && set[i + 1] == L'-';
        if (range ? c >= set[i] && c <= set[i + 2] : c == set[i]) return !none;
        if (range) i += 2;
    }
    return none;
}

/// Length of the element at the pattern's beginning when it fits the character, else 0. A bracket
/// that is not closed stands for itself.
std::size_t fitting(std::wstring_view pattern, wchar_t c) {
    if (pattern.empty()) return 0;
    const std::size_t close = pattern[0] == L'[' ? pattern.find(L']', 1) : kNone;
    if (close != kNone) return inSet(pattern.substr(1, close - 1), c) ? close + 1 : 0;
    if (pattern[0] == L'?' || pattern[0] == c) return 1;
    return pattern[0] == L'#' && c >= L'0' && c <= L'9' ? 1 : 0;
}

bool fits(std::wstring_view name, std::wstring_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = kNone;
    std::size_t resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            resume = n;
        } else if (const std::size_t length = fitting(pattern.substr(p), name[n]); length > 0) {
            p += length;
            ++n;
        } else if (star != kNone) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == kNone;
}

}  // namespace

bool fitsWildcards(std::wstring_view name, std::wstring_view patterns) {
    const std::wstring folded = foldCase(name);
    while (!patterns.empty()) {
        const std::size_t comma = std::min(patterns.find(L','), patterns.size());
        const std::wstring_view pattern = trim(patterns.substr(0, comma));
        if (!pattern.empty() && fits(folded, foldCase(pattern))) return true;
        patterns.remove_prefix(std::min(comma + 1, patterns.size()));
    }
    return false;
}

}  // namespace prancheta
