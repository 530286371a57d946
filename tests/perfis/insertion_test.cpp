// SPDX-License-Identifier: MIT
// Insertion rules, by hand: U 150 x 60 x 3 and members of 2000 mm.
#include "perfis/commands/insertion.h"

#include <gtest/gtest.h>

namespace perfis {
namespace {

void expectShift(const Shift& shift, double x, double y) {
    EXPECT_NEAR(shift.x, x, 1e-9);
    EXPECT_NEAR(shift.y, y, 1e-9);
}

Medidas u(double h, double b) {
    Medidas medidas;
    medidas.h = h;
    medidas.b = b;
    return medidas;
}

TEST(UBarra, SideViewsCountHalfTheHeightInWholeMillimetres) {
    const Medidas m = u(151.9, 60);  // 151 / 2 = 75
    for (const int vista : {3, 4}) {
        expectShift(uBarraShift(m, {vista, 1, 2000}), 0, -75);
        expectShift(uBarraShift(m, {vista, 2, 2000}), -1000, -75);
        expectShift(uBarraShift(m, {vista, 3, 2000}), 0, 0);
        expectShift(uBarraShift(m, {vista, 4, 2000}), 0, 75);
        expectShift(uBarraShift(m, {vista, 5, 2000}), -1000, 75);
        expectShift(uBarraShift(m, {vista, 9, 2000}), 0, 0);
    }
}

TEST(UBarra, TopAndBottomViewsCountThirdsOfTheFlange) {
    const Medidas m = u(150, 60.7);  // 60
    expectShift(uBarraShift(m, {1, 1, 2000}), 0, -20);
    expectShift(uBarraShift(m, {1, 2, 2000}), -1000, -20);
    expectShift(uBarraShift(m, {1, 4, 2000}), 0, 40);
    expectShift(uBarraShift(m, {1, 5, 2000}), -1000, 40);
    expectShift(uBarraShift(m, {2, 1, 2000}), 0, -40);
    expectShift(uBarraShift(m, {2, 5, 2000}), -1000, 20);
    expectShift(uBarraShift(m, {2, 3, 2000}), 0, 0);
}

TEST(BarraByReach, UpperEdgeAxisLowerEdge) {
    const Reach reach{-20, 50};
    expectShift(shiftByReach(reach, {3, 1, 2000}), 0, -50);
    expectShift(shiftByReach(reach, {3, 2, 2000}), -1000, -50);
    expectShift(shiftByReach(reach, {3, 3, 2000}), 0, 0);
    expectShift(shiftByReach(reach, {3, 4, 2000}), 0, 20);
    expectShift(shiftByReach(reach, {3, 5, 2000}), -1000, 20);
    EXPECT_EQ(symmetricReach(100, 40, 4).upper, 50);
    EXPECT_EQ(symmetricReach(100, 40, 2).lower, -20);
}

}  // namespace
}  // namespace perfis
