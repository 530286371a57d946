// SPDX-License-Identifier: MIT
// NEW, OPEN, SAVE, SAVEAS, QSAVE, QUIT.
#include <filesystem>
#include <fstream>

#include "prancheta/base/file.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

namespace fs = std::filesystem;

class Files : public Builtin {
protected:
    Files() {
        m_folder = fs::path(testing::TempDir()) / "prancheta comandos";
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    ~Files() override { fs::remove_all(m_folder); }
    std::wstring path(const char* name) const {
        return prancheta::toWide((m_folder / name).string());
    }
    /// Empty when it cannot be read.
    std::string content(const char* name) const {
        const prancheta::Result<std::string> bytes = prancheta::readFile(m_folder / name);
        return bytes ? *bytes : std::string();
    }
    bool exists(const char* name) const { return fs::exists(m_folder / name); }

    fs::path m_folder;
};

TEST_F(Files, SavedAndOpenedAgain) {
    const std::wstring name = path("Galpão 1");
    type({L"_line", L"1.25,2", L"3,4", L"", L"salvarcomo", name.c_str()});
    ASSERT_TRUE(ui.complaints.empty());
    EXPECT_TRUE(exists("Galpão 1.dxf"));
    EXPECT_FALSE(editor->file().modified());
    type({L"novo"});
    EXPECT_EQ(count(), 0u);
    EXPECT_TRUE(editor->file().name().empty());
    const std::wstring quoted = L"\"" + path("Galpão 1.dxf") + L"\"";
    type({L"abrir", quoted.c_str()});
    ASSERT_EQ(count(), 1u);
    expectLine(last(), 1.25, 2, 3, 4);
    EXPECT_EQ(editor->file().name(), m_folder / "Galpão 1.dxf");
    EXPECT_FALSE(editor->file().modified());
}

TEST_F(Files, SavedWithoutQuestionsOnceNamed) {
    const std::wstring name = path("a.dxf");
    type({L"_point", L"0,0", L"_qsave", name.c_str(), L"_point", L"1,1", L"_qsave"});
    EXPECT_FALSE(editor->runner().active());
    EXPECT_FALSE(editor->file().modified());
    // Its own file is replaced without a question.
    type({L"_point", L"2,2", L"_save", L""});
    EXPECT_FALSE(editor->runner().active());
    type({L"_open", name.c_str()});
    EXPECT_EQ(count(), 3u);
}

TEST_F(Files, AnotherFileIsReplacedOnlyWhenToldSo) {
    std::ofstream(m_folder / "outro.dxf") << "do vizinho";
    const std::wstring other = path("outro.dxf");
    type({L"_point", L"0,0", L"_saveas", other.c_str(), L"", L"^C"});
    EXPECT_TRUE(asked(L"Deseja substituí-lo? [Sim/Não] <Não>:"));
    EXPECT_EQ(content("outro.dxf"), "do vizinho");
    EXPECT_TRUE(editor->file().modified());
    type({L"_saveas", other.c_str(), L"_y"});
    EXPECT_NE(content("outro.dxf"), "do vizinho");
    EXPECT_FALSE(editor->file().modified());
}

TEST_F(Files, WhatAnotherProgramSavedIsReplacedOnlyWhenToldSo) {
    const std::wstring name = path("a.dxf");
    const std::wstring other = path("b.dxf");
    type({L"_point", L"0,0", L"_qsave", name.c_str(), L"_point", L"1,1"});
    const auto neighbour = [&] { std::ofstream(m_folder / "a.dxf") << "do vizinho"; };
    neighbour();
    type({L"_qsave", L""});
    EXPECT_TRUE(asked(L"[Sobrescrever/Outro nome/Cancelar] <Cancelar>:"));
    type({L"_save", L"", L"_c"});
    EXPECT_EQ(content("a.dxf"), "do vizinho");
    // A script did not expect the question.
    ui.byHand = false;
    type({L"_qsave"});
    EXPECT_EQ(content("a.dxf"), "do vizinho");
    ASSERT_EQ(ui.complaints.size(), 1u);
    EXPECT_NE(ui.complaints[0].find(L"foi mudado por outro programa"), std::wstring::npos);
    ui.byHand = true;
    type({L"_qsave", L"_another", other.c_str()});
    EXPECT_EQ(editor->file().name(), m_folder / "b.dxf");
    EXPECT_EQ(content("a.dxf"), "do vizinho");
    type({L"_saveas", name.c_str(), L"_y", L"_point", L"2,2", L"_qsave"});
    EXPECT_FALSE(editor->file().modified()) << "its own saving is nobody else's";
    neighbour();
    type({L"_qsave", L"_overwrite"});
    EXPECT_NE(content("a.dxf"), "do vizinho");
    EXPECT_EQ(content("a.bak"), "do vizinho");
    EXPECT_FALSE(editor->runner().active());
}

TEST_F(Files, TheFormerFileIsNoLinkAndOutlivesAFailure) {
    const std::wstring name = path("a.dxf");
    const std::wstring link = path("link.dxf");
    type({L"_point", L"0,0", L"_qsave", name.c_str()});
    const std::string first = content("a.dxf");
    fs::create_symlink("a.dxf", m_folder / "link.dxf");
    type({L"_open", link.c_str(), L"_point", L"1,1", L"_qsave"});
    EXPECT_TRUE(fs::is_symlink(m_folder / "link.dxf"));
    EXPECT_FALSE(fs::is_symlink(m_folder / "link.bak"));
    EXPECT_EQ(content("link.bak"), first);
    EXPECT_NE(content("a.dxf"), first);
    // A folder takes the drawing's place: it cannot be saved there.
    fs::remove(m_folder / "a.dxf");
    fs::create_directory(m_folder / "a.dxf");
    type({L"_point", L"2,2", L"_qsave", L"_overwrite"});
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(content("link.bak"), first);
}

TEST_F(Files, VersionOfTheFile) {
    const std::wstring name = path("velho.dxf");
    type({L"_saveas", L"_v", L"2000", name.c_str()});
    EXPECT_NE(content("velho.dxf").find("AC1015"), std::string::npos);
    type({L"_saveas", L"_v", L"2018", name.c_str(), L"_y", L"_point", L"1,1", L"_qsave"});
    EXPECT_NE(content("velho.dxf").find("AC1032"), std::string::npos) << "the version chosen stays";
    type({L"_saveas", L"_v", L"", name.c_str()});
    EXPECT_NE(content("velho.dxf").find("AC1032"), std::string::npos);
}

TEST_F(Files, FailuresKeepTheDrawing) {
    const std::wstring nowhere = path("pasta que falta/x.dxf");
    std::ofstream(m_folder / "ruim.dxf") << "isto não é um desenho";
    const std::wstring bad = path("ruim.dxf");
    type({L"_point", L"0,0", L"_saveas", nowhere.c_str()});
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_TRUE(editor->file().name().empty());
    type({L"_open", L"_y", nowhere.c_str(), L"_open", L"_y", bad.c_str()});
    EXPECT_EQ(ui.complaints.size(), 3u);
    EXPECT_EQ(count(), 1u);
    EXPECT_FALSE(editor->runner().active());
}

/// To the system such a name ends where it is null: at the folder.
TEST_F(Files, NullCharacterInANameTouchesNothing) {
    fs::create_directory(m_folder / "vazia");
    EXPECT_FALSE(editor->file().save(m_folder / std::string("vazia/\0x.dxf", 12)).ok());
    EXPECT_TRUE(exists("vazia"));
    EXPECT_TRUE(editor->file().name().empty());
}

TEST_F(Files, ChangesAreNotThrownAwayUnasked) {
    type({L"_point", L"0,0", L"_new", L"", L"_open", L"^C", L"_quit", L"_n"});
    EXPECT_TRUE(asked(L"Descartar as alterações do desenho? [Sim/Não] <Não>:"));
    EXPECT_EQ(count(), 1u);
    EXPECT_FALSE(editor->quitRequested());
    type({L"sair", L"s"});
    EXPECT_TRUE(editor->quitRequested());
}

TEST_F(Files, UnchangedDrawingIsLeftAtOnce) {
    type({L"_point", L"0,0", L"_u", L"_quit"});
    EXPECT_TRUE(editor->quitRequested());
}

class Scripts : public Files {
protected:
    std::wstring script(const char* name, const std::string& lines) {
        std::ofstream(m_folder / name, std::ios::binary) << lines;
        return path(name);
    }
    void run(const char* name, const std::string& lines) {
        type({L"_script", script(name, lines).c_str()});
        finish();
    }
    void finish() {
        while (editor->typing().inScript() && editor->step()) {
        }
    }
};

TEST_F(Scripts, KeysOfAFileAndOneUndo) {
    type({L"_point", L"9,9"});
    // Windows-1252 with its line ends; a blank line is Enter, as is the second of two blanks.
    run("a.scr",
        "; três linhas\r\n_line 0,0 10,0\r\n\r\n_line 0,5 10,5  _line 0,9 10,9\r\n\r\n"
        "_-layer _m Se\xE7\xE3o\r\n\r\ncirculo 0,0 3\r\n");
    ASSERT_TRUE(ui.complaints.empty());
    ASSERT_EQ(count(), 5u);
    expectLine(entities()[2], 0, 5, 10, 5);
    EXPECT_EQ(layerOf(last()), L"Seção");
    type({L"_u"});
    EXPECT_EQ(count(), 1u);
    type({L"_redo"});
    EXPECT_EQ(count(), 5u);
    // The extension may be missing; the mark of UTF-8 is no key.
    (void)script("b.scr", "\xEF\xBB\xBF_point 1,1\n_point 2,2");
    type({L"script", path("b").c_str()});
    finish();
    EXPECT_EQ(count(), 7u);
    type({L"_rscript"});
    finish();
    EXPECT_EQ(count(), 9u);
}

TEST_F(Scripts, ACommandLeftWaitingIsTheUsers) {
    const std::wstring name = script("a.scr", "_point 1,1\n_line 0,0 10,0\n");
    type({L"_script", name.c_str(), L"20,0", L""});
    EXPECT_EQ(count(), 3u);
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
    type({L"_point", L"1,1", L"_point", L"2,2", L"_u"});
    EXPECT_EQ(count(), 1u);  // steps of one command again
}

TEST_F(Scripts, AnErrorInterruptsAndResumeGoesOn) {
    run("a.scr", "_point 1,1\nbobagem\n_point 2,2\n");
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(count(), 1u);
    type({L"retomar"});
    finish();
    EXPECT_EQ(count(), 2u);
    type({L"_resume"});
    EXPECT_EQ(ui.complaints.back(), L"Não há script interrompido.");
    // In the middle of a command it goes on inside of it.
    run("c.scr", "_line 0,0 bobagem 7,0\n\n");
    type({L"'_resume"});
    finish();
    expectLine(last(), 0, 0, 7, 0);
    type({L"_u"});
    run("b.scr", "_rscript\n_point 3,3\n");
    EXPECT_EQ(count(), 2u);
    type({L"_script", path("falta").c_str()});
    EXPECT_NE(ui.complaints.back().find(L"não existe"), std::wstring::npos);
    EXPECT_NE(ui.complaints.back().find(L"falta.scr"), std::wstring::npos);
    EXPECT_FALSE(editor->runner().active());
}

TEST_F(Scripts, OneScriptHandsOverToAnother) {
    const std::wstring second = script("b.scr", "_point 2,2\n");
    run("a.scr", "_point 1,1\n_delay 5\n_script " + prancheta::toUtf8(second) + "\n_point 9,9\n");
    EXPECT_TRUE(ui.complaints.empty());
    ASSERT_EQ(count(), 2u);
    expectPoint(Read<AcDbPoint>(last())->position(), 2, 2);
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
}

TEST_F(Scripts, NoneStartsItself) {
    const std::wstring name = path("a.scr");
    run("b.scr", "_point 0,0\n");
    (void)script("a.scr", "_point 1,1\n_script " + prancheta::toUtf8(name) + "\n");
    type({L"_script", name.c_str()});
    for (int i = 0; i < 50 && editor->typing().inScript(); ++i) editor->step();
    EXPECT_EQ(count(), 2u);
    ASSERT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(ui.complaints.back(), L"Um script não pode repetir a si mesmo com SCRIPT.");
    // Nor do two of them go on for ever.
    const std::wstring other = path("c.scr");
    (void)script("a.scr", "_script " + prancheta::toUtf8(other) + "\n");
    (void)script("c.scr", "_script " + prancheta::toUtf8(name) + "\n");
    for (const std::size_t complaints : {2u, 3u}) {
        type({L"_script", name.c_str()});
        for (int i = 0; i < 5000 && editor->typing().inScript(); ++i) editor->step();
        EXPECT_EQ(ui.complaints.size(), complaints) << "once, and anew for the next one";
    }
    EXPECT_TRUE(ui.complaints.back().starts_with(L"Scripts chamaram uns aos outros"));
}

TEST_F(Scripts, WhatWasTypedAheadFollowsTheScript) {
    const std::wstring name = script("a.scr", "_point 1,1\n_point 2,2\n; fim\n");
    editor->typing().add(L"_script " + name + L"\n_point 7,7\n");
    for (int i = 0; i < 3; ++i) editor->step();
    editor->typing().add(L"_point 8,8\n");
    while (editor->step()) {
    }
    ASSERT_EQ(count(), 4u);
    expectPoint(Read<AcDbPoint>(entities()[1])->position(), 2, 2);
    expectPoint(Read<AcDbPoint>(entities()[2])->position(), 7, 7);
    expectPoint(Read<AcDbPoint>(entities()[3])->position(), 8, 8);
    type({L"_u", L"_u"});
    EXPECT_EQ(count(), 2u);
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
}

TEST_F(Scripts, OneUndoWhateverGroupsAScriptBeginsAndEnds) {
    run("a.scr", "_point 1,1\n_undo _begin\n_point 2,2\n_point 3,3\n");
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
    type({L"_undo", L"_begin", L"_point", L"1,1", L"_point", L"2,2", L"_undo", L"_end", L"_u"});
    EXPECT_EQ(count(), 0u);
    run("b.scr", "_point 1,1\n_undo _end\n_point 2,2\n");
    ASSERT_EQ(count(), 2u);
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
    // A group around the script goes on behind it.
    type({L"_undo", L"_begin", L"_point", L"0,0"});
    run("a.scr", "_point 1,1\n_undo _begin\n_point 2,2\n");
    type({L"_point", L"3,3", L"_undo", L"_end", L"_u"});
    EXPECT_EQ(count(), 0u);
}

TEST_F(Scripts, RunningSnapsActAndCmdactiveTells) {
    type({L"osmode", L"1", L"_line", L"0,0", L"10,0", L""});
    const std::string lines = "_point 11,1\n_setvar CMDACTIVE\n";
    run("a.scr", lines);
    expectPoint(Read<AcDbPoint>(last())->position(), 10, 0);
    EXPECT_TRUE(said(L"CMDACTIVE = 5"));
    type({L"_point", L"11,1"});
    expectPoint(Read<AcDbPoint>(last())->position(), 11, 1);
    type({L"osnapcoord", L"1"});
    run("a.scr", lines);
    expectPoint(Read<AcDbPoint>(last())->position(), 11, 1);
}

TEST_F(Files, NewDrawingStartsAfresh) {
    type({L"_point", L"0,0", L"_erase", L"_l", L"", L"_new", L"_y", L"_oops", L"_u"});
    EXPECT_EQ(count(), 0u);
    EXPECT_TRUE(said(L"Não há objetos apagados para restaurar."));
    EXPECT_TRUE(said(L"Tudo foi desfeito."));
    type({L"_point", L"1,1"});
    EXPECT_EQ(count(), 1u);
    // Nor does an OOPS of the former one become another one's when something is undone here.
    type({L"_erase", L"_l", L"", L"_oops", L"_new", L"_y", L"_point", L"1,1", L"_point", L"2,2",
          L"_point", L"3,3", L"_u"});
    EXPECT_TRUE(editor->lastErased().take(editor->database().core().undo().revision()).empty());
}

}  // namespace
}  // namespace builtin
