// SPDX-License-Identifier: MIT
// Lengths, areas, parts and ends of curves.
#include "prancheta/curves/curve.h"

#include "prancheta/curves/region.h"
#include "prancheta/geometry/angles.h"
#include "transformed.h"

using namespace prancheta;
using namespace prancheta::test;

namespace {

/// 100 wide, 60 between two half circles of 30: 200 + 2 pi 30, 6000 + pi 900.
Curve slot() { return polyline({{0, 0}, {100, 0}, {100, 60}, {0, 60}}, true, {0, 1, 0, 1}); }

Curve arc(double degrees) { return Curve(circular({0, 0}, 100, 0.0, degrees * kPi / 180.0)); }

}  // namespace

TEST(Curve, LengthAndAreaAreThoseOfTheHandbook) {
    // Ellipse 2 : 1, complete elliptic integral of the second kind: 4 a E(3/4) = 4.844224110 a.
    const Curve ellipse(Segment{{0, 0}, {100, 0}, {0, 50}, 0.3, kTwoPi});
    const struct {
        Curve curve;
        double length, area;
    } cases[] = {
        {line({0, 0}, {300, 400}), 500, 0},
        {Curve(circular({0, 0}, 10, 1.0, -kTwoPi)), 20 * kPi, -100 * kPi},
        {arc(90), 50 * kPi, 2500 * kPi - 5000},  // the segment that its chord cuts off
        {slot(), 200 + 60 * kPi, 6000 + 900 * kPi},
        {ellipse, 484.4224110, 5000 * kPi},
        {polyline({{0, 0}, {100, 0}, {100, 0}, {100, 50}}, false), 150, 2500},
    };
    for (const auto& c : cases)
        for (const Motion& m : motions()) {
            const Curve moved = m.curve(c.curve);
            const double share = 1e-9 * (1.0 + 1e-3 * m.move.length() / m.scale);
            EXPECT_NEAR(moved.length() / m.scale, c.length, 1e-6 + share * c.length);
            EXPECT_NEAR(moved.area() / (m.scale * m.scale) * (m.mirror ? -1 : 1), c.area,
                        1e-6 + share * std::abs(c.area));
            for (const double part : {0.1, 0.5, 0.93}) {
                const double t = moved.parameterAt(moved.length() * part);
                EXPECT_NEAR(moved.lengthAt(t) / moved.length(), part, 1e-9);
                EXPECT_LE(distance(moved.at(moved.nearest(moved.at(t))), moved.at(t)), m.near());
            }
        }
}

TEST(Curve, PartsKeepTheCurveAndGoOverTheStart) {
    const Curve closed = slot();
    const Curve over = closed.part(3.5, 4.5);  // half of the left arc, half of the lower line
    EXPECT_FALSE(over.closed());
    EXPECT_EQ(over.segments().size(), 2U);
    EXPECT_NEAR(over.length(), 15 * kPi + 50, 1e-9);
    EXPECT_LE(distance(over.start(), {-30, 30}), 1e-9);
    EXPECT_LE(distance(over.end(), {50, 0}), 1e-9);
    const Curve rest = closed.part(0.5, 3.5);
    EXPECT_NEAR(rest.length() + over.length(), closed.length(), 1e-9);
    // Beyond the ends: along the line, round the circle.
    EXPECT_LE(distance(line({0, 0}, {10, 0}).part(-1, 3).end(), {30, 0}), 1e-12);
    EXPECT_LE(distance(arc(90).part(-1, 1).start(), {0, -100}), 1e-9);
    EXPECT_LE(distance(arc(90).reversed().start(), {0, 100}), 1e-9);
    const Curve turned = slot().reversed();
    EXPECT_NEAR(turned.area(), -slot().area(), 1e-9);
}

TEST(Curve, AnEndGoesOnAlongItsLineOrItsCircle) {
    const Curve bar = line({0, 0}, {10, 0});
    const std::optional<Extension> back = extensionOf(bar, CurveEnd::Start);
    ASSERT_TRUE(back);
    EXPECT_LE(distance(back->curve.at(2.0), {-20, 0}), 1e-12);
    EXPECT_LE(distance(bar.at(back->parameter(2.0)), {-20, 0}), 1e-12);
    for (const CurveEnd end : {CurveEnd::Start, CurveEnd::End}) {
        const std::optional<Extension> rest = extensionOf(arc(90), end);
        ASSERT_TRUE(rest);
        EXPECT_NEAR(rest->curve.length(), 150 * kPi, 1e-9);
        EXPECT_LE(distance(arc(90).at(rest->parameter(0.4)), rest->curve.at(0.4)), 1e-9);
    }
    EXPECT_FALSE(extensionOf(slot(), CurveEnd::End));
}

TEST(Region, CountsBordersOncePerPointAndHolesOut) {
    const Curve hole(circular({50, 30}, 10, 0.0, kTwoPi));
    const struct {
        Vec2 p;
        bool inside;
    } cases[] = {
        {{50, 5}, true},
        {{-29, 30}, true},
        {{-31, 30}, false},
        {{129, 30}, true},
        {{131, 30}, false},
        {{50, 30}, false},
        {{50, 41}, true},
        {{-25, 1}, false},
        // Level with corners and with the top and the bottom of the hole.
        {{-20, 0}, false},
        {{-50, 60}, false},
        {{20, 20}, true},
        {{20, 40}, true},
    };
    for (const Motion& m : motions()) {
        const Curve loops[] = {m.curve(slot()), m.curve(hole)};
        for (const auto& c : cases)
            EXPECT_EQ(insideOddly(loops, m.point(c.p)), c.inside) << c.p.x << ',' << c.p.y;
    }
    const Curve open[] = {polyline({{0, 0}, {100, 0}, {100, 100}}, false)};
    EXPECT_TRUE(insideOddly(open, {90, 50}));
    EXPECT_FALSE(insideOddly(open, {10, 50}));
}
