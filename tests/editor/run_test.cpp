// SPDX-License-Identifier: MIT
// The main loop: names, repetition, undo groups, reactors, transparent commands, variables, events.
#include "support.h"

using namespace prancheta;
using editortest::turned;

namespace {

using RunTest = editortest::EditorTest;

void drawOne() {
    editortest::addLine(Editor::current()->database(), 0, 0, 1, 1);
    editortest::addLine(Editor::current()->database(), 0, 0, 2, 2);
}
void throwing() { throw 1; }
ads_point g_point;
int g_status = 0;
void askPoint() { g_status = acedGetPoint(nullptr, L"\nOnde: ", g_point); }

TEST_F(RunTest, namesAliasesAndUnknownWords) {
    type({L"girar", L"^C"});
    type({L"_TURN", L"^C"});
    editor->aliases().parse("G, *TURN\nOLHAR, *TURN\n");
    type({L"g", L"^C"});
    EXPECT_EQ(kinds({"comando", "fim"}), "comando fim comando fim comando fim");
    EXPECT_EQ(textOf(events.front(), "nome"), "TURN");
    EXPECT_EQ(textOf(events.front(), "grupo"), "PRANCHETA");
    type({L"olhar", L""});  // a command counts before an alias of its name
    EXPECT_NE(ui.output.find(L"Olhando"), std::wstring::npos);
    // The form without a dialog, of what has one form only.
    type({L"_-TURN", L"^C"});
    type({L"-girar", L"^C"});
    type({L"-g", L"^C"});
    EXPECT_TRUE(ui.complaints.empty());
    registerCommand(L"desenha", drawOne);
    type({L"-desenha"});  // a module says itself what its commands are called
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(entityCount(), 0u);
    ui.complaints.clear();
    type({L"_girar", L"bobagem x", L".g"});  // the point means no alias
    ASSERT_EQ(ui.complaints.size(), 3u);
    EXPECT_EQ(ui.complaints[1], L"Comando desconhecido \"BOBAGEM X\". Pressione F1 para ajuda.");
    EXPECT_FALSE(editor->runner().active());
}

TEST_F(RunTest, enterRepeatsTheLastCommand) {
    registerCommand(L"desenha", drawOne);
    registerCommand(
        L"quieto", [] {}, ACRX_CMD_NOHISTORY);
    type({L""});
    EXPECT_EQ(entityCount(), 0u);
    type({L"desenha", L"quieto", L""});
    EXPECT_EQ(entityCount(), 4u);
}

TEST_F(RunTest, oneCommandIsOneUndoStep) {
    registerCommand(L"desenha", drawOne);
    UndoLog& undo = editor->database().core().undo();
    type({L"desenha"});
    type({L"raios", L"1,0", L"2,0", L""});
    EXPECT_EQ(entityCount(), 4u);
    EXPECT_EQ(undo.groupCount(), 2u);
    std::wstring name;
    EXPECT_TRUE(undo.undo(&name));
    EXPECT_EQ(name, L"RAYS");
    EXPECT_EQ(entityCount(), 2u);
    EXPECT_TRUE(undo.undo(&name));
    EXPECT_EQ(name, L"desenha");
    EXPECT_EQ(entityCount(), 0u);
    EXPECT_FALSE(editor->file().modified());
}

TEST_F(RunTest, cancelledKeepsAndFailedTakesBack) {
    type({L"raios", L"1,0", L"^C"});
    EXPECT_EQ(entityCount(), 1u);
    EXPECT_NE(ui.output.find(L"*Cancelar*"), std::wstring::npos);
    type({L"raios", L"5,5", L"f"});
    EXPECT_EQ(entityCount(), 1u);
    registerCommand(L"quebra", throwing);
    type({L"quebra"});
    EXPECT_FALSE(ui.complaints.empty());
    EXPECT_FALSE(editor->runner().active());
    EXPECT_FALSE(editor->database().core().undo().inGroup());
}

TEST_F(RunTest, badAnswersAreAskedAgainAndTheEndOfInputIsEscape) {
    type({L"raios", L"xyz", L"3,3"});
    ASSERT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(ui.complaints[0], L"Ponto inválido.");
    EXPECT_TRUE(editor->runner().active());
    editor->run();
    EXPECT_FALSE(editor->runner().active());
    EXPECT_EQ(entityCount(), 1u);
}

struct Log : AcEditorReactor {
    std::wstring told;
    bool insideUndo = true;
    void note(const wchar_t* what, const ACHAR* name) {
        told += std::wstring(what) + name + L" ";
        insideUndo = insideUndo && Editor::current()->database().core().undo().inGroup();
    }
    void commandWillStart(const ACHAR* name) override { note(L"+", name); }
    void commandEnded(const ACHAR* name) override { note(L"-", name); }
    void commandCancelled(const ACHAR* name) override { note(L"x", name); }
    void commandFailed(const ACHAR* name) override { note(L"!", name); }
};

TEST_F(RunTest, reactorsAreToldInsideTheUndoGroup) {
    Log log;
    acedEditor->addReactor(&log);
    acedEditor->addReactor(&log);
    registerCommand(L"desenha", drawOne);
    type({L"desenha", L"raios", L"^C", L"raios", L"f"});
    acedEditor->removeReactor(&log);
    type({L"desenha"});
    EXPECT_EQ(log.told, L"+desenha -desenha +RAYS xRAYS +RAYS !RAYS ");
    EXPECT_TRUE(log.insideUndo);
}

TEST_F(RunTest, transparentCommandsInsideAQuestion) {
    registerCommand(L"pergunta", askPoint);
    type({L"pergunta", L"'girar", L"'olhar", L"longe", L"7,8"});
    EXPECT_EQ(g_status, RTNORM);
    EXPECT_EQ(g_point[X], 7.0);
    ASSERT_EQ(ui.complaints.size(), 1u);  // GIRAR is not transparent
    EXPECT_NE(ui.output.find(L"Olhando longe.\nContinuando o comando PERGUNTA.\n"),
              std::wstring::npos);
    bool marked = false;
    for (const InputRequest& r : ui.requests) marked = marked || r.prompt == L"\n>>Onde: ";
    EXPECT_TRUE(marked);
    // The same inside a built-in command that waits.
    type({L"raios", L"'_look", L"perto", L"1,0", L""});
    EXPECT_EQ(entityCount(), 1u);
}

TEST_F(RunTest, variablesByName) {
    type({L"osmode", L"7"});
    EXPECT_EQ(editor->variables().number(L"OSMODE"), 7);
    EXPECT_EQ(ui.requests.back().prompt, L"\nDigite novo valor para OSMODE <4133>: ");
    type({L"OSMODE", L""});
    EXPECT_EQ(editor->variables().number(L"OSMODE"), 7);
    type({L"_.osmode", L"9"});
    EXPECT_EQ(editor->variables().number(L"OSMODE"), 9);
    type({L"osmode", L"1.5", L"^C"});
    EXPECT_EQ(ui.complaints.size(), 1u);
    type({L"ltscale", L"1/2"});
    EXPECT_EQ(editor->variables().real(L"LTSCALE"), 0.5);
    type({L"lastpoint", L"1,2,3"});
    editortest::expectPoint(editor->lastPoint(), 1, 2, 3);
    type({L"cmdnames"});
    EXPECT_NE(ui.output.find(L"(somente leitura)"), std::wstring::npos);
    EXPECT_FALSE(editor->runner().active());
}

short g_active = -1;
std::wstring g_names;
void tellActive() {
    resbuf value{};
    ASSERT_EQ(acedGetVar(L"cmdactive", &value), RTNORM);
    g_active = value.resval.rint;
    ASSERT_EQ(acedGetVar(L"CMDNAMES", &value), RTNORM);
    g_names = value.resval.rstring;
    free(value.resval.rstring);
}

TEST_F(RunTest, commandVariablesTellWhatRuns) {
    registerCommand(L"conta", tellActive);
    type({L"conta"});
    EXPECT_EQ(g_active, 1);
    EXPECT_EQ(g_names, L"CONTA");
    type({L"raios", L"'conta", L"^C"});
    EXPECT_EQ(g_active, 3);
    EXPECT_EQ(g_names, L"RAYS'CONTA");
    EXPECT_EQ(editor->variables().number(L"CMDACTIVE"), 0);
}

TEST_F(RunTest, eventsOfAQuestion) {
    registerCommand(L"pergunta", askPoint);
    type({L"pergunta", L"7,8"});
    EXPECT_EQ(kinds({"comando", "pede", "resposta", "fim"}), "comando pede resposta fim");
    for (const Event& event : events) {
        if (std::string_view(event.kind) == "pede") {
            EXPECT_EQ(textOf(event, "tipo"), "ponto");
            EXPECT_EQ(textOf(event, "texto"), "\nOnde: ");
            EXPECT_EQ(std::string_view(event.fields[2].first), "base");
            EXPECT_TRUE(std::holds_alternative<std::monostate>(event.fields[2].second.data));
        }
        if (std::string_view(event.kind) == "resposta") {
            EXPECT_EQ(std::get<long long>(event.fields[0].second.data), RTNORM);
            EXPECT_EQ(std::get<EventPoint>(event.fields[1].second.data).y, 8.0);
        }
    }
    events.clear();
    type({L"raios", L"4,4", L""});
    EXPECT_EQ(kinds({"cria", "apaga"}), "cria");
    for (const Event& event : events) {
        if (std::string_view(event.kind) != "cria") continue;
        EXPECT_EQ(textOf(event, "classe"), "AcDbLine");
        EXPECT_EQ(textOf(event, "camada"), "0");
        EXPECT_FALSE(textOf(event, "handle").empty());
    }
}

TEST_F(RunTest, keysTypedAheadEndAtBlanks) {
    editor->typing().add(L"; comment 1,1\n_rays 1,0 2,0\n\nolhar\nduas palavras\n");
    editor->run();
    EXPECT_EQ(entityCount(), 2u);
    EXPECT_NE(ui.output.find(L"Olhando duas palavras."), std::wstring::npos);
    EXPECT_TRUE(ui.complaints.empty());
}

TEST_F(RunTest, aNewDrawingKeepsTheSession) {
    type({L"osmode", L"3", L"raios", L"9,9", L""});
    EXPECT_TRUE(editor->file().modified());
    const AcDbDatabase* before = &editor->database();
    ASSERT_TRUE(editor->file().makeNew());
    EXPECT_NE(&editor->database(), before);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), &editor->database());
    EXPECT_EQ(entityCount(), 0u);
    EXPECT_FALSE(editor->file().modified());
    EXPECT_EQ(editor->variables().number(L"OSMODE"), 3);
    editortest::expectPoint(editor->lastPoint(), 0, 0);
}

}  // namespace
