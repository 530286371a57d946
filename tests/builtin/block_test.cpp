// SPDX-License-Identifier: MIT
// The clipboard, BLOCK and INSERT.
#include <filesystem>

#include "prancheta/display/display_list.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/insert_parts.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

class Blocks : public Builtin {
protected:
    Blocks() { type({L"_-layer", L"_m", L"Eixos", L"", L"_line", L"10,20", L"40,20", L""}); }

    /// Where the last insertion shows what stands at a point of its block.
    AcGePoint3d shown(double x, double y) const {
        const Read<AcDbBlockReference> reference(last());
        if (reference.object() == nullptr) return {};
        AcGePoint3d at(x, y, 0);
        return at.transformBy(reference->blockTransform());
    }
    AcDbExtents boxOf(AcDbObjectId id) const {
        AcDbExtents box;
        EXPECT_EQ(Read<AcDbEntity>(id)->getGeomExtents(box), Acad::eOk);
        return box;
    }
    static std::wstring values(AcDbObjectId id) {
        const Read<AcDbBlockReference> reference(id);
        std::wstring all;
        if (reference.object() == nullptr) return all;
        for (const AcDbAttribute* const each : prancheta::attributesOf(*reference.object()))
            all += each->tagConst() + std::wstring(L"=") + each->textStringConst() + L" ";
        return all;
    }
    void newDrawing() { type({L"_new", L"_y"}); }
};

TEST_F(Blocks, PasteStandsWhereTheBasePointSays) {
    // Without a base of its own the lower left corner.
    type({L"copiarec", L"_all", L"", L"colar", L"0,0"});
    ASSERT_EQ(count(), 2u);
    expectLine(last(), 0, 0, 30, 0);
    type(
        {L"copiabase", L"40,20", L"_l", L"", L"_line", L"1,1", L"2,2", L"", L"_pasteclip", L"0,0"});
    ASSERT_EQ(count(), 4u);
    expectLine(last(), -40, -20, -10, -20);
    type({L"_u"});
    EXPECT_EQ(count(), 3u);
    type({L"_redo"});
    expectLine(last(), -40, -20, -10, -20);
}

TEST_F(Blocks, PasteIntoAnotherDrawingBringsItsLayer) {
    newDrawing();
    type({L"colar"});
    EXPECT_TRUE(said(L"A área de transferência não tem objetos."));
    type({L"_line", L"0,0", L"9,0", L"", L"_cutclip", L"_all", L""});
    EXPECT_EQ(count(), 0u);
    type({L"_-layer", L"_m", L"Vigas", L"", L"_line", L"5,5", L"6,5", L"", L"_copyclip", L"_l",
          L""});
    newDrawing();
    type({L"_pasteclip", L"100,0"});
    ASSERT_EQ(count(), 1u);
    expectLine(last(), 100, 0, 101, 0);
    EXPECT_EQ(layerOf(last()), L"Vigas");
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
    const AcDbObjectPointer<AcDbLayerTable> layers(editor->database().layerTableId(),
                                                   AcDb::kForRead);
    EXPECT_FALSE(layers->has(L"Vigas")) << "one step back takes the layer too";
}

TEST_F(Blocks, WhatIsNothingOutsideItsFileStays) {
    auto leader = std::make_unique<prancheta::ForeignEntity>();
    // The handle of a style that the file keeps, and no object has.
    ASSERT_EQ(leader->setContent("MULTILEADER", {{100, "AcDbMLeader"}, {340, "FFFF0"}}), Acad::eOk);
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                            AcDb::kForWrite);
        ASSERT_EQ(space->appendAcDbEntity(leader.get()), Acad::eOk);
        (void)leader.release()->close();
    }
    type({L"recortar", L"_all", L""});
    EXPECT_TRUE(said(L"1 objeto não foi copiado: depende de dados que só o arquivo dele guarda."));
    ASSERT_EQ(count(), 1u) << "cut only what was copied";
    type({L"_pasteclip", L"0,0"});
    ASSERT_EQ(count(), 2u);
    expectLine(last(), 0, 0, 30, 0);
}

TEST_F(Blocks, OptionsOfBlock) {
    struct Case {
        std::initializer_list<const wchar_t*> typed;
        std::size_t count;
        AcRxClass* last;
    };
    const Case cases[] = {
        {{L"bloco", L"A", L"10,20", L"_all", L""}, 1, AcDbBlockReference::desc()},
        {{L"bloco", L"A", L"10,20", L"converter", L"_all", L""}, 1, AcDbBlockReference::desc()},
        {{L"_-block", L"A", L"10,20", L"_all", L"reter", L""}, 1, AcDbLine::desc()},
        {{L"_block", L"A", L"10,20", L"_de", L"_r", L"a", L"_all", L""}, 0, nullptr},
        {{L"_block", L"A", L"10,20", L"_r", L"_all", L""}, 1, AcDbLine::desc()},
        {{L"_block", L"A", L"10,20", L""}, 1, AcDbLine::desc()},
    };
    for (const Case& each : cases) {
        type(each.typed);
        EXPECT_EQ(count(), each.count);
        EXPECT_EQ(last().objectClass(), each.last);
        if (&each == std::end(cases) - 1) break;
        type({L"inserir", L"A", L"0,0", L"", L"", L""});
        expectPoint(shown(40, 20), 30, 0);
        type({L"_u", L"_u"});
        ASSERT_EQ(count(), 1u);
        expectLine(last(), 10, 20, 40, 20);
    }
    type({L"inserir", L"A"});
    EXPECT_TRUE(said(L"Não há bloco de nome \"A\"."));
}

TEST_F(Blocks, NamesAreCheckedAndListed) {
    for (const wchar_t* const name : {L"a*b", L"a/b", L"*U1", L"a,b"})
        type({L"_block", name, L"^C"});
    EXPECT_EQ(ui.complaints.size(), 4u);
    type({L"_block", L"Base 1", L"0,0", L"_all", L"", L"_insert", L"?", L"base 1", L"^C"});
    EXPECT_TRUE(said(L"  Base 1\n1 bloco no desenho."));
    type({L"_block", L"BASE 1", L"", L"Base 2", L"^C"});
    EXPECT_TRUE(asked(L"O bloco \"BASE 1\" já existe. Redefinir? [Sim/Não] <Não>:"));
}

TEST_F(Blocks, ScalesAndRotation) {
    type({L"_block", L"A", L"10,20", L"_all", L""});
    // The end of the line stands 30 to the right of the base.
    type({L"_insert", L"a", L"100,0", L"2", L"", L"90"});
    expectPoint(shown(40, 20), 100, 60);
    type({L"_insert", L"a", L"100,0", L"0", L"-1", L"3", L""});
    EXPECT_EQ(ui.complaints.size(), 1u) << "no factor of zero";
    expectPoint(shown(40, 21), 70, 3);
    EXPECT_EQ(layerOf(last()), L"Eixos");
}

TEST_F(Blocks, RedefinitionShowsInAllInsertions) {
    type({L"_block", L"A", L"0,0", L"_all", L"", L"_insert", L"A", L"1000,0", L"", L"", L""});
    const AcDbObjectId insertion = last();
    (void)editor->display().extents();
    type({L"_circle", L"0,0", L"5", L"_block", L"A", L"_y", L"0,0", L"_l", L"_delete", L""});
    EXPECT_EQ(count(), 2u);
    expectPoint(boxOf(insertion).minPoint(), 995, -5);
    EXPECT_EQ(editor->display().extents().right, 1005);
    type({L"_u"});
    expectPoint(boxOf(insertion).maxPoint(), 1040, 20);
}

TEST_F(Blocks, InsertionsAskForTheirAttributes) {
    type(
        {L"defatrib", L"", L"de obra", L"obra", L"Nome da obra:", L"Galpão", L"10,20", L"5", L"0"});
    EXPECT_TRUE(said(L"A etiqueta não pode ter espaços"));
    type({L"_attdef", L"v", L"", L"FOLHA", L"", L"1", L"j", L"d", L"40,10", L"5", L"0"});
    type({L"_attdef", L"v", L"c", L"", L"FIRMA", L"Aço SA", L"10,0", L"5", L"0"});
    ASSERT_EQ(count(), 4u);
    type({L"_attdef", L"c", L"^C", L"_block", L"CARIMBO", L"10,20", L"_all", L""});
    EXPECT_EQ(values(last()), L"OBRA=Galpão FOLHA=1 ");
    type({L"_insert", L"CARIMBO", L"100,0", L"2", L"", L"90", L"Ponte", L"2", L"3"});
    EXPECT_TRUE(asked(L"\nNome da obra <Galpão>: "));
    EXPECT_TRUE(asked(L"\nFOLHA <2>: ")) << "what is to be verified is asked for twice";
    const AcDbObjectId insertion = last();
    EXPECT_EQ(values(insertion), L"OBRA=Ponte FOLHA=3 ");
    {
        const Read<AcDbBlockReference> reference(insertion);
        const AcDbAttribute* const right = prancheta::attributesOf(*reference.object())[1];
        // 30 to the right of the base and 10 below it, twice as large, turned.
        expectPoint(right->alignmentPoint(), 120, 60);
        EXPECT_EQ(right->height(), 10.0);
    }
    type({L"_insert", L"CARIMBO", L"0,500", L"", L"", L"", L".", L"^C"});
    EXPECT_EQ(count(), 2u) << "nothing is left of what was given up";
    type({L"_attedit"});
    pick(0, 0, {insertion});
    type({L".", L""});
    EXPECT_EQ(values(insertion), L"OBRA= FOLHA=3 ");
    type({L"_u"});
    EXPECT_EQ(values(insertion), L"OBRA=Ponte FOLHA=3 ");
    type({L"attreq", L"0", L"_insert", L"CARIMBO", L"300,0", L"", L"", L"", L"_copy"});
    pick(0, 0, {insertion});
    type({L"", L"0,0", L"0,10", L""});
    EXPECT_EQ(values(last()), L"OBRA=Ponte FOLHA=3 ");

    type({L"_line", L"0,0", L"1,0", L"", L"_block", L"CARIMBO", L"_y", L"0,0", L"_l", L"_retain",
          L""});
    EXPECT_TRUE(said(L"4 inserções seguem a nova definição"));
    EXPECT_EQ(values(insertion), L"OBRA=Ponte FOLHA=3 ");
    type({L"_u", L"_explode"});
    pick(0, 0, {insertion});
    type({L""});
    EXPECT_EQ(last().objectClass(), AcDbAttributeDefinition::desc());
}

TEST_F(Blocks, PartsOfADrawingGoToAFile) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "bloco_wblock.dxf";
    std::filesystem::remove(file);
    const std::wstring name = prancheta::toWide(file.string());
    const std::wstring from = L"NOVO=" + name;
    type({L"ltscale", L"7", L"_block", L"A", L"10,20", L"_all", L"", L"wbloco", name.c_str(),
          L"falta", L"A"});
    EXPECT_TRUE(said(L"Não há bloco de nome \"falta\""));
    EXPECT_TRUE(said(L"1 objeto gravado em "));
    type({L"_insert", from.c_str(), L"100,0", L"", L"", L""});
    expectPoint(shown(30, 0), 130, 0);
    // Objects, by a point of theirs; an existing file is replaced only when that is said.
    type({L"_circle", L"500,500", L"5", L"_wblock", name.c_str(), L"_n", name.c_str(), L"_y", L"",
          L"500,500", L"_l", L"_delete", L""});
    EXPECT_EQ(count(), 2u);
    type({L"_oops", L"_open", L"_y", name.c_str()});
    ASSERT_EQ(count(), 1u);
    expectPoint(Read<AcDbCircle>(last())->center(), 0, 0);
    EXPECT_EQ(editor->database().ltscale(), 7.0);
    type({L"_wblock", name.c_str(), L"^C"});
    EXPECT_TRUE(said(L"Este é o arquivo do próprio desenho"));
    std::filesystem::remove(file);
}

TEST_F(Blocks, NoBlockHoldsItself) {
    type({L"_block", L"A", L"0,0", L"_all", L"", L"_block", L"B", L"0,0", L"_all", L""});
    type({L"_block", L"A", L"_y", L"0,0", L"_all", L""});
    EXPECT_TRUE(said(L"O bloco \"A\" conteria a si mesmo"));
    EXPECT_EQ(count(), 1u);
    // A file whose drawing inserts a block of that name, by way of one of this drawing.
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "bloco_ciclo.dxf";
    ASSERT_TRUE(static_cast<bool>(editor->file().save(file)));
    const std::wstring from = L"A=" + prancheta::toWide(file.string());
    type({L"_insert", from.c_str(), L"_y"});
    EXPECT_TRUE(said(L"insere um bloco de nome \"A\""));
    EXPECT_EQ(boxOf(last()).maxPoint().x, 40) << "nothing was changed";
    // Under another name all is well; in a new drawing too.
    for (const wchar_t* const name : {L"C=", L"C="}) {
        const std::wstring other = name + prancheta::toWide(file.string());
        type({L"_insert", other.c_str(), L"100,0", L"", L"", L""});
        expectPoint(boxOf(last()).minPoint(), 110, 20);
        newDrawing();
    }
    std::filesystem::remove(file);
    type({L"_insert", L"D=nada.dxf"});
    EXPECT_EQ(count(), 0u);
    EXPECT_TRUE(said(L"nada.dxf"));
}

}  // namespace
}  // namespace builtin
