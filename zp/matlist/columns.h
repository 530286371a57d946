// SPDX-License-Identifier: MIT
// The columns of a material list: the one place that tells what a row has, in which order, and how
// it is shown. Record, table, files, report, property sheet and the user's choice follow it.
#pragma once

#include <array>
#include <string>
#include <variant>

#include "protocol/report.h"
#include "zp/matlist/zpmatlist.h"

namespace zp::matlist {

/// A member is kept in the row's record; what a function tells follows from the others.
using Field = std::variant<std::wstring Linha::*, int Linha::*, double Linha::*,
                           std::wstring (*)(const Linha&), double (*)(const Linha&)>;

enum class Decimals {
    Fixed,
    Needed,  ///< as many, in all rows alike, as the row that needs most
};

struct Column {
    protocol::ListColumn shown;
    Field field;
    Decimals decimals = Decimals::Fixed;
};

inline constexpr std::size_t kColumns = 13;
extern const std::array<Column, kColumns> kColumnTable;

/// Name of what the row's members are, as the trade has it; text and sizes where it has none.
std::wstring designationOf(const Linha& row);
/// "tabela (geometria -0,8 %)".
std::wstring massOriginOf(const Linha& row);
/// Of all pieces of the row, after the cuts of their ends, kg.
double netMassOf(const Linha& row);

/// A value as a reader gets it: text or number.
using Cell = std::variant<std::wstring, double>;
/// The remark of a row also says what was erased.
Cell cellOf(const Linha& row, const Column& column);
/// "PESO UNIT. (kg)", without characters that old drawing fonts lack.
std::wstring headingOf(const Column& column);

/// Columns and formats as a host reads them.
const protocol::ListSchema& listSchema();

}  // namespace zp::matlist
