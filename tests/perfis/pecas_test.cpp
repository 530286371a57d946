// SPDX-License-Identifier: MIT
// Tables of pieces however a spreadsheet writes them; words of lines.
#include <gtest/gtest.h>

#include "perfis/pecas/table.h"
#include "prancheta/base/text.h"

namespace perfis {
namespace {

/// "2: U 200x75x3 l=6000 n=4 @10,20 90" for each row, and for each fault "3 (coluna)".
std::string inWords(const PecaTable& table) {
    std::string text;
    const auto number = [](double value) { return prancheta::toUtf8(std::to_wstring(value)); };
    for (const TableRow& row : table.rows) {
        text += std::to_string(row.line) + ": " + prancheta::toUtf8(row.piece.designation);
        for (const auto& [key, value] : row.piece.values)
            text += " " + prancheta::toUtf8(key + L"=" + value);
        if (row.piece.cotas) text += " cotas";
        if (row.x) text += " @" + number(*row.x) + "," + number(*row.y) + " " + number(row.degrees);
        text += "\n";
    }
    for (const TableFault& fault : table.faults)
        text += std::to_string(fault.line) + " (" + prancheta::toUtf8(fault.column) + ")\n";
    return text;
}

TEST(PecaTableTest, TheWayOfWritingIsFoundOut) {
    using namespace std::string_literals;
    const std::string place = " @10.500000,-20.000000 90.000000\n";
    const struct {
        const char* what;
        std::string bytes;
        std::string expected;
    } kFiles[] = {
        {"semicolons, a decimal comma and points of groups",
         "peca;L;n;marca;vista;x;y;angulo\n"
         "U 200x75x3;6.000,5;4;V 1;3;10,5;-20;90\nU 100x50x2;6.000;;;;;;\n",
         "2: U 200x75x3 l=6000,5 marca=V 1 n=4 vista=3" + place + "3: U 100x50x2 l=6000\n"},
        {"commas, a decimal point, quotation marks, a mark of UTF-8, lines of Windows",
         "\xEF\xBB\xBFpe\xC3\xA7"
         "a,L,x,y,\xC3\xA2ngulo\r\n"
         "\"Ue 200x75x20x2,65\",6000.5,10.5,-20,90\r\n",
         "2: Ue 200x75x20x2,65 l=6000,5" + place},
        {"commas of groups", "peca,L\nU 200x75x3,\"6,000.5\"\nU 200x75x3,\"12,000.0\"\n",
         "2: U 200x75x3 l=6000,5\n3: U 200x75x3 l=12000\n"},
        {"tabs, an old code page, an empty line, inches in a cell",
         "pe\xE7"
         "a\tL\ta\xE7o\n\nL 2\"x1/4\"\t1000\tA36\n",
         "3: L 2\"x1/4\" aco=A36 l=1000\n"},
        {"one text a line, with and without a title", "texto\nU 200x75x2,65 L=6000 cotas\n",
         "2: U 200x75x2,65 l=6000 cotas\n"},
        {"one text a line, decimal comma", "U 200x75x2,65 L=1,5", "1: U 200x75x2,65 l=1,5\n"},
        {"no title", "U 200x75x3;6000;;;;10,5;-20;90", "1: U 200x75x3 l=6000" + place},
        {"a separator that is said", "sep=,\npeca,L\nU 200x75x3,1\n", "3: U 200x75x3 l=1\n"},
        {"two bytes a letter", "\xFF\xFEp\0e\0c\0a\0\n\0U\0 \0001\0\n\0"s, "2: U 1\n"},
        {"a cell of two lines", "peca;L\n\"U\n1\";2\nU 3;x\n", "2: U\n1 l=2\n4 (L)\n"},
        {"faults by line and column",
         "peca;L;cotas;x;y\nU 1;abc;;;\nU 2;1;sim;3;\n;;;;\nU 4;1;;;;9\nlistas=1;2;;;\n",
         "2 (L)\n3 (y)\n5 ()\n6 (peca)\n"},
        {"columns that nobody knows", "peca;largura;L;L\nU 1;2;3;4\n", "1 (largura)\n1 (L)\n"},
        {"nothing", "", ""},
    };
    for (const auto& file : kFiles)
        EXPECT_EQ(inWords(readTable(file.bytes)), file.expected) << file.what;
}

TEST(PecaLineTest, WordsAreKeysValuesAndTheRest) {
    const struct {
        const wchar_t* text;
        const wchar_t* expected;  ///< designation, values, fault
    } kLines[] = {
        {L" Ue 200 x 75 cotas L=6000 MARCA=\"V 1\" ", L"Ue 200 x 75|l=6000|marca=V 1||"},
        {L"A\u00C7O=A36 L 2\"x1/4\"", L"L 2\"x1/4\"|aco=A36||"},
        {L"2U [] 200x75x3 l=300 L=6000", L"2U [] 200x75x3|a=300|l=6000||"},
        {L"U 1 l=300", L"U 1|l=300||"},
        {L"U n=1 N=2", L"U|n=1||N= foi dito duas vezes."},
        {L"U marca=\"V1", L"U||Falta fechar as aspas de marca=."},
        {L"U L=", L"U||Falta o valor de L=."},
        {L"U marcas=1",
         L"U||N\u00E3o sei o que \u00E9 \"marcas\"; a palavra mais pr\u00F3xima \u00E9 "
         L"marca=."},
        {L"U qwertz=1", L"U||N\u00E3o sei o que \u00E9 \"qwertz\"."},
    };
    for (const auto& row : kLines) {
        PecaLine line;
        const std::wstring fault = readLine(row.text, line);
        std::wstring text = line.designation + L"|";
        for (const auto& [key, value] : line.values) text += key + L"=" + value + L"|";
        EXPECT_EQ(prancheta::toUtf8(text + L"|" + fault), prancheta::toUtf8(row.expected));
    }
}

}  // namespace
}  // namespace perfis
