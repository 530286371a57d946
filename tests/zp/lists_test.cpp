// SPDX-License-Identifier: MIT
// The rolled I that ship: their names.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/zp/secao_samples.h"

using namespace zp::secao;

namespace {

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::stringstream in(text);
    for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
    return parts;
}

}  // namespace

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
