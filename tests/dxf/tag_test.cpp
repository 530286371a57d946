// SPDX-License-Identifier: MIT
// Groups, charsets, binary files.
#include "prancheta/base/text.h"
#include "prancheta/dxf/binary.h"
#include "prancheta/dxf/encoding.h"
#include "prancheta/dxf/tag_reader.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta::dxf;

namespace {

std::string encoded(std::string_view utf8, Charset charset) {
    std::string out;
    appendEncoded(out, utf8, charset);
    return out;
}

}  // namespace

TEST(Values, NumbersOfGroupsAreReadWholeOrNotAtAll) {
    double real = 0.0;
    for (const char* text : {"1", " 1.0 ", "+1", "1e0", "1.", "1.0\r"}) {
        EXPECT_TRUE(parseReal(text, real)) << text;
        EXPECT_EQ(real, 1.0) << text;
    }
    for (const char* text :
         {"", " ", "1,5", "nan", "inf", "-inf", "0x10", "1.5.2", "1 2", "1e999", "--1"})
        EXPECT_FALSE(parseReal(text, real)) << text;
    long long integer = 0;
    EXPECT_TRUE(parseInteger("  -7", integer));
    EXPECT_EQ(integer, -7);
    EXPECT_TRUE(parseInteger("3.0", integer)) << "some programs write whole numbers as reals";
    EXPECT_EQ(integer, 3);
    for (const char* text : {"", "7.5", "a", "12 3"})
        EXPECT_FALSE(parseInteger(text, integer)) << text;
    std::uint64_t handle = 0;
    EXPECT_TRUE(parseHandle(" 1aF ", handle));
    EXPECT_EQ(handle, 0x1AFU);
    for (const char* text : {"G1", "-1", "1FFFFFFFFFFFFFFFF"})
        EXPECT_FALSE(parseHandle(text, handle)) << text;
    EXPECT_TRUE(parseHandle(" ", handle)) << "as other programs write a null one";
    EXPECT_EQ(handle, 0U);
}

TEST(Charsets, ReleaseDecidesAndEachTextMayFallBack) {
    EXPECT_EQ(charsetOf("AC1009"), Charset::Windows1252);
    EXPECT_EQ(charsetOf("AC1018"), Charset::Windows1252);
    EXPECT_EQ(charsetOf("AC1021"), Charset::Utf8);
    EXPECT_EQ(decode("A\xE7\xE3o \x80", Charset::Windows1252), "Ação €");
    EXPECT_EQ(decode("Ação", Charset::Utf8), "Ação");
    EXPECT_EQ(decode("A\xE7\xE3o", Charset::Utf8), "Ação")
        << "old text in a file that claims UTF-8";
}

TEST(Charsets, WhatTheCodePageLacksIsEscaped) {
    EXPECT_EQ(encoded("Ω 10 €", Charset::Windows1252), "\\U+03A9 10 \x80");
    EXPECT_EQ(encoded("Ω", Charset::Utf8), "Ω");
    for (const Charset charset : {Charset::Windows1252, Charset::Utf8}) {
        EXPECT_EQ(decode("\\U+03A9", charset), "Ω");
        EXPECT_EQ(decode("\\U+03a9", charset), "Ω");
        EXPECT_EQ(decode("\\U+D83D\\U+DE00", charset), "😀");
        EXPECT_EQ(decode("\\U+03G9 \\U+12", charset), "\\U+03G9 \\U+12") << "no escape at all";
        EXPECT_EQ(decode("\\U+D83D", charset), "\\U+D83D") << "half a character";
        EXPECT_EQ(decode(encoded("Ω😀ç", charset), charset), "Ω😀ç");
    }
}

TEST(Charsets, EveryByteOfTheCodePageComesBack) {
    std::string all;
    for (int byte = 0x20; byte < 0x100; ++byte) all.push_back(static_cast<char>(byte));
    EXPECT_EQ(encoded(decode(all, Charset::Windows1252), Charset::Windows1252), all);
}

TEST(Charsets, OtherCodePagesAreTheSystems) {
    struct Page {
        const char* name;
        const char* bytes;
        const char* text;
        const char* lacks;  ///< what is written of "é"
    };
    // From the published tables of the pages.
    const Page pages[] = {{"ANSI_1251", "\xCF\xF0\xEE\xF4\xE8\xEB\xFC", "Профиль", "\\U+00E9"},
                          {"ansi_1253", "\xC6\xE1", "Ζα", "\\U+00E9"},
                          {"DOS437", "\x90\xE3", "Éπ", "\x82"},
                          {"ANSI_1258", "\xD0\xC2", "ĐÂ", "\xE9"},
                          {"ANSI_932", "\x8D\x7C a\x95\x5C\xB1", "鋼 a表ｱ", "\\U+00E9"},
                          {"ANSI_936", "\xB8\xD6", "钢", "\xA8\xA6"}};
    for (const Page& known : pages) {
        const auto page = prancheta::CodePage::named(known.name);
        ASSERT_NE(page, nullptr) << known.name;
        const Charset charset(*page);
        EXPECT_EQ(decode(known.bytes, charset), known.text);
        EXPECT_EQ(encoded(known.text, charset), known.bytes);
        EXPECT_EQ(encoded("é", charset), known.lacks) << known.name;
        std::string all;
        for (int byte = 0x20; byte < 0x100; ++byte) all.push_back(static_cast<char>(byte));
        // Some pages have a character twice.
        const std::string meant = decode(all, charset);
        EXPECT_EQ(decode(encoded(meant, charset), charset), meant) << known.name;
    }
    for (const char* name : {"ANSI_99999", "UTF-16", "ANSI_1251//TRANSLIT", "../x", ""})
        EXPECT_EQ(prancheta::CodePage::named(name), nullptr) << name;
    const prancheta::CodePage unknown;
    EXPECT_EQ(encoded(decode("a\xE3", Charset(unknown)) + "ã", Charset(unknown)), "a\xE3\\U+00E3");
}

TEST(Charsets, CaretsStandForControlCharacters) {
    EXPECT_EQ(decodeText("a^Jb^Ic^ d^", Charset::Utf8), L"a\nb\tc^d^");
    EXPECT_EQ(encodeText(L"a\nb\tc^d"), "a^Jb^Ic^ d");
    EXPECT_EQ(encoded("linha\noutra", Charset::Utf8), "linha^Joutra")
        << "a line end would shift all";
}

TEST(Reader, TakesEitherLineEndCommentsMarkAndBlanks) {
    const std::string text = "\xEF\xBB\xBF  0\r\nLINE\r\n999\nnota\n 10 \n 1.5\n  8\n a b\n\n";
    TagReader reader(text);
    Record record;
    ASSERT_TRUE(reader.next(record));
    EXPECT_EQ(record.type, "LINE");
    ASSERT_EQ(record.tags.size(), 2U);
    EXPECT_EQ(record.tags[0].value, " 1.5");
    EXPECT_EQ(record.tags[1].value, " a b") << "blanks of a text are its own";
    EXPECT_FALSE(reader.next(record));
    EXPECT_FALSE(reader.fault()) << "an empty line at the end is no damage";
}

TEST(Reader, SaysWhereItStopped) {
    for (const char* text :
         {"0\nLINE\nx8\n0\n", "0\nLINE\n-8\n0\n", "0\nLINE\n\n8\n0\n", "0\nLINE\n12345\n0\n"}) {
        TagReader reader(text);
        Tag tag;
        EXPECT_TRUE(reader.next(tag));
        EXPECT_FALSE(reader.next(tag)) << text;
        ASSERT_TRUE(reader.fault()) << text;
        EXPECT_EQ(reader.fault()->at - text, 7) << text;
    }
}

TEST(Binary, GroupsOfBothCodeWidthsBecomeText) {
    using namespace std::string_literals;
    const std::string head(binarySignature());
    const double real = 2.5;
    const std::string bytes(reinterpret_cast<const char*>(&real), sizeof real);
    const std::string wide = head + "\0\0SECTION\0"s + "\x0A\0"s + bytes + "\x46\0\xFE\xFF"s +
                             "\x36\x01\x02\xAB\x0C"s + "\x2F\x04\x01\0\x01\0"s + "\0\0EOF\0"s;
    const std::string narrow = head + "\0SECTION\0"s + "\x0A"s + bytes + "\x46\xFE\xFF"s +
                               "\xFF\x2F\x04\x01\0\x01\0"s + "\0EOF\0"s;
    // 310 is two bytes, AB 0C; 1071 is four.
    const auto fromWide = textOfBinary(wide);
    ASSERT_TRUE(fromWide.ok()) << fromWide.error().message();
    EXPECT_EQ(fromWide->text, "0\nSECTION\n10\n2.5\n70\n-2\n310\nAB0C\n1071\n65537\n0\nEOF");
    const auto fromNarrow = textOfBinary(narrow);
    ASSERT_TRUE(fromNarrow.ok());
    EXPECT_EQ(fromNarrow->text, "0\nSECTION\n10\n2.5\n70\n-2\n1071\n65537\n0\nEOF");
    for (std::size_t size = head.size(); size + 5 < wide.size(); ++size) {
        const auto cut = textOfBinary(wide.substr(0, size));
        EXPECT_TRUE(cut.ok() || cut.error().text.find("byte") != std::string::npos);
        EXPECT_TRUE(!cut.ok() || cut->text.find("EOF") == std::string::npos) << size;
    }
}
