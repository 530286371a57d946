// SPDX-License-Identifier: MIT
// Lines of the LIST command.
#include "prancheta/entities/listing.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "acutads.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

constexpr int kDecimals = 4;

}  // namespace

std::wstring withComma(std::wstring text) {
    std::replace(text.begin(), text.end(), L'.', L',');
    return text;
}

std::wstring fixedText(double value, int decimals) {
    char digits[400];  // room for the largest double written out
    const auto [end, error] =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    if (error != std::errc()) return L"?";
    std::wstring text(digits, end);
    const bool zero = text.find_first_not_of(L"-0.") == std::wstring::npos;
    if (zero && text.front() == L'-') text.erase(0, 1);
    return text;
}

std::wstring commaText(double value, int decimals) { return withComma(fixedText(value, decimals)); }

void listText(std::wstring_view label, std::wstring_view text) {
    std::wstring line = L"\n                  ";
    line.append(label).append(L" ").append(text);
    (void)acutPrintf(L"%ls", line.c_str());
}

void listPoint(std::wstring_view label, const AcGePoint3d& p) {
    listText(label, L"X=" + commaText(p.x, kDecimals) + L"  Y=" + commaText(p.y, kDecimals) +
                        L"  Z=" + commaText(p.z, kDecimals));
}

void listNumber(std::wstring_view label, double value) {
    listText(label, commaText(value, kDecimals));
}

void listAngle(std::wstring_view label, double radians) {
    listText(label, fixedText(radians * 180.0 / kPi, 0));
}

}  // namespace prancheta
