// SPDX-License-Identifier: MIT
// A table of pieces as a spreadsheet writes it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "perfis/pecas/line.h"

namespace perfis {

/// One row: the words of its piece, where it is to stand (world, mm), turned by so many degrees.
struct TableRow {
    int line = 0;  ///< of the file, counts from 1
    PecaLine piece;
    std::optional<double> x;
    std::optional<double> y;
    double degrees = 0.0;
};

/// What is wrong with a row, for the user.
struct TableFault {
    int line = 0;
    std::wstring column;  ///< as the file calls it; empty: the row as a whole
    std::wstring text;    ///< a whole sentence
};

struct PecaTable {
    std::vector<TableRow> rows;
    std::vector<TableFault> faults;
    /// Columns by the key of a line that they hold, "peca" for designations, "texto" for lines.
    std::vector<std::pair<std::wstring, std::wstring>> columns;

    /// The column in which a fault of a row's piece lies: the one whose key it names, else that of
    /// the piece.
    std::wstring columnOf(const std::wstring& fault) const;
};

/// Reads the bytes of a file: UTF-8 with or without mark, UTF-16 with mark, Windows-1252; cells
/// between semicolons, tabs or commas, or one line of text each. The columns have names, or are
/// peca, L, n, marca, vista, x, y, angulo. A decimal comma in one number makes points of groups in
/// all. Linear.
PecaTable readTable(std::string_view bytes);

}  // namespace perfis
