// SPDX-License-Identifier: MIT
// Text in, tree or message out.
#include <gtest/gtest.h>

#include "prancheta/dcl/build.h"
#include "prancheta/dcl/parser.h"
#include "support.h"

using namespace prancheta;
using namespace prancheta::dcl;

namespace {

/// Findings, then the tree of the dialog "d"; or the message of a failed load.
std::string read(const std::string& text) {
    Result<Library> library = parseText(text, "t.dcl");
    if (!library) return library.error().message();
    std::string out;
    for (const Finding& finding : library->findings) out += finding.error.message() + "\n";
    const auto it = library->definitions.find("d");
    return it == library->definitions.end() ? out : out + dcltest::printTree(*build(it->second));
}

struct Case {
    const char* text;
    const char* expected;
};

void expectAll(std::initializer_list<Case> cases) {
    for (const Case& c : cases) EXPECT_EQ(read(c.text), c.expected) << c.text;
}

std::string repeated(const std::string& text, int times) {
    std::string out;
    for (int i = 0; i < times; ++i) out += text;
    return out;
}

}  // namespace

TEST(DclParser, TreesOfWellFormedFiles) {
    expectAll({
        {"d:dialog{label=\"a\\\"b\\\\c\\td\";}", "dialog label=a\"b\\c\td\n"},
        {"// one\n/* two\n * } */ d : dialog { /**/ key = \"k\"; // three\n }", "dialog k\n"},
        {"d : dialog { : row { : edit_box { key = \"h\"; width = 0.5; minha = -3; } spacer_0; } }",
         "dialog\n  row\n    edit_box h minha=-3 width=0.5\n    spacer height=0 width=0\n"},
        {"a : text { label = \"esquerda\"; alignment = top; }\n"
         "b : edit_box { label = \"direita\"; edit_width = 5; alignment = left; }\n"
         "d : dialog { : x {} }\n"
         "x : a : b { alignment = right; }\n"
         "d : dialog { : x { value = \"v\"; } }",
         "t.dcl:3:16: \"x\" é usado antes de ser definido (linha 4)\n"
         "dialog\n  text alignment=right edit_width=5 label=esquerda value=v\n"},
        {"par : row { : text { label = \"1\"; } : text { label = \"2\"; } } d : dialog { par; par; "
         "}",
         "dialog\n  row\n    text label=1\n    text label=2\n  row\n    text label=1\n    text "
         "label=2\n"},
        {"d : dialog { ok_cancel; errtile; }",
         "dialog\n  row alignment=centered children_equal_width=true\n"
         "    button accept alignment=centered is_default=true label=OK width=8\n"
         "    button cancel alignment=centered is_cancel=true label=Cancelar width=8\n"
         "  text error width=35\n"},
        {"d : dialog { ok_only; }",
         "dialog\n  row alignment=centered children_equal_width=true\n"
         "    button accept alignment=centered is_cancel=true is_default=true label=OK width=8\n"},
        // A physical line end inside quotes belongs to the text.
        {"d : dialog { label = \"uma\r\nduas\"; }", "dialog label=uma\nduas\n"},
        {"button : text { label = \"meu\"; } d : dialog { : button { } }",
         "dialog\n  text label=meu\n"},
    });
}

TEST(DclParser, MessagesOfWrongSyntax) {
    expectAll({
        {"d : dialog { width = .5; }",
         "t.dcl:1:22: esperava um algarismo antes do ponto: escreva 0.5, e não .5"},
        {"d : dialog { width = -; }", "t.dcl:1:22: esperava um número, encontrei \";\""},
        {"d : dialog { width = 12a; }", "t.dcl:1:24: esperava o fim do número 12, encontrei \"a\""},
        {"d : dialog { label = \"ação\" }",
         "t.dcl:1:29: esperava \";\" depois do valor de \"label\", encontrei \"}\""},
        {"d : dialog {\n  label = ; }",
         "t.dcl:2:11: esperava um valor para \"label\", encontrei \";\""},
        {"d dialog { }", "t.dcl:1:3: esperava \":\" depois de \"d\", encontrei o nome \"dialog\""},
        {"d : { }", "t.dcl:1:5: esperava o nome de um componente, encontrei \"{\""},
        {"d : dialog { row }",
         "t.dcl:1:18: esperava \"=\" ou \";\" depois de \"row\", encontrei \"}\""},
        {"d : dialog { : row ; }", "t.dcl:1:20: esperava \"{\", encontrei \";\""},
        {"d : dialog {\n : row {\n }\n",
         "t.dcl:4:1: esperava \"}\" para a chave aberta na linha 1, encontrei o fim do arquivo"},
        {"}", "t.dcl:1:1: esperava o nome de uma definição ou @include, encontrei \"}\""},
        {"d : dialog { /* sem fim ",
         "t.dcl:1:14: o comentário aberto aqui não é fechado: esperava \"*/\""},
        {"d : dialog { label = \"abc; }",
         "t.dcl:1:22: o texto aberto aqui não é fechado: esperava a aspa final"},
        {"d : dialog {\nlabel = \"abc;\nkey = \"h\";\n}",
         "t.dcl:3:8: esperava \";\" depois do valor de \"label\", encontrei o nome \"h\" (o texto "
         "aberto na "
         "linha 2 veio até aqui: falta a aspa que o fecha?)"},
        {"d : dialog { label = \"C:\\pasta\"; }",
         "t.dcl:1:25: esperava n, t, \" ou \\ depois da barra invertida, encontrei \"p\": uma "
         "barra invertida "
         "no texto escreve-se \\\\"},
        {"d : dialog { é = 1; }",
         "t.dcl:1:14: esperava um nome, um valor ou pontuação, encontrei \"é\""},
        {"@include pu.dcl",
         "t.dcl:1:10: esperava o nome do arquivo entre aspas depois de @include, encontrei o nome "
         "\"pu\""},
        {"dcl_settings : default_dcl_settings { audit_level = 7; }",
         "t.dcl:1:53: esperava 0, 1, 2 ou 3 em audit_level, encontrei \"7\""},
    });
}

TEST(DclParser, FindingsOfTheFirstLevel) {
    expectAll({
        {"d : dialog { desconhecido; : outro { label = \"x\"; } : text {} }",
         "t.dcl:1:14: não conheço o componente \"desconhecido\"\n"
         "t.dcl:1:30: não conheço o componente \"outro\"\ndialog\n  text\n"},
        {"a : b { } b : c { } c : row { a; }",
         "t.dcl:1:5: as definições formam um círculo: a → b → c → a\n"
         "t.dcl:1:15: as definições formam um círculo: b → c → a → b\n"},
        {"a : a { }", "t.dcl:1:5: as definições formam um círculo: a → a\n"},
        {"d : dialog { : ok_cancel { label = \"x\"; } }",
         "t.dcl:1:16: \"ok_cancel\" já tem componentes e não pode ser alterado: use "
         "\"ok_cancel;\"\n"
         "dialog\n  row alignment=centered children_equal_width=true\n"
         "    button accept alignment=centered is_default=true label=OK width=8\n"
         "    button cancel alignment=centered is_cancel=true label=Cancelar width=8\n"},
        {"d : dialog {\n : toggle { key = \"a\"; }\n : row {\n  : toggle { key = \"a\"; } } }",
         "t.dcl:4:5: a chave \"a\" já é usada na linha 2\ndialog\n  toggle a\n  row\n    toggle "
         "a\n"},
        {"d : dialog { : row { : radio_button { } } : radio_row { : toggle { } } }",
         "t.dcl:1:24: radio_button fora de um grupo de opções\n"
         "t.dcl:1:59: um grupo de opções só pode ter radio_button, encontrei toggle\n"
         "dialog\n  row\n    radio_button\n  radio_row\n    toggle\n"},
        {"e : dialog { } d : dialog { e; : button { : text { } } }",
         "t.dcl:1:45: button não pode ter outros componentes dentro: eles são deixados de fora\n"
         "t.dcl:1:29: uma caixa de diálogo não pode ficar dentro de outro componente\ndialog\n  "
         "button\n"},
        // Findings of the higher levels stay untold.
        {"d : dialog { : toggle { is_enabled = True; } }", "dialog\n  toggle is_enabled=True\n"},
    });
}

TEST(DclParser, AuditLevels) {
    const std::string settings = "dcl_settings : default_dcl_settings { audit_level = ";
    const std::string body =
        " } d : dialog {\n: image { width = 5; color = rosa; }\n"
        ": button { fixed_height = true; is_tab_stop = True; }\n: list_box { tabs = \"8 4\"; }\n"
        ": edit_box { edit_limit = 300; width = \"9\"; mnemonic = \"z\"; label = \"abc\"; }\nnada; "
        "}";
    const auto findings = [&](const char* level) {
        std::string out = read(settings + level + ";" + body);
        return out.substr(0, out.find("dialog\n"));
    };
    const std::string error = "t.dcl:6:1: não conheço o componente \"nada\"\n";
    const std::string hint = "t.dcl:3:12: o atributo \"fixed_height\" repete o valor herdado\n";
    const std::string warnings =
        "t.dcl:2:30: esperava um nome de cor ou um número de 0 a 255 em \"color\", encontrei "
        "\"rosa\"\n"
        "t.dcl:2:3: image precisa de width e height, ou de um deles com aspect_ratio\n"
        "t.dcl:3:47: esperava true ou false em \"is_tab_stop\", encontrei \"True\"\n"
        "t.dcl:4:21: esperava posições crescentes, como \"8 16 24\" em \"tabs\", encontrei \"8 "
        "4\"\n"
        "t.dcl:5:27: esperava um número de 0 a 256 em \"edit_limit\", encontrei \"300\"\n"
        "t.dcl:5:40: esperava um número em \"width\", encontrei \"9\"\n"
        "t.dcl:5:56: a letra \"z\" de mnemonic não está em label\n";
    EXPECT_EQ(findings("0"), "");
    EXPECT_EQ(findings("1"), error);
    EXPECT_EQ(findings("2"), error + warnings);
    EXPECT_EQ(findings("3"), hint + error + warnings);
}

TEST(DclParser, DamagedAndHostileTexts) {
    const std::string good =
        "@include \"nada\" a : row : column { key = \"x\\n\"; w = -1.5; : text { b = true; } /* c "
        "*/ sp; }";
    for (std::size_t length = 0; length < good.size(); ++length) {
        (void)parseText(good.substr(0, length), "t.dcl");
        std::string damaged = good;
        damaged[length] = '\xFF';
        (void)parseText(damaged, "t.dcl");
    }
    EXPECT_NE(read("d : dialog " + repeated("{ : row ", 100000)).find("um dentro do outro"),
              std::string::npos);
    std::string doubling = "a0 : row { : text { } }";
    for (int i = 1; i < 40; ++i) {
        const std::string before = "a" + std::to_string(i - 1) + ";";
        doubling += "a" + std::to_string(i) + " : row { " + before + before + " }";
    }
    EXPECT_NE(read(doubling).find("componentes demais"), std::string::npos);
    std::string deep = "a0 : row { : text { } }";
    for (int i = 1; i < 2000; ++i)
        deep += "a" + std::to_string(i) + " : row { a" + std::to_string(i - 1) + "; }";
    EXPECT_NE(read(deep).find("um dentro do outro"), std::string::npos);
    EXPECT_NE(
        read("d : dialog { label = \"" + std::string(100000, 'x') + "\"; }").find("longo demais"),
        std::string::npos);
}
