// SPDX-License-Identifier: MIT
// Damaged files: an error that says where, never half a drawing.
#include "dbdim.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dxf/binary.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta;

namespace {

Result<std::unique_ptr<AcDbDatabase>> tryLoad(const std::string& bytes) {
    const Folder folder;
    write(folder / "a.dxf", bytes);
    return dxf::load(folder / "a.dxf");
}

// The drawings here are some ten thousand bytes long, most of it tables; cuts a prime number of
// bytes apart fall on every kind of place.
constexpr std::size_t kStep = 7;

/// A small drawing with a piece, a dimension and a text.
std::string sample(dxf::Form form) {
    AcDbDatabase database(true, true);
    append(database, new AcDbText({0, 0, 0}, L"Ação", AcDbObjectId::kNull, 2.5));
    append(database, new AcDbAlignedDimension({0, 0, 0}, {10, 0, 0}, {5, 5, 0}));
    auto* bar = new Bar;
    bar->values.assign(4, 0.1);
    append(database, bar);
    return saved(database, {dxf::Version::Keep, form});
}

}  // namespace

TEST(Damage, EveryTruncationOfASmallFileIsAnError) {
    const std::string text = fileWith(
        "0 LINE|8 0|62 3|10 1.5|20 0|11 1|21 0|0 INSERT|8 0|2 B|10 0|20 0|0 POLYLINE|8 0|66 1|0 "
        "VERTEX|8 "
        "0|10 1|20 1|0 SEQEND|0 TEXT|8 0|10 0|20 0|40 2.5|1 texto",
        "AC1015",
        "0 SECTION|2 TABLES|0 TABLE|2 LAYER|0 LAYER|2 A|70 0|62 1|0 ENDTAB|0 ENDSEC|0 SECTION|2 "
        "BLOCKS|0 "
        "BLOCK|2 B|70 0|10 0|20 0|0 POINT|8 0|10 1|20 1|0 ENDBLK|0 ENDSEC");
    for (std::size_t size = 0; size + 4 < text.size(); ++size) {
        const auto loaded = tryLoad(text.substr(0, size));
        ASSERT_FALSE(loaded.ok()) << "cut at byte " << size;
        ASSERT_FALSE(loaded.error().text.empty());
        ASSERT_GT(loaded.error().line, 0) << "cut at byte " << size;
    }
    EXPECT_TRUE(tryLoad(text).ok());
}

TEST(Damage, TruncatedDrawingsAreErrors) {
    const BarModule module;
    const std::string text = sample(dxf::Form::Ascii);
    for (std::size_t size = 0; size + 4 < text.size(); size += kStep) {
        const auto loaded = tryLoad(text.substr(0, size));
        ASSERT_FALSE(loaded.ok()) << "cut at byte " << size;
        ASSERT_FALSE(loaded.error().text.empty());
        ASSERT_GT(loaded.error().line, 0) << "cut at byte " << size;
    }
    EXPECT_TRUE(tryLoad(text).ok());
    EXPECT_TRUE(tryLoad(text.substr(0, text.size() - 1)).ok())
        << "only the last line end is missing";
}

TEST(Damage, TruncatedBinaryFilesAreErrors) {
    const BarModule module;
    const std::string bytes = sample(dxf::Form::Binary);
    for (std::size_t size = 0; size + 4 < bytes.size(); size += kStep) {
        const auto loaded = tryLoad(bytes.substr(0, size));
        ASSERT_FALSE(loaded.ok()) << "cut at byte " << size;
        const bool tells = loaded.error().text.find("byte") != std::string::npos;
        ASSERT_TRUE(tells || size <= dxf::binarySignature().size()) << loaded.error().text;
    }
    EXPECT_TRUE(tryLoad(bytes).ok());
}

TEST(Damage, BadGroupsAreToldWithTheirLine) {
    struct Case {
        const char* entity;
        int line;  ///< in the entity, counted from its group 0
        const char* text;
    };
    const Case cases[] = {
        {"0 LINE|8 0|10 1,5|20 0|11 1|21 0", 6, "separador decimal"},
        {"0 LINE|8 0|10 abc|20 0|11 1|21 0", 6, "código 10"},
        {"0 LINE|8 0|10 |20 0|11 1|21 0", 6, "código 10"},
        {"0 CIRCLE|8 0|10 1|20 0|40 nan", 10, "código 40"},
        {"0 LINE|8 0|62 x|10 1|20 0", 6, "código 62"},
        {"0 LINE|5 XYZ|8 0|10 1|20 0", 4, "código 5"},
        {"0 DESCONHECIDO|8 0|40 1,5", 6, "código 40"},
        {"0 LINE|8 0|10 1|20 0|1001 A|1040 1,5", 12, "código 1040"},
        {"0 POLYLINE|8 0|0 VERTEX|8 0|10 1|20 2|0 LINE|8 0", 14, "SEQEND"},
        {"0 INSERT|8 0|66 1|2 B|10 0|20 0|0 LINE|8 0", 14, "SEQEND"},
    };
    for (const Case& c : cases) {
        const auto loaded = tryLoad(fileWith(c.entity));
        ASSERT_FALSE(loaded.ok()) << c.entity;
        EXPECT_NE(loaded.error().text.find(c.text), std::string::npos) << loaded.error().text;
        // Seven groups stand before the first entity: two of the section, four of the header, ...
        EXPECT_EQ(loaded.error().line, 14 + c.line) << c.entity;
        EXPECT_NE(loaded.error().message().find("a.dxf"), std::string::npos);
    }
}

TEST(Damage, BadStructureIsToldInWords) {
    const std::string good = fileWith("0 POINT|8 0|10 0|20 0");
    const auto replaced = [&](const std::string& from, const std::string& to) {
        std::string out = good;
        out.replace(out.find(from), from.size(), to);
        return out;
    };
    const std::pair<std::string, const char*> cases[] = {
        {"", "EOF"},
        {"isto não é um desenho\n", "código de grupo"},
        {replaced("0\nEOF\n", ""), "EOF"},
        {replaced("0\nSECTION\n2\nENTITIES\n", "0\nLINE\n"), "SECTION"},
        {replaced("2\nENTITIES\n", ""), "nome"},
        {replaced("8\n0\n", "8\n0\n0\n"), "código de grupo"},
        {replaced("10\n0\n", "1x\n0\n"), "código de grupo"},
        {fileWith("0 POINT|8 0|10 0|20 0", "AC1015", "0 SECTION|2 TABLES|0 LAYER|2 A|0 ENDSEC"),
         "TABLE"},
        {fileWith("0 POINT|8 0|10 0|20 0", "AC1015", "0 SECTION|2 BLOCKS|0 LINE|8 0|0 ENDSEC"),
         "BLOCK"},
        {fileWith("0 POINT|8 0|10 0|20 0", "AC1015",
                  "0 SECTION|2 BLOCKS|0 BLOCK|2 A|10 0|20 0|0 ENDSEC"),
         "ENDBLK"},
        {fileWith("0 POINT|8 0|10 0|20 0", "AC1015",
                  "0 SECTION|2 BLOCKS|0 BLOCK|2 *U1|10 0|20 0|0 ENDSEC"),
         "ENDBLK"},
    };
    for (const auto& [text, word] : cases) {
        const auto loaded = tryLoad(text);
        ASSERT_FALSE(loaded.ok()) << word;
        EXPECT_NE(loaded.error().text.find(word), std::string::npos) << loaded.error().text;
        EXPECT_GT(loaded.error().line, 0) << loaded.error().text;
    }
}

TEST(Damage, WhatCanBeRepairedIsReported) {
    dxf::LoadReport report;
    const auto database = loadText(fileWith("0 POINT|5 A1|8 0|10 0|20 0|0 POINT|5 A1|8 NOVA|10 "
                                            "1|20 1|0 INSERT|8 0|2 NENHUM|10 0|20 0"),
                                   &report);
    ASSERT_NE(database, nullptr);
    EXPECT_EQ(modelSpace(*database).size(), 3U);
    EXPECT_EQ(report.findings.size(), 3U)
        << "handle twice, layer without record, block without content";
    const Groups all = groupsOf(saved(*database));
    EXPECT_FALSE(record(all, "BLOCK", 2, "NENHUM").empty());
    EXPECT_FALSE(record(all, "LAYER", 2, "NOVA").empty());
}

TEST(Damage, AnEmptyPointerIsNull) {
    const char* tables =
        "0 SECTION|2 TABLES|0 TABLE|2 LAYER|5 |330 |100 AcDbSymbolTable|70 1|0 LAYER|5 A7|330 |100 "
        "AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 A|70 0|62 1|390 |0 ENDTAB|0 "
        "TABLE|2 DIMSTYLE|5 8|330 0|100 AcDbSymbolTable|70 1|0 DIMSTYLE|105 A8|330 8|100 "
        "AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 COTA|70 0|340 |341 |0 ENDTAB|0 ENDSEC";
    dxf::LoadReport report;
    const auto database = loadText(
        fileWith("0 POINT|5 |330 |100 AcDbEntity|8 A|100 AcDbPoint|10 0|20 0|0 POLYLINE|5 B1|330 "
                 "|100 AcDbEntity|8 A|100 AcDb2dPolyline|66 1|10 0|20 0|30 0|0 VERTEX|5 |330 |100 "
                 "AcDbEntity|8 A|100 AcDbVertex|100 AcDb2dVertex|10 1|20 1|30 0|0 SEQEND|5 |8 A",
                 "AC1015", tables),
        &report);
    ASSERT_NE(database, nullptr);
    EXPECT_TRUE(report.findings.empty());
    const Groups all = groupsOf(saved(*database));
    EXPECT_EQ(valueOf(record(all, "DIMSTYLE", 2, "COTA"), 341), "0");
    EXPECT_EQ(valueOf(record(all, "LAYER", 2, "A"), 390), "0");
    for (const Group& group : all)
        EXPECT_FALSE(group.value.empty() && (group.code == 5 || group.code >= 320)) << group;
    for (const char* type : {"POINT", "VERTEX", "SEQEND"})
        EXPECT_NE(valueOf(record(all, type), 5), "0") << type;
}

TEST(Damage, ObjectsGiveWayToTheHandlesOfWhatIsKept) {
    const char* tables =
        "0 SECTION|2 TABLES|0 TABLE|2 VIEW|5 E0|330 0|100 AcDbSymbolTable|70 1|0 VIEW|5 A1|330 "
        "E0|100 AcDbSymbolTableRecord|100 AcDbViewTableRecord|2 Planta|70 0|40 100.0|10 0|20 0|0 "
        "ENDTAB|0 ENDSEC";
    dxf::LoadReport report;
    const auto database =
        loadText(fileWith("0 POINT|5 A1|8 0|10 0|20 0", "AC1015", tables), &report);
    ASSERT_NE(database, nullptr);
    EXPECT_EQ(report.findings.size(), 1U);
    const Groups all = groupsOf(saved(*database));
    EXPECT_EQ(std::count(all.begin(), all.end(), Group{5, "A1"}), 1);
    EXPECT_EQ(valueOf(record(all, "VIEW"), 5), "A1");
}

TEST(Damage, RecoveredIsAllThatIsWhole) {
    // A layer, a block with a point, and in the drawing: an insertion, a polyline, a line.
    const std::string good = fileWith(
        "0 INSERT|5 A1|8 0|2 B|10 0|20 0|0 POLYLINE|5 A2|8 0|66 1|0 VERTEX|8 0|10 1|20 1|0 "
        "VERTEX|8 0|10 2|20 1|0 SEQEND|0 LINE|5 A3|8 A|10 1.5|20 0|11 1|21 0",
        "AC1015",
        "0 SECTION|2 TABLES|0 TABLE|2 LAYER|0 LAYER|2 A|70 0|62 1|0 ENDTAB|0 ENDSEC|0 SECTION|2 "
        "BLOCKS|0 BLOCK|2 B|70 0|10 0|20 0|0 POINT|8 0|10 1|20 1|0 ENDBLK|0 ENDSEC");
    struct Case {
        const char* what;
        std::string from, to;    ///< the last `from` of the good file
        std::string types;       ///< of model space
        std::vector<int> lines;  ///< of what is told
    };
    // It has 116 lines; those told are counted in the changed file.
    const std::string whole = "INSERT POLYLINE LINE ";
    const Case cases[] = {
        {"nothing", "", "", whole, {}},
        {"no EOF", "0\nEOF\n", "", whole, {114}},
        {"no end of a section", "0\nENDSEC\n0\nEOF", "0\nEOF", whole, {114}},
        {"no end of a table", "0\nENDTAB\n", "", whole, {28}},
        {"no end of a block", "0\nENDBLK\n", "", whole, {54}},
        {"no beginning of a section", "0\nSECTION\n2\nENTITIES\n", "", whole, {58}},
        {"a section without its name", "2\nENTITIES\n", "", whole, {58, 60}},
        {"garbage between groups", "11\n1\n21", "@#$ lixo\n11\n1\n21", "INSERT POLYLINE ", {109}},
        {"a line is missing", "10\n1.5\n", "10\n", "INSERT POLYLINE ", {107}},
        {"a bad number", "1.5\n", "1,5\n", "INSERT POLYLINE ", {106}},
        {"a bad handle", "A2\n", "XYZ\n", "INSERT LINE ", {76}},
        {"a bad number in a vertex", "10\n2\n", "10\nx\n", whole, {94}},
        {"no end of the vertices", "0\nSEQEND\n", "", whole, {98}},
        {"no layer record", "0\nLAYER\n2\nA\n70\n0\n62\n1\n", "", whole, {0}},
    };
    for (const Case& c : cases) {
        std::string text = good;
        text.replace(text.rfind(c.from), c.from.size(), c.to);
        const Folder folder;
        write(folder / "a.dxf", text);
        dxf::LoadReport report;
        const auto loaded = dxf::recover(folder / "a.dxf", report);
        ASSERT_TRUE(loaded.ok()) << c.what << ": " << loaded.error().message();
        std::string types;
        for (const AcDbEntity* const each : modelSpace(**loaded))
            types += each->isA() == AcDbBlockReference::desc() ? "INSERT "
                     : each->isA() == AcDbLine::desc()         ? "LINE "
                                                               : "POLYLINE ";
        EXPECT_EQ(types, c.types) << c.what;
        std::vector<int> lines;
        std::string told;
        for (const dxf::Finding& finding : report.findings) {
            lines.push_back(finding.line);
            told += finding.text + "; ";
        }
        EXPECT_EQ(lines, c.lines) << c.what << ": " << told;
        EXPECT_EQ(countOf(groupsOf(saved(**loaded)), "POINT"), 1U) << c.what;
    }
}

TEST(Damage, RecoveryGoesAsFarAsAFileGoes) {
    const BarModule module;
    const std::string text = sample(dxf::Form::Ascii);
    const Folder folder;
    const auto recovered = [&](const std::string& bytes, dxf::LoadReport& report) {
        write(folder / "a.dxf", bytes);
        return dxf::recover(folder / "a.dxf", report);
    };
    dxf::LoadReport nothing;
    const auto all = recovered(text, nothing);
    ASSERT_TRUE(all.ok());
    EXPECT_TRUE(nothing.findings.empty());
    EXPECT_EQ(saved(**all), text) << "what is whole stays as it stands";
    std::size_t before = 0;
    for (std::size_t size = 101; size + 4 < text.size(); size += 997) {
        dxf::LoadReport report;
        const auto part = recovered(text.substr(0, size), report);
        ASSERT_TRUE(part.ok()) << "cut at byte " << size << ": " << part.error().message();
        EXPECT_FALSE(report.findings.empty()) << "cut at byte " << size;
        const std::size_t count = modelSpace(**part).size();
        EXPECT_GE(count, before) << "cut at byte " << size;
        before = count;
        ASSERT_TRUE(tryLoad(saved(**part)).ok()) << "cut at byte " << size;
    }
    // Two hundred thousand lines of garbage in the middle take no time to speak of.
    std::string garbage;
    for (int i = 0; i < 200000; ++i) garbage += i % 3 == 0 ? "0\n" : "lixo lixo\n";
    std::string filled = text;
    filled.insert(filled.find("0\nSECTION\n  2\nENTITIES") + 2, garbage);
    dxf::LoadReport report;
    EXPECT_TRUE(recovered(filled, report).ok());
    dxf::LoadReport none;
    EXPECT_FALSE(recovered("isto não é um desenho\n", none).ok());
}

TEST(Damage, RecoveryNamesWhatItReadsInAnotherWay) {
    const std::string layout =
        "|5 D3|330 D2|100 AcDbPlotSettings|1 |100 AcDbLayout|1 Folha|70 1|71 "
        "1|10 1|11 420|21 297|330 0";
    std::string text = fileWith(
        "0 LINE|5 A1|8 0|10 1|11 5|21 5|0 CIRCLE|5 A1|8 0|10 1|20 1|40 2", "AC1015",
        "0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|330 0|100 AcDbDictionary|3 ACAD_LAYOUT|350 D2|0 "
        "DICTIONARY|5 D2|330 C|100 AcDbDictionary|3 Folha|350 D3|0 LAYOUT" +
            layout + "|0 MATERIAL|5 D4|330 C|0 MATERIAL|5 D4|330 C|0 ENDSEC");
    text.replace(text.find("$ACADVER"), 8, "ACADVER");
    const Folder folder;
    write(folder / "a.dxf", text);
    dxf::LoadReport report;
    const auto loaded = dxf::recover(folder / "a.dxf", report);
    ASSERT_TRUE(loaded.ok()) << loaded.error().message();
    const auto lineOf = [&](const std::string& record, int further) {
        const auto lines = std::count(
            text.begin(), text.begin() + static_cast<std::ptrdiff_t>(text.find(record)), '\n');
        return static_cast<int>(lines) + further;
    };
    const std::pair<const char*, int> expected[] = {
        {"lida como $ACADVER", lineOf("ACADVER", 1)},
        {"LINE: falta a coordenada y (grupo 20)", lineOf("\n10\n1\n11\n5", 3)},
        {"LAYOUT: falta a coordenada y (grupo 20)", lineOf("\n10\n1\n11\n420", 3)},
        {"identificador repetido", lineOf("CIRCLE", 1)},
        {"identificador repetido", lineOf("MATERIAL", 1) + 6},
    };
    for (const auto& [told, line] : expected)
        EXPECT_EQ(std::ranges::count_if(report.findings,
                                        [&](const dxf::Finding& finding) {
                                            return finding.line == line &&
                                                   finding.text.find(told) != std::string::npos;
                                        }),
                  1)
            << told << " " << line;
    EXPECT_EQ(report.findings.size(), std::size(expected));
    const Groups all = groupsOf(saved(**loaded));
    EXPECT_EQ(countOf(all, "MATERIAL"), 2U);
    std::set<std::string> handles;
    for (std::size_t i = 1; i < all.size(); ++i) {
        if (all[i].code != 5 || all[i - 1].code != 0) continue;
        EXPECT_TRUE(handles.insert(all[i].value).second) << all[i].value;
    }
}

TEST(Damage, RecoveryOfABinaryFileGoesOnAtTheNextRecord) {
    AcDbDatabase database(true, true);
    for (int i = 1; i <= 5; ++i) append(database, new AcDbCircle({1.0 * i, 0, 0}, {0, 0, 1}, i));
    const std::string whole = saved(database, {dxf::Version::Keep, dxf::Form::Binary});
    const std::size_t third =
        whole.find("CIRCLE", whole.find("CIRCLE", whole.find("CIRCLE") + 1) + 1);
    ASSERT_NE(third, std::string::npos);
    const Folder folder;
    const auto recovered = [&](const std::string& bytes, dxf::LoadReport& report) {
        write(folder / "a.dxf", bytes);
        return dxf::recover(folder / "a.dxf", report);
    };
    std::string damaged = whole;
    damaged.replace(third + 8, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_NE(tryLoad(damaged).error().text.find("byte"), std::string::npos);
    dxf::LoadReport report;
    const auto four = recovered(damaged, report);
    ASSERT_TRUE(four.ok()) << four.error().message();
    EXPECT_EQ(modelSpace(**four).size(), 4U);
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_NE(report.findings[0].text.find("CIRCLE"), std::string::npos);
    EXPECT_NE(report.findings[0].text.find("(byte "), std::string::npos);
    EXPECT_EQ(report.findings[0].line, 0);
    dxf::LoadReport cut;
    const auto two = recovered(whole.substr(0, third + 20), cut);
    ASSERT_TRUE(two.ok()) << two.error().message();
    EXPECT_EQ(modelSpace(**two).size(), 2U);
    dxf::LoadReport none;
    ASSERT_TRUE(recovered(whole, none).ok());
    EXPECT_TRUE(none.findings.empty());
}

TEST(Damage, WhatStandsBehindTheEndIsNoDamage) {
    const std::string good = fileWith("0 POINT|8 0|10 0|20 0");
    for (const char* rest : {"\x1A", "\x1A\r\n", "\n\n\n\n", " \n\n\n"}) {
        const auto loaded = tryLoad(good + rest);
        EXPECT_TRUE(loaded.ok()) << loaded.error().message();
    }
}

TEST(Damage, LinesChangedAtRandomNeverCrash) {
    const BarModule module;
    const std::string text = sample(dxf::Form::Ascii);
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
        lines.push_back(text.substr(at, text.find('\n', at) - at));
    const char* const values[] = {"",       "-1",  "0", "99999999999999999999", "*U1", "1e308", "{",
                                  "ENDSEC", "330", "é"};
    std::uint32_t random = 12345;
    int loaded = 0;
    for (int i = 0; i < 800; ++i) {
        std::vector<std::string> changed = lines;
        for (int k = 0; k < 2; ++k) {
            random = random * 1664525U + 1013904223U;
            changed[(random >> 8) % changed.size()] = values[(random >> 4) % std::size(values)];
        }
        std::string out;
        for (const std::string& line : changed) out += line + "\n";
        auto result = tryLoad(out);
        if (!result.ok()) continue;
        ++loaded;
        // What was accepted can be written and read again.
        const auto again = tryLoad(saved(**result));
        ASSERT_TRUE(again.ok()) << again.error().message();
    }
    EXPECT_GT(loaded, 0);
}

TEST(Damage, DictionariesInsideOneAnotherWithoutEndDoNotCrash) {
    constexpr std::size_t kCount = 20000;
    std::string objects;
    for (std::size_t i = 0; i < kCount; ++i) {
        const auto handle = [i](std::size_t n) { return std::to_string(100000 + i + n); };
        objects += "0\nDICTIONARY\n5\n" + handle(0) + "\n100\nAcDbDictionary\n3\nA\n350\n" +
                   handle(1) + "\n";
    }
    std::string text = fileWith("0 POINT|8 0|10 0|20 0");
    text.insert(text.rfind("0\nEOF"), "0\nSECTION\n2\nOBJECTS\n" + objects + "0\nENDSEC\n");
    const auto loaded = tryLoad(text);
    ASSERT_TRUE(loaded.ok()) << loaded.error().message();
    EXPECT_GE(countOf(groupsOf(saved(**loaded)), "DICTIONARY"), kCount) << "none is lost";
}

TEST(Damage, BlocksInsideOneAnotherWithoutEndAreShownToALevel) {
    const auto nest = [](int levels, const std::string& last) {
        std::string blocks = "0 SECTION|2 BLOCKS";
        for (int i = 0; i < levels; ++i) {
            const std::string inner =
                i + 1 < levels ? "0 INSERT|8 0|2 N" + std::to_string(i + 1) + "|10 1|20 0" : last;
            blocks += "|0 BLOCK|8 0|2 N" + std::to_string(i) +
                      "|70 0|10 0|20 0|0 CIRCLE|8 0|10 "
                      "0|20 0|40 1|" +
                      inner + "|0 ENDBLK|8 0";
        }
        return fileWith("0 INSERT|8 0|2 N0|10 0|20 0|0 LINE|8 0|10 0|20 0|11 1|21 0", "AC1015",
                        blocks + "|0 ENDSEC");
    };
    struct Case {
        const char* what;
        int levels;
        std::string last;
        const char* told;
        double width;  ///< of the reference: a circle a level, each 1 further to the right
    };
    const Case cases[] = {
        {"as deep as can be shown", 128, "0 POINT|8 0|10 0|20 0", nullptr, 129.0},
        {"deeper", 8000, "0 POINT|8 0|10 0|20 0", "8000 níveis", 129.0},
        {"in a circle", 5, "0 INSERT|8 0|2 N2|10 1|20 0", "contém a si mesmo", 6.0},
        {"in itself", 1, "0 INSERT|8 0|2 N0|10 1|20 0", "\"N0\" contém a si mesmo", 2.0},
    };
    for (const Case& c : cases) {
        dxf::LoadReport report;
        const auto database = loadText(nest(c.levels, c.last), &report);
        ASSERT_NE(database, nullptr) << c.what;
        ASSERT_EQ(report.findings.size(), c.told != nullptr ? 1U : 0U) << c.what;
        const std::string told = report.findings.empty() ? "" : report.findings[0].text;
        EXPECT_NE(told.find(c.told != nullptr ? c.told : ""), std::string::npos) << told;
        AcDbExtents extents;
        ASSERT_EQ(modelSpace(*database).at(0)->getGeomExtents(extents), Acad::eOk) << c.what;
        EXPECT_NEAR(extents.maxPoint().x - extents.minPoint().x, c.width, 1e-9) << c.what;
        AcDbVoidPtrArray parts;
        EXPECT_EQ(modelSpace(*database).at(0)->explode(parts), Acad::eOk) << c.what;
        for (void* part : parts) delete static_cast<AcDbEntity*>(part);
        const Groups all = groupsOf(saved(*database));
        EXPECT_EQ(countOf(all, "INSERT"), countOf(groupsOf(nest(c.levels, c.last)), "INSERT"));
    }
}

TEST(Damage, EmptyBlocksThatMultiplyAreCut) {
    std::string blocks = "0 SECTION|2 BLOCKS";
    for (int i = 0; i < 60; ++i) {
        const std::string inner = "|0 INSERT|8 0|2 N" + std::to_string(i + 1) + "|10 1|20 0";
        blocks += "|0 BLOCK|8 0|2 N" + std::to_string(i) + "|70 0|10 0|20 0" + inner + inner +
                  "|0 ENDBLK|8 0";
    }
    blocks += "|0 BLOCK|8 0|2 N60|70 0|10 0|20 0|0 ENDBLK|8 0|0 ENDSEC";
    const auto database = loadText(fileWith("0 INSERT|8 0|2 N0|10 0|20 0", "AC1015", blocks));
    ASSERT_NE(database, nullptr);
    AcDbExtents extents;
    EXPECT_NE(modelSpace(*database).at(0)->getGeomExtents(extents), Acad::eOk) << "it is empty";
}
