// SPDX-License-Identifier: MIT
// What this program does not understand comes back as it was.
#include "dbdim.h"
#include "dblead.h"
#include "dbmtext.h"
#include "dbspline.h"
#include "dbsymtb.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/draw_order.h"
#include "prancheta/database/layouts.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/undo.h"
#include "prancheta/database/user_system.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/entities/viewports.h"
#include "prancheta/entities/weld_symbol.h"
#include "prancheta/geometry/angles.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta;

namespace {

/// Paragraphs in two columns, which stay as they are.
const char* const kMText =
    "0 MTEXT|5 B1|330 1F|100 AcDbEntity|8 0|62 3|100 AcDbMText|10 1.00|20 2|30 0.0|40 2.5|41 0|71 "
    "1|72 1|3 "
    "\\A1;primeira parte |1 segunda\\Plinha|7 Standard|11 1.0|21 0.0|31 0.0|101 Embedded "
    "Object|70 1|10 1.0|20 0.0|30 0.0|11 1.0|21 2.0|31 0.0|71 2|72 2|1001 ACAD|1000 MTEXTBEGIN";

Groups without(const Groups& all, int code) {
    Groups out;
    for (const Group& group : all)
        if (group.code != code) out.push_back(group);
    return out;
}

}  // namespace

TEST(Foreign, EntityOfUnknownTypeIsKeptTagForTag) {
    const std::string unknown =
        "0 QUADRO_NOVO|5 B2|330 1F|100 AcDbEntity|8 Camada nova|100 AcDbQuadro|90 12|310 0AFF|40 "
        "0.10|340 "
        "B1|100 AcDbQuadroFilho|1  com brancos |11 1|21 2|31 3";
    const Groups all = passed(fileWith(std::string(kMText) + "|" + unknown));
    for (const std::string& text : {std::string(kMText), unknown}) {
        const Groups in = groups(text);
        EXPECT_EQ(without(record(all, in[0].value), 330), without(in, 330));
    }
}

TEST(Foreign, MovedEntityKeepsWhatItIsAbout) {
    const auto database = loadText(fileWith(kMText));
    ASSERT_NE(database, nullptr);
    AcDbEntity* const text = modelSpace(*database).at(0);
    ASSERT_EQ(text->isA(), ForeignEntity::desc());
    AcDbObjectPointer<AcDbEntity> open(text->objectId(), AcDb::kForWrite);
    ASSERT_EQ(open->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    (void)open.close();
    const Groups back = record(groupsOf(saved(*database)), "MTEXT");
    EXPECT_EQ(std::stod(valueOf(back, 10)), 11.0);
    EXPECT_EQ(valueOf(back, 1), "segunda\\Plinha");
}

TEST(Foreign, ParagraphsKeepTheirFormattingThroughMovesAndEdits) {
    // The background is nothing that the class holds; the parts of the text come in any length.
    const std::string one =
        "0 MTEXT|5 B1|330 1F|100 AcDbEntity|8 0|100 AcDbMText|10 1|20 2|30 0|40 2.5|41 60|71 5|72 "
        "5|3 {\\fArial;Chapa} \\H1.5x;\\S+0,1^ |1 -0,2;\\P%%c 50|7 Standard|50 90|73 2|44 "
        "1.2|90 1|63 3|45 1.5|101 Embedded Object|71 0|42 10";
    const auto database = loadText(fileWith(one));
    ASSERT_NE(database, nullptr);
    const AcDbObjectId id = database->core().modelSpace().at(0);
    const std::wstring said = L"{\\fArial;Chapa} \\H1.5x;\\S+0,1^-0,2;\\P%%c 50";
    {
        const AcDbObjectPointer<AcDbMText> text(id, AcDb::kForWrite);
        ASSERT_EQ(text.openStatus(), Acad::eOk);
        EXPECT_EQ(text->contentsConst(), said);
        EXPECT_NEAR(text->rotation(), prancheta::kPi / 2, 1e-12);
        ASSERT_EQ(text->transformBy(AcGeMatrix3d::scaling(2)), Acad::eOk);
        // Long enough for three parts, none of which ends inside a code or an escaped letter.
        std::wstring longer = said;
        for (int i = 0; i < 100; ++i) longer += L" \\P^\u00e7\u2192";
        (void)text->setContents(longer.c_str());
    }
    const std::string file = saved(*database, {dxf::Version::R2018});
    const Groups back = record(groupsOf(file), "MTEXT");
    EXPECT_EQ(std::stod(valueOf(back, 40)), 5.0);
    EXPECT_EQ(std::stod(valueOf(back, 41)), 120.0);
    EXPECT_EQ(valueOf(back, 71) + valueOf(back, 72) + valueOf(back, 73), "552");
    EXPECT_EQ(valueOf(back, 90) + valueOf(back, 63), "13");
    for (const Group& group : back) {
        EXPECT_LE(group.value.size(), 250U);
        EXPECT_NE(group.code, 101);
    }
    const auto again = loadText(file);
    const AcDbObjectPointer<AcDbMText> text(again->core().modelSpace().at(0), AcDb::kForRead);
    ASSERT_EQ(text.openStatus(), Acad::eOk);
    EXPECT_EQ(std::wstring(text->contentsConst()).size(), said.size() + 600);
    EXPECT_EQ(std::wstring(text->contentsConst()).substr(0, said.size()), said);
}

TEST(Foreign, LeaderIsTiedToTheNoteThatItNames) {
    // The writer told the note nothing of it; its own scale is 2, its arrow 2.5 of that.
    const auto database = loadText(fileWith(
        "0 LEADER|5 B3|330 1F|100 AcDbEntity|8 0|100 AcDbLeader|3 Standard|71 1|72 0|73 0|74 1|75 "
        "1|40 3.5|41 8|76 2|10 0|20 0|30 0|10 50|20 50|30 0|340 B4|211 1|221 0|231 0|213 -6|223 "
        "0|233 0|1001 ACAD|1000 DSTYLE|1002 {|1070 40|1040 2.0|1002 }|0 MTEXT|5 B4|330 1F|100 "
        "AcDbEntity|8 0|100 AcDbMText|10 56|20 50|30 0|40 5|41 0|71 4|72 1|1 Furo|7 Standard"));
    ASSERT_NE(database, nullptr);
    {
        const AcDbObjectPointer<AcDbMText> note(database->core().modelSpace().at(1),
                                                AcDb::kForWrite);
        ASSERT_EQ(note->transformBy(AcGeMatrix3d::translation({4, -10, 0})), Acad::eOk);
    }
    const Groups all = groupsOf(saved(*database));
    const Groups back = record(all, "LEADER");
    EXPECT_EQ(valueOf(back, 76) + valueOf(back, 73) + valueOf(back, 75), "201");
    EXPECT_EQ(valueOf(back, 340), "B4");
    EXPECT_EQ(valueOf(back, 1040), "2.0");
    EXPECT_EQ(valueOf(back, 40), "3.5") << "what the class does not hold stays";
    const auto again = loadText(saved(*database));
    const auto* leader = AcDbLeader::cast(modelSpace(*again).at(0));
    ASSERT_NE(leader, nullptr);
    EXPECT_TRUE(leader->lastVertex().isEqualTo({54, 40, 0}));
    EXPECT_TRUE(leader->vertexAt(0).isEqualTo({0, 0, 0}));
    AcDbExtents box;
    ASSERT_EQ(modelSpace(*again).at(0)->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().x, 54 + 5, 1e-9) << "the hook line";
}

TEST(Foreign, WeldIsAliveHereAndABlockElsewhere) {
    const auto database = loadText(fileWith("0 POINT|8 0|10 0|20 0"));
    auto* const weld = new WeldSymbol({10, 20, 0}, {40, 60, 0}, 10);
    ASSERT_EQ(weld->setDescription(L"filete 6 60-150 ambos campo cauda E70XX"), Acad::eOk);
    append(*database, weld);
    const Picture drawn = prancheta::pictureOf(*modelSpace(*database).at(1));
    const std::string file = saved(*database);
    EXPECT_EQ(countOf(groupsOf(file), "INSERT"), 1U);
    const auto again = loadText(file);
    ASSERT_NE(again, nullptr);
    auto* const back = WeldSymbol::cast(modelSpace(*again).at(1));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->description(), L"filete 6 60-150 ambos campo cauda E70XX");
    // The layers are each drawing's own.
    const Picture shown = prancheta::pictureOf(*back);
    EXPECT_EQ(shown.size(), drawn.size());
    EXPECT_TRUE(shown.extents().minPoint().isEqualTo(drawn.extents().minPoint()));
    EXPECT_TRUE(shown.extents().maxPoint().isEqualTo(drawn.extents().maxPoint()));
    EXPECT_TRUE(saved(*again) == file);
}

TEST(Foreign, ReferenceWithAttributesKeepsThem) {
    const char* blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 CARIMBO|70 2|10 0|20 0|30 0|3 CARIMBO|1 |0 LINE|8 0|10 "
        "0|20 0|11 "
        "1|21 1|0 ENDBLK|8 0|0 ENDSEC";
    const std::string insert =
        "0 INSERT|5 C1|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 CARIMBO|10 5|20 "
        "6|30 0|0 "
        "ATTRIB|5 C2|330 C1|100 AcDbEntity|8 0|100 AcDbText|10 5|20 6|30 0|40 2.5|1 valor|100 "
        "AcDbAttribute|2 NOME|70 0|0 SEQEND|5 C3|330 C1|100 AcDbEntity|8 0";
    const Groups all = passed(fileWith(insert + "|0 POINT|8 0|10 0|20 0", "AC1015", blocks));
    EXPECT_EQ(record(all, "ATTRIB"),
              groups("0 ATTRIB|5 C2|330 C1|100 AcDbEntity|8 0|100 AcDbText|10 5.0|20 6.0|30 0.0|40 "
                     "2.5|1 valor|100 AcDbAttribute|2 NOME|70 0"));
    EXPECT_EQ(valueOf(record(all, "SEQEND"), 5), "C3");
    EXPECT_EQ(valueOf(record(all, "INSERT"), 66), "1");
    EXPECT_EQ(countOf(all, "LINE"), 1U) << "the block is there";
    EXPECT_EQ(countOf(all, "POINT"), 1U);
}

TEST(Foreign, AttributesAreLiveAndWhatTheyDoNotHoldStays) {
    const std::string head =
        "|330 C1|100 AcDbEntity|8 Textos|100 AcDbText|10 5.0|20 6.0|30 0.0|40 2.5|1 ";
    const std::string several = "|70 0|280 1|101 Embedded Object|70 1|10 1|20 2|30 0|1 a\\Pb";
    const std::string insert =
        "0 INSERT|5 C1|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 CARIMBO|10 5|20 "
        "6|30 0|70 2|71 3|44 100|45 50|0 ATTRIB|5 C2" +
        head +
        "valor|72 1|11 9.0|21 6.0|31 0.0|100 AcDbAttribute|280 0|2 NOME|70 8|280 1|1001 "
        "ACAD|1000 x|0 ATTRIB|5 C4" +
        head + "a|100 AcDbAttribute|2 NOTA" + several + "|0 SEQEND|5 C3|330 C1|100 AcDbEntity|8 0";
    const std::string blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 CARIMBO|70 0|10 0|20 0|30 0|3 CARIMBO|1 |0 ATTDEF|5 "
        "A1|100 AcDbEntity|8 0|100 AcDbText|10 0|20 0|30 0|40 2.5|1 x|100 "
        "AcDbAttributeDefinition|3 Nome da obra|2 NOME|70 4|0 ENDBLK|8 0|0 ENDSEC";
    const auto database = loadText(fileWith(insert, "AC1015", blocks));
    ASSERT_NE(database, nullptr);
    const AcDbObjectPointer<AcDbMInsertBlock> array(modelSpace(*database).at(0)->objectId(),
                                                    AcDb::kForWrite);
    ASSERT_NE(array.object(), nullptr);
    EXPECT_EQ(array->columns() * array->rows(), 6);
    ASSERT_EQ(attributesOf(*array.object()).size(), 1U) << "several lines are no such attribute";
    EXPECT_TRUE(attributesOf(*array.object())[0]->isPreset());
    (void)attributesForChange(*array.object())[0]->setTextString(L"outro");
    (void)array->transformBy(AcGeMatrix3d::translation({10, 0, 0}));
    const Groups all = groupsOf(saved(*database));
    const Groups first = record(all, "ATTRIB", 2, "NOME");
    EXPECT_EQ(valueOf(first, 1), "outro");
    EXPECT_EQ(valueOf(first, 11), "19.0");
    EXPECT_EQ(valueOf(first, 5), "C2");
    EXPECT_EQ(valueOf(first, 8), "Textos");
    EXPECT_EQ(valueOf(first, 1000), "x");
    EXPECT_EQ(std::count(first.begin(), first.end(), Group{280, "1"}), 1);
    const Groups second = record(all, "ATTRIB", 2, "NOTA");
    EXPECT_EQ(std::stod(valueOf(second, 10)), 15.0);
    EXPECT_EQ(valueOf(second, 101), "Embedded Object");
    EXPECT_EQ(second.back(), (Group{1, "a\\Pb"}));
    EXPECT_EQ(valueOf(record(all, "INSERT"), 45), "50.0");
    EXPECT_EQ(valueOf(record(all, "ATTDEF"), 3), "Nome da obra");
    EXPECT_EQ(valueOf(record(all, "BLOCK", 2, "CARIMBO"), 70), "2");
}

TEST(Foreign, TextsSeenFromBehindAreTextsAndKeepHowTheyAreTurned) {
    const std::string behind =
        "0 TEXT|5 B1|100 AcDbEntity|8 0|100 AcDbText|10 -5.0|20 6.0|30 0.0|40 2.5|1 "
        "um|210 0.0|220 0.0|230 -1.0|100 AcDbText";
    const std::string backwards =
        "0 TEXT|5 B2|100 AcDbEntity|8 0|100 AcDbText|10 5.0|20 6.0|30 0.0|40 2.5|1 dois|50 "
        "30.0|71 6|72 2|11 9.0|21 6.0|31 0.0|100 AcDbText";
    const auto database = loadText(fileWith(behind + "|" + backwards));
    ASSERT_NE(database, nullptr);
    Groups all = groupsOf(saved(*database));
    for (const std::string& one : {behind, backwards}) {
        const Groups in = groups(one);
        EXPECT_EQ(without(record(all, "TEXT", 5, in[1].value), 330), in);
    }
    for (const AcDbObjectId id : database->core().modelSpace()) {
        const AcDbObjectPointer<AcDbText> text(id, AcDb::kForWrite);
        ASSERT_EQ(text.openStatus(), Acad::eOk);
        EXPECT_EQ(text->setTextString(L"outro"), Acad::eOk);
    }
    EXPECT_EQ(AcDbText::cast(modelSpace(*database)[0])->position().x, 5.0);
    all = groupsOf(saved(*database));
    EXPECT_EQ(valueOf(record(all, "TEXT", 5, "B1"), 230), "-1.0");
    EXPECT_EQ(valueOf(record(all, "TEXT", 5, "B2"), 71), "6");
    EXPECT_EQ(valueOf(record(all, "TEXT", 5, "B2"), 1), "outro");
}

TEST(Foreign, OutlinesOfViewportsAreTheirOwnInCopies) {
    const std::string outline =
        "0 LWPOLYLINE|5 B1|100 AcDbEntity|67 1|8 0|100 AcDbPolyline|90 3|70 1|10 0|20 0|10 50|20 "
        "0|10 0|20 40";
    const std::string viewport =
        "0 VIEWPORT|5 B2|100 AcDbEntity|67 1|8 0|100 AcDbViewport|10 25|20 20|30 0|40 50|41 40|68 "
        "2|69 2|12 0|22 0|16 0|26 0|36 1|17 0|27 0|37 0|45 400|51 0|90 98400|340 B1";
    const auto database = loadText(fileWith(outline + "|" + viewport));
    ASSERT_NE(database, nullptr);
    const AcDbObjectId space = database->core().paperSpaceId();
    const std::vector<AcDbObjectId> first = viewportsOf(space);
    ASSERT_EQ(first.size(), 1u);
    const std::vector<Vec2> corners = clipOutline(*viewportOf(first[0]));
    ASSERT_EQ(corners.size(), 3u);
    EXPECT_EQ(corners[2].y, 40.0);
    const std::vector<AcDbObjectId> both = withClips(first);
    ASSERT_EQ(both.size(), 2u);
    // Alone it has none; with its outline it has the outline's copy.
    for (const std::size_t taken : {1u, 2u}) {
        AcDbObjectIdArray ids;
        AcDbObjectIdArray copies;
        for (std::size_t i = 0; i < taken; ++i) ids.append(both[i]);
        ASSERT_EQ(database->deepCloneObjects(ids, space, copies), Acad::eOk);
        const AcDbViewport& copy = *viewportOf(copies[0]);
        EXPECT_EQ(copy.isNonRectClipOn(), taken == 2);
        EXPECT_EQ(copy.nonRectClipEntityId(), taken == 2 ? copies[1] : AcDbObjectId());
    }
    EXPECT_EQ(valueOf(record(groupsOf(saved(*database)), "VIEWPORT", 5, "B2"), 340), "B1");
    ASSERT_EQ(AcDbObjectPointer<AcDbEntity>(both[1], AcDb::kForWrite)->erase(), Acad::eOk);
    EXPECT_FALSE(viewportOf(first[0])->isNonRectClipOn());
}

TEST(Foreign, DimensionOfAnotherKindKeepsItsPicture) {
    const char* blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|5 D1|330 D0|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *D7|70 "
        "1|10 0|20 0|30 0|3 *D7|1 |0 "
        "CIRCLE|5 D3|330 D0|100 AcDbEntity|8 0|100 AcDbCircle|10 0|20 0|30 0|40 9.5|0 ENDBLK|5 "
        "D2|330 D0|100 AcDbEntity|8 "
        "0|100 AcDbBlockEnd|0 BLOCK|8 0|2 *U3|70 1|10 0|20 0|3 *U3|1 |0 POINT|8 0|10 4|20 4|0 "
        "ENDBLK|8 0|0 ENDSEC";
    const std::string ordinate =
        "0 DIMENSION|5 D9|330 1F|100 AcDbEntity|8 0|100 AcDbDimension|2 *D7|10 0|20 5|30 0|11 2|21 "
        "5|31 0|70 38|1 |71 "
        "5|42 4.0|3 Standard|100 AcDbOrdinateDimension|13 0|23 0|33 0|14 4|24 3|34 0";
    const Groups all = passed(fileWith(ordinate, "AC1015", blocks));
    EXPECT_EQ(without(record(all, "DIMENSION"), 330), without(groups(ordinate), 330));
    EXPECT_EQ(valueOf(record(all, "CIRCLE"), 40), "9.5");
    EXPECT_EQ(valueOf(record(all, "BLOCK", 2, "*D7"), 5), "D1");
    EXPECT_FALSE(record(all, "BLOCK", 2, "*U3").empty()) << "nothing here made it, so it stays";
}

TEST(Foreign, MovedDimensionsShowTheirPictureWhereTheyAre) {
    const char* blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|5 D1|330 D0|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *D7|70 "
        "1|10 0|20 0|30 0|3 *D7|1 |0 CIRCLE|5 D3|330 D0|100 AcDbEntity|8 0|100 AcDbCircle|10 3|20 "
        "0|30 0|40 9.5|0 MTEXT|5 D4|330 D0|100 AcDbEntity|8 0|100 AcDbMText|10 2|20 5|30 0|40 "
        "2|71 5|1 4|0 ENDBLK|5 D2|330 D0|100 AcDbEntity|8 0|100 AcDbBlockEnd|0 ENDSEC";
    const auto database = loadText(fileWith(
        "0 DIMENSION|5 D9|330 1F|100 AcDbEntity|8 0|100 AcDbDimension|2 *D7|10 0|20 5|30 0|11 2|21 "
        "5|31 0|70 38|1 |71 5|42 4.0|3 Standard|100 AcDbOrdinateDimension|13 0|23 0|33 0|14 4|24 "
        "3|34 0",
        "AC1015", blocks));
    ASSERT_NE(database, nullptr);
    const AcDbObjectId id = database->core().modelSpace().at(0);
    const auto transform = [](AcDbObjectId which, const AcGeMatrix3d& m) {
        const AcDbObjectPointer<AcDbEntity> open(which, AcDb::kForWrite);
        ASSERT_EQ(open->transformBy(m), Acad::eOk);
    };
    const auto shown = [](const Groups& all, const Groups& dimension) {
        // What its block holds, up to the end of the block.
        const std::string name = valueOf(dimension, 2);
        std::string places;
        bool inside = false;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (all[i] == Group{0, "BLOCK"})
                inside = record(all, "BLOCK", 2, name)[1] == all[i + 1];
            if (inside && all[i].code == 10 && all[i - 1].code == 100)
                places += all[i].value + "," + all[i + 1].value + " ";
        }
        return places;
    };
    // Alone it takes its block along, which keeps its name and its handles.
    transform(id, AcGeMatrix3d::translation({10, 0, 0}));
    Groups all = groupsOf(saved(*database));
    EXPECT_EQ(valueOf(record(all, "DIMENSION"), 2), "*D7");
    EXPECT_EQ(shown(all, record(all, "DIMENSION")), "13.0,0.0 12.0,5.0 ");
    EXPECT_EQ(valueOf(record(all, "CIRCLE"), 5), "D3");
    EXPECT_EQ(countOf(all, "BLOCK"), 3U);

    // A copy shares the block until one of the two goes elsewhere: whichever it is.
    AcDbObjectIdArray originals;
    AcDbObjectIdArray copies;
    originals.append(id);
    ASSERT_EQ(database->deepCloneObjects(originals, database->core().modelSpaceId(), copies),
              Acad::eOk);
    transform(copies[0], AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0}));
    transform(id, AcGeMatrix3d::translation({-10, 0, 0}));
    const std::string text = saved(*database);
    all = groupsOf(text);
    const Groups mirrored = record(all, "DIMENSION", 13, "-10");
    ASSERT_FALSE(mirrored.empty());
    EXPECT_EQ(shown(all, record(all, "DIMENSION", 5, "D9")), "3.0,0.0 2.0,5.0 ");
    EXPECT_EQ(shown(all, mirrored), "-13.0,0.0 -12.0,5.0 ");
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(saved(*back) == text);
    for (std::size_t i = 0; i < 2; ++i) {
        AcDbExtents before;
        AcDbExtents after;
        ASSERT_EQ(modelSpace(*database).at(i)->getGeomExtents(before), Acad::eOk);
        ASSERT_EQ(modelSpace(*back).at(i)->getGeomExtents(after), Acad::eOk);
        EXPECT_TRUE(before.minPoint().isEqualTo(after.minPoint())) << i;
        EXPECT_TRUE(before.maxPoint().isEqualTo(after.maxPoint())) << i;
    }
}

TEST(Foreign, DimensionsKeepWhatTheirProgramDrewUntilTheyAreChanged) {
    const char* blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|5 D1|330 D0|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *D7|70 "
        "1|10 0|20 0|30 0|3 *D7|1 |0 CIRCLE|5 D3|330 D0|100 AcDbEntity|8 0|100 AcDbCircle|10 3|20 "
        "0|30 0|40 9.5|0 ENDBLK|5 D2|330 D0|100 AcDbEntity|8 0|100 AcDbBlockEnd|0 ENDSEC";
    // The place of the text, the measure and the groups of defaults are the other program's own.
    const std::string one =
        "0 DIMENSION|5 D9|330 1F|100 AcDbEntity|8 0|100 AcDbDimension|280 0|2 *D7|10 4.0|20 5.0|30 "
        "0.0|11 1.25|21 6.5|31 0.0|70 33|71 5|72 1|41 1.0|42 4.999|3 Standard|100 "
        "AcDbAlignedDimension|12 0.0|22 0.0|32 0.0|13 0.0|23 0.0|33 0.0|14 4.0|24 0.0|34 0.0|1001 "
        "ACAD|1000 DSTYLE|1002 {|1070 41|1040 3.0|1070 40|1040 2.0|1002 }";
    std::string other = one;
    other.replace(other.find("5 D9"), 4, "5 DA");
    const auto database = loadText(fileWith(one + "|" + other, "AC1015", blocks));
    ASSERT_NE(database, nullptr);
    Groups all = groupsOf(saved(*database));
    EXPECT_EQ(without(record(all, "DIMENSION"), 330), without(groups(one), 330));
    EXPECT_EQ(without(record(all, "DIMENSION", 5, "DA"), 330), without(groups(other), 330));
    EXPECT_EQ(countOf(all, "BLOCK"), 3U) << "both show one block";
    EXPECT_EQ(dynamic_cast<AcDbDimension*>(modelSpace(*database)[0])->textPosition().y, 6.5);

    const AcDbObjectId first = database->core().modelSpace().at(0);
    const auto change = [&](auto how) {
        database->core().undo().begin(L"MOVE");
        const AcDbObjectPointer<AcDbAlignedDimension> open(first, AcDb::kForWrite);
        ASSERT_EQ(how(*open.object()), Acad::eOk);
    };
    change([](auto& d) { return d.transformBy(AcGeMatrix3d::translation({10, 0, 0})); });
    all = groupsOf(saved(*database));
    const Groups moved = record(all, "DIMENSION", 5, "D9");
    EXPECT_EQ(valueOf(moved, 42), "4.0") << "laid out by this program now";
    EXPECT_NE(valueOf(moved, 2), "*D7");
    EXPECT_EQ(without(record(all, "DIMENSION", 5, "DA"), 330), without(groups(other), 330));
    const auto again = loadText(saved(*database));
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(saved(*again) == saved(*database));

    database->core().undo().end();
    ASSERT_TRUE(database->core().undo().undo());
    all = groupsOf(saved(*database));
    EXPECT_EQ(without(record(all, "DIMENSION"), 330), without(groups(one), 330));
    // Another style, and both are drawn by it.
    {
        const AcDbObjectPointer<AcDbDimStyleTableRecord> style(database->dimstyle(),
                                                               AcDb::kForWrite);
        AcDbDimStyleValues values = style->values();
        values.dimtxt *= 2.0;
        ASSERT_EQ(style->setValues(values), Acad::eOk);
    }
    all = groupsOf(saved(*database));
    EXPECT_EQ(countOf(all, "BLOCK"), 5U);
}

TEST(Foreign, SplinesComeBackTagForTagAliveOrNot) {
    const std::string head = "0 SPLINE|5 D9|330 1F|100 AcDbEntity|8 0|100 AcDbSpline|";
    const std::string tail =
        "71 2|72 6|73 3|74 0|42 1e-09|43 1e-10|40 0.0|40 0.0|40 0.0|40 1.0|40 1.0|40 1.0|";
    const std::string points = "10 0.0|20 0.0|30 0.0|10 2.0|20 6.0|30 0.0|10 4.0|20 0.0|30 0.0";
    const std::pair<std::string, bool> cases[] = {
        {head + "210 0.0|220 0.0|230 1.0|70 1032|" + tail + points, true},
        {head + "70 12|" + tail + "41 1.0|41 0.5|41 1.0|" + points, true},
        {head + "70 8|71 3|72 0|73 0|74 2|44 1e-10|12 0.0|22 1.0|32 0.0|11 0.0|21 0.0|31 0.0|11 "
                "5.0|21 1.0|31 0.0",
         true},
        // A group of its own, a weight of nothing, a count that lies.
        {head + "70 8|" + tail + points + "|90 1", false},
        {head + "70 12|" + tail + "41 1.0|41 0.0|41 1.0|" + points, false},
        {head + "70 8|71 2|72 7|73 3|74 0|40 0.0|40 0.0|40 0.0|40 1.0|40 1.0|40 1.0|" + points,
         false},
    };
    for (const auto& [spline, alive] : cases) {
        const auto database = loadText(fileWith(spline));
        ASSERT_NE(database, nullptr) << spline;
        EXPECT_EQ(AcDbSpline::cast(modelSpace(*database)[0]) != nullptr, alive) << spline;
        EXPECT_EQ(without(record(groupsOf(saved(*database)), "SPLINE"), 330),
                  without(groups(spline), 330));
    }
}

TEST(Foreign, DimensionsShowTheirOverridesOrKeepTheirPicture) {
    // 144: measured lengths by two; 71: tolerances, which are not drawn here.
    for (const auto& [code, alive] :
         {std::pair("1070 144|1040 2.0", true), std::pair("1070 71|1070 1", false)}) {
        const auto database = loadText(fileWith(
            "0 DIMENSION|5 D9|330 1F|100 AcDbEntity|8 0|100 AcDbDimension|2 *D7|10 4|20 5|30 0|11 "
            "2|21 5|31 0|70 32|71 5|3 Standard|100 AcDbAlignedDimension|13 0|23 0|33 0|14 4|24 "
            "3|34 0|50 0|100 AcDbRotatedDimension|1001 ACAD|1000 DSTYLE|1002 {|" +
                std::string(code) + "|1002 }",
            "AC1015"));
        ASSERT_NE(database, nullptr);
        const auto* const dimension = AcDbRotatedDimension::cast(modelSpace(*database).at(0));
        ASSERT_EQ(dimension != nullptr, alive) << code;
        EXPECT_EQ(alive ? dimension->shownText() : L"8", L"8");
    }
}

TEST(Foreign, AlignedDimensionOfAnotherWriterIsAlive) {
    // Others write a version of the class, how lines of text are spaced, and the angle that only a
    // rotated dimension has.
    const auto database = loadText(fileWith(
        "0 DIMENSION|5 D9|330 1F|100 AcDbEntity|8 0|100 AcDbDimension|280 0|2 *D7|3 Standard|10 "
        "4|20 5|30 0|11 2|21 5|31 0|70 33|71 5|72 0|42 4.0|100 AcDbAlignedDimension|13 0|23 0|33 "
        "0|14 "
        "4|24 0|34 0|50 0.0"));
    ASSERT_NE(database, nullptr);
    const auto* dimension = AcDbAlignedDimension::cast(modelSpace(*database).at(0));
    ASSERT_NE(dimension, nullptr);
    EXPECT_EQ(dimension->measurement(), 4.0);
}

TEST(Foreign, TablesClassesObjectsAndSectionsStay) {
    const char* others =
        "0 SECTION|2 CLASSES|0 CLASS|1 QUADRO|2 AcDbQuadro|3 Outro|90 1|280 0|281 1|0 ENDSEC|0 "
        "SECTION|2 TABLES|0 "
        "TABLE|2 VIEW|5 E0|330 0|100 AcDbSymbolTable|70 1|0 VIEW|5 E1|330 E0|100 "
        "AcDbSymbolTableRecord|100 "
        "AcDbViewTableRecord|2 Planta|70 0|40 100.50|10 0|20 0|0 ENDTAB|0 ENDSEC|0 SECTION|2 "
        "OBJECTS|0 DICTIONARY|5 "
        "C|330 0|100 AcDbDictionary|281 1|3 ACAD_GROUP|350 D|3 ACAD_MATERIAL|350 F|0 DICTIONARY|5 "
        "D|330 C|100 "
        "AcDbDictionary|281 1|3 Grupo|350 E|0 GROUP|5 E|102 {ACAD_REACTORS|330 D|102 }|330 D|100 "
        "AcDbGroup|300 nota|70 0|71 "
        "1|340 A1|0 DICTIONARY|5 F|330 C|100 AcDbDictionary|280 1|281 1|3 Cinza|360 F1|0 "
        "MATERIAL|5 "
        "F1|330 F|100 AcDbMaterial|1 Cinza|0 ENDSEC|0 SECTION|2 "
        "MINHASECAO|0 COISA|1 valor|0 ENDSEC";
    const std::string line =
        "0 LINE|5 A1|102 {ACAD_REACTORS|330 E|102 }|330 1F|100 AcDbEntity|8 0|100 AcDbLine|10 "
        "0.0|20 0.0|30 0.0|11 1.0|21 0.0|31 0.0";
    const Groups all = passed(fileWith(line, "AC1015", others));
    EXPECT_EQ(valueOf(record(all, "CLASS", 1, "QUADRO"), 3), "Outro");
    EXPECT_EQ(valueOf(record(all, "VIEW", 2, "Planta"), 40), "100.50");
    EXPECT_EQ(record(all, "GROUP"), groups("0 GROUP|5 E|102 {ACAD_REACTORS|330 D|102 }|330 D|100 "
                                           "AcDbGroup|300 nota|70 0|71 1|340 A1"));
    EXPECT_EQ(valueOf(record(all, "COISA"), 1), "valor");
    const Groups root = record(all, "DICTIONARY", 5, "C");
    EXPECT_EQ(root[0].value, "DICTIONARY");
    for (const char* key :
         {"ACAD_GROUP", "ACAD_MATERIAL", "ACAD_LAYOUT", "ACAD_PLOTSTYLENAME", "ACAD_MLINESTYLE"})
        EXPECT_EQ(std::count(root.begin(), root.end(), Group{3, key}), 1) << key;
    EXPECT_EQ(std::count(all.begin(), all.end(), Group{3, "Grupo"}), 1);
    EXPECT_EQ(valueOf(record(all, "DICTIONARY", 5, "F"), 360), "F1");  // owned, as 280 says
    EXPECT_EQ(valueOf(record(all, "DICTIONARY", 5, "D"), 350), "E");
    const Groups kept = record(all, "LINE", 5, "A1");
    ASSERT_GT(kept.size(), 4U);
    EXPECT_EQ(Groups(kept.begin() + 2, kept.begin() + 5), groups("102 {ACAD_REACTORS|330 E|102 }"));
}

TEST(Foreign, OrderOfDrawingComesBackTagForTag) {
    const char* others =
        "0 SECTION|2 TABLES|0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 1|0 "
        "BLOCK_RECORD|5 1F|102 {ACAD_XDICTIONARY|360 D0|102 }|330 1|100 AcDbSymbolTableRecord|100 "
        "AcDbBlockTableRecord|2 *Model_Space|340 0|0 ENDTAB|0 ENDSEC|0 SECTION|2 OBJECTS|0 "
        "DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|0 DICTIONARY|5 D0|330 1F|100 "
        "AcDbDictionary|280 1|281 1|3 ACAD_SORTENTS|360 D1|0 SORTENTSTABLE|5 D1|102 "
        "{ACAD_REACTORS|330 D0|102 }|330 D0|100 AcDbSortentsTable|330 1F|331 A1|5 A3|331 A3|5 "
        "A1|0 ENDSEC";
    std::string entities;
    for (const char* const handle : {"A1", "A2", "A3"})
        entities += std::string(entities.empty() ? "" : "|") + "0 POINT|5 " + handle +
                    "|330 1F|100 AcDbEntity|8 0|100 AcDbPoint|10 1|20 2|30 0";
    const auto database = loadText(fileWith(entities, "AC1015", others));
    ASSERT_NE(database, nullptr);
    const auto handles = [&] {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database->core().modelSpaceId(),
                                                            AcDb::kForRead);
        std::string all;
        for (const AcDbObjectId id : drawOrder(*space.object()))
            all += std::to_string(id.handle().value() - 0xA0);
        return all;
    };
    EXPECT_EQ(handles(), "321");
    Groups kept = groups(others);
    kept.erase(kept.begin(), std::find(kept.begin(), kept.end(), Group{0, "SORTENTSTABLE"}));
    kept.pop_back();
    EXPECT_EQ(record(groupsOf(saved(*database)), "SORTENTSTABLE"), kept);
    // What is erased goes out of the file.
    const std::vector<AcDbObjectId> all = database->core().modelSpace();
    ASSERT_EQ(moveInDrawOrder(database->core().modelSpaceId(), {all[1]}, DrawPlace::Back),
              Acad::eOk);
    EXPECT_EQ(handles(), "231");
    ASSERT_EQ(AcDbObjectPointer<AcDbEntity>(all[2], AcDb::kForWrite)->erase(), Acad::eOk);
    const Groups back = record(groupsOf(saved(*database)), "SORTENTSTABLE");
    EXPECT_EQ(Groups(back.end() - 4, back.end()), groups("331 A2|5 A1|331 A1|5 A3"));
}

TEST(Foreign, ComplexLinetypeAndBlockExtrasStay) {
    const char* tables =
        "0 SECTION|2 TABLES|0 TABLE|2 LTYPE|5 5|330 0|100 AcDbSymbolTable|70 1|0 LTYPE|5 20|330 "
        "5|100 "
        "AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 GAS|70 0|3 ----GAS----|72 65|73 2|40 "
        "18.0|49 12.0|74 0|49 -6.0|74 "
        "2|75 0|340 11|46 0.1|50 0.0|44 -0.1|45 -0.05|9 GAS|0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|0 "
        "BLOCK|5 21|330 22|100 "
        "AcDbEntity|8 Camada|62 4|100 AcDbBlockBegin|2 PEÇA|70 0|10 1.5|20 2.5|30 0.0|3 PEÇA|1 |4 "
        "descrição|0 ENDBLK|5 23|330 "
        "22|100 AcDbEntity|8 Camada|100 AcDbBlockEnd|0 ENDSEC";
    const Groups all = passed(fileWith("0 INSERT|8 0|2 peça|10 0|20 0", "AC1021", tables));
    const Groups linetype = record(all, "LTYPE", 2, "GAS");
    EXPECT_EQ(valueOf(linetype, 9), "GAS");
    EXPECT_EQ(valueOf(linetype, 46), "0.1");
    const Groups block = record(all, "BLOCK", 2, "PEÇA");
    EXPECT_EQ(valueOf(block, 4), "descrição");
    EXPECT_EQ(valueOf(block, 8), "Camada");
    EXPECT_EQ(valueOf(block, 10), "1.5");
    EXPECT_EQ(valueOf(block, 5), "21");
    EXPECT_EQ(valueOf(record(all, "INSERT"), 2), "PEÇA");
}

TEST(Foreign, CopiesOfEntitiesWithPartsGiveThePartsHandlesOfTheirOwn) {
    const auto database = loadText(fileWith(
        "0 INSERT|5 C1|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 CARIMBO|10 5|20 "
        "6|30 0|0 ATTRIB|5 C2|102 {ACAD_REACTORS|330 C1|102 }|330 C1|100 AcDbEntity|8 0|100 "
        "AcDbText|10 5|20 6|30 0|40 2.5|1 valor|100 AcDbAttribute|2 NOME|70 0|0 SEQEND|5 C3|330 "
        "C1|100 AcDbEntity|8 0|0 POLYLINE|5 D1|330 1F|100 AcDbEntity|8 0|100 AcDb2dPolyline|66 "
        "1|10 0|20 0|30 0|0 VERTEX|5 D2|330 D1|100 AcDbEntity|8 0|100 AcDbVertex|100 "
        "AcDb2dVertex|10 1|20 1|30 0|0 SEQEND|5 D3|330 D1|100 AcDbEntity|8 0"));
    ASSERT_NE(database, nullptr);
    AcDbObjectIdArray ids;
    AcDbObjectIdArray copies;
    for (const AcDbObjectId id : database->core().modelSpace()) ids.append(id);
    for (int i = 0; i < 2; ++i)
        ASSERT_EQ(database->deepCloneObjects(ids, database->core().modelSpaceId(), copies),
                  Acad::eOk);
    const std::string text = saved(*database);
    const Groups all = groupsOf(text);
    std::set<std::string> handles;
    unsigned long long largest = 0;
    std::string owner;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].code == 5 && all[i - 1].value != "$HANDSEED") {
            EXPECT_TRUE(handles.insert(all[i].value).second) << all[i].value;
            largest = std::max(largest, std::stoull(all[i].value, nullptr, 16));
        }
        if (all[i].code != 0) continue;
        const std::string& type = all[i].value;
        if (type == "INSERT" || type == "POLYLINE") owner = all[i + 1].value;
        const bool part = type == "ATTRIB" || type == "VERTEX" || type == "SEQEND";
        if (!part) continue;
        EXPECT_EQ(all[i + (type == "ATTRIB" ? 5 : 2)], (Group{330, owner})) << type;
    }
    EXPECT_EQ(countOf(all, "SEQEND"), 6U);
    const auto seed = std::find(all.begin(), all.end(), Group{9, "$HANDSEED"});
    EXPECT_GT(std::stoull(seed[1].value, nullptr, 16), largest);
    EXPECT_FALSE(record(all, "ATTRIB", 5, "C2").empty()) << "the original keeps its own";
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(saved(*back) == text) << "once given, the handles stay";
}

TEST(Foreign, TablesKeepShapeFilesAndWhatApplicationsSaid) {
    const char* tables =
        "0 SECTION|2 TABLES|0 TABLE|2 LTYPE|5 5|330 0|100 AcDbSymbolTable|70 1|0 LTYPE|5 20|102 "
        "{MEUAPP|90 7|102 }|330 5|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 "
        "TRILHO|70 0|3 |72 65|73 2|40 3.0|49 2.0|74 0|49 -1.0|74 4|75 132|340 3A|46 1.0|50 "
        "0.0|44 0.0|45 0.0|0 ENDTAB|0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1|0 LAYER|5 "
        "21|102 {MEUAPP|90 8|102 }|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 "
        "Eixos|70 2|62 3|6 TRILHO|0 ENDTAB|0 TABLE|2 STYLE|5 3|330 0|100 AcDbSymbolTable|70 2|0 "
        "STYLE|5 3A|330 3|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 |70 1|40 "
        "0.0|41 1.0|50 0.0|71 0|42 2.5|3 formas.shx|4 |0 STYLE|5 3B|330 3|100 "
        "AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 Notas|70 0|40 0.0|41 1.0|50 0.0|71 "
        "0|42 2.5|3 txt|4 |0 ENDTAB|0 ENDSEC";
    const std::string text = saved(*loadText(fileWith("0 POINT|8 0|10 0|20 0", "AC1015", tables)));
    const Groups all = groupsOf(text);
    EXPECT_EQ(record(all, "STYLE", 3, "formas.shx"),
              groups("0 STYLE|5 3A|330 3|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 "
                     "|70 1|40 0.0|41 1.0|50 0.0|71 0|42 2.5|3 formas.shx|4 "));
    EXPECT_EQ(valueOf(record(all, "TABLE", 2, "STYLE"), 70), "3") << "with Standard";
    EXPECT_EQ(countOf(all, "STYLE"), 3U);
    EXPECT_EQ(valueOf(record(all, "LTYPE", 2, "TRILHO"), 340), "3A");
    EXPECT_EQ(valueOf(record(all, "LTYPE", 2, "TRILHO"), 102), "{MEUAPP");
    EXPECT_EQ(valueOf(record(all, "LTYPE", 2, "TRILHO"), 90), "7");
    EXPECT_EQ(valueOf(record(all, "LAYER", 2, "Eixos"), 102), "{MEUAPP");
    EXPECT_EQ(valueOf(record(all, "LAYER", 2, "Eixos"), 70), "2");
    EXPECT_TRUE(saved(*loadText(text)) == text);
}

TEST(Foreign, ReferencesWithAttributesNameTheirBlockAsTextsAreWritten) {
    const char* blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 A^ B|70 2|10 0|20 0|30 0|3 A^ B|1 |0 ENDBLK|8 0|0 "
        "ENDSEC";
    const Groups all =
        passed(fileWith("0 INSERT|5 C1|100 AcDbEntity|8 0|100 AcDbBlockReference|66 "
                        "1|2  A^ B|10 5|20 6|0 SEQEND|5 C3|8 0",
                        "AC1015", blocks));
    EXPECT_EQ(countOf(all, "BLOCK"), 3U) << "the two spaces and the block itself";
}

TEST(Foreign, WhatAReleaseDoesNotKnowStaysOutOfItsFiles) {
    const char* others =
        "0 SECTION|2 TABLES|0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1|0 LAYER|5 21|330 "
        "2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Eixos|70 0|62 -7|420 16711680|6 "
        "Continuous|347 0|0 ENDTAB|0 TABLE|2 DIMSTYLE|5 8|330 0|100 AcDbSymbolTable|70 1|0 "
        "DIMSTYLE|105 A8|330 8|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 COTA|70 "
        "0|69 2|70 3|284 8|290 1|371 -2|0 ENDTAB|0 ENDSEC";
    const std::string head = "|330 1F|100 AcDbEntity|8 0|62 5|420 ";
    const std::string entities =
        "0 LINE|5 B1" + head + "65280|100 AcDbLine|10 0|20 0|30 0|11 1|21 0|31 0|0 HATCH|5 B2" +
        head +
        "8421504|440 33554559|284 1|100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 "
        "1|71 0|91 1|92 7|72 0|73 1|93 3|10 0|20 0|10 5|20 0|10 5|20 5|97 0|75 1|76 1|98 0|450 "
        "1|451 0|460 0|461 0|452 0|462 0|453 2|463 0|63 5|421 255|463 1|63 2|421 16776960|470 "
        "LINEAR|0 INSERT|5 B3|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 B|10 0|20 "
        "0|30 0|0 ATTRIB|5 B4|330 B3" +
        head +
        "255|100 AcDbText|10 0|20 0|30 0|40 2|1 x|100 AcDbAttribute|2 N|70 0|0 SEQEND|5 B5|330 "
        "B3|100 AcDbEntity|8 0";
    const auto database = loadText(fileWith(entities, "AC1032", others));
    ASSERT_NE(database, nullptr);
    const Groups newest = groupsOf(saved(*database));
    const Groups oldest = groupsOf(saved(*database, {dxf::Version::R2000}));
    // Red, green and the middle grey stand so in the palette; blue is colour 5.
    struct Case {
        const char* type;
        const char* index;
        std::vector<int> gone;
    };
    const Case cases[] = {{"LINE", "3", {420}},
                          {"HATCH", "8", {420, 421, 440, 284, 63, 450, 453, 460, 463, 470}},
                          {"ATTRIB", "5", {420}},
                          {"LAYER", "-1", {420, 347}},
                          {"DIMSTYLE", nullptr, {69, 290}}};
    for (const Case& c : cases) {
        const auto of = [&](const Groups& all) {
            if (std::string(c.type) == "LAYER") return record(all, c.type, 2, "Eixos");
            return std::string(c.type) == "DIMSTYLE" ? record(all, c.type, 2, "COTA")
                                                     : record(all, c.type);
        };
        for (const int code : c.gone) {
            EXPECT_NE(valueOf(of(newest), code), "(sem o grupo)") << c.type << " " << code;
            EXPECT_EQ(valueOf(of(oldest), code), "(sem o grupo)") << c.type << " " << code;
        }
        if (c.index == nullptr) continue;
        EXPECT_EQ(valueOf(of(oldest), 62), c.index) << c.type;
    }
    const Folder folder;
    std::string lost;
    ASSERT_TRUE(dxf::save(*database, folder / "a.dxf", {dxf::Version::R2018}, &lost).ok());
    EXPECT_EQ(lost, "");
    ASSERT_TRUE(dxf::save(*database, folder / "a.dxf", {dxf::Version::R2000}, &lost).ok());
    EXPECT_EQ(lost,
              "o formato R2000 não guarda, e o arquivo ficou sem: cor verdadeira (4), degradê (1), "
              "transparência (1); salve no formato 2018 para não perder nada");
    const Groups style = record(oldest, "DIMSTYLE", 2, "COTA");
    EXPECT_EQ(valueOf(style, 284), "8") << "zeros of tolerances, as old as the style";
    EXPECT_EQ(valueOf(style, 371), "-2");
    EXPECT_EQ(
        std::count_if(style.begin(), style.end(), [](const Group& g) { return g.code == 70; }), 1)
        << "the flags only";
}

TEST(Foreign, EntitiesOfASecondLayoutStandOnPaper) {
    const char* blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|5 D1|330 D0|100 AcDbEntity|67 1|8 0|100 AcDbBlockBegin|2 "
        "*Paper_Space0|70 0|10 0|20 0|30 0|3 *Paper_Space0|1 |0 CIRCLE|5 D3|330 D0|100 "
        "AcDbEntity|67 1|8 0|100 AcDbCircle|10 0|20 0|30 0|40 9.5|0 ENDBLK|5 D2|330 D0|100 "
        "AcDbEntity|67 1|8 0|100 AcDbBlockEnd|0 ENDSEC";
    const Groups all = passed(fileWith("0 POINT|8 0|10 0|20 0", "AC1015", blocks));
    EXPECT_EQ(valueOf(record(all, "CIRCLE"), 67), "1");
    EXPECT_EQ(valueOf(record(all, "POINT"), 67), "(sem o grupo)");
}

TEST(Foreign, LayoutsComeBackTagForTagAndEditedOnesButForWhatWasEdited) {
    AcDbDatabase made;
    ASSERT_TRUE(addTab(made, L"Detalhes"));
    std::string text = saved(made);
    const auto replace = [&text](const std::string& from, const std::string& to) {
        const std::size_t at = text.rfind(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, from.size(), to);
    };
    // Of the last layout: a printer, a turned sheet of 210 x 297 with margins, numbers as others
    // write them, an order of groups that is not ours.
    replace("none_device", "Plotadora ação");
    replace("\n44\n297.0\n45\n210.0", "\n45\n297.00\n44\n210.000\n347\n0");
    replace("\n40\n0.0\n41\n0.0\n42\n0.0\n43\n0.0", "\n40\n7.5\n41\n20\n42\n5.25\n43\n10.0");
    replace("\n73\n0\n74", "\n73\n1\n74");
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(saved(*back), text);
    const Tab tab = tabNamed(*back, L"DETALHES");
    // Turned by a quarter the bottom's margin is on the left, the right one below.
    EXPECT_EQ(sheetOf(tab), (Box2d{-20.0, -5.25, 277.0, 204.75}));

    ASSERT_TRUE(renameTab(*back, tab, L"Cortes"));
    replace("\n1\nDetalhes\n", "\n1\nCortes\n");
    replace("\n3\nDetalhes\n", "\n3\nCortes\n");
    EXPECT_EQ(saved(*back), text);
}

TEST(Foreign, TheSheetOfEveryDrawingIsHandedOnWhenItsTabGoes) {
    AcDbDatabase drawing;
    EXPECT_FALSE(eraseTab(drawing, tabsOf(drawing)[1])) << "the only one";
    const Result<Tab> added = addTab(drawing, L"Folha2");
    ASSERT_TRUE(added);
    const AcDbObjectId first = drawing.core().paperSpaceId();
    UndoLog& undo = drawing.core().undo();
    undo.begin(L"LAYOUT");
    ASSERT_TRUE(eraseTab(drawing, tabNamed(drawing, L"Layout1")));
    undo.end();
    EXPECT_EQ(drawing.core().paperSpaceId(), added->block);
    ASSERT_EQ(tabsOf(drawing).size(), 2u);
    EXPECT_EQ(loadText(saved(drawing))->core().paperSpaceId().handle().value(),
              added->block.handle().value());
    EXPECT_TRUE(undo.undo());
    EXPECT_EQ(drawing.core().paperSpaceId(), first);
    EXPECT_EQ(tabsOf(drawing).size(), 3u);
    // A copy stands behind its original and has its own entities.
    ASSERT_TRUE(copyTab(drawing, tabNamed(drawing, L"Layout1"), L"Outro"));
    EXPECT_EQ(tabsOf(drawing)[2].name, L"Outro");
}

TEST(Foreign, TrueColoursGivenHereStandWhereFilesHaveThem) {
    const char* layer =
        "0 SECTION|2 TABLES|0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1|0 LAYER|5 21|330 "
        "2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Eixos|70 0|62 7|6 Continuous|0 "
        "ENDTAB|0 ENDSEC";
    // The paragraphs have a ground with a true colour of its own, and the line groups of another
    // program before its colour.
    const auto database = loadText(
        fileWith("0 LINE|5 B1|102 {OUTRO|420 9|102 }|330 1F|100 AcDbEntity|8 0|62 5|420 255|430 "
                 "RAL$1|440 33554559|100 AcDbLine|10 0|20 0|30 0|11 1|21 0|31 0|0 MTEXT|5 B2|330 "
                 "1F|100 AcDbEntity|8 0|100 AcDbMText|10 0|20 0|30 0|40 2.5|41 0|71 1|72 1|1 "
                 "texto|7 Standard|90 1|63 1|420 16711680|45 1.5",
                 "AC1032", layer));
    ASSERT_NE(database, nullptr);
    const std::vector<AcDbEntity*> all = modelSpace(*database);
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(ObjectAccess::trueColor(*all[0]), (Rgb{0, 0, 255}));
    EXPECT_EQ(ObjectAccess::trueColor(*all[1]), std::nullopt);
    AcDbObjectId eixos = ObjectAccess::lookup(database->layerTableId(), L"Eixos");
    PictureTraits traits;
    traits.color = 3;
    traits.trueColor = Rgb{0, 250, 2};
    for (AcDbEntity* const entity : all) {
        AcDbObjectPointer<AcDbEntity> open(entity->objectId(), AcDb::kForWrite);
        giveColor(*open.object(), traits);
    }
    {
        AcDbObjectPointer<AcDbLayerTableRecord> open(eixos, AcDb::kForWrite);
        ObjectAccess::setTrueColor(*open.object(), *traits.trueColor);
    }
    const std::string text = saved(*database);
    const Groups groups = groupsOf(text);
    EXPECT_EQ(without(record(groups, "LINE"), 330),
              dxftest::groups("0 LINE|5 B1|102 {OUTRO|420 9|102 }|100 AcDbEntity|8 0|62 "
                              "3|440 33554559|420 64002|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 "
                              "1.0|21 0.0|31 0.0"));
    const Groups paragraphs = record(groups, "MTEXT");
    EXPECT_EQ(valueOf(paragraphs, 420), "64002");
    EXPECT_EQ(std::count(paragraphs.begin(), paragraphs.end(), Group{420, "16711680"}), 1);
    EXPECT_EQ(valueOf(record(groups, "LAYER", 2, "Eixos"), 420), "64002");
    EXPECT_EQ(saved(*loadText(text)), text);
}

TEST(Foreign, WhatBelongsToErasedObjectsGoesWithThemAndComesBack) {
    const std::string image =
        "|330 1F|100 AcDbEntity|8 0|100 AcDbRasterImage|90 0|10 1|20 1|30 "
        "0|11 1|21 0|31 0|12 0|22 1|32 0|13 4|23 3|340 A0|70 7|360 ";
    const std::string reference =
        "0 INSERT|5 B3|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 QUADRO|10 0|20 0|30 "
        "0|0 ATTRIB|5 B4|102 {ACAD_XDICTIONARY|360 A5|102 }|330 B3|100 AcDbEntity|8 0|100 "
        "AcDbText|10 0|20 0|30 0|40 2|1 x|100 AcDbAttribute|2 N|70 0|0 SEQEND|5 B5|330 B3|100 "
        "AcDbEntity|8 0";
    const std::string objects =
        "0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|330 0|100 AcDbDictionary|3 ACAD_GROUP|350 D|0 "
        "DICTIONARY|5 D|330 C|100 AcDbDictionary|3 G|350 A6|0 IMAGEDEF|5 A0|102 "
        "{ACAD_REACTORS|330 A1|330 A2|102 }|330 C|100 AcDbRasterImageDef|1 f.png|0 "
        "IMAGEDEF_REACTOR|5 A1|330 B1|100 AcDbRasterImageDefReactor|90 2|330 B1|0 "
        "IMAGEDEF_REACTOR|5 A2|330 B2|100 AcDbRasterImageDefReactor|90 2|330 B2|0 DICTIONARY|5 "
        "A5|330 B4|100 AcDbDictionary|281 1|3 Q|360 A7|0 GROUP|5 A6|330 D|100 AcDbGroup|300 |70 "
        "0|71 1|340 B1|340 B2|0 DICTIONARYVAR|5 A7|330 A5|100 DictionaryVariables|280 0|1 2|0 "
        "ENDSEC";
    const auto database = loadText(fileWith("0 IMAGE|5 B1" + image + "A1|0 IMAGE|5 B2" + image +
                                                "A2|" + reference + "|0 POINT|5 B9|8 0|10 0|20 0",
                                            "AC1015", objects));
    ASSERT_NE(database, nullptr);
    const std::string whole = saved(*database);
    const std::vector<AcDbObjectId> all = database->core().modelSpace();
    AcDbObjectIdArray first;
    first.append(all[0]);
    first.append(all[2]);
    AcDbObjectIdArray copies;
    UndoLog& undo = database->core().undo();
    undo.begin(L"ERASE");
    ASSERT_EQ(database->deepCloneObjects(first, database->core().modelSpaceId(), copies),
              Acad::eOk);
    for (const AcDbObjectId id : first)
        ASSERT_EQ(AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->erase(), Acad::eOk);
    undo.end();
    // The copies stand: the image has no reactor, the attribute takes over what the first one had.
    Groups back = groupsOf(saved(*database));
    EXPECT_TRUE(record(back, "IMAGEDEF_REACTOR", 5, "A1").empty());
    EXPECT_EQ(record(back, "IMAGEDEF"),
              groups("0 IMAGEDEF|5 A0|102 {ACAD_REACTORS|330 A2|102 }|330 C|100 "
                     "AcDbRasterImageDef|1 f.png"));
    EXPECT_EQ(valueOf(record(back, "IMAGE", 5, "B2"), 360), "A2");
    EXPECT_EQ(valueOf(record(back, "IMAGE", 340, "A0"), 360), "A2");
    EXPECT_EQ(std::count(back.begin(), back.end(), Group{360, "A1"}), 0);
    const Groups group = record(back, "GROUP");
    EXPECT_EQ(Groups(group.end() - 2, group.end()), groups("71 1|340 B2"));
    EXPECT_EQ(valueOf(record(back, "ATTRIB"), 360), "A5");

    undo.begin(L"ERASE");
    ASSERT_EQ(AcDbObjectPointer<AcDbEntity>(copies[1], AcDb::kForWrite)->erase(), Acad::eOk);
    undo.end();
    back = groupsOf(saved(*database));
    EXPECT_TRUE(record(back, "DICTIONARY", 5, "A5").empty());
    EXPECT_EQ(countOf(back, "DICTIONARYVAR"), 0U);
    EXPECT_TRUE(undo.undo() && undo.undo());
    EXPECT_EQ(saved(*database), whole);
}

TEST(Foreign, VariablesThatStandElsewhereThanInTheHeaderAreSaved) {
    const auto wipeouts = [](const Groups& all) {
        return valueOf(record(all, "WIPEOUTVARIABLES"), 70);
    };
    const char* vports =
        "0 SECTION|2 TABLES|0 TABLE|2 VPORT|5 8|330 0|100 AcDbSymbolTable|70 1|0 VPORT|5 94|330 "
        "8|100 AcDbSymbolTableRecord|100 AcDbViewportTableRecord|2 *Active|70 0|16 0|26 0|36 1|40 "
        "100|41 1.5|110 0.00|120 0|130 0|111 1|121 0|131 0|112 0|122 1|132 0|0 ENDTAB|0 ENDSEC";
    const auto database = loadText(fileWith("0 POINT|8 0|10 0|20 0", "AC1015", vports));
    ASSERT_NE(database, nullptr);
    Groups all = groupsOf(saved(*database));
    EXPECT_EQ(countOf(all, "WIPEOUTVARIABLES"), 0U);
    EXPECT_EQ(valueOf(record(all, "VPORT"), 110), "0.00");
    SystemVariables& variables = database->core().variables();
    ASSERT_TRUE(variables.set(L"WIPEOUTFRAME", VariableValue(short{0})).ok());
    keepUserSystem(variables, AcGeMatrix3d::translation({7, 0, 0}) *
                                  AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis));
    const std::string text = saved(*database);
    all = groupsOf(text);
    EXPECT_EQ(wipeouts(all), "0");
    EXPECT_EQ(std::stod(valueOf(record(all, "VPORT"), 110)), 7.0);
    EXPECT_NEAR(std::stod(valueOf(record(all, "VPORT"), 121)), 1.0, 1e-12);
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->core().variables().number(L"WIPEOUTFRAME"), 0);
    EXPECT_EQ(saved(*back), text);
    ASSERT_TRUE(back->core().variables().set(L"WIPEOUTFRAME", VariableValue(short{1})).ok());
    EXPECT_EQ(wipeouts(groupsOf(saved(*back))), "1");
}
