// SPDX-License-Identifier: MIT
// One allocation or one file operation of a run fails: it is told, and what stands is whole.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "child.h"
#include "prancheta/dxf/document.h"
#include "prancheta/entities/register.h"
#include "prancheta/verify/verify.h"

using namespace faults;
using namespace prancheta;
namespace fs = std::filesystem;

namespace {

/// Each command leaves entities of a kind that no other one makes.
const char* const kCommands =
    "_line\n0,0\n1000,1000\n\n"
    "_circle\n500,500\n100\n"
    "_rectang\n2000,0\n3000,800\n"
    "_dimlinear\n0,0\n1000,0\n500,-200\n"
    "_text\n0,900\n50\n0\nNota\n\n"
    "PECA\nU 200x75x3 L=3000 n=2\n0,2000\n30\n"
    "_u\n_redo\n";
const std::set<std::string> kTypes = {"LINE",      "CIRCLE", "LWPOLYLINE",
                                      "DIMENSION", "TEXT",   "INSERT"};

std::map<std::string, long> callsOf(const Folder& folder) {
    std::istringstream in(bytesOf(folder / "contas"));
    std::map<std::string, long> calls;
    std::string kind;
    for (long count = 0; in >> kind >> count;) calls[kind] = count;
    return calls;
}

/// How often each type of entity stands in the section of entities.
std::map<std::string, int> typesIn(const fs::path& file) {
    std::istringstream in(bytesOf(file));
    std::map<std::string, int> types;
    bool entities = false;
    std::string code;
    for (std::string value; std::getline(in, code) && std::getline(in, value);) {
        if (code == "2" && value == "ENTITIES") entities = true;
        if (code == "0" && value == "ENDSEC") entities = false;
        if (entities && code == "0" && kTypes.contains(value)) ++types[value];
    }
    return types;
}

/// Whole, and without a command's entities where that one was interrupted: all of them or none.
void expectWhole(const Folder& folder, const std::map<std::string, int>& full, int interrupted) {
    const auto verdict = verify::examine(folder / "a.dxf");
    ASSERT_TRUE(verdict.ok());
    ASSERT_EQ(verdict->errors, 0U) << verdict->remarks[0].message();
    const std::map<std::string, int> types = typesIn(folder / "a.dxf");
    int missing = 0;
    for (const auto& [type, count] : full) {
        const auto there = types.find(type);
        if (there == types.end()) {
            ++missing;
        } else {
            EXPECT_EQ(there->second, count) << type;
        }
    }
    EXPECT_LE(missing, interrupted);
}

/// All that the user was told.
std::string toldBy(const Folder& folder, const Outcome& outcome) {
    return outcome.errors + bytesOf(folder / "saida");
}

}  // namespace

// Startup and the modules' too: then there is no drawing, but a message.
TEST(Failing, AnyAllocationIsToldAndTheDrawingIsWhole) {
    if (!canFail()) GTEST_SKIP() << "the sanitizers' own allocations go first";
    registerEntityClasses();
    const Folder folder;
    put(folder / "roteiro", kCommands);
    const std::vector<std::string> arguments = {"-r", "roteiro", "-o", "a.dxf"};
    ASSERT_EQ(runConsole(folder, arguments, {.failing = "none:1"}).code, 0);
    const auto full = typesIn(folder / "a.dxf");
    ASSERT_EQ(full.size(), kTypes.size());
    const long calls = callsOf(folder)["alloc"];
    ASSERT_GT(calls, 3000);
    const long rounds = samples(120);
    int told = 0;
    for (long i = 0; i < rounds; ++i) {
        // What the libraries do before main() ends the program, whoever writes it.
        const long number = 100 + (calls - 100) * i / rounds;
        fs::remove(folder / "a.dxf");
        const Outcome outcome =
            runConsole(folder, arguments, {.failing = "alloc:" + std::to_string(number)});
        ASSERT_GE(outcome.code, 0) << number << ": " << outcome.errors;
        told += toldBy(folder, outcome).find("insuficiente") != std::string::npos;
        if (outcome.code == 3) continue;  // it could not start or save, which is told
        SCOPED_TRACE(number);
        expectWhole(folder, full, outcome.code == 0 ? 0 : 1);
    }
    EXPECT_GE(told, rounds * 9 / 10);
}

TEST(Failing, AnyFileOperationIsToldOrTheNewFileIsInPlace) {
    if (!canFail()) GTEST_SKIP() << "the sanitizers' own allocations go first";
    const Folder folder;
    put(folder / "nada", "");
    put(folder / "roteiro", std::string(kCommands) + "_qsave\n");
    ASSERT_EQ(runConsole(folder, {"-r", "nada", "-o", "velho.dxf"}).code, 0);
    const std::string former = bytesOf(folder / "velho.dxf");
    const auto run = [&](const std::string& failing) {
        put(folder / "a.dxf", former);
        fs::remove(folder / "a.bak");
        return runConsole(folder, {"-r", "roteiro", "a.dxf"}, {.failing = failing});
    };
    const std::string usual = toldBy(folder, run("none:1"));
    const std::string made = bytesOf(folder / "a.dxf");
    ASSERT_TRUE(made != former);
    int kept = 0;
    for (const auto& [kind, count] : callsOf(folder)) {
        if (kind == "alloc") continue;
        ASSERT_GT(count, 0) << kind;
        for (long number = 1; number <= count; ++number) {
            SCOPED_TRACE(kind + ":" + std::to_string(number));
            const Outcome outcome = run(kind + ":" + std::to_string(number));
            ASSERT_GE(outcome.code, 0) << outcome.errors;
            const std::string now = bytesOf(folder / "a.dxf");
            kept += now == former;
            // A table of sizes that could not be read, for example, gives another piece.
            if (now != made) {
                EXPECT_NE(toldBy(folder, outcome), usual);
            }
            EXPECT_TRUE(now == former || typesIn(folder / "a.dxf").size() == kTypes.size());
            for (const auto& entry : fs::directory_iterator(folder.path()))
                EXPECT_FALSE(entry.path().filename().string().starts_with(".gravando-"))
                    << entry.path();
        }
    }
    EXPECT_GT(kept, 3);
}
