// SPDX-License-Identifier: MIT
// LINE, CIRCLE, ELLIPSE, XLINE, RAY, ARC, POINT, TEXT, hatches and dimensions.
#include <array>
#include <cmath>

#include "dbhatch.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/picking.h"
#include "prancheta/geometry/angles.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

using prancheta::kPi;

class Draw : public Builtin {};

TEST_F(Draw, LineWithUndoAndClose) {
    type({L"linha", L"0,0", L"10,0", L"99,99", L"_u", L"@0,10", L"_c"});
    ASSERT_EQ(count(), 3u);
    expectLine(entities()[0], 0, 0, 10, 0);
    expectLine(entities()[1], 10, 0, 10, 10);
    expectLine(entities()[2], 10, 10, 0, 0);
    // Closing takes two lines at least: the word is not offered before, and is no point.
    type({L"_line", L"0,0", L"1,0", L"_c", L"^C"});
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_EQ(count(), 4u);
    // Enter goes on from the last point.
    type({L"_line", L"", L"@0,5", L""});
    expectLine(last(), 1, 0, 1, 5);
}

TEST_F(Draw, LineUndoneToItsStart) {
    type({L"_line", L"0,0", L"1,0", L"_u", L"_u", L"0,2", L""});
    EXPECT_TRUE(said(L"Todos os segmentos já foram desfeitos."));
    ASSERT_EQ(count(), 1u);
    expectLine(last(), 0, 0, 0, 2);
}

struct CircleCase {
    std::initializer_list<const wchar_t*> lines;
    double x, y, radius;
};

TEST_F(Draw, Circle) {
    const CircleCase cases[] = {
        {{L"círculo", L"1,2", L"5"}, 1, 2, 5},
        {{L"_circle", L"0,0", L"_d", L"5"}, 0, 0, 2.5},
        {{L"_circle", L"0,0", L""}, 0, 0, 2.5},   // the last radius again
        {{L"_circle", L"3,4", L"0,0"}, 3, 4, 5},  // by a point of it
        {{L"_circle", L"2p", L"0,0", L"6,8"}, 3, 4, 5},
        // A right angle at the origin: the hypotenuse from (8,0) to (0,6) is a diameter.
        {{L"_circle", L"3p", L"0,0", L"8,0", L"0,6"}, 4, 3, 5},
        // The same far from the origin.
        {{L"_circle", L"3p", L"1000000,0", L"@8,0", L"1000000,6"}, 1000004, 3, 5},
    };
    std::size_t made = 0;
    for (const CircleCase& each : cases) {
        type(each.lines);
        ASSERT_EQ(count(), ++made);
        const Read<AcDbCircle> circle(last());
        ASSERT_NE(circle.object(), nullptr);
        expectPoint(circle->center(), each.x, each.y);
        EXPECT_NEAR(circle->radius(), each.radius, 1e-9);
    }
    type({L"_circle", L"3p", L"0,0", L"1,1", L"2,2"});
    EXPECT_EQ(count(), made);
    EXPECT_TRUE(said(L"O círculo não existe: os pontos estão em uma linha reta."));
}

TEST_F(Draw, CircleByTwoTangentsAndTheRadius) {
    type({L"_line", L"-50,0", L"50,0", L"", L"_line", L"0,-50", L"0,50", L""});
    type({L"circulo", L"ttr", L"-20,0", L"0,20", L"5"});
    ASSERT_EQ(count(), 3u);
    EXPECT_TRUE(asked(L"círculo ou [3P/2P/Ttr]: "));
    expectPoint(Read<AcDbCircle>(last())->center(), -5, 5);
    type({L"_circle", L"_ttr", L"20,0", L"0,-20", L""});  // the last radius again
    expectPoint(Read<AcDbCircle>(last())->center(), 5, -5);
    // Radii 3 and 5, centres 14 apart, the new one 10: a triangle of 13, 14 and 15, whose height
    // of 12 stands 5 from the first corner. Far from the origin no digit is lost.
    type({L"_circle", L"1000000,100", L"3", L"_circle", L"1000014,100", L"5"});
    type({L"_circle", L"_ttr", L"1000000,103", L"1000014,105", L"10"});
    expectPoint(Read<AcDbCircle>(last())->center(), 1000005, 112);
    // Around the first one: 13 - 2 * 3 = 7 to its centre, 15 to the other's.
    type({L"_circle", L"_ttr", L"1000000,97", L"1000009,100", L"10"});
    const AcGePoint3d around = Read<AcDbCircle>(last())->center();
    EXPECT_NEAR(around.distanceTo({1000000, 100, 0}), 7, 1e-9);
    EXPECT_NEAR(around.distanceTo({1000014, 100, 0}), 15, 1e-9);
    const std::size_t made = count();
    type({L"_circle", L"_ttr", L"1000000,103", L"1000014,105", L"2"});  // 5 + 7 do not reach 14
    EXPECT_TRUE(said(L"O círculo não existe: nenhum com esse raio"));
    type({L"_circle", L"_ttr", L"500,500", L"^C"});
    EXPECT_TRUE(said(L"Nenhum objeto encontrado nesse ponto."));
    EXPECT_EQ(count(), made);
}

TEST_F(Draw, TangentCircleOfEqualPicksIsTheSameEverywhere) {
    // Two lines at 0 and 20 degrees, both picked 60 from their corner. The circles in the two wide
    // angles touch 40 * tan(10 degrees) before the corner on one line and behind it on the other:
    // 52.9 and 67.1 from the picks, either way round. The first pick decides.
    const double behind = 40 * std::tan(kPi / 18);
    const auto at = [](double x, double y) {
        return prancheta::numberTextWide(x) + L"," + prancheta::numberTextWide(y);
    };
    for (const double away : {0.0, 0.7, 1234.567, 98765.4321, 1e6}) {
        const std::wstring corner = at(away, -away);
        type({L"_line", corner.c_str(), L"@200,0", L"", L"_line", corner.c_str(), L"@200<20", L""});
        const std::wstring flat = at(away + 60, -away);
        const std::wstring sloping =
            at(away + 60 * std::cos(kPi / 9), -away + 60 * std::sin(kPi / 9));
        type({L"_circle", L"_ttr", flat.c_str(), sloping.c_str(), L"40"});
        const AcGePoint3d below = Read<AcDbCircle>(last())->center();
        EXPECT_NEAR(below.x, away + behind, 1e-6) << away;
        EXPECT_NEAR(below.y, -away - 40, 1e-6) << away;
        type({L"_circle", L"_ttr", sloping.c_str(), flat.c_str(), L"40"});
        const AcGePoint3d above = Read<AcDbCircle>(last())->center();
        EXPECT_NEAR(above.x, away - behind, 1e-6) << away;
        EXPECT_NEAR(above.y, -away + 40, 1e-6) << away;
        type({L"_erase", L"_all", L""});
    }
}

TEST_F(Draw, Ellipse) {
    struct Case {
        std::initializer_list<const wchar_t*> lines;
        AcGePoint3d centre, start, end;
        AcGeVector3d major;
        double ratio;
    };
    const double half = std::sqrt(0.5);
    const Case cases[] = {
        {{L"elipse", L"0,0", L"20,0", L"1e-9", L"4"},
         {10, 0, 0},
         {20, 0, 0},
         {20, 0, 0},
         {10, 0, 0},
         0.4},
        // The second axis is the longer one.
        {{L"_ellipse", L"_c", L"5,5", L"@3,0", L"5,11"},
         {5, 5, 0},
         {5, 11, 0},
         {5, 11, 0},
         {0, 6, 0},
         0.5},
        // No length, then one; a circle seen from 60 degrees: its cosine is a half.
        {{L"_el", L"_c", L"0,0", L"0,0", L"0,8", L"_r", L"90", L"60"},
         {0, 0, 0},
         {0, 8, 0},
         {0, 8, 0},
         {0, 8, 0},
         0.5},
        // Angles count from the first axis: 45 degrees on half axes of 2 and 2.
        {{L"_ellipse", L"_a", L"_c", L"0,0", L"0,2", L"2", L"45", L"90"},
         {0, 0, 0},
         {-2 * half, 2 * half, 0},
         {-2, 0, 0},
         {0, 2, 0},
         1.0},
        // From where the first axis ends to where the longer second one does.
        {{L"_ellipse", L"_a", L"-3,0", L"3,0", L"6", L"0", L"_i", L"90"},
         {0, 0, 0},
         {3, 0, 0},
         {0, 6, 0},
         {0, 6, 0},
         0.5},
    };
    std::size_t made = 0;
    for (const Case& each : cases) {
        SCOPED_TRACE(made);
        type(each.lines);
        ASSERT_EQ(count(), ++made);
        const Read<AcDbEllipse> ellipse(last());
        ASSERT_NE(ellipse.object(), nullptr);
        const auto at = [](const AcGePoint3d& p, const AcGePoint3d& wanted) {
            expectPoint(p, wanted.x, wanted.y);
        };
        at(ellipse->center(), each.centre);
        at(ellipse->pointAt(ellipse->startParam()), each.start);
        at(ellipse->pointAt(ellipse->endParam()), each.end);
        EXPECT_NEAR(std::abs(ellipse->majorAxis().dotProduct(each.major.normal())),
                    each.major.length(), 1e-9);
        EXPECT_NEAR(ellipse->radiusRatio(), each.ratio, 1e-9);
    }
    EXPECT_EQ(ui.complaints.size(), 3u);
}

TEST_F(Draw, ConstructionLines) {
    struct Case {
        std::initializer_list<const wchar_t*> lines;
        double x, y, dx, dy;  ///< of the last line drawn
    };
    const double half = std::sqrt(0.5);
    type({L"_line", L"10,0", L"20,10", L""});
    const Case cases[] = {
        {{L"xlinha", L"1,2", L"1,2", L"4,6", L"1,9", L""}, 1, 2, 0, 1},
        {{L"_xline", L"_h", L"5,7", L""}, 5, 7, 1, 0},
        {{L"_xl", L"_v", L"5,7", L"6,7", L""}, 6, 7, 0, 1},
        {{L"_xline", L"_a", L"135", L"0,1", L""}, 0, 1, -half, half},
        {{L"_xline", L"_b", L"0,0", L"5,0", L"0,3", L""}, 0, 0, half, half},
        {{L"_xline", L"_b", L"0,0", L"5,0", L"-3,0", L""}, 0, 0, 0, 1},
        {{L"semirreta", L"1,1", L"1,5", L""}, 1, 1, 0, 1},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(&each - cases);
        type(each.lines);
        const Read<prancheta::EndlessLine> line(last());
        ASSERT_NE(line.object(), nullptr);
        expectPoint(line->basePoint(), each.x, each.y);
        EXPECT_NEAR(line->unitDir().x, each.dx, 1e-9);
        EXPECT_NEAR(line->unitDir().y, each.dy, 1e-9);
    }
    EXPECT_EQ(ui.complaints.size(), 1u);
    // Parallel to the line at 2 on the side of the point, and through a point.
    type({L"_xline", L"_o", L"2"});
    pick(15, 5, {entities()[0]});
    type({L"0,50", L"", L"_xline", L"_o", L""});
    pick(15, 5, {entities()[0]});
    type({L"30,0", L""});
    const Read<AcDbXline> through(last());
    EXPECT_NEAR(through->basePoint().x - through->basePoint().y, 30, 1e-9);
    const Read<AcDbXline> beside(entities()[count() - 2]);
    EXPECT_NEAR(beside->basePoint().y - beside->basePoint().x, -10 + 2 / half, 1e-9);
    // They are found anywhere, and what is shown by ZOOM is the line alone.
    const prancheta::Box2d box = editor->display().extents();
    EXPECT_EQ(box.right, 20);
    EXPECT_EQ(box.top, 10);
    EXPECT_EQ(prancheta::entityAt(*editor, {5e5, 7, 0}), entities()[3]);
}

TEST_F(Draw, UserSystems) {
    struct Case {
        std::initializer_list<const wchar_t*> lines;
        double x, y, dx, dy;  ///< the origin, and where x runs
        std::size_t refused;
    };
    // A slope of 3:4, so that x and y have 0.6 and 0.8.
    const Case cases[] = {
        {{L"scp", L"1000,500", L"5000,3500"}, 1000, 500, 0.8, 0.6, 0},
        {{L"_ucs", L"7,8", L""}, 7, 8, 1, 0, 0},
        {{L"_ucs", L"0,0", L"0,0", L"3,4"}, 0, 0, 0.6, 0.8, 1},
        {{L"_ucs", L"3", L"0,0", L"0,5", L""}, 0, 0, 0, 1, 0},
        // On one line; on the side where z would have to turn over.
        {{L"_ucs", L"_3point", L"0,0", L"0,5", L"0,9", L"1,0", L"-1,9"}, 0, 0, 0, 1, 2},
        {{L"_line", L"0,0", L"40,30", L"", L"_ucs", L"o", L"24,18"}, 40, 30, -0.8, -0.6, 0},
        {{L"_pline", L"90,0", L"90,30", L"130,60", L"", L"_ucs", L"_ob", L"98,36"},
         90,
         30,
         0.8,
         0.6,
         0},
        {{L"_circle", L"-90,0", L"50", L"_ucs", L"_ob", L"-60,40"}, -90, 0, 0.6, 0.8, 0},
        {{L"_dimaligned", L"0,-90", L"30,-50", L"0,-90", L"_ucs", L"_ob", L"24,-58"},
         0,
         -90,
         0.6,
         0.8,
         0},
        {{L"_ray", L"-90,-90", L"-86,-87", L"", L"_ucs", L"_ob", L"-82,-84"},
         -90,
         -90,
         0.8,
         0.6,
         0},
        // A point has no direction.
        {{L"_point", L"60,-60", L"_ucs", L"_ob", L"60,-60", L"24,18"}, 40, 30, -0.8, -0.6, 1},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(&each - cases);
        const std::size_t before = ui.complaints.size();
        type(each.lines);
        ASSERT_FALSE(editor->runner().active());
        expectPoint(editor->ucs() * AcGePoint3d::kOrigin, each.x, each.y);
        expectPoint(editor->ucs() * AcGePoint3d(1, 0, 0), each.x + each.dx, each.y + each.dy);
        expectPoint(editor->ucs() * AcGePoint3d(0, 1, 0), each.x - each.dy, each.y + each.dx);
        EXPECT_EQ(ui.complaints.size() - before, each.refused);
        type({L"_ucs", L""});
        EXPECT_EQ(editor->ucs(), AcGeMatrix3d::kIdentity);
    }
    // Back over what was, one by one; undone as any change; the last point stays where it is.
    type({L"_ucs", L"7,8", L"", L"_ucs", L"1,1", L"", L"_ucs", L"a"});
    expectPoint(editor->variables().point(L"UCSORG"), 7, 8);
    type({L"_line", L"0,0", L"@2,0", L"", L"_u", L"_u", L"_u", L"_u"});
    expectPoint(editor->variables().point(L"UCSORG"), 0, 0);
    expectPoint(editor->lastPoint(), 9, 8);
    type({L"_setvar", L"UCSORG"});
    EXPECT_TRUE(said(L"somente leitura"));
    // Paper has its own.
    type({L"_ucs", L"7,8", L"", L"_tilemode", L"0"});
    EXPECT_EQ(editor->ucs(), AcGeMatrix3d::kIdentity);
    type({L"_ucs", L"_tilemode", L"1"});
    EXPECT_TRUE(said(L"No papel vale o SCP do papel"));
    expectPoint(editor->ucs() * AcGePoint3d::kOrigin, 7, 8);
}

TEST_F(Draw, WhatIsDrawnFollowsTheUserSystem) {
    // From 100,0 x runs upwards and y to the left: u,v stands at 100-v, u.
    type({L"_ucs", L"100,0", L"100,5", L"_line", L"10,0", L"@5<0", L""});
    expectLine(last(), 100, 10, 100, 15);
    type({L"_list", L"_l", L""});
    EXPECT_TRUE(said(L"X=10,0000  Y=0,0000"));
    EXPECT_TRUE(said(L"Ângulo no plano XY = 0"));
    type({L"_xline", L"_h", L"5,7", L""});
    expectPoint(AcGePoint3d::kOrigin + Read<AcDbXline>(last())->unitDir(), 0, 1);
    type({L"_rectang", L"0,0", L"20,10"});
    AcGePoint3d corner;
    EXPECT_EQ(Read<AcDbPolyline>(last())->getPointAt(1, corner), Acad::eOk);
    expectPoint(corner, 100, 20);
    type({L"_hatch", L"5,5", L""});
    EXPECT_NEAR(Read<AcDbHatch>(last())->patternAngle(), kPi / 2, 1e-12);
    type({L"_text", L"10,0", L"5", L"30", L"A", L""});
    EXPECT_NEAR(Read<AcDbText>(last())->rotation(), kPi / 2 + kPi / 6, 1e-12);
    type({L"_-block", L"A", L"10,0", L"_l", L"", L"_insert", L"A", L"0,0", L"", L"", L""});
    EXPECT_NEAR(Read<AcDbBlockReference>(last())->rotation(), kPi / 2, 1e-12);
    type({L"_dimlinear", L"0,0", L"30,40", L"15,-10"});
    EXPECT_NEAR(Read<AcDbDimension>(last())->measurement(), 30, 1e-9);
    type({L"_dimlinear", L"0,0", L"30,40", L"_r", L"90", L"15,-10"});
    EXPECT_NEAR(Read<AcDbDimension>(last())->measurement(), 40, 1e-9);
    // Pointed at and typed, a turn is the same.
    type({L"_line", L"0,0", L"9,0", L"", L"_rotate", L"_l", L"", L"0,0", L"0,5"});
    expectLine(last(), 100, 0, 91, 0);
}

TEST_F(Draw, LastAngleIsTheDirectionOfTheEnd) {
    const auto lastAngle = [&] { return editor->variables().real(L"LASTANGLE"); };
    type({L"_line", L"0,0", L"5,0", L"5,5", L""});
    EXPECT_NEAR(lastAngle(), kPi / 2, 1e-12);
    // Over the top, either way: the end is reached going down.
    type({L"_arc", L"1,0", L"0,1", L"-1,0"});
    EXPECT_NEAR(lastAngle(), 1.5 * kPi, 1e-12);
    type({L"_pline", L"0,0", L"10,0", L"_a", L"10,10", L""});
    EXPECT_NEAR(lastAngle(), kPi, 1e-12);
    type({L"_arc", L"-1,0", L"0,1", L"1,0"});
    EXPECT_NEAR(lastAngle(), 1.5 * kPi, 1e-12);
    type({L"_pline", L"0,0", L"10,0", L"10,10", L"0,10", L"_c"});
    EXPECT_NEAR(lastAngle(), 1.5 * kPi, 1e-12);
    type({L"_pline", L"0,0", L"-7,0", L""});
    EXPECT_NEAR(lastAngle(), kPi, 1e-12);
    // Segments that were taken back say nothing.
    type({L"_line", L"0,0", L"0,5", L"5,5", L"_u", L""});
    EXPECT_NEAR(lastAngle(), kPi / 2, 1e-12);
    type({L"_pline", L"0,0", L"-7,0", L"-7,9", L"_u", L""});
    EXPECT_NEAR(lastAngle(), kPi, 1e-12);
    type({L"_line", L"0,0", L"0,5", L"_u", L"", L"_pline", L"0,0", L"0,5", L"_u", L""});
    EXPECT_NEAR(lastAngle(), kPi, 1e-12);
    type({L"lastangle"});
    EXPECT_TRUE(said(L"LASTANGLE = 180 (somente leitura)"));
}

TEST_F(Draw, ArcThroughThreePoints) {
    // Half of the unit circle over the X axis, drawn both ways: an arc always runs
    // counter-clockwise.
    for (const auto& lines :
         {std::initializer_list<const wchar_t*>{L"arco", L"1,0", L"0,1", L"-1,0"},
          std::initializer_list<const wchar_t*>{L"_arc", L"-1,0", L"0,1", L"1,0"}}) {
        type(lines);
        const Read<AcDbArc> arc(last());
        ASSERT_NE(arc.object(), nullptr);
        expectPoint(arc->center(), 0, 0);
        EXPECT_NEAR(arc->radius(), 1, 1e-9);
        EXPECT_NEAR(arc->startAngle(), 0, 1e-9);
        EXPECT_NEAR(arc->endAngle(), kPi, 1e-9);
    }
    type({L"_arc", L"0,0", L"1,0", L"2,0"});
    EXPECT_EQ(count(), 2u);
}

TEST_F(Draw, NewEntitiesTakeTheCurrentProperties) {
    type({L"_-layer", L"_m", L"Corte", L"", L"_point", L"1,2,3"});
    const Read<AcDbPoint> point(last());
    ASSERT_NE(point.object(), nullptr);
    expectPoint(point->position(), 1, 2, 3);
    EXPECT_EQ(layerOf(last()), L"Corte");
    EXPECT_EQ(point->colorIndex(), 256);
}

TEST_F(Draw, Text) {
    type({L"texto", L"10,20", L"5", L"90", L"Viga V1, 2 peças", L"Viga V2", L""});
    {
        const Read<AcDbText> below(last());
        ASSERT_NE(below.object(), nullptr);
        EXPECT_STREQ(below->textStringConst(), L"Viga V2");
        // Downwards of a text that is read upwards is to the right; lines are 5/3 of the height
        // apart.
        expectPoint(below->position(), 10 + 25.0 / 3.0, 20);
        EXPECT_NEAR(below->rotation(), kPi / 2, 1e-12);
        const Read<AcDbText> text(entities().front());
        ASSERT_NE(text.object(), nullptr);
        EXPECT_STREQ(text->textStringConst(), L"Viga V1, 2 peças");
        expectPoint(text->position(), 10, 20);
        EXPECT_DOUBLE_EQ(text->height(), 5);
        EXPECT_NEAR(text->rotation(), kPi / 2, 1e-12);
    }
    // Height and rotation are kept; the middle centre is mode 1 / 2 about the point.
    type({L"_text", L"_j", L"_mc", L"3,4", L"", L"", L"B", L"C", L"^C"});
    ASSERT_EQ(count(), 4u) << "Esc leaves the lines that were ended";
    const Read<AcDbText> text(entities()[2]);
    ASSERT_NE(text.object(), nullptr);
    EXPECT_EQ(text->horizontalMode(), 1);
    EXPECT_EQ(text->verticalMode(), 2);
    expectPoint(text->alignmentPoint(), 3, 4);
    expectPoint(Read<AcDbText>(last())->alignmentPoint(), 3 + 25.0 / 3.0, 4);
    EXPECT_DOUBLE_EQ(text->height(), 5);
    EXPECT_NEAR(text->rotation(), kPi / 2, 1e-12);
}

TEST_F(Draw, TextJustifiedByAShortWord) {
    // Also where a longer option begins with the same letters: middle left is mode 0 / 2.
    type({L"texto", L"j", L"me", L"3,4", L"", L"", L"C", L""});
    const Read<AcDbText> text(last());
    ASSERT_NE(text.object(), nullptr);
    EXPECT_EQ(text->horizontalMode(), 0);
    EXPECT_EQ(text->verticalMode(), 2);
}

TEST_F(Draw, TextWithoutWordsIsNone) {
    type({L"_text", L"0,0", L"", L"", L""});
    EXPECT_EQ(count(), 0u);
    EXPECT_FALSE(editor->runner().active());
}

TEST_F(Draw, DimensionOfTwoPoints) {
    type({L"_-layer", L"_m", L"Cotas", L"", L"cotaalinhada", L"0,0", L"30,40", L"0,50"});
    {
        const Read<AcDbAlignedDimension> dimension(last());
        ASSERT_NE(dimension.object(), nullptr);
        expectPoint(dimension->xLine1Point(), 0, 0);
        expectPoint(dimension->xLine2Point(), 30, 40);
        expectPoint(dimension->dimLinePoint(), 0, 50);
        EXPECT_DOUBLE_EQ(dimension->measurement(), 50);
        EXPECT_EQ(dimension->dimensionStyle(), editor->database().dimstyle());
    }
    EXPECT_EQ(layerOf(last()), L"Cotas");
    EXPECT_TRUE(said(L"Texto da cota = 50"));
    // Equal steps are told with their sum while that is what is measured.
    struct Case {
        const wchar_t* typed;
        const wchar_t* shown;
    };
    for (const auto& [typed, shown] : std::initializer_list<Case>{
             {L"4 x 2,5", L"4 x 2,5 = 10"}, {L"3 x 2,5", L"3 x 2,5"}, {L"<> mm", L"10 mm"}}) {
        type({L"dal", L"0,0", L"10,0", L"_t", typed, L"0,9"});
        EXPECT_EQ(Read<AcDbDimension>(last())->shownText(), shown);
    }
    EXPECT_TRUE(said(L"3 x 2,5 = 7,5, mas a medida é 10"));
}

TEST_F(Draw, LinearDimensionTakesItsAxisFromThePointer) {
    // The box of the origins goes from 0,0 to 3000,400.
    struct Case {
        const wchar_t* place;
        double measure;
    };
    for (const Case& c : std::initializer_list<Case>{{L"1500,-50", 3000},
                                                     {L"1500,900", 3000},
                                                     {L"-50,200", 400},
                                                     {L"3300,10", 400},
                                                     {L"3300,600", 400},
                                                     {L"-100,-300", 3000},
                                                     {L"1500,200", 3000}}) {
        type({L"cotalinear", L"0,0", L"3000,400", c.place});
        const Read<AcDbRotatedDimension> dimension(last());
        ASSERT_NE(dimension.object(), nullptr);
        EXPECT_NEAR(dimension->measurement(), c.measure, 1e-9) << prancheta::toUtf8(c.place);
    }
    type({L"_dimlinear", L"0,0", L"3000,400", L"v", L"1500,-50"});
    EXPECT_NEAR(Read<AcDbDimension>(last())->measurement(), 400, 1e-9);
    // 3000 cos 30 + 400 sin 30.
    type({L"_dimlinear", L"0,0", L"3000,400", L"r", L"30", L"1500,-50"});
    EXPECT_NEAR(Read<AcDbDimension>(last())->measurement(), 1500 * std::sqrt(3.0) + 200, 1e-9);
    // Sizes of a drawing in scale 1:20; the spacing of baselines is 3.75 of them.
    type({L"DIMSCALE", L"20", L"_dimlinear", L"0,0", L"1000,0", L"0,-500", L"_dimbaseline",
          L"2000,0", L"3000,0", L"", L"", L"_dimcontinue", L"3700,9", L"", L""});
    std::vector<std::pair<double, double>> chain;
    for (const AcDbObjectId id : entities()) {
        const Read<AcDbRotatedDimension> dimension(id);
        chain.emplace_back(dimension->measurement(), dimension->dimLinePoint().y);
    }
    const std::vector<std::pair<double, double>> last4(chain.end() - 4, chain.end());
    EXPECT_EQ(last4, (std::vector<std::pair<double, double>>{
                         {1000, -500}, {2000, -575}, {3000, -650}, {700, -650}}));
    EXPECT_DOUBLE_EQ(Read<AcDbDimension>(last())->dimscale(), 20);
}

TEST_F(Draw, DimensionsOfCirclesAndAngles) {
    type({L"_circle", L"0,0", L"100", L"_line", L"0,0", L"1000,0", L"", L"_line", L"0,0",
          L"500,500", L""});
    const std::vector<AcDbObjectId> drawn = entities();
    const auto shown = [&] { return Read<AcDbDimension>(last())->shownText(); };
    for (const auto& [command, text] :
         {std::pair(L"_dimradius", L"R100"), std::pair(L"_dimdiameter", L"Ø200")}) {
        type({command});
        pick(0, 100, {drawn[0]});
        type({L"300,300"});
        EXPECT_EQ(shown(), text);
    }
    // Of the four angles between two lines the one that the arc lies in.
    for (const auto& [arc, text] : {std::pair(L"300,50", L"45°"), std::pair(L"0,300", L"135°")}) {
        type({L"_dimangular"});
        pick(800, 0, {drawn[1]});
        pick(400, 400, {drawn[2]});
        type({arc});
        EXPECT_EQ(shown(), text);
    }
    type({L"_dimangular", L"", L"0,0", L"10,0", L"0,10", L"-5,-5"});
    EXPECT_EQ(shown(), L"270°");
    type({L"_dimangular"});
    pick(800, 0, {drawn[1]});
    pick(900, 0, {drawn[1]});
    EXPECT_TRUE(said(L"As linhas são paralelas"));
}

TEST_F(Draw, DimensionsFollowWhatTheyMeasure) {
    type({L"_line", L"0,0", L"1000,0", L"", L"_dimlinear", L"0,0", L"1000,0", L"500,-200",
          L"_circle", L"0,500", L"100"});
    const std::vector<AcDbObjectId> drawn = entities();
    type({L"_dimradius"});
    pick(100, 500, {drawn[2]});
    type({L"300,500"});
    const AcDbObjectId linear = drawn[1];
    const AcDbObjectId radius = last();
    const auto state = [&] {
        const Read<AcDbRotatedDimension> dimension(linear);
        std::array values{dimension->xLine1Point().y, dimension->measurement(),
                          dimension->dimLinePoint().y, Read<AcDbDimension>(radius)->measurement()};
        for (double& value : values) value = std::round(value * 1e6) / 1e6;
        return values;
    };
    const auto on = [&](AcDbObjectId id, std::initializer_list<const wchar_t*> command,
                        std::initializer_list<const wchar_t*> rest) {
        type(command);
        pick(0, 0, {id});
        type(rest);
    };
    // Moved as a whole the line goes along; one step of undo takes both back.
    on(drawn[0], {L"_move"}, {L"", L"0,0", L"0,70"});
    EXPECT_EQ(state(), (std::array{70.0, 1000.0, -130.0, 100.0}));
    type({L"_u"});
    EXPECT_EQ(state(), (std::array{0.0, 1000.0, -200.0, 100.0}));
    on(drawn[0], {L"_scale"}, {L"", L"0,0", L"2"});
    on(drawn[2], {L"_scale"}, {L"", L"0,500", L"3"});
    EXPECT_EQ(state(), (std::array{0.0, 2000.0, -200.0, 300.0}));
    // Copied with its line it is tied to the copy, and alone to nothing.
    type({L"_copy"});
    pick(0, 0, {drawn[0], linear});
    type({L"", L"0,0", L"0,900", L""});
    const std::vector<AcDbObjectId> copied = entities();
    on(copied[copied.size() - 2], {L"_move"}, {L"", L"0,0", L"0,5"});
    expectPoint(Read<AcDbRotatedDimension>(last())->xLine1Point(), 0, 905);
    on(linear, {L"_move"}, {L"", L"0,0", L"0,-40"});
    on(drawn[0], {L"_move"}, {L"", L"0,0", L"0,33"});
    EXPECT_EQ(state(), (std::array{-40.0, 2000.0, -240.0, 300.0}));
    on(drawn[2], {L"_erase"}, {L""});
    EXPECT_EQ(state()[3], 300.0) << "a dimension outlives what it measured";
}

TEST_F(Draw, StylesAndTextsOfDimensions) {
    type({L"DIMTXT", L"5", L"_dimlinear", L"0,0", L"100,0", L"0,20", L"_dimstyle", L"s", L"Obra",
          L"DIMLFAC", L"0.1", L"DIMPOST", L"<> cm", L"_dimlinear", L"0,0", L"100,0", L"0,40"});
    const std::vector<AcDbObjectId> drawn = entities();
    const auto shown = [&](std::size_t i) { return Read<AcDbDimension>(drawn[i])->shownText(); };
    EXPECT_EQ(shown(0), L"100");
    EXPECT_EQ(shown(1), L"10 cm");
    type({L"_dimstyle", L"a"});
    pick(0, 20, {drawn[0]});
    type({L""});
    EXPECT_EQ(shown(0), L"10 cm");
    type({L"_dimstyle", L"r", L"standard"});
    EXPECT_EQ(editor->variables().text(L"DIMPOST"), L"");
    type({L"_dimtedit"});
    pick(0, 40, {drawn[1]});
    type({L"70,90"});
    expectPoint(Read<AcDbDimension>(drawn[1])->textPosition(), 70, 90);
    type({L"_dimedit", L"o", L"60"});
    pick(0, 40, {drawn[1]});
    type({L""});
    EXPECT_NEAR(Read<AcDbRotatedDimension>(drawn[1])->oblique(), kPi / 3, 1e-12);
    type({L"_dimedit", L""});
    pick(0, 40, {drawn[1]});
    type({L""});
    EXPECT_TRUE(Read<AcDbDimension>(drawn[1])->isUsingDefaultTextPosition());
}

TEST_F(Draw, DimensionOfAnObject) {
    type({L"_pline", L"0,0", L"100,0", L"100,30", L"0,30", L"_c"});
    type({L"_dimaligned", L""});
    pick(100, 10, {last()});
    type({L"120,0"});
    const Read<AcDbAlignedDimension> dimension(last());
    ASSERT_NE(dimension.object(), nullptr);
    expectPoint(dimension->xLine1Point(), 100, 0);
    expectPoint(dimension->xLine2Point(), 100, 30);
    EXPECT_DOUBLE_EQ(dimension->measurement(), 30);
}

TEST_F(Draw, DimensionOfACircleThatWasNotPicked) {
    // Its diameter along X, as no pick says another one.
    type({L"_circle", L"0,0", L"25", L"_dimaligned", L"", L"_l", L"0,40"});
    const Read<AcDbAlignedDimension> dimension(last());
    ASSERT_NE(dimension.object(), nullptr);
    EXPECT_DOUBLE_EQ(dimension->measurement(), 50);
    expectPoint(dimension->xLine2Point(), 25, 0);
}

double hatchedArea(AcDbObjectId id) {
    double area = 0.0;
    const Read<AcDbHatch> hatch(id);
    if (hatch.object() != nullptr) (void)hatch->getArea(area);
    return area;
}

TEST_F(Draw, HatchesFillWhatIsClosedAndFollowIt) {
    // A box of 10 x 6 with a gap of 3.2; closed; with a hole.
    type({L"line", L"0,0", L"10,0", L"10,6", L"0,6", L"0,3.2", L"", L"hachura", L"3,3", L""});
    EXPECT_TRUE(said(L"O contorno não está fechado: a maior abertura, 3,2 mm, está em 0.0,1.6."));
    EXPECT_EQ(count(), 4u);
    type({L"line", L"0,3.2", L"0,0", L"", L"circle", L"5,3", L"1", L"_hatch", L"1,3", L""});
    EXPECT_TRUE(said(L"Área = 56,86"));
    const AcDbObjectId box = last();
    const AcDbObjectId hole = entities()[5];
    const auto scale = [&](AcDbObjectId id, const wchar_t* about) {
        editor->selection().select({id});
        type({L"scale", about, L"2"});
    };
    EXPECT_NEAR(hatchedArea(box), 60.0 - kPi, 1e-9);
    // The hole twice as wide; the area of what touches nothing is that of the open.
    scale(hole, L"5,3");
    EXPECT_NEAR(hatchedArea(box), 60.0 - 4.0 * kPi, 1e-9);
    type({L"u"});
    EXPECT_NEAR(hatchedArea(box), 60.0 - kPi, 1e-9);
    // Its copy with its boundary follows the copies; one without stands alone.
    type({L"_copyclip", L"_all", L"", L"_pasteclip", L"100,0"});
    scale(entities()[12], L"105,3");
    EXPECT_NEAR(hatchedArea(last()), 60.0 - 4.0 * kPi, 1e-9);
    EXPECT_NEAR(hatchedArea(box), 60.0 - kPi, 1e-9);
    // Moved off its boundary, or left by it, it goes on alone.
    type({L"move", L"_l", L"", L"0,0", L"0,50"});
    EXPECT_TRUE(said(L"A hachura foi separada do contorno"));
    editor->selection().select({hole});
    type({L"erase"});
    EXPECT_TRUE(said(L"Um objeto do contorno foi apagado"));
    EXPECT_NEAR(hatchedArea(box), 60.0 - kPi, 1e-9);
    EXPECT_FALSE(Read<AcDbHatch>(box)->associative());
}

TEST_F(Draw, HatchPropertiesSelectionAndUndo) {
    type({L"circle", L"0,0",  L"10",       L"circle", L"0,0", L"5",    L"_hatch", L"p",
          L"p",      L"nada", L"concrete", L"p",      L"e",   L"0.5",  L"p",      L"a",
          L"30",     L"p",    L"s",        L"n",      L"s",   L"_all", L"",       L""});
    EXPECT_TRUE(said(L"Não existe o padrão \"nada\"."));
    EXPECT_NEAR(hatchedArea(last()), kPi * 75.0, 1e-9);
    {
        const Read<AcDbHatch> hatch(last());
        EXPECT_EQ(hatch->patternName(), L"CONCRETO");
        EXPECT_EQ(hatch->patternScale(), 0.5);
        EXPECT_NEAR(hatch->patternAngle(), kPi / 6, 1e-12);
        EXPECT_FALSE(hatch->associative());
    }
    // Too dense to be lines at all; undone; what was selected before is hatched at once.
    type({L"_hatch", L"_p", L"_s", L"0.00001", L"7,0", L"_p", L"_s", L"1", L"7,0", L"_u", L""});
    EXPECT_TRUE(said(L"O padrão é denso demais para esta área"));
    EXPECT_EQ(count(), 3u);
    type({L"_hatch", L"100,0", L""});
    EXPECT_TRUE(said(L"Nenhum contorno fechado em volta deste ponto."));
    editor->selection().select({entities()[1]});
    type({L"_hatch"});
    EXPECT_NEAR(hatchedArea(last()), kPi * 25.0, 1e-9);
    EXPECT_FALSE(editor->runner().active());
}

}  // namespace
}  // namespace builtin
