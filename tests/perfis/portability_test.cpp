// SPDX-License-Identifier: MIT
// Files found and replaced.
#include "perfis/base/portability.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

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
