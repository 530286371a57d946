// SPDX-License-Identifier: MIT
// ZOOM and PAN, on the model and through viewports of sheets.
#include "prancheta/entities/viewports.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

/// A window of 800 x 400 pixels: twice as wide as it is high.
class Views : public Builtin {
protected:
    Views() { editor->screen().resize(800, 400); }
    void expectView(double x, double y, double height) {
        expectPoint(editor->screen().view().centre, x, y);
        EXPECT_NEAR(editor->screen().view().height, height, 1e-9);
    }
};

TEST_F(Views, Window) {
    // 100 x 20 needs a height of 50 in this window; 20 x 100 needs its own.
    type({L"zoom", L"_w", L"0,0", L"100,20"});
    expectView(50, 10, 50);
    type({L"_zoom", L"0,0", L"20,100"});
    expectView(10, 50, 100);
}

TEST_F(Views, ExtentsWithASmallMargin) {
    type({L"_line", L"0,0", L"200,0", L"", L"_line", L"0,0", L"0,100", L"", L"_zoom", L"_e"});
    expectPoint(editor->screen().view().centre, 100, 50);
    EXPECT_GT(editor->screen().view().height, 100.0);
    EXPECT_LT(editor->screen().view().height, 110.0);
}

TEST_F(Views, FrozenObjectsDoNotCount) {
    type({L"_-layer", L"_m", L"Longe", L"", L"_point", L"9000,9000", L"_-layer", L"_s", L"0", L"_f",
          L"Longe", L""});
    type({L"_line", L"0,0", L"10,10", L"", L"_zoom", L"_e"});
    expectPoint(editor->screen().view().centre, 5, 5);
}

TEST_F(Views, EmptyDrawingShowsTheLimits) {
    // 420 x 297 in a window twice as wide as high: the height counts.
    type({L"_zoom", L"_e"});
    expectView(210, 148.5, 297);
}

TEST_F(Views, AllShowsLimitsAndDrawing) {
    type({L"_point", L"-100,0", L"_zoom", L"_a"});
    expectPoint(editor->screen().view().centre, 160, 148.5);
}

TEST_F(Views, FactorsAndPrevious) {
    type({L"_zoom", L"_w", L"0,0", L"100,50", L"_zoom", L"2x"});
    expectView(50, 25, 25);
    type({L"_zoom", L"0.5x"});
    expectView(50, 25, 50);
    type({L"_zoom", L"_s", L"3"});
    expectView(50, 25, 99);
    type({L"_zoom", L"_p", L"_zoom", L"_p"});
    expectView(50, 25, 25);
    type({L"_zoom", L"0x", L"nada", L"^C"});
    expectView(50, 25, 25);
    EXPECT_EQ(ui.complaints.size(), 2u);
}

TEST_F(Views, FactorsOfTheLimitsShowTheirWholeWidth) {
    // 420 x 297 in a square window: the width counts.
    editor->screen().resize(400, 400);
    type({L"_zoom", L"1"});
    expectView(210, 148.5, 420);
    type({L"_zoom", L"2"});
    expectView(210, 148.5, 210);
}

TEST_F(Views, PreviousTenTimes) {
    type({L"_zoom", L"_c", L"0,0", L"1024"});
    for (int i = 0; i < 12; ++i) type({L"_zoom", L"2x"});
    for (int i = 0; i < 12; ++i) type({L"_zoom", L"_p"});
    // 1024 halved twelve times is a quarter; ten steps back, each doubling.
    expectView(0, 0, 256);
    EXPECT_TRUE(said(L"Não há vista anterior."));
}

TEST_F(Views, CentreAndObject) {
    type({L"_zoom", L"_c", L"7,8", L"40", L"_zoom", L"_c", L"1,2", L"4x"});
    expectView(1, 2, 10);
    type({L"_point", L"500,500", L"_line", L"0,0", L"10,20", L"", L"_zoom", L"_o", L"_l", L""});
    expectPoint(editor->screen().view().centre, 5, 10);
}

TEST_F(Views, InsideAnotherCommand) {
    type({L"_line", L"0,0", L"'zoom", L"_w", L"0,0", L"100,20", L"'_pan", L"0,0", L"10,5", L"30,40",
          L""});
    ASSERT_EQ(count(), 1u);
    expectLine(last(), 0, 0, 30, 40);
    expectView(40, 5, 50);
    EXPECT_TRUE(said(L"Continuando o comando LINE."));
}

TEST_F(Views, PanByDisplacement) {
    type({L"_zoom", L"_c", L"0,0", L"100", L"pan", L"3,4", L""});
    expectView(-3, -4, 100);
}

TEST_F(Views, CommandsOfSheetsSayWhyTheyDidNothing) {
    for (const wchar_t* const command : {L"_mview", L"_mspace", L"_pspace", L"_vplayer"}) {
        type({command});
        ASSERT_FALSE(ui.complaints.empty());
        EXPECT_NE(ui.complaints.back().find(L"trabalha num layout"), std::wstring::npos);
        ui.complaints.clear();
    }
    type({L"_setvar", L"CTAB", L"Nenhum", L"Model", L"_layout", L"_delete", L"Layout1"});
    EXPECT_EQ(ui.complaints.size(), 2u) << "no such sheet, the only sheet";
    ui.complaints.clear();
    // A name that is taken, or that none can have, is asked for again.
    type({L"_layout", L"_new", L"LAYOUT1", L"a/b", L"Cortes", L"_setvar", L"TILEMODE", L"0"});
    EXPECT_EQ(ui.complaints.size(), 2u);
    EXPECT_EQ(editor->variables().text(L"CTAB"), L"Layout1");
    ui.complaints.clear();
    type({L"_mspace", L"_mview", L"0,0", L"0,50", L"100,50", L"_mview", L"_off", L"_l", L"",
          L"_mspace"});
    EXPECT_EQ(ui.complaints.size(), 3u) << "no viewport, no width, none that is on";
}

/// A sheet of 297 x 210 whose frame of 100 x 50 shows the model's 0 to 1000.
TEST_F(Views, ZoomThroughAViewportFillsItsFrameAndALockedOneKeepsItsScale) {
    type({L"_line", L"0,0", L"1000,0", L"", L"_layout", L"_s", L"Layout1", L"_mview", L"10,20",
          L"110,70", L"_mspace"});
    const auto shown = [&] { return prancheta::viewportOf(editor->spaces().viewport()); };
    ASSERT_NE(shown(), nullptr);
    const prancheta::View sheet = editor->spaces().tabView();
    type({L"_zoom", L"0.1xp"});
    EXPECT_DOUBLE_EQ(shown()->customScale(), 0.1);
    type({L"_zoom", L"_c", L"300,40", L"250"});
    EXPECT_NEAR(shown()->customScale(), 50.0 / 250.0, 1e-12);
    expectPoint(shown()->modelToSheet() * AcGePoint3d(300, 40, 0), 60, 45);
    EXPECT_EQ(editor->spaces().tabView().height, sheet.height);
    // What is drawn now is the model's.
    type({L"_circle", L"300,40", L"10", L"_pspace", L"_mview", L"_lock", L"", L"_all", L"",
          L"_mspace"});
    EXPECT_EQ(editor->database().core().modelSpace().size(), 2u);
    type({L"_zoom", L"2x"});
    EXPECT_NEAR(shown()->customScale(), 0.2, 1e-12);
    EXPECT_NEAR(editor->spaces().tabView().height, sheet.height / 2.0, 1e-9);
    // Undo takes the frame away, and who draws through it stands on the sheet again.
    type({L"_u", L"_u", L"_u", L"_regen"});
    EXPECT_TRUE(editor->spaces().drawsOnPaper());
}

}  // namespace
}  // namespace builtin
