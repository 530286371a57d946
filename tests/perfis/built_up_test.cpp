// SPDX-License-Identifier: MIT
// Built-up commands: lacing limits of each, the test of the lacing, what their dialogs remember.
#include "perfis/commands/built_up_run.h"

#include "perfis/commands/handlers.h"
#include "tests/perfis/dialog_stand_in.h"
#include "tests/perfis/environment.h"
#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

using Texts = std::vector<std::wstring>;

class BuiltUpDialog : public TempFolder {
protected:
    BuiltUpDialog() { installAt(folder().string()); }
    DialogStandIn host;
};

/// Limits for a section 100 x 40 x 4 with a = 90.
struct Limits {
    const char* name;
    const PerfilCommand& command;
    bool userAltura;
    std::wstring tooLow;    ///< A itself is not allowed
    std::wstring greatest;  ///< A itself is allowed
    std::wstring tooHigh;
};

const Limits kLimits[] = {
    {"pcanttelam", pcanttelam, true, L"90", L"170", L"170.5"},
    {"pcanttdob", pcanttdob, true, L"90", L"170", L"170.5"},
    {"perfilcantcruzlaminado", perfilcantcruzlaminado, true, L"90", L"170", L"170.5"},
    {"pienrdobrado", pienrdobrado, true, L"90", L"170", L"170.5"},
    {"perfilcantzlaminado", perfilcantzlaminado, true, L"90", L"170", L"170.5"},
    {"pcantulam", pcantulam, true, L"10", L"82", L"82.5"},
    {"pcantudob", pcantudob, true, L"10", L"170", L"170.5"},
    {"pcxdobrado", pcxdobrado, true, L"10", L"90", L"90.5"},
    {"perfiluulaminado", perfiluulaminado, true, L"10", L"90", L"90.5"},
    {"pcantxdob", pcantxdob, false, L"89", L"90", L"90.5"},
    {"pcantcruzlam", pcantcruzlam, false, L"89", L"90", L"90.5"},
    {"pidobrado", pidobrado, false, L"89", L"90", L"90.5"},
    {"perfil2ulam", perfil2ulam, false, L"89", L"90", L"90.5"},
    {"perfilicartola", perfilicartola, false, L"89", L"90", L"90.5"},
};

TEST_F(BuiltUpDialog, EachCommandHasItsLacingLimits) {
    for (const Limits& limits : kLimits) {
        SCOPED_TRACE(limits.name);
        host.clearEvents();
        host.play({L"h=100", L"b=40", L"t=4", L"a=90", L"travejar", L"travejar"});
        host.play({L"altura=" + limits.tooLow, L"accept", L"altura=" + limits.tooHigh, L"accept",
                   L"altura=" + limits.greatest, L"accept"});
        host.play({});
        draw(limits.command);
        EXPECT_TRUE(host.has(L"valor error: A deve ser maior que " + limits.tooLow));
        EXPECT_TRUE(host.has(L"valor error: A deve ser menor ou igual a " + limits.greatest));
        // The second visit starts from what the first one kept.
        EXPECT_EQ(host.eventsOf(L"valor").back(), L"altura: " + limits.greatest);
        EXPECT_EQ(host.mode(L"altura"), limits.userAltura ? 0 : 1);
        EXPECT_EQ(host.mode(L"largura"), 1);  // a section has no plates along it
    }
}

TEST_F(BuiltUpDialog, AMemberThatBecameTooShortForItsPlatesIsRefused) {
    for (const Limits& limits : kLimits) {
        SCOPED_TRACE(limits.name);
        host.clearEvents();
        host.play({L"h=100", L"b=40", L"t=4", L"a=90", L"e=15", L"vista0=0", L"OutraVista"});
        host.play({L"l=2000", L"accept"});  // views
        host.play({L"travejar", L"OutraVista"});
        host.play({L"altura=" + limits.greatest, L"largura=100", L"accept"});
        host.play({L"l=90", L"accept"});
        host.play({L"accept"});  // 1900 apart, which is more than 3 x 100
        draw(limits.command);
        EXPECT_EQ(host.eventsOf(L"valor").back(), L"error: Erro no Travejamento.");
        EXPECT_TRUE(host.has(L"modo travejar: 2"));
    }
}

TEST_F(BuiltUpDialog, TheSpacingFollowsTheLengthEvenOnCancel) {
    host.play({L"h=100", L"b=40", L"t=4", L"a=10", L"vista0=0", L"OutraVista"});
    host.play({L"l=1000", L"accept"});  // views
    host.play({L"travejar", L"OutraVista"});
    host.play({L"altura=60", L"largura=100", L"n_partes=3", L"accept"});  // 300 apart
    host.play({L"l=1300", L"accept"});
    // 1200 holds four spaces of 300; the second visit keeps them.
    host.play({L"accept", L"travejar", L"travejar"});
    host.play({});
    host.play({});
    draw(pcanttelam);
    EXPECT_TRUE(host.has(L"valor error: Erro no Travejamento."));  // 300 is not above 3 x 100
    const Texts values = host.eventsOf(L"valor");
    const Texts last(values.end() - 4, values.end());
    EXPECT_EQ(last, (Texts{L"altura: 60", L"largura: 100", L"n_partes: 4", L"l_travejam: 300"}));
}

TEST_F(BuiltUpDialog, RolledRowsLeaveTheTypedTilesAndColdOnesEmptyWhatTheyLack) {
    put("Perfis/Listas/pl_lam.lst", "50\t50\t5\t3.77\n");
    host.play({L"a=12", L"av=8", L"lista=0"});
    draw(perfilcantzlaminado);
    EXPECT_EQ(host.value(L"h"), L"50");
    EXPECT_EQ(host.value(L"a"), L"12");
    EXPECT_EQ(host.value(L"av"), L"8");
    put("Perfis/Listas/puaenr.lst", "100\t50\t2\t8\t17\n75\t40\t2\t8\n60\t30\n");
    host.play({L"lista=0", L"lista=1", L"addtolist", L"lista=2"});
    draw(pienrdobrado);
    EXPECT_EQ(host.value(L"a"), L"");
    EXPECT_EQ(host.value(L"e"), L"");  // not that of the row before
    EXPECT_EQ(get("Perfis/Listas/puaenr.lst"), "100\t50\t2\t8\t17\n75\t40\t2\t8\n60\t30\n");
}

TEST_F(BuiltUpDialog, TheCrossStartsWithBothPlanesAndKeepsAChoice) {
    host.play({L"plano=1", L"vista0=0", L"OutraVista"});
    host.play({});  // views
    host.play({});
    draw(perfilcantcruzlaminado);
    EXPECT_TRUE(host.has(L"lista plano: Plano horizontal|Plano vertical|Os dois planos"));
    Texts planes;
    for (const std::wstring& value : host.eventsOf(L"valor"))
        if (value.starts_with(L"plano")) planes.push_back(value);
    EXPECT_EQ(planes, (Texts{L"plano: 2", L"plano: 1"}));
}

TEST(TravejamentoTest, PlatesMustSpanTheGapAndStandApart) {
    const TravejamentoTest vao{.space = 10, .minAltura = 10, .secaoOnly = false};
    EXPECT_FALSE(travejamentoHolds(0, 0, 0, vao));
    EXPECT_FALSE(travejamentoHolds(10, 100, 400, vao));
    EXPECT_FALSE(travejamentoHolds(60, 100, 300, vao));
    EXPECT_TRUE(travejamentoHolds(60, 100, 300.01, vao));
    EXPECT_FALSE(travejamentoHolds(60, 0, 300, vao));
    const TravejamentoTest touching{.space = 0, .minAltura = 0, .secaoOnly = false};
    EXPECT_TRUE(travejamentoHolds(0, 0, 0, touching));
    EXPECT_FALSE(travejamentoHolds(60, 100, 300, touching));
    EXPECT_TRUE(travejamentoHolds(60, 100, 300.01, touching));
    EXPECT_FALSE(travejamentoHolds(-60, 100, 400, touching));
    EXPECT_FALSE(
        travejamentoHolds(60, 100, 400, {.space = -1, .minAltura = -1, .secaoOnly = false}));
}

TEST(TravejamentoTest, InASectionOnlyTheHeightCounts) {
    EXPECT_FALSE(travejamentoHolds(10, 0, 0, {.space = 10, .minAltura = 10}));
    EXPECT_TRUE(travejamentoHolds(10.5, 0, 0, {.space = 10, .minAltura = 10}));
    EXPECT_TRUE(
        travejamentoHolds(10, 0, 0, {.space = 10, .minAltura = 9}));  // plates as high as the gap
    EXPECT_TRUE(travejamentoHolds(0, 0, 0, {.space = 0, .minAltura = 0}));
    EXPECT_FALSE(travejamentoHolds(50, 0, 0, {.space = -1, .minAltura = -1}));
}

}  // namespace
}  // namespace perfis
