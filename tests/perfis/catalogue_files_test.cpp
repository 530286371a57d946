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

/// Without the hints of lists that are not there: these folders hold a few only.
CatalogueFindings examined(const std::filesystem::path& folder) {
    const auto folders = cataloguesIn(folder);
    EXPECT_TRUE(folders);
    CatalogueFindings findings = folders ? examineCatalogues(*folders) : CatalogueFindings();
    std::erase_if(findings, [](const CatalogueFinding& finding) {
        return finding.severity == protocol::Severity::Hint &&
               finding.text == L"A lista não está na pasta.";
    });
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
        put("Perfis/Listas/cs.lst", "150\t150\t8.00\t6.30\t25.40\n");
        put("Perfis/Listas/vi_cs.lst", "CS150x25    150   25.4\n");
        put("Perfis/Tabelas/soldado_cs.csv",
            "designacao;h;b;tw;tf;kg_m\nCS 150x25;150;150;6.3;8;25.4\n");
        put("Perfis/Listas/ipe.lst", "IPE 80\t80\t46\t5.20\t3.80\t6.00\n");
        put("Perfis/Listas/vi_lam.lst", "IPE 80\t80\t6.00\n");
        put("Perfis/Tabelas/ipe.csv", "designacao;h;b;tw;tf;r;kg_m\nIPE 80;80;46;3.8;5.2;5;6\n");
        put("Perfis/Listas/vi_usa_dados.lst", "76.2\t59.18\t6.60\t4.32\t8.48\n");
        put("Perfis/Listas/vi_usa.lst", "76.2\t8.48\n");
        put("Perfis/Tabelas/i.csv",
            "designacao;h;b;tw;tf;kg_m\nI 3\" x 8,48;76.2;59.18;4.32;6.6;8.48\n");
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
        {"Tabelas/u_dobrado.csv", "designacao;h;b;t\n", L"u_dobrado.csv: ", L"nenhuma bitola"},
        {"Listas/pu.lst", "50\n", L"pu.lst, linha 1 (50): ", L"1 coluna,"},
        {"Listas/pu.lst", "50\t25\t2\t10\n", L"pu.lst, linha 1 ", L"4 colunas"},
        {"Listas/pu.lst", "1e300\t25\t2\n", L"pu.lst, linha 1 ", L"coluna 1 é grande demais"},
        {"Listas/cs.lst", "150\t150\t8\t6.3\t25.4\t1\n", L"cs.lst, linha 1 ", L"6 colunas"},
        {"Listas/vi_cs.lst", "CS150x25    250   25.4\n", L"vi_cs.lst, linha 1 ",
         L"no mesmo lugar: CS 150x25, h 150, 25,4 kg/m"},
        {"Listas/vi_cs.lst", "CS950x25    150   25.4\n", L"vi_cs.lst, linha 1 ", L"CS 150x25"},
        {"Listas/vi_cs.lst", "CS150x25    150   25.4 8\n", L"vi_cs.lst, linha 1 ", L"CS 150x25"},
        {"Listas/vi_lam.lst", "IPE 80\t90\t6.00\n", L"vi_lam.lst, linha 1 ", L"IPE 80, h 80"},
        {"Listas/vi_lam.lst", "IPE 85\t80\t6.00\n", L"vi_lam.lst, linha 1 ", L"IPE 80, h 80"},
        {"Listas/ipe.lst", "IPE 8\t80\t46\t5.2\t3.8\t6\n", L"ipe.lst, linha 1 ", L"O nome"},
        {"Listas/vi_usa.lst", "101.6\t8.48\n", L"vi_usa.lst, linha 1 ", L"h 76,2, 8,48 kg/m"},
        {"Listas/BitolasAcoMinas.lst", "HP 200 x 46.1\nW 250 x 89.0\n",
         L"BitolasAcoMinas.lst, linha 1 ", L"W 200 x 46,1"},
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
        {"Listas/vi_vs.lst", "VS150x15    150   15.0\n", L"vs.lst: ", L"Falta a lista"},
        {"Listas/pl.lst", "30\t30\t2\n", L"cantoneira_dobrada.csv: ", L"bitolas de pl.lst"},
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
        // Plastic modulus of 100 x 10 x 190 + 6.3 x 180^2 / 4 mm3.
        {"Tabelas/soldado_cs.csv", "designacao;h;b;tw;tf;Zx\nCS 200x1;200;100;6.3;10;226\n",
         L"soldado_cs.csv, linha 2 (CS 200x1): Zx ", L"226 cm3, o contorno dá 241"},
        {"Tabelas/u_dobrado.csv",
         "designacao;h;b;t\nU 50x25x2;50;25;2\nU 100x50x3;100;50;2\nU 100x50x3;100;50;3\n",
         L"u_dobrado.csv, linha 3 (U 100x50x3): ", L"O 3 da designação não é medida nem massa"},
        {"Tabelas/w_hp.csv", kW + kW46 + kW89 + kW46, L"w_hp.csv, linha 4 (W 200 x 46,1): ",
         L"já está na tabela"},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;250;11\n" + kW46 + kW89,
         L"w_hp.csv, linha 2 (W x): ", L"não há seção"},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;;11\n" + kW46 + kW89, L"w_hp.csv, linha 2: ",
         L"falta tw. Escreva a medida em mm."},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;7,2;onze\n" + kW46 + kW89, L"w_hp.csv, linha 2: ",
         L"\"onze\" não é número. Corrija ou deixe vazio."},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;-1;11\n" + kW46 + kW89, L"w_hp.csv, linha 2: ",
         L"tw deve ser maior que zero."},
        {"Tabelas/w_hp.csv", "kg_m;h\n1;2\n", L"w_hp.csv: ", L"falta a coluna designacao"},
        {"Tabelas/w_hp.csv", kW + "W x;203;203;7.2;11;;46;;1e300\n" + kW46 + kW89,
         L"w_hp.csv, linha 2: ", L"Ix é grande demais"},
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
        {"Tabelas/tiras_obra_usuario.csv", "designacao\n", L"tiras_obra_usuario.csv: ",
         L"Ninguém lê"},
        // Flats 44, 88, 44 and two bends of mean radius 4.5: 176 + 4.5 pi = 190.1 mm.
        {"Tabelas/tiras_usuario.csv", "designacao;tira\nu 100 X 50 x 3;19\n",
         L"tiras_usuario.csv, linha 2: ", L"mais de 15 % da linha média, 190,1 mm"},
        {"Tabelas/tiras_usuario.csv", "designacao;tira\nU 100x50x3;190\nU 100 x 50 x 3,00;191\n",
         L"tiras_usuario.csv, linha 3: ", L"já está na linha 2, que vale. Tire uma delas."},
        {"Tabelas/tiras_usuario.csv", "designacao;tira\nU 101x50x3;190\n",
         L"aviso: tiras_usuario.csv, linha 2 (U 101x50x3): ", L"não foi conferida"},
        {"Tabelas/tiras_usuario.csv", "nome;tira\n", L"tiras_usuario.csv: ", L"coluna designacao"},
        {"Tabelas/fator_k_usuario.csv", "espessura_ate;k\n3;0,61\n",
         L"fator_k_usuario.csv, linha 2: ", L"k de 0,2 a 0,6"},
        {"Tabelas/fator_k_usuario.csv", "espessura_ate;k\n3;0,2\n3,0;0,6\n",
         L"fator_k_usuario.csv, linha 3: ", L"já está na linha 2"},
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

TEST_F(PlantedFaults, WhatIsMissingOrNoFileIsTold) {
    const std::filesystem::path perfis = folder() / "Perfis";
    const struct {
        const char* file;
        bool isFolder;
        std::wstring_view line;
    } kCases[] = {
        {"Tabelas/w_hp.csv", false, L"w_hp.csv: Falta a tabela das bitolas de DadosAcoMinas.lst."},
        {"Tabelas/w_hp.csv", true, L"w_hp.csv: não é um arquivo que se possa ler."},
        {"Tabelas/w_hp_usuario.csv", true, L"w_hp_usuario.csv: não é um arquivo"},
        {"Tabelas/tiras_usuario.csv", true, L"tiras_usuario.csv: não é um arquivo"},
        {"Tabelas", false, L"Tabelas: Falta a pasta"},
        {"Listas/pu.lst", true, L"pu.lst: Não é um arquivo que se possa ler."},
        {"Listas/vi_cs.lst", true, L"vi_cs.lst: Não é um arquivo que se possa ler."},
    };
    for (const auto& planted : kCases) {
        SCOPED_TRACE(planted.file);
        std::filesystem::copy(perfis, folder() / "inteira",
                              std::filesystem::copy_options::recursive);
        std::filesystem::remove_all(perfis / planted.file);
        if (planted.isFolder) std::filesystem::create_directory(perfis / planted.file);
        const std::wstring lines = told(examined(folder()));
        EXPECT_TRUE(lines.starts_with(planted.line)) << testing::PrintToString(lines);
        EXPECT_EQ(std::ranges::count(lines, L'\n'), 1) << testing::PrintToString(lines);
        std::filesystem::remove_all(perfis);
        std::filesystem::rename(folder() / "inteira", perfis);
    }
    std::filesystem::remove(perfis / "Listas/pu.lst");
    const CatalogueFindings findings = examineCatalogues(*cataloguesIn(folder()));
    EXPECT_TRUE(told(findings).starts_with(L"aviso: pu.lst: A lista não está na pasta."));
}

TEST_F(PlantedFaults, TheUsersOwnRowsCountAndAFolderOfListsFindsItsTables) {
    put("Perfis/Listas/pu.lst", "50\t25\t2.00\n77\t33\t2.00\n");
    put("Perfis/Tabelas/u_dobrado_obra_usuario.csv", "designacao;h;b;t\nU 77x33x2;77;33;2,0\n");
    // A heavier W of the shop's own goes before the printed one.
    put("Perfis/Tabelas/w_hp_usuario.csv",
        "designacao;h;b;tw;tf;kg_m\nW 200 x 46,5;203;203;7.2;11;46.5\n");
    put("Perfis/Listas/DadosAcoMinas.lst",
        "203\t203\t11.00\t7.20\t46.50\n260\t256\t17.30\t10.70\t89.00\n");
    put("Perfis/Listas/BitolasAcoMinas.lst", "W 200 x 46.5\nW 250 x 89.0\n");
    for (const char* name : {"", "Perfis", "Perfis/Listas"})
        EXPECT_EQ(told(examined(folder() / name)), L"") << name;
    EXPECT_FALSE(cataloguesIn(folder() / "Perfis/Tabelas"));
    // The list as it is delivered stands beside the shop's own mass.
    put("Perfis/Listas/DadosAcoMinas.lst",
        "203\t203\t11.00\t7.20\t46.10\n260\t256\t17.30\t10.70\t89.00\n");
    put("Perfis/Listas/BitolasAcoMinas.lst", "W 200 x 46.1\nW 250 x 89.0\n");
    const CatalogueFindings findings = examined(folder());
    ASSERT_EQ(findings.size(), 1U) << testing::PrintToString(told(findings));
    EXPECT_EQ(findings[0].severity, protocol::Severity::Hint);
    EXPECT_TRUE(findings[0].text.starts_with(L"A massa é de 46,1 kg/m; a tabela da casa diz 46,5"));
    put("Perfis/Tabelas/w_hp_usuario.csv",
        "designacao;h;b;tw;tf;kg_m;r\nW 200 x 46,5;203;203;7.2;11;46.5;103\n");
    EXPECT_EQ(
        told(examined(folder())),
        L"w_hp_usuario.csv, linha 2: r passa de 101,5, mais do que cabe nesta medida. Corrija "
        L"ou deixe vazio.\n");
}

}  // namespace
}  // namespace perfis
