// SPDX-License-Identifier: MIT
// Polylines: vertices, arcs, mirrors, exploding, widths.
#include "fixture.h"
#include "prancheta/geometry/angles.h"

using namespace prancheta;

namespace {

const double kQuarterBulge = std::tan(kPi / 8);

/// Plate 40 x 20 whose upper right corner is rounded with radius 5.
void fillPlate(AcDbPolyline& plate) {
    const AcGePoint2d corners[5] = {{0, 0}, {40, 0}, {40, 15}, {35, 20}, {0, 20}};
    for (unsigned i = 0; i < 5; ++i)
        ASSERT_EQ(plate.addVertexAt(i, corners[i], i == 2 ? kQuarterBulge : 0), Acad::eOk);
    (void)plate.setClosed(true);
}

}  // namespace

using PolylineTest = EntityTest;

TEST_F(PolylineTest, ExplodesIntoLinesAndArcsWithItsProperties) {
    AcDbPolyline plate;
    fillPlate(plate);
    (void)plate.setColorIndex(5);
    (void)plate.setLayer(layer(L"Chapas"));
    const Pieces pieces(plate);
    ASSERT_EQ(pieces.count(), 5);
    const auto* arc = pieces.as<AcDbArc>(2);
    ASSERT_NE(arc, nullptr);
    EXPECT_TRUE(near(arc->center(), {35, 15, 0}));
    EXPECT_NEAR(arc->radius(), 5, 1e-12);
    EXPECT_NEAR(arc->startAngle(), 0, 1e-12);
    EXPECT_NEAR(arc->endAngle(), kPi / 2, 1e-12);
    const auto* last = pieces.as<AcDbLine>(4);
    ASSERT_NE(last, nullptr);
    EXPECT_TRUE(near(last->startPoint(), {0, 20, 0}));
    EXPECT_TRUE(near(last->endPoint(), {0, 0, 0}));
    EXPECT_EQ(last->colorIndex(), 5);
    EXPECT_TRUE(last->layerId() == layer(L"Chapas"));
    AcDbPolyline open;
    (void)open.addVertexAt(0, {0, 0});
    EXPECT_EQ(Pieces(open).status, Acad::eCannotExplodeEntity);
}

TEST_F(PolylineTest, MirrorFlipsBulgesAndTheWayBackRestoresThem) {
    AcDbPolyline plate;
    fillPlate(plate);
    expectRoundTrip(plate);
    double bulge = 0;
    AcGePoint3d p;
    EXPECT_EQ(plate.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    (void)plate.getBulgeAt(2, bulge);
    (void)plate.getPointAt(2, p);
    EXPECT_NEAR(bulge, -kQuarterBulge, 1e-12);
    EXPECT_TRUE(near(p, {-40, 15, 0}));
    EXPECT_TRUE(plate.normal().isEqualTo(AcGeVector3d::kZAxis));
    EXPECT_TRUE(near(pictureOf(plate).extents().minPoint(), {-40, 0, 0}));
    const Pieces pieces(plate);
    ASSERT_NE(pieces.as<AcDbArc>(2), nullptr);
    EXPECT_NEAR(pieces.as<AcDbArc>(2)->startAngle(), kPi / 2, 1e-12);
    EXPECT_NEAR(pieces.as<AcDbArc>(2)->endAngle(), kPi, 1e-12);
}

TEST_F(PolylineTest, StandsInItsOwnPlane) {
    // Half circle from (10, 0) to (-10, 0) over (0, 10), set upright: reaches z = 10 + 2.
    AcDbPolyline half;
    (void)half.addVertexAt(0, {10, 0}, 1);
    (void)half.addVertexAt(1, {-10, 0});
    EXPECT_EQ(half.transformBy(AcGeMatrix3d::translation({0, 0, 2}) *
                               AcGeMatrix3d::rotation(kPi / 2, {1, 0, 0})),
              Acad::eOk);
    AcDbExtents box = pictureOf(half).extents();
    EXPECT_TRUE(near(box.minPoint(), {-10, 0, 2}));
    EXPECT_TRUE(near(box.maxPoint(), {10, 0, 12}));
    AcGePoint3d p;
    (void)half.getPointAt(0, p);
    EXPECT_TRUE(near(p, {10, 0, 2}));
    EXPECT_TRUE(pictureOf(*copyOf(half)) == pictureOf(half));
    const Pieces pieces(half);
    ASSERT_NE(pieces.as<AcDbArc>(0), nullptr);
    EXPECT_TRUE(pictureOf(*pieces.as<AcDbArc>(0)).extents().maxPoint().isEqualTo(box.maxPoint()));
    AcGeMatrix3d wide;
    wide.entry[0][0] = 3;
    EXPECT_EQ(half.transformBy(wide), Acad::eCannotScaleNonUniformly);
}

TEST_F(PolylineTest, VerticesAreInsertedRemovedAndChecked) {
    AcDbPolyline line;
    EXPECT_EQ(line.addVertexAt(1, {0, 0}), Acad::eInvalidIndex);
    (void)line.addVertexAt(0, {2, 0});
    (void)line.addVertexAt(0, {1, 0}, 0, 3, 4);
    AcGePoint3d p;
    double start = 0;
    double end = 0;
    (void)line.setElevation(7);
    EXPECT_EQ(line.getPointAt(0, p), Acad::eOk);
    EXPECT_TRUE(near(p, {1, 0, 7}));
    EXPECT_EQ(line.getWidthsAt(0, start, end), Acad::eOk);
    EXPECT_EQ(start + end, 7.0);
    EXPECT_EQ(line.removeVertexAt(0), Acad::eOk);
    EXPECT_EQ(line.numVerts(), 1u);
    EXPECT_EQ(line.removeVertexAt(1), Acad::eInvalidIndex);
    EXPECT_EQ(line.getPointAt(1, p), Acad::eInvalidIndex);
}

TEST_F(PolylineTest, WidthsAreFilledBands) {
    AcDbPolyline wide;
    (void)wide.addVertexAt(0, {0, 0}, 0, 4, 4);
    (void)wide.addVertexAt(1, {10, 0});
    AcDbExtents box = pictureOf(wide).extents();
    EXPECT_TRUE(near(box.minPoint(), {0, -2, 0}));
    EXPECT_TRUE(near(box.maxPoint(), {10, 2, 0}));
    // Ring from two half circles of radius 10, width 2: outer radius 11.
    AcDbPolyline ring;
    (void)ring.addVertexAt(0, {-10, 0}, 1, 2, 2);
    (void)ring.addVertexAt(1, {10, 0}, 1, 2, 2);
    (void)ring.setClosed(true);
    box = pictureOf(ring).extents();
    EXPECT_NEAR(box.maxPoint().x, 11, 1e-9);
    EXPECT_NEAR(box.minPoint().y, -11, 1e-9);
}

TEST_F(PolylineTest, ListGivesAreaAndPerimeter) {
    AcDbPolyline plate;
    fillPlate(plate);
    plate.list();
    const std::wstring text = takePrinted();
    // 40 x 20 without the corner left of the arc: 800 - (25 - 25 pi / 4) = 794,6350; perimeter
    // 40 + 15 + 5 pi / 2 + 35 + 20 = 117,8540.
    EXPECT_NE(text.find(L"área 794,6350"), std::wstring::npos);
    EXPECT_NE(text.find(L"perímetro 117,8540"), std::wstring::npos);
}
