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
    explicit Folha(lxw_workbook* livro)
        : m_folha(workbook_add_worksheet(livro, "Lista de material")), m_titulo(negrito(livro)) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            m_comum[i] = formato(workbook_add_format(livro), i);
            m_total[i] = formato(negrito(livro), i);
            const auto coluna = static_cast<lxw_col_t>(i);
            nota(worksheet_set_column(m_folha, coluna, coluna, kColumnTable[i].shown.width,
                                      nullptr));
        }
    }

    void titulos() {
        for (std::size_t i = 0; i < kColumns; ++i) poe(i, headingOf(kColumnTable[i]), m_titulo);
        worksheet_freeze_panes(m_folha, 1, 0);
        ++m_linha;
    }
    void linha(const Linha& l) {
        for (std::size_t i = 0; i < kColumns; ++i) {
            const Cell cell = cellOf(l, kColumnTable[i]);
            if (const auto* text = std::get_if<std::wstring>(&cell))
                texto(i, *text);
            else
                real(i, std::get<double>(cell), m_comum);
        }
        ++m_linha;
    }
    void totais(const std::array<double, kColumns>& totals) {
        poe(0, kTotal, m_total[0]);
        for (std::size_t i = 0; i < kColumns; ++i)
            if (kColumnTable[i].shown.summed) real(i, totals[i], m_total);
    }
    bool boa() const { return m_boa; }

private:
    static lxw_format* negrito(lxw_workbook* livro) {
        lxw_format* f = workbook_add_format(livro);
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
    void nota(lxw_error erro) { m_boa = m_boa && erro == LXW_NO_ERROR; }
    void poe(std::size_t coluna, const std::wstring& t, lxw_format* f) {
        nota(worksheet_write_string(m_folha, m_linha, static_cast<lxw_col_t>(coluna),
                                    texts::encodeUtf8(t).c_str(), f));
    }
    void texto(std::size_t coluna, const std::wstring& t) {
        if (!t.empty()) poe(coluna, t, m_comum[coluna]);
    }
    void real(std::size_t coluna, double v, const std::array<lxw_format*, kColumns>& formatos) {
        nota(worksheet_write_number(m_folha, m_linha, static_cast<lxw_col_t>(coluna), v,
                                    formatos[coluna]));
    }

    lxw_worksheet* m_folha;
    lxw_format* m_titulo;
    std::array<lxw_format*, kColumns> m_comum{};
    std::array<lxw_format*, kColumns> m_total{};
    lxw_row_t m_linha = 0;
    bool m_boa = true;
};

bool escreve(const std::filesystem::path& caminho, const std::vector<Linha>& linhas) {
    lxw_workbook* livro = workbook_new(caminho.string().c_str());
    if (livro == nullptr) return false;
    Folha folha(livro);
    folha.titulos();
    for (const Linha& l : linhas) folha.linha(l);
    folha.totais(totalsOf(linhas));
    return workbook_close(livro) == LXW_NO_ERROR && folha.boa();
}

bool writeXlsx(const std::filesystem::path& destino, const std::vector<Linha>& linhas) {
    // The library writes by name, and complains on the terminal of what it cannot open.
    files::Replacement arquivo(destino);
    return arquivo.open() == 0 && escreve(arquivo.place(), linhas) && arquivo.commit() == 0;
}

}  // namespace

const ListWriter kWriteXlsx = writeXlsx;

}  // namespace zp::lista
