// SPDX-License-Identifier: MIT
// The material list as users see it: a table in the drawing, a file for a spreadsheet.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "zp/matlist/lista.h"

namespace zp::lista {

inline constexpr std::size_t kColunas = 10;

struct Coluna {
    const wchar_t* titulo;
    bool numerica;
};

inline constexpr std::array<Coluna, kColunas> kTitulos{{{L"MARCA", false},
                                                        {L"QUANT.", true},
                                                        {L"DESCRIÇÃO", false},
                                                        {L"DIMENSÕES", false},
                                                        {L"MATERIAL", false},
                                                        {L"COMPR. (mm)", true},
                                                        {L"PESO UNIT. (kg)", true},
                                                        {L"PESO TOTAL (kg)", true},
                                                        {L"PINTURA (m2)", true},
                                                        {L"OBSERVAÇÃO", false}}};

/// Mass in kg and paint area in m2 of the rows that count.
struct Totais {
    double peso = 0.0;
    double pintura = 0.0;
};
Totais totaisDe(const std::vector<Linha>& linhas);

std::string utf8(const std::wstring& texto);
std::filesystem::path caminhoDe(const std::wstring& texto);
/// To be shown only: what is no text becomes question marks.
std::wstring textoDe(const std::filesystem::path& caminho);

/// Draws the table in the current space with its upper left corner at the list's point, in place of
/// the one drawn before. False when the list cannot be read or written.
bool desenhaTabela(const Lista& lista);

/// Rows as text: semicolon between fields, decimal comma, CR LF, a heading line first. Fields with
/// a semicolon, a quote or a line end are quoted. Before a text that a spreadsheet would run as a
/// formula (its first character is one of = + - @, a tab or a return) stands an apostrophe.
std::wstring textoCsv(const std::vector<Linha>& linhas);

/// Writes the rows as UTF-8 with a mark. A failure leaves the file that was there.
bool gravaCsv(const std::filesystem::path& destino, const std::vector<Linha>& linhas);

/// False where the program was built without workbooks: gravaXlsx only fails then.
bool sabeXlsx();

/// Writes the rows and their totals as a workbook with numbers as numbers. A failure leaves the
/// file that was there.
bool gravaXlsx(const std::filesystem::path& destino, const std::vector<Linha>& linhas);

/// The command LISTAMATERIAL.
void comandoListaMaterial();

}  // namespace zp::lista
