// SPDX-License-Identifier: MIT
// Object snaps.
#include "prancheta/graphics/snaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "prancheta/geometry/angles.h"

using namespace prancheta;

namespace {

const AcGeVector3d kZ = AcGeVector3d::kZAxis;
using Points = std::vector<AcGePoint3d>;

Points snaps(const Picture& picture, AcDb::OsnapMode mode, const AcGePoint3d& pick = {},
             const AcGePoint3d& last = {}) {
    Points out;
    appendSnaps(picture, mode, pick, last, out);
    return out;
}

bool has(const Points& points, const AcGePoint3d& p) {
    AcGeTol tol;
    tol.setEqualPoint(1e-9);
    return std::any_of(points.begin(), points.end(),
                       [&](const AcGePoint3d& q) { return q.isEqualTo(p, tol); });
}

Picture polyline(std::initializer_list<AcGePoint3d> points) {
    Picture picture;
    picture.addPolyline({}, {points.begin(), points.size()});
    return picture;
}

Picture circle(const AcGePoint3d& center, double radius) {
    Picture picture;
    picture.addCircle({}, center, radius, kZ);
    return picture;
}

}  // namespace

TEST(Snaps, OfAPolylineWithARoundEnd) {
    // U shape: straight 20 along x, half circle of radius 5 up to (20, 10), straight back.
    Picture picture;
    const AcGePoint3d points[4] = {{0, 0, 2}, {20, 0, 2}, {20, 10, 2}, {0, 10, 2}};
    const double bulges[4] = {0, 1, 0, 0};
    picture.addPline({}, points, bulges, false);
    const Points ends = snaps(picture, AcDb::kOsModeEnd);
    for (const AcGePoint3d& p : points) EXPECT_TRUE(has(ends, p));
    const Points middles = snaps(picture, AcDb::kOsModeMid);
    EXPECT_EQ(middles.size(), 3u);
    EXPECT_TRUE(has(middles, {10, 0, 2}));
    EXPECT_TRUE(has(middles, {25, 5, 2}));
    EXPECT_TRUE(has(snaps(picture, AcDb::kOsModeCen), {20, 5, 2}));
    const Points quadrants = snaps(picture, AcDb::kOsModeQuad);
    EXPECT_TRUE(has(quadrants, {25, 5, 2}));
    EXPECT_FALSE(has(quadrants, {15, 5, 2}));
    EXPECT_TRUE(has(snaps(picture, AcDb::kOsModeNear, {8, 3, 0}), {8, 0, 2}));
}

TEST(Snaps, NodesInsertionsAndWhatHasNone) {
    Picture picture = polyline({{3, 4, 0}});
    picture.addText({}, {1, 2, 0}, kZ, {1, 0, 0}, 2.5, 1, 0, L"nota");
    EXPECT_TRUE(has(snaps(picture, AcDb::kOsModeNode), {3, 4, 0}));
    EXPECT_EQ(snaps(picture, AcDb::kOsModeIns).size(), 1u);
    EXPECT_TRUE(has(snaps(picture, AcDb::kOsModeIns), {1, 2, 0}));
    EXPECT_TRUE(snaps(picture, AcDb::kOsModeEnd).empty());
    EXPECT_TRUE(snaps(picture, AcDb::kOsModePerp).empty());
    EXPECT_TRUE(snaps(circle({0, 0, 0}, 1), AcDb::kOsModeEnd).empty());
    EXPECT_EQ(snaps(circle({0, 0, 0}, 1), AcDb::kOsModeQuad).size(), 4u);
}

TEST(Snaps, PerpendicularTakesThePickedEdgeAndItsExtension) {
    const Picture corner = polyline({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}});
    EXPECT_TRUE(has(snaps(corner, AcDb::kOsModePerp, {5, 1, 0}, {3, 7, 0}), {3, 0, 0}));
    EXPECT_TRUE(has(snaps(corner, AcDb::kOsModePerp, {9, 6, 0}, {3, 7, 0}), {10, 7, 0}));
    EXPECT_TRUE(has(snaps(corner, AcDb::kOsModePerp, {5, 1, 0}, {-4, 7, 0}), {-4, 0, 0}));
    const Points onCircle = snaps(circle({0, 0, 0}, 5), AcDb::kOsModePerp, {5, 0, 0}, {30, 40, 0});
    EXPECT_TRUE(has(onCircle, {3, 4, 0}));
    EXPECT_TRUE(has(onCircle, {-3, -4, 0}));
}

TEST(Snaps, TangentsFromAPoint) {
    // From (25, 0) to the circle of radius 15: contact at x = 225 / 25 = 9, y = +-12.
    const Points points = snaps(circle({0, 0, 0}, 15), AcDb::kOsModeTan, {}, {25, 0, 0});
    EXPECT_TRUE(has(points, {9, 12, 0}));
    EXPECT_TRUE(has(points, {9, -12, 0}));
    EXPECT_TRUE(snaps(circle({0, 0, 0}, 15), AcDb::kOsModeTan, {}, {5, 0, 0}).empty());
}

TEST(Snaps, IntersectionsOfLinesAndArcs) {
    const auto crossings = [](const Picture& a, const Picture& b) {
        Points out;
        appendIntersections(a, b, {0, 0, 0}, 1000, out);
        return out;
    };
    const Picture level = polyline({{-20, 3, 0}, {20, 3, 0}});
    EXPECT_TRUE(has(crossings(level, polyline({{0, 0, 0}, {10, 10, 0}})), {3, 3, 0}));
    EXPECT_TRUE(crossings(level, polyline({{0, 4, 0}, {10, 10, 0}})).empty());
    EXPECT_TRUE(crossings(level, level).empty());
    // Line y = 3 and circle of radius 5: x = +-4; the tangent y = 3 of radius 3 touches once.
    const Points chord = crossings(circle({0, 0, 0}, 5), level);
    EXPECT_EQ(chord.size(), 2u);
    EXPECT_TRUE(has(chord, {4, 3, 0}));
    EXPECT_TRUE(has(chord, {-4, 3, 0}));
    EXPECT_EQ(crossings(level, circle({0, 0, 0}, 3)).size(), 1u);
    // Circles of radius 5 about (0,0) and (6,0): x = 3, y = +-4.
    const Points lens = crossings(circle({0, 0, 0}, 5), circle({6, 0, 0}, 5));
    EXPECT_TRUE(has(lens, {3, 4, 0}));
    EXPECT_TRUE(has(lens, {3, -4, 0}));
    EXPECT_TRUE(crossings(circle({0, 0, 0}, 5), circle({0, 0, 0}, 4)).empty());
    Points near;
    appendIntersections(circle({0, 0, 0}, 5), level, {4, 3.1, 0}, 0.5, near);
    ASSERT_EQ(near.size(), 1u);
    EXPECT_TRUE(has(near, {4, 3, 0}));
}
