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

class MaterialListTest : public Desenho {
protected:
    /// As a drawing command enters one piece: `tipo` pieces, plates when there are any.
    int enter(int tipo, int chapas = 0) {
        CCountMarca counter;
        int lista = 0;
        int estado = 0;
        AcDbObjectId id;
        if (ZpArxConnectLista(lista, id, estado, grupo, counter, tipo) == 0) return 0;
        AcGePoint3d ponto(0, -600, 0);
        if (ZpArxOpenLista(lista, id, estado, grupo, tipo, counter, ponto) == 0) return 0;
        wchar_t marca[kZpMarcaMax];
        for (int i = 0; i < (chapas > 0 ? 2 : 1); ++i) {
            if (ZpArxGetNextMarca(marca) == 0) return 0;
            AcDbObjectId marcaId;
            ZpArxAddMarca(AcGePoint3d(0, 100, 0), AcGePoint3d(-10, 110, 0), marca, marcaId);
            EXPECT_FALSE(marcaId.isNull());
            Linha linha = i == 0
                              ? Linha(marca, 1, L"U", L"200x75x3", L"ACO", 500, 4, 4, 0.34, nullptr)
                              : Linha(marca, chapas, L"Chapa", L"200x8", L"ACO", 120, 1.5,
                                      1.5 * chapas, 0.05 * chapas, L"Travejamento");
            AcDbSoftPointerId ligada(marcaId);
            linha.AddObjId(ligada);
            if (ZpArxAddToLista(linha) == 0) return 0;
        }
        ZpArxCloseLista();
        last = lista;
        return 1;
    }
    std::vector<zp::lista::Lista> listas() { return zp::lista::listas(editor->database()); }
    std::vector<Linha> linhas(std::size_t index = 0) {
        return listas().size() > index ? zp::lista::linhas(listas()[index].id)
                                       : std::vector<Linha>();
    }
    std::vector<std::wstring> marcas() {
        std::vector<std::wstring> m;
        for (const Linha& l : linhas()) m.push_back(l.marca);
        return m;
    }
    int last = 0;
    wchar_t grupo[7] = L"Perfil";
};

TEST_F(MaterialListTest, QuantidadePesoAndPinturaByThePecas) {
    EXPECT_EQ(enter(3, 6), 1);
    const auto l = linhas();
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
    EXPECT_EQ(linhas().back().quantidade, 1);
    EXPECT_EQ(linhas().back().marca, L"P3");
    EXPECT_EQ(listas().size(), 1u);
}

TEST_F(MaterialListTest, WithoutAnOpenListNothingEnters) {
    wchar_t marca[kZpMarcaMax] = L"";
    EXPECT_EQ(ZpArxGetNextMarca(marca), 0);
    Linha linha(L"P1", 1, L"U", L"", L"ACO", 1, 1, 1, 1, L"");
    EXPECT_EQ(ZpArxAddToLista(linha), 0);
    {
        CCountMarca counter;
        int lista = 0, estado = 0, tipo = 1;
        AcDbObjectId id;
        AcGePoint3d p;
        ASSERT_EQ(ZpArxConnectLista(lista, id, estado, grupo, counter, tipo), 1);
        EXPECT_EQ(estado, 1);
        ASSERT_EQ(ZpArxOpenLista(lista, id, estado, grupo, tipo, counter, p), 1);
        // A mark asked for twice before its row is entered is another one each time.
        EXPECT_EQ(ZpArxGetNextMarca(marca), 1);
        EXPECT_EQ(ZpArxGetNextMarca(marca), 1);
        EXPECT_STREQ(marca, L"P2");
    }
    EXPECT_EQ(ZpArxAddToLista(linha), 0);  // the counter is gone: so is the open list
    enter(1);
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1"}));
}

TEST_F(MaterialListTest, AsksWhenThereAreSeveral) {
    enter(1);
    type({L"LISTAMATERIAL", L"nova"});
    ASSERT_EQ(listas().size(), 2u);
    RawInput resposta;
    resposta.kind = RawInput::Kind::Text;
    resposta.text = L"2";
    ui.answers.push_back(resposta);
    EXPECT_EQ(enter(1), 1);
    EXPECT_TRUE(asked(L"Lista de material <1>: "));
    EXPECT_EQ(linhas(1).size(), 1u);
    EXPECT_EQ(linhas(1)[0].marca, L"P1");  // each list counts by itself
    EXPECT_EQ(listas()[1].header.ponto.y, -600.0) << "beside its first piece, as a list that "
                                                     "a piece began";
    resposta.text.clear();
    ui.answers.push_back(resposta);
    EXPECT_EQ(enter(1), 1);
    EXPECT_TRUE(asked(L"Lista de material <2>: "));
    EXPECT_EQ(linhas(1).size(), 2u);
    resposta.kind = RawInput::Kind::Cancel;
    ui.answers.push_back(resposta);
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
    EXPECT_EQ(conta<ZpMarca>(), 1u);
    enter(1);
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1", L"P2"}));
}

TEST_F(MaterialListTest, SavedAndOpenedWithMarcas) {
    const std::filesystem::path arquivo =
        std::filesystem::temp_directory_path() / "zp_matlist_test.dxf";
    enter(2, 4);
    ASSERT_TRUE(static_cast<bool>(editor->file().save(arquivo)));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    std::filesystem::remove(arquivo);
    const auto l = linhas();
    ASSERT_EQ(l.size(), 2u);
    EXPECT_EQ(l[1].dimensoes, L"200x8");
    EXPECT_EQ(l[1].quantidade, 8);
    ASSERT_EQ(l[0].ids.size(), 1u);
    const Read<ZpMarca> marca(l[0].ids[0]);
    ASSERT_NE(marca.object(), nullptr);
    EXPECT_EQ(marca->marca(), L"P1");
    expectPoint(marca->textAt(), -10, 110);
    enter(1);
    EXPECT_EQ(linhas().back().marca, L"P3");
}

TEST_F(MaterialListTest, CsvForABrazilianSpreadsheet) {
    std::vector<Linha> l;
    l.emplace_back(L"P1", 2, L"Ue", L"200x75x20x2,65", L"ACO", 1234.5, 7.75, 15.5, 0.75,
                   L"com \"aba\"; furada");
    l.emplace_back(L"-5", 1, L"=1+1", L"\t2", L"@A1", -5.0, -1.0, 1.0, 1.0, L"+\"x\"");
    const std::wstring texto = zp::lista::csvText(l);
    EXPECT_NE(texto.find(L"MARCA;QUANT.;DESCRIÇÃO;"), std::wstring::npos);
    EXPECT_NE(texto.find(L"\r\nP1;2;Ue;200x75x20x2,65;ACO;1234,5;7,75;15,5;0,75;\"com \"\"aba\"\"; "
                         L"furada\"\r\n"),
              std::wstring::npos);
    // A spreadsheet would run the texts; numbers stay numbers.
    EXPECT_NE(texto.find(L"\r\n'-5;1;'=1+1;'\t2;'@A1;-5;-1;1;1;\"'+\"\"x\"\"\"\r\n"),
              std::wstring::npos);
    enter(1);
    const std::filesystem::path arquivo =
        std::filesystem::temp_directory_path() / u8"zp_pe\u00E7as.csv";
    const std::wstring nome = arquivo.parent_path().wstring() + L"/zp_pe\u00E7as.csv";
    std::filesystem::remove(arquivo);
    type({L"LISTAMATERIAL", L"csv", nome.c_str()});
    EXPECT_TRUE(said((L"Lista gravada em " + nome).c_str()));
    std::ifstream lido(arquivo, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(lido), {}};
    EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBFMARCA;"));
    EXPECT_NE(bytes.find("P1;1;U;200x75x3;ACO;500;4;4;0,34;"), std::string::npos);
    std::filesystem::remove(arquivo);
    type({L"LISTAMATERIAL", L"csv", L"/nao/existe/lista.csv"});
    EXPECT_TRUE(said(L"Não foi possível gravar"));
}

TEST_F(MaterialListTest, AnExistingFileIsReplacedOnlyAfterYes) {
    namespace fs = std::filesystem;
    const fs::path pasta = fs::temp_directory_path() / "zp_lista_destino";
    fs::remove_all(pasta);
    fs::create_directory(pasta);
    const auto bytes = [&](const char* nome) {
        std::ifstream arquivo(pasta / nome, std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(arquivo), {}};
    };
    const auto poe = [&](const char* nome) { std::ofstream(pasta / nome) << "antes"; };
    const auto em = [&](const std::string& nome) { return (pasta / nome).wstring(); };
    enter(1);
    poe("desenho.dxf");
    poe("lista.csv.tmp");
    // The extension is added unless it is the right one, whatever its case.
    for (const char* nome : {"lista rev.2", "desenho.dxf", "lista.csv", "OUTRA.CSV"})
        type({L"LISTAMATERIAL", L"csv", em(nome).c_str()});
    for (const char* nome : {"lista rev.2.csv", "desenho.dxf.csv", "lista.csv", "OUTRA.CSV"})
        EXPECT_TRUE(bytes(nome).starts_with("\xEF\xBB\xBFMARCA;")) << nome;
    EXPECT_EQ(bytes("desenho.dxf"), "antes");
    EXPECT_EQ(bytes("lista.csv.tmp"), "antes");
    poe("lista.csv");
    poe("b.csv");
    type({L"LISTAMATERIAL", L"csv", em("lista").c_str(), L"", em("c").c_str()});
    EXPECT_TRUE(asked(L"lista.csv já existe. Deseja substituí-lo? [Sim/Não] <Não>: "));
    EXPECT_EQ(bytes("lista.csv"), "antes");
    EXPECT_FALSE(bytes("c.csv").empty()) << "after a no another name is asked for";
    type({L"LISTAMATERIAL", L"csv", em("b").c_str()});
    EXPECT_EQ(bytes("b.csv"), "antes");
    type({L"LISTAMATERIAL", L"csv", em("lista").c_str(), L"_y"});
    EXPECT_NE(bytes("lista.csv"), "antes");
    // A path that would be cut names another file: nothing is written.
    const auto antes = std::distance(fs::directory_iterator(pasta), {});
    type({L"LISTAMATERIAL", L"csv", em(std::string(140, 'n')).c_str()});
    EXPECT_TRUE(said(L"passa de 131 caracteres"));
    EXPECT_EQ(std::distance(fs::directory_iterator(pasta), {}), antes);
    fs::remove_all(pasta);
}

/// A part of a workbook, as the language's own archive reader gives it.
std::string partOf(const std::filesystem::path& book, const std::string& parte) {
    const std::string comando =
        "python3 -c \"import sys,zipfile;sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1])"
        ".read(sys.argv[2]))\" '" +
        book.string() + "' " + parte;
    std::string bytes;
    FILE* cano = popen(comando.c_str(), "r");
    if (cano == nullptr) return bytes;
    for (int c = std::fgetc(cano); c != EOF; c = std::fgetc(cano)) bytes += static_cast<char>(c);
    pclose(cano);
    return bytes;
}

TEST_F(MaterialListTest, XlsxWithNumbersAndTotals) {
    if (std::system("python3 -c 'import zipfile'") != 0) GTEST_SKIP() << "no python3";
    const std::filesystem::path arquivo = std::filesystem::temp_directory_path() / "zp_lista.xlsx";
    std::filesystem::remove(arquivo);
    enter(2, 4);
    enter(1);
    type({L"_erase"});
    pick(0, 0, {linhas()[2].ids[0]});
    type({L"", L"LISTAMATERIAL", L"xlsx",
          std::filesystem::path(arquivo).replace_extension().wstring().c_str()});
    EXPECT_TRUE(said(L"Lista gravada em"));
    EXPECT_TRUE(said(L"fora dos totais: 1. A opção Limpar as retira.\n"));
    const std::string folha = partOf(arquivo, "xl/worksheets/sheet1.xml");
    const std::string textos = partOf(arquivo, "xl/sharedStrings.xml");
    // The value of a number cell; text cells have a type.
    const auto valor = [&](const std::string& cell) {
        const std::size_t de = folha.find("<c r=\"" + cell + "\"");
        const std::size_t v = folha.find("<v>", de);
        if (de == std::string::npos ||
            folha.substr(de, v - de).find("t=\"s\"") != std::string::npos)
            return std::nan("");
        return std::stod(folha.substr(v + 3));
    };
    EXPECT_DOUBLE_EQ(valor("B2"), 2);
    EXPECT_DOUBLE_EQ(valor("F2"), 500);
    EXPECT_DOUBLE_EQ(valor("H2"), 8);
    EXPECT_NEAR(valor("I3"), 0.4, 1e-12);
    EXPECT_TRUE(std::isnan(valor("A2")));
    EXPECT_DOUBLE_EQ(valor("H5"), 20);  // 8 + 12; the erased row stays out
    EXPECT_NEAR(valor("I5"), 0.68 + 0.4, 1e-12);
    for (const char* texto : {"DESCRIÇÃO", "Travejamento", "apagada", "TOTAL"})
        EXPECT_NE(textos.find(texto), std::string::npos) << texto;
    EXPECT_NE(folha.find("<cols>"), std::string::npos);
    std::filesystem::remove(arquivo);
    type({L"LISTAMATERIAL", L"xlsx", L"/nao/existe/lista.xlsx"});
    EXPECT_TRUE(said(L"Não foi possível gravar /nao/existe/lista.xlsx"));
    // A folder of that name cannot be replaced.
    std::filesystem::create_directory(arquivo);
    EXPECT_FALSE(zp::lista::kWriteXlsx(arquivo, linhas()));
    std::filesystem::remove(arquivo);
}

TEST_F(MaterialListTest, AnErasedPecaIsShownAndComesBack) {
    const AcDbObjectId peca = u(0, 0, 500);  // its first corner is where the mark points
    u(0, 300, 500);
    enter(3);
    const AcDbObjectId marca = linhas()[0].ids[0];
    EXPECT_EQ(Read<ZpMarca>(marca)->peca(), peca);
    const auto apaga = [&](std::initializer_list<AcDbObjectId> quais) {
        type({L"_erase"});
        pick(0, 0, quais);
        type({L""});
    };
    apaga({peca});
    EXPECT_EQ(zp::lista::observacaoOf(linhas()[0]), L"peça apagada");
    EXPECT_EQ(linhas()[0].observacao, L"");
    EXPECT_EQ(zp::lista::totalsOf(linhas())[7], 0.0);
    for (const wchar_t* volta : {L"_u", L"_oops"}) {
        if (!peca.isErased()) apaga({peca, marca});
        type({volta});
        EXPECT_EQ(zp::lista::observacaoOf(linhas()[0]), L"");
        EXPECT_DOUBLE_EQ(zp::lista::totalsOf(linhas())[7], 12);
        EXPECT_EQ(Read<ZpMarca>(marca)->peca(), peca);
    }
    // A plate newer than the bar is what a mark at the plate's third corner stands for, and nothing
    // is what a mark elsewhere stands for.
    const AcDbObjectId placa = chapa(200, 60, 100, 120);
    const auto pecaAt = [&](const AcGePoint3d& ponta) {
        AcDbObjectId id;
        wchar_t texto[] = L"P9";
        ZpArxAddMarca(ponta, AcGePoint3d(-10, 110, 0), texto, id);
        return Read<ZpMarca>(id)->peca();
    };
    EXPECT_EQ(pecaAt(face(placa, 2)), placa);
    EXPECT_TRUE(pecaAt(AcGePoint3d(77, 77, 0)).isNull());
    // Copied together, the copy of the mark stands for the copy of the piece.
    type({L"_copy"});
    pick(0, 0, {peca, marca});
    type({L"", L"0,0", L"0,1000", L""});
    const Read<ZpMarca> copia(entities().back());
    EXPECT_EQ(copia->peca(), entities()[entities().size() - 2]);
}

TEST_F(MaterialListTest, AnErasedPecaIsNotForgottenBySaving) {
    const std::filesystem::path arquivo =
        std::filesystem::temp_directory_path() / "zp_peca_apagada_test.dxf";
    const auto reopen = [&] {
        EXPECT_TRUE(static_cast<bool>(editor->file().save(arquivo)));
        EXPECT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
        std::filesystem::remove(arquivo);
    };
    u(0, 0, 500);
    enter(1);
    reopen();
    ASSERT_EQ(linhas().size(), 1u);
    EXPECT_EQ(Read<ZpMarca>(linhas()[0].ids[0])->peca(), entities()[0]);
    EXPECT_EQ(zp::lista::stateOf(linhas()[0]), zp::lista::Estado::Alive);
    type({L"_erase"});
    pick(0, 0, {entities()[0]});
    type({L""});
    for (int vez = 0; vez < 2; ++vez) {
        reopen();
        ASSERT_EQ(linhas().size(), 1u);
        EXPECT_EQ(zp::lista::observacaoOf(linhas()[0]), L"peça apagada");
    }
    type({L"_erase"});
    pick(0, 0, {linhas()[0].ids[0]});
    type({L""});
    for (int vez = 0; vez < 2; ++vez) {
        reopen();
        EXPECT_EQ(zp::lista::observacaoOf(linhas()[0]), L"apagada");
    }
}

TEST_F(MaterialListTest, PurgingRemovesOnlyTheErasedOnes) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(1);
    const AcDbObjectId outra = u(0, 0, 700);  // newer on the same corner: the next mark is its own
    enter(1);
    const AcDbObjectId third = u(0, 0, 900);
    enter(1);
    EXPECT_EQ(Read<ZpMarca>(linhas()[1].ids[0])->peca(), outra);
    type({L"LISTAMATERIAL", L"limpar"});
    EXPECT_TRUE(said(L"Nenhuma linha de peça ou marca apagada.\n"));
    type({L"_erase"});
    pick(0, 0, {peca, third});
    type({L"", L"LISTAMATERIAL", L"limpar", L"n"});
    EXPECT_EQ(linhas().size(), 3u);
    EXPECT_TRUE(said(L"P1: U 200x75x3, peça apagada"));
    type({L"LISTAMATERIAL", L"limpar", L""});
    EXPECT_TRUE(said(L"Linhas retiradas: 2.\n"));
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P2"}));
    EXPECT_EQ(conta<ZpMarca>(), 1u);
    auto& undo = editor->database().core().undo();
    undo.begin(L"TESTE");
    enter(1);  // the mark that became free
    undo.end();
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P2", L"P1"}));
    type({L"_u", L"_u"});
    EXPECT_EQ(marcas(), (std::vector<std::wstring>{L"P1", L"P2", L"P3"}));
    EXPECT_EQ(conta<ZpMarca>(), 3u);
    enter(1);
    EXPECT_EQ(linhas().back().marca, L"P4");
}

TEST_F(MaterialListTest, ARowThatComesBackIsFound) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(3);
    const AcDbObjectId outra = u(0, 0, 700);
    enter(1);
    type({L"_erase"});
    pick(0, 0, {peca});
    type({L"", L"LISTAMATERIAL", L"limpar", L""});
    EXPECT_EQ(zp::lista::quantidadeListada(outra), 1);
    EXPECT_EQ(zp::lista::quantidadeListada(peca), 0);
    type({L"_u", L"_u"});
    EXPECT_EQ(zp::lista::quantidadeListada(peca), 3);
    EXPECT_EQ(zp::lista::quantidadeListada(outra), 1);
}

TEST_F(MaterialListTest, StretchedAndScaledPecasCountAsTheyStand) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(2);
    muda(peca, [](ZpObject& p) { p.AlteraComprimento(1000); });
    const std::filesystem::path arquivo = std::filesystem::temp_directory_path() / "zp_estica.csv";
    const auto exportTo = [&] {
        type({L"LISTAMATERIAL", L"csv", arquivo.wstring().c_str()});
        std::filesystem::remove(arquivo);
        return linhas()[0];
    };
    // 1020.4115 mm2, see the property sheets.
    const double massa = 1020.4115e-6 * 7850;
    EXPECT_DOUBLE_EQ(exportTo().comprimento, 1000);
    EXPECT_NEAR(exportTo().pesoTotal, 2 * massa, 1e-4);
    muda(peca, [](ZpObject& p) {
        (void)p.transformBy(AcGeMatrix3d::scaling(2, AcGePoint3d(0, 100, 0)));
    });
    EXPECT_NEAR(exportTo().pesoUnitario, 8 * massa, 1e-4);
    EXPECT_EQ(linhas()[0].dimensoes, L"400x150x6");
}

TEST_F(MaterialListTest, TheTableIsUpdatedInItsPlace) {
    enter(1);
    type({L"LISTAMATERIAL", L"", L"1000,2000"});
    const std::size_t uma = entities().size();
    const auto textos = [&] {
        std::vector<std::wstring> t;
        for (const AcDbObjectId& id : entities()) {
            const AcDbObjectPointer<AcDbText> texto(id, AcDb::kForRead);
            if (texto.object() != nullptr) t.push_back(texto->textStringConst());
        }
        return t;
    };
    const auto tem = [&](const wchar_t* index) {
        const auto t = textos();
        return std::count(t.begin(), t.end(), std::wstring(index));
    };
    EXPECT_EQ(tem(L"200x75x3"), 1);
    enter(2);
    type({L"LISTAMATERIAL", L""});  // stands already: nothing is asked
    EXPECT_EQ(tem(L"200x75x3"), 2);
    EXPECT_EQ(tem(L"MARCA"), 1);
    EXPECT_EQ(tem(L"TOTAL"), 1);
    EXPECT_EQ(tem(L"12"), 1);  // 4 + 8 kg
    EXPECT_GT(entities().size(), uma);
    // A row whose mark was erased says so and no longer counts.
    const AcDbObjectId marca = linhas()[0].ids[0];
    type({L"_erase"});
    pick(0, 0, {marca});
    type({L"", L"LISTAMATERIAL", L""});
    EXPECT_EQ(tem(L"apagada"), 1);
    EXPECT_EQ(tem(L"8"), 2);  // its own row and the total
}

TEST_F(MaterialListTest, AMarcaMovesWithItsTextUpright) {
    enter(1);
    const AcDbObjectId id = linhas()[0].ids[0];
    AcDbEntity* marca = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(marca, id, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(marca->transformBy(AcGeMatrix3d::mirroring(AcGePoint3d(), AcGeVector3d::kXAxis)),
              Acad::eOk);
    AcGeMatrix3d skewed;
    skewed.entry[0][1] = 0.5;
    EXPECT_EQ(marca->transformBy(skewed), Acad::eCannotScaleNonUniformly);
    expectPoint(static_cast<ZpMarca*>(marca)->textAt(), 10, 110);
    AcDbVoidPtrArray partes;
    EXPECT_EQ(marca->explode(partes), Acad::eOk);
    bool texto = false;
    for (void* p : partes) {
        const std::unique_ptr<AcDbEntity> e(static_cast<AcDbEntity*>(p));
        if (const auto* t = AcDbText::cast(e.get())) {
            texto = true;
            EXPECT_EQ(t->rotation(), 0.0);
            EXPECT_GE(t->position().x, 10.0);  // beyond the leader, on the side it comes from
        }
    }
    EXPECT_TRUE(texto);
    marca->close();
}

TEST_F(MaterialListTest, ReportOfTheDrawing) {
    class Visitor : public protocol::PropertyVisitor {
    public:
        std::wstring chaves;
        void number(const ACHAR* n, double) override { diz(n); }
        void integer(const ACHAR* n, long long) override { diz(n); }
        void text(const ACHAR* n, const ACHAR*) override { diz(n); }
        void point(const ACHAR* n, const AcGePoint3d&) override { diz(n); }
        void object(const ACHAR*, const AcDbObjectId&) override { chaves += L"# "; }
        void beginList(const ACHAR* n) override { diz(n); }
        void endList() override {}
        void beginGroup(const ACHAR*) override { chaves += L"{ "; }
        void endGroup() override { chaves += L"} "; }
        void diz(const ACHAR* n) { chaves += std::wstring(n) + L" "; }
    } visit;
    enter(1);
    auto* r =
        static_cast<protocol::DrawingReport*>(acrxSysRegistry()->at(protocol::kDrawingReportKey));
    ASSERT_NE(r, nullptr);
    r->describe(editor->database(), visit);
    EXPECT_EQ(visit.chaves,
              L"lista_material { marca quantidade descricao dimensoes material comprimento "
              L"peso_unitario peso_total "
              L"area_pintura observacao lista grupo apagada ids # pecas } ");
}

}  // namespace
