// SPDX-License-Identifier: MIT
// Hatches: their area, their lines, and what their groups say.
#include "dbhatch.h"
#include "fixture.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/hatch_lines.h"
#include "prancheta/entities/hatch_tags.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/hit.h"

using namespace prancheta;

namespace {

using HatchTest = EntityTest;
using Strokes = std::vector<std::array<double, 4>>;

/// Groups from text such as "70 1|91 0".
RawTags tagsOf(std::string_view text) {
    RawTags tags;
    while (!text.empty()) {
        const std::size_t bar = std::min(text.find('|'), text.size());
        const std::string_view group = text.substr(0, bar);
        const std::size_t blank = group.find(' ');
        tags.push_back({std::stoi(std::string(group)), std::string(group.substr(blank + 1))});
        text.remove_prefix(std::min(bar + 1, text.size()));
    }
    return tags;
}

std::string textOf(const RawTags& tags) {
    std::string text;
    for (const RawTag& tag : tags)
        text += (text.empty() ? "" : "|") + std::to_string(tag.code) + " " + tag.value;
    return text;
}

const std::string kHead = "10 0|20 0|30 0|210 0|220 0|230 1|";
/// Outer path: 10 x 10 square of edges whose right side is an arc bulging outwards; inner path: 2 x
/// 2 square as a polyline.
const std::string kPaths =
    "91 2|92 1|93 4|72 1|10 0|20 0|11 10|21 0|72 2|10 10|20 5|40 5|50 270|51 450|73 1|72 1|10 "
    "10|20 "
    "10|11 0|21 10|72 1|10 0|20 10|11 0|21 0|97 0|92 2|72 0|73 1|93 4|10 4|20 4|10 6|20 4|10 6|20 "
    "6|10 4|20 6|97 0|75 0|76 1|";
const std::string kSolid = kHead + "2 SOLID|70 1|71 0|" + kPaths + "98 1|10 1|20 1";
const std::string kLines = kHead + "2 LINHAS|70 0|71 0|" + kPaths +
                           "52 45|41 2|77 0|78 1|53 45|43 1|44 2|45 -0.5|46 0.5|79 2|49 1|49 "
                           "-0.25|98 1|10 1|20 1";

std::unique_ptr<AcDbHatch> hatch(const std::string& groups) {
    auto made = std::make_unique<AcDbHatch>();
    EXPECT_TRUE(readHatch(tagsOf(groups), {}, *made)) << groups;
    return made;
}

HatchOutline circle(double x, double y, double radius) {
    return {{x - radius, y, 1.0}, {x + radius, y, 1.0}};
}

Strokes strokesOf(std::span<const HatchOutline> outlines, const HatchFamily& family) {
    Strokes strokes;
    EXPECT_TRUE(patternStrokes(outlines, {&family, 1}, [&](const auto& a, const auto& b) {
        strokes.push_back({a.x, a.y, b.x, b.y});
    }));
    return strokes;
}

}  // namespace

TEST_F(HatchTest, FillsAroundItsHolesAndKnowsItsArea) {
    const auto solid = hatch(kSolid);
    const Picture picture = pictureOf(*solid);
    ASSERT_EQ(picture.size(), 1u);
    EXPECT_TRUE(near(picture.extents().maxPoint(), {15, 10, 0}, 0.001));
    EXPECT_EQ(distanceTo(picture, {2, 8, 0}), 0.0);
    EXPECT_GT(distanceTo(picture, {5, 5.1, 0}), 0.5);
    double area = 0.0;
    ASSERT_EQ(solid->getArea(area), Acad::eOk);
    // The square, half a disc of radius 5, less the hole.
    EXPECT_NEAR(area, 100.0 + kPi * 25.0 / 2.0 - 4.0, 1e-9);
    expectRoundTrip(*solid);
    EXPECT_TRUE(pictureOf(*copyOf(*hatch(kLines))) == pictureOf(*hatch(kLines)));
    // A disc in a ring, in a ring: every other one counts. Half of a whole turn's ellipse.
    const HatchOutline rings[] = {circle(0, 0, 1), circle(0, 0, 3), circle(0, 0, 2)};
    EXPECT_NEAR(areaBetween(rings), kPi * (9.0 - 4.0 + 1.0), 1e-9);
    const auto ellipse =
        hatch(kHead +
              "2 SOLID|70 1|71 0|91 1|92 1|93 1|72 3|10 5|20 5|11 4|21 0|40 0.5|50 "
              "0|51 360|73 1|97 0|75 0|76 1|98 0");
    ASSERT_EQ(ellipse->getArea(area), Acad::eOk);
    EXPECT_NEAR(area, kPi * 4.0 * 2.0, 2e-3);
    // A spline that is a parabola, 5 high over 10: two thirds of the rectangle about it.
    const auto parabola =
        hatch(kHead +
              "2 SOLID|70 1|71 0|91 1|92 1|93 2|72 4|94 2|73 0|74 0|95 6|96 3|40 0|40 0|40 0|40 "
              "1|40 1|40 1|10 0|20 0|10 5|20 10|10 10|20 0|72 1|10 10|20 0|11 0|21 0|97 0|75 0|76 "
              "1|98 0");
    ASSERT_EQ(parabola->getArea(area), Acad::eOk);
    EXPECT_NEAR(area, 100.0 / 3.0, 2e-3);
}

TEST_F(HatchTest, StylesLeaveOutTheInnerLoops) {
    const std::string loop[] = {"92 17|72 1|73 1|93 2|10 -5|20 0|42 1|10 5|20 0|42 1|97 0|",
                                "92 18|72 1|73 1|93 2|10 -3|20 0|42 1|10 3|20 0|42 1|97 0|",
                                "92 2|72 1|73 1|93 2|10 -1|20 0|42 1|10 1|20 0|42 1|97 0|"};
    const double areas[] = {kPi * (25 - 9 + 1), kPi * (25 - 9), kPi * 25};
    for (int style = 0; style < 3; ++style) {
        std::string first = loop[0];
        first.replace(0, 5, "92 3");
        const auto one = hatch(kHead + "2 SOLID|70 1|71 0|91 3|" + first + loop[1] + loop[2] +
                               "75 " + std::to_string(style) + "|76 1|98 0");
        double area = 0.0;
        ASSERT_EQ(one->getArea(area), Acad::eOk);
        EXPECT_NEAR(area, areas[style], 1e-9) << style;
    }
}

TEST_F(HatchTest, LinesEndExactlyOnTheBoundary) {
    // Lines at 0.5, 1.5, ... 4.5 on both sides; those at 0.5 and 1.5 are cut by the hole.
    const HatchOutline ring[] = {circle(0, 0, 5), circle(0, 0, 2)};
    const Strokes level = strokesOf(ring, {0.0, {0, 0.5}, {0.25, 1, 0}, {}});
    ASSERT_EQ(level.size(), 14u);
    for (const auto& s : level)
        for (const int i : {0, 2}) {
            const double r = std::hypot(s[i], s[i + 1]);
            EXPECT_NEAR(r, r < 3.5 ? 2.0 : 5.0, 1e-12);
        }
    // Turned by 30 degrees the ring gives the same lines, turned.
    const double a = kPi / 6;
    const HatchFamily turned{
        a, {-0.5 * std::sin(a), 0.5 * std::cos(a)}, {-std::sin(a), std::cos(a), 0}, {}};
    double lengths[2] = {};
    for (const auto& s : level) lengths[0] += std::hypot(s[2] - s[0], s[3] - s[1]);
    const Strokes sloped = strokesOf(ring, turned);
    for (const auto& s : sloped) lengths[1] += std::hypot(s[2] - s[0], s[3] - s[1]);
    EXPECT_EQ(sloped.size(), level.size());
    EXPECT_NEAR(lengths[1], lengths[0], 1e-9);
    // Lines through the corners of a square count once there.
    const HatchOutline square[] = {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}};
    EXPECT_EQ(strokesOf(square, {0.0, {0, 0}, {0, 5, 0}, {}}).size(), 2u);
    const HatchOutline diamond[] = {{{0, -5}, {5, 0}, {0, 5}, {-5, 0}}};
    EXPECT_EQ(strokesOf(diamond, {0.0, {0, 0}, {0, 2.5, 0}, {}}).size(), 3u);
}

TEST_F(HatchTest, DashesOfEachLineBeginAtItsOwnBase) {
    const HatchOutline square[] = {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}};
    const Strokes strokes = strokesOf(square, {0.0, {0, 2.5}, {1, 5, 0}, {2.0, -2.0}});
    const Strokes wanted = {{0, 2.5, 2, 2.5}, {4, 2.5, 6, 2.5}, {8, 2.5, 10, 2.5},
                            {1, 7.5, 3, 7.5}, {5, 7.5, 7, 7.5}, {9, 7.5, 10, 7.5}};
    EXPECT_EQ(strokes, wanted);
    // Dots are short strokes, gaps are none.
    EXPECT_EQ(strokesOf(square, {0.0, {0, 2.5}, {0, 5, 0}, {0.0, -5.0}}).size(), 4u);
}

TEST_F(HatchTest, WhatIsTooDenseShowsItsBoundary) {
    const HatchOutline square[] = {{{0, 0}, {1e6, 0}, {1e6, 1e6}, {0, 1e6}}};
    for (const HatchFamily& dense :
         {HatchFamily{0.3, {}, {0, 1, 0}, {}}, HatchFamily{0.0, {}, {0, 5e5, 0}, {1.0, -1.0}},
          HatchFamily{0.0, {}, {0, 1e-300, 0}, {}}}) {
        const auto never = [](const AcGePoint2d&, const AcGePoint2d&) { FAIL(); };
        // Lines that all lie in one give none, which is not dense.
        EXPECT_EQ(patternStrokes(square, {&dense, 1}, never), dense.offset.y == 1e-300);
    }
    AcDbHatch hatch;
    HatchLoop loop;
    loop.vertices = square[0];
    (void)hatch.setLoops({loop});
    (void)hatch.setSolidFill(false);
    (void)hatch.setPattern(1, L"FINO", 0, 1, false, {{0.0, {}, {0, 1, 0}, {}}});
    const Picture picture = pictureOf(hatch);
    ASSERT_EQ(picture.size(), 1u);
    EXPECT_EQ(picture[0].kind(), PrimitiveKind::Pline);
    hatch.list();
    EXPECT_NE(takePrinted().find(L"denso demais"), std::wstring::npos);
}

TEST_F(HatchTest, MovesAsItIsDrawnAndTellsItByItsGroups) {
    const auto solid = hatch(kSolid);
    const auto lines = hatch(kLines);
    const AcGeMatrix3d m = AcGeMatrix3d::translation({30, -7, 4}) *
                           AcGeMatrix3d::rotation(0.6, AcGeVector3d::kZAxis) *
                           AcGeMatrix3d::scaling(2);
    Picture moved = pictureOf(*lines);
    moved.transform(m);
    ASSERT_EQ(lines->transformBy(m), Acad::eOk);
    EXPECT_EQ(pictureOf(*lines).size(), moved.size());
    EXPECT_TRUE(near(pictureOf(*lines).extents().maxPoint(), moved.extents().maxPoint(), 1e-6));
    EXPECT_TRUE(near(pictureOf(*lines).extents().minPoint(), moved.extents().minPoint(), 1e-6));
    AcGeMatrix3d turn;
    turn.setCoordSystem({100, 0, 0}, {0, 2, 0}, {-2, 0, 0}, {0, 0, 2});
    const AcGeMatrix3d mirror = AcGeMatrix3d::mirroring({50, 0, 0}, {1, 0, 0});
    const std::string ansi =
        kHead +
        "2 ANSI31|70 0|71 0|91 0|75 0|76 1|52 0|41 1|77 0|78 1|53 45|43 1|44 2|45 -2|46 "
        "2|79 0|98 1|10 3|20 4";
    struct Case {
        const AcGeMatrix3d& by;
        const char* after;
    };
    for (const Case& c :
         {Case{mirror, "52 90|41 1|77 0|78 1|53 135|43 99|44 2|45 2|46 2|79 0|98 1|10 97|20 4"},
          Case{turn, "52 90|41 2|77 0|78 1|53 135|43 96|44 2|45 -4|46 -4|79 0|98 1|10 92|20 6"}}) {
        const auto one = hatch(ansi);
        ASSERT_EQ(one->transformBy(c.by), Acad::eOk);
        const std::string after = textOf(hatchTags(*one));
        EXPECT_EQ(after.substr(after.find("52 ")), c.after);
    }
    AcGeMatrix3d stretched;
    stretched.entry[0][0] = 2.0;
    EXPECT_EQ(solid->transformBy(stretched), Acad::eCannotScaleNonUniformly);
    // A clockwise arc gives its angles clockwise: right half of a disc from the top over the right.
    const auto half = hatch(kHead +
                            "2 SOLID|70 1|71 0|91 1|92 1|93 2|72 2|10 0|20 0|40 5|50 270|51 "
                            "450|73 0|72 1|10 0|20 -5|11 0|21 5|97 0|75 0|76 1|98 0");
    EXPECT_TRUE(near(pictureOf(*half).extents().minPoint(), {0, -5, 0}));
    EXPECT_TRUE(near(pictureOf(*half).extents().maxPoint(), {5, 5, 0}, 0.001));
    expectRoundTrip(*half);
}

TEST_F(HatchTest, GripsMoveAllOfItOrACorner) {
    const auto one = hatch(kSolid);
    AcGePoint3dArray points;
    AcDbIntArray modes;
    AcDbIntArray ids;
    ASSERT_EQ(one->getGripPoints(points, modes, ids), Acad::eOk);
    ASSERT_EQ(points.length(), 5);
    EXPECT_TRUE(near(points[0], {7.5, 5, 0}));
    AcDbIntArray corner;
    corner.append(1);
    ASSERT_EQ(one->moveGripPointsAt(corner, {-1, 0, 0}), Acad::eOk);
    double area = 0.0;
    ASSERT_EQ(one->getArea(area), Acad::eOk);
    EXPECT_NEAR(area, 100.0 + kPi * 12.5 - 5.0, 1e-9);  // the hole grew by a triangle of 1 x 2
    // Snaps are those of the boundary: 4 + 4 corners twice, as ends of two edges.
    AcGePoint3dArray ends;
    ASSERT_EQ(one->getOsnapPoints(AcDb::kOsModeEnd, 0, {}, {}, {}, ends, ids), Acad::eOk);
    EXPECT_EQ(ends.length(), 16);
}

TEST_F(HatchTest, GroupsComeBackAsTheyWere) {
    const std::string spline =
        kHead +
        "2 SOLID|70 1|71 0|91 1|92 1|93 2|72 4|94 3|73 0|74 0|95 8|96 4|40 0|40 0|40 0|40 "
        "0|40 1|40 1|40 1|40 1|10 0|20 0|10 0|20 5|10 5|20 5|10 5|20 0|";
    const std::string rest = "72 1|10 5|20 0|11 0|21 0|97 0|75 0|76 1|47 0.5|98 0";
    for (const std::string& groups :
         {kSolid, kLines, spline + rest,
          spline + "97 2|11 0|21 0|11 5|21 0|12 0|22 1|13 0|23 -1|" + rest,
          spline + "97 0|" + rest})
        EXPECT_EQ(textOf(hatchTags(*hatch(groups))), groups);
    // What is not in its place is refused, and what came before it is still shown.
    const std::pair<const char*, const char*> damages[] = {{"93 4|10 4", "93 5|10 4"},
                                                           {"72 2|", "72 9|"},
                                                           {"79 2|", "79 3|"},
                                                           {"76 1|", "76 1|999 1|"},
                                                           {"91 2|", "91 3|"}};
    for (const auto& [good, bad] : damages) {
        std::string damaged = kLines;
        damaged.replace(damaged.find(good), std::string_view(good).size(), bad);
        AcDbHatch read;
        EXPECT_FALSE(readHatch(tagsOf(damaged), {}, read)) << bad;
        ForeignEntity kept;
        ASSERT_EQ(kept.setContent("HATCH", tagsOf(damaged)), Acad::eOk);
        EXPECT_EQ(pictureOf(kept).empty(), std::string_view(good) == "72 2|") << bad;
    }
}
