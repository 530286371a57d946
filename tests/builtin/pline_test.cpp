// SPDX-License-Identifier: MIT
// PLINE: corners, bulges, widths.
#include <cmath>

#include "prancheta/editor/commands/arcs.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

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

}  // namespace
}  // namespace builtin
