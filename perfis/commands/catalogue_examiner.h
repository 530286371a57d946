// SPDX-License-Identifier: MIT
// Whether lists and side tables hold what can be drawn, bought and believed.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "perfis/commands/catalogue_families.h"
#include "protocol/check.h"
#include "zp/tables/table_file.h"

namespace perfis {

/// As protocol::CatalogueFinding, kept.
struct CatalogueFinding {
    protocol::Severity severity = protocol::Severity::Fault;
    std::wstring file;
    int line = 0;
    std::wstring row;
    std::wstring text;
    std::wstring remedy;
};
using CatalogueFindings = std::vector<CatalogueFinding>;

struct CatalogueFolders {
    std::filesystem::path lists;
    std::filesystem::path tables;  ///< may not exist
};
/// Of an installation folder, or of its folder of lists; a folder of lists alone is held against
/// the tables of the program's own installation. Nothing for any other folder.
std::optional<CatalogueFolders> cataloguesIn(const std::filesystem::path& folder);

/// What a row of a side table prints.
struct TabledRow {
    std::wstring designacao;
    std::optional<double> peso;  ///< kg/m
};
/// A size of a family, from rows that its reader takes.
struct TabledSize {
    int place = 0;  ///< in the order of its tables
    std::optional<TabledRow> delivered;
    std::optional<TabledRow> own;  ///< the user's, which goes before
};
struct SideTable {
    bool there = false;  ///< the table that is delivered, whatever it holds
    std::map<SizeKey, TabledSize> sizes;
};
/// By family, in the order of families().
using SideTables = std::vector<SideTable>;

/// What the reader of a table says, as a finding.
CatalogueFinding findingOf(const zp::tables::Fault& fault);

/// The side tables of a folder, with the user's own (l_usuario.csv, l_obra_usuario.csv). What is
/// wrong with them goes to `findings`: rows that cannot be read or drawn, values that contradict
/// each other or the outline, sizes that stand twice. What a row's own remark explains is a hint.
SideTables examineTables(const std::filesystem::path& folder, CatalogueFindings& findings);

/// The shop's widths of strips and factors K of the same folder: rows that cannot be read or do not
/// hold; a width whose name no table has is a hint.
void examineStrips(const std::filesystem::path& folder, const SideTables& tables,
                   CatalogueFindings& findings);

/// What is wrong with the lists of a folder: columns, outline, mass, pairs, doubles, order, sizes
/// that no table has, tables that are not there. A list that is not there is a hint; so is what
/// differs from a user's own row. O(n log n).
void examineLists(const std::filesystem::path& folder, const SideTables& tables,
                  CatalogueFindings& findings);

/// All of it, in this order.
CatalogueFindings examineCatalogues(const CatalogueFolders& folders);

}  // namespace perfis
