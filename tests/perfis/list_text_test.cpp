// SPDX-License-Identifier: MIT
// Encodings, marks and line ends of list files, there and back.
#include "perfis/catalogues/list_text.h"

#include "tests/perfis/temp_folder.h"

namespace perfis {
namespace {

using namespace std::string_literals;

class ListTexts : public TempFolder {
protected:
    /// Reads the bytes, and checks that writing the text back gives the same bytes.
    std::wstring thereAndBack(const std::string& bytes) {
        put("a.lst", bytes);
        const std::shared_ptr<const ListText> list = readListText(path("a.lst"));
        if (!list) return L"(not opened)";
        EXPECT_TRUE(writeListText(path("b.lst"), list->text, list->format));
        EXPECT_EQ(get("b.lst"), bytes);
        return list->text;
    }
};

TEST_F(ListTexts, EncodingMarkAndLineEndsAreKept) {
    EXPECT_EQ(thereAndBack("\u00C7a\n1\n"s), L"Ça\n1\n");                  // UTF-8
    EXPECT_EQ(thereAndBack("\xEF\xBB\xBF\xC3\x87\r\n1\r\n"s), L"Ç\n1\n");  // with mark, CRLF
    EXPECT_EQ(thereAndBack("\xC7\x80\x9D\r\n"s), L"Ç€\x9D\n");             // Windows-1252
    EXPECT_EQ(thereAndBack("\xEF\xBB\xBF\xC7\n"s), L"Ç\n");  // a mark that is not true
    EXPECT_EQ(thereAndBack("\xFF\xFE\xC7\0\n\0"s), L"Ç\n");  // UTF-16
    EXPECT_EQ(thereAndBack("\xFE\xFF\0\xC7\0\r\0\n"s), L"Ç\n");
    EXPECT_EQ(thereAndBack("\xFF\xFE\x3D\xD8\x00\xDE"s), L"\U0001F600");  // a surrogate pair
    EXPECT_EQ(thereAndBack(""s), L"");
    EXPECT_EQ(thereAndBack("\xEF\xBB\xBF"s), L"");
}

TEST_F(ListTexts, DamagedOnesAreReadAsWellAsCanBe) {
    struct Case {
        std::string bytes;
        std::wstring text;
        bool damaged;
    };
    const Case cases[] = {
        {"5\r6\r7\r"s, L"5\n6\n7\n", true},
        {"5\rx\n6\n"s, L"5\rx\n6\n", true},
        {"5\r\r\n6\r\n"s, L"5\n6\n", false},
        {"5\0\n\0006\0\n\0"s, L"5\n6\n", true},
        {"\0005\0\t\0006"s, L"5\t6", true},
        {"\xFF\xFE\x35\0\n\0"s, L"5\n", false},
        {"\xFF\xFE\x35\0\n"s, L"5", true},
        {"\xFF\xFE\x00\xD8\n\0"s, L"\xFFFD\n", true},
        {"100\0\0\0\n7\n"s, L"100\0\0\0\n7\n"s, true},
    };
    for (const Case& c : cases) {
        put("a.lst", c.bytes);
        const std::shared_ptr<const ListText> list = readListText(path("a.lst"));
        ASSERT_TRUE(list);
        EXPECT_EQ(list->text, c.text);
        EXPECT_EQ(list->format.damaged, c.damaged) << testing::PrintToString(c.bytes);
    }
}

TEST_F(ListTexts, WhatIsNoUtf8IsTheCodePage) {
    // Overlong, surrogate, cut short, beyond the last character: one byte, one character.
    for (const std::string& bytes :
         {"\xC0\xAF"s, "\xED\xA0\x80"s, "\xE2\x82"s, "\xF4\x90\x80\x80"s, "50\xB0"s})
        EXPECT_EQ(thereAndBack(bytes).size(), bytes.size());
}

TEST_F(ListTexts, ACharacterThatTheCodePageLacksMovesTheFileToUtf8) {
    ListFormat format;
    format.encoding = Encoding::kWindows1252;
    format.crLf = false;
    ASSERT_TRUE(writeListText(path("a.lst"), L"Ç≤\n", format));
    EXPECT_EQ(get("a.lst"), "Ç≤\n");
}

TEST(LineReader, CutsAtLineFeedsAndAtTheBuffer) {
    LineReader reader(L"abcdef\ngh\n\ni");
    std::wstring peca;
    std::vector<std::wstring> pecas;
    while (reader.read(peca, 5)) pecas.push_back(peca);
    EXPECT_EQ(pecas, (std::vector<std::wstring>{L"abcd", L"ef\n", L"gh\n", L"\n", L"i"}));
}

TEST(CutAtSeparator, WorksAsTheSplittingOfTheCLibrary) {
    const auto cut = [](std::wstring text, std::wstring_view separators) {
        cutAtSeparator(text, separators);
        return text;
    };
    EXPECT_EQ(cut(L"100\t50\n", L"\n"), L"100\t50");
    EXPECT_EQ(cut(L"a\rb\n", L"\r"), L"a");
    EXPECT_EQ(cut(L"\n", L"\n"), L"\n");  // nothing before the separator: the text stays
    EXPECT_EQ(cut(L"\ra\rb", L"\n\r"), L"\ra");
}

}  // namespace
}  // namespace perfis
