// SPDX-License-Identifier: MIT
// Entities of other programs: drawn and moved by their groups.
#include "fixture.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/foreign_shapes.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/hit.h"
#include "prancheta/graphics/text_metrics.h"

using namespace prancheta;

namespace {

const AcGeVector3d kZ = AcGeVector3d::kZAxis;

std::unique_ptr<ForeignEntity> foreign(const char* type, RawTags tags) {
    auto entity = std::make_unique<ForeignEntity>();
    EXPECT_EQ(entity->setContent(type, std::move(tags)), Acad::eOk);
    return entity;
}

AcDbExtents boxOf(AcDbEntity& entity) { return pictureOf(entity).extents(); }

void expectReachesAsFar(const Picture& picture, const Picture& wanted, const std::string& which) {
    for (int i = 0; i < 10; ++i) {
        const AcGeMatrix3d seen = AcGeMatrix3d::rotation(0.3 * i, {0, 0.2 * (i % 3), 1});
        Picture a = picture;
        Picture b = wanted;
        a.transform(seen);
        b.transform(seen);
        EXPECT_TRUE(near(a.extents().maxPoint(), b.extents().maxPoint(), 1e-6)) << which;
        EXPECT_TRUE(near(a.extents().minPoint(), b.extents().minPoint(), 1e-6)) << which;
    }
}

/// Moving and drawing must agree: the picture of the moved entity is the moved picture.
void expectMovesAsDrawn(ForeignEntity& entity) {
    const AcGeMatrix3d m = AcGeMatrix3d::translation({30, -7, 0}) *
                           AcGeMatrix3d::rotation(0.6, kZ) * AcGeMatrix3d::scaling(2);
    Picture expected = pictureOf(entity);
    ASSERT_FALSE(expected.empty()) << entity.typeName();
    expected.transform(m);
    ASSERT_EQ(entity.transformBy(m), Acad::eOk) << entity.typeName();
    EXPECT_TRUE(pictureOf(entity) == expected) << entity.typeName();
    // In mirrors and out of the plane curves begin elsewhere and texts are turned to be read: what
    // stays is how far all of it reaches in every direction. Then all of it back.
    const AcGeMatrix3d others[] = {
        AcGeMatrix3d::mirroring({3, 1, 0}, {1, 0, 0}),
        AcGeMatrix3d::mirroring({3, 1, 0}, {0, 1, 0}),
        AcGeMatrix3d::mirroring({-5, 2, 0}, {0.6, 0.8, 0}) * AcGeMatrix3d::scaling(0.5),
        AcGeMatrix3d::rotation(0.7, {1, 0, 0}, {0, 2, 5}),
        AcGeMatrix3d::mirroring({1, 2, 3}, {0, 0.6, 0.8}),
    };
    for (const AcGeMatrix3d& other : others) {
        // The first line stays the first.
        const bool lines = entity.typeName() == "MTEXT" && expected.size() > 1;
        if (lines && other.det() < 0.0) continue;
        const Picture before = pictureOf(entity);
        Picture wanted = before;
        wanted.transform(other);
        const std::string which =
            entity.typeName() + " by matrix " + std::to_string(&other - others);
        ASSERT_EQ(entity.transformBy(other), Acad::eOk) << which;
        expectReachesAsFar(pictureOf(entity), wanted, which);
        ASSERT_EQ(entity.transformBy(other.inverse()), Acad::eOk) << which;
        expectReachesAsFar(pictureOf(entity), before, which + " and back");
    }
}

}  // namespace

using ForeignTest = EntityTest;

TEST_F(ForeignTest, ParagraphsInColumnsAreShownInOne) {
    const auto text = foreign("MTEXT", {{100, "AcDbMText"},
                                        {10, "100"},
                                        {20, "50"},
                                        {30, "0"},
                                        {40, "3"},
                                        {41, "0"},
                                        {71, "1"},
                                        {3, "Chapa"},
                                        {1, " 1\\PØ 2"},
                                        {101, "Embedded Object"},
                                        {71, "2"}});
    const Picture picture = pictureOf(*text);
    ASSERT_EQ(picture.size(), 2u);
    EXPECT_STREQ(picture[0].text(), L"Chapa 1");
    EXPECT_STREQ(picture[1].text(), L"Ø 2");
    // Top left: the first baseline lies one height below, the next one 5/3 of a height further.
    EXPECT_TRUE(near(picture[0].position(), {100, 47, 0}));
    EXPECT_TRUE(near(picture[1].position(), {100, 42, 0}));
    expectMovesAsDrawn(*text);
}

TEST_F(ForeignTest, EllipsesAndSplines) {
    const auto ellipse = foreign("ELLIPSE", {{10, "5"},
                                             {20, "5"},
                                             {30, "0"},
                                             {11, "0"},
                                             {21, "8"},
                                             {31, "0"},
                                             {40, "0.5"},
                                             {41, "0"},
                                             {42, "6.283185307179586"}});
    EXPECT_TRUE(near(boxOf(*ellipse).minPoint(), {1, -3, 0}));
    EXPECT_TRUE(near(boxOf(*ellipse).maxPoint(), {9, 13, 0}));
    expectMovesAsDrawn(*ellipse);
    // Quadratic with one span is the parabola through (0,0) and (4,0) with its top at half the
    // height of the middle control point.
    const auto spline = foreign("SPLINE", {{70, "8"},
                                           {71, "2"},
                                           {72, "6"},
                                           {73, "3"},
                                           {40, "0"},
                                           {40, "0"},
                                           {40, "0"},
                                           {40, "1"},
                                           {40, "1"},
                                           {40, "1"},
                                           {10, "0"},
                                           {20, "0"},
                                           {30, "0"},
                                           {10, "2"},
                                           {20, "6"},
                                           {30, "0"},
                                           {10, "4"},
                                           {20, "0"},
                                           {30, "0"}});
    EXPECT_TRUE(near(boxOf(*spline).maxPoint(), {4, 3, 0}));
    expectMovesAsDrawn(*spline);
    // Knots that do not fit: the control polygon.
    const auto broken = foreign(
        "SPLINE",
        {{71, "3"}, {40, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {10, "2"}, {20, "6"}, {30, "0"}});
    EXPECT_TRUE(near(boxOf(*broken).maxPoint(), {2, 6, 0}));
}

TEST_F(ForeignTest, OldPolylinesKeepTheirVerticesAndElevation) {
    const auto line = foreign(
        "POLYLINE",
        {{66, "1"}, {10, "0"},   {20, "0"}, {30, "3"}, {70, "1"},     {0, "VERTEX"}, {5, "1F"},
         {8, "0"},  {10, "10"},  {20, "0"}, {30, "3"}, {42, "1"},     {0, "VERTEX"}, {5, "20"},
         {8, "0"},  {10, "-10"}, {20, "0"}, {30, "3"}, {0, "SEQEND"}, {5, "21"},     {8, "0"}});
    const Picture picture = pictureOf(*line);
    ASSERT_EQ(picture.size(), 1u);
    EXPECT_TRUE(picture[0].closed());
    EXPECT_TRUE(near(picture.extents().maxPoint(), {10, 10, 3}));
    expectMovesAsDrawn(*line);
    // Behind the normal that leaving the plane brought.
    EXPECT_EQ(line->tags()[4].value, "0");
    EXPECT_EQ(line->tags()[9].value, "1F");
    EXPECT_EQ(line->transformBy(AcGeMatrix3d::translation({0, 0, 5})), Acad::eOk);
    EXPECT_TRUE(near(boxOf(*line).minPoint(), pictureOf(*line)[0].points()[1], 1e3));
    EXPECT_NEAR(boxOf(*line).maxPoint().z, 3 * 2 + 5, 1e-9);
}

TEST_F(ForeignTest, FacesTracesAndAttributes) {
    const auto face = foreign("3DFACE", {{10, "0"},
                                         {20, "0"},
                                         {30, "0"},
                                         {11, "4"},
                                         {21, "0"},
                                         {31, "0"},
                                         {12, "4"},
                                         {22, "3"},
                                         {32, "1"},
                                         {70, "2"}});
    EXPECT_EQ(pictureOf(*face).size(), 2u);  // three edges, the second one hidden
    expectMovesAsDrawn(*face);
    const auto trace = foreign(
        "TRACE",
        {{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"}, {12, "0"}, {22, "3"}, {13, "4"}, {23, "3"}});
    EXPECT_EQ(distanceTo(pictureOf(*trace), {2, 2.9, 0}), 0.0);
    expectMovesAsDrawn(*trace);
    // Seen from below: the corner (4, 3) of its plane is (-4, 3) of the world.
    const auto solid = foreign("SOLID", {{10, "0"},
                                         {20, "0"},
                                         {11, "4"},
                                         {21, "0"},
                                         {12, "0"},
                                         {22, "3"},
                                         {13, "4"},
                                         {23, "3"},
                                         {210, "0"},
                                         {220, "0"},
                                         {230, "-1"}});
    EXPECT_EQ(distanceTo(pictureOf(*solid), {-2, 2.9, 0}), 0.0);
    expectMovesAsDrawn(*solid);
    const auto attribute = foreign("ATTRIB", {{10, "0"},
                                              {20, "0"},
                                              {30, "0"},
                                              {40, "5"},
                                              {1, "P12"},
                                              {50, "90"},
                                              {72, "2"},
                                              {11, "8"},
                                              {21, "9"},
                                              {31, "0"},
                                              {70, "0"}});
    EXPECT_TRUE(near(boxOf(*attribute).maxPoint(), {8, 9, 0}));
    expectMovesAsDrawn(*attribute);
}

TEST_F(ForeignTest, InsertionsShowTheirArraysAndAttributes) {
    (void)block(L"FURO", {new AcDbCircle({0, 0, 0}, kZ, 2)});
    // Two columns 10 apart, turned by 90 degrees, twice as wide; one attribute beside.
    auto entity = foreign("INSERT", {{100, "AcDbBlockReference"},
                                     {66, "1"},
                                     {2, "FURO"},
                                     {10, "50"},
                                     {20, "20"},
                                     {30, "0"},
                                     {50, "90"},
                                     {70, "2"},
                                     {44, "10"},
                                     {0, "ATTRIB"},
                                     {5, "2A"},
                                     {100, "AcDbText"},
                                     {10, "60"},
                                     {20, "20"},
                                     {30, "0"},
                                     {40, "3"},
                                     {1, "F1"},
                                     {100, "AcDbAttribute"},
                                     {2, "NOME"},
                                     {70, "0"},
                                     {0, "SEQEND"},
                                     {5, "2B"}});
    const AcDbObjectId id = append(entity.release());
    AcDbObjectPointer<ForeignEntity> insert(id, AcDb::kForWrite);
    const Picture picture = pictureOf(*insert);
    ASSERT_EQ(picture.size(), 3u);
    EXPECT_TRUE(near(picture[0].center(), {50, 20, 0}));
    EXPECT_TRUE(near(picture[1].center(), {50, 30, 0}));
    EXPECT_STREQ(picture[2].text(), L"F1");
    expectMovesAsDrawn(*insert);
    EXPECT_EQ(pictureOf(*insert)[0].radius(), 4.0);
}

TEST_F(ForeignTest, BlocksAreFoundByTheNameThatIsMeant) {
    (void)block(L"A^B", {new AcDbCircle({0, 0, 0}, kZ, 2)});
    const AcDbObjectId id =
        append(foreign("INSERT", {{2, " A^ B"}, {10, "50"}, {20, "20"}, {30, "0"}}).release());
    AcDbObjectPointer<ForeignEntity> insert(id, AcDb::kForRead);
    ASSERT_EQ(pictureOf(*insert).size(), 1u);
}

TEST_F(ForeignTest, PlanesSeenFromBelowAreMovedAsDrawn) {
    // Normal -z: x of the plane is -x of the world.
    const auto line = foreign("LWPOLYLINE", {{100, "AcDbPolyline"},
                                             {90, "2"},
                                             {70, "0"},
                                             {38, "4"},
                                             {10, "5"},
                                             {20, "0"},
                                             {42, "1"},
                                             {10, "5"},
                                             {20, "6"},
                                             {210, "0"},
                                             {220, "0"},
                                             {230, "-1"}});
    EXPECT_TRUE(near(boxOf(*line).minPoint(), {-8, 0, -4}));
    EXPECT_TRUE(near(boxOf(*line).maxPoint(), {-5, 6, -4}));
    expectMovesAsDrawn(*line);
    const auto text = foreign("TEXT", {{10, "5"},
                                       {20, "0"},
                                       {30, "0"},
                                       {40, "2"},
                                       {1, "A"},
                                       {210, "0"},
                                       {220, "0"},
                                       {230, "-1"}});
    EXPECT_NEAR(boxOf(*text).maxPoint().x, -5, 1e-9);
}

namespace {

/// Groups from text such as "10 1.5|2 *D1".
RawTags tagsOf(std::string_view text) {
    RawTags tags;
    while (!text.empty()) {
        const std::string_view one = text.substr(0, text.find('|'));
        text.remove_prefix(std::min(text.size(), one.size() + 1));
        const std::size_t blank = one.find(' ');
        tags.push_back({std::stoi(std::string(one)), std::string(one.substr(blank + 1))});
    }
    return tags;
}

std::string textOf(const RawTags& tags) {
    std::string text;
    for (const auto& [code, value] : tags) {
        double number = 0.0;
        const bool isNumber = prancheta::parseNumber(value, number);
        const std::string rounded = numberText(std::round(number * 1e9) / 1e9 + 0.0);
        text +=
            (text.empty() ? "" : "|") + std::to_string(code) + ' ' + (isNumber ? rounded : value);
    }
    return text;
}

}  // namespace

TEST_F(ForeignTest, GroupsGoWhereTheirMeaningSays) {
    // Mirrored in x = 50: x becomes 100 - x. Turned by a right angle, twice as large and moved:
    // (x, y, z) becomes (100 - 2 y, 2 x, 2 z).
    struct Case {
        const char* type;
        const char* before;
        const char* mirrored;
        const char* turned;
    };
    const Case cases[] = {
        {"RAY", "10 1|20 2|30 0|11 1|21 0|31 0", "10 99|20 2|30 0|11 -1|21 0|31 0",
         "10 96|20 2|30 0|11 0|21 1|31 0"},
        {"MESH", "92 2|10 1|20 2|30 3|10 4|20 5|30 6|93 0",
         "92 2|10 99|20 2|30 3|10 96|20 5|30 6|93 0", "92 2|10 96|20 2|30 6|10 90|20 8|30 12|93 0"},
        // Elements to the left of the line are to the left as seen from the other side.
        {"MLINE", "40 1|210 0|220 0|230 1|11 5|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|41 0.5",
         "40 1|210 0|220 0|230 -1|11 95|21 0|31 0|12 -1|22 0|32 0|13 0|23 1|33 0|41 0.5",
         "40 2|210 0|220 0|230 1|11 100|21 10|31 0|12 0|22 1|32 0|13 -1|23 0|33 0|41 1"},
        // Size in pixels and clipping in pixels stay.
        {"IMAGE", "10 1|20 2|30 0|11 0.1|21 0|31 0|12 0|22 0.1|32 0|13 640|23 480|14 -0.5|24 -0.5",
         "10 99|20 2|30 0|11 -0.1|21 0|31 0|12 0|22 0.1|32 0|13 640|23 480|14 -0.5|24 -0.5",
         "10 96|20 2|30 0|11 0|21 0.2|31 0|12 -0.2|22 0|32 0|13 640|23 480|14 -0.5|24 -0.5"},
        {"ATTDEF", "11 10|21 2|72 1|40 2|1 A", "11 90|21 2|72 1|40 2|1 A|50 0",
         "11 96|21 20|72 1|40 4|1 A|50 90"},
        {"TOLERANCE", "10 1|20 2|30 0|11 0|21 1|31 0", "10 99|20 2|30 0|11 0|21 1|31 0",
         "10 96|20 2|30 0|11 -1|21 0|31 0"},
        // Top left becomes top right; along y, bottom left.
        {"MTEXT", "10 1|20 2|30 0|40 2|71 1|11 1|21 0|31 0",
         "10 99|20 2|30 0|40 2|71 3|11 1|21 0|31 0", "10 96|20 2|30 0|40 4|71 1|11 0|21 1|31 0"},
        {"MTEXT", "10 1|20 2|30 0|40 2|71 1|50 90", "10 99|20 2|30 0|40 2|71 7|11 0|21 1|31 0",
         "10 96|20 2|30 0|40 4|71 1|11 -1|21 0|31 0"},
        {"DIMENSION",
         "2 *D1|10 4|20 6|30 0|11 2|21 6|31 0|70 32|42 4|53 0|13 0|23 0|33 0|14 4|24 3|34 0|50 "
         "30|52 15",
         "2 *D1|10 96|20 6|30 0|11 98|21 6|31 0|70 32|42 4|53 0|13 100|23 0|33 0|14 96|24 3|34 "
         "0|50 150|52 -15",
         "2 *D1|10 88|20 8|30 0|11 88|21 4|31 0|70 32|42 8|53 0|13 100|23 0|33 0|14 94|24 8|34 "
         "0|50 120|52 15"},
        // Horizontal and without an angle; an angle does not grow; the axis of an ordinate counts
        // clockwise.
        {"DIMENSION", "10 4|20 6|70 32|42 4|14 4|24 3|34 0",
         "10 96|20 6|70 32|42 4|14 96|24 3|34 0|50 180",
         "10 88|20 8|70 32|42 8|14 94|24 8|34 0|50 90"},
        {"DIMENSION", "10 4|20 6|70 34|42 1.5|16 1|26 2|36 0|53 10",
         "10 96|20 6|70 34|42 1.5|16 99|26 2|36 0|53 350",
         "10 88|20 8|70 34|42 1.5|16 96|26 2|36 0|53 100"},
        {"DIMENSION", "10 4|20 6|70 38|42 4", "10 96|20 6|51 0|70 38|42 4",
         "10 88|20 8|51 270|70 38|42 8"},
        // An arc's length has no direction of its own; a jogged radius keeps its angle.
        {"ARC_DIMENSION", "10 4|20 6|70 40|42 4|13 0|23 0|14 4|24 3",
         "10 96|20 6|70 40|42 4|13 100|23 0|14 96|24 3",
         "10 88|20 8|70 40|42 8|13 100|23 0|14 94|24 8"},
        {"LARGE_RADIAL_DIMENSION", "10 4|20 6|70 32|42 4|13 0|23 0|14 4|24 3|40 0.78",
         "10 96|20 6|70 32|42 4|13 100|23 0|14 96|24 3|40 0.78",
         "10 88|20 8|70 32|42 8|13 100|23 0|14 94|24 8|40 0.78"},
        // The first point is the plane's height; a line of the pattern has a place and a step.
        {"MPOLYGON",
         "10 0|20 0|30 0|71 0|91 1|92 2|72 1|73 1|93 2|10 1|20 2|42 0.5|10 4|20 2|42 0|52 30|41 "
         "1|78 1|53 30|43 1|44 0|45 -1|46 2|79 1|49 3|11 1|21 0",
         "10 0|20 0|30 0|71 0|91 1|92 2|72 1|73 1|93 2|10 99|20 2|42 -0.5|10 96|20 2|42 0|52 "
         "150|41 1|78 1|53 150|43 99|44 0|45 1|46 2|79 1|49 3|11 -1|21 0",
         "10 0|20 0|30 0|71 0|91 1|92 2|72 1|73 1|93 2|10 96|20 2|42 0.5|10 96|20 8|42 0|52 "
         "120|41 2|78 1|53 120|43 100|44 2|45 -4|46 -2|79 1|49 6|11 0|21 2"},
        // The faces of a net have no places.
        {"POLYLINE", "70 64|0 VERTEX|70 192|10 1|20 2|30 3|0 VERTEX|70 128|10 0|20 0|30 0|71 1",
         "70 64|0 VERTEX|70 192|10 99|20 2|30 3|0 VERTEX|70 128|10 0|20 0|30 0|71 1",
         "70 64|0 VERTEX|70 192|10 96|20 2|30 6|0 VERTEX|70 128|10 0|20 0|30 0|71 1"},
        {"MULTILEADER",
         "300 CONTEXT_DATA{|40 1|10 5|20 1|30 0|41 2|304 LEADER{|11 0|21 0|31 1|12 6|22 2|32 0|13 "
         "1|23 0|33 0|42 0|45 1|171 1|111 1|121 0|131 0|297 0|302 LEADER{|10 4|20 1|30 0|11 1|21 "
         "0|31 0|40 8|304 LEADER_LINE{|10 0|20 0|30 0|305 }|303 }|301 }|41 8|302 A|179 1|45 1",
         "300 CONTEXT_DATA{|40 1|10 95|20 1|30 0|41 2|304 LEADER{|11 0|21 0|31 1|12 94|22 2|32 "
         "0|13 1|23 0|33 0|42 0|45 1|171 3|111 -1|121 0|131 0|297 1|302 LEADER{|10 96|20 1|30 "
         "0|11 -1|21 0|31 0|40 8|304 LEADER_LINE{|10 100|20 0|30 0|305 }|303 }|301 }|41 8|302 "
         "A|179 3|45 1",
         "300 CONTEXT_DATA{|40 2|10 98|20 10|30 0|41 4|304 LEADER{|11 0|21 0|31 1|12 96|22 12|32 "
         "0|13 0|23 1|33 0|42 1.570796327|45 1|171 1|111 0|121 1|131 0|297 0|302 LEADER{|10 98|20 "
         "8|30 0|11 0|21 1|31 0|40 16|304 LEADER_LINE{|10 100|20 0|30 0|305 }|303 }|301 }|41 "
         "16|302 A|179 1|45 2"},
    };
    AcGeMatrix3d turn;
    turn.setCoordSystem({100, 0, 0}, {0, 2, 0}, {-2, 0, 0}, {0, 0, 2});
    for (const Case& each : cases) {
        const auto mirrored = foreign(each.type, tagsOf(each.before));
        ASSERT_EQ(mirrored->transformBy(AcGeMatrix3d::mirroring({50, 0, 0}, {1, 0, 0})), Acad::eOk);
        EXPECT_EQ(textOf(mirrored->tags()), each.mirrored) << each.type;
        const auto turned = foreign(each.type, tagsOf(each.before));
        ASSERT_EQ(turned->transformBy(turn), Acad::eOk);
        EXPECT_EQ(textOf(turned->tags()), each.turned) << each.type;
    }
}

TEST_F(ForeignTest, ShapesOfOtherProgramsAreShown) {
    struct Case {
        const char* type;
        const char* groups;
        AcGePoint3d low, high;
        std::size_t primitives;
    };
    const Case cases[] = {
        // Two elements, 1 to the left and 2 to the right of a bent line.
        {"MLINE",
         "70 1|71 1|72 2|73 2|10 0|20 0|30 0|11 0|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 "
         "1|41 0|75 0|74 2|41 -2|41 0|75 0|11 9|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 "
         "1|41 0|75 0|74 2|41 -2|41 0|75 0",
         {0, -2, 0},
         {9, 1, 0},
         2},
        // A leader of two points with its landing and the shelf of 3; the arrow is 1 long.
        {"MULTILEADER",
         "300 CONTEXT_DATA{|40 1|10 0|20 0|30 0|140 1|302 LEADER{|10 8|20 6|30 0|11 1|21 0|31 0|40 "
         "3|304 LEADER_LINE{|10 0|20 0|30 0|305 }|303 }|301 }",
         {0, 0, 0},
         {11, 6, 0},
         3},
        // 40 x 20 pixels of 0.5: the frame; clipped to a triangle, counted downwards.
        {"IMAGE",
         "10 1|20 2|30 0|11 0.5|21 0|31 0|12 0|22 0.5|32 0|13 40|23 20",
         {1, 2, 0},
         {21, 12, 0},
         1},
        {"WIPEOUT",
         "10 0|20 0|30 0|11 10|21 0|31 0|12 0|22 10|32 0|13 1|23 1|71 2|91 3|14 -0.5|24 -0.5|14 "
         "0|24 -0.5|14 -0.5|24 0",
         {0, 5, 0},
         {5, 10, 0},
         2},
        // A square of two triangles: each with its three edges.
        {"MESH",
         "71 2|72 0|91 0|92 4|10 0|20 0|30 0|10 4|20 0|30 0|10 4|20 3|30 0|10 0|20 3|30 0|93 8|90 "
         "3|90 0|90 1|90 2|90 3|90 0|90 2|90 3|94 0|95 0",
         {0, 0, 0},
         {4, 3, 0},
         6},
        // The same as faces, the diagonal hidden in both.
        {"POLYLINE",
         "70 64|71 4|72 2|0 VERTEX|70 192|10 0|20 0|30 0|0 VERTEX|70 192|10 4|20 0|30 0|0 "
         "VERTEX|70 192|10 4|20 3|30 0|0 VERTEX|70 192|10 0|20 3|30 0|0 VERTEX|70 128|10 0|20 "
         "0|30 0|71 1|72 2|73 -3|0 VERTEX|70 128|10 0|20 0|30 0|71 -1|72 3|73 4|0 SEQEND",
         {0, 0, 0},
         {4, 3, 0},
         4},
        // A net of 2 x 3.
        {"POLYLINE",
         "70 16|71 2|72 3|0 VERTEX|70 64|10 0|20 0|30 0|0 VERTEX|70 64|10 1|20 0|30 0|0 VERTEX|70 "
         "64|10 2|20 0|30 0|0 VERTEX|70 64|10 0|20 5|30 0|0 VERTEX|70 64|10 1|20 5|30 0|0 "
         "VERTEX|70 64|10 2|20 5|30 0|0 SEQEND",
         {0, 0, 0},
         {2, 5, 0},
         5},
        // A polyline 2 wide all along.
        {"POLYLINE",
         "70 0|40 2|41 2|0 VERTEX|70 0|10 0|20 0|30 0|0 VERTEX|70 0|10 9|20 0|30 0|0 SEQEND",
         {0, -1, 0},
         {9, 1, 0},
         2},
    };
    for (const Case& c : cases) {
        const auto entity = foreign(c.type, tagsOf(c.groups));
        const Picture picture = pictureOf(*entity);
        EXPECT_EQ(picture.size(), c.primitives) << c.groups;
        EXPECT_TRUE(near(picture.extents().minPoint(), c.low)) << c.groups;
        EXPECT_TRUE(near(picture.extents().maxPoint(), c.high)) << c.groups;
    }
    // Right-aligned at 20, backwards: from there to the right. Upside down: below its line.
    const double wide = textWidth(L"ABC", 4, 1);
    const std::pair<const char*, std::array<double, 4>> turned[] = {
        {"10 0|20 5|40 4|1 ABC|72 2|11 20|21 5|71 2", {20, 5, 20 + wide, 9}},
        {"10 20|20 5|40 4|1 ABC|71 2", {20 - wide, 5, 20, 9}},
        {"10 20|20 5|40 4|1 ABC|71 4", {20, 1, 20 + wide, 5}},
        {"10 20|20 5|40 4|1 ABC|71 6", {20 - wide, 1, 20, 5}},
    };
    for (const auto& [groups, box] : turned) {
        const auto text = foreign("TEXT", tagsOf(groups));
        EXPECT_TRUE(near(boxOf(*text).minPoint(), {box[0], box[1], 0})) << groups;
        EXPECT_TRUE(near(boxOf(*text).maxPoint(), {box[2], box[3], 0})) << groups;
        const AcGePoint3d middle((box[0] + box[2]) / 2, (box[1] + box[3]) / 2, 0);
        EXPECT_TRUE(touches(pictureOf(*text), Window(middle, middle))) << groups;
    }
    // Through four fit points of a circle, and never far from it: a smooth curve.
    const Picture curve = pictureOf(*foreign(
        "SPLINE", tagsOf("70 1|71 3|74 4|11 10|21 0|31 0|11 0|21 10|31 0|11 -10|21 0|31 0|11 0|21 "
                         "-10|31 0")));
    ASSERT_EQ(curve.size(), 1u);
    EXPECT_GT(curve[0].points().size(), 40u);
    for (const AcGePoint3d& p : curve[0].points()) EXPECT_NEAR(std::hypot(p.x, p.y), 10.0, 1.2);
    EXPECT_FALSE(isShownForeign("OLE2FRAME"));
    EXPECT_TRUE(isShownForeign("MPOLYGON") && isShownForeign("ARC_DIMENSION"));
}

TEST_F(ForeignTest, WhatCannotBeMovedStaysAsItWas) {
    const RawTags tags = {{100, "AcDbModelerGeometry"}, {70, "1"}, {10, "1"}, {1, "mjqpn"}};
    const auto unknown = foreign("3DSOLID", tags);
    EXPECT_TRUE(pictureOf(*unknown).empty());
    EXPECT_EQ(unknown->transformBy(AcGeMatrix3d::translation({1, 0, 0})), Acad::eNotApplicable);
    EXPECT_EQ(unknown->tags()[2].value, "1");
    const auto face = foreign(
        "3DFACE",
        {{10, "0"}, {20, "0"}, {11, "2"}, {21, "0"}, {12, "2"}, {22, "1"}, {13, "0"}, {23, "1"}});
    const Picture before = pictureOf(*face);
    AcGeMatrix3d stretched;
    stretched.entry[0][0] = 2.0;
    EXPECT_EQ(face->transformBy(stretched), Acad::eNotApplicable);
    EXPECT_TRUE(pictureOf(*face) == before);
    const auto copy = copyOf(*foreign("MTEXT", {{10, "1"}, {20, "2"}, {30, "0"}, {1, "Ø"}}));
    EXPECT_EQ(copy->typeName(), "MTEXT");
    ASSERT_EQ(copy->tags().size(), 4u);
    EXPECT_EQ(copy->tags()[3].value, "Ø");
}

TEST_F(ForeignTest, ExplodedAreasOfManyCornersBecomeHatchesThatDrawTheSame) {
    Picture picture;
    std::vector<AcGePoint3d> outline;
    for (int i = 0; i < 6; ++i)
        outline.emplace_back(10 * std::cos(i * kPi / 3), 10 * std::sin(i * kPi / 3), 2);
    picture.addPolygon(traitsOf(AcDbLine()), outline);
    AcDbVoidPtrArray made;
    appendEntities(picture, made);
    ASSERT_EQ(made.length(), 1);
    const std::unique_ptr<AcDbEntity> entity(static_cast<AcDbEntity*>(made[0]));
    const Picture drawn = pictureOf(*entity);
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].kind(), PrimitiveKind::Polygon);
    EXPECT_TRUE(near(drawn.extents().maxPoint(), picture.extents().maxPoint()));
    EXPECT_TRUE(near(drawn.extents().minPoint(), picture.extents().minPoint()));
}
