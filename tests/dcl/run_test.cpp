// SPDX-License-Identifier: MIT
// Open dialogs: callbacks in their order, values, modes, lists, images, ends.
#include <gtest/gtest.h>

#include "prancheta/base/text.h"
#include "prancheta/slides/library.h"
#include "support.h"

using namespace prancheta;
using namespace prancheta::dcl;
using dcltest::calls;
using dcltest::note;
using dcltest::openText;
using dcltest::run;
using dcltest::valueOf;

namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view kForm = R"(d : dialog { label = "Título"; key = "dlg";
  : row {
    : list_box { key = "lista"; list = "um\ndois\ntrês"; allow_accept = true; }
    : column { key = "grupo";
      : edit_box { key = "h"; edit_limit = 5; }
      : edit_box { key = "b"; allow_accept = true; }
      : toggle { key = "vista"; value = "1"; }
      : popup_list { key = "ins"; }
      : slider { key = "sl"; min_value = 10; max_value = -10; small_increment = 2; value = "50"; } } }
  : radio_row { key = "tipo"; : radio_button { key = "r1"; value = "1"; } : radio_button { key = "r2"; value = "1"; }
                : radio_button { key = "r3"; is_enabled = false; } }
  : list_box { key = "varias"; list = "a\nb\nc"; multiple_select = true; value = "2 0 7"; }
  : image { key = "fig"; width = 10; height = 5; } : image_button { key = "botao"; width = 10; height = 5; }
  : button { key = "fazer"; label = "Fazer"; minha = "x"; } errtile; ok_cancel; })";

void actions(ads_hdlg dialog, std::initializer_list<const wchar_t*> keys) {
    for (const wchar_t* key : keys) EXPECT_EQ(ads_action_tile(dialog, key, note), RTNORM);
    calls().clear();
}

std::string whyNot(const Result<void>& result) { return result ? "feito" : result.error().text; }

class DclRun : public testing::Test {
protected:
    void TearDown() override {
        discardDialogs();
        EXPECT_EQ(openDialogs(), 0);
        EXPECT_EQ(dcltest::printed(), "");
    }
    ads_hdlg form = openText(kForm);
};

}  // namespace

TEST_F(DclRun, FirstStateComesFromTheFile) {
    const std::pair<const wchar_t*, const char*> expected[] = {
        {L"dlg", "Título"}, {L"lista", ""}, {L"h", ""},         {L"vista", "1"},
        {L"ins", ""},       {L"sl", "10"},  {L"tipo", "r2"},    {L"r1", "0"},
        {L"r2", "1"},       {L"fig", ""},   {L"varias", "0 2"}, {L"error", ""},
    };
    for (const auto& [key, value] : expected) EXPECT_EQ(valueOf(form, key), value) << toUtf8(key);
    wchar_t text[10] = L"?????????";
    EXPECT_EQ(ads_get_attr(form, L"fazer", L"minha", text, 9), RTNORM);
    EXPECT_STREQ(text, L"x");
    EXPECT_EQ(ads_get_tile(form, L"dlg", text, 3), RTNORM);
    EXPECT_STREQ(text, L"Tít");
    EXPECT_EQ(ads_get_tile(form, L"Lista", text, 9), RTERROR);
    EXPECT_STREQ(text, L"");
}

TEST_F(DclRun, UnknownKeysAndHandlesAreRefusedQuietly) {
    short x = 0;
    for (ads_hdlg h : {form, ads_hdlg(nullptr), reinterpret_cast<ads_hdlg>(&x)}) {
        EXPECT_EQ(ads_set_tile(h, L"nada", L"1"), RTERROR);
        EXPECT_EQ(ads_action_tile(h, L"nada", note), RTERROR);
        EXPECT_EQ(ads_mode_tile(h, L"nada", 0), RTERROR);
        EXPECT_EQ(ads_start_list(h, L"nada", 3, 0), RTERROR);
        EXPECT_EQ(ads_start_image(h, L"nada"), RTERROR);
        EXPECT_EQ(ads_dimensions_tile(h, L"nada", &x, &x), RTERROR);
    }
    EXPECT_EQ(ads_done_dialog(nullptr, 1), RTERROR);
    int status = 7;
    EXPECT_EQ(ads_start_dialog(nullptr, &status), RTERROR);
    EXPECT_EQ(status, DLGCANCEL);
    EXPECT_EQ(ads_start_dialog(form, &status), RTERROR) << "no front end serves";
    EXPECT_EQ(openDialogs(), 0);
}

TEST_F(DclRun, SetTileFollowsTheKindAndFiresNothing) {
    actions(form, {L"lista", L"vista", L"tipo", L"r1", L"r2", L"sl", L"h"});
    const struct {
        const wchar_t *key, *value;
        const char *result, *other;
        const wchar_t* otherKey;
    } steps[] = {
        {L"lista", L"2", "2", "0", L"r1"},      {L"lista", L"3", "2", "0", L"r1"},
        {L"lista", L"", "", "0", L"r1"},        {L"vista", L"sim", "0", "0", L"r1"},
        {L"tipo", L"r1", "r1", "1", L"r1"},     {L"r2", L"1", "1", "r2", L"tipo"},
        {L"r2", L"0", "0", "", L"tipo"},        {L"r3", L"1", "1", "r3", L"tipo"},
        {L"tipo", L"", "", "0", L"r3"},         {L"sl", L"-99", "-10", "0", L"r1"},
        {L"sl", L" 4,5 mm", "4", "0", L"r1"},   {L"h", L"texto longo", "texto longo", "0", L"r1"},
        {L"varias", L"2 1", "1 2", "0", L"r1"}, {L"dlg", L"Novo", "Novo", "0", L"r1"},
    };
    for (const auto& s : steps) {
        EXPECT_EQ(ads_set_tile(form, s.key, s.value), RTNORM) << toUtf8(s.key);
        EXPECT_EQ(valueOf(form, s.key), s.result) << toUtf8(s.key) << "=" << toUtf8(s.value);
        EXPECT_EQ(valueOf(form, s.otherKey), s.other) << toUtf8(s.key) << "=" << toUtf8(s.value);
    }
    EXPECT_EQ(ads_set_tile(form, L"tipo", L"inexistente"), RTERROR);
    EXPECT_EQ(ads_set_tile(form, L"sl", L"abc"), RTERROR);
    EXPECT_EQ(ads_set_tile(form, L"lista", L"um"), RTERROR);
    EXPECT_TRUE(calls().empty());
}

TEST_F(DclRun, EditBoxIsLeftBeforeTheOtherCallback) {
    actions(form, {L"h", L"fazer", L"lista", L"accept"});
    const int status = run(form, [](Dialog& d) {
        EXPECT_EQ(whyNot(d.edit("h", "12")), "feito");
        EXPECT_TRUE(calls().empty());
        EXPECT_EQ(whyNot(d.press("accept")), "feito");
        EXPECT_FALSE(d.finished()) << "with a callback only the program closes";
        EXPECT_EQ(whyNot(d.type("h", "34")), "feito");
        EXPECT_EQ(whyNot(d.press("fazer")), "feito");
        d.escape();
        EXPECT_TRUE(d.finished());
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(calls(), (Lines{"h:2:12", "accept:1:", "h:2:34", "fazer:1:"}));
}

TEST_F(DclRun, AFieldThatReportsTypingFiresAtEveryLetter) {
    const ads_hdlg dialog = openText(
        "d : dialog { : edit_box { key = \"busca\"; reports_typing = true; } ok_cancel; }");
    actions(dialog, {L"busca"});
    run(dialog, [](Dialog& d) {
        EXPECT_EQ(whyNot(d.edit("busca", "2")), "feito");
        EXPECT_EQ(whyNot(d.edit("busca", "20")), "feito");
        EXPECT_EQ(whyNot(d.enter("busca")), "feito");
        EXPECT_FALSE(d.finished());
        EXPECT_EQ(whyNot(d.type("busca", "3")), "feito");  // a whole answer is one change
        EXPECT_EQ(whyNot(d.edit("busca", "x")), "feito");
        EXPECT_EQ(whyNot(d.press("accept")), "feito");
    });
    EXPECT_EQ(calls(), (Lines{"busca:3:2", "busca:3:20", "busca:1:20", "busca:2:3", "busca:3:x",
                              "busca:2:x"}));
}

TEST_F(DclRun, PersonsActionsFireWithTheNewValue) {
    actions(form, {L"lista", L"h", L"b", L"vista", L"sl", L"tipo", L"r1", L"botao", L"varias"});
    const int status = run(form, [](Dialog& d) {
        EXPECT_EQ(whyNot(d.type("lista", "1")), "feito");
        EXPECT_EQ(whyNot(d.type("vista", "0")), "feito");
        EXPECT_EQ(whyNot(d.type("vista", "0")), "feito");  // stands so already: no click
        EXPECT_EQ(whyNot(d.drag("sl", "3")), "feito");
        EXPECT_EQ(whyNot(d.type("sl", "-4")), "feito");
        EXPECT_EQ(whyNot(d.type("tipo", "r1")), "feito");
        EXPECT_EQ(whyNot(d.type("tipo", "r2")), "feito");
        EXPECT_EQ(whyNot(d.press("r1")), "feito");
        EXPECT_EQ(whyNot(d.type("r2", "1")), "feito");
        EXPECT_EQ(whyNot(d.press("botao")), "feito");
        EXPECT_EQ(whyNot(d.type("varias", "2 0")), "feito");
        EXPECT_EQ(whyNot(d.type("b", "ação")), "feito");
        EXPECT_EQ(whyNot(d.enter("h")), "feito");
        EXPECT_FALSE(d.finished()) << "h has no allow_accept";
        EXPECT_EQ(whyNot(d.enter("b")), "feito");
    });
    EXPECT_EQ(status, 1);
    EXPECT_EQ(calls(), (Lines{"lista:1:1", "vista:1:0", "sl:3:3", "sl:1:-4", "r1:1:1", "tipo:1:r1",
                              "tipo:1:r2", "r1:1:1", "tipo:1:r1", "tipo:1:r2",
                              "botao:1:", "varias:1:0 2", "b:2:ação", "h:1:", "b:1:ação"}));
}

TEST_F(DclRun, WhatAPersonCannotDo) {
    EXPECT_EQ(ads_mode_tile(form, L"fazer", MODE_DISABLE), RTNORM);
    actions(form, {L"lista", L"h", L"vista", L"sl", L"tipo", L"fazer"});
    run(form, [this](Dialog& d) {
        const std::pair<std::string, std::string> cases[] = {
            {whyNot(d.press("nada")), "não há o componente \"nada\" na caixa de diálogo \"d\""},
            {whyNot(d.press("fazer")), "\"fazer\" está desabilitado"},
            {whyNot(d.type("lista", "3")),
             "a linha 3 não existe: \"lista\" tem 3 linhas, contadas a partir de 0"},
            {whyNot(d.type("lista", "um")), "\"um\" não é o número de uma linha de \"lista\""},
            {whyNot(d.type("lista", "0 1")), "em \"lista\" só se escolhe uma linha por vez"},
            {whyNot(d.doubleClick("lista", "")), "\"\" não é o número de uma linha de \"lista\""},
            {whyNot(d.type("ins", "0")), "\"ins\" não tem linhas"},
            {whyNot(d.type("vista", "2")), "\"vista\" só pode ficar em 0 ou 1, e não em \"2\""},
            {whyNot(d.type("h", "123456")), "\"h\" aceita até 5 caracteres, e o texto tem 6"},
            {whyNot(d.type("b", std::string(133, 'x'))),
             "\"b\" aceita até 132 caracteres, e o texto tem 133"},
            {whyNot(d.type("sl", "11")), "\"sl\" vai de -10 a 10, e não chega a 11"},
            {whyNot(d.type("sl", "1.5")), "\"1.5\" não é um número inteiro para \"sl\""},
            {whyNot(d.type("tipo", "r9")), "\"tipo\" não tem o botão \"r9\""},
            {whyNot(d.type("tipo", "r3")), "\"r3\" está desabilitado"},
            {whyNot(d.type("r1", "0")),
             "\"r1\" só recebe 1: um botão de opção se desliga ligando outro"},
            {whyNot(d.type("error", "x")), "\"error\" é um texto fixo: não responde ao usuário"},
            {whyNot(d.press("fig")), "\"fig\" é uma imagem fixa: não responde ao usuário"},
            {whyNot(d.press("h")), "\"h\" é uma caixa de edição, e não um botão: dê o seu valor"},
            {whyNot(d.type("accept", "1")),
             "\"accept\" é um botão: aperte-o, ele não recebe valor"},
            {whyNot(d.doubleClick("h", "0")),
             "\"h\" é uma caixa de edição: o clique duplo só serve para listas e botões de imagem"},
        };
        for (const auto& [got, expected] : cases) EXPECT_EQ(got, expected);
        EXPECT_EQ(ads_mode_tile(form, L"grupo", MODE_DISABLE), RTNORM);
        EXPECT_EQ(whyNot(d.type("h", "1")), "\"h\" está desabilitado com o grupo \"grupo\"");
        EXPECT_EQ(ads_mode_tile(form, L"grupo", MODE_ENABLE), RTNORM);
        EXPECT_EQ(valueOf(form, L"h"), "");
        EXPECT_TRUE(calls().empty()) << "nothing fired on the way";
        EXPECT_EQ(whyNot(d.press("cancel")), "feito");
        EXPECT_EQ(whyNot(d.type("h", "1")), "a caixa de diálogo \"d\" já foi fechada");
    });
}

TEST_F(DclRun, DoubleClickSelectsThenClicksThenAccepts) {
    actions(form, {L"lista"});
    EXPECT_EQ(run(form, [](Dialog& d) { EXPECT_EQ(whyNot(d.doubleClick("lista", "2")), "feito"); }),
              1);
    EXPECT_EQ(calls(), (Lines{"lista:1:2", "lista:4:2"}));
    // A program that refuses keeps the dialog open.
    form = openText(kForm);
    actions(form, {L"lista", L"b", L"accept"});
    run(form, [](Dialog& d) {
        EXPECT_EQ(whyNot(d.doubleClick("lista", "1")), "feito");
        EXPECT_EQ(whyNot(d.enter("b")), "feito");
        EXPECT_FALSE(d.finished());
    });
    EXPECT_EQ(calls(), (Lines{"lista:1:1", "lista:4:1", "accept:1:", "b:1:", "accept:1:"}));
}

TEST_F(DclRun, EndsAndTheirStatus) {
    struct {
        dcltest::Hand hand;
        int status;
    } ends[] = {
        {[](Dialog& d) { (void)d.press("accept"); }, 1},
        {[](Dialog& d) { (void)d.press("cancel"); }, 0},
        {[](Dialog& d) { (void)d.enter(); }, 1},
        {[](Dialog& d) { d.escape(); }, 0},
        {[](Dialog&) {}, 0},
        {[](Dialog& d) {
             (void)d.press("fazer");
             EXPECT_TRUE(d.finished());
         },
         10},
        {[](Dialog& d) {
             (void)d.press("botao");
             EXPECT_TRUE(d.finished());
         },
         -1},
    };
    for (const auto& end : ends) {
        const ads_hdlg dialog = openText(kForm);
        ads_action_tile(dialog, L"fazer", [](ads_callback_packet* p) {
            EXPECT_EQ(ads_done_dialog(p->dialog, 3), RTNORM);
            EXPECT_EQ(ads_done_dialog(p->dialog, 10), RTNORM);
            EXPECT_EQ(valueOf(p->dialog, L"vista"), "1") << "the callback goes on after done";
        });
        ads_action_tile(dialog, L"botao", [](ads_callback_packet* p) {
            EXPECT_EQ(ads_term_dialog(), RTNORM);
            (void)ads_done_dialog(p->dialog, 1);
        });
        EXPECT_EQ(run(dialog, end.hand), end.status);
        EXPECT_EQ(valueOf(dialog, L"vista"), "RTERROR") << "the handle is dead";
    }
    EXPECT_EQ(run(form, [](Dialog&) { FAIL() << "ended before it was started"; }), -1);
    // The callback of the edit box being left closes the dialog: the button is never pressed.
    form = openText(kForm);
    actions(form, {L"accept"});
    ads_action_tile(form, L"h",
                    [](ads_callback_packet* p) { (void)ads_done_dialog(p->dialog, 5); });
    const int status = run(form, [](Dialog& d) {
        (void)d.edit("h", "1");
        EXPECT_EQ(whyNot(d.press("accept")), "feito");
    });
    EXPECT_EQ(status, 5);
    EXPECT_TRUE(calls().empty());
}

TEST_F(DclRun, DefaultCallbackServesActiveTilesOnly) {
    const ads_hdlg dialog = openText(kForm, note);
    static int data = 0;
    ads_client_data_tile(dialog, L"fazer", &data);
    ads_action_tile(dialog, L"fazer",
                    [](ads_callback_packet* p) { ++*static_cast<int*>(p->client_data); });
    calls().clear();
    run(dialog, [](Dialog& d) {
        (void)d.press("fazer");
        (void)d.type("tipo", "r1");
        (void)d.press("accept");
        EXPECT_FALSE(d.finished());
        d.abandon();
    });
    EXPECT_EQ(data, 1);
    EXPECT_EQ(calls(), (Lines{"r1:1:1", "accept:1:"}));
}

namespace {

int depthReached = 0;
ads_hdlg outermost = nullptr;

/// Opens the same form again until the limit refuses it; every level ends with accept.
void nest(ads_callback_packet*) {
    const ads_hdlg inner = openText(kForm);
    if (inner == nullptr) return;
    ++depthReached;
    ads_action_tile(inner, L"fazer", nest);
    int status = 0;
    EXPECT_EQ(ads_start_dialog(inner, &status), RTNORM);
    EXPECT_EQ(status, 1);
}

}  // namespace

TEST_F(DclRun, NestedDialogsUpToEight) {
    depthReached = openDialogs();
    ads_set_tile(form, L"h", L"fora");
    ads_action_tile(form, L"fazer", nest);
    outermost = form;
    Dialog* outer = nullptr;
    const int status = run(form, [&](Dialog& d) {
        if (outer == nullptr) outer = &d;
        if (&d != outer) {
            EXPECT_EQ(whyNot(outer->press("accept")),
                      "há outra caixa de diálogo aberta sobre \"d\"");
            EXPECT_EQ(valueOf(outermost, L"h"), "fora");
            EXPECT_EQ(ads_start_dialog(outermost, nullptr), RTERROR);
        }
        EXPECT_EQ(whyNot(d.press("fazer")), "feito");
        EXPECT_EQ(whyNot(d.press("accept")), "feito");
    });
    EXPECT_EQ(status, 1);
    EXPECT_EQ(depthReached, 8);
}

TEST_F(DclRun, TermEndsAllLevels) {
    static int innerStatus;
    innerStatus = 99;
    ads_action_tile(form, L"fazer", [](ads_callback_packet*) {
        (void)openText(kForm);  // opened and forgotten
        const ads_hdlg inner = openText(kForm);
        ads_action_tile(inner, L"botao", [](ads_callback_packet*) { ads_term_dialog(); });
        ads_start_dialog(inner, &innerStatus);
    });
    const int status =
        run(form, [](Dialog& d) { (void)d.press(openDialogs() == 1 ? "fazer" : "botao"); });
    EXPECT_EQ(innerStatus, -1);
    EXPECT_EQ(status, -1);
    EXPECT_EQ(openDialogs(), 0);
}

TEST_F(DclRun, ListOperations) {
    EXPECT_EQ(ads_add_list(L"x"), RTERROR);
    EXPECT_EQ(ads_end_list(), RTERROR);
    EXPECT_EQ(ads_start_list(form, L"h", LIST_NEW, 0), RTERROR);
    ads_set_tile(form, L"lista", L"1");
    dcltest::Events events;
    EXPECT_EQ(ads_start_list(form, L"lista", LIST_NEW, 0), RTNORM);
    EXPECT_EQ(ads_start_list(form, L"ins", LIST_NEW, 0), RTERROR) << "one list at a time";
    EXPECT_EQ(ads_set_tile(form, L"h", L"1"), RTERROR) << "no set_tile meanwhile";
    EXPECT_EQ(ads_add_list(L"100\t50"), RTNORM);
    EXPECT_EQ(ads_add_list(L""), RTNORM);
    EXPECT_EQ(ads_end_list(), RTNORM);
    EXPECT_EQ(valueOf(form, L"lista"), "") << "a refill clears the selection";
    ads_set_tile(form, L"lista", L"1");
    EXPECT_EQ(ads_start_list(form, L"lista", LIST_APPEND, 0), RTNORM);
    EXPECT_EQ(ads_add_list(L"mais"), RTNORM);
    EXPECT_EQ(ads_end_list(), RTNORM);
    EXPECT_EQ(ads_start_list(form, L"lista", LIST_CHANGE, 3), RTERROR);
    EXPECT_EQ(ads_start_list(form, L"lista", LIST_CHANGE, 1), RTNORM);
    EXPECT_EQ(ads_add_list(L"trocada"), RTNORM);
    EXPECT_EQ(ads_add_list(L"demais"), RTERROR);
    EXPECT_EQ(ads_end_list(), RTNORM);
    EXPECT_EQ(valueOf(form, L"lista"), "1") << "changing rows keeps the selection";
    ads_start_list(form, L"ins", LIST_NEW, 0);
    ads_add_list(L"RIGHT DOWN");
    ads_end_list();
    EXPECT_EQ(valueOf(form, L"ins"), "0") << "a popup shows its first row";
    EXPECT_EQ(events.lines,
              (Lines{"lista chave=lista operacao=3 linhas=[100\t50|]", "valor chave=lista valor=1",
                     "lista chave=lista operacao=2 linhas=[mais]",
                     "lista chave=lista operacao=1 linhas=[trocada]",
                     "lista chave=ins operacao=3 linhas=[RIGHT DOWN]"}));
    run(form, [](Dialog& d) {
        EXPECT_EQ(d.find("lista")->rows,
                  (std::vector<std::wstring>{L"100\t50", L"trocada", L"mais"}));
    });
}

TEST_F(DclRun, ImagesKeepTheirPaints) {
    setMetrics({10, 20, {}});
    const ads_hdlg dialog =
        openText("d : dialog { : image { key = \"fig\"; width = 12; aspect_ratio = 1.5; } }");
    short cx = 0;
    short cy = 0;
    EXPECT_EQ(ads_fill_image(0, 0, 1, 1, 1), RTERROR);
    EXPECT_EQ(ads_dimensions_tile(dialog, L"fig", &cx, &cy), RTNORM);
    EXPECT_EQ(cx, 119);
    EXPECT_EQ(cy, 79);
    dcltest::Events events;
    EXPECT_EQ(ads_start_image(dialog, L"fig"), RTNORM);
    EXPECT_EQ(ads_start_image(dialog, L"fig"), RTERROR);
    EXPECT_EQ(ads_fill_image(0, 0, cx, cy, -15), RTNORM);
    EXPECT_EQ(ads_vector_image(0, 0, 10, 10, 1), RTNORM);
    EXPECT_EQ(ads_end_image(), RTNORM);
    EXPECT_EQ(ads_start_image(dialog, L"fig"), RTNORM);
    EXPECT_EQ(ads_fill_image(5, 5, 10, 10, 3), RTNORM);
    EXPECT_EQ(ads_end_image(), RTNORM);
    const auto paints = [](ads_hdlg h) {
        std::size_t count = 0;
        ads_action_tile(h, L"fig", nullptr);
        run(h, [&](Dialog& d) { count = d.find("fig")->paints.size(); });
        return count;
    };
    ads_start_image(dialog, L"fig");
    EXPECT_EQ(ads_slide_image(0, 0, cx, cy, L"C:\\nao(existe)\\Slides\\pu(secao)"), RTERROR);
    ads_end_image();
    EXPECT_EQ(paints(dialog), 4U) << "nothing covered the tile a second time";
    EXPECT_EQ(events.lines, (Lines{"imagem chave=fig slide=null cor=-15 achado=true",
                                   "imagem chave=fig slide=null cor=3 achado=true",
                                   "imagem chave=fig slide=pu(secao) cor=null achado=false",
                                   "fecha nome=d status=0"}));
    const ads_hdlg again =
        openText("d : dialog { : image { key = \"fig\"; width = 12; aspect_ratio = 1.5; } }");
    ads_start_image(again, L"fig");
    ads_vector_image(0, 0, 10, 10, 1);
    ads_fill_image(0, 0, cx, cy, -2);
    ads_end_image();
    EXPECT_EQ(paints(again), 1U) << "the fill hides what was there";
    setMetrics({});
}

TEST_F(DclRun, SlidesAreLookedForInTheirLibrary) {
    const dcltest::Folder folder;
    const slides::Slide picture{20, 10, 2.0, {{7, {{0, 0}, {19, 9}}}}};
    folder.write("Slides/PU.SLB",
                 slides::writeLibrary({{"SECAO", slides::writeSlide(picture)}}).value());
    const std::wstring library = folder.path().wstring() + L"\\Slides\\pu";
    dcltest::Events events;
    EXPECT_EQ(ads_start_image(form, L"botao"), RTNORM);
    EXPECT_EQ(ads_fill_image(0, 0, 9, 9, -2), RTNORM);
    EXPECT_EQ(ads_slide_image(0, 0, 9, 9, (library + L"(falta)").c_str()), RTERROR);
    EXPECT_EQ(ads_slide_image(0, 0, 9, 9, (library + L"(secao)").c_str()), RTNORM);
    EXPECT_EQ(ads_end_image(), RTNORM);
    EXPECT_EQ(events.lines, Lines{"imagem chave=botao slide=pu(secao) cor=-2 achado=true"});
    run(form, [](Dialog& d) {
        const std::vector<Paint>& paints = d.find("botao")->paints;
        ASSERT_EQ(paints.size(), 3U);
        EXPECT_FALSE(paints[1].found);
        EXPECT_TRUE(paints[2].found);
    });
}

TEST_F(DclRun, FocusFollowsModesAndLeavesWhatIsDisabled) {
    std::vector<std::string> asked;
    EXPECT_EQ(ads_mode_tile(form, L"error", MODE_SETFOCUS), RTERROR);
    EXPECT_EQ(ads_mode_tile(form, L"h", 5), RTERROR);
    EXPECT_EQ(ads_mode_tile(form, L"lista", MODE_SETSEL), RTERROR);
    EXPECT_EQ(ads_mode_tile(form, L"h", MODE_FLIP), RTERROR);
    run(form, [&](Dialog& d) {
        d.onFocus = [&](Tile& tile, short mode) {
            asked.push_back(tile.key + std::to_string(mode));
        };
        EXPECT_EQ(d.focus()->key, "lista");
        EXPECT_EQ(ads_mode_tile(form, L"h", MODE_SETFOCUS), RTNORM);
        EXPECT_EQ(ads_mode_tile(form, L"h", MODE_SETSEL), RTNORM);
        EXPECT_EQ(ads_mode_tile(form, L"h", MODE_DISABLE), RTNORM);
        EXPECT_EQ(d.focus()->key, "b");
        EXPECT_EQ(ads_mode_tile(form, L"grupo", MODE_DISABLE), RTNORM);
        EXPECT_EQ(d.focus()->key, "tipo");
        EXPECT_EQ(ads_mode_tile(form, L"botao", MODE_FLIP), RTNORM);
        EXPECT_TRUE(d.find("botao")->highlighted);
        // An edit box disabled while it is typed into is not left by anybody.
        ads_mode_tile(form, L"grupo", MODE_ENABLE);
        actions(form, {L"b"});
        EXPECT_EQ(whyNot(d.edit("b", "1")), "feito");
        ads_mode_tile(form, L"b", MODE_DISABLE);
        EXPECT_EQ(whyNot(d.press("accept")), "feito");
        EXPECT_TRUE(calls().empty());
    });
    EXPECT_EQ(asked, (Lines{"h2", "h3", "b2", "tipo2", "vista2"}));
}

TEST_F(DclRun, WhatHappensIsRecordedInItsOrder) {
    dcltest::Events events;
    const ads_hdlg dialog = openText(kForm);
    ads_action_tile(dialog, L"h", [](ads_callback_packet* p) {
        ads_set_tile(p->dialog, L"error", L"Erro: não");
    });
    ads_action_tile(dialog, L"tipo", note);
    ads_mode_tile(dialog, L"vista", MODE_DISABLE);
    ads_set_tile(dialog, L"nada", L"1");
    run(dialog, [](Dialog& d) {
        (void)d.type("h", "1.5");
        (void)d.type("vista", "0");
        (void)d.press("r1");
        (void)d.press("accept");
    });
    EXPECT_EQ(events.lines,
              (Lines{"dialogo nome=d arquivo=t.dcl resultado=5100", "modo chave=vista modo=1",
                     "acao chave=h valor=1.5 motivo=2", "valor chave=error valor=Erro: não",
                     "acao chave=tipo valor=r1 motivo=1", "fecha nome=d status=1"}));
}
