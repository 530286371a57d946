// SPDX-License-Identifier: MIT
// Numbers in texts, whole numbers of reals, files found and replaced.
#include "perfis/base/portability.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <climits>
#include <clocale>
#include <cmath>
#include <limits>

#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

TEST(TextToReal, TakesTheLeadingNumber) {
    EXPECT_EQ(textToReal(L"75"), 75.0);
    EXPECT_EQ(textToReal(L"  \t+2.65mm"), 2.65);
    EXPECT_EQ(textToReal(L"-.5"), -0.5);
    EXPECT_EQ(textToReal(L"12."), 12.0);
    EXPECT_EQ(textToReal(L"1e3x"), 1000.0);
    EXPECT_EQ(textToReal(L"1e"), 1.0);
    EXPECT_EQ(textToReal(L"1.2.3"), 1.2);
    for (const wchar_t* none : {L"", L"abc", L"-", L".", L"e5", L"nan", L"inf", L"\u00D8 50"})
        EXPECT_EQ(textToReal(none), 0.0) << none;
}

TEST(TextToReal, DecimalSignIsAPointOrOneCommaWhateverTheLocale) {
    const auto check = [] {
        EXPECT_EQ(textToReal(L"3.5"), 3.5);
        EXPECT_EQ(textToReal(L" 3,35 mm,"), 3.35);
        EXPECT_EQ(textToReal(L"-0,005e3."), -5.0);
        EXPECT_EQ(textToReal(L"1,234,567"), 1.0);
        EXPECT_EQ(textToReal(L"1,234.5"), 1.0);
        EXPECT_EQ(textToReal(L"1.234,5"), 1.234);
        EXPECT_EQ(textToReal(L"3,"), 3.0);
        EXPECT_EQ(textToReal(L",5"), 0.0);
    };
    check();
    const std::string former = std::setlocale(LC_ALL, nullptr);
    if (std::setlocale(LC_ALL, "pt_BR.UTF-8") == nullptr) GTEST_SKIP() << "no pt_BR locale here";
    check();
    std::setlocale(LC_ALL, former.c_str());
}

TEST(TextToReal, TooLargeAndTooSmall) {
    EXPECT_EQ(textToReal(L"1e999"), HUGE_VAL);
    EXPECT_EQ(textToReal(L"-1e999"), -HUGE_VAL);
    EXPECT_EQ(textToReal(L"1e-999"), 0.0);
    EXPECT_EQ(textToReal(L"0.0001e-400"), 0.0);
    EXPECT_EQ(textToReal(L"1e99999999999999999999"), HUGE_VAL);
}

TEST(TextToInt, TakesTheLeadingWholeNumber) {
    EXPECT_EQ(textToInt(L"15"), 15);
    EXPECT_EQ(textToInt(L" -7.9"), -7);
    EXPECT_EQ(textToInt(L"0.8"), 0);
    EXPECT_EQ(textToInt(L"x"), 0);
    EXPECT_EQ(textToInt(L"99999999999999999999999"), INT_MAX);
    EXPECT_EQ(textToInt(L"-99999999999999999999999"), INT_MIN);
}

TEST(RealToInt, TruncatesAndFallsToTheMostNegative) {
    EXPECT_EQ(realToInt(1234.56), 1234);
    EXPECT_EQ(realToInt(-1234.56), -1234);
    EXPECT_EQ(realToInt(2147483647.5), INT_MAX);
    EXPECT_EQ(realToInt(-2147483648.5), INT_MIN);
    EXPECT_EQ(realToInt(2147483648.0), INT_MIN);
    EXPECT_EQ(realToInt(1e300), INT_MIN);
    EXPECT_EQ(realToInt(std::numeric_limits<double>::infinity()), INT_MIN);
    EXPECT_EQ(realToInt(std::numeric_limits<double>::quiet_NaN()), INT_MIN);
}

class Files : public TempFolder {};

TEST_F(Files, AreFoundWithBackslashesAndWithoutRegardToCase) {
    put("Perfis/Listas/Aço.lst", "x");
    EXPECT_EQ(readFile(path("") + L"PERFIS\\listas\\AÇO.LST"), "x");
    EXPECT_EQ(readFile(path("") + L"perfis\\listas\\outra.lst"), std::nullopt);
    EXPECT_TRUE(replaceFile(path("") + L"perfis\\LISTAS\\aço.lst", "y"));
    EXPECT_EQ(get("Perfis/Listas/Aço.lst"), "y");
}

TEST_F(Files, AFailedReplacementLeavesWhatWasThere) {
    std::filesystem::create_directory(folder() / "pu.lst");
    EXPECT_FALSE(replaceFile(path("pu.lst"), "x"));
    EXPECT_FALSE(replaceFile(path("nenhuma") + L"\\pu.lst", "x"));
    EXPECT_EQ(fileCount(), 1);  // no temporary file is left behind
}

#ifndef _WIN32
TEST_F(Files, WhatIsNoFileIsRefusedAtOnce) {
    ASSERT_EQ(::mkfifo((folder() / "fifo.lst").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", folder() / "sem-fim.lst");
    for (const char* name : {"fifo.lst", "sem-fim.lst", ""})
        EXPECT_EQ(readFile(path(name)), std::nullopt) << name;
}
#endif

}  // namespace
}  // namespace perfis
