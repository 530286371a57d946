// SPDX-License-Identifier: MIT
// The area around a point, among curves that cross as they please.
#include "prancheta/curves/boundary.h"

#include <gtest/gtest.h>

#include <chrono>

#include "prancheta/geometry/angles.h"

using namespace prancheta;

namespace {

using Edges = std::vector<BoundaryFinder::Edge>;

void add(Edges& edges, std::uint32_t owner, const std::vector<Vec2>& corners) {
    for (std::size_t i = 1; i < corners.size(); ++i)
        edges.push_back({straight(corners[i - 1], corners[i]), owner});
}
void addBox(Edges& edges, std::uint32_t owner, double x, double y, double w, double h) {
    add(edges, owner, {{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}, {x, y}});
}
void addCircle(Edges& edges, std::uint32_t owner, const Vec2& c, double r) {
    edges.push_back({circular(c, r, 0.0, kTwoPi), owner});
}
/// Turned by 0.7, twice as large, far away: the same must be found.
Edges elsewhere(const Edges& edges) {
    const auto vector = [](const Vec2& v) {
        const double s = std::sin(0.7);
        const double c = std::cos(0.7);
        return Vec2{2.0 * (v.x * c - v.y * s), 2.0 * (v.x * s + v.y * c)};
    };
    Edges moved = edges;
    for (auto& e : moved) {
        e.segment.origin = vector(e.segment.origin) + Vec2{1e5, -3e5};
        e.segment.u = vector(e.segment.u);
        e.segment.v = vector(e.segment.v);
    }
    return moved;
}
Vec2 elsewhere(const Vec2& p) {
    return elsewhere({{straight(p, p + Vec2{1, 0}), 0}})[0].segment.origin;
}

/// Each island taken off, also one that stands in another.
double areaOf(const BoundaryFinder::Area& area) {
    double sum = std::abs(area.outer.curve.area());
    for (const auto& island : area.islands) sum -= std::abs(island.curve.area());
    return sum;
}

struct Case {
    const char* what;
    Edges edges;
    Vec2 at;
    double area;  ///< 0: none
    std::size_t islands;
    std::vector<std::uint32_t> owners;
};

std::vector<Case> cases() {
    std::vector<Case> all;
    Edges e;
    addBox(e, 1, 0, 0, 10, 6);
    all.push_back({"a box", e, {3, 3}, 60, 0, {1}});
    all.push_back({"outside of it", e, {30, 3}, 0, 0, {}});
    addCircle(e, 2, {5, 3}, 1);
    all.push_back({"a hole in it", e, {1, 3}, 60 - kPi, 1, {1}});
    all.push_back({"in the hole", e, {5, 3.2}, kPi, 0, {2}});
    add(e, 3, {{-1, 1}, {8, 1}, {8, 9}});
    all.push_back({"cut by a bent line", e, {1, 3}, 8 * 5 - kPi, 1, {1, 3}});
    add(e, 4, {{2, 4}, {3, 5}, {2, 5}});
    all.push_back({"a loose line stands in it", e, {1, 3}, 8 * 5 - kPi, 1, {1, 3}});
    e.clear();
    add(e, 1, {{-5, 0}, {15, 0}});
    add(e, 2, {{10, -5}, {10, 15}});
    add(e, 3, {{15, 6}, {-5, 6}});
    add(e, 4, {{0, 15}, {0, -5}});
    add(e, 4, {{0, 3}, {4, 3}});
    all.push_back({"lines that go too far, one that ends inside", e, {3, 1}, 60, 0, {1, 2, 3, 4}});
    addBox(e, 5, 0, 0, 10, 6);
    all.push_back({"all of it a second time", e, {3, 1}, 60, 0, {}});
    e.clear();
    addCircle(e, 1, {0, 0}, 5);
    addCircle(e, 2, {5, 0}, 5);
    const double lens = 50.0 * kPi / 3.0 - 25.0 * std::sqrt(3.0) / 2.0;
    all.push_back({"a lens", e, {2.5, 0.1}, lens, 0, {1, 2}});
    all.push_back({"a crescent", e, {-3, 0.3}, 25.0 * kPi - lens, 0, {1, 2}});
    e.clear();
    addCircle(e, 1, {0, 0}, 5);
    addCircle(e, 2, {2, 0}, 3);
    all.push_back({"a circle touches another from inside", e, {-3, 0.5}, 16 * kPi, 0, {}});
    addCircle(e, 3, {2, 0}, 1);
    addBox(e, 4, 1.5, -0.25, 0.5, 0.5);
    all.push_back({"islands in islands", e, {0, 0.5}, 8 * kPi - 0.25, 2, {2}});
    e.clear();
    addBox(e, 1, 0, 0, 100, 100);
    for (int i = 0; i < 20; ++i) addBox(e, 2, 10 + i * 4, 20, 2, 2);
    addBox(e, 3, 10, 40, 20, 20);
    addBox(e, 4, 12, 42, 16, 16);
    all.push_back({"behind a row of boxes", e, {5, 21}, 10000 - 20 * 4 - 400 - 256, 22, {1}});
    all.push_back({"in the frame", e, {11, 50}, 400 - 256, 1, {3}});
    e.clear();
    e.push_back({Segment{{0, 0}, {4, 0}, {0, 2}, 0.0, kTwoPi}, 1});
    add(e, 2, {{0, -9}, {0, 9}});
    all.push_back({"half an ellipse", e, {1, 1}, 4 * kPi, 0, {1, 2}});
    e.clear();
    add(e, 1, {{0, 0}, {10, 0}, {10, 6}, {0, 6}, {0, 3.2}});
    all.push_back({"not closed", e, {3, 3}, 0, 0, {}});
    return all;
}

}  // namespace

TEST(Boundary, AreaAroundAPoint) {
    for (const Case& c : cases()) {
        for (const bool moved : {false, true}) {
            const BoundaryFinder finder(moved ? elsewhere(c.edges) : c.edges);
            const auto found = finder.around(moved ? elsewhere(c.at) : c.at);
            ASSERT_EQ(found.has_value(), c.area > 0.0) << c.what << moved;
            if (!found) continue;
            const double scale = moved ? 4.0 : 1.0;
            EXPECT_NEAR(areaOf(*found), c.area * scale, 1e-5 * scale) << c.what << moved;
            EXPECT_GT(found->outer.curve.area(), 0.0) << c.what;
            EXPECT_EQ(found->islands.size(), c.islands) << c.what << moved;
            if (!c.owners.empty()) {
                EXPECT_EQ(found->outer.owners, c.owners) << c.what << moved;
            }
        }
    }
}

TEST(Boundary, TheWidestOfTheNarrowestGapsIsTold) {
    Edges e;
    add(e, 1, {{0, 0}, {10, 0}, {10, 6}, {0, 6}, {0, 3.2}});
    auto gap = BoundaryFinder(e).gapAround({3, 3});
    ASSERT_TRUE(gap);
    EXPECT_NEAR(gap->width, 3.2, 1e-9);
    EXPECT_NEAR(gap->at.x, 0.0, 1e-9);
    EXPECT_NEAR(gap->at.y, 1.6, 1e-9);
    // Two gaps, one of them to the middle of a line; a line far off that matters to nobody.
    e.clear();
    add(e, 1, {{0, 0}, {10, 0}, {10, 5.5}});
    add(e, 2, {{12, 6}, {-2, 6}});
    add(e, 3, {{0, 6}, {0, 2}});
    add(e, 4, {{50, 50}, {50, 60}});
    gap = BoundaryFinder(e).gapAround({3, 3});
    ASSERT_TRUE(gap);
    EXPECT_NEAR(gap->width, 2.0, 1e-9);
    EXPECT_NEAR(gap->at.y, 1.0, 1e-9);
    EXPECT_FALSE(BoundaryFinder({}).gapAround({3, 3}));
}

TEST(Boundary, BordersOfAll) {
    Edges e;
    addBox(e, 1, 0, 0, 10, 6);
    addBox(e, 2, 5, 3, 10, 6);
    addCircle(e, 3, {2, 2}, 1);
    add(e, 4, {{30, 0}, {40, 9}});
    double sum = 0.0;
    const auto borders = BoundaryFinder(e).borders();
    for (const auto& border : borders) sum += std::abs(border.curve.area());
    EXPECT_EQ(borders.size(), 2u);
    EXPECT_NEAR(sum, 60 + 60 - 15 + kPi, 1e-9);
}

TEST(Boundary, TenThousandLinesTakeNoTime) {
    Edges e;
    for (int i = 0; i <= 5000; ++i) {
        add(e, 1, {{i * 10.0, -5}, {i * 10.0, 50005}});
        add(e, 2, {{-5, i * 10.0}, {50005, i * 10.0}});
    }
    const auto begin = std::chrono::steady_clock::now();
    const BoundaryFinder finder(e);
    const auto found = finder.around({25003, 25004});
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    ASSERT_TRUE(found);
    EXPECT_NEAR(areaOf(*found), 100.0, 1e-9);
    EXPECT_LT(took.count(), 2.0) << "a fiftieth of this is usual";
}
