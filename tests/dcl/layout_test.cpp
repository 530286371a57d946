// SPDX-License-Identifier: MIT
// Rectangles worked out by hand. A character is 10 x 20 pixels: gaps and margins are 10 x 10, a
// title line 20, buttons and input boxes 32 high, toggles 26, an edit box's frame 20 wide and a
// popup's 40.
#include <gtest/gtest.h>

#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dcl/build.h"
#include "prancheta/dcl/layout.h"
#include "prancheta/dcl/parser.h"
#include "prancheta/dcl/row_cells.h"

using namespace prancheta;
using namespace prancheta::dcl;

namespace {

std::string layoutOf(const char* text) {
    Result<Library> library = parseText(text, "t.dcl");
    if (!library) return library.error().message();
    const std::unique_ptr<Tile> root = build(library->definitions.at("d"));
    return "\n" + dumpLayout(layOut(*root, Metrics{10, 20, {}}));
}

}  // namespace

TEST(DclLayout, InputPartsLineUpAndExitButtonsAreCentred) {
    // Widest: "Largura total" 130 + gap 10 + input 100 + 20 = 260. Buttons: "Cancelar" 80 + 40 =
    // 120 both. The exit row, 250 wide, stands (260 - 250) / 2 = 5 from the left.
    EXPECT_EQ(layoutOf("d : dialog { label = \"D\";"
                       ": edit_box { key = \"h\"; label = \"&Altura\"; edit_width = 10; value = "
                       "\"muito longo\"; }"
                       ": edit_box { key = \"b\"; label = \"Largura total\"; edit_width = 10; }"
                       "ok_cancel; }"),
              R"(
dialog - 0,0 280x136
  edit_box h 10,10 260x32 [150,10 120x32]
  edit_box b 10,52 260x32 [150,52 120x32]
  row - 15,94 250x32
    button accept 15,94 120x32
    button cancel 145,94 120x32
)");
}

TEST(DclLayout, BoxStretchesAndSharesEvenGaps) {
    // Image 120 wide, 120 / 1.5 = 80 high. Inside of the box 80 + 10 + 26 = 116, but the list makes
    // the row 200 high, so 160 is there: the two fixed children touch the ends. The toggle (20 + 30
    // wide) is at the right edge 350.
    EXPECT_EQ(
        layoutOf("d : dialog { : row {"
                 ": list_box { key = \"lista\"; label = \"Bitolas\"; width = 20; height = 10; }"
                 ": boxed_column { label = \"Vista\";"
                 ": image { key = \"fig\"; width = 12; aspect_ratio = 1.5; fixed_width = true; "
                 "fixed_height "
                 "= true; }"
                 ": toggle { key = \"t\"; label = \"Só\"; alignment = right; fixed_width = true; } "
                 "} } }"),
        R"(
dialog - 0,0 370x220
  row - 10,10 350x200
    list_box lista 10,10 200x200 [10,30 200x180]
    boxed_column - 220,10 140x200
      image fig 230,40 120x80
      toggle t 300,174 50x26
)");
}

TEST(DclLayout, SpacersPushAndAlignmentWorksAcrossOnly) {
    EXPECT_EQ(
        layoutOf("d : dialog { children_alignment = right;"
                 ": text { label = \"12345678901234567890\"; }"
                 ": row { spacer_0; : button { key = \"a\"; label = \"A\"; fixed_width = true; } }"
                 ": row { : button { key = \"b\"; label = \"B\"; fixed_width = true; alignment = "
                 "right; }"
                 ": button { key = \"c\"; label = \"C\"; fixed_width = true; } }"
                 ": popup_list { key = \"p\"; label = \"P\"; }"
                 ": button { key = \"e\"; label = \"E\"; fixed_width = true; }"
                 ": button { key = \"f\"; label = \"F\"; fixed_width = true; alignment = left; }"
                 ": concatenation { : text_part { label = \"ab\"; } : text_part { label = \"cd\"; "
                 "} } }"),
        R"(
dialog - 0,0 220x280
  text - 10,10 200x20
  row - 10,40 200x32
    spacer - 10,40 120x32
    button a 130,40 80x32
  row - 10,82 200x32
    button b 10,82 80x32
    button c 130,82 80x32
  popup_list p 10,124 200x32 [30,124 180x32]
  button e 130,166 80x32
  button f 10,208 80x32
  concatenation - 10,250 200x20
    text_part - 10,250 20x20
    text_part - 30,250 20x20
)");
}

TEST(DclLayout, GrowersShareTheExtraRoom) {
    // 300 pixels for 100 + 10 + 100: each list gets 45 more. An empty label leaves a box without
    // title room, a blank keeps it. Letters come from the font when there is one.
    EXPECT_EQ(layoutOf("d : dialog { : text { width = 30; }"
                       ": row { : list_box { width = 10; height = 2; } : list_box { width = 10; "
                       "height = 2; } }"
                       ": boxed_row { label = \"\"; : toggle { label = \"x\"; } }"
                       ": boxed_row { label = \" \"; : toggle { label = \"x\"; } } }"),
              R"(
dialog - 0,0 320x222
  text - 10,10 300x20
  row - 10,40 300x40
    list_box - 10,40 145x40 [10,40 145x40]
    list_box - 165,40 145x40 [165,40 145x40]
  boxed_row - 10,90 300x46
    toggle - 20,100 280x26
  boxed_row - 10,146 300x66
    toggle - 20,176 280x26
)");
}

TEST(DclLayout, TabsOfListRows) {
    Tile list;
    const auto definition = std::make_shared<Definition>();
    list.definition = definition;
    const auto give = [&](const char* name, const char* text) {
        definition->attributes[name] = std::make_shared<Value>(Value{ValueKind::Text, text, {}});
    };
    const auto cells = [&](std::wstring_view row) {
        std::string out;
        for (const Cell& cell : cellsOf(list, row, Metrics{10, 20, {}}))
            out += std::to_string(std::lround(cell.x)) + "+" +
                   std::to_string(std::lround(cell.room)) + " ";
        return out;
    };
    EXPECT_EQ(cells(L"a\tb\t\tc"), "0+0 80+0 160+0 240+0 ") << "every eighth character by default";
    give("tabs", "4 10 20");
    EXPECT_EQ(cells(L"a\tb\tc\td\te"), "0+0 40+0 100+0 200+0 240+0 ");
    EXPECT_EQ(cells(L"comprido\tb\t\tc"), "0+0 100+0 200+0 240+0 ")
        << "pushed on to the next free stop";
    EXPECT_EQ(cells(L"quat\tb"), "0+0 100+0 ") << "two numbers never touch";
    // A heading stands over the columns of a row, tabs or blanks; over none at its own stops.
    const auto heading = [&](std::wstring_view row, std::wstring_view title) {
        std::string out;
        for (const Cell& cell : headingOver(list, row, title, Metrics{10, 20, {}}))
            out += toUtf8(cell.text) + "@" + std::to_string(std::lround(cell.x)) + " ";
        return out;
    };
    EXPECT_EQ(heading(L"200\t75\t3", L"  H     B  tf (mm)"), "H@0 B@40 tf (mm)@100 ");
    EXPECT_EQ(heading(L"VS 150   150  15", L"Tipo\tH\tKg/m"), "Tipo@0 H@90 Kg/m@140 ");
    EXPECT_EQ(heading(L"", L"h\tb\tt"), "h@0 b@40 t@100 ");
    give("tab_truncate", "true");
    EXPECT_EQ(cells(L"comprido\tb\tc"), "0+40 40+60 100+0 ");
}

TEST(DclLayout, WhatIsHiddenTakesNoRoom) {
    const std::string shown = ": toggle { key = \"x\"; label = \"X\"; }";
    const auto boxed = [&](const std::string& more) {
        return layoutOf(("d : dialog { : column { " + shown + more + " } }").c_str());
    };
    const std::string without = boxed("");
    const std::string hidden =
        boxed(": row { is_hidden = true; : edit_box { key = \"a\"; label = \"Longo de fato\"; } }");
    EXPECT_EQ(hidden, without + "    row - 0,0 0x0\n      edit_box a 0,0 0x0 [0,0 0x0]\n");
}
