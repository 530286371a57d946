// SPDX-License-Identifier: MIT
// Names against patterns.
#include "prancheta/base/wildcard.h"

#include <gtest/gtest.h>

TEST(Wildcards, Names) {
    using prancheta::fitsWildcards;
    EXPECT_TRUE(fitsWildcards(L"Cotas", L"*"));
    EXPECT_TRUE(fitsWildcards(L"COTAS", L"eixos, c?t*"));
    EXPECT_TRUE(fitsWildcards(L"aXbXc", L"a*x*c"));
    EXPECT_TRUE(fitsWildcards(L"P1", L"p#"));
    EXPECT_TRUE(fitsWildcards(L"", L"*"));
    EXPECT_FALSE(fitsWildcards(L"Pa", L"p#"));
    EXPECT_FALSE(fitsWildcards(L"Cotas", L"cota"));
    EXPECT_FALSE(fitsWildcards(L"Cota", L"cotas*s"));
    EXPECT_FALSE(fitsWildcards(L"Cotas", L""));
    EXPECT_TRUE(fitsWildcards(L"Viga3", L"viga[1-4]"));
    EXPECT_FALSE(fitsWildcards(L"Viga5", L"viga[1-4]"));
    EXPECT_TRUE(fitsWildcards(L"Viga5", L"viga[~1-4]"));
    EXPECT_TRUE(fitsWildcards(L"a[b", L"a[b"));
}
