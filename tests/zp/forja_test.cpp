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
    ZpString row(L"80\t40\t2\r\n");
    row.CloseInChar(L"\n\r");
    EXPECT_EQ(row + L"!", ZpString(L"80\t40\t2!"));
    row.CloseInChar(L"");
    EXPECT_EQ(row.length(), 7);
}

TEST(ZpStringList, FindsReplacesAndRemoves) {
    ZpStringList list;
    list.append(L"um");
    list.append(L"dois");
    EXPECT_EQ(list.index(L"dois"), 1);
    EXPECT_FALSE(list.contains(L"Dois"));
    list.setAt(0, L"zero");
    list.setAt(9, L"nada");
    list.removeAt(1);
    list.removeAt(1);
    EXPECT_EQ(list.length(), 1);
    EXPECT_EQ(list.at(0), ZpString(L"zero"));
}

}  // namespace
