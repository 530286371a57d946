// SPDX-License-Identifier: MIT
// SETVAR, DIST, AREA, LIST, HELP, ARX, and the table of commands.
#include "accmd.h"
#include "acedads.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/geometry/angles.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

class Session : public Builtin {};

TEST_F(Session, EveryCommandIsFoundByBothNames) {
    for (const prancheta::BuiltInCommand& command : prancheta::builtInCommands()) {
        const AcEdCommand* global = editor->commands().lookupGlobalCmd(command.global);
        const AcEdCommand* local = editor->commands().lookupLocalCmd(command.local);
        ASSERT_NE(global, nullptr) << prancheta::toUtf8(command.global);
        EXPECT_STREQ(global->localName(), command.local);
        EXPECT_EQ(local, global) << prancheta::toUtf8(command.local);
    }
}

TEST_F(Session, EveryCommandEndsWithEscape) {
    for (const prancheta::BuiltInCommand& command : prancheta::builtInCommands()) {
        if (std::wstring_view(command.global) == L"QUIT") continue;
        const std::wstring typed = L"_" + std::wstring(command.global);
        type({typed.c_str(), L"^C"});
        EXPECT_FALSE(editor->runner().active()) << prancheta::toUtf8(command.global);
        EXPECT_EQ(count(), 0u) << prancheta::toUtf8(command.global);
    }
    EXPECT_FALSE(editor->file().modified());
}

TEST_F(Session, SetVariable) {
    type({L"_setvar", L"orthomode", L"1"});
    EXPECT_EQ(editor->variables().number(L"ORTHOMODE"), 1);
    type({L"defvar", L"", L"0"});
    EXPECT_EQ(editor->variables().number(L"ORTHOMODE"), 0);
    EXPECT_TRUE(asked(L"<ORTHOMODE>"));
    EXPECT_TRUE(asked(L"Digite novo valor para ORTHOMODE <1>:"));
    type({L"_setvar", L"semnome", L"DIMSCALE", L"grande", L"20"});
    EXPECT_EQ(ui.complaints.size(), 2u);
    EXPECT_DOUBLE_EQ(editor->variables().real(L"DIMSCALE"), 20.0);
    type({L"_setvar", L"CMDACTIVE"});
    EXPECT_TRUE(said(L"(somente leitura)"));
    EXPECT_FALSE(editor->runner().active());
    // A word that is a command's shows no variable.
    type({L"_setvar", L"AREA", L"area", L"^C"});
    EXPECT_TRUE(said(L"AREA = 0"));
    EXPECT_TRUE(asked(L"Primeiro ponto ou [Objeto/Adicionar/Subtrair]: "));
}

TEST_F(Session, AnglesOfVariablesAreTypedAsAngles) {
    type({L"snapang", L"30", L"_setvar", L"SNAPANG", L""});
    EXPECT_NEAR(editor->variables().real(L"SNAPANG"), prancheta::kPi / 6, 1e-15);
    EXPECT_TRUE(asked(L"Digite novo valor para SNAPANG <30>:"));
    type({L"aunits", L"3", L"angbase", L"0.5", L"aunits", L"0", L"angbase", L"2,5", L""});
    EXPECT_NEAR(editor->variables().real(L"ANGBASE"), 0.5, 1e-15);
    EXPECT_EQ(ui.complaints.size(), 1u);
    type({L"snapang", L"1e300", L"snapang", L""});
    EXPECT_FALSE(asked(L"inf"));
    // Of the drawing: a new one begins without it.
    type({L"_new", L"_y"});
    EXPECT_EQ(editor->variables().real(L"SNAPANG"), 0.0);
}

TEST_F(Session, ExtentsAreMeasuredWhenAskedFor) {
    type({L"extmin"});
    EXPECT_TRUE(said(L"EXTMIN = 1e+20,1e+20,1e+20 "));
    type({L"_line", L"1,2,3", L"11,22", L"", L"_circle", L"0,50", L"5"});
    const std::uint64_t before = editor->database().core().undo().revision();
    type({L"extmin", L"_setvar", L"?", L"ext*"});
    EXPECT_TRUE(said(L"EXTMIN = -5,2,0 "));
    EXPECT_TRUE(said(L"EXTMAX              11,55,3 "));
    EXPECT_EQ(editor->database().core().undo().revision(), before);
    resbuf corner{};
    ASSERT_EQ(acedGetVar(L"extmax", &corner), RTNORM);
    EXPECT_DOUBLE_EQ(corner.resval.rpoint[Y], 55);
    type({L"_erase", L"_all", L"", L"extmax"});
    EXPECT_TRUE(said(L"EXTMAX = -1e+20,-1e+20,-1e+20 "));
}

TEST_F(Session, ListVariables) {
    type({L"_setvar", L"?", L"pick*"});
    EXPECT_TRUE(said(L"PICKADD"));
    EXPECT_TRUE(said(L"PICKFIRST"));
    EXPECT_FALSE(said(L"OSMODE"));
}

TEST_F(Session, Distance) {
    // 3-4-5: the direction is atan(4/3) = 53.13 degrees, shown without decimals.
    type({L"_dist", L"10,10", L"13,14"});
    EXPECT_TRUE(
        said(L"Distância = 5,0000,  Ângulo no plano XY = 53,  Ângulo a partir do plano XY = 0"));
    EXPECT_TRUE(said(L"Delta X = 3,0000,  Delta Y = 4,0000,  Delta Z = 0,0000"));
}

TEST_F(Session, Area) {
    const auto told = [&](std::initializer_list<const wchar_t*> lines, const wchar_t* line) {
        ui.output.clear();
        type(lines);
        EXPECT_TRUE(said(line)) << prancheta::toUtf8(ui.output);
    };
    told({L"area", L"1000000,0", L"@30,0", L"@0,40", L""}, L"Área = 600,00, perímetro = 120,00\n");
    EXPECT_NEAR(editor->variables().real(L"AREA"), 600, 1e-6);
    type({L"_circle", L"0,0", L"10"});
    told({L"_aa", L"_o", L"_l"}, L"Área = 314,16, perímetro = 62,83\n");
    EXPECT_FALSE(editor->runner().active());
    // 100 by 50 with half circles at both ends, drawn clockwise and far out; its width is no area.
    type({L"_pline", L"1000000,500", L"_w", L"2", L"2", L"@0,50", L"_a", L"@100,0", L"_l",
          L"@0,-50", L"_a", L"_cl"});
    told({L"_area", L"_o", L"_l"}, L"Área = 12853,98, perímetro = 414,16\n");
    type({L"_ellipse", L"_c", L"0,0", L"10,0", L"4"});
    told({L"_area", L"_o", L"_l"}, L"Área = 125,66, perímetro = 46,03\n");
    // An arc is closed by its chord: a half disc.
    type({L"_arc", L"10,0", L"0,10", L"-10,0"});
    told({L"_area", L"_o", L"_l"}, L"Área = 157,08, comprimento = 31,42\n");
    told({L"_area", L"_a", L"0,0", L"10,0", L"10,10", L"0,10", L"", L"_s", L"_o", L"_l", L"", L""},
         L"Área total = -57,08\n");
    // A hatch between circles of radius 10 and 5: 75 pi, and 30 pi around.
    type({L"_erase", L"_all", L"", L"_circle", L"0,0", L"10", L"_circle", L"0,0", L"5", L"_hatch",
          L"_s", L"_all", L"", L""});
    told({L"_area", L"_o", L"_l"}, L"Área = 235,62, perímetro = 94,25\n");
    type({L"_line", L"0,0", L"5,0", L""});
    ui.complaints.clear();
    type({L"_area", L"_o", L"_l", L"^C"});
    ASSERT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(ui.complaints[0], L"O objeto não delimita uma área.");
}

TEST_F(Session, ListTellsLayerAndGeometry) {
    type({L"_-layer", L"_m", L"Perfis", L"", L"_line", L"0,0", L"25,0", L"", L"lista", L"_l", L""});
    EXPECT_TRUE(said(L"Perfis"));
    EXPECT_TRUE(said(L"25,0000"));
}

TEST_F(Session, HelpNamesTheCommands) {
    type({L"ajuda"});
    EXPECT_TRUE(said(L"ROTACIONAR  (_ROTATE)"));
    EXPECT_TRUE(said(L"CÍRCULO  (_CIRCLE)"));
}

TEST_F(Session, Modules) {
    type({L"arx", L"?"});
    EXPECT_TRUE(said(L"Não há módulos carregados."));
    type({L"arx", L"_l", L"/nenhum/lugar/Nada.arx", L"arx", L"_u", L"Nada.arx"});
    EXPECT_EQ(ui.complaints.size(), 2u);
    EXPECT_FALSE(editor->runner().active());
}

TEST_F(Session, RepeatedByEnter) {
    type({L"_point", L"1,1", L"", L"2,2"});
    EXPECT_EQ(count(), 2u);
}

}  // namespace
}  // namespace builtin
