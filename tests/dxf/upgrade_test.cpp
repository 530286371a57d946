// SPDX-License-Identifier: MIT
// Files older than R2000 become R2000.
#include "dbdim.h"
#include "dbpl.h"
#include "prancheta/database/database_core.h"
#include "prancheta/entities/foreign_entity.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta;

namespace {

/// Markers of a record, in order.
std::string markers(const Groups& record) {
    std::string out;
    for (const Group& group : record)
        if (group.code == 100) out += group.value + " ";
    return out;
}

const char* const kOld =
    "0 LINE|8 VELHA|62 2|10 0|20 0|30 0|11 10|21 0|31 0|39 5.0|0 ARC|8 0|10 1|20 2|30 0|40 3|50 "
    "0|51 90|0 TEXT|8 0|10 0|20 "
    "0|30 0|40 2.5|1 A\xE7o|7 STANDARD|72 1|11 5|21 5|31 0|0 POLYLINE|8 0|66 1|10 0|20 0|30 0|70 "
    "1|0 VERTEX|8 0|10 0|20 0|30 "
    "0|42 0.5|0 VERTEX|8 0|10 9|20 9|30 0|0 SEQEND|8 0|0 3DFACE|8 0|10 0|20 0|30 0|11 1|21 0|31 "
    "0|12 1|22 1|32 0|13 0|23 1|33 "
    "0|0 DIMENSION|8 0|2 *D0|10 0|20 5|30 0|11 2|21 5|31 0|70 0|1 |13 0|23 0|33 0|14 4|24 3|34 "
    "0|50 0.0";

}  // namespace

TEST(Upgrade, EntitiesOfR12GetHandlesOwnersAndMarkers) {
    const char* blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 *D0|70 1|10 0|20 0|30 0|3 *D0|0 LINE|8 0|10 0|20 0|11 "
        "4|21 0|0 "
        "ENDBLK|8 0|0 ENDSEC";
    const Groups all = passed(fileWith(kOld, "AC1009", blocks));
    EXPECT_EQ(all[3], (Group{1, "AC1015"}));
    const std::pair<const char*, const char*> expected[] = {
        {"LINE", "AcDbEntity AcDbLine "},
        {"ARC", "AcDbEntity AcDbCircle AcDbArc "},
        {"TEXT", "AcDbEntity AcDbText AcDbText "},
        {"POLYLINE", "AcDbEntity AcDb2dPolyline "},
        {"VERTEX", "AcDbEntity AcDbVertex AcDb2dVertex "},
        {"SEQEND", "AcDbEntity "},
        {"3DFACE", "AcDbEntity AcDbFace "},
        {"DIMENSION", "AcDbEntity AcDbDimension AcDbAlignedDimension AcDbRotatedDimension "},
    };
    for (const auto& [type, wanted] : expected) {
        const Groups found = record(all, type);
        EXPECT_EQ(markers(found), wanted) << type;
        EXPECT_NE(valueOf(found, 5), "(sem o grupo)") << type;
        EXPECT_NE(valueOf(found, 330), "0") << type;
    }
    EXPECT_EQ(valueOf(record(all, "VERTEX"), 330), valueOf(record(all, "POLYLINE"), 5));
    EXPECT_EQ(valueOf(record(all, "LINE", 8, "VELHA"), 39), "5.0")
        << "thickness, behind its marker";
    EXPECT_FALSE(record(all, "LAYER", 2, "VELHA").empty()) << "a layer without a record gets one";
    EXPECT_FALSE(record(all, "TEXT", 1, "A\xE7o").empty());
    EXPECT_EQ(countOf(all, "VERTEX"), 2U);
}

TEST(Upgrade, SecondSaveChangesNothing) {
    const auto first = loadText(fileWith(kOld, "AC1009"));
    ASSERT_NE(first, nullptr);
    const std::string text = saved(*first);
    const auto second = loadText(text);
    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(saved(*second) == text);
}

TEST(Upgrade, TablesAndVariablesOfR12) {
    std::string text = fileWith("0 LINE|8 0|6 TRACO|10 0|20 0|11 1|21 1", "AC1009",
                                "0 SECTION|2 TABLES|0 TABLE|2 VPORT|70 1|0 VPORT|2 *ACTIVE|70 0|12 "
                                "55.5|22 0|40 77|0 ENDTAB|0 TABLE|2 LTYPE|70 1|0 "
                                "LTYPE|2 TRACO|70 64|3 --|72 65|73 2|40 2.0|49 1.5|49 -0.5|0 "
                                "ENDTAB|0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|2 COTA|70 "
                                "0|3 |4 |5 SETA|6 |7 |40 10.0|41 3.0|140 1.8|0 ENDTAB|0 ENDSEC");
    text.insert(text.find("0\nENDSEC"),
                "9\n$FASTZOOM\n70\n1\n9\n$LTSCALE\n40\n3.0\n9\n$DIMSTYLE\n2\nCOTA\n");
    const Groups all = groupsOf(saved(*loadText(text)));
    EXPECT_EQ(markers(record(all, "VPORT")), "AcDbSymbolTableRecord AcDbViewportTableRecord ");
    EXPECT_EQ(valueOf(record(all, "VPORT"), 12), "55.5");
    EXPECT_EQ(valueOf(record(all, "LTYPE", 2, "TRACO"), 40), "2.0");
    const Groups style = record(all, "DIMSTYLE", 2, "COTA");
    EXPECT_EQ(valueOf(style, 40), "10.0");
    EXPECT_EQ(valueOf(style, 140), "1.8");
    EXPECT_NE(valueOf(style, 105), "(sem o grupo)");
    EXPECT_EQ(valueOf(style, 5), "(sem o grupo)");
    const std::string header = fileText(all);
    EXPECT_EQ(header.find("$FASTZOOM"), std::string::npos) << "unknown to newer releases";
    EXPECT_NE(header.find("$DIMSTYLE\n2\nCOTA\n"), std::string::npos);
    EXPECT_NE(header.find("$LTSCALE\n40\n3.0\n"), std::string::npos);
}

TEST(Upgrade, ArrowsOfR12AreNamedByTheirBlocks) {
    const char* const others =
        "0 SECTION|2 TABLES|0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|2 COTA|70 0|5 SETA|6 NENHUMA|7 "
        "OPEN30|40 1.0|0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 Seta|70 0|10 0|20 0|0 "
        "LINE|8 0|10 0|20 0|11 1|21 0|0 ENDBLK|8 0|0 BLOCK|8 0|2 _Open30|70 0|10 0|20 0|0 "
        "ENDBLK|8 0|0 ENDSEC";
    dxf::LoadReport report;
    const auto database = loadText(fileWith("0 POINT|8 0|10 0|20 0", "AC1009", others), &report);
    ASSERT_NE(database, nullptr);
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_NE(report.findings[0].text.find("NENHUMA"), std::string::npos);
    const std::string text = saved(*database);
    const Groups all = groupsOf(text);
    const Groups style = record(all, "DIMSTYLE", 2, "COTA");
    EXPECT_EQ(valueOf(style, 342), valueOf(record(all, "BLOCK_RECORD", 2, "Seta"), 5));
    EXPECT_EQ(valueOf(style, 344), valueOf(record(all, "BLOCK_RECORD", 2, "_Open30"), 5));
    EXPECT_EQ(valueOf(style, 343), "(sem o grupo)");
    EXPECT_TRUE(saved(*loadText(text)) == text);
}

TEST(Upgrade, ObjectsOfR12BelongToTheirDictionaries) {
    // Writers that add the objects of newer releases name neither owners nor blocks that are there.
    const char* const objects =
        "0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|100 AcDbDictionary|280 0|281 1|3 ACAD_GROUP|350 D|3 "
        "ACAD_LAYOUT|350 1A|3 ACAD_MLINESTYLE|350 17|3 ACAD_PLOTSTYLENAME|350 E|0 DICTIONARY|5 "
        "D|100 AcDbDictionary|280 0|281 1|0 ACDBDICTIONARYWDFLT|5 E|100 AcDbDictionary|281 1|3 "
        "Normal|350 F|100 AcDbDictionaryWithDefault|340 F|0 ACDBPLACEHOLDER|5 F|0 DICTIONARY|5 "
        "17|100 AcDbDictionary|3 Standard|350 18|0 MLINESTYLE|5 18|100 AcDbMlineStyle|2 "
        "STANDARD|70 0|3 |62 256|51 90.0|52 90.0|71 1|49 0.5|62 256|6 BYLAYER|0 DICTIONARY|5 "
        "1A|100 AcDbDictionary|3 Layout1|350 1E|3 Model|350 22|0 LAYOUT|5 1E|100 "
        "AcDbPlotSettings|100 AcDbLayout|1 Layout1|71 1|330 1B|0 LAYOUT|5 22|100 "
        "AcDbPlotSettings|100 AcDbLayout|1 Model|71 0|330 1F|0 ENDSEC";
    dxf::LoadReport report;
    const auto database = loadText(fileWith("0 POINT|8 0|10 0|20 0", "AC1009", objects), &report);
    ASSERT_NE(database, nullptr);
    EXPECT_EQ(report.findings.size(), 1U);
    const Groups all = groupsOf(saved(*database));
    ASSERT_EQ(countOf(all, "LAYOUT"), 2U);
    for (const auto& [layout, block] :
         {std::pair("Model", "*Model_Space"), std::pair("Layout1", "*Paper_Space")}) {
        const Groups sheet = record(all, "LAYOUT", 1, layout);
        EXPECT_EQ(sheet.back().value, valueOf(record(all, "BLOCK_RECORD", 2, block), 5));
        EXPECT_FALSE(record(all, "DICTIONARY", 350, valueOf(sheet, 5)).empty());
    }
    EXPECT_EQ(valueOf(record(all, "MLINESTYLE"), 330), "17");
    EXPECT_EQ(valueOf(record(all, "ACDBPLACEHOLDER"), 330), "E");
}

TEST(Upgrade, AlignedDimensionOfR12IsAlive) {
    const auto database = loadText(fileWith(
        "0 DIMENSION|8 0|2 *D0|10 4|20 6|30 0|11 2|21 6|31 0|70 1|1 |13 0|23 0|33 0|14 4|24 0|34 0",
        "AC1009"));
    ASSERT_NE(database, nullptr);
    const auto* dimension = AcDbAlignedDimension::cast(modelSpace(*database).at(0));
    ASSERT_NE(dimension, nullptr);
    EXPECT_EQ(dimension->measurement(), 4.0);
    EXPECT_EQ(dimension->dimLinePoint().y, 6.0);
}

TEST(Upgrade, HandlesOfR14Stay) {
    const char* entities =
        "0 LINE|5 3F|100 AcDbEntity|8 0|100 AcDbLine|10 0|20 0|30 0|11 1|21 0|31 0|0 LWPOLYLINE|5 "
        "40|100 "
        "AcDbEntity|8 0|100 AcDbPolyline|90 2|70 0|43 0.0|10 0|20 0|10 1|20 1";
    const char* objects =
        "0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|100 AcDbDictionary|3 ACAD_GROUP|350 D|0 DICTIONARY|5 "
        "D|102 "
        "{ACAD_REACTORS|330 C|102 }|100 AcDbDictionary|0 ENDSEC";
    const Groups all = passed(fileWith(entities, "AC1014", objects));
    EXPECT_EQ(record(all, "DICTIONARY", 5, "D"),
              groups("0 DICTIONARY|5 D|102 {ACAD_REACTORS|330 C|102 }|330 C|100 AcDbDictionary"));
    EXPECT_EQ(valueOf(record(all, "LINE"), 5), "3F");
    EXPECT_NE(valueOf(record(all, "LINE"), 330), "(sem o grupo)");
    EXPECT_EQ(valueOf(record(all, "LWPOLYLINE"), 5), "40");
}

TEST(Upgrade, CodePagesOfOldFiles) {
    const auto withPage = [](const char* page) {
        std::string text = fileWith("0 TEXT|8 0|10 0|20 0|40 2.5|1 a\x87\xC6o", "AC1009");
        text.insert(text.find("0\nENDSEC"), "9\n$DWGCODEPAGE\n3\n" + std::string(page) + "\n");
        return text;
    };
    dxf::LoadReport report;
    // 87 and C6 are the letters of "ação" there.
    const auto dos = loadText(withPage("dos850"), &report);
    ASSERT_NE(dos, nullptr);
    EXPECT_TRUE(report.findings.empty());
    EXPECT_STREQ(static_cast<AcDbText*>(modelSpace(*dos).at(0))->textStringConst(), L"ação");
    const std::string fromDos = saved(*dos);
    EXPECT_NE(fromDos.find("\n1\na\xE7\xE3o\n"), std::string::npos);
    EXPECT_NE(fromDos.find("$DWGCODEPAGE\n3\nANSI_1252\n"), std::string::npos);

    // A page that is known, and one that is not: its bytes come back, new letters are escaped.
    for (const char* name : {"ANSI_1253", "ANSI_9"}) {
        const auto other = loadText(withPage(name), &report);
        ASSERT_NE(other, nullptr);
        append(*other, new AcDbText({0, 0, 0}, L"ação", AcDbObjectId::kNull, 2.5));
        const std::string again = saved(*other);
        EXPECT_NE(again.find("\n1\na\x87\xC6o\n"), std::string::npos) << name;
        EXPECT_NE(again.find("\n1\na\\U+00E7\\U+00E3o\n"), std::string::npos) << name;
        EXPECT_NE(again.find("$DWGCODEPAGE\n3\n" + std::string(name) + "\n"), std::string::npos);
        EXPECT_NE(saved(*other, {dxf::Version::R2018}).find("$DWGCODEPAGE\n3\nANSI_1252\n"),
                  std::string::npos);
    }
    EXPECT_EQ(report.findings.size(), 1U) << "the unknown one";
    EXPECT_NE(saved(*loadText(withPage("Ansi_1252"))).find("$DWGCODEPAGE\n3\nANSI_1252\n"),
              std::string::npos);
}
