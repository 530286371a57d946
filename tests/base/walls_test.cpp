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

/// Room, and the other rooms whose headers its sources may include by path. A folder inside another
/// room is a room of its own; headers of arx/ are included by bare name and open to all.
const std::map<std::string, std::set<std::string>> kMayKnow = {
    {"arx", {}},
    {"protocol", {}},
    {"files", {}},
    {"texts", {}},
    {"perfis/base", {"files", "texts"}},
    {"perfis/entities", {}},
    {"perfis/catalogues", {"perfis/base", "zp/forja", "texts"}},
    {"perfis/dialogs", {"perfis/base", "perfis/entities", "zp/forja", "texts"}},
    {"perfis/output", {"perfis/entities", "zp/matlist", "zp/objects", "zp/trelica", "texts"}},
    {"perfis/commands",
     {"perfis/entities", "perfis/catalogues", "perfis/dialogs", "perfis/output", "zp/objects",
      "zp/objects/secao", "zp/tables", "zp/matlist", "protocol", "texts"}},
    {"perfis/pecas",
     {"perfis/entities", "perfis/catalogues", "perfis/dialogs", "perfis/commands", "zp/objects",
      "zp/matlist", "protocol", "files", "texts"}},
    {"perfis/frame", {"perfis/commands", "perfis/pecas"}},
    {"zp", {}},
    {"zp/forja", {"texts"}},
    {"zp/gbarra", {"zp/forja"}},
    {"zp/trelica", {"zp", "zp/gbarra"}},
    {"zp/cutting", {}},
    {"zp/tables", {"files", "texts"}},
    {"zp/objects/secao", {"texts"}},
    {"zp/objects",
     {"zp", "zp/gbarra", "zp/objects/secao", "zp/tables", "perfis/entities", "protocol", "texts"}},
    {"zp/matlist",
     {"zp", "zp/cutting", "zp/objects", "zp/objects/secao", "perfis/entities", "protocol", "files",
      "texts"}},
    {"prancheta/base", {"files"}},
    {"prancheta/geometry", {}},
    {"prancheta/curves", {"prancheta/geometry"}},
    {"prancheta/graphics", {"prancheta/base", "prancheta/geometry"}},
    {"prancheta/database", {"prancheta/base", "prancheta/geometry", "prancheta/graphics"}},
    {"prancheta/entities",
     {"prancheta/base", "prancheta/geometry", "prancheta/curves", "prancheta/graphics",
      "prancheta/database"}},
    {"prancheta/slides", {"prancheta/base"}},
    {"prancheta/dcl", {"prancheta/base", "prancheta/slides"}},
    {"prancheta/dxf",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities", "protocol"}},
    {"prancheta/verify", {"prancheta/base", "prancheta/dxf"}},
    {"prancheta/display",
     {"prancheta/geometry", "prancheta/graphics", "prancheta/database", "prancheta/entities",
      "protocol"}},
    {"prancheta/editor",
     {"prancheta/base", "prancheta/geometry", "prancheta/curves", "prancheta/graphics",
      "prancheta/database", "prancheta/entities", "prancheta/dcl", "prancheta/dxf",
      "prancheta/verify", "prancheta/display", "protocol"}},
    {"prancheta/plot",
     {"prancheta/base", "prancheta/geometry", "prancheta/graphics", "prancheta/database",
      "prancheta/entities", "prancheta/display", "prancheta/editor"}},
    {"prancheta/desktop/canvas",
     {"prancheta/database", "prancheta/entities", "prancheta/display", "prancheta/editor",
      "prancheta/plot"}},
    {"prancheta/desktop/dialogs",
     {"prancheta/base", "prancheta/slides", "prancheta/dcl", "prancheta/display"}},
    {"prancheta/desktop/panels",
     {"prancheta/base", "prancheta/geometry", "prancheta/database", "prancheta/entities",
      "prancheta/display", "prancheta/editor", "protocol"}},
    {"prancheta/desktop/shell",
     {"prancheta/base", "prancheta/database", "prancheta/entities", "prancheta/slides",
      "prancheta/editor", "prancheta/plot", "prancheta/desktop/canvas", "prancheta/desktop/dialogs",
      "prancheta/desktop/panels", "protocol"}},
    {"prancheta/console",
     {"prancheta/base", "prancheta/database", "prancheta/dcl", "prancheta/editor",
      "prancheta/entities", "prancheta/verify", "protocol"}},
};

/// The doors by which the front ends know the editor.
const std::set<std::string> kEditorDoors = {
    "command_stack.h", "commands/layers.h", "drawing_file.h", "dynamic_input.h",
    "edit_group.h",    "editor.h",          "host.h",         "installation.h",
    "modules.h",       "paper_scale.h",     "picking.h",      "plotter.h",
    "printers.h",      "snap_modes.h",      "tracking.h",     "user_interface.h",
    "variables.h"};

/// Libraries by the beginnings of their headers, and the rooms that may use them.
const std::vector<std::pair<std::string, std::set<std::string>>> kLibraries = {
    {"nlohmann/", {"prancheta/console"}},
    {"CLI/", {"prancheta/console"}},
    {"xlsxwriter", {"zp/matlist"}},
    {"Cbc", {"zp/cutting"}},
    {"Clp", {"zp/cutting"}},
    {"Osi", {"zp/cutting"}},
    {"qpdf/", {"prancheta/plot"}},
    {"Q",
     {"prancheta/plot", "prancheta/desktop/canvas", "prancheta/desktop/dialogs",
      "prancheta/desktop/panels", "prancheta/desktop/shell"}},
};

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

/// The innermost room that a path stands in; empty for headers of nobody here.
std::string roomOf(std::string path) {
    for (std::size_t end = path.rfind('/'); end != std::string::npos; end = path.rfind('/')) {
        path.resize(end);
        if (kMayKnow.count(path) > 0) return path;
    }
    return {};
}

/// Calls visit(file, its room, included name) for every include of the rooms' sources.
template <class Visit>
void forEachInclude(Visit visit) {
    for (const char* const house :
         {"arx", "protocol", "files", "texts", "perfis", "zp", "prancheta"})
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / house)) {
            if (!isSource(entry.path())) continue;
            const std::string file = fs::relative(entry.path(), kRoot).generic_string();
            std::ifstream in(entry.path());
            for (std::string line; std::getline(in, line);)
                if (const std::string name = includedName(line); !name.empty())
                    visit(file, roomOf(file), name);
        }
}

bool mayUseLibrary(const std::string& room, const std::string& name) {
    for (const auto& [begin, rooms] : kLibraries)
        if (name.rfind(begin, 0) == 0 && rooms.count(room) == 0) return false;
    return true;
}

/// The console, the plotter and the window's rooms.
bool isFrontEnd(const std::string& room) {
    return room == "prancheta/console" || room == "prancheta/plot" ||
           room.rfind("prancheta/desktop/", 0) == 0;
}

}  // namespace

TEST(Walls, EveryRoomKnowsOnlyWhomItMay) {
    const std::string editor = "prancheta/editor/";
    std::map<std::string, std::set<std::string>> used;
    forEachInclude([&](const std::string& file, const std::string& room, const std::string& name) {
        ASSERT_NE(room, "") << file << " stands in no room of the table";
        const std::string other = roomOf(name);
        if (!other.empty() && other != room) used[room].insert(other);
        EXPECT_TRUE(other.empty() || other == room || kMayKnow.at(room).count(other) > 0)
            << file << ": " << name;
        EXPECT_TRUE(mayUseLibrary(room, name)) << file << ": " << name;
        const bool throughWall = isFrontEnd(room) && name.rfind(editor, 0) == 0 &&
                                 kEditorDoors.count(name.substr(editor.size())) == 0;
        EXPECT_FALSE(throughWall) << file << ": " << name;
    });
    // A permission that nobody uses is a hole in the wall.
    for (const auto& [room, known] : kMayKnow) EXPECT_EQ(used[room], known) << room;
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
