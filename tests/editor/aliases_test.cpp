// SPDX-License-Identifier: MIT
// Short names of commands.
#include "prancheta/editor/aliases.h"

#include <gtest/gtest.h>

#include "prancheta/base/file.h"

using namespace prancheta;

namespace {

TEST(Aliases, linesCommentsAndRubbish) {
    Aliases aliases;
    aliases.parse(
        "\xEF\xBB\xBF; aliases\r\nRO, *ROTATE ; girar\r\n  g ,LINE\nsem virgula\n, *X\nY,\nRO2,  * "
        "MOVE\n");
    EXPECT_EQ(aliases.size(), 3u);
    EXPECT_EQ(aliases.find(L"ro"), L"ROTATE");
    EXPECT_EQ(aliases.find(L"G"), L"LINE");
    EXPECT_EQ(aliases.find(L"ro2"), L"MOVE");
    EXPECT_EQ(aliases.find(L"L"), L"");
}

TEST(Aliases, shippedFileSaysWhatTheProgramKnows) {
    Aliases known;
    Aliases shipped;
    const std::filesystem::path file =
        std::filesystem::path(HOUSE_SOURCE_DIR) / "instalacao/Prancheta/atalhos.txt";
    ASSERT_TRUE(shipped.load(file));
    EXPECT_EQ(shipped.size(), known.size());
    for (const wchar_t* alias :
         {L"L", L"M", L"CO", L"CP", L"RO", L"E", L"Z", L"X", L"LI", L"DAL", L"RE"}) {
        EXPECT_FALSE(known.find(alias).empty());
        EXPECT_EQ(shipped.find(alias), known.find(alias));
    }
    EXPECT_FALSE(shipped.load("/nao/existe.txt"));
    EXPECT_EQ(shipped.find(L"RO"), L"ROTATE");
}

}  // namespace
