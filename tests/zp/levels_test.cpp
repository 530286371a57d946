// SPDX-License-Identifier: MIT
// Edges of the longitudinal views: which ones there are, which are hidden.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "tests/zp/secao_samples.h"

namespace {

using namespace samples;

/// "-50V 22H": heights with V for seen and H for hidden edges, ± for a pair.
std::vector<zp::secao::Level> readLevels(const std::string& text) {
    std::vector<zp::secao::Level> levels;
    std::istringstream stream(text);
    for (std::string word; stream >> word;) {
        const bool pairId = word[0] == '~';
        const double w = std::stod(word.substr(pairId ? 1 : 0));
        const bool visible = word.back() == 'V';
        levels.push_back({w, visible});
        if (pairId) levels.push_back({-w, visible});
    }
    std::sort(levels.begin(), levels.end(), [](const auto& a, const auto& b) { return a.w < b.w; });
    return levels;
}

TEST(Levels, SeenAndHidden) {
    struct Linha {
        Sample sample;
        const char* vistas[4];
    };
    const Linha kRows[] = {
        {u(200, 75, 3), {"-50V 22H 25V", "-50V 22H 25V", "~100V ~97V", "~100V ~97H"}},
        {u(200, 75, 2.65, 20),
         {"-50V -47.35H 22.35H 25V", "-50V -47.35H 22.35H 25V", "~100V ~97.35H ~80V",
          "~100V ~97.35H ~80H"}},
        {z(150, 60, 20, 2),
         {"-59V -57V -1V 1H 57H 59V", "-59V -57H -1H 1V 57V 59V", "~75V ~73H -55V 55H",
          "~75V ~73H -55H 55V"}},
        {cartola(50, 100, 20, 2),
         {"~68V ~50V ~48H", "~68V ~50H ~48V", "-25V -23V 23H 25V", "-25V -23V 23H 25V"}},
        {lLaminada(50, 50, 5),
         {"-33.3333V 11.6667H 16.6667V", "-33.3333V 11.6667V 16.6667V",
          "-33.3333V 11.6667V 16.6667V", "-33.3333V 11.6667H 16.6667V"}},
        {bn(50.8, 6.35),
         {"-15.1487V -11.9737V 12.3368H 23.9473V", "-15.1487V -11.9737V 12.3368H 23.9473V",
          "~35.9210V ~31.4309V 0H", "~35.9210V ~31.4309H 0V"}},
        {{"2L T",
          Kind::CantTEELaminada,
          {50.8, 50.8, 6.35, 0, 2 * 50.8 / 3, 6.35, 10, 0, 0, kFar, 0, 0}},
         {"~55.8V ~11.35H ~5V", "~55.8V ~11.35V ~5V", "-33.8667V 10.5833V 16.9333V",
          "-33.8667V 10.5833V 16.9333V"}},
        {{"2L +", Kind::CantCruzLaminada, {50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, kFar, 0, 0}},
         {"~54.8V ~4V -10.35V 10.35H", "~54.8V ~4V -10.35H 10.35V", "~54.8V ~4V -10.35H 10.35V",
          "~54.8V ~4V -10.35V 10.35H"}},
        {uLaminado(152.4, 48.77, 5.08, 12.2),
         {"-32.5133V 11.1767H 16.2567V", "-32.5133V 11.1767H 16.2567V", "~76.2V ~70.9433V",
          "~76.2V ~70.9433H"}},
        {iSoldado(300, 300, 9.5, 8), {"~150V ~4H", "~150V ~4H", "~150V ~140.5V", "~150V ~140.5V"}},
        {tubo(60.3, 3),
         {"~30.15V ~27.15H", "~30.15V ~27.15H", "~30.15V ~27.15H", "~30.15V ~27.15H"}},
    };
    for (const Linha& l : kRows)
        for (int vista = 1; vista <= 4; ++vista) {
            SCOPED_TRACE(l.sample.name + " vista " + std::to_string(vista));
            const auto expected = readLevels(l.vistas[vista - 1]);
            const auto secao = l.sample.secao();
            const auto& levels = secao->vista(vista).levels;
            ASSERT_EQ(levels.size(), expected.size());
            for (std::size_t i = 0; i < levels.size(); ++i) {
                EXPECT_NEAR(levels[i].w, expected[i].w, 5e-5);
                EXPECT_EQ(levels[i].visible, expected[i].visible) << levels[i].w;
            }
        }
}

TEST(Levels, HalfATurnSwapsTheFaces) {
    // Turned by pi, the U shows from below what it showed from above, upside down.
    const auto leg = u(200, 75, 3).secao();
    const auto turned = u(200, 75, 3, 0, std::numbers::pi).secao();
    const auto& a = leg->vista(4).levels;
    const auto& b = turned->vista(3).levels;
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_NEAR(a[i].w, -b[b.size() - 1 - i].w, 1e-9);
        EXPECT_EQ(a[i].visible, b[b.size() - 1 - i].visible);
    }
    EXPECT_NEAR(turned->vista(2).wMin, -25.0, 1e-9);
    EXPECT_NEAR(turned->vista(2).wMax, 50.0, 1e-9);
}

TEST(Levels, AGapStaysOpenAndAJointShows) {
    const Sample opened{"", Kind::IDobrado, {200, 75, 75, 3, 3, 50, kFar, 0, 0, 0}};
    EXPECT_EQ(opened.secao()->vista(1).stretches.size(), 2u);
    EXPECT_EQ(opened.secao()->vista(3).stretches.size(), 1u);
    EXPECT_TRUE(opened.secao()->vista(3).axis);
    // Two lipped U toe to toe: the valley between the bends is an edge on the axis, so no axis is
    // drawn there.
    const Sample closed{"", Kind::CaixaDobrado, {200, 75, 3, 3, 0, kFar, 0, 0, 20}};
    const auto secao = closed.secao();
    EXPECT_EQ(secao->vista(1).stretches.size(), 1u);
    EXPECT_FALSE(secao->vista(1).axis);
    bool joint = false;
    for (const auto& n : secao->vista(1).levels)
        joint = joint || (std::abs(n.w) < 1e-9 && n.visible);
    EXPECT_TRUE(joint);
}

TEST(Levels, TheAxisOnlyInsideThePeca) {
    EXPECT_TRUE(u(200, 75, 3).secao()->vista(1).axis);
    EXPECT_TRUE(tubo(60.3, 3).secao()->vista(1).axis);
    EXPECT_FALSE(bn(50.8, 6.35).secao()->vista(3).axis);  // an edge lies on the axis
    const Sample outside{"", Kind::CantLaminada, {50, 50, 5, -80, 30, 5, 0, 0, kFar, 0, 0}};
    EXPECT_FALSE(outside.secao()->vista(1).axis);
}

}  // namespace
