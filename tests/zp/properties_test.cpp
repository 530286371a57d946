// SPDX-License-Identifier: MIT
// Area properties against closed forms and printed tables.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/zp/secao_samples.h"
#include "zp/objects/secao/assembly.h"

namespace {

using namespace samples;
using zp::secao::Properties;

struct Expected {
    double area;
    double xg;
    double yg;
    double ix;
    double iy;
    double ixy;
    double perimetro;
};

/// Closed-form numbers of the outlines, independent of the program: rectangles and circle sectors
/// added up.
const std::pair<Sample, Expected> kTable[] = {
    {u(200, 75, 3), {1020.411501, -7.613417, 0, 6077123.15, 537038.42, 0, 686.274334}},
    {u(200, 75, 2.65, 20), {987.325503, -3.035100, 0, 6046833.93, 719184.19, 0, 750.451323}},
    {z(150, 60, 20, 2), {593.699112, 0, 0, 2072505.72, 498470.05, -760011.80, 597.699112}},
    {cartola(50, 100, 20, 2), {453.699112, 0, 6.347819, 169294.75, 855566.02, 0, 457.699112}},
    {lDobrada(50, 50, 3),
     {285.205750, -2.788144, 2.788144, 70491.52, 70491.52, 43687.17, 196.137167}},
    {lLaminada(50, 50, 5),
     {477.682523, -2.487698, 2.487698, 111073.26, 111073.26, 65331.82, 195.707963}},
    {bn(50.8, 6.35), {609.164141, -2.968870, 0, 225401.70, 59142.30, 0, 197.749113}},
    {uLaminado(152.4, 48.77, 5.08, 12.2),
     {1557.240482, -3.068043, 0, 5500118.19, 294270.19, 0, 471.963602}},
    {iLaminado(200, 100, 8.5, 5.6, 0, 22.4),
     {2848.939520, 0, 0, 19435733.72, 1423712.32, 0, 768.154199}},
    {iLaminado(152.4, 84.6, 9.12, 5.89, 2, 18.5),
     {2354.534015, 0, 0, 9156078.16, 761320.10, 0, 596.213371}},
    {iSoldado(300, 300, 9.5, 8), {7948, 0, 0, 135091002.33, 42761989.33, 0, 1784}},
    {{"PSM", Kind::ISoldado, {300, 150, 200, 9.5, 12.5, 6.3, kFar, 0, 0, 0}},
     {5676.4, 0, -26.384090, 89099535.72, 11011001.09, 0, 1287.4}},
    {tubo(60.3, 3), {540.039777, 0, 0, 222245.94, 222245.94, 0, 360.026518}},
    {caixa(60, 100, 4), {1174.796447, 0, 0, 686817.41, 1525810.20, 0, 587.398224}},
    {{"2L T",
      Kind::CantTEELaminada,
      {50.8, 50.8, 6.35, 0, 2 * 50.8 / 3, 6.35, 10, 0, 0, kFar, 0, 0}},
     {1218.328283, 0, 2.099308, 284544.00, 763820.40, 0, 395.498227}},
    {{"2L +", Kind::CantCruzLaminada, {50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, kFar, 0, 0}},
     {1218.328283, 0, 0, 716710.02, 716710.02, 265906.63, 395.498227}},
    {{"2U ][", Kind::IDobrado, {200, 75, 75, 2.65, 2.65, 50, kFar, 0, 0, 0}},
     {1808.825503, 0, 0, 10821960.24, 4182102.60, 0, 1375.751323}},
    {{"2Cr ][", Kind::IDobrado, {100, 50, 50, 2, 2, 20, kFar, 20, 1, 0}},
     {907.398224, 0, 0, 1711132.04, 1083515.77, 0, 915.398224}},
};

TEST(Properties, ClosedForms) {
    for (const auto& [sample, e] : kTable) {
        SCOPED_TRACE(sample.name);
        const auto secao = sample.secao();
        const Properties& p = secao->properties();
        EXPECT_FALSE(secao->invalid());
        EXPECT_NEAR(p.area, e.area, 1e-6);
        EXPECT_NEAR(p.xg, e.xg, 1e-6);
        EXPECT_NEAR(p.yg, e.yg, 1e-6);
        EXPECT_NEAR(p.ix, e.ix, 0.01);
        EXPECT_NEAR(p.iy, e.iy, 0.01);
        EXPECT_NEAR(p.ixy, e.ixy, 0.01);
        EXPECT_NEAR(p.perimetro, e.perimetro, 1e-6);
    }
}

TEST(Properties, TurningKeepsTheInvariants) {
    for (const auto& [sample, e] : kTable) {
        if (sample.kind != Kind::UDobrado) continue;
        for (const double r : {0.3, std::numbers::pi, 4.0}) {
            Sample turned = sample;
            turned.values[8] = r;
            const auto secao = turned.secao();
            const Properties& p = secao->properties();
            EXPECT_NEAR(p.area, e.area, 1e-6);
            EXPECT_NEAR(p.i1, e.ix, 0.01);
            EXPECT_NEAR(p.i2, e.iy, 0.01);
            EXPECT_NEAR(std::hypot(p.xg, p.yg), std::abs(e.xg), 1e-6);
        }
        // Half a turn is exact: no sine of pi may tilt the outline.
        Sample half = sample;
        half.values[8] = std::numbers::pi;
        EXPECT_EQ(half.secao()->bounds().x0, -sample.secao()->bounds().x1);
        EXPECT_EQ(half.secao()->bounds().y1, -sample.secao()->bounds().y0);
    }
}

TEST(Properties, ModuliAndRadiiOfARectangle) {
    // 60 x 100 filled by a box whose wall is too thick for a hole: Ix = b h^3 / 12, W = b h^2 / 6,
    // i = h / sqrt 12.
    const auto secao = caixa(100, 60, 30).secao();
    const Properties& p = secao->properties();
    EXPECT_TRUE(secao->invalid());
    EXPECT_NEAR(p.ix, 60.0 * 1e6 / 12.0, 1e-3);
    EXPECT_NEAR(p.wxUpper, 60.0 * 1e4 / 6.0, 1e-6);
    EXPECT_NEAR(p.rx, 100.0 / std::sqrt(12.0), 1e-9);
    EXPECT_NEAR(p.principalAngle, 0.0, 1e-12);
}

TEST(Properties, PaintOnlyOnTheOutside) {
    EXPECT_NEAR(tubo(60.3, 3).secao()->perimetroPintura(), std::numbers::pi * 60.3, 1e-9);
    // Two plain U toe to toe: outer rectangle 150 x 200 with four corners of R = 6.
    const Sample closed{"", Kind::CaixaDobrado, {200, 75, 3, 3, 0, kFar, 0, 0, 0}};
    EXPECT_NEAR(closed.secao()->perimetroPintura(), 700 - 8 * 6 + 2 * std::numbers::pi * 6, 1e-9);
    const Sample opened{"", Kind::CaixaDobrado, {200, 75, 3, 3, 170, kFar, 0, 0, 0}};
    EXPECT_NEAR(opened.secao()->perimetroPintura(), opened.secao()->properties().perimetro, 1e-9);
}

TEST(Properties, AreaAndPesoOfTheCatalogueCount) {
    EXPECT_NEAR(lLaminada(50.8, 50.8, 6.35, 4.74).secao()->area(), 127.1848 * 4.74, 1e-9);
    EXPECT_NEAR(lLaminada(50.8, 50.8, 6.35, 4.74).secao()->kgMetro(), 4.74, 1e-12);
    EXPECT_NEAR(lLaminada(50.8, 50.8, 6.35).secao()->kgMetro(), 609.164141 * 7850e-6, 1e-8);
    // Built-up rolled angles hand over cm2.
    const Sample twofold{
        "",
        Kind::CantTEELaminada,
        {50.8, 50.8, 6.35, 0, 2 * 50.8 / 3, 6.35, 10, 0, 0, kFar, 9.48, 9.48 * 1.271848}};
    EXPECT_NEAR(twofold.secao()->area(), 1205.71190, 1e-4);
}

TEST(Properties, PesoOfTheTables) {
    struct Linha {
        Sample sample;
        double kgMetro;
        double tolerance;  ///< relative, as far as the published tables follow their own sizes
    };
    const Linha kRows[] = {
        {u(50, 25, 1.2), 0.9, 0.03},
        {u(200, 75, 3), 8.01, 0.03},
        {u(300, 100, 4.75, 25), 19.35, 0.03},
        {z(50, 25, 10, 1.2), 1.06, 0.03},
        {cartola(50, 100, 20, 2), 3.56, 0.03},
        {lDobrada(30, 30, 2), 0.89, 0.03},
        {lLaminada(12.7, 12.7, 3.18), 0.55, 0.03},
        {lLaminada(50.8, 50.8, 6.35), 4.74, 0.03},
        {barra(6.3), 0.25, 0.03},
        {tubo(21.3, 2.25), 1.06, 0.03},
        {caixa(15, 15, 1), 0.42, 0.03},
        {iSoldado(150, 150, 8, 6.3), 25.4, 0.004},
        {iSoldado(150, 100, 6.3, 4.75), 15.0, 0.004},
        {iLaminado(80, 46, 5.2, 3.8, 0, 6.0), 6.0, 0.03},
        {iLaminado(148, 100, 4.9, 4.3, 1, 13.0), 13.0, 0.03},
        {uLaminado(76.2, 35.81, 4.32, 6.1), 6.1, 0.03},
        {iLaminado(76.2, 59.18, 6.6, 4.32, 2, 8.48), 8.48, 0.03},
    };
    for (const Linha& l : kRows) {
        SCOPED_TRACE(l.sample.name);
        EXPECT_FALSE(l.sample.secao()->invalid());
        EXPECT_NEAR(l.sample.secao()->properties().area * 7850e-6 / l.kgMetro, 1.0, l.tolerance);
    }
}

}  // namespace
