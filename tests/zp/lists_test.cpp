// SPDX-License-Identifier: MIT
// The catalogues that ship: every row has its columns, draws a sound section, and weighs what its
// table lists.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "tests/zp/secao_samples.h"

using namespace zp::secao;

namespace {

constexpr double kRight = std::numbers::pi / 2;
constexpr double kAreaPerPeso = 127.1848;  // mm2 for 1 kg/m
constexpr double kDensity = 7850e-6;       // kg/m for 1 mm2

using Linha = std::vector<double>;

std::vector<std::string> divide(const std::string& texto, char separador) {
    std::vector<std::string> partes;
    std::stringstream in(texto);
    for (std::string parte; std::getline(in, parte, separador);) partes.push_back(parte);
    return partes;
}

/// Rows of the table by their sizes: the listed mass.
std::map<Linha, double> pesos(const std::string& tabela, const std::vector<std::string>& colunas) {
    std::ifstream in(HOUSE_SOURCE_DIR "/dados/" + tabela + ".csv");
    std::string texto;
    std::getline(in, texto);
    const auto nomes = divide(texto, ',');
    std::map<Linha, double> saida;
    while (std::getline(in, texto)) {
        // Designations hold doubled quotes but never a comma.
        const auto campos = divide(texto, ',');
        std::map<std::string, double> byName;
        for (std::size_t i = 0; i < nomes.size() && i < campos.size(); ++i)
            byName[nomes[i]] = std::strtod(campos[i].c_str(), nullptr);
        Linha chave;
        for (const std::string& coluna : colunas) chave.push_back(byName[coluna]);
        saida.emplace(chave, byName["kg_m"]);
    }
    return saida;
}

struct Lista {
    const char* arquivo;
    const char* tabela;
    std::vector<std::string> colunas;  ///< of the table that the list's first columns repeat
    std::size_t campos;                ///< columns of the list
    double folga;                      ///< share by which outline and listed mass may differ
    Classe classe;
    std::function<Linha(const Linha&, double)> valores;  ///< constructor values from row and mass
    int pontos = 1;
};

const std::vector<Lista>& listas() {
    using enum Classe;
    static const std::vector<std::string> kHbt = {"h", "b", "t"};
    static const std::vector<std::string> kHbta = {"h", "b", "t", "a"};
    static const std::vector<Lista> all = {
        {"pu.lst", "u_dobrado", kHbt, 3, 0.03, UDobrado,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[1], v[2], v[2], kRight, kRight, 1000, 0, 0, 0};
         }},
        {"pur.lst", "u_enrijecido", kHbta, 4, 0.03, UDobrado,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[1], v[2], v[2], kRight, kRight, 1000, 0, 0, v[3]};
         }},
        {"pz.lst", "z_dobrado", kHbta, 4, 0.03, ZDobrado,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[3], v[2], v[2], kRight, kRight, 1000, 0, 0, 0, 0};
         }},
        {"pc.lst", "cartola", kHbta, 4, 0.03, Cartola,
         [](const Linha& v, double) { return Linha{v[0], v[1], v[2], v[2], v[3], 1000, 0, 0}; }},
        {"pl.lst", "cantoneira_dobrada", kHbt, 4, 0.03, CantoneiraDobrada,
         [](const Linha& v, double) {
             return Linha{v[0], v[1], v[2], v[2], kRight, 1000, 0, 0, 0};
         }},
        {"pl_lam.lst", "cantoneira_laminada", kHbt, 4, 0.03, CantLaminada,
         [](const Linha& v, double m) {
             return Linha{v[0], v[1], v[2], v[1] / 3, 2 * v[0] / 3,    v[2],
                          0,    0,    1000, m,        kAreaPerPeso * m};
         }},
        {"pu_lam.lst", "u_laminado", kHbt, 4, 0.03, ULaminado,
         [](const Linha& v, double m) {
             return Linha{v[0],     v[1], v[2], v[1], v[2], v[2],
                          v[1] / 3, v[2], 0,    0,    1000, kAreaPerPeso * m,
                          m};
         }},
        {"pbr.lst",
         "barra_redonda",
         {"d"},
         1,
         0.03,
         BarraRedonda,
         [](const Linha& v, double) {
             return Linha{v[0], 1000, 0};
         }},
        {"ptb.lst",
         "tubo",
         {"d", "wall"},
         2,
         0.03,
         Tubo,
         [](const Linha& v, double) {
             return Linha{v[0], v[0] - 2 * v[1]};
         },
         2},
        // Tubes of EN 10210 are tabled with corners of 1.5 t; the command draws t inside and 2 t
        // outside.
        {"pbox.lst", "caixa", kHbt, 3, 0.065, Box,
         [](const Linha& v, double) { return Linha{v[0], v[1], v[2], v[2], 1000, 0, 0}; }},
    };
    return all;
}

}  // namespace

TEST(Listas, EachLineHasItsColumnsASoundSecaoAndThePesoOfTheTable) {
    for (const Lista& lista : listas()) {
        SCOPED_TRACE(lista.arquivo);
        const auto tabela = pesos(lista.tabela, lista.colunas);
        ASSERT_FALSE(tabela.empty());
        std::ifstream in(std::string(HOUSE_SOURCE_DIR "/instalacao/Perfis/Listas/") +
                         lista.arquivo);
        std::size_t linhas = 0;
        for (std::string texto; std::getline(in, texto); ++linhas) {
            SCOPED_TRACE(texto);
            EXPECT_LT(texto.size(), 119U);
            const auto campos = divide(texto, '\t');
            ASSERT_EQ(campos.size(), lista.campos);
            Linha medidas;
            for (std::size_t i = 0; i < lista.colunas.size(); ++i)
                medidas.push_back(std::strtod(campos[i].c_str(), nullptr));
            const auto linha = tabela.find(medidas);
            ASSERT_NE(linha, tabela.end()) << "not in the table";
            const auto secao =
                secaoDe(lista.classe, lista.pontos, lista.valores(medidas, linha->second));
            EXPECT_FALSE(secao->invalida());
            const double massa = secao->propriedades().area * kDensity;
            // Light bars are listed to 0.01 kg/m.
            EXPECT_NEAR(massa, linha->second, std::max(lista.folga * linha->second, 0.006));
        }
        EXPECT_GE(linhas, 20U);
    }
}

TEST(Listas, RolledOnesHaveTheSeriesThatTheTableSays) {
    std::ifstream in(HOUSE_SOURCE_DIR "/dados/acominas.csv");
    std::string texto;
    std::getline(in, texto);
    std::map<std::wstring, int> contagem;
    while (std::getline(in, texto)) {
        const auto campos = divide(texto, ',');
        const auto v = [&](std::size_t i) { return std::strtod(campos[i].c_str(), nullptr); };
        const auto sample = samples::iLaminado(v(1), v(2), v(3), v(4), 1, v(5));
        const auto series =
            textoPerfil(sample.classe, dadosDe(sample.classe, sample.pontos(), sample.valores), 0);
        EXPECT_EQ(series, texto.starts_with("HP") ? L"HP" : L"W") << texto;
        ++contagem[series];
    }
    EXPECT_EQ(contagem[L"W"], 99);
    EXPECT_EQ(contagem[L"HP"], 8);
}
