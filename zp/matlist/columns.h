// SPDX-License-Identifier: MIT
// The columns of a material list: the one place that tells what a row has, in which order, and how
// it is shown. Record, table, files, report and property sheet follow it.
#pragma once

#include <array>
#include <string>
#include <variant>

#include "protocol/report.h"
#include "zp/matlist/zpmatlist.h"

namespace zp::matlist {

using Field = std::variant<std::wstring Linha::*, int Linha::*, double Linha::*>;

struct Column {
    protocol::ListColumn shown;
    Field field;
    bool editable;  ///< by the user, in the mark's property sheet
};

inline constexpr std::size_t kColumns = 10;
extern const std::array<Column, kColumns> kColumnTable;

/// A value as a reader gets it: text or number.
using Cell = std::variant<std::wstring, double>;
/// The remark of a row also says what was erased.
Cell cellOf(const Linha& row, const Column& column);
/// Sums over the rows that count, in the columns that are summed; 0 elsewhere.
std::array<double, kColumns> totalsOf(const std::vector<Linha>& rows);
/// A cell in words: decimal comma, the column's decimals.
std::wstring wordsOf(const Cell& cell, const Column& column);
/// "PESO UNIT. (kg)", without characters that old drawing fonts lack.
std::wstring headingOf(const Column& column);

/// In the first column of the line of totals.
inline constexpr const wchar_t* kTotal = L"TOTAL";

/// Columns and formats as a host reads them.
const protocol::ListSchema& listSchema();

}  // namespace zp::matlist
