// SPDX-License-Identifier: MIT
// The dialogs of the welded I commands against a recording host.

#include "perfis/commands/handlers.h"
#include "tests/perfis/dialog_stand_in.h"
#include "tests/perfis/environment.h"
#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

using Texts = std::vector<std::wstring>;

class WeldedDialog : public TempFolder {
protected:
    WeldedDialog() {
        installAt(folder().string());
        putList("vi.lst", "200\t100\t6.3\t4.75\n250\t120\t8\n");
        putList("vi_vs.lst", "VS A\nVS B\n\nVS C\n");
        putList("vs.lst", "150\t100\t6.30\t4.75\t15.00\n\n160\t110\t8.00\t6.30\t20.00\n");
    }
    std::string list(std::string_view name) const {
        return get("Perfis/Listas/" + std::string(name));
    }
    void putList(std::string_view name, std::string_view bytes) const {
        put("Perfis/Listas/" + std::string(name), bytes);
    }
    Texts values() {
        return {host.value(L"h"), host.value(L"b"), host.value(L"t"), host.value(L"a")};
    }
    Texts modes(const Texts& keys) {
        Texts result;
        for (const std::wstring& key : keys) result.push_back(std::to_wstring(host.mode(key)));
        return result;
    }
    DialogStandIn host;
    const Texts kButtons = {L"addtolist", L"substolist", L"deltolist"};
};

TEST_F(WeldedDialog, ASeriesShowsOneFileAndTakesItsNumbersFromTheOther) {
    host.play({L"lista=0", L"rb_vs=1"});
    draw(pisoldado);
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: VS A|VS B|VS C");
    EXPECT_EQ(host.value(L"vitxt"), L"  Tipo     H     Kg/m");
    EXPECT_EQ(values(), (Texts{L"", L"", L"", L""}));
    host.play({L"rb_vs=1", L"lista=1"});
    draw(pisoldado);
    EXPECT_EQ(values(), (Texts{L"160", L"110", L"8.00", L"6.30"}));
    EXPECT_EQ(modes(kButtons), (Texts{L"1", L"1", L"1"}));
    EXPECT_EQ(modes({L"h", L"b", L"t", L"a"}), (Texts{L"1", L"1", L"1", L"1"}));
    host.play({L"rb_vs=1", L"lista=1", L"lista=2"});  // no values for the third size
    draw(pisoldado);
    EXPECT_EQ(values(), (Texts{L"", L"", L"", L""}));
    host.play({L"rb_vs=1", L"lista=0", L"rb_cs=1"});  // neither file is there
    draw(pisoldado);
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: ");
    EXPECT_EQ(values(), (Texts{L"", L"", L"", L""}));
}

TEST_F(WeldedDialog, BackAmongTheFavouritesTheTilesStayAndCanBeEdited) {
    host.play({L"rb_vs=1", L"lista=0", L"rb_user=1"});
    draw(pisoldado);
    EXPECT_EQ(host.value(L"vitxt"), L"  H        B          tf        tw");
    EXPECT_EQ(values(), (Texts{L"150", L"100", L"6.30", L"4.75"}));
    EXPECT_EQ(modes({L"h", L"b", L"t", L"a"}), (Texts{L"0", L"0", L"0", L"0"}));
    // What the series disabled waits for a pick.
    EXPECT_EQ(modes(kButtons), (Texts{L"0", L"0", L"1"}));
    host.clearEvents();
    host.play({L"rb_user=1"});  // already in force: nothing is read again
    draw(pisoldado);
    EXPECT_EQ(host.eventsOf(L"lista").size(), 2u);  // the opening's two lists
}

TEST_F(WeldedDialog, TheWebAloneDoesNotWakeTheButtons) {
    host.play({L"h=200", L"b=100", L"t=8", L"a=6"});
    draw(pisoldado);
    EXPECT_EQ(host.mode(L"addtolist"), 1);
    host.play({L"h=200", L"b=100", L"a=6", L"t=8"});
    draw(pisoldado);
    EXPECT_EQ(host.mode(L"addtolist"), 0);
}

TEST_F(WeldedDialog, FavouritesAreKeptAsTyped) {
    host.play({L"lista=1", L"a=0.5", L"addtolist", L"h=10.0", L"substolist", L"h=10", L"addtolist",
               L"lista=2"});
    draw(pisoldado);
    EXPECT_EQ(list("vi.lst"), "200\t100\t6.3\t4.75\n10.0\t120\t8\n10\t120\t8\n");
    EXPECT_EQ(values(), (Texts{L"10", L"120", L"8", L""}));
    EXPECT_EQ(modes(kButtons), (Texts{L"1", L"1", L"0"}));
    host.play({L"lista=2", L"deltolist"});
    draw(pisoldado);
    EXPECT_EQ(list("vi.lst"), "200\t100\t6.3\t4.75\n10.0\t120\t8\n");
    EXPECT_EQ(host.mode(L"deltolist"), 1);
    EXPECT_EQ(host.value(L"h"), L"10");
}

TEST_F(WeldedDialog, FavouritesReachTheFileOnlyWhenTheyAreInForceAtTheEnd) {
    const std::string before = list("vi.lst");
    const Texts add = {L"h=1", L"b=2", L"a=4", L"t=3", L"addtolist"};
    Texts actions = add;
    actions.push_back(L"rb_vs=1");
    host.play(actions);
    draw(pisoldado);
    EXPECT_EQ(list("vi.lst"), before);
    actions.push_back(L"rb_user=1");  // reads the file again: the new row is gone
    host.play(actions);
    draw(pisoldado);
    EXPECT_EQ(list("vi.lst"), before);
    actions = add;
    actions.insert(actions.end(), {L"vista0=0", L"OutraVista"});
    host.play(actions);
    host.play({L"pickngo=1", L"accept"});  // the views dialog
    draw(pisoldado);
    EXPECT_EQ(list("vi.lst"), before);
    EXPECT_EQ(values(), (Texts{L"1", L"2", L"3", L"4"}));
    host.play(add);
    draw(pisoldado);
    EXPECT_EQ(list("vi.lst"), before + "1\t2\t3\t4\n");
    // Neither do a series' rows take the place of favourites that are missing.
    std::filesystem::remove(folder() / "Perfis/Listas/vi.lst");
    host.play({L"rb_vs=1", L"lista=0"});
    draw(pisoldado);
    EXPECT_FALSE(std::filesystem::exists(folder() / "Perfis/Listas/vi.lst") &&
                 !list("vi.lst").empty());
    host.lose(L"vi_geracao");
    host.clearEvents();
    draw(pisoldado);
    EXPECT_EQ(host.events(), (Texts{L"texto \nNão Foi Possível Carregar DCL Perfis",
                                    L"texto \nErro ao executar função"}));
}

TEST_F(WeldedDialog, ASeriesSurvivesAVisitToTheViews) {
    host.play({L"rb_vs=1", L"lista=1", L"vista0=0", L"OutraVista"});
    host.play({L"fig2", L"l=10", L"accept"});
    draw(pisoldado);
    EXPECT_EQ(host.value(L"rb_vs"), L"1");
    EXPECT_EQ(host.value(L"vitxt"), L"  Tipo     H     Kg/m");
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"ins_list: RIGHT DOWN|MID DOWN|LEFT DOWN|CENTER");
    EXPECT_EQ(values(), (Texts{L"160", L"110", L"8.00", L"6.30"}));
    EXPECT_EQ(host.mode(L"h"), 1);
    EXPECT_EQ(host.mode(L"fig3"), 1);  // two figures
    EXPECT_EQ(host.loads(), 3);
}

TEST_F(WeldedDialog, TheOtherOneAddsSixNumbersAndReplacesByFour) {
    host.forget(L"b");
    host.forget(L"t");
    putList("psa.lst", "300\t150\t9.5\t200\t12.5\t6.3\n");
    host.play({L"lista=0", L"h=400.50", L"tb=0.1234567", L"addtolist", L"substolist"});
    draw(perfilpsa);
    EXPECT_EQ(list("psa.lst"), "400.50\t\t\t6.3\n400.5\t150\t0.123457\t200\t12.5\t6.3\n");
    host.play({L"lista=1", L"deltolist"});
    draw(perfilpsa);
    EXPECT_EQ(list("psa.lst"), "400.50\t\t\t6.3\n");
    EXPECT_EQ(host.mode(L"deltolist"), 1);
}

TEST_F(WeldedDialog, TheOtherOneAsksForFlangesWiderThanTheWeb) {
    for (const auto& [lower, upper] : {std::pair{L"bb=8", L"bc=100"}, {L"bb=100", L"bc=8"}}) {
        host.play({L"h=300", L"a=8", lower, upper, L"accept"});
        draw(perfilpsa);
        EXPECT_EQ(modes({L"addtolist", L"substolist"}), (Texts{L"1", L"1"}));
        EXPECT_EQ(host.value(L"error"), L"Dados inválidos para gerar perfil.");
    }
    host.play({L"h=300", L"a=8", L"bb=8.1", L"bc=100"});  // flange thicknesses are not asked for
    draw(perfilpsa);
    EXPECT_EQ(modes({L"addtolist", L"substolist"}), (Texts{L"0", L"0"}));
}

TEST_F(WeldedDialog, TheOtherOneShowsItsNumbersReformatted) {
    host.play({L"h=300.50", L"bb=1e2", L"tc=x", L"vista0=0", L"OutraVista"});
    host.play({L"l=10", L"accept"});
    draw(perfilpsa);
    EXPECT_EQ(host.value(L"h"), L"300.5");
    EXPECT_EQ(host.value(L"bb"), L"100");
    EXPECT_EQ(host.value(L"tc"), L"0");
    EXPECT_EQ(host.mode(L"fig4"), 0);
}

}  // namespace
}  // namespace perfis
