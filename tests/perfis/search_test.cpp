// SPDX-License-Identifier: MIT
// Sizes found by what a draughtsman types of them.
#include <gtest/gtest.h>

#include "perfis/catalogues/search.h"
#include "prancheta/base/text.h"

namespace perfis {
namespace {

using Rows = std::vector<std::size_t>;

/// Rows of several catalogues, each in the ways in which it is written there.
SizeSearch catalogue() {
    SizeSearch search;
    search.add({L"200\t75\t3.00", L"U 200x75x3"});                           // 0
    search.add({L"200\t75\t3.35", L"U 200x75x3,35"});                        // 1
    search.add({L"75\t200\t3.00", L"U 75x200x3"});                           // 2
    search.add({L"200\t75\t3.00\t20", L"Ue 200x75x20x3"});                   // 3
    search.add({L"200\t75\t3.00\t8", L"2U ][ 200x75x3 a=8"});                // 4
    search.add({L"W 200 x 46.1", L"203\t203\t11.00\t7.20\t46.10"});          // 5
    search.add({L"W 200 x 41.7", L"205\t166\t11.80\t7.20\t41.70"});          // 6
    search.add({L"IPE 500\t500\t90.70", L"500\t200\t16.00\t10.20\t90.70"});  // 7
    search.add({L"IPE 200\t200\t22.40", L"200\t100\t8.50\t5.60\t22.40"});    // 8
    search.add({L"50.8\t50.8\t6.35\t4.74", L"L 50,8x50,8x6,35"});            // 9
    search.add({L"38.1\t38.1\t3.18\t1.83", L"L 38,1x38,1x3,18"});            // 10
    search.add({L"CS250x52    250   51.8"});                                 // 11
    search.add({L"76.2\t8.48", L"I 3\" x 8,48"});                            // 12
    search.add({L"304.8\t47.30", L"I 12\" x 47,3"});                         // 13
    return search;
}

TEST(SizeSearch, FindsWhatFitsTheBestFirst) {
    const SizeSearch search = catalogue();
    const struct {
        const wchar_t* query;
        Rows rows;
        std::size_t best;
    } cases[] = {
        {L"U 200x75x3", {0, 2, 1, 3, 4}, 1},  // U itself before others; 3 begins 3.35, too
        {L"u200 X 75*3,35", {1}, 1},
        {L"3.35 75 200 U", {1}, 1},
        {L"u h=200 t=3,35", {1}, 1},
        {L"2u 200x75", {4}, 1},
        {L"ue 200x75x20x3.00 mm", {3}, 1},
        {L"W 200x46", {5}, 1},
        {L"w200", {5, 6}, 2},
        {L"W 46,1", {5}, 1},
        {L"W 205 166", {6}, 1},
        {L"ipe 200", {8, 7}, 1},  // the height before the width
        {L"L 2\" x 1/4\"", {9}, 1},
        {L"L 2 x 1/4", {9}, 1},
        {L"1 1/2\" 1/8\"", {10}, 1},
        {L"1.1/2 x 1/8", {10}, 1},
        {L"2 pol l", {9}, 1},
        {L"l 50,8", {9}, 1},
        {L"CS 250x52", {11}, 1},
        {L"I 3", {12, 13}, 1},    // 3" itself, then 304.8
        {L"ue 20x75x3", {3}, 1},  // begins 200
        {L"U 200x7x3,3", {1}, 1},
        {L"W 20x4,1", {5}, 1},   // 46.1 without the 6
        {L"W 200x417", {6}, 1},  // the sign is missing
    };
    for (const auto& c : cases) {
        const SizeSearch::Found found = search.find(c.query);
        EXPECT_EQ(found.rows, c.rows) << prancheta::toUtf8(c.query);
        EXPECT_EQ(found.best, c.best) << prancheta::toUtf8(c.query);
    }
    EXPECT_EQ(search.find(L"  x ").rows.size(), 14u);
}

TEST(SizeSearch, SaysTheThreeNearestWhereNothingFits) {
    const SizeSearch search = catalogue();
    const struct {
        const wchar_t* query;
        Rows rows;
        const wchar_t* difference;
    } cases[] = {
        // 76 alone differs; with 3.35 two numbers do, but a word that is no more comes later.
        {L"U 200x76x3", {0, 2, 1}, L"Não há; o mais próximo tem 75 em vez de 76."},
        // 3.1 is nearer to 3 than to 3.35.
        {L"U 200x75x3,1", {0, 2, 1}, L"Não há; o mais próximo tem 3 em vez de 3,1."},
        {L"W 201x47", {5, 6}, L"Não há; o mais próximo tem 200 em vez de 201, 46,1 em vez de 47."},
        {L"IPE 200x22.4x8x9", {8, 7}, nullptr},
        {L"zz", {0, 1, 2}, L"Não há \"zz\"."},
        {L"zz 38,1x3,18", {10}, L"Não há \"zz\"."},
        {L"L 3\" x 1/8\"", {10, 9}, L"Não há; o mais próximo tem 38,1 em vez de 3."},
    };
    for (const auto& c : cases) {
        const SizeSearch::Found found = search.find(c.query);
        EXPECT_EQ(found.best, 0u);
        ASSERT_EQ(found.rows.size(), 3u) << prancheta::toUtf8(c.query);
        for (std::size_t i = 0; i < c.rows.size(); ++i)
            EXPECT_EQ(found.rows[i], c.rows[i]) << prancheta::toUtf8(c.query) << " " << i;
        if (c.difference != nullptr) {
            EXPECT_EQ(found.difference, c.difference);
        }
    }
    EXPECT_EQ(SizeSearch().find(L"U").difference, L"O catálogo está vazio.");
}

}  // namespace
}  // namespace perfis
