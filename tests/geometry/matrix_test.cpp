// SPDX-License-Identifier: MIT
// Transformations: order, exactness, what counts as a similarity.
#include <gtest/gtest.h>

#include <cmath>

#include "gemat3d.h"
#include "prancheta/geometry/angles.h"

using namespace prancheta;

namespace {

const AcGeVector3d kZ = AcGeVector3d::kZAxis;

AcGeMatrix3d stretch(double x, double y, double z) {
    AcGeMatrix3d m;
    return m.setCoordSystem(AcGePoint3d::kOrigin, {x, 0, 0}, {0, y, 0}, {0, 0, z});
}

}  // namespace

TEST(Matrix, ProductAppliesTheRightFactorFirst) {
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kPi / 2, kZ);
    const AcGeMatrix3d move = AcGeMatrix3d::translation({10, 0, 0});
    const AcGePoint3d p(1, 0, 0);
    const AcGePoint3d movedThenTurned = (turn * move) * p;
    EXPECT_EQ(movedThenTurned.x, 0.0);
    EXPECT_EQ(movedThenTurned.y, 11.0);
    AcGeMatrix3d m = turn;
    EXPECT_TRUE((m.preMultBy(move) * p).isEqualTo({10, 1, 0}));
    m = turn;
    EXPECT_TRUE((m.postMultBy(move) * p).isEqualTo({0, 11, 0}));
    // Vectors know nothing of translations.
    EXPECT_TRUE((move * AcGeVector3d(1, 2, 3)).isEqualTo({1, 2, 3}));
}

TEST(Matrix, QuarterTurnsKeepCoordinatesBitByBit) {
    // The angle that turns a plate edgewise, and a centre with few digits.
    const AcGePoint3d p =
        AcGeMatrix3d::rotation(-1.5707963267948966, AcGeVector3d::kXAxis, {7, 0, 0}) *
        AcGePoint3d(100.1, 3.3, 0);
    EXPECT_EQ(p.x, 100.1);
    EXPECT_EQ(p.y, 0.0);
    EXPECT_EQ(p.z, -3.3);
    const AcGePoint3d half = AcGePoint3d(0.1, 0.2, 0.3).rotateBy(kPi, kZ);
    EXPECT_EQ(half.x, -0.1);
    EXPECT_EQ(half.y, -0.2);
    EXPECT_EQ(half.z, 0.3);
}

TEST(Matrix, RotationAboutAnObliqueAxisPermutesTheAxes) {
    // A third of a turn about the diagonal carries x to y, y to z, z to x.
    const AcGeMatrix3d m = AcGeMatrix3d::rotation(kTwoPi / 3, {1, 1, 1}, {5, 5, 5});
    EXPECT_TRUE((m * AcGePoint3d(6, 5, 5)).isEqualTo({5, 6, 5}));
    EXPECT_TRUE((m * AcGePoint3d(5, 6, 5)).isEqualTo({5, 5, 6}));
    EXPECT_TRUE((m * AcGeVector3d::kZAxis).isEqualTo(AcGeVector3d::kXAxis));
    EXPECT_TRUE(AcGeMatrix3d::rotation(1.0, AcGeVector3d()).isEqualTo(AcGeMatrix3d::kIdentity));
}

TEST(Matrix, MirroringAndScalingKeepTheirFixedPoint) {
    // Mirror in the line y = x through (1, 1): (4, 1) goes to (1, 4).
    const AcGeMatrix3d mirror = AcGeMatrix3d::mirroring({1, 1, 0}, {-1, 1, 0});
    EXPECT_TRUE((mirror * AcGePoint3d(4, 1, 9)).isEqualTo({1, 4, 9}));
    EXPECT_DOUBLE_EQ(mirror.det(), -1.0);
    EXPECT_TRUE((mirror * mirror).isEqualTo(AcGeMatrix3d::kIdentity));
    const AcGeMatrix3d twice = AcGeMatrix3d::scaling(2, {1, 1, 0});
    EXPECT_TRUE((twice * AcGePoint3d(3, 0, 0)).isEqualTo({5, -1, 0}));
    EXPECT_DOUBLE_EQ(twice.scale(), 2.0);
}

TEST(Matrix, InverseOfShearedAndTinyMatricesButNotOfSingularOnes) {
    AcGeMatrix3d m;
    m.setCoordSystem({3, -2, 8}, {2, 1, 0}, {0.5, 4, 0}, {1, 1, 1});
    EXPECT_TRUE((m * m.inverse()).isEqualTo(AcGeMatrix3d::kIdentity));
    const AcGeMatrix3d tiny = AcGeMatrix3d::scaling(1e-6);
    EXPECT_FALSE(tiny.isSingular());
    EXPECT_TRUE((tiny.inverse() * tiny).isEqualTo(AcGeMatrix3d::kIdentity));
    const AcGeMatrix3d flat = stretch(1, 1, 0);
    EXPECT_TRUE(flat.isSingular());
    EXPECT_TRUE(flat.inverse().isEqualTo(flat));
}

TEST(Matrix, OnlySimilaritiesAreUniformlyScaledAndOrthogonal) {
    AcGeMatrix3d m;
    for (int i = 0; i < 1000; ++i) m.preMultBy(AcGeMatrix3d::rotation(0.37, {1, 2, 3}, {4, 5, 6}));
    EXPECT_TRUE((AcGeMatrix3d::scaling(0.001) * m).isUniScaledOrtho());
    EXPECT_TRUE(AcGeMatrix3d::mirroring({1, 2, 3}, {1, 1, 0}).isUniScaledOrtho());
    EXPECT_FALSE(stretch(1, 1, 1.001).isUniScaledOrtho());
    EXPECT_FALSE(stretch(0, 0, 0).isUniScaledOrtho());
    AcGeMatrix3d shear;
    shear.entry[0][1] = 0.1;
    EXPECT_FALSE(shear.isUniScaledOrtho());
}

TEST(Matrix, PlaneFrameOfANormalIsOrthonormalAndRightHanded) {
    for (const AcGeVector3d& normal : {AcGeVector3d(0, 0, -1), AcGeVector3d(1, 2, 3),
                                       AcGeVector3d(0.001, 0, 1), AcGeVector3d(-4, 0, 0)}) {
        const AcGeMatrix3d m = planeToWorld(normal);
        EXPECT_NEAR(m.det(), 1.0, 1e-12);
        EXPECT_TRUE(m.isUniScaledOrtho());
        EXPECT_TRUE((m * AcGeVector3d::kZAxis).isEqualTo(normal.normal()));
    }
}
