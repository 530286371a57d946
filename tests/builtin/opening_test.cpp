// SPDX-License-Identifier: MIT
// What an opened drawing shows, and the installation folder that a user works with.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "prancheta/editor/installation.h"
#include "prancheta/verify/verify.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
    std::ostringstream out;
    out << std::ifstream(file).rdbuf();
    return out.str();
}

void put(const fs::path& file, std::string_view text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

class Opening : public Builtin {
protected:
    Opening() : folder(fs::path(testing::TempDir()) / "prancheta abertura") {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~Opening() override { fs::remove_all(folder); }

    /// A line from 1000,2000 to 3000,2500, in a file whose active viewport is this.
    void openWithViewport(const std::string& groups) {
        put(folder / "vista.dxf",
            "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nVPORT\n 70\n1\n  0\nVPORT\n  "
            "2\n*ACTIVE\n" +
                groups +
                "  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n "
                "10\n1000\n"
                " 20\n2000\n 11\n3000\n 21\n2500\n  0\nENDSEC\n  0\nEOF\n");
        const auto opened = editor->file().open(folder / "vista.dxf");
        ASSERT_TRUE(opened) << opened.error().message();
    }
    void expectView(double x, double y, double height) {
        EXPECT_NEAR(editor->screen().view().centre.x, x, 1e-9);
        EXPECT_NEAR(editor->screen().view().centre.y, y, 1e-9);
        EXPECT_NEAR(editor->screen().view().height, height, 1e-9);
    }

    fs::path folder;
};

TEST_F(Opening, AViewThatWasChosenIsSavedWithTheDrawing) {
    editor->screen().resize(800, 400);
    // Into the viewport that came with a file, whose target is no longer needed; the rest of it
    // stays.
    openWithViewport(" 12\n1500\n 22\n2100\n 17\n10\n 27\n20\n 40\n300\n 41\n1.5\n 72\n777\n");
    type({L"_zoom", L"_c", L"1200,2040", L"80"});
    ASSERT_TRUE(editor->file().save(folder / "b.dxf"));
    EXPECT_NE(contentOf(folder / "b.dxf").find("777"), std::string::npos);
    ASSERT_TRUE(editor->file().makeNew());
    ASSERT_TRUE(editor->file().open(folder / "b.dxf"));
    expectView(1200, 2040, 80);
    // Into the one that a new drawing gets.
    ASSERT_TRUE(editor->file().makeNew());
    type({L"_line", L"0,0", L"100,100", L"", L"_zoom", L"_c", L"30,40", L"50"});
    ASSERT_TRUE(editor->file().save(folder / "c.dxf"));
    ASSERT_TRUE(editor->file().makeNew());
    ASSERT_TRUE(editor->file().open(folder / "c.dxf"));
    expectView(30, 40, 50);
}

TEST_F(Opening, ShowsTheSavedViewOrEverything) {
    editor->screen().resize(800, 400);
    // Wide screen: the height of the viewport fits as it is.
    openWithViewport(" 12\n1500\n 22\n2100\n 17\n10\n 27\n20\n 40\n300\n 41\n1.5\n");
    expectView(1510, 2120, 300);
    // Viewport of 4:1: its 1200 of width need 600 of height on a screen of 2:1.
    openWithViewport(" 12\n1500\n 22\n2100\n 40\n300\n 41\n4\n");
    expectView(1500, 2100, 600);
    // A view that shows nothing, one from the side, one that is turned, none: the extents, which
    // are 2000 wide, with a twentieth more.
    for (const char* other : {" 12\n90000\n 22\n0\n 40\n300\n 41\n1\n",
                              " 12\n1500\n 22\n2100\n 40\n300\n 41\n1\n 16\n1\n 26\n0\n 36\n0\n",
                              " 12\n1500\n 22\n2100\n 40\n300\n 41\n1\n 51\n30\n", ""}) {
        openWithViewport(other);
        expectView(2000, 2250, 1000 * 1.05);
    }
}

TEST_F(Opening, AnInstalledFolderIsCopiedForTheUserAndKeptUpToDate) {
    const fs::path shipped = folder / "usr" / "share" / "prancheta" / "instalacao";
    const fs::path programs = folder / "usr" / "lib" / "prancheta";
    put(shipped / "Perfis" / "perfis.dcl", "dialogo 1");
    put(shipped / "Perfis" / "Tabelas" / "u.csv", "tabela 1");
    put(shipped / "Perfis" / "Slides" / "FLECHA.sld", "figura 1");
    put(shipped / "Perfis" / "Listas" / "pu.lst", "lista 1");
    setenv("XDG_DATA_HOME", (folder / "dados").c_str(), 1);
    const auto own = prancheta::usableInstallation(programs);
    ASSERT_TRUE(own) << own.error().message();
    ASSERT_EQ(*own, folder / "dados" / "prancheta" / "instalacao");
    EXPECT_EQ(contentOf(*own / "Perfis" / "perfis.dcl"), "dialogo 1");

    // The user's list stays, in the next session and after a new version.
    put(*own / "Perfis" / "Listas" / "pu.lst", "lista do usuário");
    ASSERT_TRUE(prancheta::usableInstallation(programs));
    EXPECT_EQ(contentOf(*own / "Perfis" / "Listas" / "pu.lst"), "lista do usuário");
    put(shipped / "Perfis" / "perfis.dcl", "dialogo novo");
    put(shipped / "Perfis" / "Tabelas" / "u.csv", "tabela nova");
    put(*own / "Perfis" / "Tabelas" / "u_usuario.csv", "bitolas da casa");
    put(shipped / "Perfis" / "Slides" / "FLECHA.sld", "figura nova");
    put(shipped / "Perfis" / "Listas" / "pl.lst", "lista nova");
    ASSERT_TRUE(prancheta::usableInstallation(programs));
    EXPECT_EQ(contentOf(*own / "Perfis" / "perfis.dcl"), "dialogo novo");
    EXPECT_EQ(contentOf(*own / "Perfis" / "Tabelas" / "u.csv"), "tabela nova");
    EXPECT_EQ(contentOf(*own / "Perfis" / "Tabelas" / "u_usuario.csv"), "bitolas da casa");
    EXPECT_EQ(contentOf(*own / "Perfis" / "Slides" / "FLECHA.sld"), "figura nova");
    EXPECT_EQ(contentOf(*own / "Perfis" / "Listas" / "pl.lst"), "lista nova");
    EXPECT_EQ(contentOf(*own / "Perfis" / "Listas" / "pu.lst"), "lista do usuário");

    // Beside the programs the folder is used in place.
    put(folder / "build" / "instalacao" / "a.txt", "a");
    const auto beside = prancheta::usableInstallation(folder / "build" / "bin");
    ASSERT_TRUE(beside);
    EXPECT_EQ(*beside, folder / "build" / "instalacao");
}

TEST_F(Opening, DamagedFilesAreRefusedByOpenAndRecoveredByName) {
    const std::string name = (folder / "quebrado.dxf").string();
    put(name,
        "  0\nSECTION\n  2\nENTITIES\n  0\nPOINT\n  8\n0\n 10\n1\n 20\n2\n  0\nPOINT\n  8\n0\n "
        "10\nx\n  0\nPOINT\n  8\n0\n 10\n3\n");
    const std::wstring typed = prancheta::toWide(name);
    type({L"_line", L"0,0", L"1,1", L"", L"_open", L"_y", typed.c_str()});
    EXPECT_TRUE(said(L"RECUPERAR abre o que puder ser lido."));
    EXPECT_EQ(count(), 1u) << "the present drawing stays";
    type({L"recuperar", L"_y", typed.c_str()});
    EXPECT_EQ(count(), 1u) << "the first point is whole; nobody knows of the last";
    EXPECT_TRUE(said(L"Linha 18: POINT: "));
    EXPECT_TRUE(said(L"5 perdas ou reparos no arquivo."));
    EXPECT_TRUE(editor->file().modified());
    EXPECT_EQ(editor->file().name(), name);
    type({L"_open", L"_y", (folder / "nenhum.dxf").wstring().c_str()});
    EXPECT_FALSE(ui.complaints.back().find(L"RECUPERAR") != std::wstring::npos);
}

TEST_F(Opening, WhatWasRecoveredIsSavedWhole) {
    const std::string name = (folder / "inteiro.dxf").string();
    const std::wstring typed = prancheta::toWide(name);
    type({L"_line", L"0,0",    L"1,1",  L"",    L"_block",      L"C",   L"0,0",   L"_l",
          L"",      L"_block", L"A",    L"0,0", L"_l",          L"",    L"_text", L"0,0",
          L"2.5",   L"0",      L"nota", L"",    L"_dimaligned", L"0,0", L"10,0",  L"5,5"});
    ASSERT_EQ(count(), 3U) << prancheta::toUtf8(ui.output);
    ASSERT_TRUE(editor->file().save(name));
    const std::string whole = contentOf(name);
    ASSERT_NE(whole.find("DIMENSION"), std::string::npos) << ui.output;
    struct Case {
        const char* what;
        const char* behind;  ///< the first place behind this
        const char* from;
        const char* to;
        const wchar_t* told;
    };
    const Case cases[] = {
        {"a block in itself", "AcDbBlockBegin\n2\nA\n", "AcDbBlockReference\n2\nC\n",
         "AcDbBlockReference\n2\nA\n", L"o bloco \"A\" cont\u00e9m a si mesmo; a refer"},
        {"a text without height", "ENTITIES", "40\n2.5\n", "", L"TEXT"},
        {"a dimension without a place", "AcDbDimension\n", "\n10\n", "\n17\n", L"DIMENSION"},
        {"a style without a name", "AcDbTextStyleTableRecord\n", "2\nStandard\n", "2\n\n",
         L"STYLE"},
        {"an owner that is not there", "\nMLINESTYLE\n", "\n330\n", "\n330\nFFF\n330\n",
         L"MLINESTYLE"},
        {"half a marker", "ENTITIES", "AcDbEntity", "AcDbEntit\x7f",
         L"marcador de classe danificado; foi lido como AcDbEntity"},
        {"a section without its end", "CLASSES", "0\nENDSEC\n", "",
         L"falta o fim (ENDSEC) da se\u00e7\u00e3o CLASSES"},
        {"a variable twice", "HEADER", "9\n$LTSCALE\n", "9\n$LTSCALE\n40\n3.0\n9\n$LTSCALE\n",
         L"a vari\u00e1vel $LTSCALE aparece duas vezes"},
        {"a table without a name", "TABLES", "2\nLTYPE\n", "2\nLT#PE\n",
         L"uma tabela n\u00e3o tem nome conhecido"},
    };
    for (const Case& c : cases) {
        std::string text = whole;
        const std::size_t at = text.find(c.from, text.find(c.behind));
        ASSERT_NE(at, std::string::npos) << c.what;
        put(name, text.replace(at, std::string(c.from).size(), c.to));
        ui.output.clear();
        type({L"recuperar", typed.c_str()});
        EXPECT_TRUE(said(c.told)) << c.what << "\n" << prancheta::toUtf8(ui.output);
        ASSERT_TRUE(editor->file().save({})) << c.what;
        const auto verdict = prancheta::verify::examine(name);
        ASSERT_TRUE(verdict) << c.what;
        EXPECT_EQ(verdict->errors, 0U)
            << c.what << ": "
            << (verdict->remarks.empty() ? std::string() : verdict->remarks.front().message());
    }
}

TEST_F(Opening, AuditTellsWhatAFileOfTheDrawingWouldHaveWrong) {
    type({L"_audit", L"_y"});
    EXPECT_TRUE(said(L" 0 erros, 0 avisos."));
    put(folder / "solto.dxf",
        "  0\nSECTION\n  2\nENTITIES\n  0\nQUADRO\n  5\nB2\n100\nAcDbEntity\n  8\n0\n100\n"
        "AcDbQuadro\n340\nABC\n  0\nENDSEC\n  0\nEOF\n");
    ASSERT_TRUE(editor->file().open(folder / "solto.dxf"));
    ui.output.clear();
    type({L"auditar", L""});
    EXPECT_TRUE(
        said(L"Erro: QUADRO B2: o código 340 aponta para o objeto \"ABC\", que não existe"));
    EXPECT_TRUE(said(L" 1 erro, 0 avisos."));
    EXPECT_FALSE(editor->file().modified());
    type({L"auditar", L"s"});
    EXPECT_TRUE(said(L"QUADRO B2: a referência a \"ABC\", que não existe, foi anulada"));
    EXPECT_TRUE(said(L"Restam: "));
    ui.output.clear();
    type({L"auditar", L""});
    EXPECT_TRUE(said(L" 0 erros, 0 avisos."));
    type({L"_u", L"auditar", L""});
    EXPECT_TRUE(said(L" 1 erro, 0 avisos.")) << "one step of undo";
    // What is recovered is put right at once.
    ui.output.clear();
    type({L"_recover", (folder / "solto.dxf").wstring().c_str(), L"_audit", L""});
    EXPECT_TRUE(said(L"a referência a \"ABC\", que não existe, foi anulada"));
    EXPECT_TRUE(said(L"1 perda ou reparo no arquivo."));
    EXPECT_TRUE(said(L" 0 erros, 0 avisos."));
}

}  // namespace
}  // namespace builtin
