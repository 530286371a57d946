// SPDX-License-Identifier: MIT
// Side tables: fields, encodings, and what is told of rows that cannot be used.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "zp/tables/table_file.h"

namespace fs = std::filesystem;
using namespace zp::tables;

namespace {

class Tables : public testing::Test {
protected:
    Tables() { fs::create_directories(m_folder); }
    ~Tables() override { fs::remove_all(m_folder); }
    fs::path file(const std::string& name, const std::string& bytes) const {
        std::ofstream(m_folder / name, std::ios::binary) << bytes;
        return m_folder / name;
    }
    const fs::path m_folder =
        fs::temp_directory_path() / ("zp-tables-" + std::to_string(::getpid()));
};

}  // namespace

TEST_F(Tables, FieldsAreReadAsPeopleAndSpreadsheetsWriteThem) {
    TableFile table = TableFile::read(file("u.csv",
                                           "\xEF\xBB\xBF# feita à mão\r\n\r\n"
                                           "Designacao; h ;kg_m;fonte\r\n"
                                           "U 6\" x 12,2;152,4; 12.2;norma\r\n"
                                           "\"U 3\"\" x 6,10\" ;76.2;;\"a;b\"\r\n"
                                           "U 4\";1e2"));
    ASSERT_TRUE(table.opened());
    EXPECT_TRUE(table.faults().empty());
    ASSERT_EQ(table.rows().size(), 3U);
    const int name = table.column(L"designacao");
    const int mass = table.column(L"kg_m");
    const auto& rows = table.rows();
    EXPECT_EQ(table.text(rows[0], name), L"U 6\" x 12,2");
    EXPECT_EQ(table.text(rows[1], name), L"U 3\" x 6,10");
    EXPECT_EQ(table.text(rows[1], table.column(L"fonte")), L"a;b");
    EXPECT_EQ(table.number(rows[0], table.column(L"H")), 152.4);
    EXPECT_EQ(table.number(rows[0], mass), 12.2);
    EXPECT_EQ(table.number(rows[1], mass), std::nullopt);
    EXPECT_EQ(table.number(rows[2], mass), std::nullopt);
    EXPECT_EQ(table.column(L"It"), -1);
    EXPECT_EQ(table.number(rows[2], -1), std::nullopt);
    EXPECT_EQ(rows[1].line, 5);
    EXPECT_TRUE(table.faults().empty());
    const TableFile old = TableFile::read(file("velho.csv",
                                               "designa\xE7\xE3o\nfa\xE7"
                                               "a"));
    EXPECT_EQ(old.column(L"DESIGNAÇÃO"), 0);
    EXPECT_EQ(old.text(old.rows().at(0), 0), L"faça");
}

TEST_F(Tables, ABadRowIsToldAndCostsNoOther) {
    TableFile table = TableFile::read(file(
        "i.csv", "designacao;h\nI 3\";76,2;8\n\"I 4;101\n\"I 5\" x;127\nI 6\";15z\nI 8\";203"));
    ASSERT_EQ(table.rows().size(), 2U);
    EXPECT_EQ(table.number(table.rows()[0], 1), std::nullopt);
    EXPECT_EQ(table.number(table.rows()[1], 1), 203.0);
    ASSERT_EQ(table.faults().size(), 4U);
    EXPECT_EQ(told(table.faults()[0]),
              L"i.csv, linha 2: mais campos do que colunas (3 em 2); tire o que sobra");
    EXPECT_EQ(table.faults()[1].line, 3);
    EXPECT_EQ(table.faults()[2].line, 4);
    EXPECT_EQ(told(table.faults()[3]),
              L"i.csv, linha 5: h \"15z\" não é número; corrija ou deixe vazio");

    const TableFile empty = TableFile::read(file("vazia.csv", "# nada\n"));
    ASSERT_EQ(empty.faults().size(), 1U);
    EXPECT_EQ(told(empty.faults()[0]), L"vazia.csv: sem a linha que dá nome às colunas; escreva-a");
    EXPECT_EQ(TableFile::read(file("torta.csv", "\"a;b\n1;2\n")).faults().size(), 1U);
    EXPECT_FALSE(TableFile::read(m_folder / "nenhuma.csv").opened());
    EXPECT_FALSE(TableFile::read(m_folder).opened());

    const struct {
        std::string bytes;
        std::wstring_view reason;
        std::size_t rows = 0;
    } kCases[] = {
        {std::string("\xFF\xFE"
                     "d\0;\0h\0\n\0",
                     10),
         L"UTF-16"},
        {std::string("d\0;\0h\0\n\0", 8), L"UTF-16"},
        {"designacao\th\nU\t3\n", L"ponto e vírgula"},
        {"designacao,h\nU,3\n", L"ponto e vírgula"},
        {std::string("designacao;h\nU\0;3\nU 4;4\n", 24), L"caracteres de controle", 1},
        {"designacao;h\nU\x1B[31m;3\nU 4;4\n", L"caracteres de controle", 1},
        {"designacao;h;H\nU;3;4\n", L"a coluna H está duas vezes", 1},
    };
    for (const auto& bad : kCases) {
        const TableFile read = TableFile::read(file("ruim.csv", bad.bytes));
        ASSERT_EQ(read.faults().size(), 1U) << bad.bytes;
        EXPECT_NE(read.faults()[0].reason.find(bad.reason), std::wstring::npos) << bad.bytes;
        EXPECT_EQ(read.rows().size(), bad.rows) << bad.bytes;
    }
}
