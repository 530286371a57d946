// SPDX-License-Identifier: MIT
// What panels and commands show, as tables for files.
#pragma once

#include "zp/matlist/file_table.h"
#include "zp/matlist/zpmatlist.h"

class AcDbDatabase;

namespace zp::matlist {

/// As RESUMO prints it; what fits no bar is left out of the bars and told by an asterisk.
FileTable summaryTable(const std::vector<Linha>& rows);
/// A row for each finding of CONFERIR.
FileTable findingsTable(AcDbDatabase& drawing);
/// By name, with how many objects of all spaces and blocks stand on each.
FileTable layersTable(AcDbDatabase& drawing);

/// The command EXPORTAR.
inline constexpr const wchar_t* kExportCommand = L"EXPORTAR";
void exportCommand();

}  // namespace zp::matlist
