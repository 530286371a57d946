// SPDX-License-Identifier: MIT
// A side table as a file: what catalogues cannot hold, in columns that a spreadsheet reads.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zp::tables {

/// Something in a table that cannot be used; a Portuguese reason that says what and what to do.
struct Fault {
    std::filesystem::path file;
    int line = 0;  ///< counts from 1; 0: the file as a whole
    std::wstring reason;
    bool operator==(const Fault&) const = default;
};

struct Row {
    int line = 0;
    std::vector<std::wstring> fields;  ///< trimmed, in the order of the header
};

/// Text in UTF-8 or Windows-1252, fields between semicolons. The first line names the columns;
/// lines that are empty or begin with '#' are passed over. A field that begins with a quotation
/// mark is written as spreadsheets do, between marks and with inner ones doubled; elsewhere the
/// mark is the inch's.
class TableFile {
public:
    /// A row that cannot be used is left out and told in faults(); the others are read. So is told
    /// what is there and no file, another encoding, another separator (no row is read then) and a
    /// column that is named twice (the first one holds).
    static TableFile read(const std::filesystem::path& path);

    /// False: there is no such file, which is no fault by itself, or none that can be read.
    bool opened() const { return m_opened; }
    const std::filesystem::path& path() const { return m_path; }
    /// Of a name, whatever its case; -1 when the table has no such column.
    int column(std::wstring_view name) const;
    const std::vector<Row>& rows() const { return m_rows; }
    /// Empty where the row has no such field, also for column -1.
    std::wstring text(const Row& row, int column) const;
    /// Decimal point or comma. Nothing for an empty field, and for one that is no number, which is
    /// told in faults(): ask once.
    std::optional<double> number(const Row& row, int column);
    /// Their places; nothing, and told, when one is missing.
    std::optional<std::vector<int>> columns(std::span<const wchar_t* const> names);
    /// Another fault of a row, found by who knows what its columns mean.
    void refuse(const Row& row, std::wstring reason);
    const std::vector<Fault>& faults() const { return m_faults; }

private:
    void addLine(int line, std::wstring_view text);
    void readHeader(Row row);

    std::filesystem::path m_path;
    bool m_opened = false;
    std::vector<std::wstring> m_header;
    std::vector<Row> m_rows;
    std::vector<Fault> m_faults;
};

/// The fault as a line for the user: "i.csv, linha 4: ...".
std::wstring told(const Fault& fault);

}  // namespace zp::tables
