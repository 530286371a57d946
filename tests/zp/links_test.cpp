// SPDX-License-Identifier: MIT
// What is tied to a piece goes with it: once per command, back with undo, gone with the piece.
#include "dbdim.h"
#include "tests/zp/drawing.h"

namespace {

using namespace zp_tests;

class Links : public Desenho {
protected:
    Links() {
        // U along x, L 500, h 200; dimensions of length below and of height at the left; plates at
        // both ends.
        peca = u(0, 0, 500);
        comprimento = cota(0, -100, 500, -100, 0, -110);
        altura = cota(0, 100, 0, -100, -10, 100);
        primeira = chapa(0, 60, 100, 120);
        meio = chapa(200, 60, 100, 120);
        last = chapa(400, 60, 100, 120);
        muda(peca, [&](ZpObject& p) {
            EXPECT_EQ(p.LinkDim(comprimento), Acad::eOk);
            EXPECT_EQ(p.LinkDim(altura), Acad::eOk);
            for (const AcDbObjectId& c : {primeira, meio, last, last})
                EXPECT_EQ(p.LinkPos(c), Acad::eOk);
        });
    }
    AcGePoint3d inicio(AcDbObjectId id) {
        AcGePoint3d p;
        Read<ZpObject>(id)->StartPoint(p);
        return p;
    }
    void expectAllAt(double x, double y) {
        expectNear(inicio(peca), x, y);
        expectCota(comprimento, x, y - 100, x + 500, y - 100, x, y - 110);
        expectCota(altura, x, y + 100, x, y - 100, x - 10, y + 100);
        expectNear(inicio(primeira), x, y + 60);
        expectNear(inicio(meio), x + 200, y + 60);
        expectNear(inicio(last), x + 400, y + 60);
    }
    AcDbObjectId peca, comprimento, altura, primeira, meio, last;
    std::wstring handle(AcDbObjectId id) {
        ACHAR texto[17];
        id.handle().getIntoAsciiBuffer(texto);
        return texto;
    }
    /// Runs a command on picked entities.
    void comando(const wchar_t* nome, const std::vector<AcDbObjectId>& quais,
                 std::initializer_list<const wchar_t*> resto) {
        type({nome});
        pick(0, 0, quais);
        type({L""});
        type(resto);
    }
};

TEST_F(Links, TheyFollowThePecaJustOnce) {
    comando(L"_move", {peca}, {L"0,0", L"1000,50"});
    expectAllAt(1000, 50);
    // All in the same selection, in any order: moved once.
    comando(L"_move", {comprimento, peca, last, altura}, {L"0,0", L"-1000,-50"});
    expectAllAt(0, 0);
}

TEST_F(Links, TurnedWithItsCotasInOneSelection) {
    comando(L"_rotate", {peca, comprimento, altura, meio}, {L"0,0", L"90"});
    expectCota(comprimento, 100, 0, 100, 500, 110, 0);
    expectCota(altura, -100, 0, 100, 0, -100, -10);
    expectNear(inicio(meio), -60, 200);
    expectNear(inicio(last), -60, 400);
    type({L"_u"});
    expectAllAt(0, 0);
    type({L"_redo"});
    expectNear(inicio(last), -60, 400);
}

TEST_F(Links, MirroringTakesAllAlong) {
    comando(L"_mirror", {peca},
            {L"0,0", L"0,10", L"_y"});  // source erased: the piece itself is mirrored
    const AcDbObjectId nova = entities().back();
    ASSERT_TRUE(nova.objectClass()->isDerivedFrom(ZpObject::desc()));
    type({L"_u"});
    expectAllAt(0, 0);
    muda(peca, [](ZpObject& p) {
        p.transformBy(AcGeMatrix3d::mirroring(AcGePoint3d(), AcGeVector3d::kYAxis));
    });
    expectCota(comprimento, 0, 100, 500, 100, 0, 110);
    expectNear(inicio(meio), 200, -60);
    // A flat plate hangs from its origin: mirrored it stands on it.
    expectNear(face(meio, 2), 300, -60);
    expectNear(face(meio, 1), 200, 60);
}

TEST_F(Links, OnlyTheTouchedCotaIsLearntAgain) {
    comando(L"_move", {comprimento}, {L"0,0", L"0,-40"});
    comando(L"_move", {peca}, {L"0,0", L"100,0"});
    expectCota(comprimento, 100, -140, 600, -140, 100, -150);
    // Undone, the place that was learnt first counts again.
    type({L"_u", L"_u"});
    comando(L"_move", {peca}, {L"0,0", L"100,0"});
    expectAllAt(100, 0);
}

TEST_F(Links, ComprimentoTakesTheEndAlong) {
    muda(peca, [](ZpObject& p) { EXPECT_EQ(p.AlteraComprimento(700), Acad::eOk); });
    expectCota(comprimento, 0, -100, 700, -100, 0, -110);
    expectNear(inicio(primeira), 0, 60);
    expectNear(inicio(meio), 200, 60);
    expectNear(inicio(last), 600, 60);
    muda(peca, [](ZpObject& p) { EXPECT_EQ(p.AlteraComprimento(250), Acad::eOk); });
    expectNear(inicio(meio), 200, 60);
    expectNear(inicio(last), 150, 60);
    Read<ZpObject>(peca)->list();
    EXPECT_TRUE(said(L"chapas fora da barra: 1"));
    muda(peca, [](ZpObject& p) { EXPECT_EQ(p.AlteraComprimento(500), Acad::eOk); });
    expectAllAt(0, 0);
}

TEST_F(Links, ScalingTakesTheOffsetsAlong) {
    comando(L"_scale", {peca}, {L"0,0", L"2"});
    expectCota(comprimento, 0, -200, 1000, -200, 0, -220);
    expectNear(inicio(last), 800, 120);
}

TEST_F(Links, ErasingTakesCotasAndChapasAlong) {
    comando(L"_erase", {peca}, {});
    EXPECT_EQ(conta<ZpObject>(), 0u);
    EXPECT_EQ(conta<AcDbDimension>(), 0u);
    type({L"_u"});
    EXPECT_EQ(conta<ZpObject>(), 4u);
    EXPECT_EQ(conta<AcDbDimension>(), 2u);
    comando(L"_move", {peca}, {L"0,0", L"10,0"});
    expectAllAt(10, 0);
}

TEST_F(Links, OopsBringsBackAsItWas) {
    // A dimension between two pieces, a piece that follows, and a plate erased before.
    const AcDbObjectId segunda = u(0, 900, 300);
    const AcDbObjectId entre = cota(0, 100, 0, 900, -50, 100);
    muda(peca, [&](ZpObject& p) {
        EXPECT_EQ(p.LinkDim(entre), Acad::eOk);
        EXPECT_EQ(p.LinkPos(segunda), Acad::eOk);
    });
    muda(segunda, [&](ZpObject& p) { EXPECT_EQ(p.LinkDim(entre), Acad::eOk); });
    const auto estado = [&] {
        ui.printed.clear();
        for (const AcDbObjectId& id : entities()) Read<AcDbEntity>(id)->list();
        return ui.printed;
    };
    const std::wstring antes = estado();
    const std::vector<AcDbObjectId> samples[] = {
        {peca},           {meio},       {altura},        {meio, last, comprimento},
        {entre},          {segunda},    {peca, segunda}, {segunda, entre, primeira},
        {primeira, peca}, {last, meio},
    };
    for (const std::vector<AcDbObjectId>& sample : samples) {
        comando(L"_erase", sample, {});
        type({L"_oops"});
        EXPECT_EQ(estado(), antes) << "case " << &sample - samples;
        comando(L"_move", {peca}, {L"0,0", L"10,0"});
        expectAllAt(10, 0);
        expectNear(inicio(segunda), 10, 900);
        type({L"_u", L"_u"});
        EXPECT_TRUE(sample[0].isErased());
        type({L"_u"});
        EXPECT_EQ(estado(), antes) << "case " << &sample - samples;
    }
    // Meanwhile the piece went on: what comes back is in its place at it.
    comando(L"_erase", {meio, altura}, {});
    comando(L"_move", {peca}, {L"0,0", L"10,0"});
    type({L"_oops"});
    expectAllAt(10, 0);
    // What was erased before does not come back with the piece.
    comando(L"_erase", {meio}, {});
    comando(L"_erase", {peca}, {});
    type({L"_oops"});
    EXPECT_TRUE(meio.isErased());
    EXPECT_FALSE(last.isErased());
}

TEST_F(Links, ErasedAloneIsUntied) {
    comando(L"_erase", {altura, meio}, {});
    EXPECT_EQ(conta<ZpObject>(), 3u);
    comando(L"_move", {peca}, {L"0,0", L"10,0"});
    expectCota(comprimento, 10, -100, 510, -100, 10, -110);
    Read<ZpObject>(peca)->list();
    EXPECT_FALSE(said(handle(meio) + L","));
    // Undo brings the link back with the plate.
    type({L"_u", L"_u"});
    comando(L"_move", {peca}, {L"0,0", L"20,0"});
    expectAllAt(20, 0);
}

TEST_F(Links, CopiedWithAllAndCopiedAlone) {
    comando(L"_copy", {peca, comprimento, altura, primeira, meio, last}, {L"0,0", L"0,1000", L""});
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 12u);
    const AcDbObjectId copia = all[6];
    const AcDbObjectId copiedCota = all[7];
    comando(L"_move", {copia}, {L"0,0", L"50,0"});
    expectCota(copiedCota, 50, 900, 550, 900, 50, 890);
    expectAllAt(0, 0);
    comando(L"_erase", {copia}, {});
    EXPECT_EQ(entities().size(), 6u);

    comando(L"_copy", {peca}, {L"0,0", L"0,1000", L""});
    const AcDbObjectId so = entities().back();
    comando(L"_move", {so}, {L"0,0", L"77,0"});
    expectAllAt(0, 0);
    comando(L"_erase", {so}, {});
    EXPECT_EQ(entities().size(), 6u);

    // A dimension copied alone belongs to nobody.
    comando(L"_copy", {comprimento}, {L"0,0", L"0,-300", L""});
    const AcDbObjectId solta = entities().back();
    comando(L"_move", {peca}, {L"0,0", L"5,0"});
    expectCota(solta, 0, -400, 500, -400, 0, -410);
    expectAllAt(5, 0);
}

TEST_F(Links, ExplodingEndsTheLinks) {
    comando(L"_explode", {peca}, {});
    EXPECT_EQ(conta<ZpObject>(), 3u);
    EXPECT_EQ(conta<AcDbDimension>(), 2u);
}

TEST_F(Links, WhatCannotBeTiedIsRefused) {
    const AcDbObjectId linha = poe(new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 1, 0)));
    muda(peca, [&](ZpObject& p) {
        EXPECT_EQ(p.LinkDim(AcDbObjectId()), Acad::eNullObjectId);
        EXPECT_EQ(p.LinkPos(linha), Acad::eNotThatKindOfClass);
        EXPECT_EQ(p.LinkPos(peca), Acad::eInvalidInput);
    });
    ZpBarraRedonda solta(AcGePoint3d(), ZpObject::kVistaSecao, 10, 1000, 0);
    EXPECT_EQ(solta.LinkDim(comprimento), Acad::eNoDatabase);
}

}  // namespace
