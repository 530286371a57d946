// SPDX-License-Identifier: MIT
// Workbook of a material list.
#include <xlsxwriter.h>

#include "files/replacement.h"
#include "texts/encoding.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/formats.h"

namespace zp::lista {
namespace {

/// One sheet; after the first failure nothing more is written.
class Folha {
public:
    explicit Folha(lxw_workbook* book)
        : m_worksheet(workbook_add_worksheet(book, "Lista de material")), m_title(bold(book)) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            m_common[i] = formato(workbook_add_format(book), i);
            m_total[i] = formato(bold(book), i);
            const auto coluna = static_cast<lxw_col_t>(i);
            nota(worksheet_set_column(m_worksheet, coluna, coluna, kColumnTable[i].shown.width,
                                      nullptr));
        }
    }

    void titles() {
        for (std::size_t i = 0; i < kColumns; ++i) poe(i, headingOf(kColumnTable[i]), m_title);
        worksheet_freeze_panes(m_worksheet, 1, 0);
        ++m_row;
    }
    void linha(const Linha& l) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            const Cell cell = cellOf(l, kColumnTable[i]);
            if (const auto* text = std::get_if<std::wstring>(&cell))
                texto(i, *text);
            else
                real(i, std::get<double>(cell), m_common);
        }
        ++m_row;
    }
    void totais(const std::array<double, kColumns>& totals) {
        poe(0, kTotal, m_total[0]);
        for (std::size_t i = 0; i < kColumns; ++i)
            if (kColumnTable[i].shown.summed) real(i, totals[i], m_total);
    }
    bool boa() const { return m_good; }

private:
    static lxw_format* bold(lxw_workbook* book) {
        lxw_format* f = workbook_add_format(book);
        format_set_bold(f);
        return f;
    }
    static lxw_format* formato(lxw_format* f, std::size_t coluna) {
        const int decimais = kColumnTable[coluna].shown.decimals;
        if (decimais == 0) format_set_num_format(f, "0");
        if (decimais > 0)
            format_set_num_format(
                f, ("#,##0." + std::string(static_cast<std::size_t>(decimais), '0')).c_str());
        return f;
    }
    void nota(lxw_error erro) { m_good = m_good && erro == LXW_NO_ERROR; }
    void poe(std::size_t coluna, const std::wstring& t, lxw_format* f) {
        nota(worksheet_write_string(m_worksheet, m_row, static_cast<lxw_col_t>(coluna),
                                    texts::encodeUtf8(t).c_str(), f));
    }
    void texto(std::size_t coluna, const std::wstring& t) {
        if (!t.empty()) poe(coluna, t, m_common[coluna]);
    }
    void real(std::size_t coluna, double v, const std::array<lxw_format*, kColumns>& formats) {
        nota(worksheet_write_number(m_worksheet, m_row, static_cast<lxw_col_t>(coluna), v,
                                    formats[coluna]));
    }

    lxw_worksheet* m_worksheet;
    lxw_format* m_title;
    std::array<lxw_format*, kColumns> m_common{};
    std::array<lxw_format*, kColumns> m_total{};
    lxw_row_t m_row = 0;
    bool m_good = true;
};

bool escreve(const std::filesystem::path& caminho, const std::vector<Linha>& linhas) {
    lxw_workbook* book = workbook_new(caminho.string().c_str());
    if (book == nullptr) return false;
    Folha folha(book);
    folha.titles();
    for (const Linha& l : linhas) folha.linha(l);
    folha.totais(totalsOf(linhas));
    return workbook_close(book) == LXW_NO_ERROR && folha.boa();
}

bool writeXlsx(const std::filesystem::path& destino, const std::vector<Linha>& linhas) {
    // The library writes by name, and complains on the terminal of what it cannot open.
    files::Replacement arquivo(destino);
    return arquivo.open() == 0 && escreve(arquivo.place(), linhas) && arquivo.commit() == 0;
}

}  // namespace

const ListWriter kWriteXlsx = writeXlsx;

}  // namespace zp::lista
