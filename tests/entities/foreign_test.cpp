// SPDX-License-Identifier: MIT
// Entities of other programs: drawn and moved by their groups.
#include "fixture.h"
#include "prancheta/entities/foreign_entity.h"
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

/// Moving and drawing must agree: the picture of the moved entity is the moved picture.
void expectMovesAsDrawn(ForeignEntity& entity) {
    const AcGeMatrix3d m = AcGeMatrix3d::translation({30, -7, 0}) *
                           AcGeMatrix3d::rotation(0.6, kZ) * AcGeMatrix3d::scaling(2);
    Picture expected = pictureOf(entity);
    ASSERT_FALSE(expected.empty()) << entity.typeName();
    expected.transform(m);
    ASSERT_EQ(entity.transformBy(m), Acad::eOk) << entity.typeName();
    EXPECT_TRUE(pictureOf(entity) == expected) << entity.typeName();
}

RawTags hatch(const char* solid) {
    // Outer path: 10 x 10 square of edges whose right side is an arc bulging outwards; inner path:
    // 2 x 2 square as a polyline.
    return {{100, "AcDbHatch"}, {10, "0"},    {20, "0"},   {30, "0"},  {210, "0"},  {220, "0"},
            {230, "1"},         {2, "SOLID"}, {70, solid}, {71, "0"},  {91, "2"},   {92, "1"},
            {93, "4"},          {72, "1"},    {10, "0"},   {20, "0"},  {11, "10"},  {21, "0"},
            {72, "2"},          {10, "10"},   {20, "5"},   {40, "5"},  {50, "270"}, {51, "450"},
            {73, "1"},          {72, "1"},    {10, "10"},  {20, "10"}, {11, "0"},   {21, "10"},
            {72, "1"},          {10, "0"},    {20, "10"},  {11, "0"},  {21, "0"},   {97, "0"},
            {92, "2"},          {72, "0"},    {73, "1"},   {93, "4"},  {10, "4"},   {20, "4"},
            {10, "6"},          {20, "4"},    {10, "6"},   {20, "6"},  {10, "4"},   {20, "6"},
            {97, "0"},          {75, "0"},    {76, "1"},   {98, "1"},  {10, "1"},   {20, "1"}};
}

}  // namespace

using ForeignTest = EntityTest;

TEST_F(ForeignTest, ParagraphsLoseTheirFormattingAndKeepTheirPlace) {
    const auto text = foreign("MTEXT", {{100, "AcDbMText"},
                                        {10, "100"},
                                        {20, "50"},
                                        {30, "0"},
                                        {40, "3"},
                                        {41, "0"},
                                        {71, "1"},
                                        {72, "1"},
                                        {3, "{\\fArial|b1;Chapa} \\H2x;aço"},
                                        {1, "\\PØ \\S1/2; 100\\~mm"},
                                        {7, "Standard"}});
    const Picture picture = pictureOf(*text);
    ASSERT_EQ(picture.size(), 2u);
    EXPECT_STREQ(picture[0].text(), L"Chapa aço");
    EXPECT_STREQ(picture[1].text(), L"Ø 1/2 100 mm");
    // Top left: the first baseline lies one height below, the next one 5/3 of a height further.
    EXPECT_TRUE(near(picture[0].position(), {100, 47, 0}));
    EXPECT_TRUE(near(picture[1].position(), {100, 42, 0}));
    expectMovesAsDrawn(*text);
}

TEST_F(ForeignTest, ParagraphsAreCentredAndWrapped) {
    const auto text = foreign("MTEXT", {{10, "0"},
                                        {20, "0"},
                                        {30, "0"},
                                        {40, "2"},
                                        {41, "14"},
                                        {71, "5"},
                                        {1, "um dois tres"},
                                        {11, "0"},
                                        {21, "1"},
                                        {31, "0"}});
    const Picture picture = pictureOf(*text);
    ASSERT_GT(picture.size(), 1u);
    for (const PrimitiveView line : picture) {
        EXPECT_LE(textWidth(line.text(), 2, 1), 14);
        EXPECT_TRUE(line.direction().isEqualTo({0, 1, 0}));
    }
    const AcDbExtents box = picture.extents();
    EXPECT_NEAR(box.minPoint().x, -box.maxPoint().x, 1e-9);
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

TEST_F(ForeignTest, HatchesAreFilledAroundTheirHoles) {
    const auto solid = foreign("HATCH", hatch("1"));
    const Picture picture = pictureOf(*solid);
    ASSERT_EQ(picture.size(), 1u);
    // Chords keep within a 500th of the radius 5.
    EXPECT_TRUE(near(picture.extents().maxPoint(), {15, 10, 0}, 0.01));
    EXPECT_EQ(distanceTo(picture, {2, 8, 0}), 0.0);
    EXPECT_GT(distanceTo(picture, {5, 5.1, 0}), 0.5);
    expectMovesAsDrawn(*solid);
    const auto pattern = foreign("HATCH", hatch("0"));
    EXPECT_EQ(pictureOf(*pattern).size(), 2u);
    expectMovesAsDrawn(*pattern);
}

TEST_F(ForeignTest, ClockwiseEdgesOfHatchesGiveTheirAnglesClockwise) {
    // Right half of a disc: clockwise from the top (90 = -270) over the right to the bottom.
    const auto half =
        foreign("HATCH",
                {{30, "0"},  {70, "1"}, {91, "1"},   {92, "1"},   {93, "2"}, {72, "2"}, {10, "0"},
                 {20, "0"},  {40, "5"}, {50, "270"}, {51, "450"}, {73, "0"}, {72, "1"}, {10, "0"},
                 {20, "-5"}, {11, "0"}, {21, "5"},   {97, "0"},   {75, "0"}, {76, "1"}, {98, "0"}});
    EXPECT_TRUE(near(boxOf(*half).minPoint(), {0, -5, 0}));
    EXPECT_TRUE(near(boxOf(*half).maxPoint(), {5, 5, 0}, 0.01));
    expectMovesAsDrawn(*half);
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
    EXPECT_EQ(line->tags()[1].value, "0");
    EXPECT_EQ(line->tags()[6].value, "1F");
    EXPECT_EQ(line->transformBy(AcGeMatrix3d::translation({0, 0, 5})), Acad::eOk);
    EXPECT_TRUE(near(boxOf(*line).minPoint(), pictureOf(*line)[0].points()[1], 1e3));
    EXPECT_NEAR(boxOf(*line).maxPoint().z, 3 * 2 + 5, 1e-9);
}

TEST_F(ForeignTest, FacesLeadersTracesAndAttributes) {
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
    const auto leader = foreign(
        "LEADER",
        {{71, "1"}, {76, "2"}, {10, "0"}, {20, "0"}, {30, "0"}, {10, "20"}, {20, "0"}, {30, "0"}});
    EXPECT_TRUE(near(pictureOf(*leader)[1].points()[0], {0, 0, 0}));
    EXPECT_EQ(leader->transformBy(AcGeMatrix3d::translation({1, 2, 0})), Acad::eOk);
    EXPECT_TRUE(near(pictureOf(*leader)[0].points()[1], {21, 2, 0}));
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

TEST_F(ForeignTest, WhatCannotBeMovedStaysAsItWas) {
    const RawTags tags = {{100, "AcDbWipeout"}, {10, "1"}, {20, "2"}, {30, "0"}};
    const auto unknown = foreign("WIPEOUT", tags);
    EXPECT_TRUE(pictureOf(*unknown).empty());
    EXPECT_EQ(unknown->transformBy(AcGeMatrix3d::translation({1, 0, 0})), Acad::eNotApplicable);
    EXPECT_EQ(unknown->tags()[1].value, "1");
    const auto solid = foreign("HATCH", hatch("1"));
    const Picture before = pictureOf(*solid);
    EXPECT_EQ(solid->transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})),
              Acad::eNotApplicable);
    EXPECT_EQ(solid->transformBy(AcGeMatrix3d::rotation(1, {1, 0, 0})), Acad::eNotApplicable);
    EXPECT_TRUE(pictureOf(*solid) == before);
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
