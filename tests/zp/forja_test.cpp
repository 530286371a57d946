// SPDX-License-Identifier: MIT
// Texts of the string library.
#include <gtest/gtest.h>

#include <limits>

#include "zp/forja/zpstringlist.h"

namespace {

TEST(ZpString, CutsAtEverySeparator) {
    const ZpStringList p = ZpString(L"100\t\t4.5").Separate(L"\t");
    ASSERT_EQ(p.length(), 3);
    EXPECT_EQ(p[0], ZpString(L"100"));
    EXPECT_TRUE(p[1].isEmpty());
    EXPECT_EQ(p[2], ZpString(L"4.5"));
    EXPECT_EQ(ZpString(L"").Separate(L"\t").length(), 1);
    EXPECT_EQ(ZpString(L"abc").Separate(L"").length(), 1);
    EXPECT_EQ(ZpString(L"a--b-c").Separate(L"--").length(), 2);
    EXPECT_TRUE(p[3].isEmpty());
}

TEST(ZpString, NumbersWithAPoint) {
    // A comma ends the number.
    EXPECT_EQ(ZpString(L"12,5").toDouble(), 12.0);
    EXPECT_EQ(ZpString(L"aço").toDouble(), 0.0);
    EXPECT_EQ(ZpString(L"1e999").toDouble(), 0.0);
    EXPECT_EQ(ZpString(2.50), ZpString(L"2.5"));
    EXPECT_EQ(ZpString(-7), ZpString(L"-7"));
    EXPECT_EQ(ZpString(std::numeric_limits<double>::quiet_NaN()), ZpString(L"0"));
}

TEST(ZpString, CutsAtTheFirstOfTheSet) {
    ZpString linha(L"80\t40\t2\r\n");
    linha.CloseInChar(L"\n\r");
    EXPECT_EQ(linha + L"!", ZpString(L"80\t40\t2!"));
    linha.CloseInChar(L"");
    EXPECT_EQ(linha.length(), 7);
}

TEST(ZpStringList, FindsReplacesAndRemoves) {
    ZpStringList lista;
    lista.append(L"um");
    lista.append(L"dois");
    EXPECT_EQ(lista.index(L"dois"), 1);
    EXPECT_FALSE(lista.contains(L"Dois"));
    lista.setAt(0, L"zero");
    lista.setAt(9, L"nada");
    lista.removeAt(1);
    lista.removeAt(1);
    EXPECT_EQ(lista.length(), 1);
    EXPECT_EQ(lista.at(0), ZpString(L"zero"));
}

}  // namespace
