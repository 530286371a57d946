// SPDX-License-Identifier: MIT
// A material list as it is printed: what table, text file, workbook and panel say of it alike.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zp/matlist/columns.h"
#include "zp/matlist/lists.h"

namespace zp::matlist {

/// Columns in the order in which they are shown; they point into kColumnTable.
using Columns = std::vector<const Column*>;

Columns usualColumns();
/// The columns that a header's record names; the usual ones when it names none that can be shown.
Columns columnsOf(const Header& header);
/// Just so many decimals, decimal comma.
std::wstring wordsOf(double value, int decimals);
/// Columns by their keys with commas between. With a `fault`, told to the user, there are none.
struct Choice {
    Columns columns;
    std::wstring fault;
};
Choice chooseColumns(std::wstring_view keys);
/// "marca, quantidade"; read by chooseColumns.
std::wstring keysOf(const Columns& columns);

/// True when the row with mark `a` stands before the one with mark `b`.
bool marcaBefore(std::wstring_view a, std::wstring_view b);
/// The row as it counts: 0 pieces when what it stands for was erased.
Linha counted(Linha row);
/// Rows as they count, in the order of their marks, with the numbers that are printed: rounded to
/// their columns' decimals, the total mass so many times the printed unit mass.
std::vector<Linha> printedRows(std::vector<Linha> rows);

struct Listing {
    std::wstring title;  ///< with the list's number when the drawing has several
    Columns columns;
    std::vector<Linha> rows;    ///< printed
    std::vector<int> decimals;  ///< by column
};
Listing listingOf(const MaterialList& list);
Listing listingOf(Columns columns, std::vector<Linha> rows);

/// Sum of a column over printed rows.
double totalOf(const Listing& listing, std::size_t column);
/// Headings, rows and totals in words: decimal comma, the column's decimals; one text a column. The
/// last line begins with kTotal.
std::vector<std::vector<std::wstring>> linesOf(const Listing& listing);

/// In the first column of the line of totals.
inline constexpr const wchar_t* kTotal = L"TOTAL";

}  // namespace zp::matlist
