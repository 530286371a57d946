// SPDX-License-Identifier: MIT
// Recording through the drawing interface: traits, model transforms, mirrors.
#include "prancheta/graphics/picture_recorder.h"

#include <gtest/gtest.h>

#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"
#include "prancheta/graphics/text_metrics.h"

using namespace prancheta;

namespace {

const AcGeVector3d kX = AcGeVector3d::kXAxis;
const AcGeVector3d kZ = AcGeVector3d::kZAxis;
/// In the vertical line x = 0 and in the horizontal line y = 0.
const AcGeMatrix3d kLeftRight = AcGeMatrix3d::mirroring(AcGePoint3d::kOrigin, kX);
const AcGeMatrix3d kUpDown = AcGeMatrix3d::mirroring(AcGePoint3d::kOrigin, AcGeVector3d::kYAxis);

Picture text(const AcGeVector3d& direction) {
    Picture picture;
    picture.addText({}, {10, 5, 0}, kZ, direction, 2, 1, 0, L"ABC");
    return picture;
}

}  // namespace

TEST(Recorder, TraitsAreResetAndMarkersGoWithTheirPolyline) {
    Picture picture;
    PictureRecorder recorder(picture);
    PictureTraits own;
    own.color = 5;
    recorder.begin(own);
    const AcGePoint3d segment[2] = {{0, 0, 0}, {1, 0, 0}};
    recorder.geometry().polyline(2, segment, nullptr, 42);
    recorder.subEntityTraits().setColor(1);
    recorder.subEntityTraits().setFillType(kAcGiFillNever);
    recorder.geometry().pushModelTransform(AcGeMatrix3d::scaling(9));
    recorder.geometry().polyline(2, segment);
    recorder.begin(own);
    const AcGePoint3d corner[3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    recorder.geometry().polygon(3, corner);
    ASSERT_EQ(picture.size(), 3u);
    EXPECT_EQ(picture[0].traits().marker, 42);
    EXPECT_EQ(picture[1].traits().marker, -1);
    EXPECT_EQ(picture[1].traits().color, 1);
    EXPECT_EQ(picture[1].points()[1].x, 9.0);
    EXPECT_EQ(picture[2].kind(), PrimitiveKind::Polygon);
    EXPECT_EQ(picture[2].traits().color, 5);
    EXPECT_EQ(picture[2].points()[1].x, 1.0);
}

TEST(Recorder, MirrorFlipsBulgesAndArcDirections) {
    Picture picture;
    const AcGePoint3d ends[2] = {{10, 0, 0}, {0, 0, 0}};
    const double bulges[2] = {1, 0};
    picture.addPline({}, ends, bulges, false);  // half circle above: from (10,0) over (5,5)
    picture.addArc({}, {20, 0, 0}, 3, kZ, kX, kPi / 2);
    picture.transform(kLeftRight);
    EXPECT_EQ(picture[0].bulges()[0], -1.0);
    EXPECT_EQ(picture[0].points()[0].x, -10.0);
    EXPECT_NEAR(picture.extents().maxPoint().y, 5, 1e-9);
    // The quarter from right to top became one from top to left.
    EXPECT_TRUE(picture[1].center().isEqualTo({-20, 0, 0}));
    EXPECT_TRUE(picture[1].start().isEqualTo({0, 1, 0}));
    EXPECT_DOUBLE_EQ(picture[1].sweep(), kPi / 2);
    EXPECT_TRUE(picture[1].normal().isEqualTo(kZ));
    picture.transform(kLeftRight);
    EXPECT_EQ(picture[0].bulges()[0], 1.0);
    EXPECT_TRUE(picture[1].start().isEqualTo(kX));
}

TEST(Recorder, MirroredTextsTakeTheMirroredPlaceAndStayReadable) {
    const double width = textWidth(L"ABC", 2, 1);
    for (const auto& [mirror, left, bottom] :
         {std::tuple{kLeftRight, -10 - width, 5.0}, std::tuple{kUpDown, 10.0, -7.0}}) {
        Picture picture = text(kX);
        picture.transform(mirror);
        EXPECT_TRUE(picture[0].direction().isEqualTo(kX));
        EXPECT_TRUE(picture[0].normal().isEqualTo(kZ));
        EXPECT_TRUE(picture[0].position().isEqualTo({left, bottom, 0}));
    }
    // A text that reads upwards, mirrored to the left: still upwards, its box from -10 to -8...
    // seen from above: height 2 to the left of x = 10 is the box 8..10, mirrored -10..-8, baseline
    // right.
    Picture upwards = text({0, 1, 0});
    upwards.transform(kLeftRight);
    EXPECT_TRUE(upwards[0].direction().isEqualTo({0, 1, 0}));
    EXPECT_TRUE(upwards[0].position().isEqualTo({-8, 5, 0}));
}

TEST(Recorder, LettersOfAPlacedPictureGoThroughItsMirror) {
    Picture picture;
    picture.addText({}, {10, 5, 0}, kZ, kX, 2, 1, 0.2, L"ABC");
    const double width = textWidth(L"ABC", 2, 1);
    // In the mirror the letters run from -10 to the left; the top leans there, too. In a second
    // mirror they are as they were.
    struct Case {
        AcGeMatrix3d place;
        AcGePoint3d low, high;
        double widthFactor;
    };
    const double lean = 2 * std::tan(0.2);
    for (const Case& c :
         {Case{kLeftRight, {-10 - width - lean, 5, 0}, {-10, 7, 0}, -1.0},
          Case{kUpDown, {10, -7, 0}, {10 + width + lean, -5, 0}, -1.0},
          Case{kLeftRight * kUpDown, {-10 - width - lean, -7, 0}, {-10, -5, 0}, 1.0}}) {
        Picture placed;
        PictureRecorder recorder(placed);
        recorder.begin({});
        replayAt(picture, c.place, recorder);
        ASSERT_EQ(placed.size(), 1u);
        EXPECT_TRUE(placed.extents().minPoint().isEqualTo(c.low));
        EXPECT_TRUE(placed.extents().maxPoint().isEqualTo(c.high));
        EXPECT_NEAR(placed[0].widthFactor(), c.widthFactor, 1e-12);
    }
}

TEST(Recorder, NestedTransformsApplyInnermostFirstAndScaleSizes) {
    Picture picture;
    PictureRecorder recorder(picture);
    recorder.begin({});
    AcGiGeometry& to = recorder.geometry();
    to.pushModelTransform(AcGeMatrix3d::translation({100, 0, 0}));
    to.pushModelTransform(AcGeMatrix3d::rotation(kPi / 2, kZ) * AcGeMatrix3d::scaling(2));
    to.circle({3, 0, 0}, 5, kZ);
    to.text({0, 0, 0}, kZ, kX, 2.5, 1, 0, L"h");
    to.popModelTransform();
    to.circle({3, 0, 0}, 5, kZ);
    ASSERT_EQ(picture.size(), 3u);
    EXPECT_TRUE(picture[0].center().isEqualTo({100, 6, 0}));
    EXPECT_DOUBLE_EQ(picture[0].radius(), 10);
    EXPECT_DOUBLE_EQ(picture[1].height(), 5);
    EXPECT_DOUBLE_EQ(picture[1].widthFactor(), 1);
    EXPECT_TRUE(picture[1].direction().isEqualTo({0, 1, 0}));
    EXPECT_TRUE(picture[2].center().isEqualTo({103, 0, 0}));
}

TEST(Recorder, UnequalScalesTurnCurvesIntoArcsOnTheEllipse) {
    AcGeMatrix3d wide;
    wide.setCoordSystem({7, 0, 0}, {2, 0, 0}, {0, 1, 0}, kZ);
    Picture picture;
    picture.addCircle({}, {}, 10, kZ);
    const AcGePoint3d ends[2] = {{10, 0, 0}, {-10, 0, 0}};
    const double bulges[2] = {1, 0};
    picture.addPline({}, ends, bulges, true);
    picture.transform(wide);
    ASSERT_EQ(picture.size(), 2u);
    for (const PrimitiveView p : picture) {
        ASSERT_EQ(p.kind(), PrimitiveKind::Pline);
        EXPECT_TRUE(p.closed());
    }
    for (const AcGePoint3d& p : picture[0].points())
        EXPECT_NEAR(std::hypot((p.x - 7) / 20, p.y / 10), 1.0, 1e-12);
    // Of a circle of 5000 drawn 1:25 that would be 2 um on paper. The half circle keeps its chord.
    std::vector<AcGePoint3d> outline;
    appendOutline(picture[0], 1e-7, outline);
    ASSERT_GT(outline.size(), 1000u);
    for (const AcGePoint3d& p : outline)
        EXPECT_NEAR(std::hypot((p.x - 7) / 20, p.y / 10), 1.0, 1e-5);
    EXPECT_TRUE(picture[1].points().back().isEqualTo({-13, 0, 0}));
    EXPECT_NEAR(picture[1].bulges().back(), 0.0, 1e-12);
    picture.transform(kLeftRight);
    EXPECT_LT(picture[0].bulges()[0], 0.0);
}

TEST(Recorder, SolidPlacedUprightKeepsItsBulgesInItsPlane) {
    Picture picture;
    const AcGePoint3d ends[2] = {{10, 0, 0}, {-10, 0, 0}};
    const double bulges[2] = {1, 0};
    picture.addPline({}, ends, bulges, false);
    // Turned about x by 90 degrees the half circle stands in the plane y = 0 and reaches z = 10.
    const AcGeMatrix3d up = AcGeMatrix3d::rotation(kPi / 2, kX);
    picture.transform(up);
    EXPECT_NEAR(picture.extents().maxPoint().z, 10, 1e-9);
    picture.transform(AcGeMatrix3d::translation({0, 0, 5}));
    EXPECT_NEAR(picture.extents().maxPoint().z, 15, 1e-9);
    EXPECT_NEAR(picture.extents().minPoint().z, 5, 1e-9);
    // Half a turn about x: seen from behind it runs the other way round, below y = 0.
    picture.transform(AcGeMatrix3d::translation({0, 0, -5}));
    picture.transform(up);
    EXPECT_TRUE(picture[0].normal().isEqualTo(kZ));
    EXPECT_EQ(picture[0].bulges()[0], -1.0);
    EXPECT_NEAR(picture.extents().minPoint().y, -10, 1e-9);
}

TEST(Recorder, SectorsAndChordsAreClosedByLines) {
    Picture picture;
    PictureRecorder recorder(picture);
    recorder.begin({});
    recorder.geometry().circularArc({1, 0, 0}, 2, kZ, kX, kPi / 2, kAcGiArcSector);
    recorder.geometry().circularArc({1, 0, 0}, 2, kZ, kX, kPi / 2, kAcGiArcChord);
    ASSERT_EQ(picture.size(), 4u);
    EXPECT_EQ(picture[1].points().size(), 3u);
    EXPECT_TRUE(picture[1].points()[0].isEqualTo({1, 2, 0}));
    EXPECT_TRUE(picture[1].points()[1].isEqualTo({1, 0, 0}));
    EXPECT_TRUE(picture[3].points()[0].isEqualTo({1, 2, 0}));
    EXPECT_TRUE(picture[3].points()[1].isEqualTo({3, 0, 0}));
}
