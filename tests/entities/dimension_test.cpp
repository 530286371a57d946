// SPDX-License-Identifier: MIT
// Aligned dimensions at the standard sizes: arrow 2.5, offset 0.625, beyond 1.25, text 2.5, gap
// 0.625.
#include "prancheta/entities/dimension_layout.h"

#include "fixture.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/text_metrics.h"

using namespace prancheta;

namespace {

/// Primitives of one kind, in drawing order.
std::vector<std::vector<AcGePoint3d>> parts(const Picture& picture, PrimitiveKind kind) {
    std::vector<std::vector<AcGePoint3d>> found;
    for (const PrimitiveView p : picture)
        if (p.kind() == kind) found.emplace_back(p.points().begin(), p.points().end());
    return found;
}

/// The one text of a dimension.
PrimitiveView textOf(const Picture& picture) {
    for (const PrimitiveView p : picture)
        if (p.kind() == PrimitiveKind::Text) return p;
    ADD_FAILURE() << "no text";
    return picture[0];
}

AcGePoint3d middleOf(const PrimitiveView& text) {
    const auto box = textBox(text);
    return box[0] + (box[2] - box[0]) * 0.5;
}

AcDbDimStyleValues changed(AcDbDatabase& database, void (*change)(AcDbDimStyleValues&)) {
    AcDbObjectPointer<AcDbDimStyleTableRecord> style(database.dimstyle(), AcDb::kForWrite);
    AcDbDimStyleValues values = style->values();
    change(values);
    EXPECT_EQ(style->setValues(values), Acad::eOk);
    return values;
}

}  // namespace

using DimensionTest = EntityTest;

TEST_F(DimensionTest, HorizontalBelowThePoints) {
    AcDbAlignedDimension dimension({0, 0, 0}, {100, 0, 0}, {50, -20, 0});
    const Picture picture = pictureOf(dimension);
    const auto lines = parts(picture, PrimitiveKind::Polyline);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(near(lines[0][0], {0, -0.625, 0}));
    EXPECT_TRUE(near(lines[0][1], {0, -21.25, 0}));
    EXPECT_TRUE(near(lines[1][0], {100, -0.625, 0}));
    EXPECT_TRUE(near(lines[1][1], {100, -21.25, 0}));
    EXPECT_TRUE(near(lines[2][0], {2.5, -20, 0}));
    EXPECT_TRUE(near(lines[2][1], {97.5, -20, 0}));
    const auto arrows = parts(picture, PrimitiveKind::Polygon);
    ASSERT_EQ(arrows.size(), 2u);
    EXPECT_TRUE(near(arrows[0][0], {0, -20, 0}));
    EXPECT_DOUBLE_EQ(arrows[0][1].x, 2.5);
    EXPECT_NEAR(std::abs(arrows[0][1].y - arrows[0][2].y), 2.5 / 3, 1e-12);
    EXPECT_TRUE(near(arrows[1][0], {100, -20, 0}));
    EXPECT_DOUBLE_EQ(arrows[1][1].x, 97.5);
    // Above the line by the gap: middle at -20 + 0.625 + 1.25.
    EXPECT_STREQ(textOf(picture).text(), L"100");
    EXPECT_TRUE(near(middleOf(textOf(picture)), {50, -18.125, 0}));
    EXPECT_TRUE(near(dimension.textPosition(), {50, -18.125, 0}));
    EXPECT_TRUE(near(definitionPoint10(dimension), {100, -20, 0}));
}

TEST_F(DimensionTest, VerticalReadsFromTheRightWhicheverPointIsFirst) {
    for (const bool upwards : {true, false}) {
        const AcGePoint3d low(0, 0, 0);
        const AcGePoint3d high(0, 60, 0);
        AcDbAlignedDimension dimension(upwards ? low : high, upwards ? high : low, {-15, 10, 0});
        const Picture picture = pictureOf(dimension);
        EXPECT_TRUE(textOf(picture).direction().isEqualTo({0, 1, 0}));
        // "Above" is to the left: x = -15 - 1.875.
        EXPECT_TRUE(near(middleOf(textOf(picture)), {-16.875, 30, 0}));
        EXPECT_TRUE(near(definitionPoint10(dimension), {-15, upwards ? 60.0 : 0.0, 0}));
        EXPECT_TRUE(
            near(parts(picture, PrimitiveKind::Polyline)[0][1], {-16.25, upwards ? 0.0 : 60.0, 0}));
    }
}

TEST_F(DimensionTest, SlantedThreeFourFive) {
    // Direction (0.6, 0.8); the line runs 10 to the right of the points: offset (8, -6).
    AcDbAlignedDimension dimension({0, 0, 0}, {30, 40, 0}, {11, -2, 0});
    const Picture picture = pictureOf(dimension);
    EXPECT_TRUE(near(definitionPoint10(dimension), {38, 34, 0}));
    const auto lines = parts(picture, PrimitiveKind::Polyline);
    EXPECT_TRUE(near(lines[0][0], {0.5, -0.375, 0}));
    EXPECT_TRUE(near(lines[0][1], {9, -6.75, 0}));
    EXPECT_TRUE(near(lines[2][0], {9.5, -4, 0}));
    EXPECT_TRUE(near(lines[2][1], {36.5, 32, 0}));
    EXPECT_STREQ(textOf(picture).text(), L"50");
    EXPECT_TRUE(near(middleOf(textOf(picture)), {21.5, 15.125, 0}));
    EXPECT_TRUE(textOf(picture).direction().isEqualTo({0.6, 0.8, 0}));
}

TEST_F(DimensionTest, CoincidentPointsDrawFiniteThings) {
    AcDbAlignedDimension dimension({5, 5, 0}, {5, 5, 0}, {5, 15, 0});
    EXPECT_EQ(dimension.measurement(), 0.0);
    const Picture picture = pictureOf(dimension);
    const auto arrows = parts(picture, PrimitiveKind::Polygon);
    ASSERT_EQ(arrows.size(), 2u);
    EXPECT_TRUE(near(arrows[0][0], {5, 15, 0}));
    EXPECT_DOUBLE_EQ(arrows[0][1].x, 2.5);
    EXPECT_DOUBLE_EQ(arrows[1][1].x, 7.5);
    const auto lines = parts(picture, PrimitiveKind::Polyline);
    ASSERT_EQ(lines.size(), 4u);  // extension lines and the arrows' tails
    EXPECT_TRUE(near(lines[2][1], {0, 15, 0}));
    EXPECT_TRUE(near(lines[3][1], {10, 15, 0}));
    EXPECT_STREQ(textOf(picture).text(), L"0");
    EXPECT_TRUE(near(middleOf(textOf(picture)), {5, 16.875, 0}));
    // The line through the very points: short stubs of the extension lines remain.
    (void)dimension.setDimLinePoint({5, 5, 0});
    const Picture flat = pictureOf(dimension);
    EXPECT_TRUE(near(parts(flat, PrimitiveKind::Polyline)[0][1], {5, 6.25, 0}));
}

TEST_F(DimensionTest, ScaleMultipliesSizesAndPushesArrowsOut) {
    AcDbAlignedDimension dimension({0, 0, 0}, {60, 0, 0}, {0, 30, 0});
    EXPECT_EQ(dimension.dimscale(), 1.0);
    EXPECT_EQ(dimension.setDimscale(-1), Acad::eInvalidInput);
    (void)dimension.setDimscale(10);
    // Arrows need 2 (25 + 6.25) = 62.5: they stand outside.
    const Picture picture = pictureOf(dimension);
    EXPECT_DOUBLE_EQ(parts(picture, PrimitiveKind::Polygon)[0][1].x, -25);
    EXPECT_DOUBLE_EQ(textOf(picture).height(), 25);
    EXPECT_TRUE(near(middleOf(textOf(picture)), {30, 30 + 6.25 + 12.5, 0}));
    EXPECT_STREQ(textOf(picture).text(), L"60");
    // Without its own scale it takes the style's, and 0 there counts as 1.
    (void)dimension.setDimscale(0);
    (void)changed(database, [](AcDbDimStyleValues& v) { v.dimscale = 4; });
    EXPECT_EQ(dimension.dimscale(), 4.0);
    (void)changed(database, [](AcDbDimStyleValues& v) { v.dimscale = 0; });
    EXPECT_EQ(dimension.dimscale(), 1.0);
}

TEST_F(DimensionTest, ATextThatDoesNotFitStandsBeyondTheSecondLine) {
    // Text as long as it is, with a gap of 0.625 on each side, against a room of 3.
    AcDbAlignedDimension dimension({0, 0, 0}, {3, 0, 0}, {0, -10, 0}, L"t = 3,00");
    const Picture picture = pictureOf(dimension);
    const double length = textWidth(L"t = 3,00", 2.5, 1.0);
    ASSERT_GT(length, 3.0);
    // After the arrow (2.5) and a gap, above the line by the gap.
    const AcGePoint3d middle(3 + 2.5 + 0.625 + length / 2, -10 + 0.625 + 1.25, 0);
    EXPECT_TRUE(near(middleOf(textOf(picture)), middle));
    EXPECT_TRUE(near(dimension.textPosition(), middle));
    // The line goes on under the text; the other arrow has its short tail.
    const auto lines = parts(picture, PrimitiveKind::Polyline);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_TRUE(near(lines[3][1], {-5, -10, 0}));
    EXPECT_TRUE(near(lines[4][1], {3 + 2.5 + 0.625 + length + 0.625, -10, 0}));
    // Where the user put it, it stays.
    (void)dimension.setTextPosition({1.5, -5, 0});
    EXPECT_TRUE(near(middleOf(textOf(pictureOf(dimension))), {1.5, -5, 0}));
}

TEST_F(DimensionTest, MeasuredTextsFollowTheStyle) {
    AcDbDimStyleValues style;
    EXPECT_EQ(measureText(100, style), L"100");
    EXPECT_EQ(measureText(12.5, style), L"12,5");
    EXPECT_EQ(measureText(2.345, style), L"2,35");
    EXPECT_EQ(measureText(0.125, style), L"0,13");
    EXPECT_EQ(measureText(0.004, style), L"0");
    style.dimzin = 0;
    style.dimdsep = '.';
    EXPECT_EQ(measureText(12.5, style), L"12.50");
    style.dimzin = 12;
    EXPECT_EQ(measureText(0.5, style), L".5");
    style.dimdec = 0;
    EXPECT_EQ(measureText(120, style), L"120");
    AcDbAlignedDimension dimension({0, 0, 0}, {12.5, 0, 0}, {0, 10, 0}, L"2x<> (<>)");
    EXPECT_EQ(dimension.shownText(), L"2x12,5 (12,5)");
    (void)dimension.setDimensionText(L"<>");
    EXPECT_EQ(dimension.shownText(), L"12,5");
    (void)dimension.setDimensionText(L"A definir");
    EXPECT_EQ(dimension.shownText(), L"A definir");
    (void)dimension.setDimensionText(nullptr);
    EXPECT_EQ(dimension.shownText(), L"12,5");
}

TEST_F(DimensionTest, TransformsCopiesAndGrips) {
    AcDbAlignedDimension dimension({0, 0, 0}, {100, 0, 0}, {50, -20, 0}, L"L = <>");
    (void)dimension.setDimscale(2);
    (void)dimension.setTextPosition({120, -18, 0});
    EXPECT_TRUE(pictureOf(*copyOf(dimension)) == pictureOf(dimension));
    EXPECT_EQ(dimension.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis)),
              Acad::eOk);
    EXPECT_TRUE(near(dimension.xLine2Point(), {0, 100, 0}));
    EXPECT_TRUE(near(dimension.textPosition(), {18, 120, 0}));
    (void)dimension.useDefaultTextPosition();
    // The line stands at x = 20; "above" is to its left by 2 (0.625 + 1.25).
    EXPECT_TRUE(near(dimension.textPosition(), {16.25, 50, 0}));
    AcGeMatrix3d wide;
    wide.entry[0][0] = 3;
    EXPECT_EQ(dimension.transformBy(wide), Acad::eCannotScaleNonUniformly);
    AcDbIntArray second;
    second.append(1);
    EXPECT_EQ(dimension.moveGripPointsAt(second, {0, 20, 0}), Acad::eOk);
    EXPECT_EQ(dimension.shownText(), L"L = 120");
}

TEST_F(DimensionTest, ObliqueExtensionLinesLeanAlongTheirAngle) {
    AcDbAlignedDimension dimension({0, 0, 0}, {100, 0, 0}, {0, 10, 0});
    (void)dimension.setOblique(kPi / 3);
    const double lean = 10 / std::tan(kPi / 3);
    EXPECT_TRUE(near(definitionPoint10(dimension), {100 + lean, 10, 0}));
    // Mirrored in x = 0 they lean to the other side, and the points swap sides with them.
    (void)dimension.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0}));
    EXPECT_TRUE(near(definitionPoint10(dimension), {-100 - lean, 10, 0}));
}

TEST_F(DimensionTest, RotatedMeasuresInItsOwnDirection) {
    AcDbRotatedDimension dimension(0.0, {0, 0, 0}, {300, 400, 0}, {50, -20, 0});
    EXPECT_DOUBLE_EQ(dimension.measurement(), 300);
    const auto lines = parts(pictureOf(dimension), PrimitiveKind::Polyline);
    // Extension lines from both origins down to the line at y = -20 and 1.25 beyond.
    EXPECT_TRUE(near(lines[0][0], {0, -0.625, 0}));
    EXPECT_TRUE(near(lines[1][0], {300, 400 - 0.625, 0}));
    EXPECT_TRUE(near(lines[1][1], {300, -21.25, 0}));
    EXPECT_TRUE(near(dimension.textPosition(), {150, -20 + 0.625 + 1.25, 0}));
    // Turned by a quarter it still measures what it did; mirrored in x = y it is horizontal again.
    (void)dimension.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis));
    EXPECT_NEAR(dimension.measurement(), 300, 1e-9);
    EXPECT_NEAR(std::abs(std::sin(dimension.rotation())), 1, 1e-12);
    EXPECT_TRUE(near(definitionPoint10(dimension), {20, 300, 0}));
    const AcGeVector3d across = AcGeVector3d(1, -1, 0).normal();
    (void)dimension.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, across));
    EXPECT_NEAR(dimension.measurement(), 300, 1e-9);
    EXPECT_TRUE(near(definitionPoint10(dimension), {300, 20, 0}));
    // A line between the origins: each extension line goes its own way.
    (void)dimension.setDimLinePoint({0, -100, 0});
    const auto between = parts(pictureOf(dimension), PrimitiveKind::Polyline);
    EXPECT_TRUE(near(between[0][1], {0, -101.25, 0}));
    EXPECT_TRUE(near(between[1][1], {300, -98.75, 0}));
}

TEST_F(DimensionTest, RadiiDiametersAndAngles) {
    AcDbRadialDimension radius({0, 0, 0}, {30, 40, 0}, 0.0);
    EXPECT_EQ(radius.shownText(), L"R50");
    // Inside: one arrow, its tip on the circle. Its text taken outside turns the line.
    EXPECT_TRUE(near(parts(pictureOf(radius), PrimitiveKind::Polygon)[0][0], {30, 40, 0}));
    EXPECT_EQ(radius.moveText({0, 100, 0}), Acad::eOk);
    EXPECT_TRUE(near(radius.chordPoint(), {0, 50, 0}));
    EXPECT_TRUE(near(radius.textPosition(), {-0.625 - 1.25, 100, 0}));
    const auto arrow = parts(pictureOf(radius), PrimitiveKind::Polygon)[0];
    EXPECT_TRUE(near(arrow[0], {0, 50, 0}));
    EXPECT_DOUBLE_EQ(arrow[1].y, 52.5);
    AcDbDiametricDimension diameter({50, 0, 0}, {-50, 0, 0}, 0.0);
    EXPECT_EQ(diameter.shownText(), L"Ø100");
    EXPECT_EQ(parts(pictureOf(diameter), PrimitiveKind::Polygon).size(), 2u);
    (void)diameter.transformBy(AcGeMatrix3d::scaling(2));
    EXPECT_EQ(diameter.shownText(), L"Ø200");
    // Of the sides of a right angle, with the arc in each quarter; 0.3 of a turn at a vertex.
    for (const double turn : {0.25, 0.75, 1.25, 1.75}) {
        const AcGePoint3d arc(80 * std::cos(turn * kPi), 80 * std::sin(turn * kPi), 0);
        AcDb2LineAngularDimension angle({10, 0, 0}, {100, 0, 0}, {0, 10, 0}, {0, 100, 0}, arc);
        EXPECT_NEAR(angle.measurement(), kPi / 2, 1e-12);
        EXPECT_EQ(angle.shownText(), L"90°");
        const auto arrows = parts(pictureOf(angle), PrimitiveKind::Polygon);
        ASSERT_EQ(arrows.size(), 2u);
        for (const auto& tip : arrows) EXPECT_NEAR(std::hypot(tip[0].x, tip[0].y), 80, 1e-9);
    }
    AcDb3PointAngularDimension vertex({0, 0, 0}, {10, 0, 0},
                                      {std::cos(0.6 * kPi), std::sin(0.6 * kPi), 0}, {5, 5, 0});
    EXPECT_EQ(vertex.shownText(), L"108°");
    AcDb2LineAngularDimension parallel({0, 0, 0}, {1, 0, 0}, {0, 5, 0}, {1, 5, 0}, {3, 3, 0});
    EXPECT_EQ(parallel.measurement(), 0.0);
    EXPECT_FALSE(pictureOf(parallel).empty()) << "its text is there to be taken away";
}

TEST_F(DimensionTest, StyleChangesWhatIsShown) {
    AcDbRotatedDimension dimension(0.0, {0, 0, 0}, {104, 0, 0}, {0, 10, 0});
    (void)changed(database, [](AcDbDimStyleValues& v) {
        v.dimlfac = 0.1;
        v.dimrnd = 0.5;
        v.dimpost = L"aprox. <> cm";
        v.dimtsz = 2;
        v.dimse1 = 1;
        v.dimclrt = 3;
    });
    // 10.4 to the nearest half.
    EXPECT_EQ(dimension.shownText(), L"aprox. 10,5 cm");
    const Picture picture = pictureOf(dimension);
    EXPECT_TRUE(parts(picture, PrimitiveKind::Polygon).empty());
    const auto lines = parts(picture, PrimitiveKind::Polyline);
    ASSERT_EQ(lines.size(), 4u);  // one extension line, two strokes, the line
    EXPECT_TRUE(near(lines[0][0], {104, 0.625, 0}));
    EXPECT_TRUE(near(lines[2][1], {106, 12, 0}));
    EXPECT_EQ(textOf(picture).traits().color, 3);
}

TEST_F(DimensionTest, TextOnTheLineOpensIt) {
    (void)changed(database, [](AcDbDimStyleValues& v) { v.dimtad = 0; });
    AcDbAlignedDimension dimension({0, 0, 0}, {100, 0, 0}, {0, 10, 0});
    const auto lines = parts(pictureOf(dimension), PrimitiveKind::Polyline);
    ASSERT_EQ(lines.size(), 4u);
    const double half = textWidth(L"100", 2.5, 1) / 2 + 0.625;
    EXPECT_TRUE(near(lines[2][1], {50 - half, 10, 0}));
    EXPECT_TRUE(near(lines[3][0], {50 + half, 10, 0}));
    EXPECT_TRUE(near(dimension.textPosition(), {50, 10, 0}));
}

TEST_F(DimensionTest, ExplodesIntoWhatIsDrawn) {
    AcDbAlignedDimension dimension({0, 0, 0}, {100, 0, 0}, {50, -20, 0});
    (void)dimension.setColorIndex(6);
    const Pieces pieces(dimension);
    ASSERT_EQ(pieces.count(), 6);
    EXPECT_NE(pieces.as<AcDbLine>(0), nullptr);
    EXPECT_NE(pieces.as<AcDbSolid>(2), nullptr);
    const auto* text = pieces.as<AcDbText>(5);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text->textStringConst(), L"100");
    EXPECT_EQ(text->colorIndex(), 6);
}
