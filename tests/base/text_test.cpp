// SPDX-License-Identifier: MIT
// Encodings, names without regard to case, numbers.
#include "prancheta/base/text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace prancheta;

TEST(Text, WideAndUtf8AreInverse) {
    const std::wstring all = L"aé€ção\U0001F600";
    EXPECT_EQ(toUtf8(all), "a\xC3\xA9\xE2\x82\xAC\xC3\xA7\xC3\xA3o\xF0\x9F\x98\x80");
    EXPECT_EQ(toWide(toUtf8(all)), all);
}

TEST(Text, BytesThatAreNoUtf8AreReadAsWindows1252) {
    EXPECT_EQ(toWide("se\xE7\xE3o"), L"seção");
    EXPECT_EQ(toWide("\x80 10"), L"€ 10");
    EXPECT_EQ(utf8FromLatin("se\xE7\xE3o"), "seção");
    // Overlong form, surrogate, cut sequence, beyond the last plane.
    for (const char* bad : {"\xC0\xAF", "\xED\xA0\x80", "\xE2\x82", "\xF4\x90\x80\x80"})
        EXPECT_FALSE(isValidUtf8(bad)) << bad;
    EXPECT_TRUE(isValidUtf8("€ção"));
}

TEST(Text, CaseIsFoldedForPortugueseLetters) {
    EXPECT_TRUE(equalNoCase(L"CÍRCULO", L"círculo"));
    EXPECT_TRUE(equalNoCase(L"Seção", L"SEÇÃO"));
    EXPECT_FALSE(equalNoCase(L"×", L"÷"));
    EXPECT_FALSE(equalNoCase(L"linha", L"linhas"));
}

TEST(Text, AccentsAreTakenOff) {
    EXPECT_EQ(withoutAccents(L"POSIÇÃO próximo às ÂNGULOS, ênfase"),
              L"POSICAO proximo as ANGULOS, enfase");
    EXPECT_EQ(withoutAccents(L"× ÷ ° ß Æ"), L"× ÷ ° ß Æ");
}

TEST(Number, TextIsShortestAndReadsBack) {
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(-0.0), "0");
    EXPECT_EQ(numberText(1000), "1000");
    for (const double v :
         {1.0 / 3.0, 6077123.15, 1e-17, std::numeric_limits<double>::max(), 5e-324}) {
        double back = 0;
        ASSERT_TRUE(parseNumber(numberText(v), back));
        EXPECT_EQ(back, v);
    }
}

TEST(Number, OnlyWholeDecimalTextsAreNumbers) {
    const auto value = [](std::string_view text) {
        double v = -777;
        return parseNumber(text, v) ? v : -777.0;
    };
    EXPECT_EQ(value("12"), 12);
    EXPECT_EQ(value("+2"), 2);
    EXPECT_EQ(value("-.5"), -0.5);
    EXPECT_EQ(value(" 1e3 "), 1000);
    for (const char* bad : {"", "1,5", "12a", "inf", "nan", "1e999", "--1", "0x10", "1 2"})
        EXPECT_EQ(value(bad), -777) << bad;
    const auto typed = [](std::wstring_view text) {
        double v = -777;
        return parseTypedNumber(text, v) ? v : -777.0;
    };
    EXPECT_EQ(typed(L" 1,5 "), 1.5);
    EXPECT_EQ(typed(L"-0,25e1"), -2.5);
    EXPECT_EQ(typed(L"1.5"), 1.5);
    for (const wchar_t* bad : {L"1,", L",5", L"1,5,2", L"1.234,5", L"1,234.5", L"-,5", L"1e3,5"})
        EXPECT_EQ(typed(bad), -777) << bad;
}
