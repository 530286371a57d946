// SPDX-License-Identifier: MIT
// Workbooks: a material list with what it comes to by what is bought, and other tables.
#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <map>

#include "files/replacement.h"
#include "texts/encoding.h"
#include "texts/number.h"
#include "zp/matlist/file_table.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/summary.h"
#include "zp/objects/secao/single.h"

namespace zp::matlist {
namespace {

/// One sheet; after the first failure nothing more is written.
class Worksheet {
public:
    Worksheet(lxw_workbook* book, const char* name)
        : m_book(book), m_worksheet(workbook_add_worksheet(book, name)) {
        constexpr std::uint8_t kA4 = 9;
        worksheet_freeze_panes(m_worksheet, 1, 0);
        worksheet_set_landscape(m_worksheet);
        worksheet_set_paper(m_worksheet, kA4);
        worksheet_fit_to_pages(m_worksheet, 1, 0);
        note(worksheet_repeat_rows(m_worksheet, 0, 0));
    }

    enum class Weight { Common, Bold };

    void width(std::size_t column, int characters, bool hidden = false) {
        lxw_row_col_options options{};
        options.hidden = hidden ? LXW_TRUE : LXW_FALSE;
        note(worksheet_set_column_opt(m_worksheet, at(column), at(column), characters, nullptr,
                                      &options));
    }
    void text(std::size_t row, std::size_t column, const std::wstring& t,
              Weight weight = Weight::Common) {
        if (t.empty()) return;
        note(worksheet_write_string(m_worksheet, static_cast<lxw_row_t>(row), at(column),
                                    texts::encodeUtf8(t).c_str(), format(-1, weight)));
    }
    /// Kept as it is shown: without what binary fractions leave behind it.
    void number(std::size_t row, std::size_t column, double value, int decimals) {
        const double v = decimals < 0 ? value : texts::toReal(texts::rounded(value, decimals));
        note(worksheet_write_number(m_worksheet, static_cast<lxw_row_t>(row), at(column), v,
                                    format(decimals, Weight::Common)));
    }
    /// `result` is what programs show that do not calculate.
    void formula(std::size_t row, std::size_t column, const std::string& f, double result,
                 int decimals, Weight weight = Weight::Common) {
        note(worksheet_write_formula_num(m_worksheet, static_cast<lxw_row_t>(row), at(column),
                                         ('=' + f).c_str(), format(decimals, weight), result));
    }
    /// Below the rows 1 to `rows`.
    void total(std::size_t rows, std::size_t column, double sum, int decimals) {
        formula(rows + 1, column, rows > 0 ? "SUM(" + range(column, rows) + ')' : "0", sum,
                decimals, Weight::Bold);
    }
    bool good() const { return m_good; }

    /// "B2", "$A2".
    static std::string cell(std::size_t row, std::size_t column) {
        std::array<char, LXW_MAX_CELL_NAME_LENGTH> name{};
        lxw_rowcol_to_cell(name.data(), static_cast<lxw_row_t>(row), at(column));
        return name.data();
    }
    /// "$B$2:$B$9", the rows 1 to `rows` of a column.
    static std::string range(std::size_t column, std::size_t rows) {
        std::array<char, LXW_MAX_CELL_RANGE_LENGTH> name{};
        lxw_rowcol_to_range_abs(name.data(), 1, at(column), static_cast<lxw_row_t>(rows),
                                at(column));
        return name.data();
    }

private:
    static lxw_col_t at(std::size_t column) { return static_cast<lxw_col_t>(column); }
    lxw_format* format(int decimals, Weight weight) {
        lxw_format*& f = m_formats[{decimals, weight}];
        if (f != nullptr) return f;
        f = workbook_add_format(m_book);
        if (weight == Weight::Bold) format_set_bold(f);
        if (decimals == 0) format_set_num_format(f, "#,##0");
        if (decimals > 0)
            format_set_num_format(
                f, ("#,##0." + std::string(static_cast<std::size_t>(decimals), '0')).c_str());
        return f;
    }
    void note(lxw_error error) { m_good = m_good && error == LXW_NO_ERROR; }

    lxw_workbook* m_book;
    lxw_worksheet* m_worksheet;
    std::map<std::pair<int, Weight>, lxw_format*> m_formats;
    bool m_good = true;
};

constexpr const char* kListName = "Lista de material";

const Column& columnWith(const Field& field) {
    return *std::ranges::find(kColumnTable, field, &Column::field);
}

/// The listing's columns and where the masses come from, then hidden ones: those that formulas need
/// and the user did not choose, and of each row what it is bought as.
class ListSheet : public Worksheet {
public:
    ListSheet(lxw_workbook* book, const Listing& listing)
        : Worksheet(book, kListName), m_listing(listing) {
        add(&massOriginOf);
        m_shown = m_listing.columns.size();
        for (const Field& field :
             {Field(&Linha::quantidade), Field(&Linha::material), Field(&Linha::comprimento),
              Field(&Linha::pesoUnitario), Field(&Linha::pesoTotal), Field(&Linha::areaPintura)})
            add(field);
        for (std::size_t i = 0; i < m_listing.columns.size(); ++i) column(i);
        text(rowCount() + 1, 0, kTotal, Weight::Bold);
        for (std::size_t i = designation(); i <= metres(); ++i) width(i, 12, true);
    }

    /// What a row is bought as, beside it.
    void share(const Share& s, const std::wstring& product) {
        const auto n = static_cast<std::size_t>(s.row - m_listing.rows.data()) + 1;
        const int singles = secao::singleOf(s.row->descricao, s.row->dimensoes).count;
        text(n, designation(), product);
        const auto pieceCount = static_cast<double>(s.pieces);
        formula(n, pieces(), cell(n, place(&Linha::quantidade)) + '*' + std::to_string(singles),
                pieceCount, 0);
        formula(n, metres(),
                cell(n, pieces()) + '*' + cell(n, place(&Linha::comprimento)) + "/1000",
                pieceCount * s.row->comprimento / 1000.0, 3);
    }

    const std::vector<Linha>& rows() const { return m_listing.rows; }
    std::size_t place(const Field& field) const {
        const auto found = std::ranges::find(m_listing.columns, field, &Column::field);
        return static_cast<std::size_t>(found - m_listing.columns.begin());
    }
    std::size_t designation() const { return m_listing.columns.size(); }
    std::size_t pieces() const { return designation() + 1; }
    std::size_t metres() const { return designation() + 2; }
    std::string rangeHere(std::size_t column) const {
        return '\'' + std::string(kListName) + "'!" + range(column, rowCount());
    }

private:
    void add(const Field& field) {
        const Column& c = columnWith(field);
        if (std::ranges::find(m_listing.columns, &c) != m_listing.columns.end()) return;
        m_listing.columns.push_back(&c);
        m_listing.decimals.push_back(c.shown.decimals);
    }
    std::size_t rowCount() const { return m_listing.rows.size(); }
    void column(std::size_t i) {
        const Column& c = *m_listing.columns[i];
        const int decimals = m_listing.decimals[i];
        width(i, c.shown.width, i >= m_shown);
        text(0, i, headingOf(c), Weight::Bold);
        for (std::size_t n = 1; n <= rowCount(); ++n) {
            const Cell value = cellOf(m_listing.rows[n - 1], c);
            if (const auto* words = std::get_if<std::wstring>(&value))
                text(n, i, *words);
            else if (c.field == Field(&Linha::pesoTotal))
                formula(
                    n, i,
                    cell(n, place(&Linha::quantidade)) + '*' + cell(n, place(&Linha::pesoUnitario)),
                    std::get<double>(value), decimals);
            else
                number(n, i, std::get<double>(value), decimals);
        }
        if (c.shown.summed) total(rowCount(), i, totalOf(m_listing, i), decimals);
    }

    Listing m_listing;
    std::size_t m_shown = 0;
};

/// Criterion of a cell's text as it is, whatever it begins with; `text` is what stands there.
std::string criterion(const std::string& cell, const std::wstring& text) {
    if (text.find_first_of(L"~*?") == std::wstring::npos) return "\"=\"&" + cell;
    return "\"=\"&SUBSTITUTE(SUBSTITUTE(SUBSTITUTE(" + cell + R"(,"~","~~"),"*","~*"),"?","~?"))";
}

void writeSummary(Worksheet& sheet, const ListSheet& list) {
    const std::vector<SummaryLine> lines = summaryOf(list.rows());
    const struct {
        std::wstring heading;
        int width;
        int decimals;
        std::size_t summed;  ///< column of the list
        double (*value)(const SummaryLine&);
    } kSums[] = {
        {L"PEÇAS", 9, 0, list.pieces(),
         [](const SummaryLine& l) { return static_cast<double>(l.pieces); }},
        {L"METROS", 12, 2, list.metres(), [](const SummaryLine& l) { return l.metres; }},
        {headingOf(columnWith(&Linha::pesoTotal)), 17, 2, list.place(&Linha::pesoTotal),
         [](const SummaryLine& l) { return l.kg; }},
        {headingOf(columnWith(&Linha::areaPintura)), 14, 2, list.place(&Linha::areaPintura),
         [](const SummaryLine& l) { return l.m2; }},
    };
    const std::size_t strip = std::size(kSums) + 2;
    sheet.text(0, 0, headingOf(columnWith(&designationOf)), Worksheet::Weight::Bold);
    sheet.text(0, 1, headingOf(columnWith(&Linha::material)), Worksheet::Weight::Bold);
    sheet.text(0, strip, L"TIRA (mm)", Worksheet::Weight::Bold);
    sheet.width(0, 30);
    sheet.width(1, 12);
    sheet.width(strip, 12);
    for (std::size_t n = 1; n <= lines.size(); ++n) {
        const SummaryLine& l = lines[n - 1];
        sheet.text(n, 0, l.designation);
        sheet.text(n, 1, l.material);
        if (l.strip > 0.0) sheet.number(n, strip, l.strip, 1);
    }
    sheet.text(lines.size() + 1, 0, kTotal, Worksheet::Weight::Bold);
    for (std::size_t i = 0; i < std::size(kSums); ++i) {
        const auto& s = kSums[i];
        const std::size_t column = i + 2;
        double sum = 0.0;
        sheet.width(column, s.width);
        sheet.text(0, column, s.heading, Worksheet::Weight::Bold);
        for (std::size_t n = 1; n <= lines.size(); ++n) {
            const SummaryLine& l = lines[n - 1];
            sum += s.value(l);
            sheet.formula(n, column,
                          "SUMIFS(" + list.rangeHere(s.summed) + ',' +
                              list.rangeHere(list.designation()) + ',' +
                              criterion('$' + Worksheet::cell(n, 0), l.designation) + ',' +
                              list.rangeHere(list.place(&Linha::material)) + ',' +
                              criterion('$' + Worksheet::cell(n, 1), l.material) + ')',
                          s.value(l), s.decimals);
        }
        sheet.total(lines.size(), column, sum, s.decimals);
    }
}

/// `fill` makes the book's sheets. A failure leaves the file that was there.
template <class Fill>
bool replaced(const std::filesystem::path& destination, Fill fill) {
    // The library writes by name, and complains on the terminal of what it cannot open.
    files::Replacement file(destination);
    if (file.open() != 0) return false;
    lxw_workbook* book = workbook_new(file.place().string().c_str());
    if (book == nullptr) return false;
    const bool good = fill(book);
    return workbook_close(book) == LXW_NO_ERROR && good && file.commit() == 0;
}

bool writeXlsx(const std::filesystem::path& destination, const Listing& listing) {
    return replaced(destination, [&](lxw_workbook* book) {
        ListSheet list(book, listing);
        for (const Product& product : productsOf(list.rows()))
            for (const Share& share : product.shares) list.share(share, product.designation);
        Worksheet summary(book, "Resumo");
        writeSummary(summary, list);
        return list.good() && summary.good();
    });
}

/// A table as it is.
bool writeTableXlsx(const std::filesystem::path& destination, const FileTable& table) {
    return replaced(destination, [&](lxw_workbook* book) {
        Worksheet sheet(book, texts::encodeUtf8(table.title).c_str());
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            sheet.width(i, table.columns[i].width);
            sheet.text(0, i, table.columns[i].heading, Worksheet::Weight::Bold);
        }
        for (std::size_t n = 0; n < table.rows.size(); ++n)
            for (std::size_t i = 0; i < table.columns.size(); ++i)
                if (const auto* words = std::get_if<std::wstring>(&table.rows[n][i]))
                    sheet.text(n + 1, i, *words);
                else
                    sheet.number(n + 1, i, std::get<double>(table.rows[n][i]),
                                 table.columns[i].decimals);
        return sheet.good();
    });
}

}  // namespace

const ListWriter kWriteXlsx = writeXlsx;
const TableWriter kWriteTableXlsx = writeTableXlsx;

}  // namespace zp::matlist
