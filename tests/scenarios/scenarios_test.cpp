// SPDX-License-Identifier: MIT
// Scenarios: each folder holds a script (roteiro.txt) and what must come of it (esperado.json), and
// is run through prancheta-console on a copy of the installation folder.
//
// esperado.json, every field optional:
//   codigo       exit code (0)
//   remover      paths below the run's folder that are taken away before
//   argumentos   further arguments; @pasta stands for the run's folder
//   eventos      partial events that must be recorded in this order, others may stand between them
//   ausentes     partial events that must not be recorded
//   contagem     {"classe": how many of it enter the drawing}
//   estado       partial final state; a list must have the same length, an object may have more
//   arquivos     {"path below the run's folder": exact text}
//   arquivos_hex the same, bytes in hexadecimal
//   erro         texts that standard error must contain
// A folder instalacao/ beside them is copied over the installation folder.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "tests/scenarios/state_schema.h"

namespace fs = std::filesystem;
using Json = nlohmann::json;

namespace {

const fs::path kScenarios = fs::path(HOUSE_SOURCE_DIR) / "tests/scenarios";
const fs::path kBuild = HOUSE_BINARY_DIR;

std::string fileText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string hex(const std::string& bytes) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string out;
    for (const unsigned char c : bytes) {
        out.push_back(kDigits[c >> 4U]);
        out.push_back(kDigits[c & 15U]);
    }
    return out;
}

/// Why `actual` does not fit the partial `expected`; empty when it does.
std::string whyNot(const Json& expected, const Json& actual, const std::string& where) {
    const auto differs = [&] {
        return where + ": esperado " + expected.dump() + ", obtido " + actual.dump().substr(0, 400);
    };
    if (expected.is_number() && actual.is_number()) {
        const double e = expected.get<double>();
        const double a = actual.get<double>();
        return std::abs(e - a) <= 1e-9 * std::max(1.0, std::abs(e)) ? "" : differs();
    }
    if (expected.is_object() && actual.is_object()) {
        for (const auto& [key, value] : expected.items()) {
            if (!actual.contains(key)) return where + "." + key + ": falta";
            if (auto why = whyNot(value, actual[key], where + "." + key); !why.empty()) return why;
        }
        return "";
    }
    if (expected.is_array() && actual.is_array()) {
        if (expected.size() != actual.size()) return differs();
        for (std::size_t i = 0; i < expected.size(); ++i) {
            auto why = whyNot(expected[i], actual[i], where + "[" + std::to_string(i) + "]");
            if (!why.empty()) return why;
        }
        return "";
    }
    return expected == actual ? "" : differs();
}

class Scenario : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "prancheta-cenario-XXXXXX").string();
        folder = ::mkdtemp(name.data());
        fs::copy(kBuild / "instalacao", folder / "instalacao", fs::copy_options::recursive);
        source = kScenarios / GetParam();
        if (fs::exists(source / "instalacao"))
            fs::copy(source / "instalacao", folder / "instalacao",
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        expected = Json::parse(fileText(source / "esperado.json"));
        const std::set<std::string> known = {"codigo",   "remover",     "argumentos", "eventos",
                                             "ausentes", "contagem",    "estado",     "arquivos",
                                             "erro",     "arquivos_hex"};
        for (const auto& [field, value] : expected.items())
            EXPECT_TRUE(known.contains(field)) << field << " is compared with nothing";
        for (const Json& name : expected.value("remover", Json::array()))
            fs::remove_all(folder / name.get<std::string>());
    }
    void TearDown() override { fs::remove_all(folder); }

    /// A field of esperado.json that is an object; empty when it is not there.
    Json fields(const char* name) const { return expected.value(name, Json::object()); }

    int run() {
        // 2023-11-14 22:13:20 UTC: the date that sheets are given.
        std::string command = "cd '" + folder.string() + "' && SOURCE_DATE_EPOCH=1700000000 '" +
                              (kBuild / "bin/prancheta-console").string() +
                              "' --instalacao instalacao -r '" + (source / "roteiro.txt").string() +
                              "' --registro registro.jsonl --estado estado.json -o desenho.dxf";
        for (const Json& argument : expected.value("argumentos", Json::array())) {
            std::string text = argument.get<std::string>();
            if (const auto at = text.find("@pasta"); at != std::string::npos)
                text.replace(at, 6, folder.string());
            command += " '" + text + "'";
        }
        const int status = std::system((command + " >saida.txt 2>erro.txt").c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::vector<Json> events() const {
        std::vector<Json> out;
        std::ifstream in(folder / "registro.jsonl");
        for (std::string line; std::getline(in, line);) out.push_back(Json::parse(line));
        return out;
    }

    void checkEvents() const {
        const auto recorded = events();
        auto at = recorded.begin();
        for (const Json& wanted : expected.value("eventos", Json::array())) {
            at = std::find_if(at, recorded.end(),
                              [&](const Json& e) { return whyNot(wanted, e, "").empty(); });
            ASSERT_NE(at, recorded.end()) << "não registrado, ou fora de ordem: " << wanted;
            ++at;
        }
        for (const Json& unwanted : expected.value("ausentes", Json::array()))
            for (const Json& e : recorded)
                EXPECT_NE(whyNot(unwanted, e, ""), "") << "registrado: " << e;
        const Json contagem = fields("contagem");
        for (const auto& [name, count] : contagem.items()) {
            const auto made = std::count_if(
                recorded.begin(), recorded.end(),
                [&name = name](const Json& e) { return e["ev"] == "cria" && e["classe"] == name; });
            EXPECT_EQ(made, count.get<long>()) << name;
        }
    }

    fs::path folder;
    fs::path source;
    Json expected;
};

std::vector<std::string> scenarioNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kScenarios))
        if (fs::exists(entry.path() / "esperado.json"))
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

TEST_P(Scenario, Holds) {
    const int code = run();
    const std::string errors = fileText(folder / "erro.txt");
    EXPECT_EQ(code, expected.value("codigo", 0)) << errors << fileText(folder / "saida.txt");
    for (const Json& text : expected.value("erro", Json::array()))
        EXPECT_NE(errors.find(text.get<std::string>()), std::string::npos)
            << text << " em: " << errors;
    checkEvents();
    if (fs::exists(folder / "estado.json")) {
        const Json state = Json::parse(fileText(folder / "estado.json"));
        EXPECT_EQ(schemaFaults(state), "");
        EXPECT_EQ(whyNot(fields("estado"), state, "estado"), "");
    }
    const Json arquivos = fields("arquivos");
    for (const auto& [name, text] : arquivos.items())
        EXPECT_EQ(fileText(folder / name), text.get<std::string>()) << name;
    const Json arquivos_hex = fields("arquivos_hex");
    for (const auto& [name, text] : arquivos_hex.items())
        EXPECT_EQ(hex(fileText(folder / name)), text.get<std::string>()) << name;
}

/// Lines of the fenced blocks of a chapter.
std::string blocksOf(const fs::path& manual, const std::string& chapter) {
    std::istringstream text(fileText(manual));
    std::string out;
    bool inside = false;
    bool block = false;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("## ")) inside = line == "## " + chapter;
        if (!inside) continue;
        if (line == "```")
            block = !block;
        else if (block)
            out += line + '\n';
    }
    return out;
}

TEST(Lesson, IsRunAsItStandsInTheManual) {
    std::istringstream script(fileText(kScenarios / "licao-trelica" / "roteiro.txt"));
    std::string lines;
    for (std::string line; std::getline(script, line);)
        if (!line.starts_with(';')) lines += line + '\n';
    EXPECT_EQ(blocksOf(fs::path(HOUSE_SOURCE_DIR) / "docs/manual.md", "Uma treliça em dez minutos"),
              lines);
}

INSTANTIATE_TEST_SUITE_P(All, Scenario, testing::ValuesIn(scenarioNames()), [](const auto& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});
