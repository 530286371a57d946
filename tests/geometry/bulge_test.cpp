// SPDX-License-Identifier: MIT
// Arcs given by bulges.
#include "prancheta/geometry/bulge.h"

#include <gtest/gtest.h>

#include <cmath>

#include "prancheta/geometry/angles.h"

using namespace prancheta;

TEST(Bulge, SemicircleAndQuarterHaveTheirCentres) {
    BulgeArc arc;
    // From (0,0) to (10,0), counter-clockwise half turn: runs below the chord about (5,0).
    ASSERT_TRUE(arcOfBulge({0, 0, 0}, {10, 0, 0}, 1.0, AcGeVector3d::kZAxis, arc));
    EXPECT_TRUE(arc.center.isEqualTo({5, 0, 0}));
    EXPECT_DOUBLE_EQ(arc.radius, 5.0);
    EXPECT_DOUBLE_EQ(arc.sweep, kPi);
    EXPECT_TRUE(arc.start.isEqualTo({-1, 0, 0}));
    // Rounded corner of radius 4 between (4,0) and (0,4), clockwise, bulge -tan(22.5 deg): about
    // (4,4).
    ASSERT_TRUE(arcOfBulge({4, 0, 0}, {0, 4, 0}, -0.41421356237309503, AcGeVector3d::kZAxis, arc));
    EXPECT_TRUE(arc.center.isEqualTo({4, 4, 0}));
    EXPECT_NEAR(arc.radius, 4.0, 1e-12);
    EXPECT_NEAR(arc.sweep, -kPi / 2, 1e-12);
}

TEST(Bulge, ThreeQuartersAndOtherPlanes) {
    BulgeArc arc;
    // 270 degrees: bulge tan(67.5 deg) = 1 + sqrt 2. Chord from (1,0) to (0,-1) about the origin.
    ASSERT_TRUE(arcOfBulge({1, 0, 3}, {0, -1, 3}, 1.0 + std::sqrt(2.0), AcGeVector3d::kZAxis, arc));
    EXPECT_TRUE(arc.center.isEqualTo({0, 0, 3}));
    EXPECT_NEAR(arc.sweep, 1.5 * kPi, 1e-12);
    // Plane x = 0, seen from +x: quarter from y to z about the origin.
    ASSERT_TRUE(arcOfBulge({0, 2, 0}, {0, 0, 2}, bulgeOfSweep(kPi / 2), AcGeVector3d::kXAxis, arc));
    EXPECT_TRUE(arc.center.isEqualTo({0, 0, 0}));
}

TEST(Bulge, HalfTheSweepThroughThreePoints) {
    const double r = std::sqrt(0.5);
    EXPECT_NEAR(halfSweepThrough({1, 0, 0}, {r, r, 0}, {0, 1, 0}), kPi / 4, 1e-12);
    // The other way round, three quarters; in a plane that stands upright, a half.
    EXPECT_NEAR(halfSweepThrough({1, 0, 0}, {-r, -r, 0}, {0, 1, 0}), 0.75 * kPi, 1e-12);
    EXPECT_NEAR(halfSweepThrough({0, 0, 2}, {0, 2, 0}, {0, 0, -2}), kPi / 2, 1e-12);
    EXPECT_EQ(halfSweepThrough({0, 0, 0}, {1, 0, 0}, {5, 0, 0}), 0.0);
    EXPECT_EQ(halfSweepThrough({1, 1, 0}, {1, 1, 0}, {2, 2, 0}), 0.0);
}

TEST(Bulge, StraightAndCoincidentAreNoArcs) {
    BulgeArc arc;
    EXPECT_FALSE(arcOfBulge({0, 0, 0}, {1, 0, 0}, 0.0, AcGeVector3d::kZAxis, arc));
    EXPECT_FALSE(arcOfBulge({1, 1, 0}, {1, 1, 0}, 1.0, AcGeVector3d::kZAxis, arc));
}
