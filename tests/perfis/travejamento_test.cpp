// SPDX-License-Identifier: MIT
// Lacing: values, limits, dialog, stations of the plates.
#include "perfis/dialogs/travejamento.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <limits>

#include "perfis/output/chapas.h"
#include "tests/perfis/dialog_stand_in.h"
#include "tests/perfis/environment.h"

namespace perfis {
namespace {

using Texts = std::vector<std::wstring>;

TravejamentoLimites barra(double minA, double maxA) {
    TravejamentoLimites limits;
    limits.somenteAltura = 0;
    limits.minA = minA;
    limits.maxA = maxA;
    return limits;
}

std::wstring fault(const TravejamentoParams& params, const TravejamentoLimites& limits) {
    wchar_t message[kTravejamentoMessage];
    std::ranges::fill(message, L'#');
    const int valid = ValidaTravejamento(params, limits, message);
    EXPECT_EQ(valid, ValidaTravejamento(params, limits, nullptr));
    // The message, its end and not a character more.
    const std::wstring written(message, std::ranges::find(message, L'\0'));
    const auto untouched = static_cast<std::size_t>(std::ranges::count(message, L'#'));
    EXPECT_EQ(untouched, kTravejamentoMessage - (valid == 1 ? 0 : written.size() + 1));
    return valid == 1 ? std::wstring() : written;
}

TEST(Travejamento, TheFirstFailingTestDecides) {
    const TravejamentoLimites limits = barra(10, 110);
    EXPECT_EQ(fault({0, 0, 0}, limits), L"");  // no lacing at all
    EXPECT_EQ(fault({10, 50, 4}, limits), L"A deve ser maior que 10");
    EXPECT_EQ(fault({110, 50, 4}, limits), L"");
    EXPECT_EQ(fault({110.5, 0, 0}, limits), L"A deve ser menor ou igual a 110");
    EXPECT_EQ(fault({50, 0, 4}, limits), L"C deve ser maior que 0.0");
    EXPECT_EQ(fault({50, 500, 1}, limits), L"C deve ser menor que comp/2 (500.00)");
    EXPECT_EQ(fault({50, 499.9, 1}, limits), L"");
    EXPECT_EQ(fault({50, 50, 0}, limits), L"n deve ser maior que 0");
    EXPECT_EQ(fault({50, 100, 9}, limits), L"L1 deve ser maior que C (100.00)");
    EXPECT_EQ(fault({50, 100, 8}, limits), L"");
    TravejamentoLimites secao = limits;
    secao.somenteAltura = 1;
    EXPECT_EQ(fault({50, -1, -1}, secao), L"");
}

TEST(Travejamento, PartsFollowFromTheSpacing) {
    TravejamentoParams params{50, 100, 1};
    double L1 = 50;
    CalcPartes(params, 1000, L1);  // raised to C
    EXPECT_EQ(params.n, 9);
    EXPECT_EQ(L1, 100);
    L1 = 5000;
    CalcPartes(params, 1000, L1);
    EXPECT_EQ(params.n, 1);
    EXPECT_EQ(L1, 900);
    TravejamentoParams fresh;
    L1 = 0;
    CalcPartes(fresh, 1000, L1);  // 1000 / 0
    EXPECT_EQ(fresh.n, 1);
    EXPECT_EQ(L1, 1000);
    // What a number of parts makes of the spacing gives that number back.
    for (const double comprimento : {1000.0, 4000.0, 6000.0, 8000.0, 12000.0})
        for (int parts = 1; parts <= 20; ++parts) {
            TravejamentoParams kept{50, comprimento / 50, parts};
            ASSERT_EQ(CalcEspacamento(kept, comprimento, L1), 1);
            CalcPartes(kept, comprimento, L1);
            EXPECT_EQ(kept.n, parts) << comprimento;
        }
    L1 = 7;
    EXPECT_EQ(CalcEspacamento({50, 100, 0}, 1000, L1), 0);
    EXPECT_EQ(L1, 7);
    EXPECT_EQ(CalcEspacamento({50, 1100, 2}, 1000, L1), 1);
    EXPECT_EQ(L1, 0);
}

TEST(Travejamento, NumbersAreShownWithoutTrailingZeros) {
    const auto shown = [](double value) { return std::wstring(FormatDim(value)); };
    EXPECT_EQ(shown(12.5), L"12.5");
    EXPECT_EQ(shown(12.0), L"12");
    EXPECT_EQ(shown(100.0), L"100");
    EXPECT_EQ(shown(0.0), L"0");
    EXPECT_EQ(shown(0.004), L"0");
    EXPECT_EQ(shown(123.456), L"123.46");
}

class TravejamentoDialog : public ::testing::Test {
protected:
    TravejamentoDialog() { installAt("/zp"); }
    DialogStandIn host;
};

TEST_F(TravejamentoDialog, EditsAndGivesBackOnlyOnOk) {
    TravejamentoParams params{0, 100, 8};
    host.play({L"altura=60", L"l_travejam=50", L"accept", L"n_partes=8"});
    EXPECT_EQ(EditTravejamento(params, barra(0, 100)), 0);  // refused, then left by Esc
    EXPECT_EQ(params.A, 0);
    EXPECT_EQ(host.eventsOf(L"valor"),
              (Texts{L"altura: 0", L"largura: 100", L"n_partes: 8", L"l_travejam: 112.5",
                     L"n_partes: 9", L"l_travejam: 100", L"error: L1 deve ser maior que C (100.00)",
                     L"l_travejam: 112.5"}));
    EXPECT_EQ(host.eventsOf(L"imagem"), Texts{L"tr_img: puf(trav)"});
    host.play({L"altura=60", L"largura=10,5", L"accept"});
    EXPECT_EQ(EditTravejamento(params, barra(0, 100)), 1);
    EXPECT_EQ(params.A, 60);
    EXPECT_EQ(params.C, 10.5);
    // A refusal takes the keyboard to the field that is wrong.
    params = {50, 100, 8};
    host.clearEvents();
    host.play({L"altura=101", L"accept", L"altura=50", L"largura=0", L"accept", L"largura=100",
               L"n_partes=0", L"accept", L"n_partes=9", L"accept"});
    EXPECT_EQ(EditTravejamento(params, barra(0, 100)), 0);
    const Texts modes = host.eventsOf(L"modo");
    EXPECT_EQ(Texts(modes.begin() + 4, modes.end()),
              (Texts{L"altura: 2", L"altura: 3", L"largura: 2", L"largura: 3", L"n_partes: 2",
                     L"n_partes: 3", L"l_travejam: 2", L"l_travejam: 3"}));
}

TEST_F(TravejamentoDialog, ForASectionOnlyTheHeightCounts) {
    TravejamentoLimites secao;
    secao.alturaEditavel = 0;
    TravejamentoParams params{30, 100, 8};
    EXPECT_EQ(EditTravejamento(params, secao), 0);
    EXPECT_EQ(host.eventsOf(L"modo"),
              (Texts{L"altura: 1", L"largura: 1", L"l_travejam: 1", L"n_partes: 1"}));
    EXPECT_EQ(host.eventsOf(L"valor"), Texts{L"altura: 30"});
}

TEST_F(TravejamentoDialog, AMissingDialogIsAnAlert) {
    host.lose(L"zp_travejam");
    TravejamentoParams params{30, 100, 8};
    EXPECT_EQ(EditTravejamento(params, barra(0, 100)), 0);
    EXPECT_TRUE(host.has(L"alerta \nNão Foi Possível Carregar DCL Travejamento"));
}

TEST(Chapas, CountsAreRounded) {
    EXPECT_EQ(Arredonda(8.49), 8);
    EXPECT_EQ(Arredonda(8.5), 9);
    EXPECT_EQ(Arredonda(-1.7), -1);
    EXPECT_EQ(Arredonda(2147483647.5), INT_MIN);  // does not fit any more
    EXPECT_LT(Arredonda(std::numeric_limits<double>::infinity()), 0);
}

TEST(Chapas, StandAtBothEndsAndAtTheSpacing) {
    // 1000 long, plates of 10, 8 parts: 990 / 8 = 123.75
    const std::vector<double> nine = chapaStations({1000, 123.75}, 10);
    ASSERT_EQ(nine.size(), 9u);
    EXPECT_EQ(nine[0], 0);
    EXPECT_EQ(nine[1], 990);
    EXPECT_EQ(nine[2], 123.75);
    EXPECT_EQ(nine[8], 866.25);
    // Plates of 100: the last intermediate one falls on the far end plate.
    const std::vector<double> ten = chapaStations({1000, 112.5}, 100);
    ASSERT_EQ(ten.size(), 10u);
    EXPECT_EQ(ten[1], 900);
    EXPECT_EQ(ten[9], 900);
}

TEST(Chapas, ARowStaysInsideItsMemberAndIsNotEndless) {
    const struct {
        ChapaSpacing spacing;
        double width;
        bool holds;
    } cases[] = {
        {{1000, 123.75}, 10, true}, {{1000, 112.5}, 100, true},  // up to the very end
        {{90, 1900}, 100, false},   {{2310, 420}, 400, false},   // 5 x 420 + 400 = 2500
        {{9999, 1}, 0.1, true},                                  // 10,000 plates
        {{10000, 1}, 0.1, false},   {{2000, 2e-5}, 1e-6, false},
        {{1000, 0}, 0, false},      {{1e308, 1e-308}, 1e-309, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(rowHolds(c.spacing, c.width), c.holds) << c.spacing.comp << ", " << c.spacing.L1;
}

}  // namespace
}  // namespace perfis
