// SPDX-License-Identifier: MIT
// The lists of a command, one after the other, through a run that nobody sees.
#include "perfis/commands/listed_sizes.h"

#include <algorithm>
#include <optional>
#include <set>
#include <span>

#include "perfis/commands/catalogue_families.h"
#include "perfis/commands/command_table.h"
#include "perfis/dialogs/installation.h"
#include "texts/number.h"

namespace perfis {
namespace {

ListRow rowOf(const PerfilDescription& description, const Medidas& medidas,
              const zp::tables::Published& published) {
    ListRow row{published.name, {}};
    for (const MedidaTile& tile : description.tiles)
        if (tile.rowUse == RowUse::kFills)
            row.fields.push_back(texts::withPoint(medidas.*tile.value, 4));
    row.fields.push_back(texts::withPoint(std::max(published.kgMetro, 0.0), 4));
    return row;
}

/// Where a command has the sizes of a family, which the single shapes of a pair have, too.
struct SizesOf {
    std::span<const SizeColumn> columns;
    int source = 0;
};

/// Nothing for a family that the command does not draw.
std::optional<SizesOf> sizesOf(const PerfilCommand& command, const Family& family) {
    if (family.command == &command) return SizesOf{family.sizes, family.source};
    const wchar_t* const list = command.description.list;
    for (const SizeList& its : sizeLists()) {
        const bool drawn =
            &its.command == &command || (list != nullptr && std::wstring_view(its.file) == list);
        if (drawn && its.table != nullptr && std::wstring_view(its.table) == family.table)
            return SizesOf{its.sizes.empty() ? family.sizes : its.sizes, its.source};
    }
    return {};
}

/// What cannot be used of a table is told by CATALOGOS.
void addOwnSizes(const PerfilDescription& description, const Family& family, const SizesOf& its,
                 const std::filesystem::path& path, std::vector<ListedSize>& sizes) {
    zp::tables::TableFile table = zp::tables::TableFile::read(path);
    std::vector<const wchar_t*> columns;
    for (const SizeColumn& size : its.columns) columns.push_back(size.name);
    if (!table.columns(columns)) return;
    std::set<SizeKey> listed;
    for (const ListedSize& size : sizes)
        if (size.source == its.source)
            listed.insert(sizeKeyOf(family, its.columns, medidasOf(description, size.text)));
    for (const zp::tables::Row& line : table.rows()) {
        const auto sized = zp::tables::sizedRow(table, line, columns);
        if (!sized) continue;
        Medidas medidas;
        for (std::size_t i = 0; i < its.columns.size(); ++i)
            medidas.*its.columns[i].medida = sized->v[i];
        if (listed.insert(sizeKeyOf(family, its.columns, medidas)).second)
            sizes.push_back(
                {its.source, ListedSize::kInNoList, rowOf(description, medidas, sized->published)});
    }
}

}  // namespace

std::vector<ListedSize> listedSizes(const PerfilCommand& command) {
    std::vector<ListedSize> sizes;
    for (int source = 0; source < newRun(command)->sourceCount(); ++source) {
        // What cannot be read leaves a run the rows that it had.
        std::vector<ListRow> rows = newRun(command)->rowsOf(source);
        for (int row = 0; row < std::ssize(rows); ++row) {
            ListRow& text = rows[static_cast<std::size_t>(row)];
            if (!text.empty()) sizes.push_back({source, row, std::move(text)});
        }
    }
    // The welded series are drawn from their lists alone.
    if (&command == &pisoldado) return sizes;
    const std::wstring folder = installationFolder().value_or(L"");
    for (const auto& table : zp::tables::tablesIn(zp::tables::tablesFolder(folder))) {
        const std::optional<std::size_t> found = table.own ? familyOf(table) : std::nullopt;
        if (!found) continue;
        const Family& family = families()[*found];
        if (const std::optional<SizesOf> its = sizesOf(command, family))
            addOwnSizes(command.description, family, *its, table.path, sizes);
    }
    return sizes;
}

std::vector<ListedSize> listedSizes(const PerfilDescription& description) {
    const auto table = commandTable();
    const auto its = std::ranges::find_if(
        table, [&](const CommandRow& row) { return &row.command.description == &description; });
    return its == table.end() ? std::vector<ListedSize>() : listedSizes(its->command);
}

}  // namespace perfis
