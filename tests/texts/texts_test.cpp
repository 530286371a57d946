// SPDX-License-Identifier: MIT
// Numbers in texts, letters of both cases, blanks, bytes of files, paths.
#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <limits>

#include "texts/encoding.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"

namespace texts {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

struct Read {
    const wchar_t* text;
    double value;
};

TEST(ToReal, TakesTheLeadingNumberWhateverTheLocale) {
    constexpr Read kCases[] = {{L"75", 75.0},
                               {L"  \t+2.65mm", 2.65},
                               {L"-.5", -0.5},
                               {L"12.", 12.0},
                               {L"1e3x", 1000.0},
                               {L"1e", 1.0},
                               {L"1.2.3", 1.2},
                               {L" 3,35 mm,", 3.35},
                               {L"-0,005e3.", -5.0},
                               {L"1,234,567", 1.0},
                               {L"1,234.5", 1.0},
                               {L"1.234,5", 1.234},
                               {L"3,", 3.0},
                               {L",5", 0.0},
                               {L"1e999", kInfinite},
                               {L"-1e999", -kInfinite},
                               {L"1e-999", 0.0},
                               {L"0.0001e-400", 0.0},
                               {L"", 0.0},
                               {L"abc", 0.0},
                               {L"-", 0.0},
                               {L".", 0.0},
                               {L"e5", 0.0},
                               {L"nan", 0.0},
                               {L"inf", 0.0},
                               {L"\u00D8 50", 0.0},
                               {L"1e99999999999999999999", kInfinite}};
    // Where the system has the second locale.
    for (const char* locale : {"C", "pt_BR.UTF-8"}) {
        std::setlocale(LC_NUMERIC, locale);
        for (const Read& c : kCases) EXPECT_EQ(toReal(c.text), c.value) << c.text << locale;
    }
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(toReal(L"12,5", DecimalSign::kPoint), 12.0);
}

TEST(ToInt, TakesTheLeadingWholeNumber) {
    for (const Read& c : {Read{L"15", 15},
                          {L" -7.9", -7},
                          {L"0.8", 0},
                          {L"x", 0},
                          {L"99999999999999999999999", INT_MAX},
                          {L"-99999999999999999999999", INT_MIN}})
        EXPECT_EQ(toInt(c.text), c.value) << c.text;
}

TEST(ExactReal, IsTheWholeText) {
    for (const Read& c : {Read{L"12.5", 12.5},
                          {L" 1 200,5 ", 1200.5},
                          {L"+,5", 0.5},
                          {L"-3", -3.0},
                          {L"1e3", 1000.0}})
        EXPECT_EQ(exactReal(c.text), c.value) << c.text;
    for (const wchar_t* none : {L"", L" ", L"12 mm", L"1.234,5", L"inf", L"1e999", L"\u0661"})
        EXPECT_EQ(exactReal(none), std::nullopt) << none;
}

TEST(RealToInt, TruncatesAndFallsToTheMostNegative) {
    constexpr std::pair<double, int> kCases[] = {
        {1234.56, 1234}, {-1234.56, -1234}, {2147483647.5, INT_MAX}, {-2147483648.5, INT_MIN}};
    for (const auto& [real, whole] : kCases) EXPECT_EQ(realToInt(real), whole);
    for (const double none : {2147483648.0, 1e300, kInfinite, kNoNumber})
        EXPECT_EQ(realToInt(none), INT_MIN) << none;
}

TEST(NumberTexts, HaveTheDecimalsAskedForAndNoZerosBehindThem) {
    EXPECT_EQ(fixed(12.5, 2), L"12.50");
    EXPECT_EQ(fixed(-0.001, 2), L"-0.00");
    EXPECT_EQ(fixed(1e300, 2).size(), 304U);
    EXPECT_EQ(withoutZeros(L"100.00"), L"100");
    EXPECT_EQ(withoutZeros(L"100"), L"100");
    EXPECT_EQ(withPoint(2.650, 4), L"2.65");
    EXPECT_EQ(withPoint(100.0, 0), L"100");
    EXPECT_EQ(withComma(2.656), L"2,66");
    EXPECT_EQ(withComma(-1234.5), L"-1234,5");
    for (const double zero : {0.0, -0.001, kNoNumber, kInfinite}) EXPECT_EQ(withComma(zero), L"0");
}

TEST(NumberTexts, AreRoundedAsTheyRead) {
    const struct {
        double value;
        int decimals;
        const wchar_t* text;
    } kCases[] = {
        {2.355, 2, L"2.36"},     {-2.355, 2, L"-2.36"},   {2.3549999, 2, L"2.35"},
        {0.0299085, 2, L"0.03"}, {48.06, 2, L"48.06"},    {15.0, 2, L"15.00"},
        {1234.25, 1, L"1234.3"}, {9.995, 2, L"10.00"},    {99.5, 0, L"100"},
        {0.4, 0, L"0"},          {-0.004, 2, L"0.00"},    {1e21, 1, L"1000000000000000000000.0"},
        {kInfinite, 2, L"0.00"}, {kNoNumber, 2, L"0.00"}, {5e-324, 2, L"0.00"},
    };
    for (const auto& c : kCases) EXPECT_EQ(rounded(c.value, c.decimals), c.text) << c.value;
}

TEST(Letters, AreThoseOfTheCodePage) {
    EXPECT_EQ(lower(L"VIGA A\u00C7O \u00D7 \u00DE\u00DF"), L"viga a\u00E7o \u00D7 \u00FE\u00DF");
    EXPECT_TRUE(equalIgnoringCase(L"A\u00C7O.lst", L"a\u00E7o.LST"));
    EXPECT_FALSE(equalIgnoringCase(L"\u00D7", L"\u00F7"));
    EXPECT_FALSE(equalIgnoringCase(L"viga", L"vigas"));
    EXPECT_EQ(trimmed(L" \tviga  mestra\r\n"), L"viga  mestra");
    EXPECT_EQ(trimmed(L" \t"), L"");
    EXPECT_EQ(trimmedParts(L" a b;; c", L';'), (std::vector<std::wstring>{L"a b", L"", L"c"}));
}

TEST(DecodeText, IsUtf8ElseTheCodePage) {
    EXPECT_EQ(decodeText(std::string(kUtf8Mark) + "a\xE2\x80\x93z"), L"a\u2013z");
    EXPECT_EQ(decodeText("a\x96z \xE7\x80"), L"a\u2013z \u00E7\u20AC");
    EXPECT_EQ(encodeUtf8(L"\U0001D11E"), "\xF0\x9D\x84\x9E");
}

TEST(Paths, TakeBackslashesAndAreShownWhateverTheirBytes) {
    EXPECT_EQ(pathOf(L"Perfis\\A\u00E7o.lst"), std::filesystem::path(u8"Perfis/A\u00E7o.lst"));
    EXPECT_EQ(shown(pathOf(L"A\u00E7o")), L"A\u00E7o");
#ifndef _WIN32
    EXPECT_EQ(shown("A\xE7o"), L"A?o");
#endif
}

}  // namespace
}  // namespace texts
