// SPDX-License-Identifier: MIT
// File formats of a material list: a new one is a row here and its writer.
#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "protocol/report.h"
#include "zp/matlist/listing.h"

namespace zp::matlist {

/// Writes headings, rows and totals. A failure leaves the file that was there.
using ListWriter = bool (*)(const std::filesystem::path& destination, const Listing& listing);

struct Format {
    protocol::ListFormat shown;
    ListWriter write;  ///< null where the program was built without it
};

/// Semicolon between fields, CR LF. Fields with a semicolon, a quote or a line end are quoted.
/// Before a text that a spreadsheet would run as a formula (its first character is one of = + - @,
/// a tab or a return) stands an apostrophe, in the columns that are not of `numbers`.
std::wstring csvOf(const std::vector<std::vector<std::wstring>>& lines,
                   const std::vector<bool>& numbers);
/// Headings first, totals last, decimal comma.
std::wstring csvText(const Listing& listing);
/// In UTF-8, with a mark for spreadsheets.
bool writeText(const std::filesystem::path& destination, const std::wstring& text,
               bool mark = true);
bool writeCsv(const std::filesystem::path& destination, const Listing& listing);
/// Workbook with numbers as numbers and totals as formulas; a second sheet sums the rows by what is
/// bought for them.
extern const ListWriter kWriteXlsx;

/// Global name of the command, and its word that draws the table.
inline constexpr const wchar_t* kListCommand = L"LISTAMATERIAL";
inline constexpr const wchar_t* kDrawWord = L"Table";

inline constexpr std::size_t kFormats = 2;
inline const std::array<Format, kFormats> kFormatTable{{
    {{L"Csv", L"CSV", L"csv"}, writeCsv},
    {{L"Xlsx", L"XLSX", L"xlsx"}, kWriteXlsx},
}};

}  // namespace zp::matlist
