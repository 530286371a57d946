// SPDX-License-Identifier: MIT
// Saving that is cut short: killed, out of room, not allowed. The old file or the new one, whole.
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <set>

#include "acutads.h"
#include "child.h"
#include "prancheta/dxf/document.h"
#include "prancheta/entities/register.h"
#include "prancheta/verify/verify.h"

using namespace faults;
using namespace prancheta;
namespace fs = std::filesystem;

// The rooms below the editor print to a command line that is not linked here.
int acutPrintf(const ACHAR*, ...) { return RTNORM; }

namespace {

constexpr int kKills = 150;

/// Draws `lines` lines and saves the drawing, again and again.
std::string savingScript(int rounds) {
    std::string script;
    for (int i = 0; i < rounds; ++i) {
        script += "_line\n0,0\n" + std::to_string(i + 1) + ",7\n\n_qsave\n";
    }
    return script;
}

fs::path installationOf(const Folder& folder) {
    fs::copy(fs::path(HOUSE_BINARY_DIR) / "instalacao", folder / "instalacao",
             fs::copy_options::recursive);
    return folder / "instalacao";
}

/// Moments of killing, microseconds, spread over a run that takes as long as this one.
template <class Run>
std::uniform_int_distribution<int> moments(Run run) {
    const auto start = std::chrono::steady_clock::now();
    run();
    const auto took = std::chrono::steady_clock::now() - start;
    const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(took).count();
    return std::uniform_int_distribution<int>(static_cast<int>(whole) / 20,
                                              static_cast<int>(whole));
}

/// What killed programs left beside the files that they wrote.
int temporaries(const fs::path& folder) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder))
        count += entry.path().filename().string().starts_with(".gravando-");
    return count;
}

/// Number of rows of a list, -1 when its last line is not whole.
int wholeRows(const std::string& bytes) {
    if (!bytes.empty() && bytes.back() != '\n') return -1;
    return static_cast<int>(std::count(bytes.begin(), bytes.end(), '\n'));
}

}  // namespace

TEST(Interrupted, AKilledSaveLeavesAWholeDrawing) {
    registerEntityClasses();
    const Folder folder;
    put(folder / "roteiro", savingScript(40));
    ASSERT_EQ(runConsole(folder, {"-r", "/dev/null", "-o", "a.dxf"}).code, 0);
    std::mt19937 random(7);
    auto delay = moments([&] {
        (void)runConsole(folder, {"--sem-modulos", "-r", "roteiro", "a.dxf"});
    });
    int killed = 0;
    std::set<std::size_t> sizes;
    const long kills = samples(kKills);
    for (long i = 0; i < kills; ++i) {
        killed += runConsole(folder, {"--sem-modulos", "-r", "roteiro", "a.dxf"},
                             {.killAfter = delay(random)})
                      .code == -1;
        const auto verdict = verify::examine(folder / "a.dxf");
        ASSERT_TRUE(verdict.ok()) << i;
        ASSERT_EQ(verdict->errors, 0U) << i << ": " << verdict->remarks[0].message();
        ASSERT_TRUE(dxf::load(folder / "a.dxf").ok()) << i;
        sizes.insert(fs::file_size(folder / "a.dxf"));
    }
    // Otherwise nothing was interrupted, or nothing was saved.
    EXPECT_GT(killed, kills / 5);
    EXPECT_GT(sizes.size(), 3U);
    (void)runConsole(folder, {"--sem-modulos", "-r", "roteiro", "a.dxf"});
    EXPECT_EQ(temporaries(folder.path()), 0);
}

TEST(Interrupted, AKilledCommandLeavesAWholeCatalogue) {
    const Folder folder;
    const fs::path list = installationOf(folder) / "Perfis/Listas/pu.lst";
    const int before = wholeRows(bytesOf(list));
    ASSERT_GT(before, 0);
    // Each run adds rows of its own: those that are there already change nothing.
    const auto writeScript = [&](int run) {
        std::string script;
        for (int i = 0; i < 30; ++i)
            script += "perfilu\nh=" + std::to_string(1000 + 30 * run + i) +
                      "\nb=80\nt=3\naddtolist\naccept\n0,0\n0\n";
        put(folder / "roteiro", script);
    };
    const std::vector<std::string> arguments = {"--instalacao", "instalacao", "-r", "roteiro"};
    std::mt19937 random(11);
    writeScript(0);
    auto delay = moments([&] { (void)runConsole(folder, arguments); });
    int killed = 0;
    int grown = 0;
    const int kills = static_cast<int>(samples(kKills) / 2);
    for (int i = 0; i < kills; ++i) {
        const std::string old = bytesOf(list);
        writeScript(i + 1);
        killed += runConsole(folder, arguments, {.killAfter = delay(random)}).code == -1;
        const int rows = wholeRows(bytesOf(list));
        ASSERT_GE(rows, wholeRows(old)) << i;
        grown += rows > wholeRows(old);
    }
    EXPECT_GT(killed, kills / 5);
    EXPECT_GT(grown, 0);
    writeScript(kills + 1);
    (void)runConsole(folder, arguments);
    EXPECT_EQ(temporaries(list.parent_path()), 0);
}

TEST(Interrupted, AFullDiskKeepsTheOldDrawing) {
    const Folder folder;
    put(folder / "roteiro", savingScript(3));
    ASSERT_EQ(runConsole(folder, {"-r", "/dev/null", "-o", "a.dxf"}).code, 0);
    const std::string old = bytesOf(folder / "a.dxf");
    put(folder / "a.bak", "antes");
    put(folder / "linha", "_line\n0,0\n1,1\n\n_qsave\n");
    for (const long room : {0L, 1L, 1000L, static_cast<long>(old.size()) - 1}) {
        const Outcome outcome =
            runConsole(folder, {"--sem-modulos", "-r", "linha", "-o", "a.dxf", "a.dxf"},
                       {.largestFile = room});
        EXPECT_EQ(outcome.code, 3) << room;
        EXPECT_EQ(bytesOf(folder / "a.dxf"), old) << room;
        EXPECT_EQ(bytesOf(folder / "a.bak"), "antes") << room;
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 6)
            << "a temporary file was left with room for " << room;
    }
}

TEST(Interrupted, AFolderWithoutRightsIsToldAndKeepsItsFiles) {
    const Folder folder;
    const fs::path locked = folder / "fechada";
    fs::create_directory(locked);
    ASSERT_EQ(runConsole(folder, {"-r", "/dev/null", "-o", "fechada/a.dxf"}).code, 0);
    const std::string old = bytesOf(locked / "a.dxf");
    fs::permissions(locked / "a.dxf", fs::perms::owner_read);
    fs::permissions(locked, fs::perms::owner_read | fs::perms::owner_exec);
    put(folder / "linha", "_line\n0,0\n1,1\n\n_qsave\n");
    const Outcome outcome = runConsole(folder, {"--sem-modulos", "-r", "linha", "fechada/a.dxf"},
                                       {.withoutRights = true});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.errors.find("a.dxf"), std::string::npos) << outcome.errors;
    EXPECT_EQ(bytesOf(locked / "a.dxf"), old);
    fs::permissions(locked, fs::perms::owner_all);
}

TEST(Interrupted, TwoProcessesOnOneCatalogue) {
    const Folder folder;
    const fs::path list = installationOf(folder) / "Perfis/Listas/pu.lst";
    const int before = wholeRows(bytesOf(list));
    for (const char* const name : {"um", "dois"}) {
        const int first = name[0] == 'u' ? 500 : 600;
        std::string script;
        for (int i = 0; i < 10; ++i)
            script += "perfilu\nh=" + std::to_string(first + i) +
                      "\nb=80\nt=3\naddtolist\naccept\n0,0\n0\n";
        put(folder / name, script);
    }
    const std::string program = std::string(HOUSE_BINARY_DIR) + "/bin/prancheta-console";
    const std::string run = "cd '" + folder.path().string() +
                            "' && unset ZPFORJA2010; for r in um "
                            "dois; do '" +
                            program +
                            "' --instalacao instalacao -r $r >/dev/null & "
                            "done; wait";
    ASSERT_EQ(std::system(run.c_str()), 0);
    const std::string bytes = bytesOf(list);
    EXPECT_EQ(wholeRows(bytes), before + 20);
    for (int i = 0; i < 10; ++i)
        for (const int first : {500, 600})
            EXPECT_NE(bytes.find(std::to_string(first + i) + "\t80"), std::string::npos)
                << first + i;
}
