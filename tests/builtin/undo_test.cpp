// SPDX-License-Identifier: MIT
// U, UNDO, REDO, MREDO.
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

class Undo : public Builtin {
protected:
    /// Each point is a command and a step.
    void points(int n) {
        for (int i = 0; i < n; ++i) type({L"_point", L"1,1"});
    }
};

TEST_F(Undo, StepByStepAndBackAgain) {
    type({L"_line", L"0,0", L"1,0", L"2,0", L"", L"_point", L"5,5", L"_u"});
    EXPECT_EQ(count(), 2u);
    EXPECT_TRUE(said(L"POINT"));
    type({L"u"});
    EXPECT_EQ(count(), 0u);
    type({L"refazer"});
    EXPECT_EQ(count(), 2u);
    type({L"_redo"});
    EXPECT_EQ(count(), 3u);
    type({L"_redo"});
    EXPECT_TRUE(said(L"Não há nada para refazer."));
    // A new command ends what could be redone.
    type({L"_u", L"_point", L"7,7", L"_redo"});
    EXPECT_EQ(count(), 3u);
}

TEST_F(Undo, NothingLeft) {
    type({L"_u"});
    EXPECT_TRUE(said(L"Tudo foi desfeito."));
    EXPECT_FALSE(editor->file().modified());
}

TEST_F(Undo, ViewsAndQuestionsAreNoSteps) {
    points(1);
    type({L"_zoom", L"_e", L"_dist", L"0,0", L"3,4", L"_list", L"_l", L"", L"_redraw", L"_u"});
    EXPECT_EQ(count(), 0u);
}

TEST_F(Undo, ByNumber) {
    points(5);
    type({L"desfazer", L"3"});
    EXPECT_EQ(count(), 2u);
    type({L"_mredo", L"2"});
    EXPECT_EQ(count(), 4u);
    type({L"_undo", L""});
    EXPECT_EQ(count(), 3u);
    type({L"_mredo", L"_a"});
    EXPECT_EQ(count(), 5u);
}

TEST_F(Undo, Groups) {
    points(1);
    type({L"_undo", L"_be"});
    points(3);
    type({L"_undo", L"_e", L"_u"});
    EXPECT_EQ(count(), 1u);
    type({L"_redo"});
    EXPECT_EQ(count(), 4u);
}

TEST_F(Undo, BackToTheMark) {
    points(1);
    type({L"_undo", L"_m"});
    points(3);
    type({L"_undo", L"_b"});
    EXPECT_EQ(count(), 1u);
    // Without a mark everything would go: that is asked first.
    type({L"_undo", L"_b", L"_n"});
    EXPECT_EQ(count(), 1u);
    type({L"_undo", L"_b", L"_y"});
    EXPECT_EQ(count(), 0u);
}

TEST_F(Undo, SettingsOfOtherScriptsAreTaken) {
    points(2);
    type({L"_undo", L"_c", L"_a", L"_undo", L"_a", L"_off", L"_undo", L"1"});
    EXPECT_TRUE(ui.complaints.empty());
    EXPECT_EQ(count(), 1u);
}

TEST_F(Undo, ChangesOfLayersAndVariables) {
    type({L"_-layer", L"_m", L"Corte", L"_c", L"1", L"", L""});
    type({L"_u"});
    EXPECT_EQ(editor->variables().text(L"CLAYER"), L"0");
    type({L"_setvar", L"DIMSCALE", L"20", L"_u"});
    EXPECT_DOUBLE_EQ(editor->variables().real(L"DIMSCALE"), 1.0);
}

}  // namespace
}  // namespace builtin
