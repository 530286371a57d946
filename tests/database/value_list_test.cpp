// SPDX-License-Identifier: MIT
// Typed lists and texts of the C-style interface.
#include <gtest/gtest.h>

#include "acutads.h"
#include "acutmem.h"
#include "prancheta/database/value_list.h"

namespace {

using prancheta::ListOwner;

TEST(ValueList, BuildsEveryKind) {
    const ads_point p = {1, 2, 3};
    const ads_name name = {10, 20};
    const ListOwner list(acutBuildList(RTDXF0, L"LINE", RTSTR, L"ç", RTSHORT, -7, RTLONG, 100000,
                                       RTREAL, 0.5, RT3DPOINT, p, RTENAME, name, RTLB, 62, 3, RTLE,
                                       RTNONE));
    const int types[] = {0, RTSTR, RTSHORT, RTLONG, RTREAL, RT3DPOINT, RTENAME, RTLB, 62, RTLE};
    const resbuf* item = list.get();
    const resbuf* items[10];
    for (std::size_t i = 0; i < 10; ++i, item = item->rbnext) {
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->restype, types[i]);
        items[i] = item;
    }
    EXPECT_EQ(item, nullptr);
    EXPECT_STREQ(items[1]->resval.rstring, L"ç");
    EXPECT_EQ(items[2]->resval.rint, -7);
    EXPECT_EQ(items[3]->resval.rlong, 100000);
    EXPECT_EQ(items[4]->resval.rreal, 0.5);
    EXPECT_EQ(items[5]->resval.rpoint[2], 3);
    EXPECT_EQ(items[6]->resval.rlname[1], 20);
    EXPECT_EQ(items[8]->resval.rint, 3);
}

TEST(ValueList, WrongTypesAndEmptyLists) {
    EXPECT_EQ(acutBuildList(RTSHORT, 1, 4999, 2, RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(RTNONE), nullptr);
    EXPECT_EQ(acutRelRb(nullptr), RTNORM);
}

TEST(ValueList, CopiesAreDeep) {
    ListOwner list(acutBuildList(RTSTR, L"um", 1000, L"dois", RTNONE));
    const ListOwner copy = prancheta::copyList(list.get());
    list.reset();
    EXPECT_STREQ(copy->resval.rstring, L"um");
    EXPECT_STREQ(copy->rbnext->resval.rstring, L"dois");
    EXPECT_EQ(prancheta::copyList(nullptr), nullptr);
}

TEST(Texts, NewUpdateAndDelete) {
    ACHAR* text = nullptr;
    ASSERT_EQ(acutNewString(L"ação", text), Acad::eOk);
    EXPECT_STREQ(text, L"ação");
    ASSERT_EQ(acutUpdString(text + 1, text), Acad::eOk);  // from the old text itself
    EXPECT_STREQ(text, L"ção");
    acutDelString(text);
    EXPECT_EQ(text, nullptr);
    EXPECT_STREQ(acadErrorStatusText(Acad::eCannotScaleNonUniformly), L"eCannotScaleNonUniformly");
    EXPECT_NE(acadErrorStatusText(static_cast<Acad::ErrorStatus>(99)), nullptr);
}

}  // namespace
