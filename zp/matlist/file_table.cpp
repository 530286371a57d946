// SPDX-License-Identifier: MIT
// Tables in words and in files.
#include "zp/matlist/file_table.h"

#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/matlist/formats.h"

namespace zp::matlist {

std::vector<std::vector<std::wstring>> linesOf(const FileTable& table) {
    std::vector<std::vector<std::wstring>> lines(1);
    for (const FileColumn& column : table.columns) lines[0].emplace_back(column.heading);
    for (const std::vector<Cell>& row : table.rows) {
        std::vector<std::wstring> line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const auto* text = std::get_if<std::wstring>(&row[i]);
            line.push_back(text != nullptr ? *text
                                           : texts::withComma(std::get<double>(row[i]),
                                                              table.columns[i].decimals));
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::wstring csvText(const FileTable& table) {
    std::vector<bool> numbers;
    numbers.reserve(table.columns.size());
    for (const FileColumn& column : table.columns) numbers.push_back(column.decimals >= 0);
    return csvOf(linesOf(table), numbers);
}

bool writeTable(const std::filesystem::path& destination, const FileTable& table) {
    if (texts::equalIgnoringCase(texts::shown(destination.extension()), L".xlsx"))
        return kWriteTableXlsx != nullptr && kWriteTableXlsx(destination, table);
    return writeText(destination, csvText(table));
}

}  // namespace zp::matlist
