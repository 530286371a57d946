// SPDX-License-Identifier: MIT
// The views dialog and the bar type selector against a recording host.
#include "perfis/dialogs/vistas_dialog.h"

#include <gtest/gtest.h>

#include "perfis/dialogs/tiles.h"
#include "perfis/dialogs/tipo_barra_dialog.h"
#include "tests/perfis/dialog_stand_in.h"
#include "tests/perfis/environment.h"

namespace perfis {
namespace {

using Texts = std::vector<std::wstring>;

class VistasDialogTest : public ::testing::Test {
protected:
    VistasDialogTest() { installAt("/zp"); }
    int run(const Texts& actions, int figures = 4) {
        host.play(actions);
        return editVistas(L"pu", choice, figures);
    }
    DialogStandIn host;
    VistasChoice choice{.secaoOnly = false};
};

TEST_F(VistasDialogTest, OpensFromTheCallersValues) {
    choice.vista = 2;
    choice.comprimento = 1234.56;
    choice.pecas = 4;
    run({});
    EXPECT_EQ(host.eventsOf(L"imagem"),
              (Texts{L"fig0: FLECHA", L"fig1: pu(BT1)", L"fig2: pu(BT2)", L"fig3: pu(BT3)",
                     L"fig4: pu(BT4)", L"PreviewVista: pu(VI3)"}));
    EXPECT_EQ(host.eventsOf(L"valor"), (Texts{L"insertionP: 3", L"ip: 3", L"num_pecas: 4",
                                              L"l: 1234", L"gerar_matlist: 0", L"pickngo: 0"}));
    EXPECT_EQ(host.eventsOf(L"modo"), (Texts{L"fig3: 4", L"num_pecas: 1", L"l: 0", L"pick: 0",
                                             L"gerar_matlist: 0", L"ip: 0", L"insertionP: 0"}));
}

TEST_F(VistasDialogTest, FiguresSetTheViewAndThoseNotOfferedDoNot) {
    run({L"l=100", L"fig4", L"accept"});
    EXPECT_EQ(choice.vista, 4);
    EXPECT_TRUE(host.has(L"imagem PreviewVista: pu(VI4)"));
    EXPECT_TRUE(host.has(L"modo fig1: 4") && host.has(L"modo fig4: 4")) << "the mark moves";
    host.clearEvents();
    DialogStandIn another;
    another.play({L"fig2", L"fig3", L"accept"});
    editVistas(L"pz", choice, 2);
    EXPECT_EQ(choice.vista, 1);
    EXPECT_EQ(another.mode(L"fig3"), 1);
    EXPECT_EQ(another.mode(L"fig4"), 1);
}

TEST_F(VistasDialogTest, InsertionFallsToTheMiddleAboveNineAndToOneBelow) {
    run({L"insertionP=12", L"l=10", L"accept"});
    EXPECT_EQ(choice.alignment, 5);
    EXPECT_EQ(host.value(L"ip"), L"5");
    run({L"insertionP=0", L"accept"});
    EXPECT_EQ(choice.alignment, 1);
    run({L"ip=9", L"accept"});
    EXPECT_EQ(choice.alignment, 9);
    EXPECT_EQ(host.value(L"insertionP"), L"9");
}

TEST_F(VistasDialogTest, TheLengthKeepsItsDecimalsUntilItIsEdited) {
    const struct {
        double before;
        Texts typed;
        double after;
    } cases[] = {
        {1234.56, {L"accept"}, 1234.56},
        {1234.56, {L"l=1234", L"accept"}, 1234.0},  // the text that was shown, typed
        {1500.25, {L"l=7", L"l=1500", L"accept"}, 1500.0},
        {1500.25, {L"l=3000,5", L"accept"}, 3000.5},
        {0.4, {L"accept"}, 0.4},
        {0.4, {L"l=0", L"accept"}, 0.4},  // refused, then cancelled
    };
    for (const auto& c : cases) {
        choice.comprimento = c.before;
        run(c.typed);
        EXPECT_EQ(choice.comprimento, c.after) << c.before;
    }
    EXPECT_TRUE(host.has(L"valor error: Erro: comprimento inválido."));
}

TEST_F(VistasDialogTest, PickMeasuresAndOpensAgain) {
    host.answerDistance(2500.5);
    host.play({L"fig2", L"pick"});
    host.play({L"accept"});
    EXPECT_EQ(editVistas(L"pu", choice, 4), 0);
    EXPECT_EQ(choice.comprimento, 2500.5);
    EXPECT_EQ(choice.vista, 1);
    EXPECT_TRUE(host.has(L"pede \nPonto inicial e final do perfil:"));
    EXPECT_TRUE(host.has(L"valor l: 2500"));
    run({L"pick"});  // refused: the length stays, and the second opening is cancelled
    EXPECT_EQ(choice.comprimento, 2500.5);
}

TEST_F(VistasDialogTest, AcceptRefusesWhatCannotBeDrawn) {
    const auto expectFault = [&](const Texts& actions, const std::wstring& message,
                                 const std::wstring& tile) {
        host.clearEvents();
        run(actions);
        EXPECT_EQ(host.eventsOf(L"valor").back(), L"error: " + message);
        const Texts modes = host.eventsOf(L"modo");  // its text is selected, ready to be replaced
        EXPECT_EQ(Texts(modes.end() - 2, modes.end()), (Texts{tile + L": 2", tile + L": 3"}));
    };
    for (const wchar_t* comprimento : {L"l=0", L"l=1000000001", L"l=1e308", L"l=1e999"})
        expectFault({comprimento, L"accept"}, L"Erro: comprimento inválido.", L"l");
    expectFault({L"l=1e9", L"gerar_matlist=1", L"accept"}, L"Erro: número de peças inválido.",
                L"num_pecas");
    EXPECT_FALSE(choice.materialList);
    run({L"pickngo=1", L"accept"});  // neither length nor pieces are needed
    EXPECT_TRUE(choice.pickAndGo);
    for (const wchar_t* key : {L"l", L"pick", L"gerar_matlist", L"num_pecas", L"ip", L"insertionP"})
        EXPECT_EQ(host.mode(key), 1) << key;
}

TEST_F(VistasDialogTest, CancelFallsBackToTheSectionOnlyWithoutALength) {
    run({L"l=100"});
    EXPECT_TRUE(choice.secaoOnly);
    EXPECT_EQ(choice.comprimento, 0.0);
    choice.secaoOnly = false;
    choice.comprimento = 10.0;
    run({});
    EXPECT_FALSE(choice.secaoOnly);
}

TEST_F(VistasDialogTest, AMissingDialogIsAnAlert) {
    host.lose(L"vistas_geracao");
    EXPECT_EQ(run({}), 2);
    EXPECT_TRUE(host.has(L"alerta \nNão Foi Possível Carregar DCL Perfis"));
}

TEST(TipoBarraDialog, ComesFromTheButtonsTable) {
    installAt("/zp");
    DialogStandIn host;
    int type = 9;
    host.play({L"TipoRow=bt_pilar", L"bt_pilar"});
    editTipoBarra(type);
    EXPECT_TRUE(host.has(L"valor TipoRow: bt_terca"));
    EXPECT_EQ(type, 9);  // cancelled
    type = 7;
    host.clearEvents();
    host.play({L"TipoRow=BT_MT", L"bt_mt"});
    editTipoBarra(type);
    EXPECT_TRUE(host.has(L"valor TipoRow: "));
    host.lose(L"tipo_barras");
    EXPECT_EQ(editTipoBarra(type), RTERROR);
    EXPECT_EQ(type, 7);
}

TEST(FixedList, NeedsItsEndMark) {
    DialogStandIn host;
    const wchar_t* const table[] = {L"UM", L"DOIS", L"##fim##", L"RESTO"};
    EXPECT_EQ(fillFixedList(host.dialog(), L"ins_list", table), RTNORM);
    EXPECT_EQ(host.events(), Texts{L"lista ins_list: UM|DOIS"});
    const std::vector<const wchar_t*> endless(1001, L"X");
    EXPECT_EQ(fillFixedList(host.dialog(), L"ins_list", endless.data()), kNoEndMark);
    EXPECT_EQ(host.events().size(), 1u);
}

}  // namespace
}  // namespace perfis
