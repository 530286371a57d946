// SPDX-License-Identifier: MIT
// Texts: UTF-8 and wide characters, comparison without regard to case, numbers free of locale.
#pragma once

#include <string>
#include <string_view>

namespace prancheta {

/// Code points that cannot be encoded become U+FFFD.
std::string toUtf8(std::wstring_view text);

/// A byte that is no valid UTF-8 is read as Windows-1252, so nothing is lost in old files.
std::wstring toWide(std::string_view utf8);

bool isValidUtf8(std::string_view text);

/// Windows-1252 to UTF-8; the five bytes without a character become U+FFFD.
std::string utf8FromLatin(std::string_view windows1252);

/// Letters of ASCII and Latin-1 folded: enough for names typed in Portuguese.
wchar_t foldCase(wchar_t c);
std::wstring foldCase(std::wstring_view text);
bool equalNoCase(std::wstring_view a, std::wstring_view b);
/// Letters of Latin-1 without their accents and cedillas, case kept: "POSIÇÃO" is "POSICAO".
std::wstring withoutAccents(std::wstring_view text);

/// A text as a terminal may have it: control characters but line feed and tab, which would steer
/// it, become ^X, those beyond ASCII U+FFFD.
std::string harmless(std::string_view utf8);

std::wstring_view trim(std::wstring_view text);
std::string_view trim(std::string_view text);

/// Shortest text that reads back to the same double; never a locale's. "0" for minus zero, "nan",
/// "inf".
void appendNumber(std::string& out, double value);
/// Shortest text that reads back as the same number, decimal point.
std::string numberText(double value);
std::wstring numberTextWide(double value);

/// Whole text as a number with decimal point ("12", "-.5", "1e3", "+2"); false leaves `value`
/// alone.
bool parseNumber(std::string_view text, double& value);
bool parseNumber(std::wstring_view text, double& value);
/// The same where a person types one number: a comma between two digits is a decimal sign, too.
bool parseTypedNumber(std::wstring_view text, double& value);

}  // namespace prancheta
