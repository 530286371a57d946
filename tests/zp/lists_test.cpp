// SPDX-License-Identifier: MIT
// The catalogues that ship: every row has its columns, draws a sound section, and weighs what its
// table lists.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "tests/zp/secao_samples.h"

using namespace zp::secao;

namespace {

constexpr double kRight = std::numbers::pi / 2;
constexpr double kAreaPerPeso = 127.1848;  // mm2 for 1 kg/m
constexpr double kDensity = 7850e-6;       // kg/m for 1 mm2

using Linha = std::vector<double>;

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::stringstream in(text);
    for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
    return parts;
}

/// Rows of the table by their sizes: the listed mass.
std::map<Linha, double> pesos(const std::string& table, const std::vector<std::string>& columns) {
    std::ifstream in(HOUSE_SOURCE_DIR "/dados/" + table + ".csv");
    std::string text;
    std::getline(in, text);
    const auto names = split(text, ',');
    std::map<Linha, double> output;
    while (std::getline(in, text)) {
        // Designations hold doubled quotes but never a comma.
        const auto fields = split(text, ',');
        std::map<std::string, double> byName;
        for (std::size_t i = 0; i < names.size() && i < fields.size(); ++i)
            byName[names[i]] = std::strtod(fields[i].c_str(), nullptr);
        Linha key;
        for (const std::string& column : columns) key.push_back(byName[column]);
        output.emplace(key, byName["kg_m"]);
    }
    return output;
}

struct List {
    const char* file;
    const char* table;
    std::vector<std::string> columns;  ///< of the table that the list's first columns repeat
    std::size_t fields;                ///< columns of the list
    double tolerance;                  ///< share by which outline and listed mass may differ
    Kind kind;
    std::function<Linha(const Linha&, double)> values;  ///< constructor values from row and mass
    int points = 1;
};

const std::vector<List>& lists() {
    using enum Kind;
    static const std::vector<std::string> kHbt = {"h", "b", "t"};
    static const std::vector<std::string> kHbta = {"h", "b", "t", "a"};
    static const std::vector<List> all = {
        {"pu.lst", "u_dobrado", kHbt, 3, 0.03, UDobrado,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[1], v[2], v[2], kRight, kRight, 1000, 0, 0, 0};
         }},
        {"pur.lst", "u_enrijecido", kHbta, 4, 0.03, UDobrado,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[1], v[2], v[2], kRight, kRight, 1000, 0, 0, v[3]};
         }},
        {"pz.lst", "z_dobrado", kHbta, 4, 0.03, ZDobrado,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[3], v[2], v[2], kRight, kRight, 1000, 0, 0, 0, 0};
         }},
        {"pc.lst", "cartola", kHbta, 4, 0.03, Cartola,
         [](const Linha& v, double) { return Linha{v[0], v[1], v[2], v[2], v[3], 1000, 0, 0}; }},
        {"pl.lst", "cantoneira_dobrada", kHbt, 4, 0.03, CantoneiraDobrada,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[2], v[2], kRight, 1000, 0, 0, 0};
         }},
        {"pl_lam.lst", "cantoneira_laminada", kHbt, 4, 0.03, CantLaminada,
         [](const Linha& v, double m) {
             return Linha{v[0], v[1], v[2], v[1] / 3, 2 * v[0] / 3,    v[2],
                          0,    0,    1000, m,        kAreaPerPeso * m};
         }},
        {"pu_lam.lst", "u_laminado", kHbt, 4, 0.03, ULaminado,
         [](const Linha& v, double m) {
             return Linha{v[0],     v[1], v[2], v[1], v[2], v[2],
                          v[1] / 3, v[2], 0,    0,    1000, kAreaPerPeso * m,
                          m};
         }},
        {"pbr.lst",
         "barra_redonda",
         {"d"},
         1,
         0.03,
         BarraRedonda,
         [](const Linha& v, double) {
             return Linha{v[0], 1000, 0};
         }},
        {"ptb.lst",
         "tubo",
         {"d", "wall"},
         2,
         0.03,
         Tubo,
         [](const Linha& v, double) {
             return Linha{v[0], v[0] - 2 * v[1]};
         },
         2},
        // Tubes of EN 10210 are tabled with corners of 1.5 t; the command draws t inside and 2 t
        // outside.
        {"pbox.lst", "caixa", kHbt, 3, 0.065, Box,
         [](const Linha& v, double) { return Linha{v[0], v[1], v[2], v[2], 1000, 0, 0}; }},
    };
    return all;
}

}  // namespace

TEST(Lists, EachLineHasItsColumnsASoundSecaoAndThePesoOfTheTable) {
    for (const List& list : lists()) {
        SCOPED_TRACE(list.file);
        const auto table = pesos(list.table, list.columns);
        ASSERT_FALSE(table.empty());
        std::ifstream in(std::string(HOUSE_SOURCE_DIR "/instalacao/Perfis/Listas/") + list.file);
        std::size_t lines = 0;
        for (std::string text; std::getline(in, text); ++lines) {
            SCOPED_TRACE(text);
            EXPECT_LT(text.size(), 119U);
            const auto fields = split(text, '\t');
            ASSERT_EQ(fields.size(), list.fields);
            Linha medidas;
            for (std::size_t i = 0; i < list.columns.size(); ++i)
                medidas.push_back(std::strtod(fields[i].c_str(), nullptr));
            const auto line = table.find(medidas);
            ASSERT_NE(line, table.end()) << "not in the table";
            const auto secao =
                secaoFrom(list.kind, list.points, list.values(medidas, line->second));
            EXPECT_FALSE(secao->invalid());
            const double peso = secao->properties().area * kDensity;
            // Light bars are listed to 0.01 kg/m.
            EXPECT_NEAR(peso, line->second, std::max(list.tolerance * line->second, 0.006));
        }
        EXPECT_GE(lines, 20U);
    }
}

TEST(Lists, RolledOnesHaveTheSeriesThatTheTableSays) {
    std::ifstream in(HOUSE_SOURCE_DIR "/dados/acominas.csv");
    std::string text;
    std::getline(in, text);
    std::map<std::wstring, int> tally;
    while (std::getline(in, text)) {
        const auto fields = split(text, ',');
        const auto v = [&](std::size_t i) { return std::strtod(fields[i].c_str(), nullptr); };
        const auto sample = samples::iLaminado(v(1), v(2), v(3), v(4), 1, v(5));
        const auto series =
            perfilText(sample.kind, roleValuesOf(sample.kind, sample.points(), sample.values), 0);
        EXPECT_EQ(series, text.starts_with("HP") ? L"HP" : L"W") << text;
        ++tally[series];
    }
    EXPECT_EQ(tally[L"W"], 99);
    EXPECT_EQ(tally[L"HP"], 8);
}
