// SPDX-License-Identifier: MIT
// The lists and side tables that are delivered, and planted faults that the examiner tells.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "perfis/commands/catalogue_examiner.h"
#include "perfis/commands/command_table.h"
#include "protocol/catalogues.h"
#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

const std::string kLists = std::string(HOUSE_SOURCE_DIR) + "/instalacao/Perfis/Listas/";

std::vector<std::string> lines(const std::string& path) {
    std::ifstream in(path);
    std::vector<std::string> out;
    for (std::string line; std::getline(in, line);) out.push_back(line);
    return out;
}

/// The last `count` fields of a line.
std::vector<double> numbers(const std::string& line, std::size_t count) {
    std::vector<double> out;
    std::stringstream in(line);
    std::vector<std::string> fields;
    for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
    if (fields.size() < count) return {};
    for (std::size_t i = fields.size() - count; i < fields.size(); ++i)
        out.push_back(std::stod(fields[i]));
    return out;
}

TEST(CatalogueFiles, SeriesStandUnderTheirHeader) {
    const std::string header = "  Tipo     H     Kg/m";
    for (const std::string name : {"vs", "cvs", "cs"}) {
        const auto shown = lines(kLists + "vi_" + name + ".lst");
        const auto values = lines(kLists + name + ".lst");
        for (std::size_t i = 0; i < shown.size(); ++i) {
            const auto v = numbers(values[i], 5);
            ASSERT_EQ(shown[i].size(), header.size() + 1) << shown[i];
            // A column starts at most one place beside its title, behind a blank.
            const std::size_t height = header.find('H') + 1;
            const std::size_t mass = header.find('K') - 1;
            EXPECT_EQ(shown[i][height - 1], ' ') << shown[i];
            EXPECT_EQ(shown[i][mass], ' ') << shown[i];
            EXPECT_EQ(std::stod(shown[i].substr(height, mass - height)), v[0]) << shown[i];
            EXPECT_NEAR(std::stod(shown[i].substr(mass)), v[4], 1e-9) << shown[i];
        }
    }
}

std::wstring told(const CatalogueFindings& findings) {
    std::wstring text;
    for (const CatalogueFinding& f : findings)
        text += protocol::lineOf(protocol::CatalogueFinding{f.severity, f.file.c_str(), f.line,
                                                            f.row.c_str(), f.text.c_str(),
                                                            f.remedy.c_str()}) +
                L"\n";
    return text;
}

CatalogueFindings examined(const std::filesystem::path& folder) {
    const auto folders = cataloguesIn(folder);
    EXPECT_TRUE(folders);
    CatalogueFindings findings;
    if (folders) examineLists(folders->lists, examineTables(folders->tables, findings), findings);
    return findings;
}

TEST(CatalogueFiles, WhatIsDeliveredHasNoFault) {
    CatalogueFindings findings = examined(std::filesystem::path(HOUSE_SOURCE_DIR) / "instalacao");
    EXPECT_GT(findings.size(), 0u) << "doubtful rows of public tables are told";
    std::erase_if(findings, [](const CatalogueFinding& finding) {
        return finding.severity == protocol::Severity::Hint;
    });
    EXPECT_EQ(told(findings), L"");
}

TEST(CatalogueFiles, EveryCommandsListIsExamined) {
    for (const CommandRow& row : commandTable()) {
        const wchar_t* const list = row.command.description.list;
        EXPECT_TRUE(list == nullptr || std::ranges::any_of(sizeLists(),
                                                           [&](const SizeList& known) {
                                                               return known.file ==
                                                                      std::wstring_view(list);
                                                           }))
            << row.globalName;
    }
}

class PlantedFaults : public TempFolder {
protected:
    /// A sound installation of a few rows; the W as their maker prints them.
    PlantedFaults() {
        put("Perfis/Listas/pu.lst", "50\t25\t2.00\n100\t50\t2.00\n100\t50\t3.00\n");
        put("Perfis/Tabelas/u_dobrado.csv",
            "designacao;h;b;t\nU 50x25x2;50;25;2\nU 100x50x2;100;50;2\nU 100x50x3;100;50;3\n");
        put("Perfis/Listas/DadosAcoMinas.lst",
            "203\t203\t11.00\t7.20\t46.10\n260\t256\t17.30\t10.70\t89.00\n");
        put("Perfis/Listas/BitolasAcoMinas.lst", "W 200 x 46.1\nW 250 x 89.0\n");
        put("Perfis/Tabelas/w_hp.csv", kW + kW46 + kW89);
        put("Perfis/Tabelas/tubo_retangular.csv",
            "designacao;h;b;t;kg_m;A;Ix;duvida\nTQ 100x100x5;100;100;5;14.3;18.2;271;\n");
        put("Perfis/Tabelas/barra_chata.csv",
            "designacao;b;t;kg_m;duvida\nCH 100x10;100;10;7.85;\n");
    }
    inline static const std::string kW = "designacao;h;b;tw;tf;r;kg_m;A;Ix;Wx;rx;Iy;Wy;ry;duvida\n";
    inline static const std::string kW46 =
        "W 200 x 46,1;203;203;7.2;11;12;46.1;58.6;4543;447.6;8.81;1535;151.2;5.12;\n";
    inline static const std::string kW89 =
        "W 250 x 89,0;260;256;10.7;17.3;12;89;113.9;14237;1095.1;11.18;4841;378.2;6.52;\n";
};

TEST_F(PlantedFaults, AreToldWithTheirLine) {
    EXPECT_EQ(told(examined(folder())), L"");
    const struct {
        const char* file;  ///< below Perfis
        std::string text;
        std::wstring_view begins;  ///< of a line that is told
        std::wstring_view says;
    } kCases[] = {
        {"Listas/pu.lst", "50\t25\n", L"pu.lst, linha 1 (50 25): ", L"2 colunas"},
        {"Listas/pu.lst", "50\t25\t2.00\t8\t9\n", L"pu.lst, linha 1 ", L"5 colunas"},
        {"Listas/pu.lst", "50\t2x\t2.00\n", L"pu.lst, linha 1 ", L"coluna 2 não é um número"},
        {"Listas/pu.lst", "50\t25\t30.00\n", L"pu.lst, linha 1 ", L"não há seção"},
        {"Listas/pu.lst", std::string(130, '1') + "\n", L"pu.lst, linha 1 ", L"130 caracteres"},
        {"Listas/pu.lst", std::string("50\t25\t2.00\0\n", 12), L"pu.lst: ", L"nulos"},
        {"Listas/pu.lst", "50\t25\t2\n\n100\t50\t3\n50\t25\t2.00\n", L"pu.lst, linha 4 ",
         L"já está na linha 1"},
        {"Listas/pu.lst", "100\t50\t2\n100\t50\t3\n50\t25\t2\n", L"pu.lst, linha 3 ",
         L"fora da ordem da tabela, que a traz antes"},
        {"Listas/pu.lst", "50\t25\t2\n77\t33\t2\n", L"pu.lst, linha 2 ", L"não está na norma"},
        {"Listas/pbox.lst", "100\t100\t5\n\n", L"pbox.lst, linha 2: ", L"em branco"},
        {"Listas/DadosAcoMinas.lst",
         "203\t203\t11.00\t7.20\t46.10\n260\t256\t17.30\t10.70\t98.00\n",
         L"DadosAcoMinas.lst, linha 2 ", L"98 kg/m; a tabela imprime 89 (10,1 %)"},
        {"Listas/BitolasAcoMinas.lst", "W 200 x 46.1\n", L"BitolasAcoMinas.lst: ", L"1 bitolas"},
        {"Listas/BitolasAcoMinas.lst", "W 250 x 89.0\nW 200 x 46.1\n",
         L"BitolasAcoMinas.lst, linha 1 ", L"46,1 kg/m"},
        {"Listas/vi_cs.lst", "CS150x25    150   25.4\n", L"cs.lst: ", L"Falta a lista"},
        // One public table prints an Iy that its own Wy and ry gainsay.
        {"Tabelas/w_hp.csv", kW + kW46 + std::string(kW89).replace(kW89.find("4841"), 4, "4641"),
         L"w_hp.csv, linha 3 (W 250 x 89,0): ry ", L"6,52 cm, a raiz de Iy/A dá 6,383 (2,1 %)"},
        {"Tabelas/w_hp.csv", kW + kW46 + std::string(kW89).replace(kW89.find("4841"), 4, "4641"),
         L"w_hp.csv, linha 3 (W 250 x 89,0): Iy ", L"4641 cm4, o contorno dá 484"},
        {"Tabelas/w_hp.csv", kW + kW46 + std::string(kW89).replace(kW89.find("1095"), 4, "1195"),
         L"w_hp.csv, linha 3 (W 250 x 89,0): Wx ", L"2 Ix/h dá 1095 (9,1 %)"},
        {"Tabelas/w_hp.csv", kW + kW46 + std::string(kW89).replace(kW89.find(";89;"), 4, ";92;"),
         L"w_hp.csv, linha 3 (W 250 x 89,0): kg_m ", L"0,785 A dá 89,41 (2,9 %)"},
        // Torsion of 2 x 100 x 10^3 / 3 + 184 x 6.3^3 / 3 mm4.
        {"Tabelas/soldado_cs.csv", "designacao;h;b;tw;tf;It\nCS x;200;100;6.3;10;9.2\n",
         L"soldado_cs.csv, linha 2 (CS x): It ", L"9,2 cm4, o contorno dá 8,2"},
        {"Tabelas/w_hp.csv", kW + kW46 + kW89 + kW46, L"w_hp.csv, linha 4 (W 200 x 46,1): ",
         L"já está na tabela"},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;250;11\n" + kW46 + kW89,
         L"w_hp.csv, linha 2 (W x): ", L"não há seção"},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;;11\n" + kW46 + kW89, L"w_hp.csv, linha 2 (W x): ",
         L"Falta a medida tw"},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;7,2;onze\n" + kW46 + kW89, L"w_hp.csv, linha 2: ",
         L"onze"},
        {"Tabelas/barra_chata.csv", "designacao;b;t;kg_m\nCH 100x10;100;10;7.05\n",
         L"barra_chata.csv, linha 2 ", L"o contorno dá 7,85 (-10,2 %)"},
        // Sharp corners: 0.00785 x 2 x 5 x 190 = 14.915 kg/m; 3 % above that are 15.362.
        {"Tabelas/tubo_retangular.csv", "designacao;h;b;t;kg_m\nTQ;100;100;5;15.36\n",
         L"aviso: tubo_retangular.csv, linha 2 (TQ): ", L"3 % acima da seção de cantos vivos"},
        {"Tabelas/tubo_retangular.csv", "designacao;h;b;t;kg_m\nTQ;100;100;5;15.38\n",
         L"tubo_retangular.csv, linha 2 (TQ): kg_m ", L"dá 14,92 (3,1 %)"},
        {"Tabelas/barra_chata.csv",
         "designacao;b;t;kg_m;duvida\nCH;100;10;7.05;7,85 por cálculo, 7,05 impresso\n",
         L"aviso: barra_chata.csv, linha 2 (CH): ", L"em dúvida: 7,85"},
        {"Tabelas/nada_usuario.csv", "designacao\n", L"nada_usuario.csv: ", L"Ninguém lê"},
    };
    for (const auto& planted : kCases) {
        SCOPED_TRACE(planted.file + (" " + planted.text));
        const std::string file = std::string("Perfis/") + planted.file;
        const std::string before = get(file);
        put(file, planted.text);
        const CatalogueFindings findings = examined(folder());
        EXPECT_TRUE(std::ranges::any_of(findings, [&](const CatalogueFinding& finding) {
            const std::wstring line = told({finding});
            return line.starts_with(planted.begins) &&
                   line.find(planted.says) != std::wstring::npos;
        })) << testing::PrintToString(told(findings));
        std::filesystem::remove(folder() / file);
        if (!before.empty()) put(file, before);
    }
}

TEST_F(PlantedFaults, TheUsersOwnRowsCountAndAFolderOfListsFindsItsTables) {
    put("Perfis/Listas/pu.lst", "50\t25\t2.00\n77\t33\t2.00\n");
    put("Perfis/Tabelas/u_dobrado_obra_usuario.csv", "designacao;h;b;t\nU 77x33x2;77;33;2,0\n");
    // A heavier W of the shop's own goes before the printed one.
    put("Perfis/Tabelas/w_hp_usuario.csv",
        "designacao;h;b;tw;tf;kg_m\nW da casa;203;203;7.2;11;46.5\n");
    put("Perfis/Listas/DadosAcoMinas.lst",
        "203\t203\t11.00\t7.20\t46.50\n260\t256\t17.30\t10.70\t89.00\n");
    put("Perfis/Listas/BitolasAcoMinas.lst", "W 200 x 46.5\nW 250 x 89.0\n");
    for (const char* name : {"", "Perfis", "Perfis/Listas"})
        EXPECT_EQ(told(examined(folder() / name)), L"") << name;
    EXPECT_FALSE(cataloguesIn(folder() / "Perfis/Tabelas"));
}

}  // namespace
}  // namespace perfis
