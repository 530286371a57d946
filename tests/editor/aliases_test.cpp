// SPDX-License-Identifier: MIT
// Short names of commands.
#include "prancheta/editor/aliases.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

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

/// The later of two lines would count, and nobody would see it.
TEST(Aliases, shippedOnesStandOnce) {
    std::ifstream file(HOUSE_SOURCE_DIR "/instalacao/Prancheta/atalhos.txt");
    ASSERT_TRUE(file.is_open());
    std::set<std::string> seen;
    for (std::string line; std::getline(file, line);) {
        const std::size_t comma = line.find(',');
        if (line.starts_with(';') || comma == std::string::npos) continue;
        EXPECT_TRUE(seen.insert(line.substr(0, comma)).second) << line;
    }
    EXPECT_GT(seen.size(), 40u);
}

}  // namespace
