// SPDX-License-Identifier: MIT
// Lines, points, circles, arcs, ellipses, construction lines, solids: transformations, copies,
// grips, LIST, undo.
#include "dbspline.h"
#include "dbviewport.h"
#include "fixture.h"
#include "prancheta/database/database_core.h"
#include "prancheta/entities/spline_part.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"

using namespace prancheta;

namespace {

const AcGeVector3d kZ = AcGeVector3d::kZAxis;

AcGeMatrix3d stretch(double x, double y) {
    AcGeMatrix3d m;
    return m.setCoordSystem(AcGePoint3d::kOrigin, {x, 0, 0}, {0, y, 0}, kZ);
}

void drag(AcDbEntity& entity, int grip, const AcGeVector3d& offset) {
    AcDbIntArray indices;
    indices.append(grip);
    EXPECT_EQ(entity.moveGripPointsAt(indices, offset), Acad::eOk);
}

}  // namespace

using SimpleTest = EntityTest;

TEST_F(SimpleTest, SimilaritiesAndTheirInversesBringBackThePicture) {
    AcDbLine line({1, 2, 0}, {30, -4, 0});
    AcDbPoint point({7, 7, 0});
    AcDbCircle circle({5, 6, 0}, kZ, 12);
    AcDbArc arc({5, 6, 0}, 12, kPi / 6, 1.5);
    AcDbSolid solid({0, 0, 0}, {10, 0, 0}, {0, 5, 0}, {10, 7, 0});
    for (AcDbEntity* entity : {static_cast<AcDbEntity*>(&line), static_cast<AcDbEntity*>(&point),
                               static_cast<AcDbEntity*>(&circle), static_cast<AcDbEntity*>(&arc),
                               static_cast<AcDbEntity*>(&solid)})
        expectRoundTrip(*entity);
    AcDbEllipse ellipse({5, 6, 0}, kZ, {8, 6, 0}, 0.3);
    AcDbEllipse part({5, 6, 0}, kZ, {8, 6, 0}, 0.3, 0.5, 4.0);
    expectRoundTrip(ellipse);
    expectRoundTrip(part);
}

TEST_F(SimpleTest, UnequalScalesAreTakenOnlyByWhatCanShowThem) {
    AcDbLine line({1, 2, 0}, {3, 4, 0});
    EXPECT_EQ(line.transformBy(stretch(10, 1)), Acad::eOk);
    EXPECT_TRUE(near(line.endPoint(), {30, 4, 0}));
    AcDbSolid solid({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0});
    AcGePoint3d corner;
    EXPECT_EQ(solid.transformBy(stretch(3, 2)), Acad::eOk);
    (void)solid.getPointAt(3, corner);
    EXPECT_TRUE(near(corner, {3, 2, 0}));
    AcDbCircle circle({1, 1, 0}, kZ, 2);
    AcDbArc arc({1, 1, 0}, 2, 0, 1);
    EXPECT_EQ(circle.transformBy(stretch(2, 1)), Acad::eCannotScaleNonUniformly);
    EXPECT_EQ(arc.transformBy(stretch(2, 1)), Acad::eCannotScaleNonUniformly);
    EXPECT_TRUE(near(circle.center(), {1, 1, 0}));
    EXPECT_EQ(arc.radius(), 2.0);
}

TEST_F(SimpleTest, ArcMirroredAndSetUpright) {
    // 0 to 90 degrees about (10, 0), mirrored in x = 0: 90 to 180 degrees about (-10, 0).
    AcDbArc arc({10, 0, 0}, 4, 0, kPi / 2);
    EXPECT_EQ(arc.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_TRUE(near(arc.center(), {-10, 0, 0}));
    EXPECT_EQ(arc.startAngle(), kPi / 2);
    EXPECT_EQ(arc.endAngle(), kPi);
    EXPECT_TRUE(arc.normal().isEqualTo(kZ));
    // Turned about x by 90 degrees it stands in y = 0: from (-14, 0, 0) up to (-10, 0, 4).
    EXPECT_EQ(arc.transformBy(AcGeMatrix3d::rotation(kPi / 2, {1, 0, 0})), Acad::eOk);
    const AcDbExtents box = pictureOf(arc).extents();
    EXPECT_TRUE(near(box.minPoint(), {-14, 0, 0}));
    EXPECT_TRUE(near(box.maxPoint(), {-10, 0, 4}));
    // Equal angles are a full turn.
    AcDbArc full({0, 0, 0}, 3, 1, 1);
    EXPECT_TRUE(near(pictureOf(full).extents().maxPoint(), {3, 3, 0}));
}

TEST_F(SimpleTest, CopiesKeepEveryField) {
    AcDbArc arc({1, 2, 3}, 4, 0.5, 1.5);
    (void)arc.setNormal({0, 1, 0});
    (void)arc.setColorIndex(3);
    const auto copy = copyOf(arc);
    EXPECT_TRUE(pictureOf(*copy) == pictureOf(arc));
    EXPECT_EQ(copy->colorIndex(), 3);
    AcDbCircle circle({1, 2, 3}, {1, 0, 0}, 9);
    EXPECT_TRUE(pictureOf(*copyOf(circle)) == pictureOf(circle));
    AcDbSolid solid({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {2, 2, 0});
    EXPECT_TRUE(pictureOf(*copyOf(solid)) == pictureOf(solid));
}

TEST_F(SimpleTest, SettersNeedWriteAccessAndAreUndone) {
    UndoLog& undo = database.core().undo();
    const AcDbObjectId id = append(new AcDbCircle({0, 0, 0}, kZ, 5));
    AcDbObjectPointer<AcDbCircle> circle(id, AcDb::kForRead);
    EXPECT_EQ(circle->setRadius(7), Acad::eNotOpenForWrite);
    (void)circle.open(id, AcDb::kForWrite);
    undo.begin(L"TESTE");
    EXPECT_EQ(circle->setRadius(-1), Acad::eInvalidInput);
    EXPECT_EQ(circle->setRadius(7), Acad::eOk);
    EXPECT_EQ(circle->setCenter({1, 1, 0}), Acad::eOk);
    (void)circle.close();
    undo.end();
    EXPECT_TRUE(undo.undo());
    (void)circle.open(id, AcDb::kForRead);
    EXPECT_EQ(circle->radius(), 5.0);
    EXPECT_TRUE(near(circle->center(), {0, 0, 0}));
    (void)circle.close();
    EXPECT_TRUE(undo.redo());
    (void)circle.open(id, AcDb::kForRead);
    EXPECT_EQ(circle->radius(), 7.0);
}

TEST_F(SimpleTest, GripsMoveWhatTheyStandOn) {
    AcDbLine line({0, 0, 0}, {10, 0, 0});
    drag(line, 1, {0, 5, 0});
    EXPECT_TRUE(near(line.endPoint(), {10, 5, 0}));
    drag(line, 2, {1, 1, 0});
    EXPECT_TRUE(near(line.startPoint(), {1, 1, 0}));
    EXPECT_TRUE(near(line.endPoint(), {11, 6, 0}));
    AcDbCircle circle({0, 0, 0}, kZ, 5);
    drag(circle, 1, {3, 6, 0});  // quadrant (5, 0) to (8, 6)
    EXPECT_DOUBLE_EQ(circle.radius(), 10);
    AcDbArc arc({0, 0, 0}, 5, 0, kPi / 2);
    drag(arc, 2, {-7, -5, 0});  // end (0, 5) to (-7, 0)
    EXPECT_DOUBLE_EQ(arc.endAngle(), kPi);
    EXPECT_EQ(arc.radius(), 5.0);
    AcGePoint3dArray grips;
    AcDbIntArray unused;
    grips.append({9, 9, 9});
    EXPECT_EQ(circle.getGripPoints(grips, unused, unused), Acad::eOk);
    ASSERT_EQ(grips.length(), 6);  // centre and quadrants after what was there
    EXPECT_TRUE(near(grips[5], {0, -10, 0}));
}

TEST_F(SimpleTest, ListTellsTheGeometryInPortuguese) {
    AcDbLine line({0, 0, 0}, {30, 40, 0});
    line.list();
    const std::wstring text = takePrinted();
    EXPECT_NE(text.find(L"a partir do ponto, X=0,0000  Y=0,0000  Z=0,0000"), std::wstring::npos);
    EXPECT_NE(text.find(L"até o ponto, X=30,0000  Y=40,0000"), std::wstring::npos);
    EXPECT_NE(text.find(L"Comprimento = 50,0000"), std::wstring::npos);
    EXPECT_NE(text.find(L"Ângulo no plano XY = 53"), std::wstring::npos);
}

TEST_F(SimpleTest, BowTieOrderOfSolidsAndTriangles) {
    AcDbSolid solid({0, 0, 0}, {10, 0, 0}, {0, 5, 0}, {10, 5, 0});
    const Picture square = pictureOf(solid);
    ASSERT_EQ(square[0].points().size(), 4u);
    EXPECT_TRUE(near(square[0].points()[2], {10, 5, 0}));
    EXPECT_TRUE(near(square[0].points()[3], {0, 5, 0}));
    AcDbSolid triangle({0, 0, 0}, {10, 0, 0}, {0, 5, 0}, {0, 5, 0});
    EXPECT_EQ(pictureOf(triangle)[0].points().size(), 3u);
    Pieces pieces(triangle);
    EXPECT_EQ(pieces.status, Acad::eCannotExplodeEntity);
}

TEST_F(SimpleTest, EllipsesAreDrawnAsTheyAre) {
    // Half axes of 10 and 4, turned so that cos = 0.8 and sin = 0.6.
    AcDbEllipse whole({100, 50, 0}, kZ, {8, 6, 0}, 0.4);
    const double wide = std::hypot(10 * 0.8, 4 * 0.6);
    const double high = std::hypot(10 * 0.6, 4 * 0.8);
    const AcDbExtents box = pictureOf(whole).extents();
    EXPECT_NEAR(box.maxPoint().x, 100 + wide, 1e-4);
    EXPECT_NEAR(box.minPoint().y, 50 - high, 1e-4);
    EXPECT_EQ(whole.transformBy(stretch(2, 1)), Acad::eCannotScaleNonUniformly);
    // Every point that is drawn satisfies the equation of the ellipse.
    AcDbEllipse part({0, 0, 0}, kZ, {10, 0, 0}, 0.4, 0, kPi / 2);
    for (const PrimitiveView p : pictureOf(part)) {
        std::vector<AcGePoint3d> points;
        appendOutline(p, 1e-6, points);
        EXPECT_TRUE(near(points.front(), {10, 0, 0}));
        EXPECT_TRUE(near(points.back(), {0, 4, 0}));
        for (const AcGePoint3d& q : points) EXPECT_NEAR(std::hypot(q.x / 10, q.y / 4), 1.0, 5e-6);
    }
    // Mirrored in x = 0 it runs from its former end to its former start.
    EXPECT_EQ(part.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_TRUE(near(part.pointAt(part.startParam()), {0, 4, 0}));
    EXPECT_TRUE(near(part.pointAt(part.endParam()), {-10, 0, 0}));
    EXPECT_NEAR(part.sweep(), kPi / 2, 1e-12);
    // Its minor axis dragged to 16 becomes the major one; the ends stay on its quadrants.
    drag(part, 2, {0, part.minorAxis().y > 0 ? 12.0 : -12.0, 0});
    EXPECT_NEAR(part.majorAxis().length(), 16, 1e-9);
    EXPECT_NEAR(part.radiusRatio(), 10.0 / 16, 1e-12);
    EXPECT_TRUE(near(part.pointAt(part.startParam()), {0, 16, 0}));
    EXPECT_TRUE(near(part.pointAt(part.endParam()), {-10, 0, 0}));
    AcGePoint3dArray quadrants;
    AcDbIntArray ids;
    EXPECT_EQ(part.getOsnapPoints(AcDb::kOsModeQuad, 0, {}, {}, {}, quadrants, ids), Acad::eOk);
    EXPECT_EQ(quadrants.length(), 2);
}

TEST_F(SimpleTest, SplinesAreTheCurvesTheyAre) {
    // Nine points with weights of 1 and cos 45 are a circle: of radius 10 about (5, 5).
    SplineData round;
    round.flags = SplineData::kClosed | 4 | 8;
    round.degree = 2;
    const double around[][2] = {{1, 0},   {1, 1},  {0, 1},  {-1, 1}, {-1, 0},
                                {-1, -1}, {0, -1}, {1, -1}, {1, 0}};
    for (const auto& [x, y] : around) round.control.emplace_back(5 + 10 * x, 5 + 10 * y, 0);
    for (int i = 0; i < 9; ++i) round.weights.push_back(i % 2 == 0 ? 1.0 : std::sqrt(0.5));
    round.knots = {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4};
    AcDbSpline circle;
    ASSERT_EQ(circle.setData(round), Acad::eOk);
    EXPECT_TRUE(circle.isClosed());
    EXPECT_NEAR(circle.length(), kTwoPi * 10, 1e-6);
    double area = 0.0;
    EXPECT_EQ(circle.getArea(area), Acad::eOk);
    EXPECT_NEAR(area, kPi * 100, 1e-5);
    const Picture picture = pictureOf(circle);
    ASSERT_EQ(picture.size(), 1u);
    std::vector<AcGePoint3d> points;
    appendOutline(picture[0], 1e-7, points);
    for (const AcGePoint3d& p : points) EXPECT_NEAR(std::hypot(p.x - 5, p.y - 5), 10, 1e-6);
    expectRoundTrip(circle);

    // The parabola y = 3 x - 0.75 x^2 from (0, 0) to (4, 0): 3 high, of this length.
    SplineData bent;
    bent.degree = 2;
    bent.control = {{0, 0, 0}, {2, 6, 0}, {4, 0, 0}};
    bent.knots = {0, 0, 0, 1, 1, 1};
    AcDbSpline parabola;
    ASSERT_EQ(parabola.setData(bent), Acad::eOk);
    EXPECT_NEAR(pictureOf(parabola).extents().maxPoint().y, 3, 1e-4);
    EXPECT_NEAR(parabola.length(), (3 * std::sqrt(10.0) + std::asinh(3.0)) / 1.5, 1e-4);
    points.clear();
    appendOutline(pictureOf(parabola)[0], 1e-7, points);
    for (const AcGePoint3d& p : points) EXPECT_NEAR(p.y, 3 * p.x - 0.75 * p.x * p.x, 2e-4);
    EXPECT_EQ(parabola.transformBy(stretch(2, 1)), Acad::eCannotScaleNonUniformly);
    expectRoundTrip(parabola);
    drag(parabola, 1, {0, 2, 0});
    EXPECT_NEAR(pictureOf(parabola).extents().maxPoint().y, 4, 1e-4);
    AcGePoint3dArray ends;
    AcDbIntArray ids;
    EXPECT_EQ(parabola.getOsnapPoints(AcDb::kOsModeEnd, 0, {}, {}, {}, ends, ids), Acad::eOk);
    ASSERT_EQ(ends.length(), 2);
    EXPECT_TRUE(near(ends[1], {4, 0, 0}));
    EXPECT_EQ(parabola.getArea(area), Acad::eInvalidInput);
    // Half way along the upper one of 4: in its own mirror.
    AcGePoint3dArray middle;
    EXPECT_EQ(parabola.getOsnapPoints(AcDb::kOsModeMid, 0, {}, {}, {}, middle, ids), Acad::eOk);
    ASSERT_EQ(middle.length(), 1);
    EXPECT_NEAR(middle[0].distanceTo({2, 4, 0}), 0, 1e-4);

    // Their parts lie on them, with ends that were no control points.
    const auto offCurve = [&](const SplineData& whole, const AcGePoint3d& p) {
        return whole.weights.empty() ? p.y - (3 * p.x - 0.75 * p.x * p.x)
                                     : std::hypot(p.x - 5, p.y - 5) - 10;
    };
    for (const SplineData& whole : {bent, round}) {
        const Curve all = chordsOf(whole);
        const double from = 0.25 * all.count() + 0.3;
        const double to = 0.75 * all.count() + 0.3;
        AcDbSpline part;
        ASSERT_EQ(part.setData(splinePart(whole, from, to)), Acad::eOk);
        EXPECT_NEAR(offCurve(whole, part.data().control.front()), 0.0, 1e-9);
        EXPECT_NEAR(offCurve(whole, part.data().control.back()), 0.0, 1e-9);
        EXPECT_NEAR(part.length(), all.lengthAt(to) - all.lengthAt(from), 1e-2);
        points.clear();
        appendOutline(pictureOf(part)[0], 1e-7, points);
        for (const AcGePoint3d& p : points) EXPECT_NEAR(offCurve(whole, p), 0.0, 2e-4);
        EXPECT_EQ(splinePart(whole, 0.0, all.count()).control.size(), whole.control.size());
    }

    // Through its fit points, leaving the first one straight up.
    SplineData through;
    through.fit = {{0, 0, 0}, {10, 0, 0}, {20, 5, 0}};
    through.tangents[0] = {0, 1, 0};
    AcDbSpline fitted;
    ASSERT_EQ(fitted.setData(through), Acad::eOk);
    points.clear();
    appendOutline(pictureOf(fitted)[0], 1e-7, points);
    EXPECT_GT(points[1].y, 100 * std::abs(points[1].x));
    const auto missOf = [&](const AcGePoint3d& to) {
        double miss = 1e9;
        for (const AcGePoint3d& p : points) miss = std::min(miss, p.distanceTo(to));
        return miss;
    };
    EXPECT_LT(missOf({10, 0, 0}), 1e-9);
    expectRoundTrip(fitted);

    bent.knots[3] = -1;
    EXPECT_EQ(parabola.setData(bent), Acad::eInvalidInput);
    bent.control.resize(1);
    EXPECT_EQ(parabola.setData(bent), Acad::eInvalidInput);
    EXPECT_EQ(parabola.setData({}), Acad::eInvalidInput);
}

TEST_F(SimpleTest, ConstructionLinesHaveNoExtents) {
    AcDbRay ray;
    EXPECT_EQ(ray.setBasePoint({1, 2, 0}), Acad::eOk);
    EXPECT_EQ(ray.setUnitDir({0, 0, 0}), Acad::eInvalidInput);
    EXPECT_EQ(ray.setUnitDir({30, 40, 0}), Acad::eOk);
    AcDbExtents box;
    EXPECT_EQ(ray.getGeomExtents(box), Acad::eDegenerateGeometry);
    EXPECT_TRUE(pictureOf(ray).extents().isEmpty());
    EXPECT_TRUE(near(pictureOf(ray).reach().minPoint(), {1, 2, 0}));
    EXPECT_EQ(ray.transformBy(stretch(2, 1)), Acad::eOk);
    EXPECT_TRUE(near(ray.basePoint(), {2, 2, 0}));
    EXPECT_NEAR(ray.unitDir().y / ray.unitDir().x, 2.0 / 3, 1e-12);
    const auto copy = copyOf(ray);
    EXPECT_TRUE(pictureOf(*copy) == pictureOf(ray));
    AcGePoint3dArray ends;
    AcDbIntArray ids;
    EXPECT_EQ(ray.getOsnapPoints(AcDb::kOsModeEnd, 0, {}, {}, {}, ends, ids), Acad::eOk);
    ASSERT_EQ(ends.length(), 1);
    EXPECT_TRUE(near(ends[0], {2, 2, 0}));
    EXPECT_EQ(Pieces(ray).status, Acad::eCannotExplodeEntity);
}

TEST_F(SimpleTest, ViewportsKeepTheirScaleAndWhatTheyShowInPlace) {
    // 200 x 160 about (100, 80), 1:10 about the model's (500, 400).
    AcDbViewport viewport;
    (void)viewport.setCenterPoint({100, 80, 0});
    (void)viewport.setWidth(200);
    (void)viewport.setHeight(160);
    (void)viewport.setViewCenter({500, 400});
    EXPECT_EQ(viewport.setCustomScale(0.0), Acad::eInvalidInput);
    EXPECT_EQ(viewport.setCustomScale(0.1), Acad::eOk);
    EXPECT_TRUE(near(viewport.modelToSheet() * AcGePoint3d(600, 400, 0), {110, 80, 0}));
    drag(viewport, 3, {50, 20, 0});  // the upper right corner
    EXPECT_TRUE(near(viewport.centerPoint(), {125, 90, 0}));
    EXPECT_DOUBLE_EQ(viewport.customScale(), 0.1);
    EXPECT_TRUE(near(viewport.modelToSheet() * AcGePoint3d(600, 400, 0), {110, 80, 0}));
    drag(viewport, 1, {900, 0, 0});  // beyond the other side: the frame stays
    EXPECT_EQ(viewport.width(), 250.0);
    // A quarter turn takes the picture along; another angle is no upright frame.
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kPi / 2, kZ);
    const AcGePoint3d before = viewport.modelToSheet() * AcGePoint3d(600, 410, 0);
    EXPECT_EQ(viewport.transformBy(turn), Acad::eOk);
    EXPECT_TRUE(near(viewport.modelToSheet() * AcGePoint3d(600, 410, 0), turn * before));
    EXPECT_EQ(viewport.width(), 180.0);
    EXPECT_EQ(viewport.transformBy(AcGeMatrix3d::rotation(0.1, kZ)), Acad::eNotApplicable);
    const auto copy = copyOf(viewport);
    EXPECT_TRUE(pictureOf(*copy) == pictureOf(viewport));
    EXPECT_TRUE(near(copy->modelToSheet() * AcGePoint3d(600, 410, 0), turn * before));
    (void)viewport.setNumber(1);  // the sheet's own view
    EXPECT_TRUE(pictureOf(viewport).empty());
}
