// SPDX-License-Identifier: MIT
// PLINE, RECTANG, POLYGON: corners, bulges, widths.
#include <cmath>

#include "prancheta/editor/commands/arcs.h"
#include "prancheta/geometry/angles.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

using prancheta::kPi;

struct Corner {
    double x, y, bulge;
};

class Pline : public Builtin {
protected:
    void expectCorners(const std::vector<Corner>& corners, bool closed) {
        const Read<AcDbPolyline> polyline(last());
        ASSERT_NE(polyline.object(), nullptr);
        EXPECT_EQ(polyline->isClosed(), closed);
        ASSERT_EQ(polyline->numVerts(), corners.size());
        for (unsigned int i = 0; i < corners.size(); ++i) {
            AcGePoint3d p;
            double bulge = 0.0;
            ASSERT_EQ(polyline->getPointAt(i, p), Acad::eOk);
            ASSERT_EQ(polyline->getBulgeAt(i, bulge), Acad::eOk);
            SCOPED_TRACE(i);
            expectPoint(p, corners[i].x, corners[i].y);
            EXPECT_NEAR(bulge, corners[i].bulge, 1e-9);
        }
    }
};

TEST_F(Pline, LinesClosedAndUndoneAsOne) {
    type({L"polilinha", L"0,0", L"10,0", L"@0,5", L"@-10,0", L"_c"});
    expectCorners({{0, 0, 0}, {10, 0, 0}, {10, 5, 0}, {0, 5, 0}}, true);
    EXPECT_EQ(count(), 1u);
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
    type({L"_redo"});
    expectCorners({{0, 0, 0}, {10, 0, 0}, {10, 5, 0}, {0, 5, 0}}, true);
}

TEST_F(Pline, TangentArcsOfASlot) {
    // A slot 20 by 10: both ends are half circles (bulge 1), the second one drawn by closing.
    type({L"_pline", L"0,0", L"20,0", L"_a", L"20,10", L"_l", L"0,10", L"_a", L"_cl"});
    expectCorners({{0, 0, 0}, {20, 0, 1}, {20, 10, 0}, {0, 10, 1}}, true);
}

TEST_F(Pline, ArcsByTheirOptions) {
    const double quarter = std::tan(3.14159265358979323846 / 8);
    // A quarter turn to the left: by its angle, about a centre, by a radius, through the middle of
    // the arc, by a starting direction. Chords of a quarter circle of radius 10 are (10,10).
    const double m = 10.0 * std::sqrt(0.5);
    const std::wstring middle = std::to_wstring(m) + L"," + std::to_wstring(10.0 - m);
    type({L"_pline", L"0,0", L"_a", L"_a", L"90", L"10,10", L""});
    expectCorners({{0, 0, quarter}, {10, 10, 0}}, false);
    // The end is taken onto the circle.
    type({L"_pline", L"0,0", L"_a", L"_ce", L"0,10", L"17,10", L""});
    expectCorners({{0, 0, quarter}, {10, 10, 0}}, false);
    type({L"_pline", L"0,0", L"_a", L"_r", L"10", L"10,10", L""});
    expectCorners({{0, 0, quarter}, {10, 10, 0}}, false);
    type({L"_pline", L"0,0", L"_a", L"_d", L"0", L"10,10", L""});
    expectCorners({{0, 0, quarter}, {10, 10, 0}}, false);
    type({L"_pline", L"0,0", L"_a", L"_s", middle.c_str(), L"10,10", L""});
    const Read<AcDbPolyline> polyline(last());
    double bulge = 0.0;
    ASSERT_EQ(polyline->getBulgeAt(0, bulge), Acad::eOk);
    EXPECT_NEAR(bulge, quarter, 1e-6);
}

TEST_F(Pline, ClockwiseArcsAndArcsThatDoNotExist) {
    EXPECT_NEAR(*prancheta::commands::bulgeThrough({0, 0, 0}, {1, 1, 0}, {2, 0, 0}), -1, 1e-12);
    EXPECT_NEAR(*prancheta::commands::bulgeThrough({0, 0, 0}, {1, -1, 0}, {2, 0, 0}), 1, 1e-12);
    EXPECT_NEAR(*prancheta::commands::bulgeByDirection({0, 0, 0}, {2, 0, 0}, 1.5707963267948966),
                -1, 1e-12);
    // Straight back, on one line, too small a radius.
    EXPECT_FALSE(prancheta::commands::bulgeByDirection({0, 0, 0}, {-2, 0, 0}, 0.0));
    EXPECT_FALSE(prancheta::commands::bulgeThrough({0, 0, 0}, {1, 0, 0}, {2, 0, 0}));
    EXPECT_FALSE(prancheta::commands::bulgeByRadius({0, 0, 0}, {2, 0, 0}, 0.9));
    type({L"_pline", L"0,0", L"10,0", L"_a", L"5,0", L"10,10", L""});
    EXPECT_TRUE(said(L"Não existe um arco assim."));
    expectCorners({{0, 0, 0}, {10, 0, 1}, {10, 10, 0}}, false);
}

TEST_F(Pline, UndoWithinTheCommand) {
    type({L"_pline", L"0,0", L"_u", L"10,0", L"_a", L"10,10", L"_u", L"_u", L"_l", L"0,7", L"@1,0",
          L""});
    expectCorners({{0, 0, 0}, {0, 7, 0}, {1, 7, 0}}, false);
    EXPECT_EQ(count(), 1u);
}

TEST_F(Pline, WidthsAndLength) {
    // A taper from 2 to 4; what follows stays 4 wide. Length goes on in the same direction: 3-4-5
    // twice.
    type({L"_pline", L"0,0", L"_w", L"2", L"4", L"3,4", L"_l", L"5", L"_h", L"0.5", L"", L"6,0",
          L""});
    expectCorners({{0, 0, 0}, {3, 4, 0}, {6, 8, 0}, {6, 0, 0}}, false);
    const Read<AcDbPolyline> polyline(last());
    const double widths[][2] = {{2, 4}, {4, 4}, {1, 1}};
    for (unsigned int i = 0; i < 3; ++i) {
        double start = 0.0;
        double end = 0.0;
        ASSERT_EQ(polyline->getWidthsAt(i, start, end), Acad::eOk);
        EXPECT_DOUBLE_EQ(start, widths[i][0]);
        EXPECT_DOUBLE_EQ(end, widths[i][1]);
    }
}

TEST_F(Pline, EscapeKeepsWhatIsDrawn) {
    type({L"_pline", L"0,0", L"10,0,0", L"^C"});
    expectCorners({{0, 0, 0}, {10, 0, 0}}, false);
    type({L"_pline", L"0,0", L"^C"});
    EXPECT_EQ(count(), 1u);
}

struct ShapeCase {
    std::initializer_list<const wchar_t*> lines;
    std::vector<Corner> corners;
};

TEST_F(Pline, Rectangles) {
    const double quarter = std::tan(kPi / 8);
    const ShapeCase cases[] = {
        {{L"retang", L"0,0", L"30,20"}, {{0, 0, 0}, {30, 0, 0}, {30, 20, 0}, {0, 20, 0}}},
        {{L"_rec", L"1000000,0", L"@-30,20"},
         {{1000000, 0, 0}, {999970, 0, 0}, {999970, 20, 0}, {1000000, 20, 0}}},
        // No area, then one: refused, and asked again.
        {{L"_rectang", L"5,5", L"@7,0", L"6,6"}, {{5, 5, 0}, {6, 5, 0}, {6, 6, 0}, {5, 6, 0}}},
        // By the sides, on the side of a point; by area and one side.
        {{L"_rectang", L"0,0", L"_d", L"8", L"3", L"-1,-1"},
         {{0, 0, 0}, {-8, 0, 0}, {-8, -3, 0}, {0, -3, 0}}},
        {{L"_rectang", L"0,0", L"_a", L"40", L"_w", L"5", L"1,1"},
         {{0, 0, 0}, {8, 0, 0}, {8, 5, 0}, {0, 5, 0}}},
        // Turned by the direction of two points: 3, 4, 5.
        {{L"_rectang", L"0,0", L"_r", L"_p", L"1,1", L"5,4", L"_d", L"10", L"5", L"0,1"},
         {{0, 0, 0}, {8, 6, 0}, {5, 10, 0}, {-3, 4, 0}}},
        // The first distance lies on the side that arrives, the second on the one that leaves.
        {{L"_rectang", L"_c", L"1", L"2", L"0,0", L"_r", L"0", L"10,10"},
         {{0, 1, 0},
          {2, 0, 0},
          {9, 0, 0},
          {10, 2, 0},
          {10, 9, 0},
          {8, 10, 0},
          {1, 10, 0},
          {0, 8, 0}}},
        {{L"_rectang", L"0,0", L"1,1"}, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}},
        // Rounded, drawn clockwise: the arcs turn the other way.
        {{L"_rectang", L"_f", L"2", L"0,0", L"10,-8"},
         {{0, -2, -quarter},
          {2, 0, 0},
          {8, 0, -quarter},
          {10, -2, 0},
          {10, -6, -quarter},
          {8, -8, 0},
          {2, -8, -quarter},
          {0, -6, 0}}},
        // As round as it can be: the short sides go. The area is that of the slot.
        {{L"_rectang", L"0,0", L"_a", L"36.566370614359172", L"_l", L"10", L"1,1"},
         {{0, 2, quarter},
          {2, 0, 0},
          {8, 0, quarter},
          {10, 2, quarter},
          {8, 4, 0},
          {2, 4, quarter}}},
    };
    for (const ShapeCase& each : cases) {
        SCOPED_TRACE(&each - cases);
        type(each.lines);
        expectCorners(each.corners, true);
    }
    EXPECT_EQ(count(), std::size(cases));
    EXPECT_EQ(ui.complaints.size(), 1u);
    EXPECT_TRUE(said(L"O chanfro não cabe no retângulo: os cantos ficam vivos."));
    EXPECT_TRUE(said(L"Modos atuais do retângulo:  Chanfro=1.0000  e=2.0000"));
}

TEST_F(Pline, Polygons) {
    const double r = 10.0;
    const double h = std::sqrt(75.0);  // height of a triangle with sides of 10
    const ShapeCase cases[] = {
        // A side lies below the centre when the radius is typed; a corner stands where it is shown.
        {{L"poligono", L"4", L"0,0", L"_c", L"10"},
         {{r, -r, 0}, {r, r, 0}, {-r, r, 0}, {-r, -r, 0}}},
        {{L"_polygon", L"", L"0,0", L"", L"10,0"},
         {{r, r, 0}, {-r, r, 0}, {-r, -r, 0}, {r, -r, 0}}},
        {{L"_polygon", L"4", L"0,0", L"_i", L"0,10"},
         {{0, r, 0}, {-r, 0, 0}, {0, -r, 0}, {r, 0, 0}}},
        {{L"_polygon", L"6", L"0,0", L"_i", L"10"},
         {{5, -h, 0}, {10, 0, 0}, {5, h, 0}, {-5, h, 0}, {-10, 0, 0}, {-5, -h, 0}}},
        {{L"_pol", L"2", L"3", L"_e", L"0,0", L"0,0", L"10,0"}, {{0, 0, 0}, {10, 0, 0}, {5, h, 0}}},
    };
    for (const ShapeCase& each : cases) {
        SCOPED_TRACE(&each - cases);
        type(each.lines);
        expectCorners(each.corners, true);
    }
    EXPECT_EQ(ui.complaints.size(), 2u);  // two sides; a side without length
}

}  // namespace
}  // namespace builtin
