// SPDX-License-Identifier: MIT
// The section's sheet against hand calculations: warping, torsion, plastic moduli, strips.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <optional>

#include "tests/zp/secao_samples.h"
#include "zp/objects/secao/single.h"
#include "zp/objects/secao/strip.h"

namespace {

using namespace samples;
using namespace zp::secao;

constexpr double kPi = std::numbers::pi;

/// A chain of straight walls of one thickness.
std::vector<Wall> chain(std::initializer_list<Point> nodes, double t) {
    std::vector<Wall> walls;
    for (auto node = nodes.begin(); node + 1 != nodes.end(); ++node)
        walls.push_back({{node[0], node[1], {}, 0.0, 0.0, 0.0}, t, t, int(walls.size()) - 1, {}});
    return walls;
}

/// t times the integral of the square of what runs from v to w along l.
double squared(double l, double t, double v, double w) {
    return t * l * (v * v + v * w + w * w) / 3;
}

TEST(ThinWalled, ClosedFormsOfTheHandbooks) {
    const double t = 2.0;
    const double h = 100.0;
    const double b = 40.0;
    // U: e = 3 b^2 / (6 b + h) behind the web, Cw = t b^3 h^2 / 12 (3 b + 2 h) / (6 b + h).
    const Warping u = warping(chain({{b, 0}, {0, 0}, {0, h}, {b, h}}, t));
    EXPECT_NEAR(u.shearCentre.x, -3 * b * b / (6 * b + h), 1e-9);
    EXPECT_NEAR(u.shearCentre.y, h / 2, 1e-9);
    EXPECT_NEAR(u.cw, t * b * b * b * h * h / 12 * (3 * b + 2 * h) / (6 * b + h), 1);
    // Z: the centre of its web, Cw = t b^3 h^2 / 12 (b + 2 h) / (2 b + h).
    const Warping z = warping(chain({{-b, h}, {0, h}, {0, 0}, {b, 0}}, t));
    EXPECT_NEAR(z.shearCentre.x, 0, 1e-9);
    EXPECT_NEAR(z.shearCentre.y, h / 2, 1e-9);
    EXPECT_NEAR(z.cw, t * b * b * b * h * h / 12 * (b + 2 * h) / (2 * b + h), 1);
    // Angle: its corner, no warping.
    const Warping l = warping(chain({{b, 0}, {0, 0}, {0, h}}, t));
    EXPECT_NEAR(std::hypot(l.shearCentre.x, l.shearCentre.y), 0, 1e-9);
    EXPECT_NEAR(l.cw, 0, 1e-6);
    // Lipped U of 200x75x20x2.65 with sharp corners: a web, b flange, c lip on the mid-line; the
    // sectorial coordinate about the shear centre e behind the web at corner, bend and lip's end.
    const double a = 197.35, f = 72.35, c = 18.675, s = 2.65;
    const double ix =
        s * (a * a * a / 12 + f * a * a / 2 + c * c * c / 6 + c * (a - c) * (a - c) / 2);
    const double e = f * s * (6 * c * a * a + 3 * f * a * a - 8 * c * c * c) / (12 * ix);
    const double w1 = e * a / 2;
    const double w2 = w1 - f * a / 2;
    const double w3 = w2 - (f + e) * c;
    const Warping ue = warping(chain(
        {{f, -a / 2 + c}, {f, -a / 2}, {0, -a / 2}, {0, a / 2}, {f, a / 2}, {f, a / 2 - c}}, s));
    EXPECT_NEAR(ue.shearCentre.x, -e, 1e-6);
    const double cw =
        2 * (squared(a / 2, s, 0, w1) + squared(f, s, w1, w2) + squared(c, s, w2, w3));
    EXPECT_NEAR(ue.cw, cw, 1e-9 * cw);
    // The rounded section is near to it, and the same turned by half.
    const Sheet& round = samples::u(200, 75, 2.65, 20).secao()->sheet();
    const Sheet& turned = samples::u(200, 75, 2.65, 20, kPi).secao()->sheet();
    EXPECT_NEAR(*round.cw / cw, 1.0, 0.06);
    EXPECT_NEAR(*turned.cw / *round.cw, 1.0, 1e-9);
    EXPECT_NEAR(*turned.x0, -*round.x0, 1e-9);
    EXPECT_NEAR(turned.xg, 75 - round.xg, 1e-9);
    // Welded I with two flanges: h0^2 I1 I2 / (I1 + I2), the shear centre shared out likewise.
    const Sheet& psm =
        *&samples::Sample{"", Kind::ISoldado, {300, 150, 200, 9.5, 12.5, 6.3, kFar, 0, 0, 0}}
              .secao()
              ->sheet();
    const double top = 9.5 * std::pow(150, 3) / 12, low = 12.5 * std::pow(200, 3) / 12,
                 h0 = 300 - 11;
    EXPECT_NEAR(*psm.cw, h0 * h0 * top * low / (top + low), 1e-6 * *psm.cw);
    EXPECT_NEAR(*psm.y0 + psm.p.yg, -150 + 6.25 + h0 * top / (top + low), 1e-6);
    EXPECT_EQ(*psm.x0, 0);
}

TEST(Sheet, WhatIsDefinedOfEachClass) {
    struct Case {
        Sample sample;
        bool x0, y0, cw;
    };
    const double w = 2 * 50.8 / 3;
    const Case kCases[] = {
        {u(200, 75, 3), true, true, true},
        {z(150, 60, 20, 2), true, true, true},
        {cartola(50, 100, 20, 2), true, true, true},
        {lDobrada(50, 50, 3), true, true, true},
        {{"caixa", Kind::CaixaDobrado, {200, 75, 3, 3, 0, kFar, 0, 0, 20}}, true, true, false},
        {{"caixa aberta", Kind::CaixaDobrado, {200, 75, 3, 3, 170, kFar, 0, 0, 0}},
         true,
         true,
         false},
        {caixa(100, 60, 4), true, true, false},
        {tubo(60.3, 3), true, true, true},
        {barra(20), true, true, true},
        {bn(50.8, 6.35), true, true, true},
        {lLaminada(50, 50, 5), true, true, true},
        {{"2L []", Kind::CantLaminadaCaixa, {50.8, 50.8, 6.35, 6.35, 0, 0, kFar, 0, 0}},
         true,
         true,
         false},
        {uLaminado(152.4, 48.77, 5.08, 12.2), true, true, true},
        {{"2L T", Kind::CantTDobrada, {50, 50, 3, 3, 10, kFar, 0, 0, 0}}, true, true, false},
        {{"2L U", Kind::CantUDobrada, {50, 40, 3, 3, 0, kFar, 0, 0, 0}}, true, true, true},
        {{"2L U aberto", Kind::CantUDobrada, {50, 40, 3, 3, 120, kFar, 0, 0, 0}},
         true,
         false,
         false},
        {{"2L X", Kind::XDobrado, {50, 50, 3, 3, 10, kFar, 0, 0, 0, 0}}, true, true, false},
        {{"2L T", Kind::CantTEELaminada, {50.8, 50.8, 6.35, 0, w, 6.35, 10, 0, 0, kFar, 0, 0}},
         true,
         true,
         false},
        {{"2L U", Kind::CantULaminada, {50.8, 50.8, 6.35, 0, w, 6.35, 0, 0, 0, kFar, 0, 0}},
         true,
         true,
         true},
        {{"2L X", Kind::BNDuplaLaminada, {50.8, 6.35, 0, 6.35, 8, 0, 0, kFar, 0, 0}},
         true,
         true,
         false},
        {{"2L +", Kind::CantCruzLaminada, {50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, kFar, 0, 0}},
         true,
         true,
         false},
        {{"2L Z", Kind::CantZLaminada, {50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, kFar, 0, 0}},
         true,
         true,
         false},
        {{"2U []",
          Kind::UULaminado,
          {152.4, 48.77, 5.08, 48.77, 8.7, 8.7, 0, 5.08, 0, 0, kFar, 0, 0}},
         true,
         true,
         false},
        {{"2U ][",
          Kind::DoisULaminado,
          {152.4, 48.77, 5.08, 48.77, 8.7, 8.7, 16, 5.08, 8, 0, 0, kFar, 0, 0}},
         true,
         true,
         false},
        {{"2U ][", Kind::IDobrado, {200, 75, 75, 3, 3, 0, kFar, 0, 0, 0}}, true, true, true},
        {{"2U ][ 50", Kind::IDobrado, {200, 75, 75, 3, 3, 50, kFar, 0, 0, 0}}, true, true, false},
        {iSoldado(300, 300, 9.5, 8), true, true, true},
        {iLaminado(200, 100, 8.5, 5.6, 0, 22.4), true, true, true},
        {iLaminado(152.4, 84.6, 9.12, 5.89, 2, 18.5), true, true, true},
        {caixa(100, 60, 30), false, false, false},  // drawn as its box
    };
    std::array<bool, kKinds> seen{};
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.sample.name);
        seen[static_cast<std::size_t>(c.sample.kind)] = true;
        const auto secao = c.sample.secao();
        const Sheet& sheet = secao->sheet();
        EXPECT_EQ(sheet.x0.has_value(), c.x0);
        EXPECT_EQ(sheet.y0.has_value(), c.y0);
        EXPECT_EQ(sheet.r0.has_value(), c.x0 && c.y0);
        EXPECT_EQ(sheet.cw.has_value(), c.cw);
        EXPECT_EQ(sheet.it.has_value(), !secao->invalid());
        EXPECT_EQ(sheet.elements.empty(), secao->invalid() || c.sample.kind == Kind::BarraRedonda);
        // Where half a turn leaves the section as it is, and not elsewhere, Z > W is no more than
        // it.
        EXPECT_GT(sheet.zx, std::min(sheet.p.wxUpper, sheet.p.wxLower));
        EXPECT_GT(sheet.zy, std::min(sheet.p.wyLeft, sheet.p.wyRight));
        for (const SheetRow& row : sheetRows())
            EXPECT_TRUE(std::isfinite(row.of(sheet).value_or(0.0))) << row.key;
    }
    for (int k = 1; k < kKinds; ++k)
        EXPECT_TRUE(seen[static_cast<std::size_t>(k)] || static_cast<Kind>(k) == Kind::Chapa) << k;
}

TEST(Sheet, PlasticModuliByHand) {
    const auto z = [](const Sample& s) {
        return std::pair(s.secao()->sheet().zx, s.secao()->sheet().zy);
    };
    // b h^2 / 4; d^3 / 6; (D^3 - d^3) / 6.
    EXPECT_NEAR(z(caixa(100, 60, 30)).first, 60 * 1e4 / 4, 1e-6);
    EXPECT_NEAR(z(caixa(100, 60, 30)).second, 100 * 3600 / 4, 1e-6);
    EXPECT_NEAR(z(barra(30)).first, 27000.0 / 6, 1e-6);
    EXPECT_NEAR(z(tubo(60.3, 3)).second, (std::pow(60.3, 3) - std::pow(54.3, 3)) / 6, 1e-6);
    // 300x150x9.5x200x12.5x6.3: A = 5676.4; 2838.2 - 2500 = 338.2 of the web, 53.682540 above the
    // lower flange, which leaves 224.317460 of it below the upper one.
    const Sample psm{"", Kind::ISoldado, {300, 150, 200, 9.5, 12.5, 6.3, kFar, 0, 0, 0}};
    const double below = 338.2 / 6.3, above = 278 - below;
    EXPECT_NEAR(
        z(psm).first,
        2500 * (below + 6.25) + 1425 * (above + 4.75) + 3.15 * (below * below + above * above),
        1e-4);
    // Two tubes' worth of gap change nothing of a piece's own modulus about x, twice.
    const auto close = z({"", Kind::IDobrado, {200, 75, 75, 3, 3, 0, kFar, 0, 0, 0}});
    const auto far = z({"", Kind::IDobrado, {200, 75, 75, 3, 3, 50, kFar, 0, 0, 0}});
    EXPECT_NEAR(close.first, 2 * z(u(200, 75, 3)).first, 1e-6 * close.first);
    // Each half of A = 1020.4115 is 25 mm farther out.
    EXPECT_NEAR(far.second - close.second, 2 * 1020.411501 * 25, 1e-3);
}

TEST(Sheet, TorsionOfSolidsCellsAndParts) {
    const auto it = [](const Sample& s) { return *s.secao()->sheet().it; };
    // Flat U without bends to speak of: mid-line 97 + 2 * 48.5 = 194, J = 194 * 27 / 3; the bends
    // take little away.
    EXPECT_NEAR(it(u(100, 50, 3)), 194.0 * 9.0, 0.05 * 194.0 * 9.0);
    EXPECT_NEAR(it(barra(20)), kPi * 160000 / 32, 1e-6);
    EXPECT_NEAR(it(tubo(60.3, 3)), kPi * (std::pow(60.3, 4) - std::pow(54.3, 4)) / 32, 1e-3);
    // EN 10210-2, annex B: Ah = 96 x 56 - (4 - pi) 36, h = 304 - (8 - 2 pi) 6 with the mean radius
    // of 4 and 8; h t^3 / 3 + 4 Ah^2 t / h.
    const double area = 96 * 56 - (4 - kPi) * 36, around = 304 - (8 - 2 * kPi) * 6;
    EXPECT_NEAR(it(caixa(100, 60, 4)), around * 64 / 3 + 16 * area * area / around, 1e-3);
    // Two equal pieces twist as two, until they close a box: 197 x 147, mean radius 4.5, t = 3.
    EXPECT_NEAR(it({"", Kind::IDobrado, {100, 50, 50, 3, 3, 0, kFar, 0, 0, 0}}),
                2 * it(u(100, 50, 3)), 1e-9);
    EXPECT_NEAR(it({"", Kind::CaixaDobrado, {200, 75, 3, 3, 170, kFar, 0, 0, 0}}),
                2 * it(u(200, 75, 3)), 1e-9);
    const double cell = 197 * 147 - (4 - kPi) * 20.25;
    EXPECT_NEAR(it({"", Kind::CaixaDobrado, {200, 75, 3, 3, 0, kFar, 0, 0, 0}}),
                4 * cell * cell * 3 / (688 - (8 - 2 * kPi) * 4.5),
                1e-3 * 4 * cell * cell * 3 / 688);
}

TEST(Sheet, SlendernessGoesByFlatsLegsAndClearWebs) {
    const auto text = [](const Sample& s) { return slendernessText(s.secao()->sheet()); };
    // 200 - 4 x 2.65 and 75 - 4 x 2.65, a lip of 20 - 2 x 2.65.
    EXPECT_EQ(text(u(200, 75, 2.65, 20)),
              L"2x 14,7/2,65 = 5,55; 2x 64,4/2,65 = 24,3; 189,4/2,65 = 71,47");
    EXPECT_EQ(text(lLaminada(50, 50, 5)), L"2x 50/5 = 10");
    EXPECT_EQ(text(iSoldado(300, 300, 9.5, 8)), L"4x 150/9,5 = 15,79; 281/8 = 35,12");
    EXPECT_EQ(text(tubo(60.3, 3)), L"60,3/3 = 20,1");
    // 100 - 2 x 8 and 60 - 2 x 8.
    EXPECT_EQ(text(caixa(100, 60, 4)), L"2x 84/4 = 21; 2x 44/4 = 11");
}

TEST(Strips, MidLineFactorKAndTheShopsOwn) {
    const Sheet& sheet = u(200, 75, 3).secao()->sheet();
    // 200 - 12 + 2 (75 - 6) + pi 4.5 along the middle; each bend in the middle of its quarter turn.
    const auto middle = stripOf(sheet, L"U 200x75x3", {});
    ASSERT_TRUE(middle);
    EXPECT_NEAR(middle->width, 326 + kPi * 4.5, 1e-9);
    ASSERT_EQ(middle->bends.size(), 2u);
    EXPECT_NEAR(middle->bends[0].at, 69 + kPi * 4.5 / 4, 1e-9);
    EXPECT_NEAR(middle->bends[1].at, middle->width - middle->bends[0].at, 1e-9);
    EXPECT_NEAR(middle->bends[0].angle, kPi / 2, 1e-9);
    EXPECT_NEAR(middle->bends[1].radius, 3, 1e-9);
    // K = 0.4 up to 3 mm, 0.42 up to 5: pi (3 + 0.4 x 3).
    StripRules rules;
    rules.factorK = {{3.0, 0.4}, {5.0, 0.42}};
    EXPECT_NEAR(stripOf(sheet, L"U 200x75x3", rules)->width, 326 + kPi * 4.2, 1e-9);
    EXPECT_NEAR(stripOf(u(200, 75, 6).secao()->sheet(), L"", rules)->width,
                200 - 24 + 2 * 63 + kPi * 9, 1e-9);
    // 15 % off the mid-line of 340.14 mm: 391.16.
    rules.widths[designationKey(L"u 200 X 75 x 3")] = 391.2;
    const auto refused = stripOf(sheet, L"U 200x75x3", rules);
    EXPECT_EQ(refused->refused, 391.2);
    EXPECT_FALSE(refused->own);
    EXPECT_NEAR(refused->width, 326 + kPi * 4.2, 1e-9);
    EXPECT_NEAR(refused->midLine, 326 + kPi * 4.5, 1e-9);
    rules.widths[designationKey(L"u 200 X 75 x 3")] = 338.0;
    const auto own = stripOf(sheet, L"U 200x75x3", rules);
    EXPECT_EQ(own->width, 338.0);
    EXPECT_TRUE(own->own);
    EXPECT_NEAR(own->bends[0].at + own->bends[1].at, 338.0, 1e-9);
    // A Z is bent one way and the other.
    const auto z = stripOf(samples::z(150, 60, 20, 2).secao()->sheet(), L"", {});
    EXPECT_GT(z->bends[1].angle, 0);
    EXPECT_LT(z->bends[2].angle, 0);
    for (const Sample& bought :
         {caixa(100, 60, 4), lLaminada(50, 50, 5), tubo(60.3, 3), iSoldado(300, 300, 9.5, 8)})
        EXPECT_FALSE(stripOf(bought.secao()->sheet(), L"", {})) << bought.name;
}

}  // namespace
