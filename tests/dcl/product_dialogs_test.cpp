// SPDX-License-Identifier: MIT
// The dialogs that ship with the product: all open, fit a small screen, and can be worked by
// keyboard.
#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/layout.h"
#include "prancheta/dcl/tile_value.h"
#include "support.h"

using namespace prancheta;
using namespace prancheta::dcl;

namespace {

const std::filesystem::path kFolder = std::filesystem::path(HOUSE_SOURCE_DIR) / "instalacao/Perfis";

std::vector<std::string> dialogNames(const std::string& text) {
    std::vector<std::string> names;
    const std::regex definition("(\\w+)\\s*:\\s*dialog\\s*\\{");
    for (std::sregex_iterator it(text.begin(), text.end(), definition), end; it != end; ++it)
        names.push_back((*it)[1]);
    return names;
}

/// Letter behind the mark & of a label; 0 without one.
wchar_t mnemonic(const Tile& tile) {
    const std::wstring label = toWide(tile.attribute("label"));
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != L'&') continue;
        if (label[i + 1] != L'&') return foldCase(label[i + 1]);
        ++i;
    }
    return 0;
}

void checkMnemonics(const Tile& tile, std::map<wchar_t, std::string>& taken) {
    if (const wchar_t letter = mnemonic(tile); letter != 0) {
        const auto [at, fresh] = taken.emplace(letter, tile.key);
        EXPECT_TRUE(fresh) << "&" << toUtf8(std::wstring(1, letter)) << " de " << tile.key << " e "
                           << at->second;
    }
    for (const auto& child : tile.children) checkMnemonics(*child, taken);
}

/// Enter in a field and two clicks on a row are as good as OK; in the search it takes a row.
void checkAccepts(const Tile& tile) {
    const bool accepts = tile.kind == TileKind::EditBox || tile.kind == TileKind::ListBox;
    EXPECT_EQ(accepts && tile.key != "busca", flagAttribute(tile, "allow_accept")) << tile.key;
    for (const auto& child : tile.children) checkAccepts(*child);
}

/// Nobody may stand over anybody else or outside of the cluster around it.
void checkPlaces(const Tile& tile, const Layout& layout) {
    const Rect& around = layout.find(tile)->frame;
    for (const auto& child : tile.children) {
        if (isHidden(*child)) continue;
        const Rect& r = layout.find(*child)->frame;
        EXPECT_GE(r.x, around.x - 1) << child->key;
        EXPECT_GE(r.y, around.y - 1) << child->key;
        EXPECT_LE(r.x + r.width, around.x + around.width + 1) << child->key;
        EXPECT_LE(r.y + r.height, around.y + around.height + 1) << child->key;
        for (const auto& other : tile.children) {
            if (other.get() <= child.get() || isHidden(*other)) continue;
            const Rect& o = layout.find(*other)->frame;
            const bool apart = r.x + r.width <= o.x + 1 || o.x + o.width <= r.x + 1 ||
                               r.y + r.height <= o.y + 1 || o.y + o.height <= r.y + 1;
            EXPECT_TRUE(apart) << child->key << " e " << other->key;
        }
        checkPlaces(*child, layout);
    }
}

void checkDialog(Dialog& dialog) {
    const Layout layout = layOut(dialog.root(), Metrics{});
    const Rect& frame = layout.boxes.front().frame;
    EXPECT_LE(frame.width, 1366.0);
    EXPECT_LE(frame.height, 728.0) << "768 less the title and the panel";
    checkPlaces(dialog.root(), layout);
    std::map<wchar_t, std::string> taken;
    checkMnemonics(dialog.root(), taken);
    checkAccepts(dialog.root());
    EXPECT_NE(dialog.find("accept"), nullptr);
    EXPECT_NE(dialog.find("cancel"), nullptr);
    EXPECT_FALSE(dialog.root().attribute("label").empty()) << "title";
}

}  // namespace

class ProductDialogs : public testing::TestWithParam<const char*> {};

TEST_P(ProductDialogs, OpenFitTheScreenAndHaveMnemonicsOfTheirOwn) {
    const auto text = readFile(kFolder / GetParam());
    ASSERT_TRUE(text) << text.error().message();
    const auto names = dialogNames(*text);
    ASSERT_FALSE(names.empty());
    int id = 0;
    ASSERT_EQ(ads_load_dialog((kFolder / GetParam()).wstring().c_str(), &id), RTNORM)
        << dcltest::printed();
    EXPECT_EQ(dcltest::printed(), "") << "findings";
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        ads_hdlg dialog = nullptr;
        ASSERT_EQ(ads_new_dialog(toWide(name).c_str(), id, nullptr, &dialog), RTNORM);
        dcltest::run(dialog, [](Dialog& open) {
            checkDialog(open);
            open.abandon();
        });
    }
    (void)ads_unload_dialog(id);
}

INSTANTIATE_TEST_SUITE_P(Files, ProductDialogs,
                         testing::Values("perfis.dcl", "vistas.dcl", "travejam.dcl"),
                         [](const auto& info) { return std::string(info.param).substr(0, 6); });
