// SPDX-License-Identifier: MIT
// The I lists that are delivered: pairs that fit, masses that fit the sections.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::string kLists = std::string(HOUSE_SOURCE_DIR) + "/instalacao/Perfis/Listas/";
const std::string kTables = std::string(HOUSE_SOURCE_DIR) + "/dados/";

std::vector<std::string> lines(const std::string& path) {
    std::ifstream in(path);
    std::vector<std::string> out;
    for (std::string line; std::getline(in, line);) out.push_back(line);
    return out;
}

/// The last `count` fields of a line.
std::vector<double> numbers(const std::string& line, std::size_t count) {
    std::vector<double> out;
    std::stringstream in(line);
    std::vector<std::string> fields;
    for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
    if (fields.size() < count) return {};
    for (std::size_t i = fields.size() - count; i < fields.size(); ++i)
        out.push_back(std::stod(fields[i]));
    return out;
}

/// kg/m of three plates with two root fillets at each flange.
double pesoOf(const std::vector<double>& v, double root) {
    const double flanges = 2.0 * v[1] * v[2];
    const double web = (v[0] - 2.0 * v[2]) * v[3];
    return (flanges + web + (4.0 - std::numbers::pi) * root * root) * 7850e-6;
}

struct Pair {
    const char* shown;
    const char* values;
    const char* table;
    std::size_t columns;
    double tolerance;
};

constexpr Pair kPairs[] = {
    {"vi_vs.lst", "vs.lst", "vs.csv", 5, 0.005},
    {"vi_cvs.lst", "cvs.lst", "cvs.csv", 5, 0.005},
    {"vi_cs.lst", "cs.lst", "cs.csv", 5, 0.005},
    {"BitolasAcoMinas.lst", "DadosAcoMinas.lst", "acominas.csv", 5, 0.03},
    {"vi_lam.lst", "ipe.lst", "ipe.csv", 6, 0.03},
    {"vi_usa.lst", "vi_usa_dados.lst", "usa.csv", 5, 0.03},
};

/// Root radii of a table, none for a section of plates. Quoted designations hold no comma.
std::vector<double> roots(const std::string& table) {
    const std::vector<std::string> rows = lines(kTables + table);
    const bool listed = rows.front().find(",kg_m,r") != std::string::npos;
    std::vector<double> out;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        std::stringstream in(rows[i]);
        std::string field;
        for (int column = 0; column < 7; ++column) std::getline(in, field, ',');
        out.push_back(listed ? std::stod(field) : 0.0);
    }
    return out;
}

TEST(CatalogueFiles, PairsFitLineByLineAndMassesFitTheSection) {
    for (const Pair& pair : kPairs) {
        const auto shown = lines(kLists + pair.shown);
        const auto values = lines(kLists + pair.values);
        const auto radii = roots(pair.table);
        ASSERT_FALSE(values.empty()) << pair.values;
        ASSERT_EQ(shown.size(), values.size()) << pair.shown;
        ASSERT_EQ(radii.size(), values.size()) << pair.table;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const auto fields = std::count(values[i].begin(), values[i].end(), '\t') + 1;
            ASSERT_EQ(static_cast<std::size_t>(fields), pair.columns) << values[i];
            const auto v = numbers(values[i], 5);
            EXPECT_NEAR(pesoOf(v, radii[i]) / v[4], 1.0, pair.tolerance) << values[i];
            EXPECT_LT(shown[i].size(), 119u);
        }
    }
}

TEST(CatalogueFiles, SeriesStandUnderTheirHeader) {
    const std::string header = "  Tipo     H     Kg/m";
    for (const std::string name : {"vs", "cvs", "cs"}) {
        const auto shown = lines(kLists + "vi_" + name + ".lst");
        const auto values = lines(kLists + name + ".lst");
        for (std::size_t i = 0; i < shown.size(); ++i) {
            const auto v = numbers(values[i], 5);
            ASSERT_EQ(shown[i].size(), header.size() + 1) << shown[i];
            // A column starts at most one place beside its title, behind a blank.
            const std::size_t height = header.find('H') + 1;
            const std::size_t mass = header.find('K') - 1;
            EXPECT_EQ(shown[i][height - 1], ' ') << shown[i];
            EXPECT_EQ(shown[i][mass], ' ') << shown[i];
            EXPECT_EQ(std::stod(shown[i].substr(height, mass - height)), v[0]) << shown[i];
            EXPECT_NEAR(std::stod(shown[i].substr(mass)), v[4], 1e-9) << shown[i];
        }
    }
}

TEST(CatalogueFiles, FavouritesCanBeDrawn) {
    for (const std::string& line : lines(kLists + "vi.lst")) {
        const auto v = numbers(line, 4);
        ASSERT_EQ(v.size(), 4u) << line;
        EXPECT_TRUE(v[0] > 2 * v[2] && v[1] > v[3] && v[2] > 0 && v[3] > 0) << line;
    }
    for (const std::string& line : lines(kLists + "psa.lst")) {
        const auto v = numbers(line, 6);
        ASSERT_EQ(v.size(), 6u) << line;
        EXPECT_TRUE(v[1] > v[5] && v[3] > v[5] && v[0] > v[2] + v[4]) << line;
    }
}

}  // namespace
