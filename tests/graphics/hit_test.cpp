// SPDX-License-Identifier: MIT
// Picking by point, window and crossing.
#include "prancheta/graphics/hit.h"

#include <gtest/gtest.h>

#include <cmath>

#include "prancheta/geometry/angles.h"

using namespace prancheta;

namespace {

const AcGeVector3d kZ = AcGeVector3d::kZAxis;

Picture quarter() {
    Picture picture;
    picture.addArc({}, {0, 0, 0}, 10, kZ, {1, 0, 0}, kPi / 2);
    return picture;
}

Window window(double x0, double y0, double x1, double y1) { return {{x0, y0, 0}, {x1, y1, 0}}; }

}  // namespace

TEST(Hit, DistanceFromCurvesAreasAndTexts) {
    EXPECT_TRUE(std::isinf(distanceTo(Picture(), {0, 0, 0})));
    // On the ray at 45 degrees the arc is at 10; opposite to it an end is nearest: (10, 0) or (0,
    // 10).
    EXPECT_NEAR(distanceTo(quarter(), {1, 1, 0}), 10 - std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(distanceTo(quarter(), {10, -3, 0}), 3, 1e-12);
    EXPECT_NEAR(distanceTo(quarter(), {-3, -4, 0}), std::hypot(13, 4), 1e-12);

    Picture area;
    const AcGePoint3d square[4] = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
    area.addPolygon({}, square);
    EXPECT_EQ(distanceTo(area, {5, 5, 0}), 0.0);
    EXPECT_NEAR(distanceTo(area, {13, 14, 0}), 5, 1e-12);

    Picture label;
    label.addText({}, {0, 0, 0}, kZ, {1, 0, 0}, 10, 1, 0, L"W");
    EXPECT_EQ(distanceTo(label, {5, 5, 0}), 0.0);
    EXPECT_NEAR(distanceTo(label, {5, -2, 0}), 2, 1e-12);

    Picture node;
    node.addPolyline({}, std::span(square).first(1));
    EXPECT_NEAR(distanceTo(node, {3, 4, 9}), 5, 1e-12);
}

TEST(Hit, CrossingTouchesLinesThatOnlyPassThrough) {
    Picture line;
    const AcGePoint3d ends[2] = {{-100, -100, 0}, {100, 100, 0}};
    line.addPolyline({}, ends);
    EXPECT_TRUE(touches(line, window(5, -5, -5, 5)));
    EXPECT_FALSE(touches(line, window(10, -20, 20, 0)));
    EXPECT_TRUE(touches(line, window(10, 0, 20, 10)));  // the corner lies on it
    EXPECT_FALSE(isInside(line, window(-100, -100, 100, 99)));
    EXPECT_TRUE(isInside(line, window(-100, -100, 100, 100)));
}

TEST(Hit, CrossingOfArcsLooksAtTheArcAndNotItsChordOrCircle) {
    const Picture arc = quarter();
    // On the chord from (10,0) to (0,10) but not on the arc.
    EXPECT_FALSE(touches(arc, window(4.5, 4.5, 5.5, 5.5)));
    // Over the arc at 45 degrees, (7.07, 7.07).
    EXPECT_TRUE(touches(arc, window(7, 7, 7.2, 7.2)));
    // Over the rest of the circle.
    EXPECT_FALSE(touches(arc, window(-11, -1, -9, 1)));
    EXPECT_FALSE(touches(arc, window(-7.2, -7.2, -7, -7)));
    // Only the bulging middle: x from 7.05 to 7.1, y from 0 to 20.
    EXPECT_TRUE(touches(arc, window(7.05, 0, 7.1, 20)));
    Picture circle;
    circle.addCircle({}, {0, 0, 0}, 10, kZ);
    EXPECT_FALSE(touches(circle, window(-5, -5, 5, 5)));
    EXPECT_FALSE(touches(circle, window(9, 9, 20, 20)));
    EXPECT_TRUE(touches(circle, window(-20, -20, 20, 20)));
    EXPECT_TRUE(isInside(circle, window(-10, -10, 10, 10)));
}

TEST(Hit, WindowInsideAFilledAreaTouchesIt) {
    Picture area;
    const AcGePoint3d triangle[3] = {{0, 0, 0}, {100, 0, 0}, {0, 100, 0}};
    area.addPolygon({}, triangle);
    EXPECT_TRUE(touches(area, window(10, 10, 11, 11)));
    EXPECT_FALSE(touches(area, window(60, 60, 61, 61)));
    AcDbExtents box = area.extents();
    EXPECT_TRUE(window(60, 60, 61, 61).overlaps(box));
    EXPECT_FALSE(window(101, 0, 102, 1).overlaps(box));
}
