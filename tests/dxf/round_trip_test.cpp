// SPDX-License-Identifier: MIT
// Drawings loaded, saved and loaded again.
#include "dbdim.h"
#include "dbhatch.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/user_system.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta;

namespace {

constexpr const char* kHead = "5 A1|330 1F|100 AcDbEntity|8 Perfis|";

/// Record of the first entity after load and save, without handle and owner.
std::string entityAfter(const std::string& entity, dxf::SaveOptions options = {}) {
    const Groups all = passed(fileWith(entity), options);
    const std::string type = entity.substr(2, entity.find('|') - 2);
    std::string out;
    for (const Group& group : record(all, type, 5, "A1"))
        if (group.code != 330 || out.find("AcDb") != std::string::npos)
            out += (out.empty() ? "" : "|") + std::to_string(group.code) + " " + group.value;
    return out;
}

/// The same entity as it should come back.
std::string expected(const std::string& entity) {
    std::string out = entity;
    out.erase(out.find("330 1F|"), 7);
    return out;
}

}  // namespace

TEST(Entities, EachTypeComesBackGroupByGroup) {
    const std::string head = kHead;
    const std::string entities[] = {
        "0 LINE|" + head + "100 AcDbLine|10 1.5|20 -2.0|30 0.25|11 1e-07|21 0.1|31 0.0",
        "0 POINT|" + head + "100 AcDbPoint|10 1.0|20 2.0|30 3.0",
        "0 CIRCLE|" + head + "100 AcDbCircle|10 1.0|20 2.0|30 3.0|40 12.7",
        "0 CIRCLE|" + head + "100 AcDbCircle|10 1.0|20 2.0|30 3.0|40 12.7|210 0.0|220 0.0|230 -1.0",
        "0 ARC|" + head +
            "100 AcDbCircle|10 1.0|20 2.0|30 0.0|40 5.0|100 AcDbArc|50 30.0|51 137.123456789",
        "0 LWPOLYLINE|" + head +
            "100 AcDbPolyline|90 3|70 1|38 5.0|10 0.0|20 0.0|40 1.0|41 2.0|10 4.0|20 "
            "0.0|42 -0.5|10 4.0|20 3.0",
        "0 LWPOLYLINE|" + head + "100 AcDbPolyline|90 2|70 128|43 1.5|10 0.0|20 0.0|10 4.0|20 0.0",
        "0 TEXT|" + head +
            "100 AcDbText|10 1.0|20 2.0|30 0.0|40 2.5|1 %%c10 Ω^ x|50 45.0|41 0.8|51 "
            "15.0|100 AcDbText",
        "0 SOLID|" + head +
            "100 AcDbTrace|10 0.0|20 0.0|30 0.0|11 1.0|21 0.0|31 0.0|12 0.0|22 1.0|32 "
            "0.0|13 1.0|23 1.0|33 0.0",
        "0 HATCH|" + head +
            "100 AcDbHatch|10 0.0|20 0.0|30 0.0|210 0.0|220 0.0|230 1.0|2 SOLID|70 1|71 0|91 1|92 "
            "3|72 1|73 1|93 2|10 -5.0|20 0.0|42 1.0|10 5.0|20 0.0|42 1.0|97 0|75 0|76 1|98 0",
        "0 ELLIPSE|" + head +
            "100 AcDbEllipse|10 1.0|20 2.0|30 3.0|11 3.0|21 4.0|31 0.0|210 0.0|220 0.0|230 "
            "-1.0|40 0.25|41 0.5|42 2.0",
        "0 XLINE|" + head + "100 AcDbXline|10 1.0|20 2.0|30 3.0|11 0.6|21 0.8|31 0.0",
        "0 RAY|" + head + "100 AcDbRay|10 1.0|20 2.0|30 3.0|11 0.0|21 -1.0|31 0.0",
        "0 VIEWPORT|" + head +
            "100 AcDbViewport|10 100.0|20 80.0|30 0.0|40 200.0|41 160.0|68 2|69 2|12 500.0|22 "
            "400.0|13 1.0|23 2.0|14 5.0|24 5.0|15 10.0|25 10.0|16 0.0|26 0.0|36 1.0|17 0.0|27 "
            "0.0|37 0.0|42 50.0|43 0.0|44 0.0|45 1600.0|50 0.0|51 90.0|72 1000|90 "
            "49248|1 |281 0|71 1|74 0|110 0.0|120 0.0|130 0.0|111 1.0|121 0.0|131 0.0|112 0.0|122 "
            "1.0|132 0.0|79 0|146 0.0",
        "0 LINE|5 A1|330 1F|100 AcDbEntity|8 Perfis|6 Continuous|62 1|48 0.5|370 25|60 1|100 "
        "AcDbLine|10 "
        "0.0|20 0.0|30 0.0|11 1.0|21 0.0|31 0.0",
    };
    // A text with a letter that the code page lacks is escaped in files of this release.
    for (std::string entity : entities) {
        const std::size_t omega = entity.find("Ω");
        if (omega != std::string::npos) entity.replace(omega, 2, "\\U+03A9");
        EXPECT_EQ(entityAfter(entity), expected(entity));
    }
}

TEST(Entities, JustifiedTextKeepsItsPoint) {
    const std::string text = std::string("0 TEXT|") + kHead +
                             "100 AcDbText|10 6.5|20 7.25|30 0.0|40 2.5|1 x|72 1|11 7.0|21 8.0|31 "
                             "0.0|100 AcDbText|73 2";
    const std::string after = entityAfter(text);
    for (const char* part : {"10 6.5|20 7.25|", "72 1|11 7.0|21 8.0|31 0.0|100 AcDbText|73 2"})
        EXPECT_NE(after.find(part), std::string::npos) << after;
}

TEST(Entities, GroupsNobodyKnowsStayInTheirSubclass) {
    const std::string line = std::string(
        "0 LINE|5 A1|102 {OUTRO|40 1.25|102 }|330 1F|100 AcDbEntity|8 "
        "Perfis|284 1|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 1.0|21 "
        "0.0|31 0.0|39 3.5|1001 ALHEIO|1000 nota|1070 7");
    const Groups all = passed(fileWith(line), {dxf::Version::R2018});
    const Groups back = record(all, "LINE");
    EXPECT_EQ(valueOf(back, 39), "3.5");
    EXPECT_EQ(valueOf(back, 284), "1");
    EXPECT_EQ(valueOf(back, 1000), "nota");
    EXPECT_EQ(back[2], (Group{102, "{OUTRO"}));
    EXPECT_EQ(valueOf(record(all, "APPID", 2, "ALHEIO"), 2), "ALHEIO") << "needs a record";
    EXPECT_EQ(entityAfter(line).find("284"), std::string::npos)
        << "unknown to releases before 2007";
}

TEST(Entities, AnglesInDegreesStandStill) {
    AcDbDatabase database(true, true);
    std::vector<double> angles;
    for (int i = 0; i < 200; ++i) angles.push_back(0.031 * i + 1e-3 / (i + 1));
    for (const double a : angles) append(database, new AcDbArc({0, 0, 0}, 1.0, a, a + 1.0));
    const std::string text = saved(database);
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(saved(*back) == text);
    const auto entities = modelSpace(*back);
    ASSERT_EQ(entities.size(), angles.size());
    for (std::size_t i = 0; i < angles.size(); ++i)
        EXPECT_DOUBLE_EQ(static_cast<AcDbArc*>(entities[i])->startAngle(), angles[i]);
}

TEST(Entities, HatchesFollowTheObjectsOfTheirBoundary) {
    const std::string head = "|330 1F|100 AcDbEntity|8 0|";
    const std::string hatch =
        "0 HATCH|5 B2" + head +
        "100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 ANSI31|70 0|71 1|91 1|92 1|93 1|72 2|10 "
        "0|20 0|40 5|50 0|51 360|73 1|97 1|330 B3|75 0|76 1|52 0|41 1|77 0|78 1|53 45|43 0|44 0|45 "
        "-2.2|46 2.2|79 0|98 1|10 0|20 0|0 CIRCLE|5 B3|102 {ACAD_REACTORS|330 B2|102 }" +
        head + "100 AcDbCircle|10 0|20 0|30 0|40 5";
    // The circle comes after the hatch that names it.
    const auto database = loadText(fileWith(hatch));
    ASSERT_NE(database, nullptr);
    const auto all = modelSpace(*database);
    ASSERT_EQ(all.size(), 2u);
    const auto* const made = AcDbHatch::cast(all[0]);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->loops()[0].sources, std::vector{all[1]->objectId()});
    const Groups after = record(groupsOf(saved(*database)), "HATCH");
    const auto reference = std::ranges::find(after, Group{97, "1"});
    ASSERT_NE(reference, after.end());
    EXPECT_EQ(*std::next(reference), (Group{330, "B3"}));
    EXPECT_EQ(valueOf(after, 45), "-2.2");
}

TEST(Dimensions, OfAllKindsComeBackAlive) {
    AcDbDatabase database;
    // What group 42 says of each: 300 of a 3-4-5 triangle, 50, 100, a right angle, 3/4 of a turn.
    const std::pair<AcDbDimension*, const char*> kinds[] = {
        {new AcDbRotatedDimension(0.0, {0, 0, 0}, {300, 400, 0}, {7, -20, 0}), "300.0"},
        {new AcDbRadialDimension({0, 0, 0}, {30, 40, 0}, 12.5), "50.0"},
        {new AcDbDiametricDimension({50, 0, 0}, {-50, 0, 0}, 0.0), "100.0"},
        {new AcDb2LineAngularDimension({10, 0, 0}, {90, 0, 0}, {0, 10, 0}, {0, 90, 0}, {-3, 40, 0}),
         "1.5707963267948966"},
        {new AcDb3PointAngularDimension({0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {-4, -4, 0}),
         "4.71238898038469"}};
    for (const auto& [dimension, measure] : kinds) {
        (void)dimension->setTextRotation(0.25);
        (void)dimension->setTextPosition({5, 6, 0});
        append(database, dimension);
    }
    AcDbObjectPointer<AcDbDimStyleTableRecord> style(database.dimstyle(), AcDb::kForWrite);
    AcDbDimStyleValues values = style->values();
    values.dimlfac = 2.0;
    values.dimpost = L"<> mm";
    values.dimadec = 1;
    (void)style->setValues(values);
    (void)style->close();
    const std::string text = saved(database);
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(saved(*back) == text);
    const Groups all = groupsOf(text);
    EXPECT_EQ(countOf(all, "DIMENSION"), std::size(kinds));
    for (std::size_t i = 0; i < std::size(kinds); ++i) {
        const auto* const loaded = AcDbDimension::cast(modelSpace(*back)[i]);
        ASSERT_NE(loaded, nullptr) << i;
        const AcDbDimension& original = *kinds[i].first;
        EXPECT_EQ(loaded->isA(), original.isA());
        EXPECT_TRUE(std::ranges::equal(loaded->definitionPoints(), original.definitionPoints(),
                                       [](auto a, auto b) { return a.isEqualTo(b); }))
            << i;
        EXPECT_EQ(loaded->textRotation(), 0.25);
        EXPECT_EQ(loaded->shownText(), original.shownText());
        EXPECT_FALSE(record(all, "DIMENSION", 42, kinds[i].second).empty()) << i;
    }
    const auto& radius = static_cast<const AcDbRadialDimension&>(*modelSpace(*back)[1]);
    EXPECT_EQ(radius.leaderLength(), 12.5);
    EXPECT_EQ(radius.shownText(), L"R100 mm");
}

TEST(Dimensions, KeepPointsTextScaleAndStandStill) {
    AcDbDatabase database(true, true);
    auto* dimension =
        new AcDbAlignedDimension({0, 0, 0}, {300, 400, 0}, {17.3, 211.9, 0}, L"<> mm");
    (void)dimension->setDimscale(10.0);
    append(database, dimension);
    const std::string first = saved(database);
    const Groups all = groupsOf(first);
    const Groups filed = record(all, "DIMENSION");
    // Unit normal of (300, 400) is (-0.8, 0.6); (17.3, 211.9) lies 113.3 along it.
    EXPECT_NEAR(std::stod(valueOf(filed, 10)), 300 - 0.8 * 113.3, 1e-9);
    EXPECT_NEAR(std::stod(valueOf(filed, 20)), 400 + 0.6 * 113.3, 1e-9);
    EXPECT_EQ(valueOf(filed, 42), "500.0");
    EXPECT_EQ(valueOf(filed, 1040), "10.0");
    const std::string block = valueOf(filed, 2);
    EXPECT_EQ(block, "*D1");
    EXPECT_EQ(valueOf(record(all, "BLOCK", 2, block), 70), "1");
    EXPECT_FALSE(record(all, "LAYER", 2, "Defpoints").empty());
    const auto back = loadText(first);
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(modelSpace(*back).size(), 1U);
    const auto* loaded = AcDbAlignedDimension::cast(modelSpace(*back)[0]);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->ownDimscale(), 10.0);
    EXPECT_EQ(std::wstring(loaded->dimensionTextConst()), L"<> mm");
    EXPECT_TRUE(loaded->xLine2Point() == AcGePoint3d(300, 400, 0));
    EXPECT_TRUE(saved(*back) == first);
}

TEST(Drawing, SameBytesTwiceAndAfterLoading) {
    const BarModule module;
    AcDbDatabase database(true, true);
    (void)database.core().ensureLayer(L"Ação", 5);
    AcDbObjectId gone = append(database, new AcDbLine({0, 0, 0}, {1, 0, 0}));
    AcDbObjectId link;
    for (int i = 0; i < 5; ++i) {
        auto* bar = new Bar;
        bar->start.set(10.1 * i, 0.3, 0);
        bar->angle = 0.7 * i;
        bar->link = link;
        link = append(database, bar);
        append(database, new AcDbAlignedDimension({0, 0, 0}, {33.3 * i, 7.7, 0}, {1, 50.5, 0}));
    }
    append(database, new AcDbText({1, 1, 0}, L"Ω", AcDbObjectId::kNull, 2.5, 0.1));
    AcDbObjectPointer<AcDbEntity> erased(gone, AcDb::kForWrite);
    erased->erase();
    (void)erased.close();
    for (const dxf::Version version : {dxf::Version::R2000, dxf::Version::R2018}) {
        const std::string first = saved(database, {version});
        EXPECT_TRUE(first == saved(database, {version}));
        const auto back = loadText(first);
        ASSERT_NE(back, nullptr);
        EXPECT_TRUE(saved(*back) == first) << "the release is kept, and every handle";
        const std::string binary = saved(database, {version, dxf::Form::Binary});
        const auto fromBinary = loadText(binary);
        ASSERT_NE(fromBinary, nullptr);
        EXPECT_TRUE(saved(*fromBinary) == first);
    }
}

// The block of the dimension's picture is used by nothing that was read when it is come across.
TEST(Drawing, DimensionsInBlocksOfOneReferenceLeaveNoBlocksBehind) {
    AcDbDatabase database(true, true);
    AcDbObjectId made;
    {
        AcDbBlockTable* table = nullptr;
        ASSERT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* record = new AcDbBlockTableRecord;
        record->setName(L"*U");
        ASSERT_EQ(table->add(made, record), Acad::eOk);
        table->close();
        AcDbObjectId inside;
        auto* dimension = new AcDbAlignedDimension({0, 0, 0}, {30, 0, 0}, {0, 9, 0});
        ASSERT_EQ(record->appendAcDbEntity(inside, dimension), Acad::eOk);
        dimension->close();
        record->close();
    }
    append(database, new AcDbBlockReference({5, 5, 0}, made));
    const std::string first = saved(database);
    const auto back = loadText(first);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(saved(*back) == first);
}

TEST(Drawing, SeedIsAboveEveryHandleAndOwnersExist) {
    const BarModule module;
    AcDbDatabase database(true, true);
    append(database, new Bar);
    append(database, new AcDbAlignedDimension({0, 0, 0}, {3, 4, 0}, {0, 9, 0}));
    const Groups all = groupsOf(saved(database));
    std::set<std::string> handles;
    unsigned long long largest = 0;
    unsigned long long seed = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].code == 9 && all[i].value == "$HANDSEED") {
            seed = std::stoull(all[++i].value, nullptr, 16);
        } else if (all[i].code == 5 || all[i].code == 105) {
            EXPECT_TRUE(handles.insert(all[i].value).second) << all[i].value;
            largest = std::max(largest, std::stoull(all[i].value, nullptr, 16));
        }
    }
    EXPECT_GT(seed, largest);
    for (const Group& group : all) {
        const bool refers = group.code == 330 || group.code == 340 || group.code == 350 ||
                            group.code == 360 || group.code == 390;
        EXPECT_TRUE(!refers || group.value == "0" || handles.contains(group.value)) << group.value;
    }
}

TEST(Drawing, LayersStylesAndVariablesComeBack) {
    const char* tables =
        "0 SECTION|2 TABLES|0 TABLE|2 LTYPE|5 5|330 0|100 AcDbSymbolTable|70 1|0 LTYPE|5 20|330 "
        "5|100 "
        "AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 MINHA|70 0|3 __ . __|72 65|73 4|40 "
        "12.5|49 "
        "10.0|74 0|49 -1.0|74 0|49 0.0|74 0|49 -1.5|74 0|0 ENDTAB|0 TABLE|2 LAYER|5 2|330 0|100 "
        "AcDbSymbolTable|70 1|0 LAYER|5 21|330 2|100 AcDbSymbolTableRecord|100 "
        "AcDbLayerTableRecord|2 "
        "Eixos|70 6|62 -30|6 MINHA|290 0|370 35|420 1234567|0 ENDTAB|0 ENDSEC";
    const Groups all = passed(fileWith("0 LINE|8 EIXOS|10 0|20 0|11 1|21 1", "AC1018", tables));
    const Groups layer = record(all, "LAYER", 2, "Eixos");
    EXPECT_EQ(valueOf(layer, 5), "21");
    EXPECT_EQ(valueOf(layer, 70), "6") << "locked, and frozen in new viewports";
    EXPECT_EQ(valueOf(layer, 62), "-30");
    EXPECT_EQ(valueOf(layer, 6), "MINHA");
    EXPECT_EQ(valueOf(layer, 290), "0");
    EXPECT_EQ(valueOf(layer, 370), "35");
    EXPECT_EQ(valueOf(layer, 420), "1234567");
    const Groups linetype = record(all, "LTYPE", 2, "MINHA");
    EXPECT_EQ(valueOf(linetype, 40), "12.5");
    EXPECT_EQ(std::count(linetype.begin(), linetype.end(), Group{74, "0"}), 4);
    EXPECT_EQ(valueOf(record(all, "LINE"), 8), "Eixos") << "as the record spells it";
}

TEST(Drawing, HeaderFollowsTheHostAndKeepsTheRest) {
    std::string text = fileWith("0 POINT|8 0|10 1|20 1|30 0");
    const std::string more =
        "9\n$LTSCALE\n40\n7.5\n9\n$LUNITS\n70\n4\n9\n$LUPREC\n70\n3\n9\n$ANGBASE\n50\n90.0\n9\n$"
        "CECOLOR\n62\n"
        "3\n9\n$CELWEIGHT\n370\n35\n9\n$PDMODE\n70\n34\n9\n$INSBASE\n10\n1.0\n20\n2.0\n30\n0."
        "0\n9\n$UCSNAME\n2\nBANZO\n9\n$"
        "UCSORG\n10\n7.0\n20\n8.0\n"
        "30\n0.0\n9\n$UCSXDIR\n10\n0.8\n20\n0.6\n30\n0.0\n9\n$UCSYDIR\n10\n-0.6\n20\n0.8\n30\n0."
        "0\n";
    text.insert(text.find("0\nENDSEC"), more);
    const auto database = loadText(text);
    ASSERT_NE(database, nullptr);
    EXPECT_EQ(database->ltscale(), 7.5);
    const AcGeMatrix3d system = userSystemOf(database->core().variables());
    EXPECT_TRUE((system * AcGePoint3d(10, 0, 0)).isEqualTo({15, 14, 0}));
    EXPECT_EQ(database->cecolor(), 3);
    EXPECT_NEAR(database->core().variables().real(L"ANGBASE"), 1.5707963267948966, 1e-15);
    ASSERT_EQ(database->setLtscale(2.0), Acad::eOk);
    const std::string back = saved(*database);
    for (const char* part :
         {"$LTSCALE\n40\n2.0\n", "$LUNITS\n70\n4\n", "$LUPREC\n70\n3\n", "$ANGBASE\n50\n90.0\n",
          "$CECOLOR\n62\n3\n", "$CELWEIGHT\n370\n35\n", "$PDMODE\n70\n34\n",
          "$INSBASE\n10\n1.0\n20\n2.0\n30\n0.0\n", "$UCSNAME\n2\nBANZO\n",
          "$UCSORG\n10\n7.0\n20\n8.0\n30\n0.0\n", "$UCSYDIR\n10\n-0.6\n20\n0.8\n30\n0.0\n"})
        EXPECT_NE(back.find(part), std::string::npos) << part;
}

TEST(Drawing, DimensionVariablesFollowTheCurrentStyle) {
    AcDbDatabase database(true, true);
    AcDbObjectPointer<AcDbDimStyleTableRecord> style(database.dimstyle(), AcDb::kForWrite);
    AcDbDimStyleValues values = style->values();
    values.dimtxt = 3.5;
    values.dimdec = 1;
    ASSERT_EQ(style->setValues(values), Acad::eOk);
    (void)style.close();
    const std::string text = saved(database);
    EXPECT_NE(text.find("$DIMTXT\n40\n3.5\n"), std::string::npos);
    EXPECT_NE(text.find("$DIMDEC\n70\n1\n"), std::string::npos);
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    const AcDbObjectPointer<AcDbDimStyleTableRecord> loaded(back->dimstyle(), AcDb::kForRead);
    EXPECT_EQ(loaded->values().dimtxt, 3.5);
    EXPECT_EQ(loaded->values().dimdec, 1);
}

TEST(Drawing, DictionariesAndReactorsOfModulesComeBackAlive) {
    auto database = std::make_unique<AcDbDatabase>(true, true);
    AcDbDictionary* root = nullptr;
    ASSERT_EQ(database->getNamedObjectsDictionary(root, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    auto* dictionary = new AcDbDictionary;
    ASSERT_EQ(root->setAt(L"ZP_TRELIÇA", dictionary, id), Acad::eOk);
    root->close();
    const AcDbObjectId line = append(*database, new AcDbLine({0, 0, 0}, {1, 0, 0}));
    auto* data = new AcDbXrecord;
    AcDbObjectId dataId;
    ASSERT_EQ(dictionary->setAt(L"dados", data, dataId), Acad::eOk);
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, line), Acad::eOk);
    const ads_point p = {1.0, 2.5, 3.0};
    resbuf* const list =
        acutBuildList(1, L"linha\n^2", 40, 0.1, 10, p, 70, 7, 90, 123456, 330, name, RTNONE);
    ASSERT_EQ(data->setFromRbChain(*list), Acad::eOk);
    acutRelRb(list);
    data->close();
    dictionary->close();
    AcDbObjectPointer<AcDbEntity> entity(line, AcDb::kForWrite);
    ASSERT_EQ(entity->addPersistentReactor(dataId), Acad::eOk);
    ASSERT_EQ(entity->createExtensionDictionary(), Acad::eOk);
    (void)entity.close();

    const std::string first = saved(*database);
    const auto back = loadText(first);
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(back->getNamedObjectsDictionary(root), Acad::eOk);
    AcDbObject* found = nullptr;
    ASSERT_EQ(root->getAt(L"zp_treliça", found, AcDb::kForRead), Acad::eOk);
    root->close();
    AcDbObject* record = nullptr;
    ASSERT_EQ(AcDbDictionary::cast(found)->getAt(L"DADOS", record, AcDb::kForRead), Acad::eOk);
    found->close();
    resbuf* values = nullptr;
    ASSERT_EQ(AcDbXrecord::cast(record)->rbChain(&values), Acad::eOk);
    record->close();
    ASSERT_NE(values, nullptr);
    EXPECT_STREQ(values->resval.rstring, L"linha\n^2");
    EXPECT_EQ(values->rbnext->resval.rreal, 0.1);
    EXPECT_EQ(values->rbnext->rbnext->resval.rpoint[1], 2.5);
    AcDbObjectId target;
    ASSERT_EQ(
        acdbGetObjectId(target, values->rbnext->rbnext->rbnext->rbnext->rbnext->resval.rlname),
        Acad::eOk);
    EXPECT_EQ(target.handle(), line.handle());
    EXPECT_EQ(target.objectClass(), AcDbLine::desc());
    acutRelRb(values);
    EXPECT_TRUE(saved(*back) == first);
}

TEST(Drawing, FailedSaveLeavesTheOldFile) {
    AcDbDatabase database(true, true);
    const Folder folder;
    const auto done = dxf::save(database, folder / "nenhuma/pasta.dxf");
    ASSERT_FALSE(done.ok());
    EXPECT_NE(done.error().file.find("pasta.dxf"), std::string::npos);
    const auto missing = dxf::load(folder / "falta.dxf");
    ASSERT_FALSE(missing.ok());
    EXPECT_FALSE(missing.error().text.empty());
}

TEST(RoundTrip, ThePointThatADimensionLineWasGivenComesBackUnlessTheLineWasMoved) {
    AcDbDatabase database;
    append(database, new AcDbAlignedDimension({0, 0, 0}, {30, 0, 0}, {5, 12, 0}));
    const std::string text = saved(database);
    const auto through = [](const std::string& file) {
        const auto back = loadText(file);
        return AcDbAlignedDimension::cast(modelSpace(*back).at(0))->dimLinePoint();
    };
    EXPECT_EQ(through(text), AcGePoint3d(5, 12, 0));
    EXPECT_EQ(saved(*loadText(text)), text);

    // Another program drags the line to y = 20: group 10, the point at the second extension line.
    Groups moved = groupsOf(text);
    const auto dimension = std::find(moved.begin(), moved.end(), Group{0, "DIMENSION"});
    const auto definition =
        std::find_if(dimension, moved.end(), [](const Group& g) { return g.code == 20; });
    ASSERT_NE(definition, moved.end());
    definition->value = "20.0";
    EXPECT_EQ(through(fileText(moved)), AcGePoint3d(30, 20, 0));
}

TEST(Dimensions, WithoutAStyleOfTheirOwnAreSavedWithTheCurrentOne) {
    AcDbDatabase database(true, true);
    append(database, new AcDbAlignedDimension({0, 0, 0}, {10, 0, 0}, {5, 5, 0}));
    AcDbObjectPointer<AcDbDimStyleTable> table(database.dimStyleTableId(), AcDb::kForWrite);
    auto* style = new AcDbDimStyleTableRecord;
    ASSERT_EQ(style->setName(L"Detalhe"), Acad::eOk);
    ASSERT_EQ(table->add(style), Acad::eOk);
    AcDbObjectPointer<AcDbTextStyleTable> letters(database.textStyleTableId(), AcDb::kForWrite);
    auto* narrow = new AcDbTextStyleTableRecord;
    ASSERT_EQ(narrow->setName(L"Estreito"), Acad::eOk);
    ASSERT_EQ(letters->add(narrow), Acad::eOk);
    ASSERT_EQ(style->setDimtxsty(narrow->objectId()), Acad::eOk);
    narrow->close();
    (void)letters.close();
    style->close();
    (void)table.close();
    EXPECT_EQ(valueOf(record(groupsOf(saved(database)), "TEXT"), 7), "Standard");
    ASSERT_TRUE(database.core().variables().set(L"DIMSTYLE", std::wstring(L"Detalhe")).ok());
    const Groups all = groupsOf(saved(database));
    EXPECT_EQ(valueOf(record(all, "DIMENSION"), 3), "Detalhe");
    EXPECT_EQ(valueOf(record(all, "TEXT"), 7), "Estreito") << "the text in the dimension's block";
}

TEST(Drawing, ScaleOfDimensionsStandsBeforeTheStyleInTheFile) {
    const char* tables =
        "0 SECTION|2 TABLES|0 TABLE|2 DIMSTYLE|5 A|330 0|100 AcDbSymbolTable|70 1|100 "
        "AcDbDimStyleTable|0 DIMSTYLE|105 27|330 A|100 AcDbSymbolTableRecord|100 "
        "AcDbDimStyleTableRecord|2 Detalhe|70 0|40 1.0|0 ENDTAB|0 ENDSEC";
    std::string text = fileWith("0 POINT|8 0|10 1|20 1|30 0", "AC1015", tables);
    text.insert(text.find("0\nENDSEC"), "9\n$DIMSCALE\n40\n25.0\n9\n$DIMSTYLE\n2\nDetalhe\n");
    const auto database = loadText(text);
    ASSERT_NE(database, nullptr);
    EXPECT_EQ(database->core().variables().real(L"DIMSCALE"), 25.0);
    EXPECT_NE(saved(*database).find("$DIMSCALE\n40\n25.0\n"), std::string::npos);
}

TEST(Drawing, NumbersOfTheHeaderOutOfRangeAreTold) {
    std::string text = fileWith("0 POINT|8 0|10 1|20 1|30 0");
    text.insert(
        text.find("0\nENDSEC"),
        "9\n$LUPREC\n70\n70000000000\n9\n$CECOLOR\n62\n99999999999\n9\n$INSUNITS\n70\n24\n");
    dxf::LoadReport report;
    const auto database = loadText(text, &report);
    ASSERT_NE(database, nullptr);
    ASSERT_EQ(report.findings.size(), 2U);
    EXPECT_NE(report.findings[0].text.find("$LUPREC"), std::string::npos);
    EXPECT_NE(report.findings[1].text.find("$CECOLOR"), std::string::npos);
    EXPECT_NE(saved(*database).find("$INSUNITS\n70\n24\n"), std::string::npos) << "survey miles";
}

TEST(Drawing, AUserSystemOutOfThePlaneIsKeptAndTold) {
    std::string text = fileWith("0 POINT|8 0|10 1|20 1|30 0");
    text.insert(text.find("0\nENDSEC"), "9\n$UCSYDIR\n10\n0.0\n20\n0.0\n30\n1.0\n");
    dxf::LoadReport report;
    const auto database = loadText(text, &report);
    ASSERT_NE(database, nullptr);
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_NE(report.findings[0].text.find("sai do plano"), std::string::npos);
    EXPECT_EQ(userSystemOf(database->core().variables()), AcGeMatrix3d::kIdentity);
    EXPECT_NE(saved(*database).find("$UCSYDIR\n10\n0.0\n20\n0.0\n30\n1.0\n"), std::string::npos);
}

TEST(Drawing, WhatBelongsToSomethingErasedIsNotWritten) {
    AcDbDatabase database(true, true);
    const AcDbObjectId id = append(database, new AcDbLine({0, 0, 0}, {1, 0, 0}));
    AcDbObjectPointer<AcDbEntity> line(id, AcDb::kForWrite);
    ASSERT_EQ(line->createExtensionDictionary(), Acad::eOk);
    {
        const AcDbObjectPointer<AcDbDictionary> dictionary(line->extensionDictionary(),
                                                           AcDb::kForWrite);
        auto* note = new AcDbXrecord;
        AcDbObjectId noteId;
        ASSERT_EQ(dictionary->setAt(L"NOTA", note, noteId), Acad::eOk);
        note->close();
    }
    ASSERT_EQ(countOf(groupsOf(saved(database)), "XRECORD"), 1U);
    ASSERT_EQ(line->erase(), Acad::eOk);
    (void)line.close();
    EXPECT_EQ(countOf(groupsOf(saved(database)), "XRECORD"), 0U);
}

TEST(Drawing, EmptyNamesMakeNoRecords) {
    const char* tables =
        "0 SECTION|2 TABLES|0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1|0 LAYER|5 21|330 "
        "2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Eixos|70 0|62 3|6 |0 ENDTAB|0 "
        "ENDSEC";
    dxf::LoadReport report;
    const auto database =
        loadText(fileWith("0 TEXT|5 A1|8 |6 |10 0|20 0|40 2.5|1 x|7 ", "AC1015", tables), &report);
    ASSERT_NE(database, nullptr);
    EXPECT_TRUE(report.findings.empty()) << report.findings[0].text;
    const Groups all = groupsOf(saved(*database));
    for (const char* type : {"LAYER", "LTYPE", "STYLE"})
        EXPECT_TRUE(record(all, type, 2, "").empty()) << type;
    EXPECT_EQ(valueOf(record(all, "TEXT"), 8), "0");
    EXPECT_EQ(valueOf(record(all, "LAYER", 2, "Eixos"), 6), "Continuous");
}
