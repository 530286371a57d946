// SPDX-License-Identifier: MIT
// Vectors, points and angles.
#include <gtest/gtest.h>

#include <cmath>

#include "dbmain.h"
#include "prancheta/geometry/angles.h"

using namespace prancheta;

TEST(Vector, AnglesHaveASideAndSurviveOpposites) {
    const AcGeVector3d x = AcGeVector3d::kXAxis;
    EXPECT_DOUBLE_EQ(x.angleTo({0, 5, 0}), kPi / 2);
    EXPECT_DOUBLE_EQ(x.angleTo({-2, 0, 0}), kPi);
    EXPECT_DOUBLE_EQ(x.angleTo({0, -1, 0}, AcGeVector3d::kZAxis), 1.5 * kPi);
    EXPECT_DOUBLE_EQ(x.angleTo({0, -1, 0}, {0, 0, -3}), kPi / 2);
    // A thousandth of a degree, where the arc cosine has lost half its digits.
    const double small = kPi / 180000;
    EXPECT_NEAR(x.angleTo({std::cos(small), std::sin(small), 0}), small, 1e-18);
}

TEST(Vector, NormalizingLeavesWhatHasNoDirection) {
    AcGeVector3d none(1e-12, 0, 0);
    EXPECT_EQ(none.normalize().x, 1e-12);
    const AcGeVector3d n = AcGeVector3d(3, 0, 4).normal();
    EXPECT_DOUBLE_EQ(n.x, 0.6);
    EXPECT_DOUBLE_EQ(n.z, 0.8);
    EXPECT_FALSE(AcGeVector3d().isParallelTo(n));
    EXPECT_TRUE(n.isParallelTo({-6, 0, -8}));
}

TEST(Vector, ArbitraryAxisChangesItsReferenceAtOneSixtyFourth) {
    // Near the pole: Y x N. N = z gives the world's x, N = -z its opposite.
    EXPECT_TRUE(arbitraryXAxis({0, 0, 2}).isEqualTo({1, 0, 0}));
    EXPECT_TRUE(arbitraryXAxis({0, 0, -1}).isEqualTo({-1, 0, 0}));
    // Away from it: Z x N. N = x gives y.
    EXPECT_TRUE(arbitraryXAxis({1, 0, 0}).isEqualTo({0, 1, 0}));
    // |x| just above 1/64: Z x N = (0, x, 0) -> y. Just below: Y x N = (z, 0, -x) -> nearly x.
    const double above = 1.01 / 64;
    const double below = 0.99 / 64;
    EXPECT_TRUE(arbitraryXAxis({above, 0, std::sqrt(1 - above * above)}).isEqualTo({0, 1, 0}));
    EXPECT_GT(arbitraryXAxis({below, 0, std::sqrt(1 - below * below)}).x, 0.99);
}

TEST(Angle, QuarterTurnsAreExact) {
    for (int quarter = -9; quarter <= 9; ++quarter) {
        const auto [s, c] = sineCosine(quarter * kPi / 2);
        EXPECT_EQ(std::abs(s) + std::abs(c), 1.0);
        EXPECT_EQ(s, std::round(std::sin(quarter * kPi / 2)));
        EXPECT_EQ(c, std::round(std::cos(quarter * kPi / 2)));
    }
    EXPECT_DOUBLE_EQ(sineCosine(kPi / 6).sine, 0.5);
    EXPECT_NE(sineCosine(kPi / 2 + 1e-12).cosine, 0.0);
    EXPECT_TRUE(std::isnan(sineCosine(INFINITY).sine));
}

TEST(Angle, PositiveAngleStaysBelowAFullTurn) {
    EXPECT_DOUBLE_EQ(positiveAngle(-kPi / 2), 1.5 * kPi);
    EXPECT_EQ(positiveAngle(kTwoPi), 0.0);
    // -1e-20 + 2 pi rounds to 2 pi itself.
    EXPECT_EQ(positiveAngle(-1e-20), 0.0);
}

TEST(Extents, EmptyUntilAPointIsAddedAndEmptyOnesAddNothing) {
    AcDbExtents box;
    EXPECT_TRUE(box.isEmpty());
    box.addExt(AcDbExtents());
    EXPECT_TRUE(box.isEmpty());
    box.addPoint({3, -1, 2});
    EXPECT_FALSE(box.isEmpty());
    AcDbExtents other;
    other.addPoint({-5, 7, 2});
    box.addExt(other);
    EXPECT_TRUE(box.minPoint().isEqualTo({-5, -1, 2}));
    EXPECT_TRUE(box.maxPoint().isEqualTo({3, 7, 2}));
}
