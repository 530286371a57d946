// SPDX-License-Identifier: MIT
// Material list: what is written into files, and what is asked before.
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "tests/zp/matlist.h"
#include "zp/matlist/formats.h"

namespace {

using namespace zp_tests;

TEST_F(MaterialListTest, CsvForABrazilianSpreadsheet) {
    std::vector<Linha> l;
    l.emplace_back(L"P1", 2, L"Ue", L"200x75x20x2,65", L"ACO", 1234.5, 7.75, 15.5, 0.75,
                   L"com \"aba\"; furada");
    l.emplace_back(L"-5", 1, L"=1+1", L"\t2", L"@A1", -5.0, -1.0, 1.0, 1.0, L"+\"x\"");
    const std::wstring text = zp::matlist::csvText(l);
    EXPECT_NE(text.find(L"MARCA;QUANT.;DESCRIÇÃO;"), std::wstring::npos);
    EXPECT_NE(text.find(L"\r\nP1;2;Ue;200x75x20x2,65;ACO;1234,5;7,75;15,5;0,75;\"com \"\"aba\"\"; "
                        L"furada\"\r\n"),
              std::wstring::npos);
    // A spreadsheet would run the texts; numbers stay numbers.
    EXPECT_NE(text.find(L"\r\n'-5;1;'=1+1;'\t2;'@A1;-5;-1;1;1;\"'+\"\"x\"\"\"\r\n"),
              std::wstring::npos);
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
    EXPECT_NE(bytes.find("P1;1;U;200x75x3;ACO;500;4;4;0,34;"), std::string::npos);
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"csv", L"/nao/existe/lista.csv"});
    EXPECT_TRUE(said(L"Não foi possível gravar"));
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

TEST_F(MaterialListTest, XlsxWithNumbersAndTotals) {
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
    const std::string worksheet = partOf(file, "xl/worksheets/sheet1.xml");
    const std::string wording = partOf(file, "xl/sharedStrings.xml");
    // The value of a number cell; text cells have a type.
    const auto value = [&](const std::string& cell) {
        const std::size_t from = worksheet.find("<c r=\"" + cell + "\"");
        const std::size_t v = worksheet.find("<v>", from);
        if (from == std::string::npos ||
            worksheet.substr(from, v - from).find("t=\"s\"") != std::string::npos)
            return std::nan("");
        return std::stod(worksheet.substr(v + 3));
    };
    EXPECT_DOUBLE_EQ(value("B2"), 2);
    EXPECT_DOUBLE_EQ(value("F2"), 500);
    EXPECT_DOUBLE_EQ(value("H2"), 8);
    EXPECT_NEAR(value("I3"), 0.4, 1e-12);
    EXPECT_TRUE(std::isnan(value("A2")));
    EXPECT_DOUBLE_EQ(value("H5"), 20);  // 8 + 12; the erased row stays out
    EXPECT_NEAR(value("I5"), 0.68 + 0.4, 1e-12);
    for (const char* text : {"DESCRIÇÃO", "Travejamento", "apagada", "TOTAL"})
        EXPECT_NE(wording.find(text), std::string::npos) << text;
    EXPECT_NE(worksheet.find("<cols>"), std::string::npos);
    std::filesystem::remove(file);
    type({L"LISTAMATERIAL", L"xlsx", L"/nao/existe/lista.xlsx"});
    EXPECT_TRUE(said(L"Não foi possível gravar /nao/existe/lista.xlsx"));
    // A folder of that name cannot be replaced.
    std::filesystem::create_directory(file);
    EXPECT_FALSE(zp::matlist::kWriteXlsx(file, rows()));
    std::filesystem::remove(file);
}

}  // namespace
