// SPDX-License-Identifier: MIT
// What is tied to a piece goes with it: once per command, back with undo, gone with the piece.
#include "dbdim.h"
#include "tests/zp/drawing.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/member.h"

namespace {

using namespace zp_tests;

class Links : public Drawing {
protected:
    Links() {
        // U along x, L 500, h 200; dimensions of length below and of height at the left; plates at
        // both ends.
        peca = u(0, 0, 500);
        comprimento = cota(0, -100, 500, -100, 0, -110);
        altura = cota(0, 100, 0, -100, -10, 100);
        first = chapa(0, 60, 100, 120);
        middle = chapa(200, 60, 100, 120);
        last = chapa(400, 60, 100, 120);
        change(peca, [&](ZpObject& p) {
            EXPECT_EQ(p.LinkDim(comprimento), Acad::eOk);
            EXPECT_EQ(p.LinkDim(altura), Acad::eOk);
            for (const AcDbObjectId& c : {first, middle, last, last})
                EXPECT_EQ(p.LinkPos(c), Acad::eOk);
        });
    }
    AcGePoint3d start(AcDbObjectId id) {
        AcGePoint3d p;
        Read<ZpObject>(id)->StartPoint(p);
        return p;
    }
    void expectAllAt(double x, double y) {
        expectNear(start(peca), x, y);
        expectCota(comprimento, x, y - 100, x + 500, y - 100, x, y - 110);
        expectCota(altura, x, y + 100, x, y - 100, x - 10, y + 100);
        expectNear(start(first), x, y + 60);
        expectNear(start(middle), x + 200, y + 60);
        expectNear(start(last), x + 400, y + 60);
    }
    /// What LIST says of everything.
    std::wstring state() {
        ui.printed.clear();
        for (const AcDbObjectId& id : entities()) Read<AcDbEntity>(id)->list();
        return ui.printed;
    }
    AcDbObjectId peca, comprimento, altura, first, middle, last;
    std::wstring handle(AcDbObjectId id) {
        ACHAR text[17];
        id.handle().getIntoAsciiBuffer(text);
        return text;
    }
    /// Runs a command on picked entities.
    void command(const wchar_t* name, const std::vector<AcDbObjectId>& picked,
                 std::initializer_list<const wchar_t*> rest) {
        type({name});
        pick(0, 0, picked);
        type({L""});
        type(rest);
    }
};

TEST_F(Links, TheyFollowThePecaJustOnce) {
    command(L"_move", {peca}, {L"0,0", L"1000,50"});
    expectAllAt(1000, 50);
    // All in the same selection, in any order: moved once.
    command(L"_move", {comprimento, peca, last, altura}, {L"0,0", L"-1000,-50"});
    expectAllAt(0, 0);
}

TEST_F(Links, TurnedWithItsCotasInOneSelection) {
    command(L"_rotate", {peca, comprimento, altura, middle}, {L"0,0", L"90"});
    expectCota(comprimento, 100, 0, 100, 500, 110, 0);
    expectCota(altura, -100, 0, 100, 0, -100, -10);
    expectNear(start(middle), -60, 200);
    expectNear(start(last), -60, 400);
    type({L"_u"});
    expectAllAt(0, 0);
    type({L"_redo"});
    expectNear(start(last), -60, 400);
}

TEST_F(Links, MirroringTakesAllAlong) {
    command(L"_mirror", {peca},
            {L"0,0", L"0,10", L"_y"});  // source erased: the piece itself is mirrored
    const AcDbObjectId fresh = entities().back();
    ASSERT_TRUE(fresh.objectClass()->isDerivedFrom(ZpObject::desc()));
    type({L"_u"});
    expectAllAt(0, 0);
    change(peca, [](ZpObject& p) {
        p.transformBy(AcGeMatrix3d::mirroring(AcGePoint3d(), AcGeVector3d::kYAxis));
    });
    expectCota(comprimento, 0, 100, 500, 100, 0, 110);
    expectNear(start(middle), 200, -60);
    // A flat plate hangs from its origin: mirrored it stands on it.
    expectNear(face(middle, 2), 300, -60);
    expectNear(face(middle, 1), 200, 60);
}

TEST_F(Links, OnlyTheTouchedCotaIsLearntAgain) {
    command(L"_move", {comprimento}, {L"0,0", L"0,-40"});
    command(L"_move", {peca}, {L"0,0", L"100,0"});
    expectCota(comprimento, 100, -140, 600, -140, 100, -150);
    // Undone, the place that was learnt first counts again.
    type({L"_u", L"_u"});
    command(L"_move", {peca}, {L"0,0", L"100,0"});
    expectAllAt(100, 0);
}

TEST_F(Links, ComprimentoTakesTheEndAlong) {
    change(peca, [](ZpObject& p) { EXPECT_EQ(p.AlteraComprimento(700), Acad::eOk); });
    expectCota(comprimento, 0, -100, 700, -100, 0, -110);
    expectNear(start(first), 0, 60);
    expectNear(start(middle), 200, 60);
    expectNear(start(last), 600, 60);
    change(peca, [](ZpObject& p) { EXPECT_EQ(p.AlteraComprimento(250), Acad::eOk); });
    expectNear(start(middle), 200, 60);
    expectNear(start(last), 150, 60);
    Read<ZpObject>(peca)->list();
    EXPECT_TRUE(said(L"chapas fora da barra: 1"));
    change(peca, [](ZpObject& p) { EXPECT_EQ(p.AlteraComprimento(500), Acad::eOk); });
    expectAllAt(0, 0);
}

TEST_F(Links, ScalingTakesTheOffsetsAlong) {
    const std::vector<AcDbObjectId> all = {peca, comprimento, altura, first, middle, last};
    command(L"_scale", all, {L"0,0", L"2"});
    const std::wstring together = state();
    type({L"_u"});
    command(L"_scale", {peca}, {L"0,0", L"2"});
    expectCota(comprimento, 0, -200, 1000, -200, 0, -220);
    expectNear(start(last), 800, 120);
    expectNear(face(last, 3), 1000, -120);
    EXPECT_EQ(Read<ZpObject>(last)->getEspessura(), 16);
    EXPECT_EQ(state(), together);
    // A plate that was scaled alone keeps its own size.
    command(L"_scale", {middle}, {L"400,120", L"0.5"});
    command(L"_scale", {peca}, {L"0,0", L"0.5"});
    EXPECT_EQ(Read<ZpObject>(middle)->getLargura(), 50);
    EXPECT_EQ(Read<ZpObject>(last)->getLargura(), 100);
}

TEST_F(Links, WhatLiesOnALockedLayerStays) {
    type({L"-layer", L"_m", L"PRESA", L""});
    for (const AcDbObjectId& id : {comprimento, last}) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        (void)entity->setLayer(L"PRESA");
    }
    type({L"-layer", L"_lo", L"PRESA", L""});
    command(L"_move", {peca}, {L"0,0", L"10,0"});
    EXPECT_TRUE(said(L"1 chapa e 1 cota ficam como estão, em camada bloqueada"));
    expectCota(comprimento, 0, -100, 500, -100, 0, -110);
    expectNear(start(last), 400, 60);
    expectNear(start(first), 10, 60);
    command(L"_erase", {peca}, {});
    EXPECT_EQ(countOf<ZpObject>(), 1u);
    EXPECT_EQ(countOf<AcDbDimension>(), 1u);
    type({L"_oops", L"-layer", L"_u", L"PRESA", L""});
    command(L"_move", {peca}, {L"0,0", L"10,0"});
    expectAllAt(20, 0);
    // Of a locked piece nothing goes alone; the line of a dimension may.
    for (const AcDbObjectId& id : {comprimento, last, peca}) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        (void)entity->setLayer(id == peca ? L"PRESA" : L"0");
    }
    type({L"-layer", L"_lo", L"PRESA", L"", L"_stretch", L"_c", L"450,-200", L"600,200", L"",
          L"0,0", L"100,0"});
    EXPECT_TRUE(said(L"1 cota fica com a sua peça, que está em camada bloqueada"))
        << testing::PrintToString(ui.printed);
    expectAllAt(20, 0);
    {
        const AcDbObjectPointer<AcDbAlignedDimension> line(comprimento, AcDb::kForWrite);
        EXPECT_EQ(line->setDimLinePoint({20, -150, 0}), Acad::eOk);
    }
    expectCota(comprimento, 20, -100, 520, -100, 20, -150);
}

TEST_F(Links, AnExplodedBlockIsTiedAsItWasInTheBlock) {
    const AcDbObjectId marca =
        put(new ZpMarca(face(peca, 0), AcGePoint3d(-40, 140, 0), L"P1", 2.5, peca));
    change(peca, [](ZpObject& p) { zp::member::tie(p, {}, 3); });
    AcDbDatabase& drawing = editor->database();
    AcDbObjectId block;
    {
        auto* record = new AcDbBlockTableRecord;
        (void)record->setName(L"TRAVEJADA");
        const AcDbObjectPointer<AcDbBlockTable> table(drawing.blockTableId(), AcDb::kForWrite);
        ASSERT_EQ(table->add(block, record), Acad::eOk);
        (void)record->close();
    }
    AcDbObjectIdArray originals;
    for (const AcDbObjectId& id : {middle, marca, comprimento, peca, altura, first, last})
        originals.append(id);
    AcDbObjectIdArray inBlock;
    ASSERT_EQ(drawing.deepCloneObjects(originals, block, inBlock), Acad::eOk);
    command(L"_erase", {peca, marca}, {});
    // Twice as large, and mirrored.
    auto* reference = new AcDbBlockReference(AcGePoint3d(1000, 0, 0), block);
    (void)reference->setScaleFactors({-2, 2, 2});
    command(L"_explode", {put(reference)}, {});
    type({L"_u", L"_redo"});
    const std::vector<AcDbObjectId> parts = entities();
    ASSERT_EQ(parts.size(), 7u);
    middle = parts[0], comprimento = parts[2], peca = parts[3], last = parts[6];
    EXPECT_EQ(Read<ZpMarca>(parts[1])->peca(), peca);
    EXPECT_EQ(zp::member::of(*Read<ZpObject>(peca)).count, 3);
    command(L"_move", {peca}, {L"0,0", L"0,5"});
    expectNear(start(middle), 600, 125);
    expectCota(comprimento, 1000, -195, 0, -195, 1000, -215);
    expectNear(Read<ZpMarca>(parts[1])->tip(), 1000, 205);
    command(L"_scale", {peca}, {L"1000,5", L"0.5"});
    EXPECT_EQ(Read<ZpObject>(last)->getLargura(), 100);
    command(L"_erase", {peca}, {});
    EXPECT_TRUE(entities().empty());
}

TEST_F(Links, ErasingTakesCotasAndChapasAlong) {
    command(L"_erase", {peca}, {});
    EXPECT_EQ(countOf<ZpObject>(), 0u);
    EXPECT_EQ(countOf<AcDbDimension>(), 0u);
    type({L"_u"});
    EXPECT_EQ(countOf<ZpObject>(), 4u);
    EXPECT_EQ(countOf<AcDbDimension>(), 2u);
    command(L"_move", {peca}, {L"0,0", L"10,0"});
    expectAllAt(10, 0);
}

TEST_F(Links, OopsBringsBackAsItWas) {
    // A dimension between two pieces, a piece that follows, and a plate erased before.
    const AcDbObjectId second = u(0, 900, 300);
    const AcDbObjectId between = cota(0, 100, 0, 900, -50, 100);
    change(peca, [&](ZpObject& p) {
        EXPECT_EQ(p.LinkDim(between), Acad::eOk);
        EXPECT_EQ(p.LinkPos(second), Acad::eOk);
    });
    change(second, [&](ZpObject& p) { EXPECT_EQ(p.LinkDim(between), Acad::eOk); });
    const std::wstring before = state();
    const std::vector<AcDbObjectId> samples[] = {
        {peca},        {middle},       {altura},       {middle, last, comprimento},
        {between},     {second},       {peca, second}, {second, between, first},
        {first, peca}, {last, middle},
    };
    for (const std::vector<AcDbObjectId>& sample : samples) {
        command(L"_erase", sample, {});
        type({L"_oops"});
        EXPECT_EQ(state(), before) << "case " << &sample - samples;
        command(L"_move", {peca}, {L"0,0", L"10,0"});
        expectAllAt(10, 0);
        expectNear(start(second), 10, 900);
        type({L"_u", L"_u"});
        EXPECT_TRUE(sample[0].isErased());
        type({L"_u"});
        EXPECT_EQ(state(), before) << "case " << &sample - samples;
    }
    // Meanwhile the piece went on: what comes back is in its place at it.
    command(L"_erase", {middle, altura}, {});
    command(L"_move", {peca}, {L"0,0", L"10,0"});
    type({L"_oops"});
    expectAllAt(10, 0);
    // What was erased before does not come back with the piece.
    command(L"_erase", {middle}, {});
    command(L"_erase", {peca}, {});
    type({L"_oops"});
    EXPECT_TRUE(middle.isErased());
    EXPECT_FALSE(last.isErased());
}

TEST_F(Links, ErasedAloneIsUntied) {
    command(L"_erase", {altura, middle}, {});
    EXPECT_EQ(countOf<ZpObject>(), 3u);
    command(L"_move", {peca}, {L"0,0", L"10,0"});
    expectCota(comprimento, 10, -100, 510, -100, 10, -110);
    Read<ZpObject>(peca)->list();
    EXPECT_FALSE(said(handle(middle) + L","));
    // Undo brings the link back with the plate.
    type({L"_u", L"_u"});
    command(L"_move", {peca}, {L"0,0", L"20,0"});
    expectAllAt(20, 0);
}

TEST_F(Links, CopiedWithAllAndCopiedAlone) {
    command(L"_copy", {peca, comprimento, altura, first, middle, last}, {L"0,0", L"0,1000", L""});
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 12u);
    const AcDbObjectId copy = all[6];
    const AcDbObjectId copiedCota = all[7];
    command(L"_move", {copy}, {L"0,0", L"50,0"});
    expectCota(copiedCota, 50, 900, 550, 900, 50, 890);
    expectAllAt(0, 0);
    command(L"_erase", {copy}, {});
    EXPECT_EQ(entities().size(), 6u);

    command(L"_copy", {peca}, {L"0,0", L"0,1000", L""});
    const AcDbObjectId alone = entities().back();
    command(L"_move", {alone}, {L"0,0", L"77,0"});
    expectAllAt(0, 0);
    command(L"_erase", {alone}, {});
    EXPECT_EQ(entities().size(), 6u);

    // A dimension copied alone belongs to nobody.
    command(L"_copy", {comprimento}, {L"0,0", L"0,-300", L""});
    const AcDbObjectId loose = entities().back();
    command(L"_move", {peca}, {L"0,0", L"5,0"});
    expectCota(loose, 0, -400, 500, -400, 0, -410);
    expectAllAt(5, 0);
}

TEST_F(Links, ExplodingEndsTheLinks) {
    command(L"_explode", {peca}, {});
    EXPECT_EQ(countOf<ZpObject>(), 3u);
    EXPECT_EQ(countOf<AcDbDimension>(), 2u);
}

TEST_F(Links, WhatCannotBeTiedIsRefused) {
    const AcDbObjectId row = put(new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 1, 0)));
    change(peca, [&](ZpObject& p) {
        EXPECT_EQ(p.LinkDim(AcDbObjectId()), Acad::eNullObjectId);
        EXPECT_EQ(p.LinkPos(row), Acad::eNotThatKindOfClass);
        EXPECT_EQ(p.LinkPos(peca), Acad::eInvalidInput);
    });
    ZpBarraRedonda loose(AcGePoint3d(), ZpObject::kVistaSecao, 10, 1000, 0);
    EXPECT_EQ(loose.LinkDim(comprimento), Acad::eNoDatabase);
}

}  // namespace
