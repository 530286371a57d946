// SPDX-License-Identifier: MIT
// Rows of a catalogue: cutting and building.
#include <gtest/gtest.h>

#include "perfis/catalogues/catalogue.h"

namespace perfis {
namespace {

using Fields = std::vector<std::wstring>;

TEST(Rows, AreCutAtEveryTab) {
    EXPECT_EQ(splitRow(L"50\t25\t2"), (Fields{L"50", L"25", L"2"}));
    EXPECT_EQ(splitRow(L"50\t\t2\t"), (Fields{L"50", L"", L"2", L""}));
    EXPECT_EQ(splitRow(L""), Fields{L""});
}

TEST(Rows, HoldTheLipOnlyWhenItsWholeNumberIsNotZero) {
    EXPECT_EQ(buildRow(L"50", L"25", L"2.0", L""), L"50\t25\t2.0");
    EXPECT_EQ(buildRow(L"50", L"25", L"2", L"0.8"), L"50\t25\t2");
    EXPECT_EQ(buildRow(L"50", L"25", L"2", L"15"), L"50\t25\t2\t15");
    EXPECT_EQ(buildRow(L"50", L"25", L"2", L"15.5 mm"), L"50\t25\t2\t15.5 mm");
    EXPECT_EQ(buildRow(L"50", L"25", L"2", L"-1"), L"50\t25\t2\t-1");
}

}  // namespace
}  // namespace perfis
