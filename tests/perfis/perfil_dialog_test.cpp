// SPDX-License-Identifier: MIT
// The dialog of a profile command against a recording host: the plain U, and where others differ.

#include <array>

#include "perfis/commands/handlers.h"
#include "perfis/output/shared_cota.h"
#include "tests/perfis/dialog_stand_in.h"
#include "tests/perfis/environment.h"
#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

using Texts = std::vector<std::wstring>;

class PerfilDialog : public TempFolder {
protected:
    PerfilDialog() { installAt(folder().string()); }
    std::string list(std::string_view name) const {
        return get("Perfis/Listas/" + std::string(name));
    }
    void putList(std::string_view name, std::string_view bytes) const {
        put("Perfis/Listas/" + std::string(name), bytes);
    }
    DialogStandIn host;
};

TEST_F(PerfilDialog, OpensStepByStep) {
    putList("pu.lst", "50\t25\t2\n");
    draw(pudobrado);
    EXPECT_EQ(host.events(),
              (Texts{L"abre pu_geracao", L"valor h: 0", L"valor b: 0", L"valor t: 0.00",
                     L"valor dimensionar: 0", L"valor visualizar: 0", L"valor vista0: 1",
                     L"modo OutraVista: 1", L"modo visualizar: 0", L"modo ins_list: 0",
                     L"modo dimensionar: 0", L"modo addtolist: 1", L"modo substolist: 1",
                     L"imagem showall: pu(secao)", L"lista lista: 50\t25\t2",
                     L"lista ins_list: RIGHT DOWN|LEFT DOWN|RIGHT UPPER|LEFT UPPER|CENTER",
                     L"valor ins_list: 0"}));
}

TEST_F(PerfilDialog, EditsTheCatalogueAndWritesItBackOnCancel) {
    putList("pu.lst", "50\t25\t2\n75\t40\t2\n");
    host.play({L"lista=1", L"t=3", L"addtolist", L"addtolist", L"h=80", L"substolist"});
    draw(pudobrado);
    EXPECT_EQ(list("pu.lst"), "50\t25\t2\n80\t40\t3\n75\t40\t3\n");
    EXPECT_EQ(host.mode(L"addtolist"), 0);
    EXPECT_EQ(host.mode(L"deltolist"), 0);
    EXPECT_EQ(host.value(L"lista"), L"1");  // a row that was added is not selected
}

TEST_F(PerfilDialog, DeletingTheLastRowGoesBackToTheFirst) {
    putList("pu.lst", "a\nb\n");
    host.play({L"lista=1", L"deltolist"});
    draw(pudobrado);
    EXPECT_EQ(list("pu.lst"), "a\n");
    EXPECT_EQ(host.mode(L"deltolist"), 1);
    host.play({L"deltolist", L"deltolist", L"substolist"});  // the second finds no row
    draw(pudobrado);
    EXPECT_EQ(list("pu.lst"), "");
}

TEST_F(PerfilDialog, TheSearchShowsWhatFitsAndPicksItInTheWholeList) {
    putList("pu.lst", "50\t25\t2\n75\t40\t2\n75\t40\t3.35\n90\t40\t2\n");
    host.play({L"busca=75x3,3"});
    draw(pudobrado);
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: 75\t40\t3.35");
    EXPECT_FALSE(host.has(L"valor error: "));
    host.play({L"busca=75x40", L"lista=1", L"b=41", L"substolist"});
    draw(pudobrado);
    EXPECT_EQ(list("pu.lst"), "50\t25\t2\n75\t40\t2\n75\t41\t3.35\n90\t40\t2\n");
    EXPECT_EQ(host.value(L"busca"), L"");
    EXPECT_EQ(host.value(L"lista"), L"2");
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: 50\t25\t2|75\t40\t2|75\t41\t3.35|90\t40\t2");
    host.play({L"busca=90\n", L"deltolist"});  // Enter takes the first row
    draw(pudobrado);
    EXPECT_EQ(list("pu.lst"), "50\t25\t2\n75\t40\t2\n75\t41\t3.35\n");
    host.play({L"busca=76x40x2", L"lista=0", L"vista0=0", L"OutraVista"});
    host.play({L"pickngo=1", L"accept"});
    host.play({});
    draw(pudobrado);
    EXPECT_TRUE(host.has(L"valor error: A bitola não existe; a mais próxima tem 75 em vez de 76."));
    EXPECT_TRUE(host.has(L"lista lista: 75\t40\t2|50\t25\t2|75\t41\t3.35"));
    EXPECT_EQ(host.value(L"lista"), L"1");  // in the whole list of the dialog that opened again
    EXPECT_EQ(host.value(L"error"), L"");
    host.play({L"busca=zz", L"busca="});
    draw(pudobrado);
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: 50\t25\t2|75\t40\t2|75\t41\t3.35");
}

TEST_F(PerfilDialog, TheButtonsWorkOnNoRowThatTheSearchHides) {
    putList("pu.lst", "50\t25\t2\n75\t40\t2\n75\t40\t3.35\n");
    const struct {
        Texts actions;
        int substituir, remover;  // 0: may be pressed
    } cases[] = {
        {{L"lista=0", L"busca=75"}, 1, 1},
        {{L"lista=0", L"busca=75", L"vista0=1"}, 1, 1},
        {{L"lista=0", L"busca=75", L"lista=0"}, 0, 0},
        {{L"lista=0", L"busca=75", L"h=75", L"b=40", L"t=2"}, 0, 0},
        {{L"lista=0", L"busca=75", L"busca="}, 0, 0},
        {{L"lista=0", L"busca=75", L"h=99", L"addtolist"}, 0, 0},
        {{L"h=1", L"b=1", L"t=1", L"busca=75"}, 1, 1},
        {{L"h=1", L"b=1", L"t=1", L"busca=75", L"busca="}, 0, 1},  // nothing was picked
    };
    for (const auto& c : cases) {
        host.play(c.actions);
        draw(pudobrado);
        EXPECT_EQ(host.mode(L"substolist"), c.substituir) << c.actions.back();
        EXPECT_EQ(host.mode(L"deltolist"), c.remover) << c.actions.back();
    }
}

TEST_F(PerfilDialog, TheRowOfTheTypedSizeIsTheOneThatTheButtonsWorkOn) {
    putList("pu.lst", "50\t25\t2\n75\t40\t2\n75\t40\t3.35\n");
    const struct {
        Texts actions;
        std::wstring row;
        std::string after;
    } cases[] = {
        {{L"h=75,0", L"b=40", L"t=3,35"}, L"2", "50\t25\t2\n75\t40\t2\n75\t40\t3.35\n"},
        // On the way to another size a row is passed; the one that was picked is replaced.
        {{L"lista=2", L"t=2", L"t=4", L"substolist"}, L"2", "50\t25\t2\n75\t40\t2\n75\t40\t4\n"},
        {{L"lista=2", L"t=2", L"deltolist"}, L"1", "50\t25\t2\n75\t40\t4\n"},
    };
    for (const auto& c : cases) {
        host.play(c.actions);
        draw(pudobrado);
        EXPECT_EQ(host.value(L"lista"), c.row);
        EXPECT_EQ(list("pu.lst"), c.after);
    }
}

TEST_F(PerfilDialog, TheSectionIsShownToScaleWithWhatIsOddAboutIt) {
    putList("pur.lst", "100\t50\t2\t17\n");
    host.play({L"h=100", L"b=50", L"t=2", L"a=17"});
    draw(pudoben);
    EXPECT_EQ(host.value(L"aviso"), L"");
    // A tile of 100 by 75 pixels, six of them free at each side: 63 for 100 mm. The red cross
    // stands below the lower right corner's tip at 2/3 of the width from the axis.
    std::array<int, 4> box{999, 999, 0, 0};
    for (const DialogStandIn::Vector& line : host.vectors()) {
        if (line.color == 1) continue;
        for (const std::size_t end : {0U, 2U}) {
            box[0] = std::min<int>(box[0], line.ends[end]);
            box[2] = std::max<int>(box[2], line.ends[end]);
            box[1] = std::min<int>(box[1], line.ends[end + 1]);
            box[3] = std::max<int>(box[3], line.ends[end + 1]);
        }
    }
    EXPECT_NEAR(box[3] - box[1], 62, 1);
    EXPECT_NEAR(box[2] - box[0], 31, 1);
    const DialogStandIn::Vector cross = host.vectors().back();
    EXPECT_NEAR((cross.ends[0] + cross.ends[2]) / 2.0, box[2], 1);
    EXPECT_NEAR((cross.ends[1] + cross.ends[3]) / 2.0, box[3], 1);
    const struct {
        const PerfilCommand& command;
        Texts typed;
        std::wstring warning;
    } cases[] = {
        {pudoben,
         {L"h=100", L"b=50", L"t=2", L"a=3"},
         L"Aviso: aba de 3 menor que a dobra, de 4; medida que não está no catálogo."},
        {pudoben, {L"h=100", L"b=50", L"t=2", L"a=0"}, L""},
        {perfilbox,
         {L"h=50", L"b=20", L"t=11"},
         L"Aviso: espessura t acima de b/2; com estas medidas o contorno da seção não fecha."},
        {perfiltubo, {L"d=50", L"di=30"}, L"Aviso: parede di acima de d/2: o tubo fica maciço."},
        {pilaminado, {L"h=300", L"b=20", L"t=11", L"a=11"}, L"Aviso: alma tw acima de B/2."},
    };
    for (const auto& c : cases) {
        DialogStandIn fresh;
        fresh.play(c.typed);
        draw(c.command);
        EXPECT_EQ(fresh.value(L"aviso"), c.warning);
        EXPECT_EQ(fresh.vectors().empty(), c.warning.empty());
    }
}

TEST_F(PerfilDialog, AcceptSaysWhatIsWrong) {
    const std::wstring secao = L"Dados inválidos para gerar perfil.";
    const struct {
        const PerfilCommand& command;
        Texts typed;
        std::wstring message;
        const wchar_t* tile;  ///< gets the keyboard
    } cases[] = {
        {pudobrado, {L"h=100", L"b=50", L"t=-1"}, secao, L"t"},
        {pudobrado, {L"vista0=0"}, L"Comprimento inválido para vista.", L"OutraVista"},
        {pudoben, {L"h=100", L"b=50", L"t=2", L"a=0"}, secao, L"a"},
        {perfiltubo, {L"d=100", L"di=100"}, secao, L"di"},
        {perfilbarraredonda, {L"d=0"}, secao, L"d"},
        {perfilpsa, {L"h=300", L"a=8", L"bb=9", L"bc=8"}, secao, L"bc"},
        {pisoldado, {L"h=300", L"b=0"}, secao, L"b"},
        {pisoldado, {L"rb_vs"}, secao, L"lista"},
        {pcxdobrado, {L"h=100", L"b=50", L"t=2", L"a=99"}, L"Erro no Travejamento.", L"a"},
        {pcanttdob, {L"h=100", L"b=50", L"t=2", L"a=9"}, L"Erro no Travejamento.", L"travejar"},
        {perfilicartola, {L"h=100", L"b=50", L"t=2", L"a=0", L"e=0"}, secao, L"e"},
        {perfilcantzlaminado, {L"h=100", L"b=50", L"t=2", L"a=0", L"av=-1"}, secao, L"av"},
    };
    for (const auto& c : cases) {
        DialogStandIn fresh;
        Texts actions = c.typed;
        actions.push_back(L"accept");
        fresh.play(actions);
        draw(c.command);
        EXPECT_TRUE(fresh.has(L"valor error: " + c.message)) << c.tile;
        const std::wstring tile = c.tile;
        const Texts modes = fresh.eventsOf(L"modo");
        EXPECT_EQ(Texts(modes.end() - 2, modes.end()), (Texts{tile + L": 2", tile + L": 3"}));
    }
}

TEST_F(PerfilDialog, RemembersEverythingAroundTheViewsDialog) {
    host.play(
        {L"h=100,5", L"visualizar=1", L"ins_list=3", L"dimensionar=1", L"vista0=0", L"OutraVista"});
    host.play({L"pickngo=1", L"accept"});  // the views dialog
    host.play({});
    draw(pudobrado);
    EXPECT_EQ(host.eventsOf(L"abre"), (Texts{L"pu_geracao", L"vistas_geracao", L"pu_geracao"}));
    EXPECT_EQ(host.value(L"h"), L"100,5");
    EXPECT_EQ(host.value(L"ins_list"), L"3");
    EXPECT_EQ(host.eventsOf(L"imagem").back(), L"showall: pu(ip3)");
    EXPECT_EQ(host.mode(L"OutraVista"), 0);
    EXPECT_EQ(host.mode(L"dimensionar"), 1);
    EXPECT_EQ(sharedCotaFlag(), 1);
    host.clearEvents();
    draw(pudobrado);  // another run starts from the defaults
    EXPECT_TRUE(host.has(L"valor vista0: 1"));
    EXPECT_TRUE(host.has(L"valor h: 0"));
    EXPECT_EQ(sharedCotaFlag(), 0);
}

TEST_F(PerfilDialog, InsertionPointsShowOnlyWhenAskedFor) {
    host.play({L"ins_list=2", L"visualizar=1", L"ins_list=4", L"visualizar=0"});
    draw(pudobrado);
    EXPECT_EQ(host.eventsOf(L"imagem"), (Texts{L"showall: pu(secao)", L"showall: pu(ip2)",
                                               L"showall: pu(ip4)", L"showall: pu(secao)"}));
}

TEST_F(PerfilDialog, FailuresAreSaid) {
    putList("pu.lst", "\n\na\n");
    host.lose(L"pu_geracao");
    draw(pudobrado);
    EXPECT_EQ(host.events(), (Texts{L"texto \nNão Foi Possível Carregar DCL Perfis",
                                    L"texto \nErro ao executar função"}));
    EXPECT_EQ(list("pu.lst"), "\n\na\n");  // not written back
    host.clearEvents();
    installAt(std::string(600, 'x'));
    draw(pudobrado);
    EXPECT_EQ(host.events(), Texts{L"texto \nCaminho muito longo: ZPFORJA2010."});
    host.clearEvents();
    installAt("");
    draw(pudobrado);
    EXPECT_EQ(host.events(),
              Texts{L"texto \nA variável de ambiente ZPFORJA2010 não está definida."});
}

TEST_F(PerfilDialog, OtherCommandsDiscardTheirEdits) {
    putList("pur.lst", "100\t50\t2\t17\n");
    host.play({L"lista=0", L"a=0.8", L"addtolist"});
    draw(pudoben);
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: 100\t50\t2\t17|100\t50\t2");
    EXPECT_EQ(list("pur.lst"), "100\t50\t2\t17\n");
    putList("ptb.lst", "");
    host.play({L"d=100", L"di=100", L"di=60", L"addtolist"});
    draw(perfiltubo);
    EXPECT_EQ(host.eventsOf(L"modo").back(), L"substolist: 0");
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: 100\t60");
}

TEST_F(PerfilDialog, TheLacingToggleWaitsForAMemberAndFallsBack) {
    host.play({L"h=60", L"b=60", L"t=3", L"vista0=0", L"OutraVista"});
    host.play({L"l=1000", L"accept"});  // views
    // Kept with a plate of 30 x 40, forgotten, refused.
    host.play({L"travejar=1", L"travejar=0", L"travejar=1", L"vista0=1"});
    host.play({L"altura=30", L"largura=40", L"accept"});
    host.play({});
    draw(pcantdob);
    EXPECT_EQ(host.eventsOf(L"abre"), (Texts{L"pl_geracao", L"vistas_geracao", L"pl_geracao",
                                             L"zp_travejam", L"zp_travejam"}));
    EXPECT_EQ(host.eventsOf(L"valor").back(), L"travejar: 0");
    EXPECT_EQ(host.eventsOf(L"modo").back(), L"travejar: 1");
    EXPECT_TRUE(host.has(L"modo travejar: 0"));
}

TEST_F(PerfilDialog, AMemberThatBecameTooShortForItsLacingIsRefused) {
    // Both ends do not fit; they do, but spaces of 420 bring a plate beyond the end of 2310.
    for (const auto& [largura, before, after] :
         {std::array{L"largura=40", L"l=1000", L"l=70"},
          std::array{L"largura=400", L"l=2500", L"l=2310"}}) {
        host.clearEvents();
        host.play({L"h=60", L"b=60", L"t=3", L"vista0=0", L"OutraVista"});
        host.play({before, L"accept"});  // views
        host.play({L"travejar=1", L"OutraVista"});
        host.play({L"altura=30", largura, L"n_partes=5", L"accept"});
        host.play({after, L"accept"});
        host.play({L"accept"});
        draw(pcantdob);
        EXPECT_EQ(host.eventsOf(L"valor").back(), L"error: Erro no Travejamento.") << after;
    }
}

TEST_F(PerfilDialog, RolledRowsFillTheTilesAndNothingElse) {
    putList("pl_lam.lst", "50\t50\t5\t3.77\n60\t60\n");
    host.play({L"lista=0", L"lista=1"});
    draw(bnlam);
    EXPECT_EQ(host.value(L"h"), L"60");
    EXPECT_EQ(host.value(L"t"), L"");  // a short row empties the tiles it does not reach
    EXPECT_EQ(host.mode(L"deltolist"), 0);
    for (const std::wstring& event : host.eventsOf(L"modo"))
        EXPECT_FALSE(event.starts_with(L"addtolist")) << "rolled catalogues are read-only";
}

}  // namespace
}  // namespace perfis
