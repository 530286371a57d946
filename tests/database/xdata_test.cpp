// SPDX-License-Identifier: MIT
// Extended data.
#include "prancheta/database/xdata.h"
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "fixture.h"

namespace {

using prancheta::RawTags;

using prancheta::ListOwner;

class XdataTest : public DatabaseTest {
protected:
    XdataTest() {
        core().ensureRegApp(L"ZP");
        core().ensureRegApp(L"OUTRA");
    }
    Piece piece{1};
};

TEST_F(XdataTest, EveryKindOfValueComesBack) {
    const ads_point p = {1.5, -2, 1e-9};
    ListOwner list(acutBuildList(1001, L"ZP", 1002, L"{", 1000, L"é ç", 1003, L"0", 1005, L"1F",
                                 1010, p, 1011, p, 1040, 0.1, 1041, 2.0, 1042, 3.0, 1070, -5, 1071,
                                 -70000, 1002, L"}", RTNONE));
    resbuf* binary = acutNewRb(1004);
    binary->resval.rbinary.buf = static_cast<char*>(std::malloc(3));
    std::memcpy(binary->resval.rbinary.buf, "\x00\xFFz", 3);
    binary->resval.rbinary.clen = 3;
    binary->rbnext = list->rbnext;
    list->rbnext = binary;
    ASSERT_EQ(piece.setXData(list.get()), Acad::eOk);
    const ListOwner read(piece.xData());
    const resbuf* a = list.get();
    const resbuf* b = read.get();
    for (; a != nullptr && b != nullptr; a = a->rbnext, b = b->rbnext) {
        ASSERT_EQ(a->restype, b->restype);
        switch (prancheta::kindOfValue(a->restype)) {
            case prancheta::ValueKind::Text:
                EXPECT_STREQ(a->resval.rstring, b->resval.rstring);
                break;
            case prancheta::ValueKind::Real:
                EXPECT_EQ(a->resval.rreal, b->resval.rreal);
                break;
            case prancheta::ValueKind::Point:
                for (int i = 0; i < 3; ++i) EXPECT_EQ(a->resval.rpoint[i], b->resval.rpoint[i]);
                break;
            case prancheta::ValueKind::Int16:
                EXPECT_EQ(a->resval.rint, b->resval.rint);
                break;
            case prancheta::ValueKind::Binary:
                ASSERT_EQ(b->resval.rbinary.clen, 3);
                EXPECT_EQ(std::memcmp(b->resval.rbinary.buf, "\x00\xFFz", 3), 0);
                break;
            default:
                EXPECT_EQ(a->resval.rlong, b->resval.rlong);
        }
    }
    EXPECT_EQ(a, nullptr);
    EXPECT_EQ(b, nullptr);
}

TEST_F(XdataTest, ApplicationsAreReplacedOneByOne) {
    const ListOwner both(acutBuildList(1001, L"ZP", 1070, 1, 1001, L"OUTRA", 1070, 2, RTNONE));
    ASSERT_EQ(piece.setXData(both.get()), Acad::eOk);
    const ListOwner changed(acutBuildList(1001, L"zp", 1070, 3, RTNONE));
    ASSERT_EQ(piece.setXData(changed.get()), Acad::eOk);
    EXPECT_EQ(ListOwner(piece.xData(L"ZP"))->rbnext->resval.rint, 3);
    EXPECT_EQ(ListOwner(piece.xData(L"outra"))->rbnext->resval.rint, 2);
    for (const wchar_t* app : {L"ZP", L"OUTRA"}) {
        const ListOwner none(acutBuildList(1001, app, RTNONE));
        ASSERT_EQ(piece.setXData(none.get()), Acad::eOk);
    }
    EXPECT_EQ(piece.xData(), nullptr);
    EXPECT_EQ(ObjectAccess::extra(piece), nullptr);
}

TEST_F(XdataTest, WrongListsChangeNothing) {
    const ListOwner good(acutBuildList(1001, L"ZP", 1070, 1, RTNONE));
    ASSERT_EQ(piece.setXData(good.get()), Acad::eOk);
    const ListOwner foreign(acutBuildList(1001, L"DESCONHECIDA", 1070, 2, RTNONE));
    EXPECT_EQ(piece.setXData(foreign.get()), Acad::eRegappIdNotFound);
    const ListOwner wrong[] = {
        ListOwner(acutBuildList(1070, 2, RTNONE)),
        ListOwner(acutBuildList(1001, L"ZP", 70, 2, RTNONE)),
        ListOwner(acutBuildList(1001, L"ZP", 1002, L"{", RTNONE)),
        ListOwner(acutBuildList(1001, L"ZP", 1002, L"}", 1002, L"{", RTNONE)),
        ListOwner(acutBuildList(1001, L"ZP", 1005, L"xyz", RTNONE)),
        ListOwner(acutBuildList(1001, L"ZP", 1000, L"a\nb", RTNONE)),
        ListOwner(
            acutBuildList(1001, L"ZP", 1040, std::numeric_limits<double>::infinity(), RTNONE)),
    };
    for (const ListOwner& list : wrong) EXPECT_EQ(piece.setXData(list.get()), Acad::eInvalidInput);
    EXPECT_EQ(piece.setXData(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(ListOwner(piece.xData())->rbnext->resval.rint, 1);
}

TEST_F(XdataTest, SixteenKilobytesForAllApplications) {
    const std::wstring longText(255, L'x');
    prancheta::ListBuilder list;
    list.add(prancheta::newTextItem(1001, L"ZP"));
    for (int i = 0; i < 63; ++i) list.add(prancheta::newTextItem(1000, longText));
    const ListOwner most(list.release());  // 63 * 258 bytes and the name
    EXPECT_EQ(piece.setXData(most.get()), Acad::eOk);
    const ListOwner more(acutBuildList(1001, L"OUTRA", 1000, longText.c_str(), RTNONE));
    EXPECT_EQ(piece.setXData(more.get()), Acad::eOutOfRange);
    EXPECT_EQ(piece.xData(L"OUTRA"), nullptr);
}

TEST_F(XdataTest, TextsAreCountedAsTheyAreWritten) {
    // 255 bytes; a character outside Latin-1 is written with seven, one beyond U+FFFF with twice as
    // many.
    const auto takes = [&](const std::wstring& text) {
        const ListOwner list(acutBuildList(1001, L"ZP", 1000, text.c_str(), RTNONE));
        return piece.setXData(list.get()) == Acad::eOk;
    };
    EXPECT_TRUE(takes(std::wstring(255, L'x')));
    EXPECT_FALSE(takes(std::wstring(256, L'x')));
    EXPECT_TRUE(takes(std::wstring(36, L'Ω') + L"abc"));
    EXPECT_FALSE(takes(std::wstring(36, L'Ω') + L"abcd"));
    EXPECT_FALSE(takes(std::wstring(242, L'x') + L"\U0001F600"));
}

TEST_F(XdataTest, TransformationsMoveTurnAndScale) {
    const ads_point p = {1, 0, 0};
    const ListOwner list(acutBuildList(1001, L"ZP", 1010, p, 1011, p, 1012, p, 1013, p, 1040, 1.0,
                                       1041, 1.0, 1042, 1.0, RTNONE));
    ASSERT_EQ(piece.setXData(list.get()), Acad::eOk);
    // Twice as large, a quarter turn, then moved by (10, 0, 0).
    const AcGeMatrix3d m = AcGeMatrix3d::translation({10, 0, 0}) *
                           AcGeMatrix3d::rotation(std::acos(-1.0) / 2, AcGeVector3d::kZAxis) *
                           AcGeMatrix3d::scaling(2);
    ASSERT_EQ(piece.transformBy(m), Acad::eOk);
    const ListOwner read(piece.xData());
    const AcGePoint3d expected[] = {{1, 0, 0}, {10, 2, 0}, {0, 2, 0}, {0, 1, 0}};
    const resbuf* item = read->rbnext;
    for (const AcGePoint3d& e : expected) {
        const ads_point& v = item->resval.rpoint;
        EXPECT_TRUE(e.isEqualTo(AcGePoint3d(v[0], v[1], v[2]))) << item->restype;
        item = item->rbnext;
    }
    for (const double e : {1.0, 2.0, 2.0}) {
        EXPECT_NEAR(item->resval.rreal, e, 1e-12) << item->restype;
        item = item->rbnext;
    }
    AcGeMatrix3d stretched;
    stretched.entry[0][0] = 2;
    EXPECT_EQ(piece.transformBy(stretched), Acad::eCannotScaleNonUniformly);
}

// Lengths and codes beyond a byte, empty values, and codes that no application data has.
TEST(PackedTags, GiveBackWhatTheyTook) {
    const RawTags tags = {{1001, "ZP"},
                          {1000, ""},
                          {1000, std::string(254, 'a')},
                          {1000, std::string(255, 'b')},
                          {1000, std::string(70000, 'c')},
                          {1005, "1F"},
                          {1071, "-1"},
                          {0, "x"},
                          {1255, "y"},
                          {-5, "z"}};
    const prancheta::PackedTags packed(tags);
    EXPECT_EQ(packed.size(), tags.size());
    const RawTags back = packed;
    ASSERT_EQ(back.size(), tags.size());
    for (std::size_t i = 0; i < tags.size(); ++i) {
        EXPECT_EQ(back[i].code, tags[i].code) << i;
        EXPECT_EQ(back[i].value, tags[i].value) << i;
    }
    EXPECT_TRUE(prancheta::PackedTags(RawTags()).empty());
}

}  // namespace
