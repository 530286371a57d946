// SPDX-License-Identifier: MIT
// Who may know whom: every include of every room is held against one table.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const fs::path kRoot = HOUSE_SOURCE_DIR;

/// Folder, and the folders whose headers its sources may include by path. Headers of arx/ are
/// included by bare name and open to all.
const std::map<std::string, std::set<std::string>> kMayKnow = {
    {"arx", {}},
    {"protocol", {}},
    {"files", {"files"}},
    {"perfis", {"perfis", "zp", "protocol", "files"}},
    {"zp", {"zp", "perfis/entities", "protocol", "files"}},
    {"prancheta/base", {"prancheta/base", "files"}},
    {"prancheta/geometry", {"prancheta/base", "prancheta/geometry"}},
    {"prancheta/graphics", {"prancheta/base", "prancheta/geometry", "prancheta/graphics"}},
    {"prancheta/database",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database"}},
    {"prancheta/entities",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities"}},
    {"prancheta/slides", {"prancheta/base", "prancheta/slides"}},
    {"prancheta/dcl", {"prancheta/base", "prancheta/slides", "prancheta/dcl"}},
    {"prancheta/dxf",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities", "prancheta/dxf"}},
    {"prancheta/verify", {"prancheta/base", "prancheta/dxf", "prancheta/verify"}},
    {"prancheta/display",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities", "prancheta/display"}},
    {"prancheta/editor",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities", "prancheta/dcl", "prancheta/dxf", "prancheta/display",
      "prancheta/editor", "protocol"}},
    {"prancheta/plot",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/display", "prancheta/editor", "prancheta/plot"}},
    {"prancheta/desktop",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities", "prancheta/slides", "prancheta/dcl", "prancheta/dxf",
      "prancheta/display", "prancheta/editor", "prancheta/plot", "prancheta/desktop", "protocol"}},
    {"prancheta/console",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities", "prancheta/dcl", "prancheta/dxf", "prancheta/editor", "prancheta/plot",
      "prancheta/verify", "prancheta/console", "protocol"}},
};

/// Rooms that may use more than the standard library and the system.
const std::set<std::string> kToolkitRooms = {"prancheta/plot", "prancheta/desktop"};

std::string includedName(const std::string& line) {
    if (line.rfind("#include", 0) != 0) return {};
    const auto first = line.find_first_of("<\"");
    const auto last = line.find_last_of(">\"");
    return first == std::string::npos || last <= first ? std::string()
                                                       : line.substr(first + 1, last - first - 1);
}

bool isSource(const fs::path& path) {
    return path.extension() == ".cpp" || path.extension() == ".h";
}

/// True when a header of one of the house's own folders is meant.
bool isHouseHeader(const std::string& name) {
    const std::string first = name.substr(0, name.find('/'));
    return name.find('/') != std::string::npos &&
           std::set<std::string>{"perfis", "zp", "prancheta", "protocol", "files", "arx", "tools"}.count(
               first) > 0;
}

std::vector<std::string> violations(const std::string& room, const std::set<std::string>& known) {
    std::vector<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / room)) {
        if (!isSource(entry.path())) continue;
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            const std::string name = includedName(line);
            bool allowed = !isHouseHeader(name);
            for (const std::string& folder : known) allowed |= name.rfind(folder + "/", 0) == 0;
            const bool toolkit = name.rfind("Q", 0) == 0 && name.find('.') == std::string::npos;
            if (!allowed || (toolkit && kToolkitRooms.count(room) == 0))
                found.push_back(fs::relative(entry.path(), kRoot).string() + ": " + name);
        }
    }
    return found;
}

}  // namespace

TEST(Walls, EveryRoomKnowsOnlyWhomItMay) {
    for (const auto& [room, known] : kMayKnow)
        EXPECT_EQ(violations(room, known), std::vector<std::string>()) << room;
}

/// An empty element of the path would be the folder in which the user happens to stand.
TEST(Walls, ProgramsLookForLibrariesBesideThemselvesOnly) {
    int programs = 0;
    for (const char* const folder : {"bin", "tests"}) {
        const std::string files = (fs::path(HOUSE_BINARY_DIR) / folder).string() + "/*";
        FILE* const out = ::popen(("readelf -d " + files + " 2>/dev/null").c_str(), "r");
        ASSERT_NE(out, nullptr);
        char bytes[4096];
        while (std::fgets(bytes, sizeof bytes, out) != nullptr) {
            const std::string line = bytes;
            if (line.find("PATH)") == std::string::npos) continue;
            const std::size_t from = line.find('[');
            const std::string path = line.substr(from, line.find(']') + 1 - from);
            EXPECT_TRUE(path == "[$ORIGIN]" || path == "[$ORIGIN/../bin]") << folder << line;
            ++programs;
        }
        ::pclose(out);
    }
    EXPECT_GT(programs, 0);
}

TEST(Walls, EveryRoomOfTheHostIsInTheTable) {
    for (const auto& entry : fs::directory_iterator(kRoot / "prancheta")) {
        const std::string room = fs::relative(entry.path(), kRoot).generic_string();
        EXPECT_TRUE(!entry.is_directory() || kMayKnow.count(room) > 0 ||
                    kToolkitRooms.count(room) > 0)
            << room;
    }
}
