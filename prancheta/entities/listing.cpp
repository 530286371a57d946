// SPDX-License-Identifier: MIT
// Lines of the LIST command.
#include "prancheta/entities/listing.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "acutads.h"
#include "dbapserv.h"
#include "dbmain.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/user_system.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

constexpr int kDecimals = 4;

/// Of the drawing that is worked on: what is listed is in it.
AcGeMatrix3d userSystem() {
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    return drawing != nullptr ? currentUserSystem(drawing->core()) : AcGeMatrix3d();
}

void listCoordinates(std::wstring_view label, const AcGeVector3d& v) {
    listText(label, L"X=" + commaText(v.x, kDecimals) + L"  Y=" + commaText(v.y, kDecimals) +
                        L"  Z=" + commaText(v.z, kDecimals));
}

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
    listCoordinates(label, (userSystem().inverse() * p).asVector());
}

void listVector(std::wstring_view label, const AcGeVector3d& v) {
    listCoordinates(label, userSystem().inverse() * v);
}

void listNumber(std::wstring_view label, double value) {
    listText(label, commaText(value, kDecimals));
}

void listAngle(std::wstring_view label, double radians) {
    listText(label, fixedText(radians * 180.0 / kPi, 0));
}

void listDirection(std::wstring_view label, double radians) {
    const double turn = turnOf(userSystem());
    listAngle(label, turn == 0.0 ? radians : positiveAngle(radians - turn));
}

}  // namespace prancheta
