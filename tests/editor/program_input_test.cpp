// SPDX-License-Identifier: MIT
// Programs that feed the command line: commands left waiting, refusals, undo steps, silence.
#include <filesystem>
#include <fstream>

#include "adsdlg.h"
#include "geassign.h"
#include "prancheta/dcl/dialog.h"
#include "support.h"

using namespace prancheta;
using editortest::turned;

namespace {

class ProgramTest : public editortest::EditorTest {
protected:
    /// As programs do before they send points.
    ProgramTest() { editor->variables().force(L"OSMODE", short{0}); }
};

std::vector<int> g_status;
AcDbObjectId g_line;

void nameOf(AcDbObjectId id, ads_name name) {
    ads_name own;
    ASSERT_EQ(acdbGetAdsName(own, id), Acad::eOk);
    ads_name_set(own, name);
}

/// Draws a line and leaves TURN waiting for its angle, as a module does that lets the user place a
/// piece.
void leaveTurning() {
    Editor& editor = *Editor::current();
    g_line = editortest::addLine(editor.database(), 0, 0, 5, 0);
    ads_name name;
    nameOf(g_line, name);
    resbuf zero{};
    zero.restype = RTSHORT;
    resbuf former{};
    acedGetVar(L"CMDECHO", &former);
    acedSetVar(L"CMDECHO", &zero);
    const ads_point base = {3, 4, 0};
    g_status = {acedCommand(RTSTR, L"_.turn", RTENAME, name, RTNONE),
                acedCommand(RTSTR, L"", RTNONE), acedCommand(RTPOINT, base, RTNONE)};
    acedSetVar(L"CMDECHO", &former);
}

TEST_F(ProgramTest, theUserFinishesWhatAProgramLeftWaiting) {
    registerCommand(L"coloca", leaveTurning);
    type({L"coloca"});
    EXPECT_EQ(g_status, (std::vector<int>{RTNORM, RTNORM, RTNORM}));
    EXPECT_EQ(ui.output, L"");  // CMDECHO 0: neither prompts nor messages
    EXPECT_EQ(editor->runner().activeName(), L"TURN");
    EXPECT_EQ(kinds({"comando", "envia", "pede", "fim"}), "comando envia comando envia envia fim");
    editor->setLastPoint(AcGePoint3d(9, 9, 9));
    type({L"90"});
    const InputRequest& asked = ui.requests.back();
    EXPECT_EQ(asked.kind, InputKind::Angle);
    ASSERT_TRUE(asked.base.has_value());
    editortest::expectPoint(*asked.base, 3, 4);
    EXPECT_EQ(turned().count, 1u);
    EXPECT_NEAR(turned().angle, 1.5707963267948966, 1e-15);
    EXPECT_FALSE(editor->runner().active());
    EXPECT_EQ(kinds({"comando", "fim", "pede", "resposta"}),
              "comando comando fim pede resposta fim");
}

TEST_F(ProgramTest, whatWasLeftWaitingIsItsOwnUndoStep) {
    registerCommand(L"coloca", leaveTurning);
    UndoLog& undo = editor->database().core().undo();
    type({L"coloca", L"90"});
    EXPECT_EQ(entityCount(), 2u);
    EXPECT_TRUE(undo.undo());
    EXPECT_EQ(entityCount(), 1u);
    EXPECT_TRUE(undo.undo());
    EXPECT_EQ(entityCount(), 0u);
    type({L"coloca", L"^C"});
    EXPECT_EQ(entityCount(), 1u);
    EXPECT_TRUE(undo.undo());
    EXPECT_EQ(entityCount(), 0u);
    EXPECT_FALSE(undo.inGroup());
}

void turnWholly() {
    ads_name name;
    nameOf(editortest::addLine(Editor::current()->database(), 0, 0, 5, 0), name);
    const ads_point base = {0, 0, 0};
    g_status = {acedCommand(RTSTR, L"_.turn", RTENAME, name, RTSTR, L"", RT3DPOINT, base, RTREAL,
                            45.0, RTNONE)};
}

TEST_F(ProgramTest, aWholeCommandBelongsToTheCallersStep) {
    registerCommand(L"gira", turnWholly);
    type({L"gira"});
    EXPECT_EQ(g_status, std::vector<int>{RTNORM});
    EXPECT_NEAR(turned().angle, 0.78539816339744831, 1e-15);
    EXPECT_NE(ui.output.find(L"Especifique o ângulo: 45"), std::wstring::npos);  // CMDECHO 1
    EXPECT_EQ(kinds({"pede", "resposta"}), "");
    EXPECT_EQ(editor->database().core().undo().groupCount(), 1u);
}

void refusedTokens() {
    ads_name erased;
    AcDbObjectId id = editortest::addLine(Editor::current()->database(), 0, 0, 5, 0);
    nameOf(id, erased);
    {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        entity->erase();
    }
    g_status = {acedCommand(RTSTR, L"_.turn", RTENAME, erased, RTNONE),
                acedCommand(RTSTR, L"_.nada", RTNONE),
                acedCommand(RTSTR, L"_rays", RTSTR, L"xyz", RTNONE),
                acedCommand(RTSTR, L"_rays", RTSTR, L"1,1", RTNONE),
                acedCommand(RTNONE),
                acedCommand(RTRESBUF, nullptr, RTNONE)};
}

TEST_F(ProgramTest, refusedTokensCancelTheCommand) {
    registerCommand(L"erra", refusedTokens);
    type({L"erra"});
    EXPECT_EQ(g_status, (std::vector<int>{RTERROR, RTERROR, RTERROR, RTNORM, RTNORM, RTERROR}));
    EXPECT_FALSE(editor->runner().active());
    EXPECT_TRUE(ui.complaints.empty());  // a program's mistake is not the user's
}

void turnEmptySet() {
    ads_name set;
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    g_status = {acedCommand(RTSTR, L"_.turn", RTPICKS, set, RTSTR, L"", RTNONE)};
}

TEST_F(ProgramTest, anEmptySetSelectsNothing) {
    line(-5, 0, 5, 0);  // where a point without coordinates would pick
    registerCommand(L"vazio", turnEmptySet);
    type({L"vazio"});
    EXPECT_EQ(g_status, std::vector<int>{RTERROR});
    EXPECT_FALSE(editor->runner().active());
}

ads_hdlg openDialog() {
    const std::string file = testing::TempDir() + "aberto.dcl";
    std::ofstream(file) << "d : dialog { : button { key = \"vai\"; } }";
    int id = 0;
    ads_hdlg dialog = nullptr;
    EXPECT_EQ(ads_load_dialog(toWide(file).c_str(), &id), RTNORM);
    EXPECT_EQ(ads_new_dialog(L"d", id, nullptr, &dialog), RTNORM);
    (void)ads_unload_dialog(id);
    std::filesystem::remove(file);
    return dialog;
}

TEST_F(ProgramTest, dialogsLeftOpenCloseWithTheirCommand) {
    registerCommand(L"esquece", [] { (void)openDialog(); });
    registerCommand(L"quebra", [] {
        const ads_hdlg dialog = openDialog();
        ads_action_tile(dialog, L"vai", [](ads_callback_packet*) {
            (void)openDialog();
            throw 1;
        });
        int status = 0;
        ads_start_dialog(dialog, &status);
    });
    dcl::setDialogRunner([](dcl::Dialog& dialog) { (void)dialog.press("vai"); });
    for (const wchar_t* command : {L"esquece", L"quebra"}) {
        type({command});
        EXPECT_EQ(dcl::openDialogs(), 0) << toUtf8(command);
        EXPECT_EQ(acedCommand(RTSTR, L"_rays", RTSTR, L"1,1", RTSTR, L"", RTNONE), RTNORM);
    }
    dcl::setDialogRunner(nullptr);
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(entityCount(), 2u);
}

void pauseForPoint() {
    g_status = {acedCommand(RTSTR, L"_rays", RTSTR, PAUSE, RTSTR, L"@1,0", RTSTR, L"", RTNONE)};
}

TEST_F(ProgramTest, pauseAsksTheUserOnce) {
    registerCommand(L"pausa", pauseForPoint);
    type({L"pausa", L"bobagem", L"7,7"});
    EXPECT_EQ(g_status, std::vector<int>{RTNORM});
    EXPECT_EQ(entityCount(), 2u);
    editortest::expectPoint(editor->lastPoint(), 8, 7);
    EXPECT_EQ(ui.complaints.size(), 1u);
    type({L"pausa", L"^C"});
    EXPECT_EQ(g_status, std::vector<int>{RTCAN});
    EXPECT_FALSE(editor->runner().active());
}

void askDistance() {
    ads_real distance = -1;
    g_status.push_back(acedGetDist(nullptr, L"Distância: ", &distance));
    g_status.push_back(static_cast<int>(distance));
}
void callOther() { g_status = {acedCommand(RTSTR, L"pede", RTSTR, L"12", RTNONE)}; }

TEST_F(ProgramTest, tokensAnswerAnotherModulesCommand) {
    registerCommand(L"pede", askDistance);
    registerCommand(L"chama", callOther);
    g_status.clear();
    type({L"pede", L"12"});
    EXPECT_EQ(g_status, (std::vector<int>{RTNORM, 12}));
    type({L"chama"});
    EXPECT_EQ(g_status.back(), RTNORM);
    EXPECT_FALSE(editor->runner().active());
}

TEST_F(ProgramTest, perpendicularsComeFromTheBase) {
    line(0, 10, 20, 10);
    registerCommand(L"gira", [] {
        Editor& now = *Editor::current();
        ads_name name;
        nameOf(editortest::addLine(now.database(), 100, 0, 105, 0), name);
        const ads_point base = {3, 4, 0};
        const ads_point near = {5, 10.5, 0};
        acedCommand(RTSTR, L"_.turn", RTENAME, name, RTSTR, L"", RTPOINT, base, RTNONE);
        now.setLastPoint(AcGePoint3d(6, 0, 0));
        acedCommand(RTPOINT, near, RTNONE);
    });
    type({L"osmode", L"128", L"gira"});
    // Straight up from the base to the foot at 3,10.
    EXPECT_EQ(turned().runs, 1);
    EXPECT_NEAR(turned().angle, 1.5707963267948966, 1e-12);
}

TEST_F(ProgramTest, runningSnapsActOnProgramsPoints) {
    line(100, 0, 100, 50);
    registerCommand(L"perto", [] {
        const ads_point near = {100.5, 0.25, 0};
        acedCommand(RTSTR, L"_rays", RTPOINT, near, RTSTR, L"", RTNONE);
    });
    type({L"osmode", L"1", L"perto"});
    editortest::expectPoint(editor->lastPoint(), 100, 0);
    type({L"osmode", L"0", L"perto"});
    editortest::expectPoint(editor->lastPoint(), 100.5, 0.25);
    // What the user types stays as typed, unless OSNAPCOORD lets the running snaps win.
    type({L"osmode", L"1", L"osnapcoord", L"0", L"raios", L"100.4,50.3", L""});
    editortest::expectPoint(editor->lastPoint(), 100, 50);
    type({L"osmode", L"16385", L"raios", L"100.4,50.3", L""});  // F3: switched off
    editortest::expectPoint(editor->lastPoint(), 100.4, 50.3);
    type({L"osmode", L"1", L"osnapcoord", L"2", L"raios", L"99.8,49.6", L""});
    editortest::expectPoint(editor->lastPoint(), 99.8, 49.6);
}

}  // namespace
