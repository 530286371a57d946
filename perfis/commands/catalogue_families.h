// SPDX-License-Identifier: MIT
// Which list holds sizes of which family, and how a size is written in lists and side tables.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "perfis/commands/handlers.h"
#include "zp/tables/published.h"

namespace perfis {

/// A number of the dialog and the column of the side tables that has it.
struct SizeColumn {
    const wchar_t* name;
    Medida medida;
};

/// How the values that a table prints follow from each other.
enum class Symmetry {
    kBoth,   ///< W = 2 I / h, about both axes
    kUpper,  ///< about x alone, as a U: y from xg
    kNone,   ///< an angle: both from xg
    kRound,
    kTube,  ///< as kBoth; nobody prints the radii of its corners
    kTee,   ///< about y alone: x from yg
};

/// A side table and the sections of its rows.
struct Family {
    const wchar_t* table;  ///< file name without its ending
    Symmetry symmetry;
    std::span<const SizeColumn> sizes;
    const PerfilCommand* command;  ///< that draws them; null: none does
    int source = 0;                ///< of the command
    bool eitherWay = false;        ///< h and b may change places
    /// mm2, where no command draws them.
    double (*area)(const Medidas&) = nullptr;
};

std::span<const Family> families();
/// The place in families() of the one that a table of this name belongs to.
std::optional<std::size_t> familyOf(const zp::tables::TableName& name);

/// Sizes in the order of their family's columns, in hundredths of a mm.
using SizeKey = std::vector<long>;
/// `sizes`: where they stand in the dialog.
SizeKey sizeKeyOf(const Family& family, std::span<const SizeColumn> sizes, const Medidas& medidas);

/// What the lines of a shown list have of the sizes.
enum class Shown {
    kName,            ///< "W 150 x 13.0"
    kNameAndColumns,  ///< "CS150x25    150   25.4": height and mass behind the name
    kColumns,
};

/// A list of sizes.
struct SizeList {
    const wchar_t* file;
    const wchar_t* table;  ///< of its family; null: sizes that every user chooses
    const PerfilCommand& command;
    int source = 0;
    const wchar_t* shown = nullptr;  ///< list with the same sizes line by line
    bool peso = false;               ///< the last column is the linear mass
    std::size_t firstColumn = 0;     ///< of the numbers
    /// Where the family's sizes stand in the dialog; empty: as the family has them.
    std::span<const SizeColumn> sizes{};
    bool blankRows = false;  ///< an empty line is a row
    bool oneMore = false;    ///< rows may have a column that nobody reads
    Shown shows = Shown::kNameAndColumns;
};

std::span<const SizeList> sizeLists();

}  // namespace perfis
