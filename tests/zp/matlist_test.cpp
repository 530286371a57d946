// SPDX-License-Identifier: MIT
// Material list: rows, marks, undo, file, table.
#include "tests/zp/matlist.h"

#include <map>

#include "protocol/report.h"
#include "rxdict.h"
#include "texts/number.h"
#include "zp/matlist/summary.h"
#include "zp/objects/member.h"

namespace {

using namespace zp_tests;

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
    EXPECT_TRUE(asked(L"Lista <2>: "));  // the new one is offered
    EXPECT_EQ(rows(1).size(), 1u);
    EXPECT_EQ(rows(1)[0].marca, L"P2");  // no two lists of a drawing give one mark
    EXPECT_EQ(materialLists()[1].header.point.y, -600.0)
        << "beside its first piece, as a list that "
           "a piece began";
    answer.text.clear();
    ui.answers.push_back(answer);
    EXPECT_EQ(enter(1), 1);
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

TEST_F(MaterialListTest, AnErasedPecaIsShownAndComesBack) {
    const AcDbObjectId peca = u(0, 0, 500);
    u(0, 300, 500);
    enter(3, 0, peca);
    const AcDbObjectId marca = rows()[0].ids[0];
    EXPECT_EQ(Read<ZpMarca>(marca)->peca(), peca);
    const auto eraseLinked = [&](std::initializer_list<AcDbObjectId> picked) {
        type({L"_erase"});
        pick(0, 0, picked);
        type({L""});
    };
    eraseLinked({peca});
    EXPECT_EQ(zp::matlist::observacaoOf(rows()[0]), L"peça apagada");
    EXPECT_TRUE(rows()[0].ids.empty());
    EXPECT_EQ(rows()[0].observacao, L"");
    EXPECT_EQ(totalMass(), 0.0);
    for (const wchar_t* around : {L"_u", L"_oops"}) {
        if (!peca.isErased()) eraseLinked({peca, marca});
        type({around});
        EXPECT_EQ(zp::matlist::observacaoOf(rows()[0]), L"");
        EXPECT_NEAR(totalMass(), 3 * 4.01, 1e-9);  // 0,5 m of 1020.4115 mm2
        EXPECT_EQ(Read<ZpMarca>(marca)->peca(), peca);
    }
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
    enter(1, 0, u(0, 0, 500));
    reopen();
    ASSERT_EQ(rows().size(), 1u);
    EXPECT_EQ(Read<ZpMarca>(rows()[0].ids[0])->peca(), entities()[0]);
    EXPECT_EQ(rows()[0].quantidade, 1);
    EXPECT_FALSE(zp::matlist::erased(rows()[0]));
    type({L"_erase"});
    pick(0, 0, {entities()[0]});
    type({L""});
    for (int slot = 0; slot < 2; ++slot) {
        reopen();
        ASSERT_EQ(rows().size(), 1u);
        EXPECT_EQ(zp::matlist::observacaoOf(rows()[0]), L"peça apagada");
    }
    EXPECT_EQ(countOf<ZpMarca>(), 0u);  // it went with its piece
}

TEST_F(MaterialListTest, PecasWithoutASteelHaveTheDrawings) {
    const AcDbObjectId its = u(0, 0, 500);
    const AcDbObjectId other = u(0, 300, 500);
    enter(1, 0, its);
    enter(1, 0, other);
    EXPECT_TRUE(zp::matlist::changeGrade(zp::matlist::recordOf(its), L"A36"));
    const auto materials = [&] {
        std::vector<std::wstring> all;
        for (const Linha& row : rows()) all.push_back(row.material);
        return all;
    };
    using Materials = std::vector<std::wstring>;
    EXPECT_EQ(materials(), (Materials{L"A36", L"ACO"}));
    EXPECT_FALSE(zp::member::same(*Read<ZpObject>(its).object(), *Read<ZpObject>(other).object()));
    type({L"ACO", L"A36"});
    EXPECT_EQ(materials(), (Materials{L"A36", L"A36"}));
    EXPECT_TRUE(said(L"1 linha da lista mudou de material."));
    EXPECT_TRUE(zp::member::same(*Read<ZpObject>(its).object(), *Read<ZpObject>(other).object()));
    type({L"ACO", L"ZAR 230"});
    EXPECT_EQ(materials(), (Materials{L"A36", L"ZAR 230"}));
    type({L"_u", L"ACO", L"."});
    EXPECT_EQ(materials(), (Materials{L"A36", L"ACO"}));
}

TEST_F(MaterialListTest, PurgingRemovesOnlyTheErasedOnes) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(1, 0, peca);
    const AcDbObjectId other = u(0, 0, 700);
    enter(1, 0, other);
    const AcDbObjectId third = u(0, 0, 900);
    enter(1, 0, third);
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
    EXPECT_EQ(countOf<ZpMarca>(), 1u);  // the others went with their pieces
    enter(1);
    EXPECT_EQ(rows().back().marca, L"P4");
}

TEST_F(MaterialListTest, ARowThatComesBackIsFound) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(3, 0, peca);
    const AcDbObjectId other = u(0, 0, 700);
    enter(1, 0, other);
    type({L"_erase"});
    pick(0, 0, {peca});
    type({L"", L"LISTAMATERIAL", L"limpar", L""});
    EXPECT_EQ(rows().size(), 1u);
    EXPECT_TRUE(zp::matlist::isListed(other));
    type({L"_u", L"_u"});
    EXPECT_TRUE(zp::matlist::isListed(peca));
    EXPECT_EQ(zp::matlist::countOf(peca), 3);
    EXPECT_EQ(rows()[0].quantidade, 3);
    EXPECT_EQ(rows()[1].quantidade, 1);
}

TEST_F(MaterialListTest, APecaInABlockCountsOnceForEveryInsertion) {
    const auto block = [&](const wchar_t* name) {
        AcDbBlockTable* table = nullptr;
        EXPECT_EQ(editor->database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* record = new AcDbBlockTableRecord;
        record->setName(name);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        record->close();
        table->close();
        return id;
    };
    const auto into = [&](AcDbObjectId space, AcDbEntity* entity) {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForWrite);
        EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    };
    const AcDbObjectId inner = block(L"TESOURA");
    const AcDbObjectId outer = block(L"PORTICO");
    const AcDbObjectId peca =
        into(inner, new ZpUDobrado(AcGePoint3d(), ZpObject::kVistaDireita, 200, 75, 75, 3, 3,
                                   0.5 * kPi, 0.5 * kPi, 500, 0, 0, 0));
    enter(2, 0, peca);
    EXPECT_EQ(rows()[0].quantidade, 0);
    into(outer, new AcDbBlockReference(AcGePoint3d(), inner));
    EXPECT_EQ(rows()[0].quantidade, 0) << "inserted in a block that stands nowhere";
    const AcDbObjectId first = put(new AcDbBlockReference(AcGePoint3d(), outer));
    EXPECT_EQ(rows()[0].quantidade, 2);
    into(outer, new AcDbBlockReference(AcGePoint3d(100, 0, 0), inner));
    put(new AcDbBlockReference(AcGePoint3d(9000, 0, 0), outer));
    EXPECT_EQ(rows()[0].quantidade, 8);  // two insertions of two insertions of two members
    put(new AcDbBlockReference(AcGePoint3d(0, 9000, 0), inner));
    EXPECT_EQ(rows()[0].quantidade, 10);
    put(new AcDbMInsertBlock(AcGePoint3d(), inner, 3, 2, 6000, 4000));
    EXPECT_EQ(rows()[0].quantidade, 22);  // an array of six insertions of two members
    type({L"_erase"});
    pick(0, 0, {first});
    type({L""});
    EXPECT_EQ(rows()[0].quantidade, 18);
    EXPECT_TRUE(said(L"P1: 18 peças (era "));
    type({L"_u"});
    EXPECT_EQ(rows()[0].quantidade, 22);
    EXPECT_EQ(rows()[0].pecas.size(), 1u);
}

TEST_F(MaterialListTest, StretchedAndScaledPecasCountAsTheyStand) {
    const AcDbObjectId peca = u(0, 0, 500);
    enter(2, 0, peca);
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

TEST_F(MaterialListTest, TheTableIsUpdatedWhereItStands) {
    enter(1);
    type({L"LISTAMATERIAL", L"", L"1000,2000"});
    const auto tally = [&](const wchar_t* wanted) {
        return std::ranges::count_if(entities(), [&](const AcDbObjectId& id) {
            const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead);
            return text.object() != nullptr && text->textStringConst() == std::wstring(wanted);
        });
    };
    const auto parts = [&] {
        const auto drawn = materialLists()[0].header.table;
        return std::vector<AcDbObjectId>(drawn.begin(), drawn.end());
    };
    const auto pickParts = [&](const wchar_t* command, std::vector<AcDbObjectId> picked) {
        type({command});
        pick(0, 0, std::move(picked));
        type({L""});
    };
    const auto expectCorner = [&](double x, double y) {
        const Read<AcDbLine> top(parts().front());
        expectPoint(top->startPoint(), x, y);
        expectPoint(materialLists()[0].header.point, x, y);
    };
    EXPECT_EQ(tally(L"200x75x3"), 1);
    EXPECT_EQ(tally(L"LISTA DE MATERIAL"), 1);
    expectCorner(1000, 2000);
    enter(2);
    type({L"LISTAMATERIAL", L""});  // stands already: nothing is asked
    EXPECT_EQ(tally(L"200x75x3"), 2);
    EXPECT_EQ(tally(L"MARCA"), 1);
    EXPECT_EQ(tally(L"TOTAL"), 1);
    EXPECT_EQ(tally(L"12,00"), 1);  // 4 + 8 kg
    expectCorner(1000, 2000);
    // The copy is none of the list's; the table that was moved stays there, whatever is left of it.
    pickParts(L"_copy", parts());
    type({L"0,0", L"0,5000", L""});
    pickParts(L"_move", parts());
    type({L"0,0", L"500,-300"});
    pickParts(L"_rotate", parts());
    type({L"1500,1700", L"90"});
    type({L"LISTAMATERIAL", L""});
    expectCorner(1500, 1700);
    expectPoint(
        AcGePoint3d() +
            (Read<AcDbLine>(parts().front())->endPoint() - AcGePoint3d(1500, 1700, 0)).normal(),
        0, 1);
    EXPECT_NEAR(Read<AcDbText>(parts().back())->rotation(), zp_tests::kPi / 2, 1e-9);
    pickParts(L"_rotate", parts());
    type({L"1500,1700", L"-90"});
    pickParts(L"_erase", {parts().front()});
    type({L"LISTAMATERIAL", L"nova", L"LISTAMATERIAL", L"", L"1"});
    expectCorner(1500, 1700);
    EXPECT_EQ(tally(L"LISTA DE MATERIAL"), 1);  // the copy
    EXPECT_EQ(tally(L"LISTA DE MATERIAL 1"), 1);
    // A row whose mark was erased says so and no longer counts.
    pickParts(L"_erase", {rows()[0].ids[0]});
    type({L"LISTAMATERIAL", L"", L"1"});
    EXPECT_EQ(tally(L"apagada"), 1);
    EXPECT_EQ(tally(L"8,00"), 3);  // the copy's, the row's and the total
}

/// The column is as wide as the title, 0.9 x 17 + 1.6 = 16.9. Of the four lines that fit two are
/// title and headings: five rows and the total take three blocks, 3 x 16.9 + 2 wide.
TEST_F(MaterialListTest, OnASheetTheTableIsReadUpwardsAndGoesOnToTheLeft) {
    for (int i = 0; i < 5; ++i) enter(1);
    type({L"LISTAMATERIAL", L"_Columns", L"marca"});
    const auto* r =
        static_cast<protocol::DrawingReport*>(acrxSysRegistry()->at(protocol::kDrawingReportKey));
    AcDbObjectIdArray drawn;
    for (const auto& [width, height] : {std::pair{52.6, 8.1}, {60.0, 5.9}}) {
        protocol::TablePlace place{{}, {100, 10, 0}, width, height, 1.0};
        EXPECT_FALSE(r->drawTables(editor->database(), place, drawn)) << width;
        EXPECT_EQ(drawn.length(), 0);
    }
    EXPECT_TRUE(r->drawTables(editor->database(), {{}, {100, 10, 0}, 52.8, 8.1, 1.0}, drawn));
    std::map<std::wstring, AcGePoint3d> places;
    for (const AcDbObjectId& id : drawn)
        if (const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead); text.object() != nullptr)
            places[text->textStringConst()] = text->position();
    expectPoint(places[L"P1"], 83.9, 14.5);
    expectPoint(places[L"P2"], 83.9, 16.5);
    expectPoint(places[L"P3"], 66.0, 14.5);
    expectPoint(places[L"P5"], 48.1, 14.5);
    expectPoint(places[L"TOTAL"], 48.1, 16.5);
    expectPoint(places[L"MARCA"], 48.1, 12.5);
    EXPECT_FALSE(zp::matlist::hasTable(materialLists()[0].header)) << "it is the caller's";
}

TEST_F(MaterialListTest, ColumnsAreChosenAndStayWithTheDrawing) {
    ui.mayComplain = true;
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "zp_colunas_test.dxf";
    const auto heading = [&] {
        std::wstring text;
        const auto lines = zp::matlist::linesOf(listing());
        for (const std::wstring& h : lines.front()) text += h + L'|';
        return text;
    };
    enter(1);
    type({L"LISTAMATERIAL", L"", L"0,0"});
    const std::wstring usual = heading();
    EXPECT_EQ(usual.find(L"DESIGNAÇÃO"), std::wstring::npos);
    type({L"LISTAMATERIAL", L"cOlunas", L"marca, cor,tom", L"marca,Marca", L"peso_total", L"",
          L"LISTAMATERIAL", L"_Columns", L" Marca,DESIGNACAO, peso_total "});
    EXPECT_TRUE(
        said(L"\nColunas: marca, quantidade, descricao, dimensoes, material, comprimento, "
             L"peso_unitario, peso_total, area_pintura, observacao\n"));
    EXPECT_TRUE(said(L"Colunas desconhecidas: cor, tom. As chaves são marca, quantidade, "));
    EXPECT_TRUE(said(L"A coluna Marca está repetida"));
    EXPECT_TRUE(said(L"A primeira coluna recebe a palavra TOTAL e não pode ser peso_total"));
    ASSERT_TRUE(static_cast<bool>(editor->file().save(file)));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
    std::filesystem::remove(file);
    EXPECT_EQ(heading(), L"MARCA|DESIGNAÇÃO|PESO TOTAL (kg)|");
    EXPECT_EQ(materialLists()[0].header.table.size(), 5u + 4u + 1u + 3u + 3u + 2u);
    EXPECT_EQ(zp::matlist::linesOf(listing())[1],
              (std::vector<std::wstring>{L"P1", L"U 200x75x3", L"4,00"}));
    type({L"LISTAMATERIAL", L"o", L""});
    EXPECT_TRUE(said(L"\nColunas: marca, designacao, peso_total\n"));
    EXPECT_EQ(heading(), usual);
    // Of keys that another version wrote those that are known are shown.
    zp::matlist::Header header = materialLists()[0].header;
    for (const auto& [keys, shown] : {std::pair{L"cor,material", std::wstring(L"MATERIAL|")},
                                      {L"cor", usual},
                                      {L"cor,peso_total", usual}}) {
        header.columns = keys;
        EXPECT_TRUE(zp::matlist::writeHeader(materialLists()[0].id, header));
        EXPECT_EQ(heading(), shown) << testing::PrintToString(std::wstring(keys));
    }
}

TEST_F(MaterialListTest, WhatDoesNotFitARowIsRefused) {
    enter(std::numeric_limits<int>::max());
    EXPECT_EQ(enter(std::numeric_limits<int>::max(), 2), 0);
    EXPECT_TRUE(said(L"P3: 4294967294 peças não cabem na lista de material"));
    ASSERT_EQ(rows().size(), 2u);
    EXPECT_EQ(rows()[1].quantidade, std::numeric_limits<int>::max());
    EXPECT_DOUBLE_EQ(totalMass(), 2 * 4.0 * std::numeric_limits<int>::max());
    // Two single shapes each.
    const Linha pairs(L"P1", std::numeric_limits<int>::max(), L"2U ][", L"200x75x3 a=8", L"ACO", 1,
                      1, 1, 1, L"");
    EXPECT_EQ(zp::matlist::summaryOf({pairs}).at(0).pieces, 4294967294);
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
        std::wstring rows;  ///< marks and masses
        void number(const ACHAR* n, double v) override {
            say(n);
            if (std::wstring_view(n) == L"peso_total") rows += texts::withPoint(v, 6) + L' ';
        }
        void integer(const ACHAR* n, long long) override { say(n); }
        void text(const ACHAR* n, const ACHAR* t) override {
            say(n);
            if (std::wstring_view(n) == L"marca") rows += t + std::wstring(L" ");
        }
        void point(const ACHAR* n, const AcGePoint3d&) override { say(n); }
        void object(const ACHAR*, const AcDbObjectId&) override { keys += L"# "; }
        void beginList(const ACHAR* n) override { say(n); }
        void endList() override {}
        void beginGroup(const ACHAR*) override { keys += L"{ "; }
        void endGroup() override { keys += L"} "; }
        void say(const ACHAR* n) { keys += std::wstring(n) + L" "; }
    } visit, full, printed;
    enter(1);
    auto* r =
        static_cast<protocol::DrawingReport*>(acrxSysRegistry()->at(protocol::kDrawingReportKey));
    ASSERT_NE(r, nullptr);
    r->describe(editor->database(), visit);
    EXPECT_EQ(visit.keys,
              L"lista_material { marca quantidade descricao dimensoes material comprimento "
              L"peso_unitario peso_total "
              L"area_pintura observacao designacao origem_peso peso_liquido lista grupo apagada # "
              L"ids # pecas "
              L"vistas tira } ");
    // In full and in the list's order, or as it is printed.
    Linha row = rows()[0];
    row.marca = L"P10";
    row.quantidade = 2;
    row.pesoUnitario = 2.355;
    row.pesoTotal = 4.71;
    EXPECT_TRUE(zp::matlist::rewrite(zp::matlist::storedRecords(materialLists()[0].id)[0].id, row));
    enter(1);
    enter(1);
    type({L"_erase"});
    pick(0, 0, {rows()[1].ids[0]});
    type({L""});
    r->describe(editor->database(), full);
    r->describePrinted(editor->database(), printed);
    EXPECT_EQ(full.rows, L"P10 4.71 P1 0 P2 4 ");
    EXPECT_EQ(printed.rows, L"P1 0 P2 4 P10 4.72 ");
}

}  // namespace
