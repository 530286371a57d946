// SPDX-License-Identifier: MIT
// Where curves meet, wherever and however large they are drawn.
#include "prancheta/curves/crossings.h"

#include <chrono>
#include <limits>

#include "prancheta/geometry/angles.h"
#include "transformed.h"

using namespace prancheta;
using namespace prancheta::test;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

Curve circle(const Vec2& c, double r) { return Curve(circular(c, r, 0.0, kTwoPi)); }
Curve ellipse(const Vec2& c, double a, double b) {
    return Curve(Segment{c, {a, 0.0}, {0.0, b}, 0.0, kTwoPi});
}
Curve unbounded(const Vec2& a, const Vec2& b, double low) {
    Segment s = straight(a, b);
    s.low = low;
    s.high = kInfinity;
    return Curve(s);
}

struct Case {
    const char* what;
    Curve a, b;
    std::vector<Vec2> expected;  ///< in any order
};

std::vector<Case> cases() {
    const double s3 = std::sqrt(3.0);
    return {
        {"lines cross", line({0, 0}, {1000, 0}), line({500, -100}, {500, 100}), {{500, 0}}},
        {"a line ends on a line", line({0, 0}, {1000, 0}), line({300, 0}, {300, 50}), {{300, 0}}},
        {"ends meet", line({0, 0}, {1000, 0}), line({1000, 0}, {1200, 70}), {{1000, 0}}},
        {"lines would cross further on", line({0, 0}, {400, 0}), line({500, -100}, {500, 100}), {}},
        {"parallel", line({0, 0}, {1000, 0}), line({0, 1e-3}, {1000, 1e-3}), {}},
        {"nearly parallel", line({-1e3, 0}, {1e3, 0}), line({-1e3, -0.1}, {1e3, 0.1}), {{0, 0}}},
        {"overlap: ends of what is shared",
         line({0, 0}, {1000, 0}),
         line({600, 0}, {2000, 0}),
         {{600, 0}, {1000, 0}}},
        {"one within the other",
         line({0, 0}, {900, 900}),
         line({100, 100}, {200, 200}),
         {{100, 100}, {200, 200}}},
        {"in line, only touching", line({0, 0}, {10, 0}), line({10, 0}, {20, 0}), {{10, 0}}},
        {"ray", unbounded({0, 0}, {1, 0}, 0.0), line({900, -1}, {900, 1}), {{900, 0}}},
        {"behind a ray", unbounded({0, 0}, {1, 0}, 0.0), line({-900, -1}, {-900, 1}), {}},
        {"endless lines",
         unbounded({0, 0}, {1, 1}, -kInfinity),
         unbounded({0, 800}, {1, 799}, -kInfinity),
         {{400, 400}}},
        // 3-4-5
        {"chord", circle({0, 0}, 500), line({-1000, 300}, {1000, 300}), {{-400, 300}, {400, 300}}},
        {"line ends inside", circle({0, 0}, 500), line({0, 300}, {1000, 300}), {{400, 300}}},
        {"tangent", circle({0, 0}, 500), line({-900, 500}, {900, 500}), {{0, 500}}},
        {"missed by a thousandth", circle({0, 0}, 500), line({-900, 500.001}, {900, 500.001}), {}},
        {"circles", circle({0, 0}, 500), circle({600, 0}, 500), {{300, 400}, {300, -400}}},
        {"circles touch", circle({0, 0}, 500), circle({800, 0}, 300), {{500, 0}}},
        {"one touches from inside", circle({0, 0}, 500), circle({200, 0}, 300), {{500, 0}}},
        {"and the other way round", circle({200, 0}, 300), circle({0, 0}, 500), {{500, 0}}},
        {"concentric", circle({0, 0}, 500), circle({0, 0}, 499.999), {}},
        {"arcs of one circle",
         Curve(circular({0, 0}, 200, 0.0, kPi)),
         Curve(circular({0, 0}, 200, kPi * 1.5, -kPi)),
         {{0, 200}, {-200, 0}}},
        {"the half that is not there",
         Curve(circular({0, 0}, 500, 0.0, kPi)),
         line({300, -900}, {300, 0}),
         {}},
        {"the other half",
         Curve(circular({0, 0}, 500, kPi, kPi)),
         line({300, -900}, {300, 0}),
         {{300, -400}}},
        // x^2/4 + y^2 = 1 times 300 at x = 300: y = 300 sqrt(3)/2
        {"line and ellipse",
         ellipse({0, 0}, 600, 300),
         line({300, -900}, {300, 900}),
         {{300, 150 * s3}, {300, -150 * s3}}},
        {"line touches an ellipse",
         ellipse({0, 0}, 600, 300),
         line({-900, 300}, {900, 300}),
         {{0, 300}}},
        // x^2/4 + y^2 = x^2 + y^2/4 where x = +-y = +-2/sqrt(5)
        {"crossed ellipses",
         ellipse({0, 0}, 600, 300),
         ellipse({0, 0}, 300, 600),
         {{600 / std::sqrt(5.0), 600 / std::sqrt(5.0)},
          {-600 / std::sqrt(5.0), 600 / std::sqrt(5.0)},
          {600 / std::sqrt(5.0), -600 / std::sqrt(5.0)},
          {-600 / std::sqrt(5.0), -600 / std::sqrt(5.0)}}},
        {"a circle around an ellipse touches its ends",
         ellipse({0, 0}, 600, 300),
         circle({0, 0}, 600),
         {{600, 0}, {-600, 0}}},
        {"a corner of a polyline is met once",
         polyline({{0, 0}, {500, 0}, {500, 500}}, false),
         line({400, -100}, {600, 100}),
         {{500, 0}}},
        {"so is the start of a closed one",
         polyline({{0, 0}, {500, 0}, {500, 500}, {0, 500}}, true),
         line({-9, 9}, {9, -9}),
         {{0, 0}}},
        {"lines through a rounded slot",
         polyline({{0, 0}, {600, 0}, {600, 200}, {0, 200}}, true, {0, 1, 0, 1}),
         line({-500, 100}, {1000, 100}),
         {{-100, 100}, {700, 100}}},
    };
}

void expectMeetings(const Curve& a, const Curve& b, const std::vector<Vec2>& expected, double near,
                    const std::string& what) {
    const std::vector<Meeting> all = meetingsOf(a, b);
    ASSERT_EQ(all.size(), expected.size()) << what;
    for (const Vec2& p : expected) {
        double miss = kInfinity;
        for (const Meeting& m : all) miss = std::min(miss, distance(m.point, p));
        EXPECT_LE(miss, near) << what << " at " << p.x << ',' << p.y;
    }
    for (const Meeting& m : all) {
        EXPECT_LE(distance(a.at(m.first), m.point), near) << what;
        EXPECT_LE(distance(b.at(m.second), m.point), near) << what;
    }
}

}  // namespace

TEST(Crossings, AreThoseOfTheFigureHoweverItIsMoved) {
    for (const Case& c : cases())
        for (const Motion& m : motions()) {
            std::vector<Vec2> expected;
            for (const Vec2& p : c.expected) expected.push_back(m.point(p));
            // The gaps of the near misses are gone when rounding is as large.
            const std::string what = std::string(c.what) + ", x" + std::to_string(m.scale);
            expectMeetings(m.curve(c.a), m.curve(c.b), expected, 10 * m.near(), what);
            expectMeetings(m.curve(c.b), m.curve(c.a), expected, 10 * m.near(), what);
        }
}

TEST(Crossings, OfASmallThingOnALongOneAreThere) {
    // 1 um on a bar of 1 km
    const Curve bar = line({0, 0}, {1e6, 0});
    const Curve tick = line({123456.0, -5e-4}, {123456.0, 5e-4});
    ASSERT_EQ(meetingsOf(bar, tick).size(), 1U);
    EXPECT_TRUE(meetingsOf(bar, line({123456.0, 1e-4}, {123456.0, 5e-4})).empty());
}

TEST(Crossings, OfAChainWithItselfLeaveItsCornersOut) {
    // Figure of eight: (0,0) (100,100) (100,0) (0,100), closed; crosses at 50,50.
    for (const Motion& m : motions()) {
        const Curve eight = m.curve(polyline({{0, 0}, {100, 100}, {100, 0}, {0, 100}}, true));
        const std::vector<Meeting> all = meetingsWithin(eight);
        ASSERT_EQ(all.size(), 1U);
        EXPECT_LE(distance(all[0].point, m.point({50, 50})), 10 * m.near());
        EXPECT_NEAR(all[0].first, 0.5, 1e-6);
        EXPECT_NEAR(all[0].second, 2.5, 1e-6);
    }
}

TEST(Crossings, OfALongChainAreFoundWithoutLookingAtAllOfIt) {
    std::vector<Vec2> points;
    for (int i = 0; i <= 100000; ++i) points.push_back({double(i), i % 2 ? 1.0 : -1.0});
    const Curve zigzag = polyline(points, false);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(meetingsOf(zigzag, line({0, 0}, {1e5, 0})).size(), 100000U);
    EXPECT_TRUE(meetingsWithin(zigzag).empty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}
