// SPDX-License-Identifier: MIT
// Tiles and their first state.
#include "prancheta/dcl/build.h"

#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/tile_value.h"

namespace prancheta::dcl {
namespace {

void fillRows(Tile& tile) {
    const std::wstring list = toWide(tile.attribute("list"));
    if (list.empty()) return;
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t end = std::min(list.find(L'\n', start), list.size());
        tile.rows.push_back(list.substr(start, end - start));
        start = end + 1;
    }
}

/// The cluster's own value counts first, then the last button that asks to be on.
void pressFirstButton(Tile& cluster) {
    if (setValue(cluster, toWide(cluster.attribute("value"))) && !cluster.value.empty()) return;
    for (auto it = cluster.children.rbegin(); it != cluster.children.rend(); ++it) {
        if ((*it)->kind != TileKind::RadioButton || (*it)->attribute("value") != "1") continue;
        pressRadioButton(**it);
        return;
    }
}

void firstState(Tile& tile) {
    tile.enabled = tile.attribute("is_enabled", "true") != "false";
    if (isList(tile.kind)) fillRows(tile);
    if (isRadioCluster(tile.kind)) {
        pressFirstButton(tile);
    } else if (tile.kind == TileKind::Dialog) {
        tile.value = toWide(tile.attribute("value", tile.attribute("label")));
    } else if (tile.kind == TileKind::Slider) {
        if (!setValue(tile, toWide(tile.attribute("value"))))
            (void)setValue(tile, std::to_wstring(sliderRange(tile).start));
    } else if (tile.kind != TileKind::RadioButton) {
        // A value that does not suit the tile leaves it empty.
        (void)setValue(tile, toWide(tile.attribute("value")));
    }
}

std::unique_ptr<Tile> buildFrom(const DefinitionPtr& definition, std::size_t& place) {
    auto tile = std::make_unique<Tile>();
    tile->kind = *definition->kind;
    tile->definition = definition;
    tile->place = place++;
    tile->key = tile->attribute("key");
    if (tile->kind == TileKind::RadioButton) tile->value = L"0";
    tile->children.reserve(definition->children.size());
    for (const Child& child : definition->children) {
        tile->children.push_back(buildFrom(child.definition, place));
        tile->children.back()->parent = tile.get();
    }
    firstState(*tile);
    return tile;
}

}  // namespace

std::unique_ptr<Tile> build(const DefinitionPtr& definition) {
    std::size_t place = 0;
    return buildFrom(definition, place);
}

}  // namespace prancheta::dcl
