// SPDX-License-Identifier: MIT
// The order in which marks and names are shown, by modules and hosts alike.
#pragma once

#include <string_view>

namespace protocol {

/// Before, equal, after: -1, 0, 1. Runs of digits by their number, so that "P2" stands before "P10"
/// and "V1", "V1E", "V2" follow each other; all else by its code: for letters without regard to
/// case both texts are folded before.
inline int naturalCompare(std::wstring_view a, std::wstring_view b) {
    const auto digit = [](std::wstring_view text) {
        return !text.empty() && text.front() >= L'0' && text.front() <= L'9';
    };
    const auto takeNumber = [&](std::wstring_view& text) {
        while (digit(text) && text.front() == L'0') text.remove_prefix(1);
        const std::wstring_view whole = text;
        while (digit(text)) text.remove_prefix(1);
        return whole.substr(0, whole.size() - text.size());
    };
    while (!a.empty() && !b.empty()) {
        if (digit(a) && digit(b)) {
            const std::wstring_view left = takeNumber(a);
            const std::wstring_view right = takeNumber(b);
            if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
            if (const int order = left.compare(right); order != 0) return order < 0 ? -1 : 1;
            continue;
        }
        if (a.front() != b.front()) return a.front() < b.front() ? -1 : 1;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return static_cast<int>(b.empty()) - static_cast<int>(a.empty());
}

}  // namespace protocol
