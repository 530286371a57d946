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

/// Sizes in the order of their family's columns, in hundredths of a mm.
using SizeKey = std::vector<long>;
/// `sizes`: where they stand in the dialog.
SizeKey sizeKeyOf(const Family& family, std::span<const SizeColumn> sizes, const Medidas& medidas);

/// A size of a family: the order in which its tables have it, and what they print.
struct TabledSize {
    int place = 0;
    bool own = false;  ///< a user's row, which goes before that of the same size
    std::wstring designacao;
    std::optional<double> peso;  ///< kg/m
};
/// By family, in the order of families(); tables that are not there have no sizes.
using SideTables = std::vector<std::map<SizeKey, TabledSize>>;

/// The side tables of a folder, with the user's own (l_usuario.csv, l_obra_usuario.csv). What is
/// wrong with them goes to `findings`: rows that cannot be read or drawn, values that contradict
/// each other or the outline, sizes that stand twice. What a row's own remark explains is a hint.
SideTables examineTables(const std::filesystem::path& folder, CatalogueFindings& findings);

/// What is wrong with the lists of a folder: columns, outline, mass, pairs, doubles, order, and
/// sizes that no table has. A list that is not there says nothing. O(n log n).
void examineLists(const std::filesystem::path& folder, const SideTables& tables,
                  CatalogueFindings& findings);

}  // namespace perfis
