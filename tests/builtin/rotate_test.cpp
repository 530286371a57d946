// SPDX-License-Identifier: MIT
// ROTATE as users and programs drive it.
#include <cmath>

#include "accmd.h"
#include "acedads.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

class Rotate : public Builtin {
protected:
    Rotate() { type({L"_line", L"10,0", L"20,0", L""}); }
};

TEST_F(Rotate, ByAngleAboutAPoint) {
    type({L"rotacionar", L"_l", L"", L"0,0", L"90"});
    expectLine(last(), 0, 10, 0, 20);
    EXPECT_FALSE(editor->runner().active());
    EXPECT_TRUE(said(L"Ângulo positivo atual no UCS:  ANGDIR=anti-horário  ANGBASE=0"));
    EXPECT_TRUE(asked(L"Especifique o ângulo de rotação ou [Copiar/Referência] <0>:"));
    // Enter takes the last angle, shown in degrees.
    type({L"_.rotate", L"_l", L"", L"0,0", L""});
    EXPECT_TRUE(asked(L"<90>"));
    expectLine(last(), -10, 0, -20, 0);
}

TEST_F(Rotate, ByPointAndClockwise) {
    // From (10,0) to (10,5) points up: a quarter turn about the line's start.
    type({L"_rotate", L"_l", L"", L"10,0", L"10,5"});
    expectLine(last(), 10, 0, 10, 10);
    type({L"_rotate", L"_l", L"", L"10,0", L"-90"});
    expectLine(last(), 10, 0, 20, 0);
}

TEST_F(Rotate, ByReference) {
    // 75 less 30 is 45 degrees: (10,0) goes to 10 (1/sqrt 2, 1/sqrt 2).
    const double h = 10.0 / std::sqrt(2.0);
    type({L"_rotate", L"_l", L"", L"0,0", L"_r", L"30", L"75"});
    expectLine(last(), h, h, 2 * h, 2 * h);
    // The piece's own direction by two points, `@` being the base point, turned onto the direction
    // of two others.
    type({L"_rotate", L"_l", L"", L"0,0", L"r", L"@", L"1,1", L"_p", L"50,50", L"50,60"});
    expectLine(last(), 0, 10, 0, 20);
}

TEST_F(Rotate, AnotherBaseAndDirectionOfAngles) {
    // Angles count clockwise from up: a turn of 90 goes from (10,0) down; its default is shown as
    // it was typed.
    editor->variables().force(L"ANGBASE", 1.5707963267948966);
    editor->variables().force(L"ANGDIR", short(1));
    type({L"_rotate", L"_l", L"", L"0,0", L"90"});
    EXPECT_TRUE(said(L"ANGDIR=horário  ANGBASE=90"));
    expectLine(last(), 0, -10, 0, -20);
    type({L"_rotate", L"_l", L"", L"0,0", L"^C"});
    EXPECT_TRUE(asked(L"[Copiar/Referência] <90>"));
    // From 0 (up) to 270 (left, counted clockwise) is a quarter turn to the left.
    type({L"_rotate", L"_l", L"", L"0,0", L"_r", L"0", L"270"});
    expectLine(last(), 10, 0, 20, 0);
}

TEST_F(Rotate, CopyLeavesTheOriginal) {
    type({L"_rotate", L"_l", L"", L"0,0", L"_c", L"180"});
    ASSERT_EQ(count(), 2u);
    expectLine(entities()[0], 10, 0, 20, 0);
    expectLine(entities()[1], -10, 0, -20, 0);
    type({L"_u"});
    EXPECT_EQ(count(), 1u);
}

TEST_F(Rotate, EscapeChangesNothing) {
    const auto revision = editor->database().core().undo().revision();
    type({L"_rotate", L"_l", L"", L"0,0", L"_c", L"^C"});
    type({L"_rotate", L"^C"});
    type({L"_rotate", L""});
    EXPECT_FALSE(editor->runner().active());
    EXPECT_EQ(count(), 1u);
    expectLine(last(), 10, 0, 20, 0);
    EXPECT_EQ(editor->database().core().undo().revision(), revision);
}

TEST_F(Rotate, AsksAgainAfterNonsense) {
    type({L"_rotate", L"_l", L"", L"", L"0,0", L"noventa", L"90"});
    EXPECT_EQ(ui.complaints.size(), 2u);
    expectLine(last(), 0, 10, 0, 20);
}

TEST_F(Rotate, LockedLayersAreLeftOut) {
    type({L"_-layer", L"_n", L"Presa", L"_s", L"Presa", L""});
    type({L"_line", L"1,0", L"2,0", L"", L"_-layer", L"_lo", L"Presa", L""});
    type({L"_rotate", L"_all", L"_l", L"", L"0,0", L"90"});
    expectLine(entities()[0], 0, 10, 0, 20);
    expectLine(entities()[1], 1, 0, 2, 0);
}

AcDbObjectId g_sent;

/// Sends the command, the entity, the end of the selection and the base point, and goes.
void sendRotate() {
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, g_sent), Acad::eOk);
    const ads_point base = {10, 0, 0};
    EXPECT_EQ(acedCommand(RTSTR, L"_.rotate", RTENAME, name, RTNONE), RTNORM);
    EXPECT_EQ(acedCommand(RTSTR, L"", RT3DPOINT, base, RTNONE), RTNORM);
}

TEST_F(Rotate, LeftWaitingByAProgram) {
    g_sent = last();
    ASSERT_EQ(acedRegCmds->addCommand(L"PROVA", L"GIRA", L"GIRA", ACRX_CMD_MODAL, sendRotate),
              Acad::eOk);
    type({L"gira"});
    ASSERT_TRUE(editor->runner().active());
    expectLine(last(), 10, 0, 20, 0);
    type({L"90"});
    EXPECT_EQ(ui.last.kind, prancheta::InputKind::Angle);
    EXPECT_TRUE(ui.last.rotating);
    ASSERT_EQ(ui.last.selection.ids().size(), 1u);
    ASSERT_TRUE(ui.last.base.has_value());
    expectPoint(*ui.last.base, 10, 0);
    expectLine(last(), 10, 0, 10, 10);
    EXPECT_FALSE(editor->runner().active());

    type({L"gira", L"^C"});
    EXPECT_FALSE(editor->runner().active());
    expectLine(last(), 10, 0, 10, 10);
    // The turn is a step of its own.
    type({L"_u"});
    expectLine(last(), 10, 0, 20, 0);
    (void)acedRegCmds->removeGroup(L"PROVA");
}

}  // namespace
}  // namespace builtin
