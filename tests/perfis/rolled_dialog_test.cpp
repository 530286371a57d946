// SPDX-License-Identifier: MIT
// The dialog of the rolled I command against a recording host.

#include "perfis/commands/handlers.h"
#include "tests/perfis/dialog_stand_in.h"
#include "tests/perfis/environment.h"
#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

using Texts = std::vector<std::wstring>;

class RolledDialog : public TempFolder {
protected:
    RolledDialog() {
        installAt(folder().string());
        putList("BitolasAcoMinas.lst", "W A\nW B\n\nW C\n");
        putList("DadosAcoMinas.lst",
                "150\t100\t5\t4\t13\n200\t110\t6\t4.5\t15\n\n300\t150\t7\t5\t20\n");
        putList("vi_lam.lst", "IPE 80\t80\t6\nIPE 200\t200\t22.4\n");
        putList("ipe.lst", "IPE 80\t80\t46\t5.2\t3.8\t6\nIPE 200\t200\t100\t8.5\t5.6\t22.4\n");
    }
    void putList(std::string_view name, std::string_view bytes) const {
        put("Perfis/Listas/" + std::string(name), bytes);
    }
    Texts values() {
        return {host.value(L"h"), host.value(L"b"), host.value(L"t"), host.value(L"a")};
    }
    void run(const Texts& actions) {
        host.clearEvents();
        host.play(actions);
        draw(pilaminado);
    }
    DialogStandIn host;
};

TEST_F(RolledDialog, OpensOnTheFirstSizeOfTheFirstSource) {
    run({});
    EXPECT_EQ(values(), (Texts{L"150", L"100", L"5", L"4"}));
    EXPECT_EQ(host.value(L"vilam_dlg"), L"I Laminado - Açominas");
    EXPECT_EQ(host.value(L"list_title"), L"Bitolas");
    EXPECT_EQ(host.value(L"rd_acominas"), L"1");
    for (const wchar_t* key : {L"addtolist", L"substolist", L"deltolist"})
        EXPECT_EQ(host.mode(key), 1) << key;
    EXPECT_TRUE(host.has(L"lista lista: W A|W B||W C"));
    EXPECT_TRUE(host.has(L"lista ins_list: RIGHT DOWN|MID DOWN|LEFT DOWN|CENTER"));
    EXPECT_EQ(host.loads(), 1);
}

TEST_F(RolledDialog, EverySourceRemembersItsOwnSize) {
    run({L"lista=3", L"rd_europe=1", L"lista=1", L"rd_acominas=1"});
    EXPECT_EQ(values(), (Texts{L"300", L"150", L"7", L"5"}));  // the blank row keeps its place
    EXPECT_EQ(host.value(L"lista"), L"3");
    EXPECT_TRUE(host.has(L"valor vilam_dlg: I Laminado - Europeus"));
    EXPECT_TRUE(host.has(L"valor list_title: Tipo\tH\tKg/m"));
    run({L"lista=3", L"rd_europe=1", L"lista=1", L"rd_acominas=1", L"rd_europe=1"});
    EXPECT_EQ(values(), (Texts{L"200", L"100", L"8.5", L"5.6"}));
    run({L"lista=1", L"rd_acominas=1", L"lista=2"});  // in force already
    EXPECT_EQ(host.eventsOf(L"lista").size(), 2u);    // the opening's two lists
    EXPECT_EQ(values(), (Texts{L"", L"", L"", L""}));
}

TEST_F(RolledDialog, ARowThatWasFoundKeepsItsData) {
    run({L"busca=w c", L"lista=0"});
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: W C");
    EXPECT_EQ(values(), (Texts{L"300", L"150", L"7", L"5"}));
    run({L"busca=200x110", L"lista=0", L"rd_europe=1", L"busca=200\n", L"rd_acominas=1"});
    EXPECT_EQ(host.value(L"busca"), L"");
    EXPECT_EQ(host.value(L"lista"), L"1");
    EXPECT_EQ(values(), (Texts{L"200", L"110", L"6", L"4.5"}));
    EXPECT_TRUE(host.has(L"valor h: 200"));
    EXPECT_TRUE(host.has(L"valor b: 100"));  // of the European one
    run({L"h=300", L"b=150", L"t=7", L"a=5"});
    EXPECT_EQ(host.value(L"lista"), L"3");
}

TEST_F(RolledDialog, TheRememberedSizeComesBackAfterTheViews) {
    host.play({L"rd_europe=1", L"lista=1", L"h=999", L"vista0=0", L"OutraVista"});
    host.play({L"l=10", L"accept"});
    draw(pilaminado);
    EXPECT_TRUE(host.has(L"valor h: 999"));  // as it was left
    EXPECT_EQ(values(), (Texts{L"200", L"100", L"8.5", L"5.6"}));
    EXPECT_EQ(host.value(L"rd_europe"), L"1");
    EXPECT_EQ(host.value(L"lista"), L"1");
    EXPECT_EQ(host.mode(L"fig4"), 0);
    EXPECT_EQ(host.loads(), 2);  // its own file once, that of the views once
}

TEST_F(RolledDialog, ASizeWithoutDataEndsTheDialog) {
    putList("DadosAcoMinas.lst", "150\t100\t5\t4\t13\n200\t110\t6\t4.5\t15\n\n");
    run({L"lista=3", L"lista=1"});
    EXPECT_EQ(host.eventsOf(L"texto"),
              Texts{L"Listas de favoritos inconsistentes. Contate o suporte.\n"});
    EXPECT_EQ(values(), (Texts{L"150", L"100", L"5", L"4"}));  // nothing after it was heard
    EXPECT_EQ(host.eventsOf(L"abre").size(), 1u);
}

TEST_F(RolledDialog, AMissingFileLeavesWhatWasThere) {
    run({L"rd_usa=1"});
    EXPECT_EQ(host.value(L"vilam_dlg"), L"I Laminado - Açominas");
    EXPECT_EQ(host.eventsOf(L"lista").size(), 2u);
    putList("vi_usa.lst", "76.2\t8.48\n101.6\t11.46\n");
    run({L"rd_usa=1", L"lista=1"});  // sizes of the new source, data of the old one
    EXPECT_EQ(host.eventsOf(L"lista").back(), L"lista: 76.2\t8.48|101.6\t11.46");
    EXPECT_EQ(host.value(L"vilam_dlg"), L"I Laminado - Açominas");
    EXPECT_EQ(values(), (Texts{L"200", L"110", L"6", L"4.5"}));
    std::filesystem::remove(folder() / "Perfis/Listas/BitolasAcoMinas.lst");
    DialogStandIn other;
    draw(pilaminado);
    EXPECT_EQ(other.value(L"h"), L"0");
    EXPECT_TRUE(other.eventsOf(L"texto").empty());
}

}  // namespace
}  // namespace perfis
