// SPDX-License-Identifier: MIT
// Texts: justification, mirrors.
#include "fixture.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/text_metrics.h"

using namespace prancheta;

using TextTest = EntityTest;

TEST_F(TextTest, JustificationPutsTheBaselineWhereTheAlignmentPointAsks) {
    AcDbText text({0, 0, 0}, L"PERFIL", AcDbObjectId::kNull, 10);
    const double width = textWidth(L"PERFIL", 10, 1);
    struct Case {
        int horizontal, vertical;
        double left, below;
    };
    for (const Case& c : {Case{2, 0, width, 0}, Case{1, 3, width / 2, 10}, Case{4, 0, width / 2, 5},
                          Case{0, 2, 0, 5}}) {
        (void)text.setHorizontalMode(c.horizontal);
        (void)text.setVerticalMode(c.vertical);
        (void)text.setAlignmentPoint({100, 50, 0});
        EXPECT_TRUE(near(text.position(), {100 - c.left, 50 - c.below, 0}));
        EXPECT_TRUE(near(pictureOf(text)[0].position(), text.position()));
    }
    // Turned by 90 degrees the offsets turn with it: right-justified ends at the point, reading up.
    (void)text.setHorizontalMode(2);
    (void)text.setVerticalMode(0);
    (void)text.setRotation(kPi / 2);
    EXPECT_TRUE(near(text.position(), {100, 50 - width, 0}));
    // Fitted between two points: as wide as their distance.
    (void)text.setHorizontalMode(5);
    (void)text.setPosition({0, 0, 0});
    (void)text.setAlignmentPoint({200, 0, 0});
    EXPECT_NEAR(pictureOf(text).extents().maxPoint().x, 200, 1e-9);
    EXPECT_NEAR(pictureOf(text).extents().maxPoint().y, 10, 1e-9);
}

TEST_F(TextTest, TransformationsKeepTheBoxAndTheReading) {
    AcDbText left({3, 4, 0}, L"U 100x50", AcDbObjectId::kNull, 5, 0.3);
    expectRoundTrip(left);
    AcDbText centred({0, 0, 0}, L"U 100x50", AcDbObjectId::kNull, 5);
    (void)centred.setHorizontalMode(1);
    (void)centred.setVerticalMode(2);
    (void)centred.setAlignmentPoint({40, 30, 0});
    expectRoundTrip(centred);
    // Mirrored in x = 0 the box of the centred text stands about (-40, 30) and reads to the right.
    EXPECT_EQ(centred.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_TRUE(near(centred.alignmentPoint(), {-40, 30, 0}));
    EXPECT_EQ(centred.rotation(), 0.0);
    // Mirrored in y = 0 the baseline of a left text becomes the mirrored top.
    AcDbText low({10, 20, 0}, L"A", AcDbObjectId::kNull, 5);
    EXPECT_EQ(low.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0})), Acad::eOk);
    EXPECT_TRUE(near(low.position(), {10, -25, 0}));
    EXPECT_EQ(low.rotation(), 0.0);
}

TEST_F(TextTest, CopiesAndInvalidValues) {
    AcDbText text({3, 4, 0}, L"aço Ø 12,7", AcDbObjectId::kNull, 5, 0.3);
    (void)text.setOblique(0.2);
    (void)text.setWidthFactor(0.8);
    (void)text.setTextStyle(database.textstyle());
    EXPECT_EQ(text.setHeight(0), Acad::eInvalidInput);
    EXPECT_EQ(text.setHorizontalMode(6), Acad::eInvalidInput);
    EXPECT_EQ(text.setTextString(nullptr), Acad::eInvalidInput);
    const auto copy = copyOf(text);
    EXPECT_TRUE(pictureOf(*copy) == pictureOf(text));
    EXPECT_TRUE(copy->textStyle() == database.textstyle());
    AcDbText standard({0, 0, 0}, L"x");
    EXPECT_EQ(standard.height(), 2.5);
}
