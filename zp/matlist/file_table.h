// SPDX-License-Identifier: MIT
// What is shown as a table, as text files and workbooks take it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "zp/matlist/columns.h"

namespace zp::matlist {

struct FileColumn {
    const wchar_t* heading;
    int decimals;  ///< -1: a text
    int width;     ///< characters that usual values take
};
struct FileTable {
    std::wstring title;
    std::vector<FileColumn> columns;
    std::vector<std::vector<Cell>> rows;
};

/// Headings and rows in words: decimal comma.
std::vector<std::vector<std::wstring>> linesOf(const FileTable& table);
std::wstring csvText(const FileTable& table);

/// In the format that the extension tells, .xlsx or a text file. A failure leaves the file that was
/// there; a workbook is one where the program was built without them.
bool writeTable(const std::filesystem::path& destination, const FileTable& table);

using TableWriter = bool (*)(const std::filesystem::path& destination, const FileTable& table);
/// Null where the program was built without it.
extern const TableWriter kWriteTableXlsx;

}  // namespace zp::matlist
