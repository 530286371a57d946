// SPDX-License-Identifier: MIT
// Texts and paragraphs: justification, codes, mirrors.
#include "dblead.h"
#include "dbmtext.h"
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

TEST_F(TextTest, LettersStandInTheMovedBoxHoweverTheyAreTurned) {
    const AcGeMatrix3d motions[] = {AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0}),
                                    AcGeMatrix3d::mirroring({7, 0, 0}, {0, 1, 0}),
                                    AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis),
                                    AcGeMatrix3d::rotation(kPi, AcGeVector3d::kXAxis),
                                    AcGeMatrix3d::scaling(3)};
    for (int way = 0; way < 2 * 4 * 4 * 5; ++way) {
        AcDbText text({3, 4, 0}, L"U 100x50", AcDbObjectId::kNull, 5);
        (void)text.setNormal({0, 0, way % 2 == 0 ? 1.0 : -1.0});
        (void)text.mirrorInX((way / 2) % 2 == 1);
        (void)text.mirrorInY((way / 4) % 2 == 1);
        constexpr int kModes[] = {0, 2, 4, 5};
        (void)text.setHorizontalMode(kModes[(way / 8) % 4]);
        (void)text.setAlignmentPoint({63, 4, 0});
        const AcGeMatrix3d& m = motions[(way / 32) % 5];
        const AcDbExtents before = pictureOf(text).extents();
        AcDbExtents expected;
        expected.addPoint(m * before.minPoint());
        expected.addPoint(m * before.maxPoint());
        EXPECT_EQ(text.transformBy(m), Acad::eOk);
        const AcDbExtents after = pictureOf(text).extents();
        EXPECT_TRUE(near(after.minPoint(), expected.minPoint())) << way;
        EXPECT_TRUE(near(after.maxPoint(), expected.maxPoint())) << way;
        // Exploded, for one that an unequal scale has drawn, it stands there too.
        AcDbVoidPtrArray parts;
        appendEntities(pictureOf(text), parts);
        ASSERT_EQ(parts.length(), 1);
        const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(parts[0]));
        EXPECT_TRUE(pictureOf(*part) == pictureOf(text)) << way;
    }
}

TEST_F(TextTest, CopiesAndInvalidValues) {
    AcDbText text({3, 4, 0}, L"aço Ø 12,7", AcDbObjectId::kNull, 5, 0.3);
    (void)text.setOblique(0.2);
    (void)text.setNormal({0, 0, -2});
    (void)text.mirrorInX(true);
    EXPECT_EQ(text.setNormal({0, 0, 0}), Acad::eInvalidInput);
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

namespace {

std::unique_ptr<AcDbMText> paragraphs(const wchar_t* contents, double width = 0.0,
                                      int attachment = 1) {
    auto text = std::make_unique<AcDbMText>();
    (void)text->setLocation({100, 50, 0});
    (void)text->setTextHeight(3);
    (void)text->setWidth(width);
    (void)text->setAttachment(static_cast<AcDbMText::AttachmentPoint>(attachment));
    (void)text->setContents(contents);
    return text;
}

}  // namespace

TEST_F(TextTest, CodesOfParagraphsAreDrawnAndNeverShown) {
    struct Letters {
        const wchar_t* text;
        double below;  ///< baseline under the top, in heights of 3
        double height;
    };
    struct Case {
        const wchar_t* contents;
        std::vector<Letters> letters;
        std::size_t strokes;
    };
    // Lines are 5/3 of a height apart: baselines at 1 and at 2.667 heights.
    const Case cases[] = {
        {L"Viga \\\\ \\{1\\}", {{L"Viga \\ {1}", 1, 1}}, 0},
        {L"a\\Pb", {{L"a", 1, 1}, {L"b", 8.0 / 3, 1}}, 0},
        {L"{\\LA\\l}\\~B", {{L"%%uA%%u", 1, 1}, {L" B", 1, 1}}, 0},
        {L"\\KA", {{L"A", 1, 1}}, 1},
        {L"%%c 50 %%p1", {{L"%%c 50 %%p1", 1, 1}}, 0},
        {L"A\\H2x;B", {{L"A", 2, 1}, {L"B", 2, 2}}, 0},
        {L"A\\H1.5;B", {{L"A", 1, 1}, {L"B", 1, 0.5}}, 0},
        // A fraction of half letters about the middle of the line: parts of 0.5, a gap of 0.25.
        {L"X{\\H0.5x;\\A1;\\S1/2;}", {{L"X", 1.125, 1}, {L"1", 0.5, 0.5}, {L"2", 1.25, 0.5}}, 1},
        {L"X{\\H0.5x;\\A1;\\S1^2;}", {{L"X", 1.125, 1}, {L"1", 0.5, 0.5}, {L"2", 1.25, 0.5}}, 0},
        {L"\\Ssem barra;", {{L"sem barra", 1, 1}}, 0},
        {L"\\fArial|b0|i0;\\W0.8;\\T1.2;\\A1;\\pxqc;A", {{L"A", 1, 1}}, 0},
        {L"{{sem fim", {{L"sem fim", 1, 1}}, 0},
        {L"fim}\\", {{L"fim\\", 1, 1}}, 0},
        {L"\\H", {}, 0},
    };
    for (const Case& each : cases) {
        const auto text = paragraphs(each.contents);
        const Picture picture = pictureOf(*text);
        const std::string which = std::to_string(&each - cases);
        ASSERT_EQ(picture.size(), each.letters.size() + each.strokes) << which;
        for (std::size_t i = 0; i < each.letters.size(); ++i) {
            EXPECT_STREQ(picture[i].text(), each.letters[i].text) << which;
            EXPECT_NEAR(picture[i].position().y, 50 - 3 * each.letters[i].below, 1e-9) << which;
            EXPECT_NEAR(picture[i].height(), 3 * each.letters[i].height, 1e-9) << which;
        }
    }
    const Picture styled = pictureOf(*paragraphs(L"\\fArial|b1|i1;\\C1;\\Q10;A\\C256;B"));
    ASSERT_EQ(styled.size(), 4u) << "bold letters are struck twice";
    EXPECT_EQ(styled[0].traits().color, 1);
    EXPECT_EQ(styled[3].traits().color, 256);
    EXPECT_NEAR(styled[0].oblique(), 25 * kPi / 180, 1e-12);
    const Pieces pieces(*paragraphs(L"\\fArial|b1;A\\PB"));
    ASSERT_EQ(pieces.count(), 2);
    EXPECT_STREQ(pieces.as<AcDbText>(1)->textStringConst(), L"B");
}

TEST_F(TextTest, ParagraphsBreakAndStandAsAttached) {
    // Letters of "um dois tres" are 0.9 (m 1.1), its blanks 0.5 of a height of 3.
    const double words[] = {3 * (0.9 + 1.1), 3 * (3 * 0.9 + 0.5), 3 * (0.5 + 0.9 + 0.9 + 0.9)};
    const double width = words[0] + 1.5 + words[1];
    for (int attachment = 1; attachment <= 9; ++attachment) {
        const int column = (attachment - 1) % 3;
        const int row = (attachment - 1) / 3;
        const auto text = paragraphs(L"um dois tres", width, attachment);
        const Picture picture = pictureOf(*text);
        ASSERT_EQ(picture.size(), 2u);
        EXPECT_STREQ(picture[0].text(), L"um dois");
        EXPECT_NEAR(text->actualWidth(), width, 1e-9);
        EXPECT_NEAR(text->actualHeight(), 8, 1e-9);
        EXPECT_TRUE(near(picture[0].position(), {100 - width * column / 2, 47 + 4.0 * row, 0}));
        const double free = width - words[2];
        EXPECT_NEAR(picture[1].position().x, picture[0].position().x + free * column / 2, 1e-9);
        expectRoundTrip(*text);
    }
    // Mirrored left to right the frame stands on the other side and is read as before.
    const auto text = paragraphs(L"A\\PB", 40);
    EXPECT_EQ(text->transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_TRUE(near(text->location(), {-100, 50, 0}));
    EXPECT_EQ(text->attachment(), AcDbMText::kTopRight);
    EXPECT_TRUE(text->direction().isEqualTo({1, 0, 0}));
    EXPECT_TRUE(pictureOf(*copyOf(*text)) == pictureOf(*text));
    // The grip of the far edge, which is the left one now, makes it wider.
    AcDbIntArray second;
    second.append(1);
    EXPECT_EQ(text->moveGripPointsAt(second, {-5, 3, 0}), Acad::eOk);
    EXPECT_NEAR(text->width(), 45, 1e-9);
    EXPECT_EQ(text->setTextHeight(0), Acad::eInvalidInput);
    EXPECT_EQ(text->setLineSpacingFactor(9), Acad::eOutOfRange);
}

TEST_F(TextTest, LeadersAreDrawnToTheirArrowAndHook) {
    AcDbLeader leader;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), {30, 40, 0}, {60, 40, 0}})
        (void)leader.appendVertex(p);
    (void)leader.setDimscale(2);
    (void)leader.setHook(AcDbLeader::Hook::Along);
    const Picture straight = pictureOf(leader);
    ASSERT_EQ(straight.size(), 2u);
    // The arrow of 2 x 2.5 lies on the first leg: its tail's middle at (3, 4).
    const auto arrow = straight[0].points();
    EXPECT_TRUE(near(arrow[0], {0, 0, 0}));
    EXPECT_TRUE(near(arrow[1] + (arrow[2] - arrow[1]) * 0.5, {3, 4, 0}));
    EXPECT_TRUE(near(straight[1].points().back(), {65, 40, 0}));
    // A scale leaves arrow and hook as the style has them, as it does those of dimensions.
    EXPECT_EQ(leader.transformBy(AcGeMatrix3d::scaling(2)), Acad::eOk);
    EXPECT_TRUE(near(pictureOf(leader)[1].points().back(), {125, 80, 0}));
    EXPECT_EQ(leader.transformBy(AcGeMatrix3d::scaling(0.5)), Acad::eOk);
    // A curve goes through its points and ends where they do.
    (void)leader.setSplined(true);
    (void)leader.setHook(AcDbLeader::Hook::None);
    const Picture curved = pictureOf(leader);
    const auto path = curved[1].points();
    EXPECT_TRUE(near(path[16], {30, 40, 0}));
    EXPECT_TRUE(near(path.back(), {60, 40, 0}));
    EXPECT_TRUE(pictureOf(*copyOf(leader)) == curved);
    EXPECT_EQ(leader.setVertexAt(3, {}), Acad::eInvalidIndex);
}
