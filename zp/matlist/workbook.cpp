// SPDX-License-Identifier: MIT
// Workbook of a material list.
#include <xlsxwriter.h>

#include "files/replacement.h"
#include "texts/encoding.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/formats.h"

namespace zp::matlist {
namespace {

/// One sheet; after the first failure nothing more is written.
class Worksheet {
public:
    explicit Worksheet(lxw_workbook* book)
        : m_worksheet(workbook_add_worksheet(book, "Lista de material")), m_title(bold(book)) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            m_common[i] = format(workbook_add_format(book), i);
            m_total[i] = format(bold(book), i);
            const auto column = static_cast<lxw_col_t>(i);
            note(worksheet_set_column(m_worksheet, column, column, kColumnTable[i].shown.width,
                                      nullptr));
        }
    }

    void titles() {
        for (std::size_t i = 0; i < kColumns; ++i) put(i, headingOf(kColumnTable[i]), m_title);
        worksheet_freeze_panes(m_worksheet, 1, 0);
        ++m_row;
    }
    void row(const Linha& l) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            const Cell cell = cellOf(l, kColumnTable[i]);
            if (const auto* text = std::get_if<std::wstring>(&cell))
                putText(i, *text);
            else
                real(i, std::get<double>(cell), m_common);
        }
        ++m_row;
    }
    void totals(const std::array<double, kColumns>& totals) {
        put(0, kTotal, m_total[0]);
        for (std::size_t i = 0; i < kColumns; ++i)
            if (kColumnTable[i].shown.summed) real(i, totals[i], m_total);
    }
    bool good() const { return m_good; }

private:
    static lxw_format* bold(lxw_workbook* book) {
        lxw_format* f = workbook_add_format(book);
        format_set_bold(f);
        return f;
    }
    static lxw_format* format(lxw_format* f, std::size_t column) {
        const int decimals = kColumnTable[column].shown.decimals;
        if (decimals == 0) format_set_num_format(f, "0");
        if (decimals > 0)
            format_set_num_format(
                f, ("#,##0." + std::string(static_cast<std::size_t>(decimals), '0')).c_str());
        return f;
    }
    void note(lxw_error error) { m_good = m_good && error == LXW_NO_ERROR; }
    void put(std::size_t column, const std::wstring& t, lxw_format* f) {
        note(worksheet_write_string(m_worksheet, m_row, static_cast<lxw_col_t>(column),
                                    texts::encodeUtf8(t).c_str(), f));
    }
    void putText(std::size_t column, const std::wstring& t) {
        if (!t.empty()) put(column, t, m_common[column]);
    }
    void real(std::size_t column, double v, const std::array<lxw_format*, kColumns>& formats) {
        note(worksheet_write_number(m_worksheet, m_row, static_cast<lxw_col_t>(column), v,
                                    formats[column]));
    }

    lxw_worksheet* m_worksheet;
    lxw_format* m_title;
    std::array<lxw_format*, kColumns> m_common{};
    std::array<lxw_format*, kColumns> m_total{};
    lxw_row_t m_row = 0;
    bool m_good = true;
};

bool writeBook(const std::filesystem::path& path, const std::vector<Linha>& rows) {
    lxw_workbook* book = workbook_new(path.string().c_str());
    if (book == nullptr) return false;
    Worksheet worksheet(book);
    worksheet.titles();
    for (const Linha& l : rows) worksheet.row(l);
    worksheet.totals(totalsOf(rows));
    return workbook_close(book) == LXW_NO_ERROR && worksheet.good();
}

bool writeXlsx(const std::filesystem::path& destination, const std::vector<Linha>& rows) {
    // The library writes by name, and complains on the terminal of what it cannot open.
    files::Replacement file(destination);
    return file.open() == 0 && writeBook(file.place(), rows) && file.commit() == 0;
}

}  // namespace

const ListWriter kWriteXlsx = writeXlsx;

}  // namespace zp::matlist
