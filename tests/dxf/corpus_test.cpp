// SPDX-License-Identifier: MIT
// Every kind of entity in every release as another program writes it, opened and saved: what comes
// back differs only in what is named here. Order within a record is not compared.
#include <cmath>
#include <cstdlib>
#include <map>

#include "prancheta/base/text.h"
#include "prancheta/dxf/binary.h"
#include "prancheta/dxf/tag.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta;

namespace {

const std::filesystem::path kKept = std::filesystem::path(HOUSE_SOURCE_DIR) / "tests/dxf/corpus";
constexpr const char* kPython = "/usr/bin/python3";

/// Plane: files of a program that knows the plane only, and writes what is usual.
enum class Of { All, R12, Plane, Both };

/// A group that is not written back, or is written and was not there. "*" is any type or value.
struct Accepted {
    const char* type;
    int code;
    const char* value;
    const char* why;
    Of release = Of::All;
    mutable std::size_t used = 0;
};

const Accepted kLost[] = {
    {"ATTRIB", 11, "*", "a text at its left end has no second point"},
    {"ATTRIB", 21, "*", "the same"},
    {"ATTRIB", 31, "*", "the same"},
    {"*", 330, "*", "the part of a polyline or reference names it as its owner, not the space"},
    {"DIMSTYLE", 142, "0", "the usual value"},
    {"DIMSTYLE", 144, "1", "the usual value"},
    {"DIMSTYLE", 173, "0", "the usual value"},
    {"DIMSTYLE", 174, "0", "the usual value"},
    {"DIMSTYLE", 176, "0", "the usual value"},
    {"DIMSTYLE", 177, "0", "the usual value"},
    {"DIMSTYLE", 178, "0", "the usual value"},
    {"DIMSTYLE", 3, "", "the usual value"},
    {"DIMSTYLE", 45, "0", "the usual value"},
    {"DIMSTYLE", 75, "0", "the usual value"},
    {"DIMSTYLE", 76, "0", "the usual value"},
    {"DIMSTYLE", 90, "2", "the release does not know it"},
    {"DIMSTYLE", 5, "*", "names of arrows become handles", Of::R12},
    {"DIMSTYLE", 6, "", "the same", Of::R12},
    {"DIMSTYLE", 7, "", "the same", Of::R12},
    {"LTYPE", 40, "*", "the length is the sum of the dashes", Of::R12},
    {"TABLE", 70, "*", "records that were made for it"},
    {"*", 6, "BYBLOCK", "a linetype's name as its record has it"},
    {"MTEXT", 1, "*", "parts of other lengths, and a caret alone gets its blank"},
    {"MTEXT", 3, "*", "the same"},
    {"MTEXT", 50, "*", "the direction says it"},
    {"*", 6, "ByLayer", "the usual value", Of::Plane},
    {"*", 62, "256", "the usual value", Of::Plane},
    {"*", 370, "-1", "the usual value", Of::Plane},
    {"*", 6, "CONTINUOUS", "a linetype's name as its record has it", Of::Plane},
    {"*", 41, "1", "the usual value", Of::Plane},
    {"INSERT", 42, "1", "the usual value", Of::Plane},
    {"INSERT", 43, "0", "a factor of 0 for z is read as 1", Of::Plane},
    {"LWPOLYLINE", 43, "0", "the usual value", Of::Plane},
    {"INSERT", 44, "0", "the usual value", Of::Plane},
    {"INSERT", 45, "0", "the usual value", Of::Plane},
    {"MTEXT", 44, "1", "the usual value", Of::Plane},
    {"*", 50, "0", "the usual value", Of::Plane},
    {"TEXT", 51, "0", "the usual value", Of::Plane},
    {"INSERT", 70, "1", "the usual value", Of::Plane},
    {"INSERT", 71, "1", "the usual value", Of::Plane},
    {"TEXT", 71, "0", "the usual value", Of::Plane},
    {"TABLE", 71, "*", "the number of styles", Of::Plane},
    {"MTEXT", 73, "1", "the usual value", Of::Plane},
    {"DIMSTYLE", 179, "0", "the usual value", Of::Plane},
    {"*", 210, "0", "the usual normal, or one without length", Of::Plane},
    {"*", 220, "0", "the same", Of::Plane},
    {"*", 230, "*", "the same", Of::Plane},
    {"DIMSTYLE", 340, "*", "a name where a handle is to be", Of::Plane},
    {"DIMSTYLE", 341, "", "no handle at all", Of::Plane},
    {"VPORT", 348, "*", "an object that the file does not have", Of::Plane},
    {"LAYER", 390, "*", "the same", Of::Plane},
};

const Accepted kAdded[] = {
    {"*", 330, "*", "the owner"},
    {"*", 100, "*", "markers of classes", Of::R12},
    {"DIMSTYLE", 340, "*", "the style of its text"},
    {"DIMSTYLE", 342, "*", "names of arrows become handles", Of::R12},
    {"DIMSTYLE", 271, "2", "decimals were told in another group", Of::R12},
    {"DIMSTYLE", 277, "2", "the same", Of::R12},
    {"DIMSTYLE", 278, "46", "the same", Of::R12},
    {"LAYER", 370, "-3", "the usual value, which newer releases ask for", Of::R12},
    {"LAYER", 390, "*", "the same", Of::Both},
    {"LTYPE", 74, "0", "the same", Of::R12},
    {"LTYPE", 40, "*", "the length is the sum of the dashes", Of::R12},
    {"LEADER", 40, "0", "the usual value"},
    {"LEADER", 41, "0", "the usual value"},
    {"LEADER", 71, "1", "the usual value"},
    {"LEADER", 72, "0", "the usual value"},
    {"LEADER", 74, "1", "the usual value"},
    {"LEADER", 75, "0", "the usual value"},
    {"LEADER", 211, "1", "the usual value"},
    {"LEADER", 221, "0", "the usual value"},
    {"LEADER", 231, "0", "the usual value"},
    {"LEADER", 212, "0", "the usual value"},
    {"LEADER", 222, "0", "the usual value"},
    {"LEADER", 232, "0", "the usual value"},
    {"LEADER", 213, "0", "the usual value"},
    {"LEADER", 223, "0", "the usual value"},
    {"LEADER", 233, "0", "the usual value"},
    {"*", 6, "ByBlock", "a linetype's name as its record has it"},
    {"MTEXT", 1, "*", "parts of other lengths, and a caret alone gets its blank"},
    {"MTEXT", 3, "*", "the same"},
    {"MTEXT", 7, "Standard", "the usual value"},
    {"MTEXT", 11, "*", "the direction instead of the angle"},
    {"MTEXT", 21, "*", "the same"},
    {"MTEXT", 31, "*", "the same"},
    {"MTEXT", 41, "0", "the usual value"},
    {"MTEXT", 72, "1", "the usual value"},
    {"TABLE", 70, "*", "records that were made for it"},
    {"TABLE", 71, "*", "the number of styles"},
    {"DICTIONARY", 3, "*", "objects that strict readers ask for", Of::Plane},
    {"DICTIONARY", 350, "*", "the same", Of::Plane},
    {"*", 6, "Continuous", "a linetype's name as its record has it", Of::Plane},
    {"*", 30, "0", "points have three coordinates", Of::Plane},
    {"LINE", 31, "0", "the same", Of::Plane},
    {"BLOCK_RECORD", 340, "*", "the layout that was made", Of::Plane},
    {"DIMSTYLE", 341, "0", "no arrow", Of::Plane},
};

/// Types of records that are made; the code is not used.
const Accepted kMade[] = {
    {"LAYER", 0, "*", "an entity is on it"},
    {"ACDBDICTIONARYWDFLT", 0, "*", "newer releases ask for it", Of::Both},
    {"ACDBPLACEHOLDER", 0, "*", "the same", Of::Both},
    {"BLOCK", 0, "*", "those of the spaces", Of::R12},
    {"ENDBLK", 0, "*", "the same", Of::R12},
    {"BLOCK_RECORD", 0, "*", "the same", Of::R12},
    {"DICTIONARY", 0, "*", "newer releases ask for it", Of::Both},
    {"LAYOUT", 0, "*", "the same", Of::Both},
    {"MLINESTYLE", 0, "*", "the same", Of::Both},
    {"TABLE", 0, "*", "tables get handles", Of::R12},
    {"DIMSTYLE", 0, "*", "an entity names it", Of::Plane},
    {"STYLE", 0, "*", "the same", Of::Plane},
};

bool isAccepted(std::span<const Accepted> rows, std::string_view type, const Group& group,
                Of file) {
    for (const Accepted& row : rows) {
        const bool suits = (row.type == type || std::string_view(row.type) == "*") &&
                           row.code == group.code &&
                           (row.value == group.value || std::string_view(row.value) == "*");
        const bool both = row.release == Of::Both && file != Of::All;
        if (!suits || (row.release != Of::All && row.release != file && !both)) continue;
        ++row.used;
        return true;
    }
    return false;
}

/// Numbers however they are written.
std::string normal(const Group& group) {
    double real = 0.0;
    long long whole = 0;
    const std::string value(trim(std::string_view(group.value)));
    const dxf::ValueKind kind = dxf::kindOf(group.code);
    if (kind == dxf::ValueKind::Real && dxf::parseReal(value, real))
        return numberText(std::round(real * 1e9) / 1e9 + 0.0);
    return dxf::parseInteger(value, whole) && kind != dxf::ValueKind::Text ? std::to_string(whole)
                                                                           : value;
}

using Key = std::pair<std::string, std::string>;  ///< type and handle
using Counted = std::map<std::pair<int, std::string>, int>;

/// Records that have a handle, each with how often it has a group.
std::map<Key, Counted> recordsOf(const Groups& all) {
    std::map<Key, Counted> records;
    for (std::size_t i = 0; i < all.size();) {
        const std::string type = all[i].value;
        std::string handle;
        Counted counted;
        for (++i; i < all.size() && all[i].code != 0; ++i) {
            if (all[i].code == (type == "DIMSTYLE" ? 105 : 5) && handle.empty())
                handle = trim(std::string_view(all[i].value));
            ++counted[{all[i].code, normal(all[i])}];
        }
        if (!handle.empty() && type != "SECTION" && type != "CLASS")
            records[{type, handle}] = std::move(counted);
    }
    return records;
}

void expectSame(const std::string& file, const Groups& before, const Groups& after) {
    const Of kind = file.find("-R12-") != std::string::npos ? Of::R12
                    : file.starts_with("librecad-")         ? Of::Plane
                                                            : Of::All;
    const auto were = recordsOf(before);
    const auto are = recordsOf(after);
    EXPECT_GT(were.size(), 15U) << file;
    for (const auto& [key, groups] : were) {
        const auto now = are.find(key);
        if (now == are.end()) {
            ADD_FAILURE() << file << ": " << key.first << " " << key.second << " não voltou";
            continue;
        }
        Counted change = now->second;
        for (const auto& [group, times] : groups) change[group] -= times;
        for (const auto& [group, times] : change) {
            const Group one{group.first, group.second};
            if (times != 0 && !isAccepted(times < 0 ? std::span<const Accepted>(kLost)
                                                    : std::span<const Accepted>(kAdded),
                                          key.first, one, kind))
                ADD_FAILURE() << file << ": " << key.first << " " << key.second
                              << (times < 0 ? " perdeu " : " ganhou ") << one;
        }
    }
    for (const auto& [key, groups] : are)
        if (!were.contains(key) && !isAccepted(kMade, key.first, {0, ""}, kind))
            ADD_FAILURE() << file << ": " << key.first << " " << key.second << " é novo";
}

}  // namespace

TEST(Corpus, FilesOfAnotherProgramComeBackTagForTag) {
    if (std::system((std::string(kPython) + " -c 'import ezdxf' 2>/dev/null").c_str()) != 0)
        GTEST_SKIP() << "ezdxf não está instalado";
    const Folder folder;
    const std::string make = std::string(kPython) + " " + HOUSE_SOURCE_DIR "/tests/dxf/corpus.py " +
                             (folder / "").string();
    ASSERT_EQ(std::system(make.c_str()), 0);
    // Those that a program saves only by hand lie beside this source.
    std::vector<std::filesystem::path> paths;
    for (const auto& where : {folder / "", kKept})
        for (const auto& entry : std::filesystem::directory_iterator(where))
            if (where != kKept || entry.path().filename().string().starts_with("librecad-"))
                paths.push_back(entry.path());
    std::size_t files = 0;
    for (const std::filesystem::path& path : paths) {
        const std::string name = path.filename().string();
        if (path.extension() != ".dxf") continue;
        std::string bytes = read(path);
        if (dxf::isBinary(bytes)) {
            auto text = dxf::textOfBinary(bytes);
            ASSERT_TRUE(text.ok()) << name;
            bytes = text->text;
        }
        const auto loaded = dxf::load(path);
        ASSERT_TRUE(loaded.ok()) << name << ": " << loaded.error().message();
        expectSame(name, groupsOf(bytes), groupsOf(saved(**loaded)));
        ++files;
    }
    EXPECT_GE(files, 100U);
    for (const auto& rows : {std::span<const Accepted>(kLost), std::span<const Accepted>(kAdded),
                             std::span<const Accepted>(kMade)})
        for (const Accepted& row : rows)
            EXPECT_GT(row.used, 0U) << row.type << " " << row.code << ": " << row.why;
}

TEST(Corpus, DrawingsOfOtherProgramsAreReadAndSavedWhole) {
    struct Case {
        const char* file;
        std::map<std::string, int> types;  ///< counted in what the drawing was made from
        AcGePoint3d high;                  ///< upper right corner
    };
    const Case cases[] = {
        // A C of eight sides and a circle of 24.
        {"perfil.dxf", {{"LINE", 32}}, {130, 200, 0}},
        // A line, a triangle with a hole, a point, a label and a line in space.
        {"linhas.dxf",
         {{"LWPOLYLINE", 1}, {"HATCH", 1}, {"POINT", 1}, {"MTEXT", 1}, {"POLYLINE", 1}},
         {100, 60, 7}},
    };
    for (const Case& c : cases) {
        dxf::LoadReport report;
        const auto loaded = dxf::load(kKept / c.file, &report);
        ASSERT_TRUE(loaded.ok()) << c.file << ": " << loaded.error().message();
        EXPECT_TRUE(report.findings.empty()) << c.file;
        AcDbExtents box;
        for (const AcDbEntity* const each : modelSpace(**loaded)) {
            AcDbExtents own;
            ASSERT_EQ(each->getGeomExtents(own), Acad::eOk) << c.file;
            box.addExt(own);
        }
        EXPECT_NEAR(box.maxPoint().distanceTo(c.high), 0.0, 0.02) << c.file;
        const std::string text = saved(**loaded);
        std::map<std::string, int> types;
        bool inside = false;
        const Groups all = groupsOf(text);
        for (const Group& group : all) {
            if (group == Group{2, "ENTITIES"} || group == Group{0, "ENDSEC"})
                inside = group.code == 2;
            const bool part = group.value == "VERTEX" || group.value == "SEQEND";
            if (inside && group.code == 0 && !part) ++types[group.value];
        }
        EXPECT_EQ(types, c.types) << c.file;
        EXPECT_EQ(saved(*loadText(text)), text) << c.file;
    }
}
