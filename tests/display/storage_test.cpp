// SPDX-License-Identifier: MIT
// What the display list stands on: the index of boxes, and the pictures kept while there is room.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "prancheta/display/picture_cache.h"
#include "prancheta/display/spatial_index.h"

using namespace prancheta;

namespace {

/// Boxes that wander about, as in a drawing that is edited all day: the answers stay right, and
/// what was left behind does not pile up.
TEST(SpatialIndexTest, wanderingBoxes) {
    std::mt19937 random(11);
    const auto number = [&](double below) {
        return std::uniform_real_distribution<double>(0, below)(random);
    };
    constexpr SpatialIndex::Key kCount = 500;
    SpatialIndex index;
    std::vector<Box2d> boxes(kCount);
    std::size_t early = 0;
    for (int round = 0; round < 400; ++round) {
        const double away = 5000.0 * round;
        for (SpatialIndex::Key key = 0; key < kCount; ++key) {
            const double size = std::pow(10.0, number(5) - 2);
            const double x = away + number(1000);
            const double y = number(1000) - away;
            boxes[key] = number(1) < 0.1 ? Box2d() : Box2d{x, y, x + size, y + size / 3};
            index.set(key, boxes[key]);
        }
        const double x = away + number(1000);
        const Box2d area{x, -away, x + number(500), 500 - away};
        std::set<SpatialIndex::Key> found;
        index.visit(area, [&](SpatialIndex::Key key) {
            EXPECT_TRUE(found.insert(key).second) << "told twice";
        });
        std::set<SpatialIndex::Key> expected;
        for (SpatialIndex::Key key = 0; key < kCount; ++key)
            if (!boxes[key].empty() && boxes[key].meets(area)) expected.insert(key);
        ASSERT_EQ(found, expected) << "round " << round;
        if (round == 20) early = index.bytes();
    }
    EXPECT_LT(index.bytes(), early * 4);
}

Picture text(std::size_t letters) {
    Picture picture;
    picture.addText({}, {0, 0, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, 2.5, 1, 0,
                    std::wstring(letters, L'x'));
    return picture;
}

TEST(PictureCacheTest, longestNotLookedAtGoesFirst) {
    PictureCache cache(10000);  // two texts of 1000 letters, 4 bytes each, and not a third
    cache.put(1, text(1000));
    cache.put(2, text(1000));
    ASSERT_NE(cache.find(1), nullptr);  // looked at after 2
    cache.put(3, text(1000));
    EXPECT_EQ(cache.find(2), nullptr);
    ASSERT_NE(cache.find(1), nullptr);
    EXPECT_TRUE(*cache.find(3) == text(1000));
    EXPECT_LE(cache.bytes(), 10000u);
    // One that is larger than the room is still given.
    EXPECT_EQ(cache.put(4, text(5000)).size(), 1u);
    EXPECT_EQ(cache.find(1), nullptr);
    cache.erase(4);
    EXPECT_EQ(cache.bytes(), 0u);
}

}  // namespace
