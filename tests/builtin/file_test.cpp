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
    EXPECT_FALSE(editor->modified());
    type({L"novo"});
    EXPECT_EQ(count(), 0u);
    EXPECT_TRUE(editor->fileName().empty());
    const std::wstring quoted = L"\"" + path("Galpão 1.dxf") + L"\"";
    type({L"abrir", quoted.c_str()});
    ASSERT_EQ(count(), 1u);
    expectLine(last(), 1.25, 2, 3, 4);
    EXPECT_EQ(editor->fileName(), m_folder / "Galpão 1.dxf");
    EXPECT_FALSE(editor->modified());
}

TEST_F(Files, SavedWithoutQuestionsOnceNamed) {
    const std::wstring name = path("a.dxf");
    type({L"_point", L"0,0", L"_qsave", name.c_str(), L"_point", L"1,1", L"_qsave"});
    EXPECT_FALSE(editor->commandActive());
    EXPECT_FALSE(editor->modified());
    // Its own file is replaced without a question.
    type({L"_point", L"2,2", L"_save", L""});
    EXPECT_FALSE(editor->commandActive());
    type({L"_open", name.c_str()});
    EXPECT_EQ(count(), 3u);
}

TEST_F(Files, AnotherFileIsReplacedOnlyWhenToldSo) {
    std::ofstream(m_folder / "outro.dxf") << "do vizinho";
    const std::wstring other = path("outro.dxf");
    type({L"_point", L"0,0", L"_saveas", other.c_str(), L"", L"^C"});
    EXPECT_TRUE(asked(L"Deseja substituí-lo? [Sim/Não] <Não>:"));
    EXPECT_EQ(content("outro.dxf"), "do vizinho");
    EXPECT_TRUE(editor->modified());
    type({L"_saveas", other.c_str(), L"_y"});
    EXPECT_NE(content("outro.dxf"), "do vizinho");
    EXPECT_FALSE(editor->modified());
}

TEST_F(Files, VersionOfTheFile) {
    const std::wstring name = path("velho.dxf");
    type({L"_saveas", L"_v", L"2000", name.c_str()});
    EXPECT_NE(content("velho.dxf").find("AC1015"), std::string::npos);
    type({L"_saveas", L"_v", L"", name.c_str()});
    EXPECT_NE(content("velho.dxf").find("AC1032"), std::string::npos);
}

TEST_F(Files, FailuresKeepTheDrawing) {
    const std::wstring nowhere = path("pasta que falta/x.dxf");
    std::ofstream(m_folder / "ruim.dxf") << "isto não é um desenho";
    const std::wstring bad = path("ruim.dxf");
    type({L"_point", L"0,0", L"_saveas", nowhere.c_str()});
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_TRUE(editor->fileName().empty());
    type({L"_open", L"_y", nowhere.c_str(), L"_open", L"_y", bad.c_str()});
    EXPECT_EQ(ui.complaints.size(), 3u);
    EXPECT_EQ(count(), 1u);
    EXPECT_FALSE(editor->commandActive());
}

/// To the system such a name ends where it is null: at the folder.
TEST_F(Files, NullCharacterInANameTouchesNothing) {
    fs::create_directory(m_folder / "vazia");
    EXPECT_FALSE(editor->saveDocument(m_folder / std::string("vazia/\0x.dxf", 12)).ok());
    EXPECT_TRUE(exists("vazia"));
    EXPECT_TRUE(editor->fileName().empty());
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

TEST_F(Files, NewDrawingStartsAfresh) {
    type({L"_point", L"0,0", L"_erase", L"_l", L"", L"_new", L"_y", L"_oops", L"_u"});
    EXPECT_EQ(count(), 0u);
    EXPECT_TRUE(said(L"Não há objetos apagados para restaurar."));
    EXPECT_TRUE(said(L"Tudo foi desfeito."));
    type({L"_point", L"1,1"});
    EXPECT_EQ(count(), 1u);
}

}  // namespace
}  // namespace builtin
