// SPDX-License-Identifier: MIT
// Material list: what is written into files, and what is asked before.
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "tests/zp/matlist.h"
#include "zp/matlist/formats.h"

namespace {

using namespace zp_tests;
using zp::matlist::Choice;

/// A row of so many pieces of an unit mass.
Linha pieces(const wchar_t* marca, int n, double mass, double length = 500.0) {
    return {marca, n, L"U", L"200x75x3", L"ACO", length, mass, n * mass, n * mass / 100, L""};
}

TEST_F(MaterialListTest, CsvForABrazilianSpreadsheet) {
    ui.mayComplain = true;
    std::vector<Linha> l;
    l.emplace_back(L"P1", 2, L"Ue", L"200x75x20x2,65", L"ACO", 1234.5, 7.75, 15.5, 0.75,
                   L"com \"aba\"; furada");
    l.emplace_back(L"-5", 1, L"=1+1", L"\t2", L"@A1", -5.0, -1.0, 1.0, 1.0, L"+\"x\"");
    // A spreadsheet would run the texts; numbers stay numbers.
    EXPECT_EQ(zp::matlist::csvText(zp::matlist::listingOf(zp::matlist::usualColumns(), l)),
              L"MARCA;QUANT.;DESCRIÇÃO;DIMENSÕES;MATERIAL;COMPR. (mm);PESO UNIT. (kg);"
              L"PESO TOTAL (kg);PINTURA (m2);OBSERVAÇÃO\r\n"
              L"'-5;1;'=1+1;'\t2;'@A1;-5,0;-1,00;-1,00;1,00;\"'+\"\"x\"\"\"\r\n"
              L"P1;2;Ue;200x75x20x2,65;ACO;1234,5;7,75;15,50;0,75;\"com \"\"aba\"\"; furada\"\r\n"
              L"TOTAL;;;;;;;14,50;1,75;\r\n");
    enter(1);
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / u8"zp_pe\u00E7as.csv";
    const std::wstring name = file.parent_path().wstring() + L"/zp_pe\u00E7as.csv";
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"csv", name.c_str()});
    EXPECT_TRUE(said((L"Lista gravada em " + name).c_str()));
    std::ifstream read(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(read), {}};
    EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBFMARCA;"));
    EXPECT_NE(bytes.find("P1;1;U;200x75x3;ACO;500;4,00;4,00;0,34;"), std::string::npos);
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"csv", L"/nao/existe/lista.csv"});
    EXPECT_TRUE(said(L"Não foi possível gravar"));
}

TEST_F(MaterialListTest, NumbersAreThoseThatThePrintedOnesGive) {
    // Marks in the order in which people count; masses whose third decimal is lost or decides.
    const std::vector<Linha> l{pieces(L"V2", 3, 0.1),   pieces(L"P10", 1, 2.355),
                               pieces(L"v1E", 1, 15.0), pieces(L"P2", 4, 48.0625, 6000.04),
                               pieces(L"V1", 1, 16.02), pieces(L"P1", 1000, 0.0299085),
                               pieces(L"2", 2, 0.004)};
    std::wstring text;
    const Choice choice =
        zp::matlist::chooseColumns(L"marca,quantidade,comprimento,peso_unitario,peso_total");
    for (const auto& line : zp::matlist::linesOf(zp::matlist::listingOf(choice.columns, l))) {
        for (const std::wstring& field : line) text += field + L' ';
        text += L'\n';
    }
    EXPECT_EQ(text,
              L"MARCA QUANT. COMPR. (mm) PESO UNIT. (kg) PESO TOTAL (kg) \n"
              L"2 2 500 0,00 0,00 \n"
              L"P1 1000 500 0,03 30,00 \n"
              L"P2 4 6000 48,06 192,24 \n"
              L"P10 1 500 2,36 2,36 \n"
              L"V1 1 500 16,02 16,02 \n"
              L"v1E 1 500 15,00 15,00 \n"
              L"V2 3 500 0,10 0,30 \n"
              L"TOTAL    255,92 \n");
}

TEST_F(MaterialListTest, AnExistingFileIsReplacedOnlyAfterYes) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / "zp_lista_destino";
    fs::remove_all(folder);
    fs::create_directory(folder);
    const auto bytes = [&](const char* name) {
        std::ifstream file(folder / name, std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(file), {}};
    };
    const auto put = [&](const char* name) { std::ofstream(folder / name) << "antes"; };
    const auto inWords = [&](const std::string& name) { return (folder / name).wstring(); };
    enter(1);
    put("desenho.dxf");
    put("lista.csv.tmp");
    // The extension is added unless it is the right one, whatever its case.
    for (const char* name : {"lista rev.2", "desenho.dxf", "lista.csv", "OUTRA.CSV"})
        type({L"LISTAMATERIAL", L"csv", inWords(name).c_str()});
    for (const char* name : {"lista rev.2.csv", "desenho.dxf.csv", "lista.csv", "OUTRA.CSV"})
        EXPECT_TRUE(bytes(name).starts_with("\xEF\xBB\xBFMARCA;")) << name;
    EXPECT_EQ(bytes("desenho.dxf"), "antes");
    EXPECT_EQ(bytes("lista.csv.tmp"), "antes");
    put("lista.csv");
    put("b.csv");
    type({L"LISTAMATERIAL", L"csv", inWords("lista").c_str(), L"", inWords("c").c_str()});
    EXPECT_TRUE(asked(L"lista.csv já existe. Deseja substituí-lo? [Sim/Não] <Não>: "));
    EXPECT_EQ(bytes("lista.csv"), "antes");
    EXPECT_FALSE(bytes("c.csv").empty()) << "after a no another name is asked for";
    type({L"LISTAMATERIAL", L"csv", inWords("b").c_str()});
    EXPECT_EQ(bytes("b.csv"), "antes");
    type({L"LISTAMATERIAL", L"csv", inWords("lista").c_str(), L"_y"});
    EXPECT_NE(bytes("lista.csv"), "antes");
    // A path that would be cut names another file: nothing is written.
    const auto before = std::distance(fs::directory_iterator(folder), {});
    type({L"LISTAMATERIAL", L"csv", inWords(std::string(140, 'n')).c_str()});
    EXPECT_TRUE(said(L"passa de 131 caracteres"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), before);
    fs::remove_all(folder);
}

/// A part of a workbook, as the language's own archive reader gives it.
std::string partOf(const std::filesystem::path& book, const std::string& part) {
    const std::string command =
        "python3 -c \"import sys,zipfile;sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1])"
        ".read(sys.argv[2]))\" '" +
        book.string() + "' " + part;
    std::string bytes;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return bytes;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) bytes += static_cast<char>(c);
    pclose(pipe);
    return bytes;
}

TEST_F(MaterialListTest, XlsxWithNumbersFormulasAndASummary) {
    ui.mayComplain = true;
    if (std::system("python3 -c 'import zipfile'") != 0) GTEST_SKIP() << "no python3";
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "zp_lista.xlsx";
    std::filesystem::remove(file);
    enter(2, 4);
    enter(1);
    type({L"_erase"});
    pick(0, 0, {rows()[2].ids[0]});
    type({L"", L"LISTAMATERIAL", L"xlsx",
          std::filesystem::path(file).replace_extension().wstring().c_str()});
    EXPECT_TRUE(said(L"Lista gravada em"));
    EXPECT_TRUE(said(L"fora dos totais: 1. A opção Limpar as retira.\n"));
    const std::string list = partOf(file, "xl/worksheets/sheet1.xml");
    const std::string summary = partOf(file, "xl/worksheets/sheet2.xml");
    const std::string wording = partOf(file, "xl/sharedStrings.xml");
    // What stands in a cell: its number, before it the formula; of a text nothing.
    const auto cell = [&](const std::string& worksheet, const std::string& name) {
        const std::size_t from = worksheet.find("<c r=\"" + name + "\"");
        const std::string all = worksheet.substr(from, worksheet.find("</c>", from) - from);
        const auto inside = [&](const std::string& tag) {
            const std::size_t begin = all.find('<' + tag + '>');
            if (begin == std::string::npos) return std::string();
            const std::size_t text = begin + tag.size() + 2;
            return all.substr(text, all.find("</" + tag + '>') - text);
        };
        if (from == std::string::npos || all.find("t=\"s\"") != std::string::npos)
            return std::string();
        const std::string formula = inside("f");
        return (formula.empty() ? "" : formula + " = ") + inside("v");
    };
    const std::string rows = "'Lista de material'!$";
    const auto sumifs = [&](const std::string& column, const std::string& line) {
        const auto range = [&](const std::string& c) { return rows + c + "$2:$" + c + "$4"; };
        return "SUMIFS(" + range(column) + ',' + range("L") + ",\"=\"&amp;$A" + line + ',' +
               range("E") + ",\"=\"&amp;$B" + line + ") = ";
    };
    const struct {
        const std::string& sheet;
        const char* cell;
        std::string value;
    } kCells[] = {
        {list, "A2", ""},
        {list, "B2", "2"},
        {list, "F2", "500"},
        {list, "H2", "B2*G2 = 8"},
        {list, "I3", "0.4"},
        {list, "B4", "0"},  // erased
        {list, "H4", "B4*G4 = 0"},
        {list, "H5", "SUM($H$2:$H$4) = 20"},  // 8 + 8 plates of 1.5
        {list, "I5", "SUM($I$2:$I$4) = 1.08"},
        {list, "M3", "B3*1 = 8"},
        {list, "N2", "M2*F2/1000 = 1"},
        {summary, "C2", sumifs("M", "2") + "2"},
        {summary, "D3", sumifs("N", "3") + "0.96"},  // 8 of 120 mm
        {summary, "E2", sumifs("H", "2") + "8"},
        {summary, "F3", sumifs("I", "3") + "0.4"},
        {summary, "D4", "SUM($D$2:$D$3) = 1.96"},
        {summary, "E4", "SUM($E$2:$E$3) = 20"},
    };
    for (const auto& c : kCells) EXPECT_EQ(cell(c.sheet, c.cell), c.value) << c.cell;
    for (const char* text :
         {"DESCRIÇÃO", "Travejamento", "apagada", "TOTAL", "U 200x75x3", "ORIGEM DO PESO"})
        EXPECT_NE(wording.find(text), std::string::npos) << text;
    for (const std::string& sheet : {list, summary})
        for (const char* text :
             {"<cols>", "state=\"frozen\"",
              "<pageSetup paperSize=\"9\" fitToHeight=\"0\" orientation=\"landscape\"/>",
              "<pageSetUpPr fitToPage"})
            EXPECT_NE(sheet.find(text), std::string::npos) << text;
    EXPECT_NE(list.find("<col min=\"12\" max=\"12\" width=\"12.7109375\" hidden=\"1\""),
              std::string::npos);
    EXPECT_NE(partOf(file, "xl/workbook.xml").find("'Lista de material'!$1:$1</definedName>"),
              std::string::npos);
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"xlsx", L"/nao/existe/lista.xlsx"});
    EXPECT_TRUE(said(L"Não foi possível gravar /nao/existe/lista.xlsx"));
    // A folder of that name cannot be replaced.
    std::filesystem::create_directory(file);
    EXPECT_FALSE(zp::matlist::kWriteXlsx(file, listing()));
    std::filesystem::remove(file);
}

}  // namespace
