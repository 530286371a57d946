// SPDX-License-Identifier: MIT
// Material list: rows, marks, undo, file, table.
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "protocol/report.h"
#include "rxdict.h"
#include "tests/zp/drawing.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/table.h"
#include "zp/matlist/zpmarca.h"

namespace {

using namespace zp_tests;

class MaterialListTest : public Drawing {
protected:
    /// As a drawing command enters one piece: `type` pieces, plates when there are any.
    int enter(int type, int chapas = 0) {
        CCountMarca counter;
        int list = 0;
        int state = 0;
        AcDbObjectId id;
        if (ZpArxConnectLista(list, id, state, group, counter, type) == 0) return 0;
        AcGePoint3d point(0, -600, 0);
        if (ZpArxOpenLista(list, id, state, group, type, counter, point) == 0) return 0;
        wchar_t marca[kZpMarcaMax];
        for (int i = 0; i < (chapas > 0 ? 2 : 1); ++i) {
            if (ZpArxGetNextMarca(marca) == 0) return 0;
            AcDbObjectId marcaId;
            ZpArxAddMarca(AcGePoint3d(0, 100, 0), AcGePoint3d(-10, 110, 0), marca, marcaId);
            EXPECT_FALSE(marcaId.isNull());
            Linha row = i == 0
                            ? Linha(marca, 1, L"U", L"200x75x3", L"ACO", 500, 4, 4, 0.34, nullptr)
                            : Linha(marca, chapas, L"Chapa", L"200x8", L"ACO", 120, 1.5,
                                    1.5 * chapas, 0.05 * chapas, L"Travejamento");
            AcDbSoftPointerId linked(marcaId);
            row.AddObjId(linked);
            if (ZpArxAddToLista(row) == 0) return 0;
        }
        ZpArxCloseLista();
        last = list;
        return 1;
    }
    std::vector<zp::matlist::MaterialList> materialLists() {
        return zp::matlist::materialLists(editor->database());
    }
    std::vector<Linha> rows(std::size_t index = 0) {
        return materialLists().size() > index ? zp::matlist::rows(materialLists()[index].id)
                                              : std::vector<Linha>();
    }
    std::vector<std::wstring> marcas() {
        std::vector<std::wstring> m;
        for (const Linha& l : rows()) m.push_back(l.marca);
        return m;
    }
    int last = 0;
    wchar_t group[7] = L"Perfil";
};

TEST_F(MaterialListTest, QuantidadePesoAndPinturaByThePecas) {
    EXPECT_EQ(enter(3, 6), 1);
    const auto l = rows();
    ASSERT_EQ(l.size(), 2u);
    EXPECT_EQ(l[0].quantidade, 3);
    EXPECT_DOUBLE_EQ(l[0].pesoUnitario, 4);
    EXPECT_DOUBLE_EQ(l[0].pesoTotal, 12);
    EXPECT_NEAR(l[0].areaPintura, 1.02, 1e-12);
    EXPECT_DOUBLE_EQ(l[0].comprimento, 500);
    EXPECT_EQ(l[1].quantidade, 18);
    EXPECT_DOUBLE_EQ(l[1].pesoTotal, 27);
    EXPECT_EQ(l[1].observacao, L"Travejamento");
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1", L"P2"}));
    EXPECT_EQ(enter(0), 1);  // fewer than one piece is one
    EXPECT_EQ(rows().back().quantidade, 1);
    EXPECT_EQ(rows().back().marca, L"P3");
    EXPECT_EQ(materialLists().size(), 1u);
}

TEST_F(MaterialListTest, WithoutAnOpenListNothingEnters) {
    wchar_t marca[kZpMarcaMax] = L"";
    EXPECT_EQ(ZpArxGetNextMarca(marca), 0);
    Linha row(L"P1", 1, L"U", L"", L"ACO", 1, 1, 1, 1, L"");
    EXPECT_EQ(ZpArxAddToLista(row), 0);
    {
        CCountMarca counter;
        int list = 0, state = 0, type = 1;
        AcDbObjectId id;
        AcGePoint3d p;
        ASSERT_EQ(ZpArxConnectLista(list, id, state, group, counter, type), 1);
        EXPECT_EQ(state, 1);
        ASSERT_EQ(ZpArxOpenLista(list, id, state, group, type, counter, p), 1);
        // A mark asked for twice before its row is entered is another one each time.
        EXPECT_EQ(ZpArxGetNextMarca(marca), 1);
        EXPECT_EQ(ZpArxGetNextMarca(marca), 1);
        EXPECT_STREQ(marca, L"P2");
    }
    EXPECT_EQ(ZpArxAddToLista(row), 0);  // the counter is gone: so is the open list
    enter(1);
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1"}));
}

TEST_F(MaterialListTest, AsksWhenThereAreSeveral) {
    enter(1);
    type({L"LISTAMATERIAL", L"nova"});
    ASSERT_EQ(materialLists().size(), 2u);
    RawInput answer;
    answer.kind = RawInput::Kind::Text;
    answer.text = L"2";
    ui.answers.push_back(answer);
    EXPECT_EQ(enter(1), 1);
    EXPECT_TRUE(asked(L"Lista de material <1>: "));
    EXPECT_EQ(rows(1).size(), 1u);
    EXPECT_EQ(rows(1)[0].marca, L"P1");  // each list counts by itself
    EXPECT_EQ(materialLists()[1].header.point.y, -600.0)
        << "beside its first piece, as a list that "
           "a piece began";
    answer.text.clear();
    ui.answers.push_back(answer);
    EXPECT_EQ(enter(1), 1);
    EXPECT_TRUE(asked(L"Lista de material <2>: "));
    EXPECT_EQ(rows(1).size(), 2u);
    answer.kind = RawInput::Kind::Cancel;
    ui.answers.push_back(answer);
    EXPECT_EQ(enter(1), 0);
}

TEST_F(MaterialListTest, UndoFreesTheMarca) {
    enter(1);
    auto& undo = editor->database().core().undo();
    undo.begin(L"TESTE");
    enter(1);
    undo.end();
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1", L"P2"}));
    type({L"_u"});
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1"}));
    EXPECT_EQ(countOf<ZpMarca>(), 1u);
    enter(1);
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1", L"P2"}));
}

TEST_F(MaterialListTest, SavedAndOpenedWithMarcas) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "zp_matlist_test.dxf";
    enter(2, 4);
    ASSERT_TRUE(static_cast<bool>(editor->file().save(file)));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
    std::filesystem::remove(file);
    const auto l = rows();
    ASSERT_EQ(l.size(), 2u);
    EXPECT_EQ(l[1].dimensoes, L"200x8");
    EXPECT_EQ(l[1].quantidade, 8);
    ASSERT_EQ(l[0].ids.size(), 1u);
    const Read<ZpMarca> marca(l[0].ids[0]);
    ASSERT_NE(marca.object(), nullptr);
    EXPECT_EQ(marca->marca(), L"P1");
    expectPoint(marca->textAt(), -10, 110);
    enter(1);
    EXPECT_EQ(rows().back().marca, L"P3");
}

TEST_F(MaterialListTest, CsvForABrazilianSpreadsheet) {
    std::vector<Linha> l;
    l.emplace_back(L"P1", 2, L"Ue", L"200x75x20x2,65", L"ACO", 1234.5, 7.75, 15.5, 0.75,
                   L"com \"aba\"; furada");
    l.emplace_back(L"-5", 1, L"=1+1", L"\t2", L"@A1", -5.0, -1.0, 1.0, 1.0, L"+\"x\"");
    const std::wstring text = zp::matlist::csvText(l);
    EXPECT_NE(text.find(L"MARCA;QUANT.;DESCRIÇÃO;"), std::wstring::npos);
    EXPECT_NE(text.find(L"\r\nP1;2;Ue;200x75x20x2,65;ACO;1234,5;7,75;15,5;0,75;\"com \"\"aba\"\"; "
                        L"furada\"\r\n"),
              std::wstring::npos);
    // A spreadsheet would run the texts; numbers stay numbers.
    EXPECT_NE(text.find(L"\r\n'-5;1;'=1+1;'\t2;'@A1;-5;-1;1;1;\"'+\"\"x\"\"\"\r\n"),
              std::wstring::npos);
    enter(1);
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / u8"zp_pe\u00E7as.csv";
    const std::wstring name = file.parent_path().wstring() + L"/zp_pe\u00E7as.csv";
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"csv", name.c_str()});
    EXPECT_TRUE(said((L"Lista gravada em " + name).c_str()));
    std::ifstream read(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(read), {}};
    EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBFMARCA;"));
    EXPECT_NE(bytes.find("P1;1;U;200x75x3;ACO;500;4;4;0,34;"), std::string::npos);
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"csv", L"/nao/existe/lista.csv"});
    EXPECT_TRUE(said(L"Não foi possível gravar"));
}

TEST_F(MaterialListTest, AnExistingFileIsReplacedOnlyAfterYes) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / "zp_lista_destino";
    fs::remove_all(folder);
    fs::create_directory(folder);
    const auto bytes = [&](const char* name) {
        std::ifstream file(folder / name, std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(file), {}};
    };
    const auto put = [&](const char* name) { std::ofstream(folder / name) << "antes"; };
    const auto inWords = [&](const std::string& name) { return (folder / name).wstring(); };
    enter(1);
    put("desenho.dxf");
    put("lista.csv.tmp");
    // The extension is added unless it is the right one, whatever its case.
    for (const char* name : {"lista rev.2", "desenho.dxf", "lista.csv", "OUTRA.CSV"})
        type({L"LISTAMATERIAL", L"csv", inWords(name).c_str()});
    for (const char* name : {"lista rev.2.csv", "desenho.dxf.csv", "lista.csv", "OUTRA.CSV"})
        EXPECT_TRUE(bytes(name).starts_with("\xEF\xBB\xBFMARCA;")) << name;
    EXPECT_EQ(bytes("desenho.dxf"), "antes");
    EXPECT_EQ(bytes("lista.csv.tmp"), "antes");
    put("lista.csv");
    put("b.csv");
    type({L"LISTAMATERIAL", L"csv", inWords("lista").c_str(), L"", inWords("c").c_str()});
    EXPECT_TRUE(asked(L"lista.csv já existe. Deseja substituí-lo? [Sim/Não] <Não>: "));
    EXPECT_EQ(bytes("lista.csv"), "antes");
    EXPECT_FALSE(bytes("c.csv").empty()) << "after a no another name is asked for";
    type({L"LISTAMATERIAL", L"csv", inWords("b").c_str()});
    EXPECT_EQ(bytes("b.csv"), "antes");
    type({L"LISTAMATERIAL", L"csv", inWords("lista").c_str(), L"_y"});
    EXPECT_NE(bytes("lista.csv"), "antes");
    // A path that would be cut names another file: nothing is written.
    const auto before = std::distance(fs::directory_iterator(folder), {});
    type({L"LISTAMATERIAL", L"csv", inWords(std::string(140, 'n')).c_str()});
    EXPECT_TRUE(said(L"passa de 131 caracteres"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), before);
    fs::remove_all(folder);
}

/// A part of a workbook, as the language's own archive reader gives it.
std::string partOf(const std::filesystem::path& book, const std::string& part) {
    const std::string command =
        "python3 -c \"import sys,zipfile;sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1])"
        ".read(sys.argv[2]))\" '" +
        book.string() + "' " + part;
    std::string bytes;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return bytes;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) bytes += static_cast<char>(c);
    pclose(pipe);
    return bytes;
}

TEST_F(MaterialListTest, XlsxWithNumbersAndTotals) {
    if (std::system("python3 -c 'import zipfile'") != 0) GTEST_SKIP() << "no python3";
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "zp_lista.xlsx";
    std::filesystem::remove(file);
    enter(2, 4);
    enter(1);
    type({L"_erase"});
    pick(0, 0, {rows()[2].ids[0]});
    type({L"", L"LISTAMATERIAL", L"xlsx",
          std::filesystem::path(file).replace_extension().wstring().c_str()});
    EXPECT_TRUE(said(L"Lista gravada em"));
    EXPECT_TRUE(said(L"fora dos totais: 1. A opção Limpar as retira.\n"));
    const std::string worksheet = partOf(file, "xl/worksheets/sheet1.xml");
    const std::string wording = partOf(file, "xl/sharedStrings.xml");
    // The value of a number cell; text cells have a type.
    const auto value = [&](const std::string& cell) {
        const std::size_t from = worksheet.find("<c r=\"" + cell + "\"");
        const std::size_t v = worksheet.find("<v>", from);
        if (from == std::string::npos ||
            worksheet.substr(from, v - from).find("t=\"s\"") != std::string::npos)
            return std::nan("");
        return std::stod(worksheet.substr(v + 3));
    };
    EXPECT_DOUBLE_EQ(value("B2"), 2);
    EXPECT_DOUBLE_EQ(value("F2"), 500);
    EXPECT_DOUBLE_EQ(value("H2"), 8);
    EXPECT_NEAR(value("I3"), 0.4, 1e-12);
    EXPECT_TRUE(std::isnan(value("A2")));
    EXPECT_DOUBLE_EQ(value("H5"), 20);  // 8 + 12; the erased row stays out
    EXPECT_NEAR(value("I5"), 0.68 + 0.4, 1e-12);
    for (const char* text : {"DESCRIÇÃO", "Travejamento", "apagada", "TOTAL"})
        EXPECT_NE(wording.find(text), std::string::npos) << text;
    EXPECT_NE(worksheet.find("<cols>"), std::string::npos);
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"xlsx", L"/nao/existe/lista.xlsx"});
    EXPECT_TRUE(said(L"Não foi possível gravar /nao/existe/lista.xlsx"));
    // A folder of that name cannot be replaced.
    std::filesystem::create_directory(file);
    EXPECT_FALSE(zp::matlist::kWriteXlsx(file, rows()));
    std::filesystem::remove(file);
}

TEST_F(MaterialListTest, AnErasedPecaIsShownAndComesBack) {
    const AcDbObjectId peca = u(0, 0, 500);  // its first corner is where the mark points
    u(0, 300, 500);
    enter(3);
    const AcDbObjectId marca = rows()[0].ids[0];
    EXPECT_EQ(Read<ZpMarca>(marca)->peca(), peca);
    const auto eraseLinked = [&](std::initializer_list<AcDbObjectId> picked) {
        type({L"_erase"});
        pick(0, 0, picked);
        type({L""});
    };
    eraseLinked({peca});
    EXPECT_EQ(zp::matlist::observacaoOf(rows()[0]), L"peça apagada");
    EXPECT_EQ(rows()[0].observacao, L"");
    EXPECT_EQ(zp::matlist::totalsOf(rows())[7], 0.0);
    for (const wchar_t* around : {L"_u", L"_oops"}) {
        if (!peca.isErased()) eraseLinked({peca, marca});
        type({around});
        EXPECT_EQ(zp::matlist::observacaoOf(rows()[0]), L"");
        EXPECT_DOUBLE_EQ(zp::matlist::totalsOf(rows())[7], 12);
        EXPECT_EQ(Read<ZpMarca>(marca)->peca(), peca);
    }
    // A plate newer than the bar is what a mark at the plate's third corner stands for, and nothing
    // is what a mark elsewhere stands for.
    const AcDbObjectId chapaId = chapa(200, 60, 100, 120);
    const auto pecaAt = [&](const AcGePoint3d& tip) {
        AcDbObjectId id;
        wchar_t text[] = L"P9";
        ZpArxAddMarca(tip, AcGePoint3d(-10, 110, 0), text, id);
        return Read<ZpMarca>(id)->peca();
    };
    EXPECT_EQ(pecaAt(face(chapaId, 2)), chapaId);
    EXPECT_TRUE(pecaAt(AcGePoint3d(77, 77, 0)).isNull());
    // Copied together, the copy of the mark stands for the copy of the piece.
    type({L"_copy"});
    pick(0, 0, {peca, marca});
    type({L"", L"0,0", L"0,1000", L""});
    const Read<ZpMarca> copy(entities().back());
    EXPECT_EQ(copy->peca(), entities()[entities().size() - 2]);
}

TEST_F(MaterialListTest, AnErasedPecaIsNotForgottenBySaving) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "zp_peca_apagada_test.dxf";
    const auto reopen = [&] {
        EXPECT_TRUE(static_cast<bool>(editor->file().save(file)));
        EXPECT_TRUE(static_cast<bool>(editor->file().open(file)));
        std::filesystem::remove(file);
    };
    u(0, 0, 500);
    enter(1);
    reopen();
    ASSERT_EQ(rows().size(), 1u);
    EXPECT_EQ(Read<ZpMarca>(rows()[0].ids[0])->peca(), entities()[0]);
    EXPECT_EQ(zp::matlist::stateOf(rows()[0]), zp::matlist::State::Alive);
    type({L"_erase"});
    pick(0, 0, {entities()[0]});
    type({L""});
    for (int slot = 0; slot < 2; ++slot) {
        reopen();
        ASSERT_EQ(rows().size(), 1u);
        EXPECT_EQ(zp::matlist::observacaoOf(rows()[0]), L"peça apagada");
    }
    type({L"_erase"});
    pick(0, 0, {rows()[0].ids[0]});
    type({L""});
    for (int slot = 0; slot < 2; ++slot) {
        reopen();
        EXPECT_EQ(zp::matlist::observacaoOf(rows()[0]), L"apagada");
    }
}

TEST_F(MaterialListTest, PurgingRemovesOnlyTheErasedOnes) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(1);
    const AcDbObjectId other = u(0, 0, 700);  // newer on the same corner: the next mark is its own
    enter(1);
    const AcDbObjectId third = u(0, 0, 900);
    enter(1);
    EXPECT_EQ(Read<ZpMarca>(rows()[1].ids[0])->peca(), other);
    type({L"LISTAMATERIAL", L"limpar"});
    EXPECT_TRUE(said(L"Nenhuma linha de peça ou marca apagada.\n"));
    type({L"_erase"});
    pick(0, 0, {peca, third});
    type({L"", L"LISTAMATERIAL", L"limpar", L"n"});
    EXPECT_EQ(rows().size(), 3u);
    EXPECT_TRUE(said(L"P1: U 200x75x3, peça apagada"));
    type({L"LISTAMATERIAL", L"limpar", L""});
    EXPECT_TRUE(said(L"Linhas retiradas: 2.\n"));
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P2"}));
    EXPECT_EQ(countOf<ZpMarca>(), 1u);
    auto& undo = editor->database().core().undo();
    undo.begin(L"TESTE");
    enter(1);  // the mark that became free
    undo.end();
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P2", L"P1"}));
    type({L"_u", L"_u"});
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1", L"P2", L"P3"}));
    EXPECT_EQ(countOf<ZpMarca>(), 3u);
    enter(1);
    EXPECT_EQ(rows().back().marca, L"P4");
}

TEST_F(MaterialListTest, ARowThatComesBackIsFound) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(3);
    const AcDbObjectId other = u(0, 0, 700);
    enter(1);
    type({L"_erase"});
    pick(0, 0, {peca});
    type({L"", L"LISTAMATERIAL", L"limpar", L""});
    EXPECT_EQ(zp::matlist::listedQuantidade(other), 1);
    EXPECT_EQ(zp::matlist::listedQuantidade(peca), 0);
    type({L"_u", L"_u"});
    EXPECT_EQ(zp::matlist::listedQuantidade(peca), 3);
    EXPECT_EQ(zp::matlist::listedQuantidade(other), 1);
}

TEST_F(MaterialListTest, StretchedAndScaledPecasCountAsTheyStand) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(2);
    change(peca, [](ZpObject& p) { p.AlteraComprimento(1000); });
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "zp_estica.csv";
    const auto exportTo = [&] {
        type({L"LISTAMATERIAL", L"csv", file.wstring().c_str()});
        std::filesystem::remove(file);
        return rows()[0];
    };
    // 1020.4115 mm2, see the property sheets.
    const double peso = 1020.4115e-6 * 7850;
    EXPECT_DOUBLE_EQ(exportTo().comprimento, 1000);
    EXPECT_NEAR(exportTo().pesoTotal, 2 * peso, 1e-4);
    change(peca, [](ZpObject& p) {
        (void)p.transformBy(AcGeMatrix3d::scaling(2, AcGePoint3d(0, 100, 0)));
    });
    EXPECT_NEAR(exportTo().pesoUnitario, 8 * peso, 1e-4);
    EXPECT_EQ(rows()[0].dimensoes, L"400x150x6");
}

TEST_F(MaterialListTest, TheTableIsUpdatedInItsPlace) {
    enter(1);
    type({L"LISTAMATERIAL", L"", L"1000,2000"});
    const std::size_t one = entities().size();
    const auto wording = [&] {
        std::vector<std::wstring> t;
        for (const AcDbObjectId& id : entities()) {
            const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead);
            if (text.object() != nullptr) t.push_back(text->textStringConst());
        }
        return t;
    };
    const auto has = [&](const wchar_t* index) {
        const auto t = wording();
        return std::count(t.begin(), t.end(), std::wstring(index));
    };
    EXPECT_EQ(has(L"200x75x3"), 1);
    enter(2);
    type({L"LISTAMATERIAL", L""});  // stands already: nothing is asked
    EXPECT_EQ(has(L"200x75x3"), 2);
    EXPECT_EQ(has(L"MARCA"), 1);
    EXPECT_EQ(has(L"TOTAL"), 1);
    EXPECT_EQ(has(L"12"), 1);  // 4 + 8 kg
    EXPECT_GT(entities().size(), one);
    // A row whose mark was erased says so and no longer counts.
    const AcDbObjectId marca = rows()[0].ids[0];
    type({L"_erase"});
    pick(0, 0, {marca});
    type({L"", L"LISTAMATERIAL", L""});
    EXPECT_EQ(has(L"apagada"), 1);
    EXPECT_EQ(has(L"8"), 2);  // its own row and the total
}

TEST_F(MaterialListTest, AMarcaMovesWithItsTextUpright) {
    enter(1);
    const AcDbObjectId id = rows()[0].ids[0];
    AcDbEntity* marca = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(marca, id, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(marca->transformBy(AcGeMatrix3d::mirroring(AcGePoint3d(), AcGeVector3d::kXAxis)),
              Acad::eOk);
    AcGeMatrix3d skewed;
    skewed.entry[0][1] = 0.5;
    EXPECT_EQ(marca->transformBy(skewed), Acad::eCannotScaleNonUniformly);
    expectPoint(static_cast<ZpMarca*>(marca)->textAt(), 10, 110);
    AcDbVoidPtrArray parts;
    EXPECT_EQ(marca->explode(parts), Acad::eOk);
    bool text = false;
    for (void* p : parts) {
        const std::unique_ptr<AcDbEntity> e(static_cast<AcDbEntity*>(p));
        if (const auto* t = AcDbText::cast(e.get())) {
            text = true;
            EXPECT_EQ(t->rotation(), 0.0);
            EXPECT_GE(t->position().x, 10.0);  // beyond the leader, on the side it comes from
        }
    }
    EXPECT_TRUE(text);
    marca->close();
}

TEST_F(MaterialListTest, ReportOfTheDrawing) {
    class Visitor : public protocol::PropertyVisitor {
    public:
        std::wstring keys;
        void number(const ACHAR* n, double) override { say(n); }
        void integer(const ACHAR* n, long long) override { say(n); }
        void text(const ACHAR* n, const ACHAR*) override { say(n); }
        void point(const ACHAR* n, const AcGePoint3d&) override { say(n); }
        void object(const ACHAR*, const AcDbObjectId&) override { keys += L"# "; }
        void beginList(const ACHAR* n) override { say(n); }
        void endList() override {}
        void beginGroup(const ACHAR*) override { keys += L"{ "; }
        void endGroup() override { keys += L"} "; }
        void say(const ACHAR* n) { keys += std::wstring(n) + L" "; }
    } visit;
    enter(1);
    auto* r =
        static_cast<protocol::DrawingReport*>(acrxSysRegistry()->at(protocol::kDrawingReportKey));
    ASSERT_NE(r, nullptr);
    r->describe(editor->database(), visit);
    EXPECT_EQ(visit.keys,
              L"lista_material { marca quantidade descricao dimensoes material comprimento "
              L"peso_unitario peso_total "
              L"area_pintura observacao lista grupo apagada ids # pecas } ");
}

}  // namespace
