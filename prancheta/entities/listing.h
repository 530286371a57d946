// SPDX-License-Identifier: MIT
// Lines of the LIST command, in the form that all entities share.
#pragma once

#include <string>
#include <string_view>

#include "gepnt3d.h"
#include "gevec3d.h"

namespace prancheta {

/// Number with a fixed count of decimals and decimal point, free of locale; "-0.00" becomes "0.00".
std::wstring fixedText(double value, int decimals);
/// A number's text with a decimal comma, as whatever is told to the user has it.
std::wstring withComma(std::wstring text);
/// Both.
std::wstring commaText(double value, int decimals);

/// "<label> X=1,0000  Y=2,0000  Z=0,0000", on a line of its own; in the user's coordinates. The
/// same of a vector.
void listPoint(std::wstring_view label, const AcGePoint3d& p);
void listVector(std::wstring_view label, const AcGeVector3d& v);
/// "<label> 1,0000".
void listNumber(std::wstring_view label, double value);
/// Radians, shown as whole degrees.
void listAngle(std::wstring_view label, double radians);
/// The same of a direction in the world's plane, from the user's X axis.
void listDirection(std::wstring_view label, double radians);
void listText(std::wstring_view label, std::wstring_view text);

}  // namespace prancheta
