// SPDX-License-Identifier: MIT
// Block references: placing, properties by block, mirrors, exploding, cycles.
#include "fixture.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/geometry/angles.h"

using namespace prancheta;

namespace {

const AcGeVector3d kZ = AcGeVector3d::kZAxis;

AcGeMatrix3d stretch(double x, double y) {
    AcGeMatrix3d m;
    return m.setCoordSystem(AcGePoint3d::kOrigin, {x, 0, 0}, {0, y, 0}, kZ);
}

}  // namespace

using BlockReferenceTest = EntityTest;

TEST_F(BlockReferenceTest, PlacesScalesAndTurnsAboutTheBlocksOrigin) {
    const AcDbObjectId id = block(L"CHAPA", {new AcDbLine({10, 10, 0}, {15, 10, 0})});
    AcDbObjectPointer<AcDbBlockTableRecord> record(id, AcDb::kForWrite);
    (void)record->setOrigin({10, 10, 0});
    (void)record.close();
    AcDbBlockReference reference({100, 50, 0}, id);
    (void)reference.setRotation(kPi / 2);
    EXPECT_EQ(reference.setScaleFactors({2, 0, 1}), Acad::eInvalidInput);
    (void)reference.setScaleFactors({2, 3, 1});
    const Picture picture = pictureOf(reference);
    ASSERT_EQ(picture.size(), 1u);
    EXPECT_TRUE(near(picture[0].points()[0], {100, 50, 0}));
    EXPECT_TRUE(near(picture[0].points()[1], {100, 60, 0}));
    EXPECT_TRUE(pictureOf(*copyOf(reference)) == picture);
    AcGePoint3dArray snaps;
    AcDbIntArray unused;
    (void)reference.getOsnapPoints(AcDb::kOsModeIns, 0, {}, {}, {}, snaps, unused);
    ASSERT_EQ(snaps.length(), 1);
    EXPECT_TRUE(near(snaps[0], {100, 50, 0}));
}

TEST_F(BlockReferenceTest, LayerZeroAndByBlockTakeTheReferencesProperties) {
    auto* follower = new AcDbCircle({0, 0, 0}, kZ, 1);
    (void)follower->setLayer(database.layerZero());
    (void)follower->setColorIndex(0);
    (void)follower->setLinetype(database.byBlockLinetype());
    auto* fixed = new AcDbCircle({5, 0, 0}, kZ, 1);
    (void)fixed->setLayer(layer(L"Furos"));
    (void)fixed->setColorIndex(2);
    const AcDbObjectId inner = block(L"DENTRO", {follower, fixed});
    auto* nested = new AcDbBlockReference({0, 0, 0}, inner);
    (void)nested->setLayer(database.layerZero());
    (void)nested->setColorIndex(0);
    (void)nested->setLinetype(database.byBlockLinetype());
    const AcDbObjectId outer = block(L"FORA", {nested});
    AcDbBlockReference reference({0, 0, 0}, outer);
    (void)reference.setLayer(layer(L"Montagem"));
    (void)reference.setColorIndex(4);
    (void)reference.setLinetype(database.continuousLinetype());
    const Picture picture = pictureOf(reference);
    ASSERT_EQ(picture.size(), 2u);
    EXPECT_TRUE(picture[0].traits().layer == layer(L"Montagem"));
    EXPECT_EQ(picture[0].traits().color, 4);
    EXPECT_TRUE(picture[0].traits().linetype == database.continuousLinetype());
    EXPECT_TRUE(picture[1].traits().layer == layer(L"Furos"));
    EXPECT_EQ(picture[1].traits().color, 2);

    const Pieces pieces(reference);
    ASSERT_EQ(pieces.count(), 1);
    const auto* copy = pieces.as<AcDbBlockReference>(0);
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(copy->layerId() == layer(L"Montagem"));
    EXPECT_EQ(copy->colorIndex(), 4);
}

TEST_F(BlockReferenceTest, MirrorShowsInTheSignOfXAndScalesMultiply) {
    const AcDbObjectId id =
        block(L"L", {new AcDbLine({0, 0, 0}, {10, 0, 0}), new AcDbArc({0, 0, 0}, 4, 0, kPi / 2)});
    AcDbBlockReference reference({20, 5, 0}, id);
    expectRoundTrip(reference);
    EXPECT_EQ(reference.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_TRUE(near(reference.position(), {-20, 5, 0}));
    EXPECT_TRUE(reference.scaleFactors().isEqualTo({-1, 1, 1}));
    EXPECT_EQ(reference.rotation(), 0.0);
    EXPECT_EQ(reference.transformBy(stretch(3, 2)), Acad::eOk);
    EXPECT_TRUE(reference.scaleFactors().isEqualTo({-3, 2, 1}));
    (void)reference.setRotation(0.5);
    const Picture before = pictureOf(reference);
    EXPECT_EQ(reference.transformBy(stretch(2, 1)), Acad::eCannotScaleNonUniformly);
    EXPECT_TRUE(pictureOf(reference) == before);
}

TEST_F(BlockReferenceTest, ExplodedPiecesStandWhereTheyWereDrawn) {
    auto* plate = new AcDbPolyline;
    (void)plate->addVertexAt(0, {0, 0}, 1);
    (void)plate->addVertexAt(1, {8, 0});
    const AcDbObjectId id = block(L"P", {plate, new AcDbCircle({3, 3, 0}, kZ, 2)});
    AcDbBlockReference reference({7, 7, 0}, id);
    (void)reference.setRotation(0.4);
    (void)reference.setScaleFactors({-2, 2, 2});
    Picture whole;
    const Pieces pieces(reference);
    ASSERT_EQ(pieces.count(), 2);
    for (int i = 0; i < 2; ++i) whole.append(pictureOf(*pieces.as<AcDbEntity>(i)));
    EXPECT_TRUE(near(whole.extents().minPoint(), pictureOf(reference).extents().minPoint()));
    EXPECT_TRUE(near(whole.extents().maxPoint(), pictureOf(reference).extents().maxPoint()));
    // Stretched, the circle can only become the chords of an ellipse: half axes 6 and 2.
    (void)reference.setRotation(0);
    (void)reference.setScaleFactors({3, 1, 1});
    const Pieces stretched(reference);
    ASSERT_EQ(stretched.count(), 2);
    ASSERT_NE(stretched.as<AcDbPolyline>(1), nullptr);
    const AcDbExtents box = pictureOf(*stretched.as<AcDbPolyline>(1)).extents();
    EXPECT_TRUE(near(box.minPoint(), {7 + 9 - 6, 7 + 3 - 2, 0}));
    EXPECT_TRUE(near(box.maxPoint(), {7 + 9 + 6, 7 + 3 + 2, 0}));
}

TEST_F(BlockReferenceTest, AttributesGoWithTheirReference) {
    auto* asked = new AcDbAttributeDefinition({10, 5, 0}, L"A1", L"FOLHA", L"Folha");
    (void)asked->setHeight(4);
    auto* fixed = new AcDbAttributeDefinition({0, 20, 0}, L"Aço SA", L"FIRMA", L"");
    (void)fixed->setModes(AcDbAttributeText::kConstant);
    auto* hidden = new AcDbAttributeDefinition({0, 30, 0}, L"7", L"CODIGO", L"");
    (void)hidden->setModes(AcDbAttributeText::kInvisible);
    EXPECT_EQ(asked->setTag(L"com branco"), Acad::eInvalidInput);
    EXPECT_STREQ(pictureOf(*asked)[0].text(), L"FOLHA");
    const AcDbObjectId id = block(L"CARIMBO", {asked, fixed, hidden});
    AcDbBlockReference reference({100, 50, 0}, id);
    (void)reference.setRotation(kPi / 2);
    (void)reference.setScaleFactors({2, 2, 2});
    appendOffered(reference);
    ASSERT_EQ(attributesOf(reference).size(), 2u) << "none for what is constant";
    const auto texts = [&] {
        std::wstring all;
        for (const PrimitiveView p : pictureOf(reference)) all += std::wstring(p.text()) + L"|";
        return all;
    };
    EXPECT_EQ(texts(), L"Aço SA|A1|");
    EXPECT_TRUE(near(attributesOf(reference)[0]->position(), {90, 70, 0}));
    EXPECT_EQ(attributesOf(reference)[0]->height(), 8.0);
    expectRoundTrip(reference);

    (void)reference.setPosition({0, 0, 0});
    EXPECT_TRUE(near(attributesOf(reference)[0]->position(), {-10, 20, 0}));
    (void)reference.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0}));
    const AcDbExtents box = pictureOf(*attributesForChange(reference)[0]).extents();
    EXPECT_TRUE(box.minPoint().x > 9.9 && box.maxPoint().x < 18.1 && box.minPoint().y > 19.9);
    (void)attributesForChange(reference)[0]->setTextString(L"A2");
    EXPECT_STREQ(attributesOf(*copyOf(reference))[0]->textStringConst(), L"A2");
    AcGePoint3dArray grips;
    AcDbIntArray unused;
    (void)reference.getGripPoints(grips, unused, unused);
    ASSERT_EQ(grips.length(), 3);
    AcDbIntArray second;
    second.append(1);
    (void)reference.moveGripPointsAt(second, {5, 0, 0});
    EXPECT_TRUE(near(reference.position(), {0, 0, 0}));
    EXPECT_TRUE(near(attributesOf(reference)[0]->position(), grips[1] + AcGeVector3d(5, 0, 0)));

    const Pieces pieces(reference);
    ASSERT_EQ(pieces.count(), 3);
    EXPECT_STREQ(pieces.as<AcDbAttributeDefinition>(0)->textStringConst(), L"A1");
}

TEST_F(BlockReferenceTest, ArraysStandInTheTurnedFrameAndKeepTheirSteps) {
    const AcDbObjectId id = block(L"FURO", {new AcDbCircle({0, 0, 0}, kZ, 2)});
    AcDbMInsertBlock array({50, 20, 0}, id, 3, 2, 10, -5);
    (void)array.setRotation(kPi / 2);
    EXPECT_EQ(pictureOf(*copyOf(array)).size(), 6u);
    EXPECT_TRUE(near(pictureOf(array)[2].center(), {50, 40, 0}));
    EXPECT_TRUE(near(pictureOf(array)[3].center(), {55, 20, 0}));
    expectRoundTrip(array);
    // Twice as large and seen in a mirror: the columns still go up, the rows the other way.
    AcGeMatrix3d m;
    (void)array.transformBy(m.setCoordSystem({100, 0, 0}, {-2, 0, 0}, {0, 2, 0}, {0, 0, 2}));
    EXPECT_TRUE(near(pictureOf(array)[2].center(), {0, 80, 0}));
    EXPECT_TRUE(near(pictureOf(array)[3].center(), {-10, 40, 0}));
    const Pieces pieces(array);
    ASSERT_EQ(pieces.count(), 6);
    EXPECT_TRUE(near(pieces.as<AcDbCircle>(5)->center(), {-10, 80, 0}));
}

TEST_F(BlockReferenceTest, MissingHiddenAndCyclicContentsAreLeftOut) {
    EXPECT_TRUE(pictureOf(*std::make_unique<AcDbBlockReference>()).empty());
    auto* hidden = new AcDbLine({0, 0, 0}, {1, 0, 0});
    (void)hidden->setVisibility(AcDb::kInvisible);
    auto* inner = new AcDbBlockReference;
    const AcDbObjectId id = block(L"CICLO", {hidden, new AcDbLine({0, 0, 0}, {5, 0, 0}), inner});
    AcDbObjectPointer<AcDbBlockReference> open(inner->objectId(), AcDb::kForWrite);
    (void)open->setBlockTableRecord(id);
    (void)open->setPosition({5, 0, 0});
    (void)open.close();
    AcDbBlockReference reference({0, 0, 0}, id);
    const Picture picture = pictureOf(reference);
    ASSERT_EQ(picture.size(), 1u);
    EXPECT_TRUE(near(picture[0].points()[1], {5, 0, 0}));
}
