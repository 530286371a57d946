// SPDX-License-Identifier: MIT
// Curves beside a curve.
#include "prancheta/curves/offset.h"

#include <chrono>

#include "prancheta/geometry/angles.h"
#include "transformed.h"

using namespace prancheta;
using namespace prancheta::test;

namespace {

struct Case {
    const char* what;
    Curve curve;
    double left;
    std::vector<std::pair<double, double>> parts;  ///< length and area of each, in any order
};

std::vector<Case> cases() {
    const Curve square = polyline({{0, 0}, {100, 0}, {100, 100}, {0, 100}}, true);
    const Curve slot = polyline({{0, 0}, {100, 0}, {100, 60}, {0, 60}}, true, {0, 1, 0, 1});
    // Two rooms 40 x 40 joined by a corridor 20 long and 10 wide.
    const Curve rooms = polyline({{0, 0},
                                  {40, 0},
                                  {40, 15},
                                  {60, 15},
                                  {60, 0},
                                  {100, 0},
                                  {100, 40},
                                  {60, 40},
                                  {60, 25},
                                  {40, 25},
                                  {40, 40},
                                  {0, 40}},
                                 true);
    const double q = std::tan(kPi / 8.0);  // quarter turn
    const Curve rounded =
        polyline({{10, 0}, {90, 0}, {100, 10}, {100, 90}, {90, 100}, {10, 100}, {0, 90}, {0, 10}},
                 true, {0, q, 0, q, 0, q, 0, q});
    return {
        {"line", line({0, 0}, {100, 0}), 10, {{100, 0}}},
        {"circle inwards", Curve(circular({0, 0}, 100, 0, kTwoPi)), 10, {{180 * kPi, 8100 * kPi}}},
        {"circle outwards",
         Curve(circular({0, 0}, 100, 0, kTwoPi)),
         -10,
         {{220 * kPi, 12100 * kPi}}},
        {"circle vanishes", Curve(circular({0, 0}, 100, 0, kTwoPi)), 100, {}},
        {"circle turned inside out", Curve(circular({0, 0}, 100, 0, kTwoPi)), 250, {}},
        {"arc",
         Curve(circular({0, 0}, 100, 0, kPi / 2)),
         40,
         {{30 * kPi, 0.25 * kPi * 3600 - 1800}}},
        {"square outwards keeps sharp corners", square, -10, {{480, 14400}}},
        {"square inwards", square, 10, {{320, 6400}}},
        {"square vanishes", square, 50.001, {}},
        {"square turned inside out", square, 250, {}},
        {"slot inwards", slot, 10, {{200 + 40 * kPi, 4000 + 400 * kPi}}},
        {"slot outwards", slot, -10, {{200 + 80 * kPi, 8000 + 1600 * kPi}}},
        {"rooms part where the corridor is narrower", rooms, 6, {{112, 784}, {112, 784}}},
        {"rounded corners get sharp inside", rounded, 20, {{240, 3600}}},
        {"and rounder outside", rounded, -20, {{320 + 60 * kPi, 6400 + 4 * 80 * 30 + 900 * kPi}}},
        {"open corner, outside", polyline({{0, 0}, {100, 0}, {100, 100}}, false), -10, {{220, 0}}},
        {"open corner, inside", polyline({{0, 0}, {100, 0}, {100, 100}}, false), 10, {{180, 0}}},
        {"a step smaller than the distance goes",
         polyline({{0, 0}, {100, 0}, {100, 1}, {101, 1}, {101, 0}, {200, 0}, {200, 100}, {0, 100}},
                  true),
         -20,
         {{760, 33600}}},
    };
}

}  // namespace

TEST(Offset, LengthsAndAreasAreThoseOfTheFigureHoweverItIsMoved) {
    for (const Case& c : cases())
        for (const Motion& m : motions()) {
            const std::string what = std::string(c.what) + ", x" + std::to_string(m.scale);
            const double left = c.left * m.scale * (m.mirror ? -1.0 : 1.0);
            const std::vector<Curve> parts = offset(m.curve(c.curve), left);
            ASSERT_EQ(parts.size(), c.parts.size()) << what;
            for (std::size_t i = 0; i < parts.size(); ++i) {
                EXPECT_EQ(parts[i].closed(), c.curve.closed()) << what;
                EXPECT_NEAR(parts[i].length() / m.scale, c.parts[i].first, 1e-4) << what;
                const double area = std::abs(parts[i].area()) / m.scale / m.scale;
                EXPECT_NEAR(c.curve.closed() ? area : c.parts[i].second, c.parts[i].second, 1e-2)
                    << what;
            }
        }
}

TEST(Offset, OfManySegmentsIsNotQuadratic) {
    std::vector<Vec2> points;
    for (int i = 0; i < 50000; ++i) points.push_back({10.0 * i, i % 2 ? 3.0 : 0.0});
    points.push_back({499990.0, 1000.0});
    points.push_back({0.0, 1000.0});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(offset(polyline(points, true), 20.0).size(), 1U);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}
