// SPDX-License-Identifier: MIT
// Outlines: coordinates of arcs, boxes, radii that do not fit, values that are no section.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <set>

#include "tests/zp/secao_samples.h"
#include "zp/objects/secao/single.h"
#include "zp/objects/secao/strip.h"

namespace {

using namespace samples;
using zp::secao::Outline;
using zp::secao::Secao;
using zp::secao::Segment;

/// An arc of the outline with this centre and radius; null when there is none.
const Segment* arc(const Secao& s, double x, double y, double radius) {
    for (const Outline& c : s.outlines())
        for (const Segment& g : c.segments)
            if (g.arc() && std::hypot(g.centre.x - x, g.centre.y - y) < 1e-8 &&
                std::abs(g.radius - radius) < 1e-8)
                return &g;
    return nullptr;
}

bool hasPoint(const Secao& s, double x, double y) {
    for (const Outline& c : s.outlines())
        for (const Segment& g : c.segments)
            if (std::hypot(g.a.x - x, g.a.y - y) < 1e-8) return true;
    return false;
}

bool runsFrom(const Segment* g, double x0, double y0, double x1, double y1) {
    const auto near = [](zp::secao::Point p, double x, double y) {
        return std::hypot(p.x - x, p.y - y) < 1e-8;
    };
    return g != nullptr && ((near(g->a, x0, y0) && near(g->b, x1, y1)) ||
                            (near(g->a, x1, y1) && near(g->b, x0, y0)));
}

TEST(Outline, Coordinates) {
    const auto ue = u(200, 75, 2.65, 20).secao();
    EXPECT_TRUE(runsFrom(arc(*ue, 44.7, 94.7, 5.3), 50, 94.7, 44.7, 100));
    EXPECT_TRUE(runsFrom(arc(*ue, 44.7, 94.7, 2.65), 44.7, 97.35, 47.35, 94.7));
    EXPECT_TRUE(hasPoint(*ue, 47.35, 80) && hasPoint(*ue, 50, 80));
    EXPECT_TRUE(runsFrom(arc(*ue, -19.7, 94.7, 5.3), -19.7, 100, -25, 94.7));
    EXPECT_TRUE(runsFrom(arc(*ue, -19.7, 94.7, 2.65), -22.35, 94.7, -19.7, 97.35));

    const auto l = lLaminada(50, 50, 5).secao();
    EXPECT_TRUE(hasPoint(*l, -50.0 / 3, 50.0 / 3));
    EXPECT_NE(arc(*l, -85.0 / 6, -185.0 / 6, 2.5), nullptr);
    EXPECT_TRUE(
        runsFrom(arc(*l, -20.0 / 3, 20.0 / 3, 5), -35.0 / 3, 20.0 / 3, -20.0 / 3, 35.0 / 3));
    EXPECT_NE(arc(*l, 185.0 / 6, 85.0 / 6, 2.5), nullptr);

    const auto ipe = iLaminado(200, 100, 8.5, 5.6, 0, 22.4).secao();
    EXPECT_TRUE(runsFrom(arc(*ipe, 14.825643306, 79.474356694, 12.025643306), 2.8, 79.474356694,
                         14.825643306, 91.5));

    const auto ul = uLaminado(152.4, 48.77, 5.08, 12.2).secao();
    const Segment* toe = arc(*ul, 29.973333333, 73.095047468, 2.54);
    ASSERT_NE(toe, nullptr);
    EXPECT_TRUE(hasPoint(*ul, 30.390906761, 70.589606901));
    EXPECT_TRUE(runsFrom(arc(*ul, -6.096666667, 59.358272388, 5.08), -11.176666667, 59.358272388,
                         -6.931813522, 64.369153521));

    const auto b = bn(50.8, 6.35).secao();
    EXPECT_TRUE(hasPoint(*b, -23.947349656, 0) && hasPoint(*b, 11.973674828, 35.921024484));
    EXPECT_NE(arc(*b, 11.973674828, 31.430896424, 3.175), nullptr);
    EXPECT_NE(arc(*b, -5.986837414, 0, 6.35), nullptr);
    EXPECT_NEAR(b->bounds().x1, 15.148674828, 1e-8);

    const Sample x{"", Kind::XDobrado, {50, 50, 3, 3, 10, kFar, 0, 0, 0, 0}};
    EXPECT_NE(arc(*x.secao(), 11, 0, 6), nullptr);
    EXPECT_TRUE(hasPoint(*x.secao(), 6.757359313, 4.242640687));
    EXPECT_TRUE(hasPoint(*x.secao(), 37.870057685, 35.355339059) &&
                hasPoint(*x.secao(), 39.991378029, 33.234018716));
}

/// Boxes about the axis, worked out from the nominal sizes alone.
TEST(Outline, BoundsAboutTheAxis) {
    struct Linha {
        Sample sample;
        double x0, x1, y0, y1;
    };
    const double r2 = std::numbers::sqrt2;
    const double scratches =
        3.175 * (r2 - 1);  // what a toe's rounding takes off a tip at 45 degrees
    const double X = 5 + (50.8 + 6.35) / r2 - scratches;
    const Linha kRows[] = {
        {u(200, 75, 3), -25, 50, -100, 100},
        {z(150, 60, 20, 2), -59, 59, -75, 75},
        {cartola(50, 100, 20, 2), -68, 68, -25, 25},
        {lDobrada(60, 90, 3), -30, 60, -40, 20},
        {{"", Kind::CaixaDobrado, {200, 75, 3, 3, 170, kFar, 0, 0, 20}}, -85, 85, -100, 100},
        {{"", Kind::CaixaDobrado, {200, 75, 3, 3, 100, kFar, 0, 0, 20}}, -75, 75, -100, 100},
        {barra(25.4), -12.7, 12.7, -12.7, 12.7},
        {{"", Kind::CantLaminadaCaixa, {50, 60, 5, 5, 0, 0, kFar, 0, 0}}, -30, 30, -27.5, 27.5},
        {{"", Kind::CantTDobrada, {60, 50, 3, 3, 8, kFar, 0, 0, 0}}, -54, 54, -40, 20},
        {{"", Kind::CantUDobrada, {60, 50, 3, 3, 150, kFar, 0, 0, 0}}, -75, 75, -40, 20},
        {{"", Kind::CantUDobrada, {60, 50, 3, 3, 20, kFar, 0, 0, 0}}, -50, 50, -40, 20},
        {{"", Kind::CantULaminada, {60, 50, 5, 0, 40, 5, 150, 0, 0, kFar, 0, 0}}, -75, 75, -40, 20},
        {{"", Kind::BNDuplaLaminada, {50.8, 6.35, 0, 6.35, 10, 0, 0, kFar, 0, 0}},
         -X,
         X,
         -50.8 / r2,
         50.8 / r2},
        {{"", Kind::CantCruzLaminada, {60, 50, 5, 5, 8, 10, 0, 0, kFar, 0, 0}}, -54, 54, -65, 65},
        {{"", Kind::CantZLaminada, {60, 50, 5, 5, 8, 10, 0, 0, kFar, 0, 0}}, -54, 54, -35, 35},
        {{"", Kind::UULaminado, {152.4, 48.77, 5.08, 48.77, 9, 9, 0, 5.08, 0, 0, kFar, 0, 0}},
         -48.77,
         48.77,
         -76.2,
         76.2},
        {{"",
          Kind::DoisULaminado,
          {152.4, 48.77, 5.08, 48.77, 9, 9, 16, 5.08, 10, 0, 0, kFar, 0, 0}},
         -53.77,
         53.77,
         -76.2,
         76.2},
        {{"", Kind::IDobrado, {100, 50, 50, 2, 2, 20, kFar, 20, 1, 0}}, -60, 60, -68, 68},
        {iSoldado(300, 200, 9.5, 8), -100, 100, -150, 150},
    };
    for (const Linha& l : kRows) {
        SCOPED_TRACE(zp::secao::description(l.sample.kind).name);
        const auto secao = l.sample.secao();
        EXPECT_FALSE(secao->invalid());
        EXPECT_NEAR(secao->bounds().x0, l.x0, 1e-9);
        EXPECT_NEAR(secao->bounds().x1, l.x1, 1e-9);
        EXPECT_NEAR(secao->bounds().y0, l.y0, 1e-9);
        EXPECT_NEAR(secao->bounds().y1, l.y1, 1e-9);
    }
}

TEST(Outline, RadiiThatDoNotFitShrinkTogether) {
    // Flange 10: the outer bend of 3 + 6 = 9 and nothing else lie on it, but the lip of 8 cannot
    // hold 9.
    const Sample tight{"", Kind::UDobrado, {100, 30, 30, 3, 6, kRight, kRight, kFar, 0, 0, 8}};
    const auto secao = tight.secao();
    EXPECT_FALSE(secao->invalid());
    double largest = 0.0;
    for (const Segment& g : secao->outlines()[0].segments) largest = std::max(largest, g.radius);
    // The inner lip is 8 - 3 = 5 long and carries the inner radius 6: k = 5/6, so R = 9 * 5/6.
    EXPECT_NEAR(largest, 7.5, 1e-9);
}

TEST(Outline, NoAbaUnlessItExceedsTheEspessura) {
    EXPECT_NEAR(u(200, 75, 3, 3).secao()->properties().area,
                u(200, 75, 3).secao()->properties().area, 1e-9);
    EXPECT_FALSE(cartola(50, 100, 2, 2).secao()->invalid());
    EXPECT_NEAR(cartola(50, 100, 2, 2).secao()->bounds().x1, 50.0, 1e-12);
    // Web 150 x 2 and flanges 58 x 2, each bend short of a square corner by (1 - pi/4)(R^2 - ri^2).
    EXPECT_NEAR(z(150, 60, 2, 2).secao()->properties().area,
                532.0 - 2.0 * (1.0 - std::numbers::pi / 4.0) * (16.0 - 4.0), 1e-9);
}

TEST(Outline, AnInvalidOneBecomesItsNominalBox) {
    for (const Sample& sample : {u(40, 30, 2, 25), u(40, 4, 3), u(40, 30, 20), lLaminada(10, 10, 6),
                                 iSoldado(20, 100, 12, 5)}) {
        const auto secao = sample.secao();
        EXPECT_TRUE(secao->invalid());
        EXPECT_EQ(secao->outlines()[0].segments.size(), 4u);
    }
    const auto secao = u(40, 30, 2, 25).secao();
    EXPECT_NEAR(secao->properties().area, 1200.0, 1e-9);
    EXPECT_NEAR(secao->bounds().x0, -10.0, 1e-12);
}

TEST(Outline, ANegativeInnerDiametroIsSolid) {
    const auto secao = tubo(100, 60).secao();  // inner diameter -20
    EXPECT_EQ(secao->outlines().size(), 1u);
    EXPECT_NEAR(secao->properties().area, std::numbers::pi * 2500, 1e-9);
}

TEST(Outline, RubbishGivesNoNaN) {
    const double kBad[] = {0.0, -5.0, 1e300, std::numeric_limits<double>::infinity(), std::nan("")};
    for (int c = 1; c < zp::secao::kKinds - 1; ++c) {
        const Kind kind = static_cast<Kind>(c);
        const int points = kind == Kind::Tubo ? 2 : 1;
        const auto& roles = points == 2 ? zp::secao::description(kind).twoPoints[0]
                                        : zp::secao::description(kind).onePoint[0];
        const std::size_t n = static_cast<std::size_t>(zp::secao::count(roles));
        for (std::size_t i = 0; i <= n; ++i)
            for (const double bad : kBad) {
                std::vector<double> v(n, 20.0);
                if (i < n)
                    v[i] = bad;
                else
                    std::fill(v.begin(), v.end(), bad);
                const auto secao = zp::secao::secaoFrom(kind, points, v);
                EXPECT_TRUE(std::isfinite(secao->properties().ix)) << c << ' ' << i << ' ' << bad;
                EXPECT_TRUE(std::isfinite(secao->bounds().x0) && std::isfinite(secao->bounds().y1))
                    << c << ' ' << i << ' ' << bad;
                EXPECT_TRUE(std::isfinite(secao->perimetroPintura()));
                for (const zp::secao::SheetRow& row : zp::secao::sheetRows())
                    EXPECT_TRUE(std::isfinite(row.of(secao->sheet()).value_or(0.0)))
                        << c << ' ' << i << ' ' << bad << ' ' << row.key;
                for (int vista = 1; vista <= 4; ++vista)
                    EXPECT_FALSE(std::isnan(secao->vista(vista).wMax));
            }
    }
}

TEST(Outline, ATiltedFlangeKeepsItsDevelopedLength) {
    // Mid-line length of a bent sheet does not depend on the bend's angle, so neither does the
    // area.
    for (const double degrees : {45.0, 80.0, 100.0, 135.0}) {
        const double ang = degrees * std::numbers::pi / 180;
        const Sample tilted{"", Kind::UDobrado, {200, 75, 75, 3, 3, ang, kRight, kFar, 0, 0, 0}};
        EXPECT_FALSE(tilted.secao()->invalid());
        EXPECT_NEAR(tilted.secao()->properties().area, u(200, 75, 3).secao()->properties().area,
                    1e-6);
        const Sample withAba{"", Kind::ZDobrado, {150, 60, 20, 2, 2, ang, ang, kFar, 0, 0, 0, 0}};
        EXPECT_FALSE(withAba.secao()->invalid());
        EXPECT_NEAR(withAba.secao()->properties().area,
                    z(150, 60, 20, 2).secao()->properties().area, 1e-6);
    }
    const Sample outside{"", Kind::UDobrado, {200, 75, 75, 3, 3, 0.1, 3.0, kFar, 0, 0, 0}};
    EXPECT_NEAR(outside.secao()->properties().ix, u(200, 75, 3).secao()->properties().ix, 1e-6);
}

TEST(Secao, EqualOnesAreOne) {
    Sample shortOne = u(200, 75, 3);
    Sample longOne = u(200, 75, 3);
    longOne.values[7] = 6000;
    EXPECT_EQ(shortOne.secao().get(), longOne.secao().get());
    EXPECT_NE(shortOne.secao().get(), u(200, 75, 2.65).secao().get());
}

TEST(Secao, KeepsEachVista) {
    const auto secao = cartola(50, 100, 20, 2).secao();  // no two sides of a hat look alike
    for (const int vista : {4, 1, 3, 2}) {
        const auto words = [](const zp::secao::Vista& v) {
            std::string all;
            for (const zp::secao::Level& l : v.levels)
                all += std::to_string(l.w) + (l.visible ? "V " : "H ");
            return all;
        };
        EXPECT_EQ(words(secao->vista(vista)),
                  words(zp::secao::vistaLongitudinal(secao->outlines(), vista)));
    }
}

TEST(Secao, Texts) {
    struct Linha {
        Sample sample;
        int series;
        const wchar_t* perfil;
        const wchar_t* dimensoes;
    };
    const Linha kRows[] = {
        {u(200, 75, 3), 0, L"U", L"200x75x3"},
        {u(200, 75, 2.65, 20), 0, L"Ue", L"200x75x20x2,65"},
        {cartola(50, 100, 20, 2), 0, L"Cr", L"50x100x20x2"},
        {{"", Kind::CaixaDobrado, {200, 75, 2.65, 2.65, 170, kFar, 0, 0, 0}},
         0,
         L"2U []",
         L"200x75x2,65 l=170"},
        {{"", Kind::CaixaDobrado, {200, 75, 2.65, 2.65, 0, kFar, 0, 0, 20}},
         0,
         L"2Ue []",
         L"200x75x20x2,65"},
        {tubo(60.3, 3), 0, L"TC", L"60,3x3"},
        {barra(25.4), 0, L"BR", L"25,4"},
        {caixa(100, 60, 4), 0, L"TR", L"100x60x4"},
        {caixa(60, 60, 4), 0, L"TQ", L"60x60x4"},
        {uLaminado(152.4, 48.77, 5.08, 12.2), 0, L"U", L"152,4x12,2"},
        {uLaminado(152.4, 48.77, 5.08, 0), 0, L"U", L"152,4x48,77x5,08"},
        {{"", Kind::CantCruzLaminada, {50.8, 50.8, 6.35, 6.35, 10, 8, 0, 0, kFar, 0, 0}},
         0,
         L"2L +",
         L"50,8x50,8x6,35 a=10 av=8"},
        {iSoldado(300, 300, 9.5, 8, 62.4), 3, L"CS", L"300x62,4"},
        {iSoldado(300, 300, 9.5, 8), 0, L"PS", L"300x300x9,5x8"},
        {{"", Kind::ISoldado, {300, 150, 200, 9.5, 12.5, 6.3, kFar, 0, 0, 0}},
         0,
         L"PSM",
         L"300x150x9,5x200x12,5x6,3"},
        {iLaminado(200, 100, 8.5, 5.6, 0, 22.4), 0, L"IPE", L"200x22,4"},
        {iLaminado(200, 195, 8.5, 5.6, 1, 46.1), 0, L"W", L"200x46,1"},
        {iLaminado(152.4, 84.6, 9.2, 5.84, 2, 18.5), 0, L"I", L"152,4x18,5"},
    };
    for (const Linha& l : kRows) {
        const auto d = zp::secao::roleValuesOf(l.sample.kind, l.sample.points(), l.sample.values);
        EXPECT_EQ(zp::secao::perfilText(l.sample.kind, d, l.series), l.perfil);
        EXPECT_EQ(zp::secao::dimensoesText(l.sample.kind, d, l.series), l.dimensoes);
    }
}

/// Every built-up class against the single shape that it is made of: the same texts, half the area.
TEST(Secao, BuiltUpOnesAreTwoSingleShapes) {
    constexpr double kArea = 2 * 12.2 * 127.1848;
    const auto rolled = [](Kind kind, std::vector<double> vaos) {
        std::vector<double> v{50, 30, 5, 5};  // H, B1, T, Ri
        v.insert(v.end(), vaos.begin(), vaos.end());
        v.insert(v.end(), {0, 0, kFar, 0, 0});
        return Sample{"", kind, v};
    };
    const std::pair<Sample, Sample> kRows[] = {
        {{"", Kind::CaixaDobrado, {200, 75, 2.65, 2.65, 170, kFar, 0, 0, 0}}, u(200, 75, 2.65)},
        {{"", Kind::CaixaDobrado, {200, 75, 3, 3, 0, kFar, 0, 0, 20}}, u(200, 75, 3, 20)},
        {{"", Kind::IDobrado, {200, 75, 75, 2.65, 2.65, 8, kFar, 0, 0, 0}}, u(200, 75, 2.65)},
        {{"", Kind::IDobrado, {200, 75, 75, 3, 3, 0, kFar, 20, 0, 0}}, u(200, 75, 3, 20)},
        {{"", Kind::IDobrado, {100, 50, 50, 2, 2, 8, kFar, 20, 1, 0}}, cartola(50, 100, 20, 2)},
        {{"", Kind::CantTDobrada, {50, 30, 3, 3, 8, kFar, 0, 0, 0}}, lDobrada(50, 30, 3)},
        {{"", Kind::CantUDobrada, {50, 30, 3, 3, 80, kFar, 0, 0, 0}}, lDobrada(50, 30, 3)},
        {{"", Kind::XDobrado, {50, 50, 3, 3, 8, kFar, 0, 0, 0, 0}}, lDobrada(50, 50, 3)},
        {rolled(Kind::CantLaminadaCaixa, {}), lLaminada(50, 30, 5)},
        {{"", Kind::CantTEELaminada, {50, 30, 5, 9, 17, 5, 8, 0, 0, kFar, 0, 0}},
         lLaminada(50, 30, 5)},
        {{"", Kind::CantULaminada, {50, 30, 5, 9, 17, 5, 80, 0, 0, kFar, 0, 0}},
         lLaminada(50, 30, 5)},
        {{"", Kind::BNDuplaLaminada, {50, 5, 12, 5, 8, 0, 0, kFar, 0, 0}}, bn(50, 5)},
        {rolled(Kind::CantCruzLaminada, {8, 8}), lLaminada(50, 30, 5)},
        {rolled(Kind::CantZLaminada, {8, 0}), lLaminada(50, 30, 5)},
        {{"",
          Kind::UULaminado,
          {152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 120, 5.08, 0, 0, kFar, kArea, 24.4}},
         uLaminado(152.4, 48.77, 5.08, 12.2)},
        {{"",
          Kind::DoisULaminado,
          {152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 16, 5.08, 8, 0, 0, kFar, kArea, 24.4}},
         uLaminado(152.4, 48.77, 5.08, 12.2)},
    };
    const auto texts = [](const Sample& s) {
        const auto d = zp::secao::roleValuesOf(s.kind, s.points(), s.values);
        return std::pair(zp::secao::perfilText(s.kind, d, 0),
                         zp::secao::dimensoesText(s.kind, d, 0));
    };
    std::set<Kind> built;
    for (const auto& [whole, single] : kRows) {
        built.insert(whole.kind);
        const auto [perfil, dimensoes] = texts(whole);
        const zp::secao::Single one = zp::secao::singleOf(perfil, dimensoes);
        EXPECT_EQ(one.count, 2) << testing::PrintToString(perfil);
        EXPECT_EQ(std::pair(one.perfil, one.dimensoes), texts(single));
        const double area = single.secao()->properties().area;
        EXPECT_NEAR(whole.secao()->properties().area, 2 * area, 1e-3 * area)
            << testing::PrintToString(perfil + dimensoes);
        const auto strip = [](const Sample& s) {
            return zp::secao::stripOf(s.secao()->sheet(), L"", {})
                .value_or(zp::secao::Strip{})
                .width;
        };
        EXPECT_NEAR(strip(whole), strip(single), 1e-9);
        EXPECT_EQ(zp::secao::singleOf(one.perfil, one.dimensoes).count, 1);
    }
    for (int k = 1; k < zp::secao::kKinds; ++k) {
        const Kind kind = static_cast<Kind>(k);
        EXPECT_EQ(zp::secao::description(kind).composition != zp::secao::Composition::One,
                  built.contains(kind))
            << k;
    }
}

}  // namespace
