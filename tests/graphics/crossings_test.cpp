// SPDX-License-Identifier: MIT
// Crossings of many edges at once, against the pairs one by one.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "prancheta/graphics/snaps.h"

using namespace prancheta;

namespace {

std::vector<AcGePoint3d> sorted(std::vector<AcGePoint3d> points) {
    std::sort(points.begin(), points.end(), [](const AcGePoint3d& a, const AcGePoint3d& b) {
        return std::abs(a.x - b.x) > 1e-7 ? a.x < b.x : a.y < b.y;
    });
    return points;
}

TEST(Crossings, sameAsPairByPair) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(0, 100);
    std::vector<Picture> pictures(40);
    for (Picture& picture : pictures) {
        const std::vector<AcGePoint3d> corners = {{place(random), place(random), 0},
                                                  {place(random), place(random), 0},
                                                  {place(random), place(random), 0}};
        picture.addPolyline({}, corners);
        picture.addArc({}, {place(random), place(random), 0}, place(random) / 3,
                       AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, place(random) / 20);
    }
    const AcGePoint3d near(50, 50, 0);
    for (const double reach : {200.0, 20.0, 2.0}) {
        std::vector<NearEdge> edges;
        for (std::size_t i = 0; i < pictures.size(); ++i)
            appendEdgesNear(pictures[i], near, reach, i, edges);
        std::vector<AcGePoint3d> atOnce;
        for (const Crossing& crossing : crossingsOf(edges, near, reach))
            if (crossing.first != crossing.second) atOnce.push_back(crossing.point);
        std::vector<AcGePoint3d> pairs;
        for (std::size_t i = 0; i < pictures.size(); ++i)
            for (std::size_t j = i + 1; j < pictures.size(); ++j)
                appendIntersections(pictures[i], pictures[j], near, reach, pairs);
        ASSERT_EQ(atOnce.size(), pairs.size());
        EXPECT_TRUE(reach < 100 || pairs.size() > 300);
        atOnce = sorted(std::move(atOnce));
        pairs = sorted(std::move(pairs));
        for (std::size_t i = 0; i < pairs.size(); ++i)
            EXPECT_LT(atOnce[i].distanceTo(pairs[i]), 1e-6);
    }
}

TEST(Crossings, ofAPictureWithItselfAndTouchingEdges) {
    Picture bow;  // crosses itself in (5, 5), and closes in (0, 0)
    const std::vector<AcGePoint3d> corners = {
        {0, 0, 0}, {10, 10, 0}, {10, 0, 0}, {0, 10, 0}, {0, 0, 0}};
    bow.addPolyline({}, corners);
    std::vector<NearEdge> edges;
    appendEdgesNear(bow, {5, 5, 0}, 1, 3, edges);
    const std::vector<Crossing> inside = crossingsOf(edges, {5, 5, 0}, 1);
    ASSERT_EQ(inside.size(), 1u);
    EXPECT_LT(inside[0].point.distanceTo({5, 5, 0}), 1e-12);
    EXPECT_EQ(inside[0].first, 3u);

    Picture flat;
    const std::vector<AcGePoint3d> base = {{-5, 0, 0}, {5, 0, 0}};
    flat.addPolyline({}, base);
    flat.addCircle({}, {0, 2, 0}, 2, AcGeVector3d::kZAxis);  // touches in (0, 0)
    edges.clear();
    appendEdgesNear(flat, {0, 0, 0}, 1, 0, edges);
    EXPECT_FALSE(crossingsOf(edges, {0, 0, 0}, 1).empty());
}

}  // namespace
