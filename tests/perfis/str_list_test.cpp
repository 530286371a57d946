// SPDX-License-Identifier: MIT
// The list of a catalogue: operations, reading, writing, showing.
#include "perfis/catalogues/str_list.h"

#include "perfis/catalogues/catalogue.h"
#include "tests/perfis/dialog_stand_in.h"
#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

using Rows = std::vector<std::wstring>;

Rows rowsOf(const ZpStrList& list) {
    Rows rows(list.count());
    for (unsigned i = 0; i < list.count(); ++i) EXPECT_EQ(list.getAt(rows[i], i), 1);
    return rows;
}

TEST(ZpStrListTest, KeepsOrderThroughEveryChange) {
    ZpStrList list;
    EXPECT_EQ(list.append(L"b"), 1);  // on an empty list it becomes the first
    list.append(L"c");
    list.prepend(L"a");
    EXPECT_EQ(rowsOf(list), (Rows{L"a", L"b", L"c"}));
    EXPECT_EQ(list.replaceAt(L"B", 1), 1);
    EXPECT_TRUE(list.contains(L"B"));
    EXPECT_FALSE(list.contains(L"b"));
    EXPECT_EQ(list.removeAt(2), 1);  // the last one: appending must go on from its neighbour
    list.append(L"d");
    EXPECT_EQ(list.removeAt(0), 1);
    EXPECT_EQ(rowsOf(list), (Rows{L"B", L"d"}));
    EXPECT_EQ(list.removeAt(0), 1);
    EXPECT_EQ(list.removeAt(0), 1);
    list.append(L"e");
    EXPECT_EQ(rowsOf(list), Rows{L"e"});
    list.clear();
    EXPECT_EQ(list.count(), 0u);
}

TEST(ZpStrListTest, WhatIsNotThereIsLeftAlone) {
    ZpStrList list;
    list.append(L"12");
    std::wstring text = L"antes";
    EXPECT_EQ(list.getAt(text, 1), 0);
    EXPECT_EQ(text, L"antes");
    EXPECT_EQ(list.removeAt(1), 0);
    EXPECT_EQ(list.replaceAt(L"x", 1), 0);
    EXPECT_FALSE(list.contains(L"12.0"));
}

class ListFiles : public TempFolder {
protected:
    Rows read(const std::string& bytes) {
        put("pu.lst", bytes);
        EXPECT_EQ(m_list.read(path("pu.lst")), 1);
        return rowsOf(m_list);
    }
    ZpStrList m_list;
};

TEST_F(ListFiles, OneRowALine) {
    EXPECT_EQ(read("50\t25\t2\r\n\r\n75\t40\t2"), (Rows{L"50\t25\t2", L"75\t40\t2"}));
    EXPECT_EQ(read("\n\n"), Rows{});
    EXPECT_EQ(read("a\rb\nc\n"), (Rows{L"a", L"c"}));  // a stray carriage return ends the row
}

TEST_F(ListFiles, LongLinesBecomeSeveralRows) {
    const std::string line = std::string(118, 'x') + std::string(32, 'y');
    EXPECT_EQ(read(line + "\nz\n"), (Rows{std::wstring(118, L'x'), std::wstring(32, L'y'), L"z"}));
    // Exactly the buffer: what follows is an empty line, which is no row.
    EXPECT_EQ(read(std::string(118, 'x') + "\nz"), (Rows{std::wstring(118, L'x'), L"z"}));
    // Characters count, not bytes.
    std::string accents;
    for (int i = 0; i < 118; ++i) accents += "ç";
    EXPECT_EQ(read(accents + "\n").size(), 1u);
}

TEST_F(ListFiles, AMissingFileLeavesTheRows) {
    read("a\n");
    EXPECT_EQ(m_list.read(path("falta.lst")), 0);
    EXPECT_EQ(rowsOf(m_list), Rows{L"a"});
}

TEST_F(ListFiles, EditsGoBackInTheFilesOwnForm) {
    read("\xC7\r\n1");
    m_list.append(L"até");
    EXPECT_EQ(m_list.write(path("pu.lst")), 1);
    EXPECT_EQ(get("pu.lst"), "\xC7\r\n1\r\nat\xE9\r\n");
    EXPECT_EQ(m_list.write(path("nenhuma\\pu.lst")), 0);
}

TEST_F(ListFiles, TheBoxCatalogueKeepsEmptyLines) {
    put("pbox.lst", "50\t30\t2\r\n\r\n" + std::string(300, '1') + "\r\n");
    const std::unique_ptr<Catalogue> list = makeStringListCatalogue();
    list->read(path("pbox.lst"));
    ASSERT_EQ(list->count(), 3);
    std::wstring row;
    EXPECT_TRUE(list->rowAt(1, row));
    EXPECT_EQ(row, L"");
    EXPECT_TRUE(list->rowAt(2, row));
    EXPECT_EQ(row.size(), 300u);
    EXPECT_FALSE(list->rowAt(3, row));
    list->remove(1);
    list->write(path("pbox.lst"));
    EXPECT_EQ(get("pbox.lst"), "50\t30\t2\r\n" + std::string(300, '1') + "\r\n");
}

TEST(ZpStrListTest, FillsAListTileInOrder) {
    DialogStandIn host;
    ZpStrList list;
    list.append(L"a");
    list.append(L"b");
    EXPECT_EQ(list.fillTile(host.dialog(), L"lista"), 1);
    EXPECT_EQ(host.events(), (Rows{L"lista lista: a|b"}));
    host.forget(L"lista");
    EXPECT_EQ(list.fillTile(host.dialog(), L"lista"), 0);
}

}  // namespace
}  // namespace perfis
