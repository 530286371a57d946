// SPDX-License-Identifier: MIT
// A size has one name for the user: in the dialog that asks for it and in the sheet of the piece.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "perfis/commands/command_table.h"
#include "perfis/commands/perfil_description.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/library_cache.h"
#include "zp/objects/secao/labels.h"

namespace {

using prancheta::dcl::Definition;
using zp::secao::Role;

const Definition* tileOf(const Definition& tile, const std::string& key) {
    const auto* const own = tile.attribute("key");
    if (own != nullptr && own->text == key) return &tile;
    for (const auto& child : tile.children)
        if (const Definition* found = tileOf(*child.definition, key)) return found;
    return nullptr;
}

/// Without mnemonic, unit, brackets: "Altura h" of "&Altura h (mm)" and of "Altura (h)".
std::string plain(std::string label) {
    if (const std::size_t unit = label.find("mm"); unit != std::string::npos) {
        std::size_t end = unit + 2;
        std::size_t begin = unit;
        while (begin > 0 && label[begin] != '(') --begin;
        if (end < label.size() && label[end] == ')') ++end;
        label.erase(begin, end - begin);
    }
    std::erase_if(label, [](char c) { return c == '&' || c == '(' || c == ')'; });
    while (label.ends_with(' ')) label.pop_back();
    return label;
}

TEST(Labels, DialogAndSheetNameASizeAlike) {
    const auto loaded =
        prancheta::dcl::loadLibrary(HOUSE_SOURCE_DIR "/instalacao/Perfis/perfis.dcl");
    ASSERT_TRUE(loaded) << loaded.error().message();
    int compared = 0;
    for (const perfis::CommandRow& row : perfis::commandTable()) {
        const perfis::PerfilDescription& d = row.command.description;
        const auto dialog = loaded->library->definitions.find(prancheta::toUtf8(d.dialog));
        ASSERT_NE(dialog, loaded->library->definitions.end());
        std::set<std::wstring> seen;
        for (const perfis::RoleValue& value : d.values) {
            const auto tile = std::ranges::find_if(
                d.tiles, [&](const auto& t) { return value.medida && t.value == value.medida; });
            // The first value that a tile gives is the one that it is called after.
            if (tile == d.tiles.end() || !seen.insert(tile->key).second) continue;
            const Definition* box = tileOf(*dialog->second, prancheta::toUtf8(tile->key));
            ASSERT_NE(box, nullptr);
            const std::string label = plain(box->attribute("label")->text);
            // One field for both flanges of a symmetric I, which the sheet shows one by one.
            if (label.find(" das mesas ") != std::string::npos && value.role != Role::B1 &&
                value.role != Role::Tf1)
                continue;
            EXPECT_EQ(label, plain(prancheta::toUtf8(zp::secao::label(value.role, d.pecas.kind))))
                << prancheta::toUtf8(row.localName) << ", " << prancheta::toUtf8(tile->key);
            ++compared;
        }
    }
    EXPECT_GT(compared, 90);
}

}  // namespace
