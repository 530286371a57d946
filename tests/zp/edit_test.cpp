// SPDX-License-Identifier: MIT
// Pieces edited by the dialogs of their commands: what stays, what is laid again, what is listed.
#include "protocol/edit.h"
#include "protocol/attach.h"
#include "tests/zp/drawing.h"
#include "tests/zp/lengths.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/edit.h"
#include "zp/objects/member.h"
#include "zp/objects/published.h"

namespace {

using namespace zp_tests;
using zp::secao::Role;

class EditByDialog : public DrawingWithCommands {
protected:
    /// Pieces that are no plates, the last made at the end.
    std::vector<AcDbObjectId> pecas() {
        std::vector<AcDbObjectId> found;
        for (const AcDbObjectId& id : entities())
            if (id.objectClass()->isDerivedFrom(ZpObject::desc()) &&
                !id.objectClass()->isDerivedFrom(ZpChapa::desc()))
                found.push_back(id);
        return found;
    }
    void reopen() {
        const std::filesystem::path file =
            std::filesystem::temp_directory_path() / "zp_edicao_test.dxf";
        ASSERT_TRUE(static_cast<bool>(editor->file().save(file)));
        ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
        std::filesystem::remove(file);
    }
    void command(const wchar_t* name, AcDbObjectId picked,
                 std::initializer_list<const wchar_t*> rest) {
        type({name});
        pick(0, 0, {picked});
        type({L""});
        type(rest);
    }
    std::vector<AcDbObjectId> chapasOf(AcDbObjectId id) {
        return zp::edit::chapasOf(*Read<ZpObject>(id).object());
    }
    zp::Lacing lacing(AcDbObjectId id) {
        return zp::member::of(*Read<ZpObject>(id).object()).lacing;
    }
    void edit(AcDbObjectId id, Keys keys) {
        ui.keys.assign(keys.begin(), keys.end());
        type({L"EDITAPERFIL"});
        pick(0, 0, {id});
        EXPECT_TRUE(ui.keys.empty()) << testing::PrintToString(ui.printed);
    }
    /// Sets a value of the property sheet; the reason why not.
    std::wstring setValue(AcDbObjectId id, const wchar_t* key, const wchar_t* value) {
        const protocol::EntityProperties* cutter = nullptr;
        {
            const Read<ZpObject> opened(id);
            cutter = protocol::extensionOf<protocol::EntityProperties>(
                *opened.object(), protocol::kEntityPropertiesClass);
        }
        ACHAR* message = nullptr;
        if (cutter->set(id, key, value, message)) return {};
        const std::wstring reason = message;
        acutDelString(message);
        return reason;
    }
    double value(AcDbObjectId id, Role role) {
        return zp::edit::valuesOf(*Read<ZpObject>(id).object())[role];
    }
    /// Where the plates of a piece that lies along X start, in their order along it.
    std::vector<double> chapas() {
        std::vector<double> x;
        for (const AcDbObjectId& id : entities()) {
            if (!id.objectClass()->isDerivedFrom(ZpChapa::desc())) continue;
            AcGePoint3d p;
            (void)Read<ZpObject>(id)->StartPoint(p);
            x.push_back(p.x);
        }
        std::sort(x.begin(), x.end());
        return x;
    }
    std::vector<Linha> rows() {
        return zp::matlist::rows(zp::matlist::materialLists(editor->database()).front().id);
    }
};

TEST_F(EditByDialog, WhatAPieceKeepsOfItsTable) {
    auto* const made =
        new ZpULaminado(AcGePoint3d(), ZpObject::kVistaDireita, 152.4, 48.77, 5.08, 48.77, 5.08,
                        5.08, 48.77 / 3, 5.08, 0, 0, 1000, 12.2 * 127.1848, 12.2);
    // As a table had it that is 12,2 today.
    zp::published::keep(*made, std::make_shared<zp::Commercial>(
                                   zp::Commercial{L"U 6\" x 12,2", 12.9, {7.0, 3.0, 1550.0}}));
    const AcDbObjectId id = put(made);
    const auto kgMetro = [&](AcDbObjectId of) { return Read<ZpObject>(of)->getLinearWeight(); };
    EXPECT_EQ(setValue(id, L"comprimento", L"2000"), L"");
    command(L"_copy", id, {L"0,0", L"0,1000", L""});
    EXPECT_DOUBLE_EQ(kgMetro(id), 12.9);
    EXPECT_DOUBLE_EQ(kgMetro(pecas().back()), 12.9);
    edit(id, {"accept"});
    EXPECT_DOUBLE_EQ(kgMetro(id), 12.2);
    EXPECT_TRUE(said(L"U 6\" x 12,2: 12,2 kg/m, pela tabela (geometria -0,3 %); pesava 12,9."));
    // A web typed over the row's: its mass is handed over still and weighs nothing.
    edit(id, {"t=6", "accept"});
    const auto& p = zp::Access::of(*Read<ZpObject>(id).object());
    EXPECT_EQ(value(id, Role::M), 12.2);
    EXPECT_EQ(p.designacao(), L"U 152,4x48,77x6");
    EXPECT_EQ(kgMetro(id), p.secao().properties().area * 7850e-6);
    EXPECT_EQ(zp::published::massWords(p), L"geometria");
    edit(id, {"t=6.5", "lista=6", "accept"});
    EXPECT_DOUBLE_EQ(kgMetro(id), 12.2);
    // The user's own mass counts more than the table's.
    EXPECT_EQ(setValue(id, L"m", L"12.6"), L"");
    EXPECT_DOUBLE_EQ(kgMetro(id), 12.6);
    EXPECT_EQ(p.designacao(), L"U 6\" x 12,2");
    EXPECT_EQ(setValue(id, L"comprimento", L"1500"), L"");
    EXPECT_DOUBLE_EQ(kgMetro(id), 12.6);
}

TEST_F(EditByDialog, ValuesWithoutATileStay) {
    const AcGePoint3d origin;
    const AcDbObjectId viga =
        put(new ZpISoldado(origin, ZpObject::kVistaDireita, 300, 300, 250, 8, 9.5, 6000, 0, 0, 0));
    edit(viga, {"h=400", "accept"});
    EXPECT_EQ(value(viga, Role::H), 400);
    EXPECT_EQ(value(viga, Role::Bb), 250);
    const AcDbObjectId perfilU = put(new ZpUDobrado(origin, ZpObject::kVistaDireita, 200, 75, 75, 3,
                                                    6, 0.5 * kPi, 0.5 * kPi, 1000, 0, 0, 0));
    edit(perfilU, {"b=80", "accept"});
    EXPECT_EQ(value(perfilU, Role::Ri), 6);
    EXPECT_EQ(value(perfilU, Role::B2), 80);  // equal by rule
    const AcDbObjectId cantoneira = put(new ZpCantoneiraDobrada(origin, ZpObject::kVistaDireita, 60,
                                                                60, 4, 4, kPi / 3, 1000, 0, 0, 0));
    edit(cantoneira, {"accept"});
    EXPECT_DOUBLE_EQ(value(cantoneira, Role::Ang1), kPi / 3);
    const AcDbObjectId bounds = put(
        new ZpCaixaDobrado(origin, ZpObject::kVistaDireita, 200, 75, 3, 3, 150, 1000, 0, 0, 20));
    edit(bounds, {"a=0", "accept"});
    EXPECT_EQ(value(bounds, Role::Vao), 0);
    EXPECT_EQ(value(bounds, Role::Aba), 20);
    // Another row of the catalogue is another section, of which nothing is kept.
    const AcDbObjectId laminado =
        put(new ZpULaminado(origin, ZpObject::kVistaDireita, 76.2, 35.81, 4.32, 35.81, 9, 9, 12,
                            4.32, 0, 0, 1000, 775.8, 6.1));
    edit(laminado, {"lista=3", "accept"});
    EXPECT_EQ(value(laminado, Role::H), 101.6);
    EXPECT_EQ(value(laminado, Role::Tf1), 4.67);
}

TEST_F(EditByDialog, CoincidingChapasAreOnePart) {
    // Spaces of (1000 - 100) / 8 = 112.5; 1000 holds nine of them, of which the last one meets the
    // far end.
    const AcDbObjectId peca =
        draw(L"pcantoneira",
             {"h=60", "b=50", "t=4", "vista0=0", "OutraVista", "l=1000", "accept", "dimensionar=1",
              "travejar=1", "altura=30", "largura=100", "n_partes=8", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    edit(peca, {"accept"});
    edit(peca, {"accept"});
    EXPECT_EQ(chapas().size(), 10u);
    EXPECT_NEAR(chapas()[1], 112.5, 1e-9);
    // Its dimensions have nothing to do with the plates.
    const auto cotas = zp::edit::cotasOf(*Read<ZpObject>(peca).object());
    ASSERT_EQ(cotas.size(), 2u);
    edit(peca, {"travejar=0", "accept"});
    EXPECT_TRUE(chapas().empty());
    EXPECT_EQ(zp::edit::cotasOf(*Read<ZpObject>(peca).object()), cotas);
}

TEST_F(EditByDialog, AnotherComprimentoKeepsTheParts) {
    const AcDbObjectId peca = draw(
        L"cantdteel", {"lista=12", "a=10", "vista0=0", "OutraVista", "l=3000", "accept", "travejar",
                       "altura=60", "largura=100", "n_partes=9", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    edit(peca, {"OutraVista", "l=3400", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    for (int i = 0; i < 10; ++i)
        EXPECT_NEAR(chapas()[static_cast<std::size_t>(i)], i * (3400.0 - 100.0) / 9, 1e-9);
    // Nine spaces of a shorter one would not stand apart; the dialog asks for others.
    edit(peca, {"OutraVista", "l=2000", "accept", "accept", "travejar", "n_partes=4", "accept",
                "accept"});
    EXPECT_EQ(chapas().size(), 5u);
}

TEST_F(EditByDialog, BeforeDrawingTheSpacingStays) {
    // Spaces of (2500 - 100) / 5 = 480; 6000 holds 12.5 of them, rounded up.
    const AcDbObjectId peca =
        draw(L"pcantoneira", {"h=60", "b=50", "t=4", "vista0=0", "OutraVista", "l=2500", "accept",
                              "travejar=1", "altura=30", "largura=100", "n_partes=5", "accept",
                              "OutraVista", "l=6000", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 14u);
    EXPECT_NEAR(chapas()[1], 480.0, 1e-9);
    edit(peca, {"accept"});
    EXPECT_EQ(setValue(peca, L"tipo_barra", L"1"), L"");
    ASSERT_EQ(chapas().size(), 14u);
    EXPECT_NEAR(chapas()[1], 480.0, 1e-9) << "the length is the same";
    edit(peca, {"OutraVista", "l=6600", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 14u);
    EXPECT_NEAR(chapas()[1], 500.0, 1e-9) << "another length keeps the parts";
}

TEST_F(EditByDialog, AChapaInASecaoHasNoLargura) {
    const AcDbObjectId peca =
        draw(L"cantdteel", {"lista=12", "a=10", "travejar", "altura=60", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 1u);
    edit(peca, {"vista0=0", "OutraVista", "l=1000", "accept", "accept", "cancel"});
    EXPECT_EQ(chapas().size(), 1u);
    edit(peca, {"vista0=0", "OutraVista", "l=1000", "accept", "travejar", "largura=10",
                "n_partes=4", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 5u);
    EXPECT_NEAR(chapas()[1] - chapas()[0], 247.5, 1e-9);
}

TEST_F(EditByDialog, AnOpenCaixaWithAbaKeepsBothRows) {
    const AcDbObjectId peca =
        draw(L"perfilduc",
             {"h=200", "b=75", "t=3", "a=170", "vista0=0", "OutraVista", "l=1000", "accept",
              "travejar", "altura=100", "largura=10", "n_partes=4", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    EXPECT_EQ(setValue(peca, L"aba", L"20"), L"");
    EXPECT_EQ(chapas().size(), 10u);
    // Four spaces between plates of 10 need more than 4 x 30 + 10.
    EXPECT_TRUE(setValue(peca, L"comprimento", L"130").starts_with(L"As chapas de travejamento"));
    EXPECT_EQ(chapas().size(), 10u);
    EXPECT_EQ(setValue(peca, L"comprimento", L"131"), L"");
    EXPECT_EQ(chapas().size(), 10u);
    edit(peca, {"accept"});
    EXPECT_EQ(chapas().size(), 10u);
    EXPECT_EQ(value(peca, Role::Vao), 170);
    EXPECT_EQ(value(peca, Role::Aba), 20);
}

TEST_F(EditByDialog, LeavesTheListAndGetsChapas) {
    const AcDbObjectId peca =
        draw(L"cantdteel", {"lista=12", "a=0", "vista0=0", "OutraVista", "l=3000",
                            "gerar_matlist=1", "num_pecas=1", "accept", "accept"});
    ASSERT_EQ(rows().size(), 1u);
    edit(peca, {"OutraVista", "gerar_matlist=0", "accept", "travejar", "altura=60", "largura=10",
                "n_partes=8", "accept", "accept"});
    EXPECT_EQ(chapas().size(), 9u);
    ASSERT_EQ(rows().size(), 1u);
    EXPECT_TRUE(zp::matlist::erased(rows()[0]));
}

TEST_F(EditByDialog, MarcasOfAnOpenedDrawingHaveTheirPecas) {
    draw(L"cantdteel", {"lista=12", "a=10", "vista0=0", "OutraVista", "l=1000", "accept",
                        "travejar", "altura=60", "largura=10", "n_partes=4", "accept", "accept"});
    reopen();
    const AcDbObjectId peca = entities().front();
    edit(peca, {"OutraVista", "gerar_matlist=1", "num_pecas=1", "accept", "accept"});
    ASSERT_EQ(rows().size(), 2u);
    EXPECT_EQ(Read<ZpMarca>(rows()[0].ids[0])->peca(), peca);
    const AcDbObjectId chapaId = Read<ZpMarca>(rows()[1].ids[0])->peca();
    ASSERT_FALSE(chapaId.isNull());
    EXPECT_TRUE(chapaId.objectClass()->isDerivedFrom(ZpChapa::desc()));
}

TEST_F(EditByDialog, EachCommandKeepsItsTravejamento) {
    struct Case {
        const wchar_t* command;
        Keys medidas;
        Keys travejar;
        double A;
        int planes = 0;
    };
    const Keys seen = {"vista0=0", "OutraVista", "l=1000", "accept"};
    const Keys spread = {"largura=10", "n_partes=4", "accept", "accept"};
    const Keys toggle = {"travejar=1", "altura=30"};
    const Keys filled = {"travejar"};
    const Keys high = {"travejar", "altura=40"};
    const Keys wide = {"travejar", "altura=100"};
    const Case cases[] = {
        {L"perfilc", {"h=60", "b=50", "t=4", "a=15"}, toggle, 30},
        {L"perfilcaixa", {"h=60", "b=50", "t=4", "a=15"}, toggle, 30},
        {L"pcantoneira", {"h=60", "b=50", "t=4"}, toggle, 30},
        {L"pcdtee", {"h=60", "b=50", "t=4", "a=8"}, high, 40},
        {L"pcantoneiradu", {"h=60", "b=50", "t=4", "a=150"}, wide, 100},
        {L"perfildvv", {"h=60", "b=50", "t=4", "a=8"}, filled, 8},
        {L"cantdteel", {"lista=12", "a=8"}, high, 40},
        {L"cantdul", {"lista=12", "a=150"}, wide, 100},
        {L"cantdvvl", {"lista=12", "a=8"}, filled, 8},
        {L"perfilcantcruzlaminado", {"lista=12", "a=8", "av=9", "plano=1"}, high, 40, 2},
        {L"perfilcantzlaminado", {"lista=12", "a=8", "av=9"}, high, 40},
        {L"perfiluulaminado", {"lista=3", "a=170"}, wide, 100},
        {L"perfil2ulam", {"lista=3", "a=8"}, filled, 8},
        {L"perfilduc", {"h=200", "b=75", "t=3", "a=170"}, wide, 100},
        {L"perfil2u", {"h=200", "b=75", "t=3", "a=8"}, filled, 8},
        {L"perfil2uenr", {"h=200", "b=75", "t=3", "a=8", "e=20"}, high, 40},
        {L"perfilicartola", {"h=100", "b=50", "t=2", "a=8", "e=20"}, filled, 8},
    };
    for (const Case& c : cases) {
        for (const Keys& keys : {c.medidas, seen, c.travejar, spread})
            ui.keys.insert(ui.keys.end(), keys.begin(), keys.end());
        type({c.command, L"0,0", L"0"});
    }
    reopen();
    const std::vector<AcDbObjectId> drawn = pecas();
    ASSERT_EQ(drawn.size(), std::size(cases));
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(cases[i].command)));
        const zp::Lacing expected{cases[i].A, 10, 4, cases[i].planes, 0};
        EXPECT_EQ(lacing(drawn[i]), expected);
        // Alone it has no plates; its dialog lays them.
        ui.printed.clear();
        command(L"_mirror", drawn[i], {L"0,500", L"100,500", L"_n"});
        EXPECT_TRUE(said(L"Peça copiada sem as chapas de travejamento"));
        const AcDbObjectId copy = pecas().back();
        ASSERT_TRUE(chapasOf(copy).empty());
        edit(copy, {"accept"});
        EXPECT_EQ(chapasOf(copy).size(), chapasOf(drawn[i]).size());
        EXPECT_EQ(lacing(copy), expected);
        EXPECT_TRUE(zp::member::same(*Read<ZpObject>(copy), *Read<ZpObject>(drawn[i])));
    }
}

TEST_F(EditByDialog, ChapasOfACopyStandInTheRowOfItsOriginals) {
    const AcDbObjectId peca =
        draw(L"cantdteel", {"lista=12", "a=10", "vista0=0", "OutraVista", "l=1000",
                            "gerar_matlist=1", "num_pecas=2", "accept", "travejar", "altura=60",
                            "largura=10", "n_partes=4", "accept", "accept"});
    command(L"_copy", peca, {L"0,0", L"0,500", L""});
    edit(pecas().back(), {"accept"});
    ASSERT_EQ(rows().size(), 2u);
    EXPECT_EQ(rows()[0].quantidade, 4);
    EXPECT_EQ(rows()[1].quantidade, 20);
}

TEST_F(EditByDialog, EndsGoWhereAHostPutsThem) {
    const AcDbObjectId peca =
        draw(L"cantdteel", {"lista=12", "a=10", "vista0=0", "OutraVista", "l=1000",
                            "gerar_matlist=1", "num_pecas=1", "accept", "travejar", "altura=60",
                            "largura=10", "n_partes=4", "accept", "accept"});
    const auto axis = [](AcDbObjectId id) {
        AcGePoint3d start;
        AcGePoint3d end;
        const Read<ZpObject> p(id);
        EXPECT_EQ(lengthOf(*p.object())->axis(*p.object(), start, end), nullptr);
        return std::pair(start.x, end.x);
    };
    // 100 further at the start, 90 at the end: four steps of (1190 - 10) / 4.
    EXPECT_EQ(setEnds(*editor, peca, -100, 1090), L"");
    EXPECT_EQ(axis(peca), std::pair(-100.0, 1090.0));
    const std::vector<double> whole = {-100, 195, 490, 785, 1080};
    EXPECT_EQ(chapas(), whole);
    // Five plates of 10 do not fit into 45; of a piece of 45 nothing else would change either.
    EXPECT_NE(setEnds(*editor, peca, 0, 45).find(L"As chapas de travejamento não cabem"),
              std::wstring::npos);
    EXPECT_NE(setEnds(*editor, peca, 500, 500), L"");
    AcDbObjectId rest;
    EXPECT_NE(takeOut(*editor, peca, 45, 600, rest), L"");
    EXPECT_NE(takeOut(*editor, peca, 600, 1190, rest), L"");
    EXPECT_EQ(axis(peca), std::pair(-100.0, 1090.0));
    EXPECT_EQ(chapas(), whole);
    ASSERT_EQ(rows().size(), 2u);
    EXPECT_EQ(rows()[0].comprimento, 1190);
    // The part at the start keeps handle, mark and row; steps (490 - 10) / 4 and (690 - 10) / 4.
    EXPECT_EQ(takeOut(*editor, peca, 490, 500, rest), L"");
    EXPECT_EQ(axis(peca), std::pair(-100.0, 390.0));
    EXPECT_EQ(axis(rest), std::pair(400.0, 1090.0));
    const std::vector<double> parted = {-100, 20, 140, 260, 380, 400, 570, 740, 910, 1080};
    EXPECT_EQ(chapas(), parted);
    EXPECT_TRUE(said(L"P3: marca nova (2L T 1 1/2\" x 1/4\" a=10, 690 mm; era P1)."))
        << testing::PrintToString(ui.printed);
    ASSERT_EQ(rows().size(), 3u);
    EXPECT_EQ(rows()[0].comprimento, 490);
    EXPECT_EQ(rows()[1].quantidade, 10);
    EXPECT_EQ(rows()[2].comprimento, 690);
    type({L"_u"});
    EXPECT_EQ(chapas(), whole);
    EXPECT_EQ(rows().size(), 2u);
    for (const AcDbObjectId& none : {u(0, 3000, 0, ZpObject::kVistaSecao), chapa(0, 4000, 50, 60)})
        EXPECT_NE(setEnds(*editor, none, 0, 10).find(L"não tem comprimento a aparar"),
                  std::wstring::npos);
}

TEST_F(EditByDialog, ChapasStayAsTheUserLeftThemUntilTheyAreLaidAgain) {
    // Five spaces of (2000 - 50) / 5 = 390.
    const AcDbObjectId peca =
        draw(L"cantdteel",
             {"lista=12", "a=10", "vista0=0", "OutraVista", "l=2000", "accept", "dimensionar=1",
              "travejar", "altura=60", "largura=50", "n_partes=5", "accept", "accept"});
    command(L"_move", chapasOf(peca)[2], {L"0,0", L"25,0"});
    command(L"_erase", chapasOf(peca)[3], {});
    const std::vector<double> left = {0, 415, 1170, 1560, 1950};
    const AcDbObjectId pitch = zp::edit::cotasOf(*Read<ZpObject>(peca).object()).back();
    const auto expectLeft = [&](double y) {
        EXPECT_EQ(chapas(), left);
        expectCota(pitch, 0, -25.4, 415, -25.4, 0, y);  // goes along with the plate
    };
    const double line = Read<AcDbAlignedDimension>(pitch)->dimLinePoint().y;
    edit(peca, {"ButtonTipoBarra", "bt_pilar", "accept", "accept"});
    expectLeft(line);
    EXPECT_EQ(setValue(peca, L"tipo_barra", L"1"), L"");
    expectLeft(line);

    type({L"-layer", L"_lo", L"vista-chapa", L""});
    edit(peca, {"OutraVista", "l=2400", "accept", "accept"});
    EXPECT_TRUE(said(L"As chapas de travejamento estão em camada bloqueada"));
    EXPECT_NE(setValue(peca, L"comprimento", L"2400"), L"");
    edit(peca, {"ButtonTipoBarra", "bt_mt", "accept", "accept"});
    expectLeft(line);
    EXPECT_EQ(Read<ZpObject>(peca)->getComprimentoReal(), 2000);
    type({L"-layer", L"_u", L"vista-chapa", L""});

    edit(peca, {"travejar", "n_partes=4", "accept", "accept"});
    EXPECT_TRUE(
        said(L"Travejamento refeito: 5 chapas; 1 que tinha sido movida e 1 apagada voltam "
             L"ao lugar da regra."));
    EXPECT_EQ(chapas(), (std::vector<double>{0, 487.5, 975, 1462.5, 1950}));
    EXPECT_EQ(lacing(peca), (zp::Lacing{60, 50, 4, 0, 0}));
    // OK in the dialog of the lacing lays it again, too.
    command(L"_erase", chapasOf(peca)[2], {});
    edit(peca, {"travejar", "accept", "accept"});
    EXPECT_TRUE(said(L"5 chapas; 1 apagada volta ao lugar da regra."));
    type({L"_u", L"_u"});
    EXPECT_EQ(chapas().size(), 5u);
}

TEST_F(EditByDialog, ChapasDoNotGoWithEdgesThatTheyDoNotDependOn) {
    const AcDbObjectId peca =
        draw(L"pcdtee",
             {"h=60", "b=50", "t=4", "a=8", "vista0=0", "OutraVista", "fig2", "l=1000", "accept",
              "travejar", "altura=90", "largura=10", "n_partes=4", "accept", "accept"});
    EXPECT_EQ(setValue(peca, L"b1", L"70"), L"");
    for (const AcDbObjectId& id : chapasOf(peca)) EXPECT_EQ(face(id, 0).y, 45);  // half of 90
}

TEST_F(EditByDialog, NewCotasOnALockedLayerTurnWithTheirPeca) {
    type({L"-layer", L"_m", L"COTA", L"_lo", L"COTA", L""});
    ui.keys = {"h=200",  "b=75",   "t=3",           "vista0=0", "OutraVista",
               "l=1000", "accept", "dimensionar=1", "accept"};
    type({L"perfilu", L"0,0", L"90"});
    const auto cotas = zp::edit::cotasOf(*Read<ZpObject>(pecas().back()).object());
    ASSERT_EQ(cotas.size(), 2u);
    const Read<AcDbAlignedDimension> comprimento(cotas[0]);
    expectNear(comprimento->xLine2Point(), comprimento->xLine1Point().x, 1000);
    EXPECT_FALSE(said(L"camada bloqueada; desbloqueie"));
}

TEST_F(EditByDialog, APecaOfBeforeReadsItsTravejamentoOnce) {
    // Two angles 60x50x4 in T, 8 apart; four spaces of (1000 - 10) / 4 = 247.5.
    const AcDbObjectId made = put(new ZpCantTDobrada(AcGePoint3d(0, 0, 0), ZpObject::kVistaDireita,
                                                     60, 50, 4, 4, 8, 1000, 0, 0, 0));
    for (const double x : {0.0, 990.0, 247.5, 495.0, 742.5}) {
        const AcDbObjectId id = put(
            new ZpChapa(AcGePoint3d(x, 22, 0), ZpObject::kVistaSecao, 10, 4, 40, 0, -0.5 * kPi));
        change(made, [&](ZpObject& p) { EXPECT_EQ(p.LinkPos(id), Acad::eOk); });
    }
    EXPECT_EQ(lacing(made), zp::Lacing());
    reopen();
    const AcDbObjectId peca = pecas().front();
    EXPECT_EQ(lacing(peca), (zp::Lacing{40, 10, 4, 0, 0}));
    command(L"_erase", chapasOf(peca)[2], {});
    edit(peca, {"OutraVista", "l=1250", "accept", "accept"});
    EXPECT_EQ(chapas(), (std::vector<double>{0, 310, 620, 930, 1240}));
    command(L"_scale", peca, {L"0,0", L"2"});
    EXPECT_EQ(lacing(peca), (zp::Lacing{80, 20, 4, 0, 0}));
    edit(peca, {"accept"});
    EXPECT_EQ(chapas(), (std::vector<double>{0, 620, 1240, 1860, 2480}));
    EXPECT_EQ(Read<ZpObject>(chapasOf(peca)[1])->getLargura(), 20);
}

}  // namespace
