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

TEST(Aliases, withoutItsFileAnInstallationHasTheShippedOnes) {
    Aliases aliases;
    EXPECT_EQ(aliases.find(L"CP"), L"COPY");
    EXPECT_EQ(aliases.find(L"pl"), L"PLINE");
    EXPECT_EQ(aliases.find(L"ATALHO"), L"") << "a comment is no alias";
    EXPECT_FALSE(aliases.load("/nao/existe.txt"));
    EXPECT_EQ(aliases.find(L"RO"), L"ROTATE");
}

}  // namespace
