// SPDX-License-Identifier: MIT
// Drawings with senseless values: every group of a file, enormous coordinates, cuts anywhere.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "child.h"
#include "prancheta/dxf/document.h"
#include "prancheta/entities/register.h"

using namespace faults;
using namespace prancheta;

namespace {

/// Values that no group expects, and some that it just might.
const char* const kSenseless[] = {"",
                                  "x",
                                  "-1",
                                  "1e308",
                                  "-9223372036854775808",
                                  "nan",
                                  "FFFFFFFFFFFFFFFF",
                                  "99999999999999999999",
                                  "\xC3"};

std::string sample(const Folder& folder) {
    put(folder / "roteiro",
        "_line\n0,0\n10,5\n20,0\n\n_circle\n0,0\n5\n_text\n0,0\n2.5\n0\nAção\n\n_dimaligned\n0,"
        "0\n30,"
        "40\n5,5\n_pline\n0,0\n5,5\n_a\n10,0\n\nperfilu\nlista=3\ndimensionar=1\naccept\n50,"
        "50\n30\n");
    const Outcome outcome = runConsole(folder, {"-r", "roteiro", "-o", "a.dxf"});
    EXPECT_EQ(outcome.code, 0) << outcome.errors;
    return bytesOf(folder / "a.dxf");
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string out;
    for (const std::string& line : lines) out += line + "\n";
    return out;
}

}  // namespace

// A file is refused with a place, or read; what was read can be saved and read again.
TEST(Values, EverySenselessValueIsRefusedOrSurvived) {
    registerEntityClasses();
    const Folder folder;
    std::vector<std::string> lines = linesOf(sample(folder));
    std::size_t refused = 0;
    std::size_t taken = 0;
    for (std::size_t i = 1; i < lines.size(); i += 2) {
        const std::string sound = lines[i];
        // Every value in turn, one place after the other: all pairs would take minutes.
        lines[i] = kSenseless[i / 2 % std::size(kSenseless)];
        put(folder / "b.dxf", joined(lines));
        lines[i] = sound;
        auto loaded = dxf::load(folder / "b.dxf");
        if (!loaded) {
            ++refused;
            ASSERT_FALSE(loaded.error().text.empty()) << "line " << i + 1;
            continue;
        }
        ++taken;
        const auto saved = dxf::save(**loaded, folder / "c.dxf");
        ASSERT_TRUE(saved.ok()) << "line " << i + 1 << ": " << saved.error().message();
        const auto again = dxf::load(folder / "c.dxf");
        ASSERT_TRUE(again.ok()) << "line " << i + 1 << ": " << again.error().message();
    }
    EXPECT_GT(refused, 100U);
    EXPECT_GT(taken, 100U);
}

TEST(Values, CutsAnywhereInALargeFileAreTold) {
    registerEntityClasses();
    const Folder folder;
    std::string script;
    for (int i = 0; i < 1600; ++i)
        script += "_line\n" + std::to_string(i) + ",0\n" + std::to_string(i) + ".5,9\n\n";
    put(folder / "roteiro", script);
    ASSERT_EQ(runConsole(folder, {"--sem-modulos", "-r", "roteiro", "-o", "a.dxf"}).code, 0);
    const std::string whole = bytesOf(folder / "a.dxf");
    ASSERT_GT(whole.size(), 100000U);
    std::mt19937 random(3);
    std::uniform_int_distribution<std::size_t> place(0, whole.size() - 6);
    for (int i = 0; i < 200; ++i) {
        const std::size_t cut = place(random);
        put(folder / "b.dxf", whole.substr(0, cut));
        const auto loaded = dxf::load(folder / "b.dxf");
        ASSERT_FALSE(loaded.ok()) << "cut at byte " << cut;
        ASSERT_GT(loaded.error().line, 0) << "cut at byte " << cut;
    }
}

TEST(Values, EnormousCoordinatesAndSizesComeToNoHarm) {
    const Folder folder;
    put(folder / "roteiro",
        "_line\n1e300,1e300\n-1e300,1e300\n1e-300,0\n\n_circle\n0,0\n1e200\n_line\nnan,0\n0,"
        "inf\n1e999,"
        "0\n^C\n_move\n_all\n\n0,0\n1e300,0\n_scale\n_all\n\n0,0\n1e150\n_zoom\n_e\n_rotate\n_"
        "all\n\n0,0\n"
        "45\n_u\nperfilu\nh=1e300\nb=1e300\nt=1e299\naccept\n0,0\n0\nperfilu\nh=1e-300\nb=1e-"
        "300\nt=1e-301\n"
        "accept\n0,0\n0\n_dimaligned\n0,0\n1e300,1e300\n5,5\n_regen\n");
    // Answers may be refused; the program ends by itself and what it saved can be opened.
    const Outcome outcome =
        runConsole(folder, {"-r", "roteiro", "-o", "a.dxf", "--estado", "a.json"});
    EXPECT_TRUE(outcome.code == 0 || outcome.code == 1) << outcome.code << outcome.errors;
    put(folder / "nada", "");
    EXPECT_EQ(runConsole(folder, {"-r", "nada", "-o", "b.dxf", "a.dxf"}).code, 0);
    EXPECT_EQ(bytesOf(folder / "a.json").find("nan"), std::string::npos);
}
