// SPDX-License-Identifier: MIT
// The material list as users see it: a table in the drawing, a file for a spreadsheet.
#pragma once

#include <string>
#include <vector>

#include "zp/matlist/lista.h"

namespace zp::lista {

/// Draws the table in the current space with its upper left corner at the list's point, in place of
/// the one drawn before. False when the list cannot be read or written.
bool desenhaTabela(const Lista& lista);

/// Rows as text: semicolon between fields, decimal comma, CR LF, a heading line first. Fields with
/// a semicolon, a quote or a line end are quoted.
std::wstring textoCsv(const std::vector<Linha>& linhas);

/// Writes the rows as UTF-8 with a mark; through a temporary file, so that a failure leaves the old
/// one.
bool gravaCsv(const std::wstring& caminho, const std::vector<Linha>& linhas);

/// The command LISTAMATERIAL.
void comandoListaMaterial();

}  // namespace zp::lista
