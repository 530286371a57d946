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
    search.add({L"200\t75\t3.00", L"U 200x75x3"});                              // 0
    search.add({L"200\t75\t3.35", L"U 200x75x3,35"});                           // 1
    search.add({L"75\t200\t3.00", L"U 75x200x3"});                              // 2
    search.add({L"200\t75\t3.00\t20", L"Ue 200x75x20x3"});                      // 3
    search.add({L"200\t75\t3.00\t8", L"2U ][ 200x75x3 a=8"});                   // 4
    search.add({L"W 200 x 46.1", L"203\t203\t11.00\t7.20\t46.10"});             // 5
    search.add({L"W 200 x 41.7", L"205\t166\t11.80\t7.20\t41.70"});             // 6
    search.add({L"IPE 500\t500\t90.70", L"500\t200\t16.00\t10.20\t90.70"});     // 7
    search.add({L"IPE 200\t200\t22.40", L"200\t100\t8.50\t5.60\t22.40"});       // 8
    search.add({L"50.8\t50.8\t6.35\t4.74", L"L 50,8x50,8x6,35"}, 4.74);         // 9
    search.add({L"38.1\t38.1\t3.18\t1.83", L"L 38,1x38,1x3,18"}, 1.83);         // 10
    search.add({L"CS250x52    250   51.8"});                                    // 11
    search.add({L"76.2\t8.48", L"I 3\" x 8,48"});                               // 12
    search.add({L"304.8\t47.30", L"I 12\" x 47,3"});                            // 13
    search.add({L"50.8\t50.8\t6.35\t8", L"2L T 2\" x 1/4\" a=8"});              // 14
    search.add({L"152.4\t8", L"2L U 6\" x 3/8\" a=8"});                         // 15
    search.add({L"152.4\t48.77\t5.08\t12.20", L"U 6\" x 12,2"}, 12.2);          // 16
    search.add({L"48.3\t3.00", L"TC 48,3x3"});                                  // 17
    search.add({L"60\t40\t3.00", L"TR 60x40x3"});                               // 18
    search.add({L"50\t50\t3.00", L"TQ 50x50x3"});                               // 19
    search.add({L"12.7", L"BR 1/2\""});                                         // 20
    search.add({L"50\t100\t2.00\t20", L"Cr 50x100x20x2"});                      // 21
    search.add({L"100\t50\t2.00\t20", L"Cr 100x50x20x2"});                      // 22
    search.add({L"100\t50\t3.00", L"2U [] 100x50x3", L"caixa 100x100x3"});      // 23
    search.add({L"W 150 x 22.5", L"152\t152\t6.60\t5.80\t22.50", L"H"}, 22.5);  // 24
    search.add({L"63.5\t63.5\t6.35", L"L 2 1/2\" x 1/4\"", L"laminad"});        // 25
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
        {L"L 2\" x 1/4\"", {9, 14}, 1},
        {L"L 2 x 1/4", {9, 14}, 1},
        {L"1 1/2\" 1/8\"", {10}, 1},
        {L"1.1/2 x 1/8", {10}, 1},
        {L"2 pol l", {9, 14}, 1},
        {L"l 50,8", {9, 14}, 1},
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
    EXPECT_EQ(search.find(L"  x ").rows.size(), 26u);
    // One row is all that is left, but it is another size than what was typed.
    for (const auto& [query, meant] : {std::pair(L"W 200x46", true),
                                       {L"ipe 500", true},
                                       {L"W 205 166", true},
                                       {L"W 46,1", false},
                                       {L"ue 20x75x3", false},
                                       {L"U 200x7x3,3", false}})
        EXPECT_EQ(search.find(query).meant, meant) << prancheta::toUtf8(query);
}

TEST(SizeSearch, KnowsTheWordsOfTheTrade) {
    const SizeSearch search = catalogue();
    const struct {
        const wchar_t* query;
        std::size_t first;
        std::size_t best;
    } cases[] = {
        {L"U 6\"", 16, 1},  // not the U of two angles
        {L"U6", 16, 1},
        {L"u", 0, 4},
        {L"2L T 2\" x 1/4\"", 14, 1},
        {L"2l x 2\"", 99, 0},  // another form
        {L"2U [] 100x50", 23, 1},
        {L"2U ][ 200", 4, 1},
        {L"tubo 48,3x3", 17, 1},
        {L"tubo 60x40", 18, 1},
        {L"tubos 50x50x3", 19, 1},
        {L"tubo 48x3", 17, 1},
        {L"tubo retangular 60", 18, 1},
        {L"tubo quadrado", 19, 1},
        {L"tubo redondo", 17, 1},
        {L"tub quad", 19, 1},  // on the way
        {L"metalon 60x40", 18, 1},
        {L"caixa 50x50x3", 19, 1},
        {L"caixa 100x100x3", 23, 1},
        {L"2u [] 100x100x3", 99, 0},  // the outside is not the size
        {L"barra 1/2", 20, 1},
        {L"barra redonda \u00BD", 20, 1},
        {L"ferro redondo 12,7", 20, 1},
        {L"\u00D8 1/2\"", 20, 1},
        {L"\u22051/2", 99, 0},
        {L"\u23001/2", 20, 1},
        {L"di\u00E2metro 48,3", 17, 1},
        {L"u enrijecido 200x75x20x3", 3, 1},
        {L"cartola 50x100x20x2", 21, 1},
        {L"cartola 100x50x20x2", 22, 1},
        {L"cantoneira 2pol x 1/4", 9, 1},
        {L"l 2\u00BD", 25, 1},
        {L"l 2 \u00BD x \u00BC", 25, 1},
        {L"viga 200x46", 5, 1},
        {L"cantoneira laminada 63,5", 25, 1},
        {L"cantoneira dobrada 63,5", 99, 0},
        {L"dupla cantoneira 2\" x 1/4\"", 14, 1},
        {L"viga I 12", 13, 1},
        {L"viga I 200x46,1", 5, 1},
        {L"viga U 6\"", 16, 1},
        {L"perfil U 6\"", 16, 1},
        {L"perfil 200x75x3,35", 1, 1},
        {L"H 150x22,5", 24, 1},
        {L"W150X22,5(H)", 24, 1},
        {L"w 200 (h)", 99, 0},
    };
    for (const auto& c : cases) {
        const SizeSearch::Found found = search.find(c.query);
        EXPECT_EQ(found.best, c.best) << prancheta::toUtf8(c.query);
        if (c.best > 0) {
            EXPECT_EQ(found.rows.front(), c.first) << prancheta::toUtf8(c.query);
        }
    }
    for (const wchar_t* const nothing : {L"x", L"---", L"\"", L"perfil", L"mm", L" "})
        EXPECT_TRUE(asksNothing(nothing)) << prancheta::toUtf8(nothing);
    for (const wchar_t* const something : {L"viga", L"2", L"\u00B2", L"u"})
        EXPECT_FALSE(asksNothing(something)) << prancheta::toUtf8(something);
}

TEST(SizeSearch, SaysWhatComesNearWhereNothingFits) {
    const SizeSearch search = catalogue();
    const struct {
        const wchar_t* query;
        Rows rows;
        const wchar_t* difference;
    } cases[] = {
        // 76 alone differs; with 3.35 two numbers do.
        {L"U 200x76x3", {0, 2, 1}, L"A bitola não existe; a mais próxima tem 75 em vez de 76."},
        // 3.1 is nearer to 3 than to 3.35.
        {L"U 200x75x3,1", {0, 2, 1}, L"A bitola não existe; a mais próxima tem 3 em vez de 3,1."},
        {L"W 201x47",
         {5, 6, 24},
         L"A bitola não existe; a mais próxima tem 200 em vez de 201, 46,1 em vez de 47."},
        {L"U 76x210x3",
         {0, 2, 1},
         L"A bitola não existe; a mais próxima tem 75 em vez de 76, 200 em vez de 210."},
        {L"W 152x152x6,6x5,8x23", {24, 6, 5}, L"A bitola não existe; a mais próxima não tem 23."},
        {L"ue 200x75x20x3x0", {3}, L"A bitola não existe; a mais próxima não tem 0."},
        {L"ue 200x75x25x3x9",
         {3},
         L"A bitola não existe; a mais próxima tem 20 em vez de 25 e não tem 9."},
        // 48.77 mm stands there, not 12.2 kg/m.
        {L"U 6\" x 13 x 5,08",
         {16, 1, 0},
         L"A bitola não existe; a mais próxima tem 48,77 em vez de 13."},
        {L"IPE 200x22.4x8x9", {8, 7}, nullptr},
        {L"T 2\" x 1/4\"", {14}, L"Nenhum comando desenha \"T\" sozinho."},
        {L"T", {14}, L"Nenhum comando desenha \"T\" sozinho."},
        {L"xyz", {}, L"Não sei o que é \"xyz\"."},
        {L"U xyz", {}, L"Não sei o que é \"xyz\"."},
        {L"U 200x75x3 abc xyz", {0, 2, 1}, L"Não sei o que é \"abc\", \"xyz\"."},
        {L"zz 38,1x3,18", {10}, L"Não sei o que é \"zz\"."},
        {L"l 50,8\u00B2", {9, 14}, L"Não sei o que é \"\u00B2\"."},
        {L"200x75x3 200x75x3", {0, 3, 4}, L"Não sei o que é \"200x75x3\"."},
        {L"zz W 201x47",
         {5, 6, 24},
         L"Não sei o que é \"zz\". A bitola não existe; a mais próxima tem 200 em vez de 201, "
         L"46,1 em vez de 47."},
        {L"tubo ue", {}, L"Nenhuma bitola é \"tubo\" e \"ue\" ao mesmo tempo."},
        {L"L 3\" x 1/8\"",
         {10, 25, 9},
         L"A bitola não existe; a mais próxima tem 38,1 em vez de 3\"."},
    };
    for (const auto& c : cases) {
        const SizeSearch::Found found = search.find(c.query);
        EXPECT_EQ(found.best, 0u);
        EXPECT_EQ(found.rows, c.rows) << prancheta::toUtf8(c.query);
        if (c.difference != nullptr) {
            EXPECT_EQ(found.difference, c.difference);
        }
    }
    EXPECT_EQ(SizeSearch().find(L"U").difference, L"O catálogo está vazio.");
}

}  // namespace
}  // namespace perfis
