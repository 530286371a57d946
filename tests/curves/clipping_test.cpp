// SPDX-License-Identifier: MIT
// What of a drawing lies inside a border.
#include "prancheta/curves/clipping.h"

#include "prancheta/geometry/angles.h"
#include "transformed.h"

using namespace prancheta;
using namespace prancheta::test;

TEST(Clipping, CurvesEndAtTheBorder) {
    const Curve square = polyline({{0, 0}, {100, 0}, {100, 100}, {0, 100}}, true);
    const Curve round(circular({0, 0}, 100, 0, kTwoPi));
    struct Case {
        const char* what;
        Curve curve;
        const Curve* border;
        std::vector<double> lengths;
    };
    const Case cases[] = {
        {"line through", line({-50, 50}, {150, 50}), &square, {100}},
        {"line through a circle", line({-200, 60}, {200, 60}), &round, {160}},
        {"inside", line({10, 10}, {10, 90}), &square, {80}},
        {"outside", line({-10, 10}, {-10, 90}), &square, {}},
        {"touches a corner", line({-10, 10}, {10, -10}), &square, {}},
        {"along the border", line({-10, 0}, {110, 0}), &square, {}},
        {"in and out",
         polyline({{50, 50}, {150, 50}, {150, 60}, {50, 60}}, false),
         &square,
         {50, 50}},
        {"closed, over its start",
         polyline({{50, 40}, {150, 40}, {150, 60}, {50, 60}}, true),
         &square,
         {120}},
        {"circle about a corner", Curve(circular({0, 0}, 20, 0, kTwoPi)), &square, {10 * kPi}},
        {"circle inside", Curve(circular({50, 50}, 20, 0, kTwoPi)), &square, {40 * kPi}},
        {"circle touching inside", Curve(circular({50, 20}, 20, 0, kTwoPi)), &square, {40 * kPi}},
        {"circle around", Curve(circular({50, 50}, 90, 0, kTwoPi)), &square, {}},
    };
    for (const Motion& m : motions())
        for (const Case& c : cases) {
            const std::vector<Curve> parts = partsInside(m.curve(c.curve), m.curve(*c.border));
            ASSERT_EQ(parts.size(), c.lengths.size()) << c.what << ", scale " << m.scale;
            for (std::size_t i = 0; i < parts.size(); ++i)
                EXPECT_NEAR(parts[i].length(), c.lengths[i] * m.scale, 10 * m.near()) << c.what;
        }
}

TEST(Clipping, AreasAreCutAlongIt) {
    const auto areaOf = [](const std::vector<Vec2>& corners) {
        return corners.empty() ? 0.0 : polyline(corners, true).area();
    };
    const std::vector<Vec2> square =
        cornersOf(polyline({{0, 100}, {100, 100}, {100, 0}, {0, 0}}, true));
    const std::vector<Vec2> round = cornersOf(Curve(circular({0, 0}, 100, 0, kTwoPi)));
    EXPECT_NEAR(areaOf(square), 10000.0, 1e-9) << "counter-clockwise, whatever the border was";
    EXPECT_NEAR(areaOf(polygonInside({{50, 50}, {150, 50}, {150, 150}, {50, 150}}, square)), 2500.0,
                1e-9);
    EXPECT_NEAR(areaOf(polygonInside({{-10, -10}, {110, -10}, {110, 110}, {-10, 110}}, square)),
                10000.0, 1e-9);
    EXPECT_TRUE(polygonInside({{200, 0}, {300, 0}, {300, 10}}, square).empty());
    // A quarter of the circle.
    EXPECT_NEAR(areaOf(polygonInside({{0, 0}, {200, 0}, {200, 200}, {0, 200}}, round)),
                2500.0 * kPi, 1.0);
}
