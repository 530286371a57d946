// SPDX-License-Identifier: MIT
// Pictures: equality, extents, chords.
#include "prancheta/graphics/picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"
#include "prancheta/graphics/same_drawn.h"

using namespace prancheta;

namespace {

const AcGeVector3d kZ = AcGeVector3d::kZAxis;

void expectBox(const Picture& picture, const AcGePoint3d& lower, const AcGePoint3d& upper) {
    AcGeTol tol;
    tol.setEqualPoint(1e-9);
    const AcDbExtents box = picture.extents();
    EXPECT_TRUE(box.minPoint().isEqualTo(lower, tol))
        << box.minPoint().x << ' ' << box.minPoint().y;
    EXPECT_TRUE(box.maxPoint().isEqualTo(upper, tol))
        << box.maxPoint().x << ' ' << box.maxPoint().y;
}

/// A lipped plate: slot with round ends, hole, label.
Picture sample(const AcGePoint3d& at) {
    Picture picture;
    const AcGePoint3d slot[4] = {at, at + AcGeVector3d(30, 0, 0), at + AcGeVector3d(30, 10, 0),
                                 at + AcGeVector3d(0, 10, 0)};
    const double bulges[4] = {0, 1, 0, 1};
    PictureTraits red;
    red.color = 1;
    picture.addPline(red, slot, bulges, true);
    picture.addCircle({}, at + AcGeVector3d(15, 5, 0), 2, kZ);
    picture.addArc({}, at, 4, kZ, {1, 0, 0}, kPi / 2);
    picture.addText({}, at, kZ, {1, 0, 0}, 2.5, 1, 0, L"U 75x40");
    return picture;
}

}  // namespace

TEST(Picture, MovedPiecesBroughtBackAreEqualAndShareTheirHash) {
    const Picture piece = sample({0, 0, 0});
    const AcGeMatrix3d place =
        AcGeMatrix3d::translation({12345.678, -987.65, 0}) * AcGeMatrix3d::rotation(0.7, kZ);
    Picture moved = piece;
    moved.transform(place);
    EXPECT_FALSE(moved == piece);
    EXPECT_NE(moved.hash(), piece.hash());
    moved.transform(place.inverse());
    EXPECT_TRUE(moved == piece);
    EXPECT_EQ(moved.hash(), piece.hash());
}

TEST(Picture, EveryPropertyCountsForEqualityExceptTheMarker) {
    const AcGePoint3d segment[2] = {{0, 0, 0}, {1, 0, 0}};
    const auto drawn = [&](const PictureTraits& traits) {
        Picture picture;
        picture.addPolyline(traits, segment);
        return picture;
    };
    const Picture plain = drawn({});
    PictureTraits other;
    other.marker = 7;
    EXPECT_TRUE(drawn(other) == plain);
    EXPECT_EQ(drawn(other).hash(), plain.hash());
    int word = 0;
    for (const auto change : {+[](PictureTraits&t, int*) { t.color = 3; },
                              +[](PictureTraits&t, int*) { t.linetypeScale = 2; },
                              +[](PictureTraits&t, int*) { t.lineWeight = AcDb::kLnWt050; },
                              +[](PictureTraits&t, int*w) {
                                  t.layer.setFromOldId(reinterpret_cast<Adesk::LongPtr>(w));
                              },
                              +[](PictureTraits&t, int*w) {
                                  t.linetype.setFromOldId(reinterpret_cast<Adesk::LongPtr>(w));
                              }}) {
        PictureTraits changed;
        change(changed, &word);
        EXPECT_FALSE(drawn(changed) == plain);
        EXPECT_NE(drawn(changed).hash(), plain.hash());
    }
    Picture a;
    Picture b;
    a.addText({}, {}, kZ, {1, 0, 0}, 2, 1, 0, L"75");
    b.addText({}, {}, kZ, {1, 0, 0}, 2, 1, 0, L"76");
    EXPECT_FALSE(a == b);
}

TEST(Picture, ExtentsOfArcsReachTheirQuadrants) {
    Picture arc;
    // From 30 to 150 degrees about (100, 50), radius 10: top at y = 60, ends at y = 55.
    const AcGeVector3d start(std::cos(kPi / 6), 0.5, 0);
    arc.addArc({}, {100, 50, 0}, 10, kZ, start, 2 * kPi / 3);
    const double half = 10 * std::sqrt(3.0) / 2;
    expectBox(arc, {100 - half, 55, 0}, {100 + half, 60, 0});
    Picture slot = sample({0, 0, 0});
    // The slot's round ends of radius 5 stick out to -5 and 35; the arc of radius 4 stays inside.
    EXPECT_NEAR(slot.extents().minPoint().x, -5, 1e-9);
    EXPECT_NEAR(slot.extents().maxPoint().x, 35, 1e-9);
    Picture upright;
    upright.addCircle({}, {0, 0, 0}, 3, {0, 1, 0});
    expectBox(upright, {-3, 0, -3}, {3, 0, 3});
    EXPECT_TRUE(Picture().extents().isEmpty());
}

TEST(Picture, WhatCannotBeDrawnIsLeftOut) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Picture picture;
    const AcGePoint3d bad[2] = {{0, 0, 0}, {nan, 0, 0}};
    const double bulges[2] = {0, nan};
    const AcGePoint3d good[2] = {{0, 0, 0}, {1, 0, 0}};
    picture.addPolyline({}, bad);
    picture.addPolyline({}, {});
    picture.addPolygon({}, good);
    picture.addPline({}, good, bulges, false);
    picture.addCircle({}, {}, 0, kZ);
    picture.addCircle({}, {}, -1, kZ);
    picture.addArc({}, {}, 1, kZ, {}, 1);
    picture.addArc({}, {}, 1, kZ, {1, 0, 0}, 0);
    picture.addText({}, {}, kZ, {1, 0, 0}, 0, 1, 0, L"x");
    picture.addText({}, {}, kZ, {1, 0, 0}, 1, 1, 0, L"");
    EXPECT_TRUE(picture.empty());
}

TEST(Picture, ClockwiseArcsAndNormalsFromBelowAreTurnedRound) {
    Picture picture;
    // Clockwise from x to -y: the same as counter-clockwise from -y to x.
    picture.addArc({}, {}, 2, kZ, {1, 0, 0}, -kPi / 2);
    // Counter-clockwise seen from below, from x: reaches -y as well.
    picture.addArc({}, {}, 2, {0, 0, -1}, {1, 0, 0}, kPi / 2);
    picture.addArc({}, {}, 2, kZ, {1, 0, 0}, 7.0);
    ASSERT_EQ(picture.size(), 3u);
    for (std::size_t i : {0u, 1u}) {
        EXPECT_TRUE(picture[i].start().isEqualTo({0, -1, 0}));
        EXPECT_DOUBLE_EQ(picture[i].sweep(), kPi / 2);
        EXPECT_TRUE(picture[i].normal().isEqualTo(kZ));
    }
    EXPECT_EQ(picture[2].kind(), PrimitiveKind::Circle);
}

TEST(Picture, ShowsTheSameHoweverItIsMadeUp) {
    const auto z = [](double side, double first) {
        const AcGePoint3d points[] = {
            {-side * 50, -first, 0}, {0, -100, 0}, {0, 100, 0}, {side * 50, 100, 0}};
        Picture picture;
        picture.addPline({}, points, std::vector<double>{0, 0, 0, 0}, false);
        return picture;
    };
    const Picture whole = z(1, 100);
    Picture parts;
    const AcGePoint3d lines[][2] = {{{0, 100, 0}, {50, 100, 0}},
                                    {{0, 100, 0}, {0, 7, 0}},
                                    {{0, -100, 0}, {0, 7, 0}},
                                    {{-50, -100, 0}, {0, -100, 0}}};
    for (const auto& line : lines) parts.addPolyline({}, line);
    EXPECT_TRUE(sameDrawn(whole, parts)) << "in other parts, another order and direction";
    EXPECT_FALSE(sameDrawn(whole, z(-1, 100))) << "its mirror image has the same length and box";
    EXPECT_FALSE(sameDrawn(whole, z(1, 101))) << "one end moved by 1";
    const Picture plate = sample({0, 0, 0});
    EXPECT_TRUE(sameDrawn(plate, sample({0, 0, 0})));
    EXPECT_FALSE(sameDrawn(plate, sample({0.01, 0, 0}))) << "also arcs, circles and texts";
    Picture filled;
    const AcGePoint3d area[] = {{0, 0, 0}, {9, 0, 0}, {9, 5, 0}};
    filled.addPolygon({}, area);
    Picture outlined;
    outlined.addPolyline({}, area);
    EXPECT_FALSE(sameDrawn(filled, outlined));
}

TEST(Chords, KeepTheAllowedDeviation) {
    // Sagitta r (1 - cos(s/2)) with r = 100, deviation 1: s = 2 acos 0.99 = 16.2 degrees; a quarter
    // takes 6 chords, a full turn 23.
    EXPECT_EQ(chordCount(100, kPi / 2, 1), 6u);
    EXPECT_EQ(chordCount(100, kTwoPi, 1), 23u);
    EXPECT_EQ(chordCount(1, kTwoPi, 50), 8u);
    EXPECT_EQ(chordCount(1e9, kTwoPi, 1e-9), 1000u);
    std::vector<AcGePoint3d> out;
    const Picture slot = sample({0, 0, 0});
    appendOutline(slot[0], 0.01, out);
    EXPECT_TRUE(out.front().isEqualTo(out.back()));
    for (const AcGePoint3d& p : out) {
        const double dx = p.x < 0 ? p.x : std::max(p.x - 30.0, 0.0);
        EXPECT_NEAR(std::hypot(dx, p.y - 5), 5.0, 1e-9);
    }
}
