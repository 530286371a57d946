// SPDX-License-Identifier: MIT
// Pieces by themselves: frames, limit points, transformations, lengths, pictures.
#include <fstream>
#include <limits>

#include "tests/zp/drawing.h"
#include "zp/objects/published.h"

namespace {

using namespace zp_tests;

using Peca = Drawing;

TEST_F(Peca, LimitPointsOfTheVistas) {
    // Axis at web + b/3: the plain U spans x -25..50, so view 1 spans w -50..25.
    const AcDbObjectId secao = u(10, 20, 1000, ZpObject::kVistaSecao);
    expectNear(face(secao, 0), -15, 120);
    expectNear(face(secao, 1), -15, -80);
    expectNear(face(secao, 2), 60, 120);
    expectNear(face(secao, 3), 60, -80);
    const AcDbObjectId superior = u(10, 20, 500, ZpObject::kVistaSuperior);
    expectNear(face(superior, 0), 10, 45);
    expectNear(face(superior, 3), 510, -30);
    const AcDbObjectId right = u(10, 20, 500);
    expectNear(face(right, 0), 10, 120);
    expectNear(face(right, 3), 510, -80);
}

TEST_F(Peca, TwoPointsGiveComprimentoAndAngle) {
    const AcDbObjectId id =
        put(new ZpUDobrado(AcGePoint3d(10, 10, 5), AcGePoint3d(10, -490, 5),
                           ZpObject::kVistaDireita, 200, 75, 75, 3, 3, 0.5 * kPi, 0.5 * kPi, 0, 0));
    const Read<ZpObject> peca(id);
    double angle = 0;
    peca->AngleVista(angle);
    EXPECT_DOUBLE_EQ(angle, 1.5 * kPi);
    EXPECT_DOUBLE_EQ(peca->getComprimentoReal(), 500.0);
    AcGePoint3d end;
    peca->EndPoint(end);
    expectPoint(end, 10, -490, 5);
    // Turned by -90 degrees, the upper edge lies to the right.
    expectNear(face(id, 0), 110, 10);
    // A drag starts with both points alike.
    const ZpUDobrado empty(AcGePoint3d(1, 2, 0), AcGePoint3d(1, 2, 0), ZpObject::kVistaDireita, 200,
                           75, 75, 3, 3, 0, 0, 0, 0);
    EXPECT_EQ(empty.getComprimentoReal(), 0.0);
    EXPECT_EQ(empty.getPeso(), 0.0);
}

TEST_F(Peca, ATuboGivesTheSquareOfItsHoleInTheSecao) {
    // Widened by the wall 3, the corners are those of the outer diameter; so also for a negative
    // inner diameter.
    const AcDbObjectId id =
        put(new ZpTubo(AcGePoint3d(), AcGePoint3d(100, 0, 0), ZpObject::kVistaSecao, 60.3, 54.3));
    expectNear(face(id, 0), -27.15, 27.15);
    const AcDbObjectId thick =
        put(new ZpTubo(AcGePoint3d(), AcGePoint3d(100, 0, 0), ZpObject::kVistaSecao, 100, -20));
    expectNear(face(thick, 0), 10, -10);
    const AcDbObjectId vista =
        put(new ZpTubo(AcGePoint3d(), AcGePoint3d(100, 0, 0), ZpObject::kVistaDireita, 60.3, 54.3));
    expectNear(face(vista, 2), 100, 30.15);
}

TEST_F(Peca, ChapasInTheirAttitudes) {
    struct Linha {
        ZpObject::ZpVistas vista;
        double rot1, rot2;
        double x0, y0, x1, y1;  // F1 and F2 from the origin
    };
    const double q = -0.5 * kPi;
    for (const Linha& l : {Linha{ZpObject::kVistaSecao, 0, q, 0, -4, 50, 4},
                           Linha{ZpObject::kVistaSecao, q, 0, 0, -4, 50, 4},
                           Linha{ZpObject::kVistaEsquerda, 0, q, 0, -120, 50, 0},
                           Linha{ZpObject::kVistaEsquerda, 0, 0, 0, 0, 120, 8},
                           Linha{ZpObject::kVistaSuperior, 0.5 * kPi, 0, 4, 0, -4, 50}}) {
        const AcDbObjectId id =
            put(new ZpChapa(AcGePoint3d(7, 9, 0), l.vista, 50, 8, 120, l.rot1, l.rot2));
        expectNear(face(id, 1), 7 + l.x0, 9 + l.y0);
        expectNear(face(id, 2), 7 + l.x1, 9 + l.y1);
        const Read<ZpChapa> chapa(id);
        EXPECT_NEAR(chapa->getPeso(), 50 * 8 * 120 * 7850e-9, 1e-12);
        EXPECT_NEAR(chapa->getAreaPintura(), 2 * (50 * 8 + 50 * 120 + 8 * 120) * 1e-6, 1e-12);
        EXPECT_EQ(chapa->getComprimentoReal(), 120.0);
        AcDbExtents bounds;
        EXPECT_EQ(chapa->getGeomExtents(bounds), Acad::eOk);
    }
}

TEST_F(Peca, RigidMotionsAndMirroring) {
    const AcDbObjectId id = u(100, 0, 500, ZpObject::kVistaSuperior);  // w -50..25
    change(id, [](ZpObject& p) {
        EXPECT_EQ(p.transformBy(AcGeMatrix3d::rotation(0.5 * kPi, AcGeVector3d::kZAxis)),
                  Acad::eOk);
    });
    expectNear(face(id, 0), -25, 100);
    expectNear(face(id, 3), 50, 600);
    // Mirrored in the Y axis the upper edge changes sides, and the axis still points up.
    change(id, [](ZpObject& p) {
        EXPECT_EQ(p.transformBy(AcGeMatrix3d::mirroring(AcGePoint3d(), AcGeVector3d::kXAxis)),
                  Acad::eOk);
    });
    expectNear(face(id, 0), 25, 100);
    expectNear(face(id, 3), -50, 600);
    double angle = 0;
    change(id, [&](ZpObject& p) { p.AngleVista(angle); });
    EXPECT_DOUBLE_EQ(angle, 0.5 * kPi);
    // The frame takes the piece's own coordinates to the world, mirror included.
    const Read<ZpObject> peca(id);
    AcGeMatrix3d ecs;
    peca->getEcs(ecs);
    expectNear(ecs * AcGePoint3d(0, 25, 0), 25, 100);
    EXPECT_LT(ecs.det(), 0.0);
}

TEST_F(Peca, FourQuarterTurnsLeaveNoDust) {
    const AcDbObjectId id = u(0, 0, 500);
    for (int i = 0; i < 4000; ++i)
        change(id, [](ZpObject& p) {
            p.transformBy(AcGeMatrix3d::rotation(0.5 * kPi, AcGeVector3d::kZAxis));
        });
    double angle = -1;
    change(id, [&](ZpObject& p) { p.AngleVista(angle); });
    EXPECT_EQ(angle, 0.0);
}

TEST_F(Peca, ScalingMultipliesSizes) {
    const AcDbObjectId id =
        put(new ZpCantLaminada(AcGePoint3d(10, 0, 0), ZpObject::kVistaDireita, 50.8, 50.8, 6.35,
                               50.8 / 3, 2 * 50.8 / 3, 6.35, 0, 0, 1000, 4.74, 127.1848 * 4.74));
    change(id, [](ZpObject& p) {
        const double peso = p.getPeso();
        const double area = p.getArea();
        EXPECT_EQ(p.transformBy(AcGeMatrix3d::scaling(2.0)), Acad::eOk);
        EXPECT_NEAR(p.getComprimentoReal(), 2000, 1e-9);
        EXPECT_NEAR(p.getAltura(), 101.6, 1e-9);
        EXPECT_NEAR(p.getArea(), 4 * area, 1e-9);
        // Twice L 2" x 1/4" is L 4" x 1/2", 19,03 kg/m in its table.
        EXPECT_NEAR(peso, 4.74, 1e-9);
        EXPECT_NEAR(p.getPeso(), 2 * 19.03, 1e-9);
        // 45,72 x 5,715 is no size, so the mass handed over is not its: legs, root of t, toes of
        // t/2.
        EXPECT_EQ(p.transformBy(AcGeMatrix3d::scaling(0.45)), Acad::eOk);
        const double t = 5.715;
        const double bare = t * (2 * 45.72 - t) + (1 - kPi / 4) * (t * t - 2 * 0.25 * t * t);
        EXPECT_NEAR(p.getPeso(), bare * 7850e-9 * 900, 1e-9);
        EXPECT_EQ(p.transformBy(AcGeMatrix3d::scaling(1.0 / 0.45)), Acad::eOk);
    });
    expectNear(face(id, 1), 20, -4 * 50.8 / 3);
    change(id, [](ZpObject& p) {
        AcGeMatrix3d m;
        m.entry[0][0] = 2.0;
        EXPECT_EQ(p.transformBy(m), Acad::eCannotScaleNonUniformly);
        m = AcGeMatrix3d::rotation(0.3, AcGeVector3d::kXAxis);
        EXPECT_EQ(p.transformBy(m), Acad::eCannotScaleNonUniformly);
        EXPECT_NEAR(p.getComprimentoReal(), 2000, 1e-9);
    });
}

TEST_F(Peca, AlteraComprimento) {
    const AcDbObjectId id = u(0, 0, 500);
    change(id, [](ZpObject& p) {
        EXPECT_EQ(p.AlteraComprimento(750), Acad::eOk);
        for (const double bad : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()})
            EXPECT_EQ(p.AlteraComprimento(bad), Acad::eInvalidInput);
        EXPECT_EQ(p.getComprimentoReal(), 750.0);
    });
    expectNear(face(id, 3), 750, -100);
}

TEST_F(Peca, GripsStretchAndMove) {
    const AcDbObjectId id = u(0, 0, 500);
    change(id, [](ZpObject& p) {
        AcDbIntArray end;
        end.append(1);
        EXPECT_EQ(p.moveGripPointsAt(end, AcGeVector3d(-500, 300, 0)), Acad::eOk);
        double angle = 0;
        p.AngleVista(angle);
        EXPECT_NEAR(angle, 0.5 * kPi, 1e-12);
        EXPECT_NEAR(p.getComprimentoReal(), 300, 1e-9);
        AcDbIntArray start;
        start.append(0);
        // Onto the other end: no length remains, nothing happens.
        EXPECT_EQ(p.moveGripPointsAt(start, AcGeVector3d(0, 300, 0)), Acad::eInvalidInput);
        AcDbIntArray middle;
        middle.append(2);
        EXPECT_EQ(p.moveGripPointsAt(middle, AcGeVector3d(5, 5, 0)), Acad::eOk);
        AcGePoint3d s;
        p.StartPoint(s);
        expectNear(s, 5, 5);
    });
}

TEST_F(Peca, CutAtTheFaceOfAnother) {
    const AcDbObjectId viga = u(0, 0, 1000);
    // A column upright at x = 800..1000 (its height 200 lies across the beam's axis).
    const AcDbObjectId pilar = u(900, -500, 1000);
    change(pilar, [](ZpObject& p) {
        p.transformBy(
            AcGeMatrix3d::rotation(0.5 * kPi, AcGeVector3d::kZAxis, AcGePoint3d(900, -500, 0)));
    });
    change(viga, [&](ZpObject& p) {
        EXPECT_EQ(p.Corte(pilar), Acad::eOk);
        EXPECT_NEAR(p.getComprimentoReal(), 800, 1e-9);
        EXPECT_EQ(p.Corte(pilar), Acad::eInvalidInput);  // they only touch now
        EXPECT_EQ(p.AlteraComprimento(1000), Acad::eOk);
        EXPECT_EQ(p.CorteArestaVista(pilar), Acad::eOk);
        EXPECT_NEAR(p.getComprimentoReal(), 1000, 1e-9);
    });
    const AcDbObjectId secao = u(0, 0, 1000, ZpObject::kVistaSecao);
    change(secao, [&](ZpObject& p) { EXPECT_EQ(p.Corte(pilar), Acad::eNotApplicable); });
}

TEST_F(Peca, ExplodingGivesLinesWithTheirLinetypes) {
    const AcDbObjectId id =
        u(0, 0, 500, ZpObject::kVistaSuperior);  // levels -50V 22H 25V, two ends, axis
    const Read<ZpObject> peca(id);
    AcDbVoidPtrArray parts;
    ASSERT_EQ(peca->explode(parts), Acad::eOk);
    std::map<std::wstring, int> types;
    std::map<int, int> pens;
    for (void* p : parts) {
        const std::unique_ptr<AcDbEntity> e(static_cast<AcDbEntity*>(p));
        ASSERT_TRUE(e->isKindOf(AcDbLine::desc()));
        ACHAR* type = e->linetype();
        ++types[type];
        acutDelString(type);
        ++pens[e->lineWeight()];
        if (e->colorIndex() == 1) {
            expectNear(static_cast<AcDbLine&>(*e).endPoint(), 500, 0);
        }
    }
    EXPECT_EQ(pens, (std::map<int, int>{{AcDb::kLnWtByLayer, 4}, {18, 1}, {25, 1}}));
    EXPECT_EQ(parts.length(), 6);
    EXPECT_EQ(types[L"HIDDEN"], 1);
    EXPECT_EQ(types[L"CENTER"], 1);
}

TEST_F(Peca, AnExplodedSecaoKeepsItsArea) {
    // The polyline's own area (shoelace plus arc segments) is the section's, also mirrored and
    // turned.
    for (const bool mirrored : {false, true}) {
        const AcDbObjectId id = u(40, 50, 1000, ZpObject::kVistaSecao);
        change(id, [&](ZpObject& p) {
            if (mirrored)
                p.transformBy(AcGeMatrix3d::mirroring(AcGePoint3d(1, 2, 0), AcGeVector3d::kYAxis));
            p.transformBy(AcGeMatrix3d::rotation(0.7, AcGeVector3d::kZAxis));
        });
        const Read<ZpObject> peca(id);
        AcDbVoidPtrArray parts;
        ASSERT_EQ(peca->explode(parts), Acad::eOk);
        ASSERT_EQ(parts.length(), 1);
        const std::unique_ptr<AcDbPolyline> p(
            AcDbPolyline::cast(static_cast<AcDbEntity*>(parts[0])));
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(p->lineWeight(), AcDb::kLnWt070);  // what is cut
        double area = 0.0;
        for (unsigned i = 0; i < p->numVerts(); ++i) {
            AcGePoint3d a, b;
            double bulge = 0;
            p->getPointAt(i, a);
            p->getPointAt((i + 1) % p->numVerts(), b);
            p->getBulgeAt(i, bulge);
            area += 0.5 * (a.x * b.y - a.y * b.x);
            if (bulge == 0.0) continue;
            const double sweep = 4 * std::atan(bulge);
            const double radius = a.distanceTo(b) / (2 * std::sin(std::abs(sweep) / 2));
            area += 0.5 * radius * radius * (sweep - std::sin(sweep));
        }
        EXPECT_NEAR(area, mirrored ? -1020.411501 : 1020.411501, 1e-5);
        AcDbExtents bounds;
        AcDbExtents ofPolyline;
        peca->getGeomExtents(bounds);
        p->getGeomExtents(ofPolyline);
        EXPECT_NEAR(bounds.minPoint().x, ofPolyline.minPoint().x, 1e-9);
        EXPECT_NEAR(bounds.maxPoint().y, ofPolyline.maxPoint().y, 1e-9);
    }
}

TEST_F(Peca, OsnapsOfLinesArcsAndOrigin) {
    const AcDbObjectId id = u(10, 20, 1000, ZpObject::kVistaSecao);
    const Read<ZpObject> peca(id);
    const auto has = [&](AcDb::OsnapMode mode, double x, double y) {
        AcGePoint3dArray points;
        AcDbIntArray ids;
        peca->getOsnapPoints(mode, 0, AcGePoint3d(), AcGePoint3d(), AcGeMatrix3d(), points, ids);
        for (const AcGePoint3d& p : points)
            if (p.distanceTo(AcGePoint3d(x, y, 0)) < 1e-8) return true;
        return false;
    };
    EXPECT_TRUE(has(AcDb::kOsModeIns, 10, 20));
    EXPECT_TRUE(has(AcDb::kOsModeEnd, 60, 120));           // toe of the upper flange
    EXPECT_TRUE(has(AcDb::kOsModeMid, -15, 20));           // middle of the web's back
    EXPECT_TRUE(has(AcDb::kOsModeCen, -15 + 6, 120 - 6));  // bend
    EXPECT_TRUE(has(AcDb::kOsModeQuad, -15, 120 - 6));     // where the bend's arc begins
}

TEST_F(Peca, ListSaysWhatItIs) {
    const AcDbObjectId id = u(0, 0, 500, ZpObject::kVistaSuperior);
    const Read<ZpObject> peca(id);
    peca->list();
    EXPECT_TRUE(said(L"U 200x75x3"));
    EXPECT_TRUE(said(L"vista superior"));
    EXPECT_TRUE(said(L"10,204 cm²"));
    const AcDbObjectId skewed = put(new ZpUDobrado(AcGePoint3d(), ZpObject::kVistaSecao, 40, 30, 30,
                                                   2, 2, 0, 0, 1000, 0, 0, 25));
    Read<ZpObject>(skewed)->list();
    EXPECT_TRUE(said(L"seção inválida: desenhada pela caixa"));
}

TEST_F(Peca, ValuesOfRolledOnes) {
    ZpULaminado p(AcGePoint3d(), ZpObject::kVistaSecao, 152.4, 48.77, 5.08, 48.77, 5.08, 5.08,
                  48.77 / 3, 5.08, 0, 0, 1000, 12.2 * 127.1848, 12.2);
    double value = 0;
    EXPECT_EQ(p.KgMetro(value), Acad::eOk);
    EXPECT_EQ(value, 12.2);
    EXPECT_EQ(p.setKgMetro(12.4), Acad::eOk);
    EXPECT_NEAR(p.getPeso(), 12.4, 1e-12);
    EXPECT_EQ(p.setKgMetro(std::nan("")), Acad::eInvalidInput);
    // Half the fall of a 1:6 slope over the overhang.
    EXPECT_NEAR(ZpULaminado::calcDeslocF(48.77, 5.08), 3.6408333333, 1e-9);
}

/// Masses and names as the tables print them.
TEST_F(Peca, TheTableNamesAndWeighsASize) {
    const AcGePoint3d at;
    const auto kSecao = ZpObject::kVistaSecao;
    const auto i = [&](double h, double b, double tw, double tf, int type, double m) {
        return std::make_unique<ZpILaminadoUSA>(
            at, kSecao, h, b, tw, tf, ZpILaminadoUSA::ISolType(type), 0, 0, 1000, 127.1848 * m, m);
    };
    const auto ul = [&](double t, double m) {
        return std::make_unique<ZpULaminado>(at, kSecao, 152.4, 48.77, t, 48.77, t, t, 48.77 / 3, t,
                                             0, 0, 1000, m * 127.1848, m);
    };
    const auto vs = [&](ZpISoldado::SubType series, double m) {
        auto p = std::make_unique<ZpISoldado>(at, kSecao, 150, 100, 100, 4.75, 6.3, 1000, 0, 0, m);
        (void)p->setSubType(series);
        return p;
    };
    // Its mass is that of a row which was picked before.
    auto typed = i(150, 100, 4.3, 4.9, 1, 13);
    zp::published::disownMass(*typed);
    struct Case {
        std::unique_ptr<ZpObject> peca;
        const wchar_t* perfil;
        const wchar_t* designacao;
        double kgMetro;
        const wchar_t* origin;  ///< how the words begin
    };
    std::vector<Case> cases;
    const auto add = [&](auto peca, auto perfil, auto designacao, double kg, auto origin) {
        cases.push_back({std::move(peca), perfil, designacao, kg, origin});
    };
    add(i(148, 100, 4.3, 4.9, 1, 13), L"W", L"W 150 x 13,0", 13.0, L"tabela (geometria ");
    add(i(204, 207, 11.3, 11.3, 1, 53), L"HP", L"HP 200 x 53,0", 53.0, L"tabela");
    add(i(200, 100, 5.6, 8.5, 0, 22.4), L"IPE", L"IPE 200", 22.4, L"tabela (geometria -");
    add(i(152.4, 84.63, 5.89, 9.12, 2, 0), L"I", L"I 6\" x 18,6", 18.6, L"tabela");
    add(i(150, 100, 4.3, 4.9, 1, 13), L"W", L"W 150x13", 13.0, L"tabela");
    // 2 x 100 x 4.9 + 140.2 x 4.3 mm2
    add(std::move(typed), L"W", L"W 150x100x4,9x4,3", 12.425451, L"geometria");
    add(ul(5.08, 15.62), L"U", L"U 6\" x 12,2", 12.2, L"tabela");
    add(vs(ZpISoldado::kVS, 15), L"VS", L"VS 150x15", 15.0, L"tabela");
    // The user's own plates: 2 x 100 x 6.3 + 137.4 x 4.75 mm2.
    add(vs(ZpISoldado::kFavoritos, 0), L"PS", L"PS 150x100x6,3x4,75", 15.014303, L"geometria");
    add(std::make_unique<ZpCantTEELaminada>(at, kSecao, 50.8, 50.8, 6.35, 0, 2 * 50.8 / 3, 6.35, 10,
                                            0, 0, 1000, 9.48, 12.06),
        L"2L T", L"2L T 2\" x 1/4\" a=10", 2 * 4.74, L"tabela");
    add(std::make_unique<ZpBarraRedonda>(at, kSecao, 12.7, 1000, 0), L"BR", L"BR 1/2\"", 0.994,
        L"tabela");
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(c.designacao)));
        const zp::Peca& p = zp::Access::of(*c.peca);
        EXPECT_EQ(p.perfil(), c.perfil);
        EXPECT_EQ(p.designacao(), c.designacao);
        EXPECT_NEAR(c.peca->getLinearWeight(), c.kgMetro, 1e-6);
        EXPECT_TRUE(zp::published::massWords(p).starts_with(c.origin));
    }
    // What the constructor got stays what it is.
    EXPECT_NEAR(cases[6].peca->getArea(), 15.62 * 127.1848, 1e-9);
}

TEST_F(Peca, AnObjectIsSmall) {
    // A drawing of 100,000 pieces counts every byte; links are apart and only where there are any.
    EXPECT_LE(sizeof(ZpUDobrado) + sizeof(zp::Peca), 480u);
    const ZpBarraRedonda a(AcGePoint3d(), ZpObject::kVistaSecao, 25.4, 1000, 0);
    const ZpBarraRedonda b(AcGePoint3d(9, 9, 0), ZpObject::kVistaSecao, 25.4, 700, 0);
    EXPECT_EQ(&zp::Access::of(a).secao(), &zp::Access::of(b).secao());
}

TEST(Functions, FormatInString) {
    EXPECT_STREQ(FormatInString(2.5), L"2.5");
    EXPECT_STREQ(FormatInString(100), L"100");
    EXPECT_STREQ(FormatInString(1.0 / 3), L"0.333333");
    EXPECT_STREQ(FormatInString(-0.0000001), L"0");
    EXPECT_STREQ(FormatInString(std::nan("")), L"0");
    const wchar_t* first = FormatInString(11);
    for (int i = 0; i < 7; ++i) FormatInString(i);
    EXPECT_STREQ(first, L"11");
    EXPECT_NEAR(sex2rad(180), kPi, 1e-15);
}

TEST_F(Peca, AScaleOfNothingIsOne) {
    resbuf value{};
    value.restype = RTREAL;
    for (const auto& [dimscale, scale] : {std::pair{0.0, 1.0}, {25.0, 25.0}}) {
        value.resval.rreal = dimscale;
        ASSERT_EQ(acedSetVar(L"DIMSCALE", &value), RTNORM);
        EXPECT_EQ(GetScale(), scale);
    }
}

TEST_F(Peca, LayersOfTheUser) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "zp_camadas";
    std::filesystem::create_directories(folder / "perfis");
    std::FILE* file = std::fopen((folder / "perfis" / "Camadas.INI").c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs(
        "; camadas\r\n[nomes]\r\nPERFIL = Aço leve\r\nVista-Chapa=Chapas, 0,68\r\ncota = , "
        "0.13\r\nsem igual\r\n",
        file);
    std::fclose(file);
    setenv("ZPFORJA2010", folder.c_str(), 1);
    EXPECT_STREQ(ZpLayerToUsr(L"perfil"), L"Aço leve");
    EXPECT_STREQ(ZpLayerToUsr(L"vista-chapa"), L"Chapas");
    EXPECT_STREQ(ZpLayerToUsr(L"COTA"), L"COTA");
    std::map<std::wstring, std::pair<int, int>> looks;  // colour, pen in 0.01 mm
    AcDbLayerTable* table = nullptr;
    ASSERT_EQ(editor->database().getLayerTable(table, AcDb::kForRead), Acad::eOk);
    for (const wchar_t* name : {L"Aço leve", L"Chapas", L"COTA"}) {
        AcDbLayerTableRecord* layer = nullptr;
        ASSERT_EQ(table->getAt(name, layer, AcDb::kForRead), Acad::eOk);
        looks[name] = {layer->colorIndex(), layer->lineWeight()};
        layer->close();
    }
    table->close();
    EXPECT_EQ(looks[L"Aço leve"], std::pair(7, 50));
    EXPECT_EQ(looks[L"Chapas"], std::pair(3, 70));  // the nearest to 0.68
    EXPECT_EQ(looks[L"COTA"], std::pair(2, 13));
    // An old editor writes the code page, whose bytes from 80 to 9F are no letters of Latin-1.
    std::ofstream(folder / "perfis" / "Camadas.INI") << "cota=Cotas \x96 A\xE7o";
    EXPECT_STREQ(ZpLayerToUsr(L"COTA"), L"Cotas \u2013 A\u00E7o");
    std::filesystem::remove_all(folder);
    EXPECT_STREQ(ZpLayerToUsr(L"PERFIL"), L"PERFIL");
}

}  // namespace
