// SPDX-License-Identifier: MIT
// The command RESUMO: what a list comes to by product, and its delivery list by packages.
#pragma once

#include <string>
#include <vector>

#include "zp/matlist/zpmatlist.h"

namespace zp::matlist {

/// Headings, a line for each product, totals, then what fits no bar; columns stand below each other
/// in a font of equal widths. Sums are those of the printed numbers. Bars of 6 and of 12 m are
/// those of a cutting plan with cuts of 3 mm.
std::vector<std::wstring> summaryLines(const std::vector<Linha>& rows);

/// Packages of at most so many kg, by first fit, the heaviest member first; a line for those that
/// are packed alike. A member that is heavier goes alone, and that is told.
std::vector<std::wstring> packageLines(const std::vector<Linha>& rows, double kg);

void summaryCommand();
inline constexpr const wchar_t* kSummaryCommand = L"RESUMO";

}  // namespace zp::matlist
