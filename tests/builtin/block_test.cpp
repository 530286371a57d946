// SPDX-License-Identifier: MIT
// The clipboard, BLOCK and INSERT.
#include <filesystem>

#include "prancheta/display/display_list.h"
#include "prancheta/entities/foreign_entity.h"
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
        {{L"_block", L"A", L"10,20", L"_de", L"_re", L"a", L"_all", L""}, 0, nullptr},
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
