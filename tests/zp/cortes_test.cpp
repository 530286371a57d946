// SPDX-License-Identifier: MIT
// Oblique ends: lengths, masses and pictures by hand, what changes them, what follows.
#include "zp/objects/cortes.h"
#include "protocol/edit.h"
#include "tests/zp/lengths.h"
#include "zp/matlist/lists.h"
#include "zp/objects/edit.h"
#include "zp/objects/member.h"

namespace {

using namespace zp_tests;
using zp::Access;

constexpr double kDegree = kPi / 180.0;
/// U 200x75x3, 1020.4115 mm2: flats and bends at mid thickness, by 7850 kg/m3.
const double kKgMm = 3.0 * (188.0 + 2.0 * 69.0 + 4.5 * kPi) * 7850e-9;
/// Centroid of a bend of 3 to 6 from its centre, over 2 / pi: 2 (6^3 - 3^3) / (3 (6^2 - 3^2)).
constexpr double kBend = 14.0 / 3.0;
/// From its axis, a third of the flange inside the back, to the centroid: the back's middle line,
/// 69 x 39 twice beside it, the bends' centres 4.5 beside it; less 23.5.
const double kXg =
    (2.0 * 69.0 * 39.0 + 4.5 * kPi * (4.5 - kBend * 2.0 / kPi)) / (188.0 + 138.0 + 4.5 * kPi) -
    23.5;

class Cortes : public DrawingWithCommands {
protected:
    /// Sets a value of the property sheet; the reason why not.
    std::wstring setValue(AcDbObjectId id, const wchar_t* key, double value) {
        const protocol::EntityProperties* sheets = nullptr;
        {
            const Read<ZpObject> opened(id);
            sheets = protocol::extensionOf<protocol::EntityProperties>(
                *opened.object(), protocol::kEntityPropertiesClass);
        }
        ACHAR* message = nullptr;
        const bool taken = sheets->set(id, key, std::to_wstring(value).c_str(), message);
        const std::wstring reason = message != nullptr ? message : L"";
        acutDelString(message);
        EXPECT_EQ(taken, reason.empty());
        return reason;
    }
    double degrees(AcDbObjectId id, std::size_t end) {
        return zp::cortes::degreesOf(Access::of(*Read<ZpObject>(id).object()), end);
    }
    double net(AcDbObjectId id) {
        return zp::cortes::netMass(Access::of(*Read<ZpObject>(id).object()));
    }
    double longest(AcDbObjectId id) { return Read<ZpObject>(id)->getComprimentoReal(); }
    /// The ends of all lines that the picture has, in the frame of the piece; the axis is none.
    std::vector<AcGeVector3d> points(AcDbObjectId id) {
        const Read<ZpObject> peca(id);
        AcDbVoidPtrArray parts;
        EXPECT_EQ(peca->explode(parts), Acad::eOk);
        std::vector<AcGeVector3d> found;
        for (int i = 0; i < parts.length(); ++i) {
            const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(parts[i]));
            if (const auto* line = AcDbLine::cast(part.get());
                line != nullptr && line->colorIndex() != 1)
                for (const AcGePoint3d& p : {line->startPoint(), line->endPoint()})
                    found.push_back(Access::of(*peca.object()).frame().toLocal(p));
        }
        return found;
    }
    AcDbExtents extents(AcDbObjectId id) {
        AcDbExtents e;
        EXPECT_EQ(Read<ZpObject>(id)->getGeomExtents(e), Acad::eOk);
        return e;
    }
    struct At {
        double x, y;
        AcDbObjectId id;
    };
    /// CORTARPECA with picks and then lines; a module's command takes all of them at once.
    void cut(std::initializer_list<At> picks, std::initializer_list<const wchar_t*> lines) {
        RawInput input;
        input.kind = RawInput::Kind::Text;
        input.text = L"CORTARPECA";
        ui.answers.push_back(input);
        for (const At& at : picks) {
            RawInput pick;
            pick.kind = RawInput::Kind::Pick;
            pick.point = AcGePoint3d(at.x, at.y, 0);
            pick.entities = {at.id};
            ui.answers.push_back(std::move(pick));
        }
        for (const wchar_t* const line : lines) {
            input.text = line;
            ui.answers.push_back(input);
        }
        while (!ui.answers.empty()) editor->step();
    }
};

TEST_F(Cortes, LongestFibreAndNetMassByHand) {
    const double t30 = std::tan(30 * kDegree);
    const double t45 = 1.0;
    struct Case {
        ZpObject::ZpVistas vista;
        double start, end;  // degrees
        double longest;     // beyond the axis of 1000
        double mean;
    };
    // Seen from the right the section reaches 100 up and down, its centroid on the axis; from above
    // the back stands 25 above the axis, the flanges end 50 below it.
    const Case cases[] = {
        {ZpObject::kVistaDireita, 0, 30, 100 * t30, 0},
        {ZpObject::kVistaDireita, -30, 30, 0, 0},
        {ZpObject::kVistaEsquerda, 30, 45, 100 * (t30 + t45), 0},
        {ZpObject::kVistaSuperior, 0, 45, 25 * t45, -kXg * t45},
        {ZpObject::kVistaInferior, -45, -30, 50 * (t30 + t45), kXg * (t30 + t45)},
        {ZpObject::kVistaDireita, 0.009, -0.009, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.vista << ' ' << c.start << ' ' << c.end);
        const AcDbObjectId id = u(0, 0, 1000, c.vista);
        EXPECT_EQ(setValue(id, L"corte_inicio", c.start), L"");
        EXPECT_EQ(setValue(id, L"corte_fim", c.end), L"");
        EXPECT_NEAR(longest(id), 1000 + c.longest, 1e-6);
        EXPECT_NEAR(Read<ZpObject>(id)->getPeso(), kKgMm * (1000 + c.longest), 1e-6);
        EXPECT_NEAR(net(id), kKgMm * (1000 + c.mean), 1e-6);
        // Every line ends in one of the two planes.
        const double from = std::abs(c.start) < 0.01 ? 0.0 : std::tan(c.start * kDegree);
        const double to = std::abs(c.end) < 0.01 ? 0.0 : std::tan(c.end * kDegree);
        for (const AcGeVector3d& p : points(id))
            EXPECT_LT(std::min(std::abs(p.x + from * p.y), std::abs(p.x - 1000 - to * p.y)), 1e-6);
        EXPECT_EQ(setValue(id, L"comprimento", 2000), L"");
        EXPECT_NEAR(longest(id), 2000, 1e-6);
    }
}

TEST_F(Cortes, AnotherViewShowsTheSamePlane) {
    // Cut at 30 degrees in height: from above the end face is seen foreshortened between 1000
    // - 57.7 and 1000 + 57.7, where it looks up; else the upper flange hides it.
    const double reach = 100 * std::tan(30 * kDegree);
    for (const double angle : {30.0, -30.0}) {
        const AcDbObjectId side = u(0, 0, 1000);
        const AcDbObjectId above = u(0, 500, 1000, ZpObject::kVistaSuperior);
        EXPECT_EQ(setValue(side, L"corte_fim", angle), L"");
        change(above, [&](ZpObject& p) {
            p.assertWriteEnabled();
            Access::of(p).cortes = Access::of(*Read<ZpObject>(side).object()).cortes;
        });
        EXPECT_NEAR(extents(above).maxPoint().x, 1000 + reach, 1e-6);
        EXPECT_NEAR(longest(above), longest(side), 1e-6);
        EXPECT_NEAR(net(above), net(side), 1e-9);
        EXPECT_NEAR(degrees(above, 1), 0, 1e-9);
        EXPECT_TRUE(zp::member::same(*Read<ZpObject>(above), *Read<ZpObject>(side)));
        // The front edge at the end: the upper flange's from its bend (w = 19) to its tip.
        double front = 0.0;
        for (const AcGeVector3d& p : points(above))
            if (std::abs(p.x - (1000 + std::copysign(reach, angle))) < 1e-6)
                front = std::min(front, p.y);
        EXPECT_NEAR(front, -50, 1e-4);
        // Where the upper flange is the shorter one the lower one's tip is seen beyond it, from its
        // inner face on (97 below the upper one's) to that of the lower one.
        const auto ends = [&](double height) {
            const double x = 1000 + height * std::tan(angle * kDegree);
            return std::ranges::count_if(points(above), [&](const AcGeVector3d& p) {
                return std::abs(p.x - x) < 1e-6 && std::abs(p.y + 50) < 1e-6;
            });
        };
        for (const double height : {-97.0, 97.0}) EXPECT_EQ(ends(height), angle < 0 ? 1 : 0);
    }
}

// Two angles 50x50x5 in T: the plates, 50 wide, lie on the back, from 50 / 3 to 5 above it, 190
// apart and from 950 to the end at 1000.
TEST_F(Cortes, PlatesBeyondACutAreNeitherDrawnNorListed) {
    type({L"PECA 2L T 50x50x5 L=1000 a=10 chapas=60,50,5 n=1", L"0,0", L"0"});
    const AcDbObjectId bar = entities().front();
    struct Case {
        double degrees;  // of the end; the back is the shorter side
        std::size_t chapas;
        const wchar_t* left;
        const wchar_t* check;
    };
    // At the back the cuts leave 1000 - 50 / 3 tan a: 905.5, 971.1 and 1000 - 190.5.
    const Case cases[] = {{-80, 5, L"1 chapa além do corte da ponta não é desenhada", nullptr},
                          {-60, 6, nullptr, L"a chapa passa do corte da ponta"},
                          {-85, 5, L"1 chapa além do corte", L"a chapa passa do corte da ponta"},
                          {0, 6, nullptr, nullptr}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.degrees);
        ui.printed.clear();
        EXPECT_EQ(setValue(bar, L"corte_fim", c.degrees), L"");
        const std::vector<AcDbObjectId> chapas = zp::edit::chapasOf(*Read<ZpObject>(bar).object());
        EXPECT_EQ(chapas.size(), c.chapas);
        EXPECT_EQ(said(L"além do corte"), c.left != nullptr);
        EXPECT_TRUE(c.left == nullptr || said(c.left)) << testing::PrintToString(ui.printed);
        ui.printed.clear();
        type({L"CONFERIR", L""});
        EXPECT_EQ(said(L"passa do corte"), c.check != nullptr)
            << testing::PrintToString(ui.printed);
        const auto lists = zp::matlist::materialLists(editor->database());
        ASSERT_EQ(lists.size(), 1u);
        EXPECT_EQ(zp::matlist::rows(lists[0].id).back().quantidade, static_cast<int>(c.chapas));
    }
}

TEST_F(Cortes, PlatesAreNoEdgesOfTheirPiece) {
    type({L"PECA 2U [] 200x75x3 a=300 L=4000 vista=1 chapas=250,150,5", L"0,0", L"0"});
    const AcDbObjectId bar = entities().front();
    const AcDbObjectId last = zp::edit::chapasOf(*Read<ZpObject>(bar).object()).back();
    ui.mayComplain = true;
    cut({{3990, 150, bar}, {3900, 150, last}}, {});
    EXPECT_TRUE(said(L"vão com a peça e não a cortam")) << testing::PrintToString(ui.printed);
    const auto trimAtEnd = [&] {
        type({L"_trim", L""});
        pick(3990, 150, {bar});
        type({L""});
    };
    trimAtEnd();
    EXPECT_TRUE(said(L"O objeto não cruza uma aresta de corte."));
    EXPECT_EQ(longest(bar), 4000);
    // What is no plate of it is one, nearer to the pick than a plate or not.
    put(new AcDbLine(AcGePoint3d(3000, -200, 0), AcGePoint3d(3000, 500, 0)));
    trimAtEnd();
    EXPECT_EQ(longest(bar), 3000);
}

// Four further views, one of them the section; whichever is scaled, all have plates twice as large.
TEST_F(Cortes, PlatesOfAllViewsGrowWithTheirMember) {
    for (const wchar_t* const piece : {L"2U [] 200x75x3 a=300 L=4000 vista=1 chapas=250,150,5,700",
                                       L"2U ][ 200x75x3 a=100 L=4000 vista=1 chapas=100,150,5",
                                       L"2Ue 200x75x20x3 L=4000 vista=1 chapas=100,150,5"}) {
        std::vector<AcDbObjectId> bars;
        const std::size_t drawn = entities().size();
        const std::wstring line = L"PECA " + std::wstring(piece) + L" lista";
        type({line.c_str(), L"0,0", L"0", L"VISTAS", L"20,0", L"Todas", L"400", L""});
        const std::vector<AcDbObjectId> all = entities();
        for (std::size_t i = drawn; i < all.size(); ++i)
            if (all[i].objectClass()->isDerivedFrom(ZpObject::desc()) &&
                !all[i].objectClass()->isDerivedFrom(ZpChapa::desc()))
                bars.push_back(all[i]);
        ASSERT_EQ(bars.size(), 5u);
        const zp::Lacing was = zp::member::of(*Read<ZpObject>(bars[0])).lacing;
        for (std::size_t picked = 0; picked < bars.size(); ++picked) {
            SCOPED_TRACE(testing::PrintToString(std::wstring(piece)) + std::to_string(picked));
            ui.printed.clear();
            type({L"_scale"});
            pick(0, 0, {bars[picked]});
            type({L"", L"0,0", L"2"});
            EXPECT_TRUE(said(L"4 vistas acompanham a mudança."));
            EXPECT_FALSE(said(L"movida")) << testing::PrintToString(ui.printed);
            for (const AcDbObjectId& bar : bars) {
                const Read<ZpObject> view(bar);
                EXPECT_EQ(view->getAltura(), 400);
                const zp::Lacing& lacing = zp::member::of(*view).lacing;
                EXPECT_NEAR(lacing.A, 2 * was.A, 1e-9);
                if (view->vista() == ZpObject::kVistaSecao) continue;
                EXPECT_NEAR(lacing.C, 300, 1e-9);
                EXPECT_EQ(lacing.n, was.n);
                EXPECT_NEAR(lacing.L1, 2 * was.L1, 1e-9);
                for (const AcDbObjectId& id : zp::edit::chapasOf(*view)) {
                    const zp::secao::Bounds box =
                        zp::edit::boxIn(Access::of(*view).frame(), *Read<ZpObject>(id));
                    EXPECT_NEAR(box.x1 - box.x0, 300, 1e-6);
                    EXPECT_LE(box.x1, 8000 + 1e-6);
                }
            }
            type({L"_u"});
        }
        type({L"_erase", L"_all", L""});
    }
}

TEST_F(Cortes, MovedMirroredStretchedCopied) {
    const AcDbObjectId id = u(0, 0, 1000);
    EXPECT_EQ(setValue(id, L"corte_fim", 30), L"");
    const double reach = 100 * std::tan(30 * kDegree);
    type({L"_mirror"});
    pick(0, 0, {id});
    type({L"", L"0,-500", L"100,-500", L"_n"});
    const AcDbObjectId twin = entities().back();
    EXPECT_NEAR(degrees(twin, 1), -30, 1e-9);
    EXPECT_NEAR(face(twin, 3).x, 1000 + reach, 1e-6);
    EXPECT_TRUE(zp::member::same(*Read<ZpObject>(twin), *Read<ZpObject>(id)));
    // In a mirrored piece the user's angle is the mirrored one, too.
    EXPECT_EQ(setValue(twin, L"corte_inicio", 15), L"");
    EXPECT_NEAR(degrees(twin, 0), 15, 1e-9);
    EXPECT_FALSE(zp::member::same(*Read<ZpObject>(twin), *Read<ZpObject>(id)));
    type({L"_u"});
    EXPECT_EQ(degrees(twin, 0), 0);
    change(id, [](ZpObject& p) {
        p.transformBy(AcGeMatrix3d::scaling(2.0, AcGePoint3d::kOrigin));
        p.transformBy(AcGeMatrix3d::rotation(0.7, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin));
    });
    EXPECT_NEAR(degrees(id, 1), 30, 1e-9);
    EXPECT_NEAR(longest(id), 2 * (1000 + reach), 1e-6);
    // A longer piece keeps its ends; of a parted one the new ends are square.
    EXPECT_EQ(setEnds(*editor, twin, -500, 1000), L"");
    EXPECT_NEAR(longest(twin), 1500 + reach, 1e-6);
    AcDbObjectId rest;
    EXPECT_EQ(takeOut(*editor, twin, 700, 800, rest), L"");
    EXPECT_EQ(longest(twin), 700);
    EXPECT_NEAR(longest(rest), 700 + reach, 1e-6);
    EXPECT_NEAR(degrees(rest, 1), -30, 1e-9);
}

TEST_F(Cortes, CotasAndDialogsKeepTheEnds) {
    const AcDbObjectId id = u(0, 0, 1000);
    const AcDbObjectId whole = cota(0, -100, 1000, -100, 0, -150);
    const AcDbObjectId height = cota(1000, 100, 1000, -100, 1040, 100);
    const AcDbObjectId part = cota(0, -100, 300, -100, 0, -120);
    change(id, [&](ZpObject& p) {
        for (const AcDbObjectId& c : {whole, height, part}) EXPECT_EQ(p.LinkDim(c), Acad::eOk);
    });
    // What is bought: the upper edge, the one of the picture that is 100 longer than the axis.
    EXPECT_EQ(setValue(id, L"corte_fim", 45), L"");
    expectCota(whole, 0, 100, 1100, 100, 0, -150);
    expectCota(height, 1100, 100, 1100, -100, 1140, 100);
    // Both ends parallel: all fibres are as long as the axis, and the line is next to the lower
    // one.
    EXPECT_EQ(setValue(id, L"corte_inicio", -45), L"");
    expectCota(whole, -100, -100, 900, -100, 0, -150);
    expectCota(part, 0, -100, 300, -100, 0, -120);
    EXPECT_EQ(setEnds(*editor, id, 0, 1500), L"");
    expectCota(whole, -100, -100, 1400, -100, 0, -150);
    ui.keys.assign({"h=300", "accept"});
    type({L"EDITAPERFIL"});
    pick(0, 0, {id});
    EXPECT_NEAR(degrees(id, 1), 45, 1e-9);
    EXPECT_NEAR(degrees(id, 0), -45, 1e-9);
    EXPECT_EQ(Read<ZpObject>(id)->getAltura(), 300);
    // The lower edge is 50 further down and, along it, further back.
    expectCota(whole, -150, -150, 1350, -150, 0, -200);
    expectCota(part, 0, -150, 300, -150, 0, -170);
    EXPECT_NEAR(face(id, 3).x, 1650, 1e-6);
    EXPECT_EQ(setValue(id, L"corte_fim", 0), L"");
    EXPECT_NEAR(face(id, 3).x, 1500, 1e-6);
}

TEST_F(Cortes, WhatCannotBeCutIsRefused) {
    const AcDbObjectId id = u(0, 0, 150);
    for (const double bad : {86.0, -90.0, 1e9})
        EXPECT_NE(setValue(id, L"corte_fim", bad).find(L"de -85 a 85 graus"), std::wstring::npos);
    EXPECT_EQ(setValue(id, L"corte_inicio", 45), L"");
    // Both planes lose 100 of the lower edge: 200 of 150.
    EXPECT_NE(setValue(id, L"corte_fim", 45).find(L"mais de 200 mm"), std::wstring::npos);
    EXPECT_NE(setEnds(*editor, id, 0, 90).find(L"mais de 100 mm"), std::wstring::npos);
    EXPECT_NE(setValue(id, L"comprimento", 190).find(L"mais de 100 mm"), std::wstring::npos);
    EXPECT_NE(setValue(id, L"h", 400).find(L"mais de 200 mm"), std::wstring::npos);
    EXPECT_NEAR(longest(id), 250, 1e-9);
    EXPECT_NE(setValue(u(0, 900, 0, ZpObject::kVistaSecao), L"corte_fim", 10), L"");
}

TEST_F(Cortes, APieceIsCutByAnEdge) {
    const AcDbObjectId line =
        put(new AcDbLine(AcGePoint3d(900, -200, 0), AcGePoint3d(1000, -100, 0)));
    auto* bent = new AcDbPolyline;
    bent->addVertexAt(0, {-100, 400});
    bent->addVertexAt(1, {100, -400}, 1.0);
    bent->addVertexAt(2, {100, -900});
    const AcDbObjectId polyline = put(bent);
    const AcDbObjectId other = u(0, 50, 700);
    const AcDbObjectId id = u(0, 0, 1500);
    const auto axis = [&] {
        const Read<ZpObject> p(id);
        AcGePoint3d start, end;
        p->StartPoint(start);
        p->EndPoint(end);
        return std::pair(start.x, end.x);
    };
    // The line goes on to 1100 on the axis, at 45 degrees; 10 square from it are 14.142 less.
    cut({{1400, 0, id}, {950, -150, line}}, {L"10"});
    EXPECT_NEAR(axis().second, 1100 - 10 * std::sqrt(2.0), 1e-9);
    EXPECT_NEAR(degrees(id, 1), 45, 1e-9);
    EXPECT_TRUE(said(L"Corte a 45 graus do esquadro")) << testing::PrintToString(ui.printed);
    // The straight segment, of slope -1 : 4, meets the axis at its start: that end is nearer. Its
    // lower edge is the shorter one.
    editor->selection().select({id});
    cut({{0, 0, polyline}}, {L""});
    EXPECT_NEAR(axis().first, 0, 1e-9);
    EXPECT_NEAR(degrees(id, 0), std::atan(0.25) / kDegree, 1e-9);
    EXPECT_NEAR(degrees(id, 1), 45, 1e-9);
    // What is no piece, the piece itself, a parallel line and an arc are asked again. The other
    // piece's end crosses the axis at 700, square.
    ui.mayComplain = true;
    const auto before = std::pair(axis(), longest(id));
    const AcDbObjectId parallel = put(new AcDbLine(AcGePoint3d(0, 90, 0), AcGePoint3d(900, 90, 0)));
    cut({{0, 0, line},
         {900, 0, id},
         {0, 0, id},
         {0, 0, parallel},
         {350, -650, polyline},
         {350, 50, other}},
        {L"-1", L"0"});
    for (const wchar_t* const text :
         {L"Selecione uma peça em vista longitudinal.", L"Uma peça não corta a si mesma",
          L"não encontra esta aresta", L"Informe um número de 0 a"})
        EXPECT_TRUE(said(text)) << testing::PrintToString(std::wstring(text));
    EXPECT_NEAR(axis().second, 700, 1e-9);
    EXPECT_EQ(degrees(id, 1), 0);
    type({L"_u"});
    EXPECT_EQ(std::pair(axis(), longest(id)), before);
    type({L"-layer", L"_lo", L"0", L""});
    cut({{900, 0, id}}, {});
    EXPECT_TRUE(said(L"A camada da peça está bloqueada; desbloqueie-a para alterar."));
    type({L"_trim", L""});
    pick(900, 0, {id});
    type({L""});
    EXPECT_TRUE(said(L"A peça está em uma camada bloqueada")) << testing::PrintToString(ui.printed);
    EXPECT_EQ(setEnds(*editor, id, 0, 500),
              L"A camada da peça está bloqueada; desbloqueie-a para alterar.");
    EXPECT_EQ(std::pair(axis(), longest(id)), before);
}

// The member from the right at y = 0, two pieces of it, each with its view from above 525 below.
TEST_F(Cortes, FurtherViewsShowWhatTheMemberBecame) {
    type({L"PECA U 200x75x3 L=6000 n=1 marca=V1 vista=3 lista", L"0,0", L"0", L"VISTAS", L"20,0",
          L"sUperior", L"400", L"", L"_copy", L"20,0", L"20,-525", L"", L"0,0", L"0,-5000", L""});
    std::vector<AcDbObjectId> bars;
    for (const AcDbObjectId& id : entities())
        if (id.objectClass()->isDerivedFrom(ZpObject::desc())) bars.push_back(id);
    ASSERT_EQ(bars.size(), 4u);
    const auto axes = [&] {
        std::vector<std::pair<double, double>> all;
        for (const AcDbObjectId& id : bars) {
            AcGePoint3d start;
            (void)Read<ZpObject>(id)->StartPoint(start);
            all.emplace_back(start.x, longest(id));
        }
        return all;
    };
    const std::pair<double, double> whole{0.0, 6000.0};
    const AcDbObjectId line =
        put(new AcDbLine(AcGePoint3d(1000, -200, 0), AcGePoint3d(1000, 200, 0)));
    struct Case {
        std::size_t changed;
        std::pair<double, double> becomes;
    };
    const auto change = [&](const Case& c) {
        ui.printed.clear();
        if (c.changed == 0)
            cut({{100, 0, bars[0]}, {1000, 100, line}}, {L"0"});
        else
            EXPECT_EQ(setEnds(*editor, bars[1], -500, 6000), L"");
    };
    const Case cases[] = {{0, {1000, 5000}}, {1, {-500, 6500}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.changed);
        change(c);
        // The piece above and the view below it leave the row of the other two.
        EXPECT_EQ(axes(), (std::vector{c.becomes, c.becomes, whole, whole}));
        EXPECT_TRUE(said(L"V1: 1 vista acompanha a mudança."))
            << testing::PrintToString(ui.printed);
        for (std::size_t i = 0; i < bars.size(); ++i)
            EXPECT_EQ(zp::member::marcaOf(*Read<ZpObject>(bars[i])), i < 2 ? L"V2" : L"V1");
        type({L"_u"});
        EXPECT_EQ(axes(), std::vector(4, whole));
    }
    // A piece that no view stands nearest to leaves them as they are.
    type({L"_copy"});
    pick(20, 0, {bars[0]});
    type({L"", L"0,0", L"0,5000", L""});
    ui.printed.clear();
    EXPECT_EQ(setEnds(*editor, entities().back(), 0, 5000), L"");
    EXPECT_EQ(axes(), std::vector(4, whole));
    EXPECT_TRUE(said(L"V1: 2 vistas continuam mostrando as peças que não mudaram"));
    type({L"_u", L"_u"});
    AcDbObjectId rest;
    EXPECT_EQ(takeOut(*editor, bars[1], 1000, 1200, rest),
              L"Uma vista não se parte: parta a peça que ela mostra.");
    // Of a single piece, whichever of the two is changed, the other one becomes the same.
    type({L"_erase"});
    pick(0, -5000, {bars[2], bars[3]});
    type({L""});
    bars.resize(2);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.changed);
        change(c);
        EXPECT_EQ(axes(), std::vector(2, c.becomes));
        EXPECT_TRUE(said(L"V1: 1 vista acompanha a mudança."))
            << testing::PrintToString(ui.printed);
        for (const AcDbObjectId& id : bars)
            EXPECT_EQ(zp::member::marcaOf(*Read<ZpObject>(id)), L"V1");
        type({L"_u"});
        EXPECT_EQ(axes(), std::vector(2, whole));
    }
    // What gives it another size or role, too, whichever is picked; the user is told of steel that
    // changed.
    const AcDbObjectId beam = u(0, 3000, 1000);
    EXPECT_EQ(setValue(beam, L"tipo_barra", 5), L"");
    for (const std::size_t picked : {0u, 1u}) {
        SCOPED_TRACE(picked);
        ui.printed.clear();
        type({L"_scale"});
        pick(0, 0, {bars[picked]});
        type({L"", picked == 0 ? L"0,0" : L"0,-525", L"2"});
        EXPECT_TRUE(said(L"A escala muda o aço: U 200x75x3 passa a U 400x150x6 (1 peça)."))
            << testing::PrintToString(ui.printed);
        EXPECT_EQ(axes(), std::vector(2, std::pair(0.0, 12000.0)));
        for (const AcDbObjectId& id : bars) EXPECT_EQ(Read<ZpObject>(id)->getAltura(), 400);
        EXPECT_NEAR(extents(bars[1]).maxPoint().y - extents(bars[1]).minPoint().y, 150, 1e-6);
        type({L"_u", L"_matchprop"});
        pick(0, 3000, {beam});
        pick(0, 0, {bars[picked]});
        type({L""});
        for (const AcDbObjectId& id : bars) {
            ZpObject::TipoBarra role = ZpObject::kBarra;
            (void)Read<ZpObject>(id)->tipoBarra(role);
            EXPECT_EQ(role, ZpObject::kViga);
            EXPECT_EQ(zp::member::marcaOf(*Read<ZpObject>(id)), L"V1");
        }
        type({L"_u"});
        EXPECT_EQ(axes(), std::vector(2, whole));
    }
    // What is locked stays, in its row, and is told; the piece that counts says what the row is.
    type({L"_layer", L"_n", L"trava", L"_lock", L"trava", L""});
    {
        const AcDbObjectPointer<ZpObject> view(bars[1], AcDb::kForWrite);
        EXPECT_EQ(view->setLayer(L"trava"), Acad::eOk);
    }
    cut({{100, 0, bars[0]}, {1000, 100, line}}, {L"0"});
    EXPECT_TRUE(said(L"V1: 1 vista não acompanha a mudança, em camada bloqueada"));
    EXPECT_EQ(longest(bars[0]), 5000);
    EXPECT_EQ(longest(bars[1]), 6000);
    for (const std::size_t i : {0u, 1u})
        EXPECT_EQ(zp::member::marcaOf(*Read<ZpObject>(bars[i])), L"V1");
}

TEST_F(Cortes, ACornerOfPiecesIsSharpAndTheAxisIsNoEdge) {
    const AcDbObjectId beam = u(0, 0, 1000);
    const AcDbObjectId post =
        put(new ZpUDobrado(AcGePoint3d(1200, 100, 0), AcGePoint3d(1200, 900, 0),
                           ZpObject::kVistaDireita, 100, 50, 50, 3, 3, 0.5 * kPi, 0.5 * kPi, 0, 0));
    const auto corner = [&](const wchar_t* radius) {
        type({L"_fillet", L"_r", radius});
        pick(900, 0, {beam});
        pick(1200, 800, {post});
    };
    ui.mayComplain = true;
    corner(L"50");
    EXPECT_TRUE(said(L"não é arredondada nem chanfrada")) << testing::PrintToString(ui.printed);
    EXPECT_EQ(entities().size(), 2u);
    EXPECT_EQ(longest(beam), 1000);
    RawInput escape;
    escape.kind = RawInput::Kind::Cancel;
    ui.answers.push_back(escape);
    editor->step();
    corner(L"0");
    EXPECT_EQ(entities().size(), 2u);
    EXPECT_NEAR(longest(beam), 1200, 1e-9);
    EXPECT_NEAR(longest(post), 900, 1e-9);
    // From the flange's inner side, 97 below the axis, to the one above it.
    const AcDbObjectId line = put(new AcDbLine(AcGePoint3d(500, -50, 0), AcGePoint3d(500, 50, 0)));
    type({L"_trim", L""});
    pick(500, 20, {line});
    type({L""});
    EXPECT_EQ(Read<AcDbLine>(line)->endPoint(), AcGePoint3d(500, 50, 0));
    type({L"_extend", L""});
    pick(500, 40, {line});
    type({L""});
    expectNear(Read<AcDbLine>(line)->endPoint(), 500, 97);
}

}  // namespace
