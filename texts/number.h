// SPDX-License-Identifier: MIT
// Numbers to texts and back, whatever the locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace texts {

enum class DecimalSign { kPoint, kPointOrComma };

/// Leading number of a text, 0 when it has none. A comma that counts is the only decimal sign and
/// stands between two digits. Too large gives infinity.
double toReal(std::wstring_view text, DecimalSign sign = DecimalSign::kPointOrComma);

/// Leading whole number (decimal), 0 when there is none; too large ones give the nearest limit.
int toInt(std::wstring_view text);

/// A whole text as a finite number, decimal point or comma, spaces wherever. Nothing for anything
/// else.
std::optional<double> exactReal(std::wstring_view text);

/// Truncated toward zero. What an int cannot hold (also infinite and not a number) gives the most
/// negative int.
int realToInt(double value);

/// Just so many decimals (up to 80), decimal point.
std::wstring fixed(double value, int decimals);

/// Just so many decimals, decimal point, rounded as a reader of the number does: half away from
/// zero, and half is what the shortest decimal text of the value says (2.355 gives "2.36"). No
/// minus zero; what is not finite gives zero.
std::wstring rounded(double value, int decimals);

/// A fixed text without the zeros that end its decimals, and without a point that then ends it.
std::wstring withoutZeros(std::wstring fixed);

/// At most so many decimals, no trailing zeros, no minus zero. What is not finite gives "0".
std::wstring withPoint(double value, int decimals);
/// The same with the decimal comma.
std::wstring withComma(double value, int decimals = 2);

}  // namespace texts
