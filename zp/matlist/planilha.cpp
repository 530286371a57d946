// SPDX-License-Identifier: MIT
// Workbook of a material list.
#include <xlsxwriter.h>

#include "files/replacement.h"
#include "zp/matlist/tabela.h"

namespace zp::lista {
namespace {

/// Widths in characters, formats of the numbers.
struct Feitio {
    double largura;
    const char* formato;
};
constexpr std::array<Feitio, kColunas> kFeitios{{{9, ""},
                                                 {9, "0"},
                                                 {16, ""},
                                                 {24, ""},
                                                 {12, ""},
                                                 {13, "#,##0.0"},
                                                 {16, "#,##0.00"},
                                                 {17, "#,##0.00"},
                                                 {14, "#,##0.000"},
                                                 {36, ""}}};

/// One sheet; after the first failure nothing more is written.
class Folha {
public:
    explicit Folha(lxw_workbook* livro)
        : m_folha(workbook_add_worksheet(livro, "Lista de material")), m_titulo(negrito(livro)) {
        for (std::size_t i = 0; i < kColunas; ++i) {
            m_comum[i] = formato(workbook_add_format(livro), i);
            m_total[i] = formato(negrito(livro), i);
            const auto coluna = static_cast<lxw_col_t>(i);
            nota(worksheet_set_column(m_folha, coluna, coluna, kFeitios[i].largura, nullptr));
        }
    }

    void titulos() {
        for (std::size_t i = 0; i < kColunas; ++i) poe(i, kTitulos[i].titulo, m_titulo);
        worksheet_freeze_panes(m_folha, 1, 0);
        ++m_linha;
    }
    void linha(const Linha& l) {
        texto(0, l.marca);
        real(1, l.quantidade);
        texto(2, l.descricao);
        texto(3, l.dimensoes);
        texto(4, l.material);
        real(5, l.comprimento);
        real(6, l.pesoUnitario);
        real(7, l.pesoTotal);
        real(8, l.areaPintura);
        texto(9, observacaoDe(l));
        ++m_linha;
    }
    void totais(const Totais& t) {
        poe(0, L"TOTAL", m_total[0]);
        nota(worksheet_write_number(m_folha, m_linha, 7, t.peso, m_total[7]));
        nota(worksheet_write_number(m_folha, m_linha, 8, t.pintura, m_total[8]));
    }
    bool boa() const { return m_boa; }

private:
    static lxw_format* negrito(lxw_workbook* livro) {
        lxw_format* f = workbook_add_format(livro);
        format_set_bold(f);
        return f;
    }
    static lxw_format* formato(lxw_format* f, std::size_t coluna) {
        if (*kFeitios[coluna].formato != '\0') format_set_num_format(f, kFeitios[coluna].formato);
        return f;
    }
    void nota(lxw_error erro) { m_boa = m_boa && erro == LXW_NO_ERROR; }
    void poe(std::size_t coluna, const std::wstring& t, lxw_format* f) {
        nota(worksheet_write_string(m_folha, m_linha, static_cast<lxw_col_t>(coluna),
                                    utf8(t).c_str(), f));
    }
    void texto(std::size_t coluna, const std::wstring& t) {
        if (!t.empty()) poe(coluna, t, m_comum[coluna]);
    }
    void real(std::size_t coluna, double v) {
        nota(worksheet_write_number(m_folha, m_linha, static_cast<lxw_col_t>(coluna), v,
                                    m_comum[coluna]));
    }

    lxw_worksheet* m_folha;
    lxw_format* m_titulo;
    std::array<lxw_format*, kColunas> m_comum{};
    std::array<lxw_format*, kColunas> m_total{};
    lxw_row_t m_linha = 0;
    bool m_boa = true;
};

bool escreve(const std::filesystem::path& caminho, const std::vector<Linha>& linhas) {
    lxw_workbook* livro = workbook_new(caminho.string().c_str());
    if (livro == nullptr) return false;
    Folha folha(livro);
    folha.titulos();
    for (const Linha& l : linhas) folha.linha(l);
    folha.totais(totaisDe(linhas));
    return workbook_close(livro) == LXW_NO_ERROR && folha.boa();
}

}  // namespace

bool sabeXlsx() { return true; }

bool gravaXlsx(const std::filesystem::path& destino, const std::vector<Linha>& linhas) {
    // The library writes by name, and complains on the terminal of what it cannot open.
    files::Replacement arquivo(destino);
    return arquivo.open() == 0 && escreve(arquivo.place(), linhas) && arquivo.commit() == 0;
}

}  // namespace zp::lista
