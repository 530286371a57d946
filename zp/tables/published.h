// SPDX-License-Identifier: MIT
// What mills and standards print of a size: its commercial name, mass, area and radii, found by the
// size's numbers.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "zp/tables/table_file.h"

namespace zp::tables {

/// One table a family; its file has that name and ".csv".
enum class Family : std::uint8_t {
    W,  ///< HP too
    Ipe,
    I,
    U,
    L,
    Vs,
    Cvs,
    Cs,
    TuboRetangular,
    TuboRedondo,
    BarraRedonda,
    UDobrado,
    UEnrijecido,
    ZDobrado,
    Cartola,
    CantoneiraDobrada,
    kTotal,
};

/// The numbers of a size, mm, in the order of the family's columns; those that it lacks are 0.
/// Height and width of angles and rectangular tubes may stand in either order.
///
///     W Ipe I Vs Cvs Cs  h b tw tf      L TuboRetangular UDobrado CantoneiraDobrada  h b t
///     U                  h b tw         UEnrijecido ZDobrado Cartola                 h b aba t
///     TuboRedondo        d t            BarraRedonda                                 d
struct Size {
    Family family = Family::kTotal;
    std::array<double, 4> v{};
};

/// A row of a table, of one single shape. What the source does not print is negative.
struct Published {
    std::wstring name;      ///< "W 150 x 13,0"
    double kgMetro = -1.0;  ///< kg/m
    double area = -1.0;     ///< mm2; none that weighs 1 % above the mass
    double root = -1.0;     ///< radius of the fillets, mm
    double toe = -1.0;      ///< radius of the toes, mm
};

/// A row that can be used.
struct SizedRow {
    std::array<double, 4> v{};  ///< mm, in the order of the columns asked for
    Published published;
};
/// The row's size, of at most four columns, and what it prints. Nothing, and told in the table's
/// faults, when a size is missing, the name is none, or mass, area or a radius is what no rolled or
/// bent shape of that size has.
std::optional<SizedRow> sizedRow(TableFile& table, const Row& row,
                                 std::span<const wchar_t* const> columns);

/// All tables of one folder, the users' own rows ("w_hp_usuario.csv") before those of the same size
/// that come with the program.
class PublishedTables {
public:
    /// A folder that is not there has no rows.
    explicit PublishedTables(const std::filesystem::path& folder);

    /// The row whose numbers are all within 0.01 mm, the nearest of several; null when there is
    /// none. O(log n + rows of one height).
    const Published* find(Size size) const;
    /// Rows and files that cannot be used.
    const std::vector<Fault>& faults() const { return m_faults; }

private:
    /// The numbers of a size lie close together, because a search passes over all of one height.
    struct Entry {
        std::array<double, 4> v{};
        std::size_t row = 0;
    };
    void read(const std::filesystem::path& file, Family family);

    std::array<std::vector<Entry>, static_cast<std::size_t>(Family::kTotal)> m_entries;
    std::vector<Published> m_rows;
    std::vector<Fault> m_faults;
};

/// A table that stands in a folder; `stem` is its name in small letters, without the "_usuario" of
/// a user's own.
struct TableName {
    std::filesystem::path path;
    std::wstring stem;
    bool own = false;

    /// Of a user's one also when more follows: "w_hp_obra" is of "w_hp". Of several tables that fit
    /// the one with the longest name is meant.
    bool isOf(std::wstring_view table) const;
};
/// The users' own first, each kind in the order of the names, so that machines agree: of two rows
/// of a size the first one read counts.
std::vector<TableName> tablesIn(const std::filesystem::path& folder);

/// Where an installation keeps its tables.
std::filesystem::path tablesFolder(const std::filesystem::path& installation);

/// The tables of an installation, read once and again when their folder has changed, which is
/// looked at once a second.
std::shared_ptr<const PublishedTables> publishedOf(const std::filesystem::path& installation);

}  // namespace zp::tables
