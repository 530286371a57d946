// SPDX-License-Identifier: MIT
// The selection prompt, selection sets of programs, picking and snapping.
#include "prancheta/editor/select.h"

#include "geassign.h"
#include "prancheta/editor/picking.h"
#include "support.h"

using namespace prancheta;

namespace {

class SelectTest : public editortest::EditorTest {
protected:
    SelectTest() {
        for (int i = 0; i < 3; ++i) lines.push_back(line(100.0 * i, 0, 100.0 * i, 50));
    }
    /// Indices of the lines that these answers select.
    std::string selected(std::initializer_list<const wchar_t*> answers) {
        for (const wchar_t* text : answers) {
            const bool escape = std::wstring_view(text) == L"^C";
            ui.inputs.push_back(escape ? editortest::at(RawInput::Kind::Cancel, 0, 0)
                                       : editortest::typed(text));
        }
        ui.inputs.push_back(editortest::typed(L""));
        CommandRun run;
        const Selection selection =
            editor->runner().runBlocking(run, selectObjects(CommandContext(*editor, run)));
        ui.inputs.clear();
        std::string indices = selection.status == RTCAN ? "esc" : "";
        for (const AcDbObjectId& id : selection.ids)
            indices += std::to_string(std::find(lines.begin(), lines.end(), id) - lines.begin());
        return indices;
    }
    void lockLayerOf(AcDbObjectId id, bool locked = true) {
        const AcDbObjectId layer = editor->database().core().ensureLayer(L"TRANCADA");
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        entity->setLayer(layer);
        AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        record->setIsLocked(locked);
    }
    bool said(std::wstring_view text) const { return ui.output.find(text) != std::wstring::npos; }

    std::vector<AcDbObjectId> lines;
};

TEST_F(SelectTest, pointsWindowsAndWords) {
    EXPECT_EQ(selected({L"100,25"}), "1");
    EXPECT_EQ(selected({L"100.4,25"}), "1");         // inside the pick box
    EXPECT_EQ(selected({L"50,10", L"150,60"}), "");  // to the right: window, cuts the line
    EXPECT_EQ(selected({L"50,-10", L"150,60"}), "1");
    EXPECT_EQ(selected({L"150,10", L"50,20"}), "1");  // to the left: crossing
    EXPECT_EQ(selected({L"_w", L"-10,-10", L"150,60"}), "01");
    EXPECT_EQ(selected({L"_c", L"50,10", L"250,20"}), "12");
    EXPECT_EQ(selected({L"_l"}), "2");
    EXPECT_EQ(selected({L"_all"}), "012");
    EXPECT_EQ(selected({L"_p"}), "012");
    EXPECT_EQ(selected({L"_all", L"_r", L"100,25", L"_a", L"100,25"}), "021");
    EXPECT_EQ(selected({L"0,25", L"_all", L"_u"}), "0");
    EXPECT_EQ(selected({L"200,25", L"_all", L"_r", L"_c", L"50,10", L"250,20", L"_u"}), "201");
    EXPECT_EQ(selected({L"_all", L"_r", L"100,25", L"_a", L"100,25", L"_u", L"_u", L"_u", L"_l"}),
              "2");
    EXPECT_EQ(selected({L"_wp", L"-10,-10", L"150,-10", L"150,60", L"-10,60", L""}), "01");
    EXPECT_EQ(selected({L"_cp", L"90,10", L"110,10", L"110,20", L""}), "1");
    EXPECT_EQ(selected({L"_f", L"-10,10", L"250,10", L""}), "012");
    EXPECT_EQ(selected({L"_w", L"^C"}), "esc");
    ACHAR handle[17];
    lines[1].handle().getIntoAsciiBuffer(handle);
    EXPECT_EQ(selected({(L"(handent \"" + std::wstring(handle) + L"\")").c_str()}), "1");
    EXPECT_TRUE(ui.complaints.empty());
    EXPECT_EQ(selected({L"(handent \"FFFF\")", L"bobagem"}), "");
    EXPECT_EQ(ui.complaints.size(), 2u);
}

TEST_F(SelectTest, textsAreCrossedByTheirBoxes) {
    // Ten high and more than ten wide; nothing but the fence or the polygon meets its box.
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                      AcDb::kForWrite);
        auto* text = new AcDbText(AcGePoint3d(10, 100, 0), L"VIGA", AcDbObjectId::kNull, 10, 0);
        text->setDatabaseDefaults(&editor->database());
        lines.emplace_back();
        ASSERT_EQ(space->appendAcDbEntity(lines.back(), text), Acad::eOk);
        text->close();
    }
    EXPECT_EQ(selected({L"_f", L"15,90", L"15,130", L""}), "3");
    EXPECT_EQ(selected({L"_cp", L"12,95", L"18,95", L"15,103", L""}), "3");
    EXPECT_EQ(selected({L"_wp", L"5,95", L"15,95", L"15,115", L"5,115", L""}), "");
    EXPECT_EQ(selected({L"_wp", L"5,95", L"95,95", L"95,115", L"5,115", L""}), "3");
}

TEST_F(SelectTest, withoutPickaddTheLastPickCounts) {
    editor->variables().force(L"PICKADD", short{0});
    EXPECT_EQ(selected({L"0,25", L"100,25"}), "1");
    EXPECT_EQ(selected({L"0,25", L"_c", L"50,10", L"250,20"}), "12");
    EXPECT_EQ(selected({L"0,25", L"150,10", L"250,5"}), "0");  // a frame around nothing
    EXPECT_EQ(selected({L"0,25", L"_l"}), "02");
    EXPECT_EQ(selected({L"_all", L"_r", L"100,25"}), "02");
    EXPECT_EQ(selected({L"_all", L"100,25", L"_u"}), "012");
    lockLayerOf(lines[2]);
    EXPECT_EQ(selected({L"0,25", L"200,25"}), "0");  // nothing to take its place
    lockLayerOf(lines[2], false);
    // Shift adds and takes out.
    const auto pick = [&](int index, bool shift) {
        RawInput input = editortest::at(RawInput::Kind::Pick, 100.0 * index, 25);
        input.entities = {lines[static_cast<std::size_t>(index)]};
        input.removes = shift;
        ui.inputs.push_back(input);
    };
    pick(2, false);
    pick(0, true);
    pick(1, true);
    pick(2, true);
    EXPECT_EQ(selected({}), "01");
    editor->selection().pick({lines[2]}, CurrentSelection::Shift::Up);
    editor->selection().pick({lines[0], lines[1]}, CurrentSelection::Shift::Down);
    editor->selection().pick({lines[0]}, CurrentSelection::Shift::Down);
    EXPECT_EQ(editor->selection().ids(), (std::vector<AcDbObjectId>{lines[2], lines[1]}));
    editor->selection().clear();
    // A program names one object after the other.
    registerCommand(L"dois", [] {
        const ads_point first = {0, 25, 0};
        const ads_point second = {100, 25, 0};
        acedCommand(RTSTR, L"_turn", RTPOINT, first, RTPOINT, second, RTSTR, L"", RTSTR, L"0,0",
                    RTSTR, L"0", RTNONE);
    });
    type({L"dois"});
    EXPECT_EQ(editortest::turned().count, 2u);
}

TEST_F(SelectTest, groupsAreNotUsed) {
    EXPECT_EQ(selected({L"0,25", L"_g"}), "0");
    EXPECT_TRUE(said(L"Não há grupos no desenho.\n"));
    EXPECT_TRUE(ui.complaints.empty());
}

TEST_F(SelectTest, tellsWhatItFound) {
    (void)selected({L"_all", L"0,25", L"_all"});
    EXPECT_TRUE(said(L"3 encontrados\n"));
    EXPECT_TRUE(said(L"1 encontrado (1 duplicado), 3 total\n"));
    EXPECT_TRUE(said(L"3 encontrados (3 duplicados), 3 total\n"));
    lockLayerOf(lines[1]);
    EXPECT_EQ(selected({L"100,25", L"_c", L"-10,10", L"250,20"}), "02");
    EXPECT_TRUE(said(L"1 encontrado\n1 estava em uma camada bloqueada.\n"));
    ui.output.clear();
    EXPECT_EQ(selected({L"_all"}), "02");
    EXPECT_TRUE(said(L"2 encontrados\n1 estava em uma camada bloqueada.\n"));
}

TEST_F(SelectTest, hiddenLayersAreNotHit) {
    const AcDbObjectId layer = editor->database().core().ensureLayer(L"ESCURA");
    {
        AcDbObjectPointer<AcDbEntity> entity(lines[2], AcDb::kForWrite);
        entity->setLayer(layer);
        AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        record->setIsOff(true);
    }
    EXPECT_EQ(selected({L"_c", L"-10,10", L"250,20"}), "01");
    EXPECT_EQ(selected({L"_l"}), "1");
    EXPECT_EQ(selected({L"_all"}), "012");  // off is reached by ALL, frozen is not
    {
        AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        record->setIsFrozen(true);
    }
    EXPECT_EQ(selected({L"_all"}), "01");
}

TEST_F(SelectTest, selectedBeforeTheCommand) {
    editor->selection().select({lines[0], lines[2]});
    type({L"girar", L"0,0", L"0"});
    EXPECT_EQ(editortest::turned().count, 2u);
    EXPECT_TRUE(editor->selection().empty());
    editor->selection().select({lines[0]});
    type({L"raios", L""});  // does not work on a selection: drops it
    EXPECT_TRUE(editor->selection().empty());
}

TEST_F(SelectTest, setsOfPrograms) {
    ads_name set;
    Adesk::Int32 length = 0;
    ASSERT_EQ(acedSSGet(L"_X", nullptr, nullptr, nullptr, set), RTNORM);
    ASSERT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 3);
    ads_name second;
    ASSERT_EQ(acedSSName(set, 1, second), RTNORM);
    AcDbObjectId id;
    ASSERT_EQ(acdbGetObjectId(id, second), Acad::eOk);
    EXPECT_EQ(id, lines[1]);
    EXPECT_EQ(acedSSName(set, 3, second), RTERROR);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);

    const ads_point a = {50, -10, 0};
    const ads_point b = {150, 60, 0};
    ASSERT_EQ(acedSSGet(L"_W", a, b, nullptr, set), RTNORM);
    ASSERT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 1);
    EXPECT_EQ(acedSSGet(L"_W", a, nullptr, nullptr, set), RTERROR);
    resbuf filter{};
    filter.restype = 0;
    wchar_t circles[] = L"CIRCLE,ARC";
    wchar_t straight[] = L"lin*";
    filter.resval.rstring = circles;
    EXPECT_EQ(acedSSGet(L"_X", nullptr, nullptr, &filter, set), RTERROR);
    filter.resval.rstring = straight;
    EXPECT_EQ(acedSSGet(L"_X", nullptr, nullptr, &filter, set), RTNORM);

    ui.inputs = {editortest::typed(L"0,25"), editortest::typed(L"")};
    ASSERT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTNORM);
    ads_name grown;
    ads_name own;
    ASSERT_EQ(acdbGetAdsName(own, lines[2]), Acad::eOk);
    ASSERT_EQ(acedSSAdd(own, set, grown), RTNORM);
    ASSERT_EQ(acedSSAdd(own, set, grown), RTNORM);
    ASSERT_EQ(acedSSLength(grown, &length), RTNORM);
    EXPECT_EQ(length, 2);
}

TEST_F(SelectTest, oneEntity) {
    ads_name name;
    ads_point point;
    ui.inputs = {editortest::typed(L"100,25")};
    ASSERT_EQ(acedEntSel(L"Qual? ", name, point), RTNORM);
    AcDbObjectId id;
    ASSERT_EQ(acdbGetObjectId(id, name), Acad::eOk);
    EXPECT_EQ(id, lines[1]);
    EXPECT_EQ(point[Y], 25.0);
    ui.inputs = {editortest::typed(L"55,25")};
    EXPECT_EQ(acedEntSel(L"Qual? ", name, point), RTERROR);
    EXPECT_EQ(editor->variables().number(L"ERRNO"), 7);
    ui.inputs = {editortest::typed(L"")};
    EXPECT_EQ(acedEntSel(L"Qual? ", name, point), RTERROR);
    EXPECT_EQ(editor->variables().number(L"ERRNO"), 52);
}

TEST_F(SelectTest, snaps) {
    line(80, 10, 120, 10);
    const auto snap = [&](double x, double y, int modes, SnapReach reach = SnapReach::Aperture) {
        return snapPoint(*editor, AcGePoint3d(x, y, 0), modes, reach);
    };
    editortest::expectPoint(snap(100.3, 0.5, 1).value(), 100, 0);
    editortest::expectPoint(snap(99.7, 24, 2).value(), 100, 25);
    editortest::expectPoint(snap(100.4, 10.3, 32).value(), 100, 10);
    EXPECT_FALSE(snap(100.2, 35, 1).has_value());  // no end inside the aperture
    editortest::expectPoint(snap(100.2, 35, 1, SnapReach::Object).value(), 100, 50);
    EXPECT_FALSE(snap(150, 35, 1 + 2 + 32 + 512, SnapReach::Object).has_value());
    editortest::expectPoint(snap(100.2, 35, 512).value(), 100, 35);
    ads_point result;
    const ads_point near = {100.3, 0.5, 0};
    EXPECT_EQ(acedOsnap(near, L"_end,_mid", result), RTNORM);
    EXPECT_EQ(result[Y], 0.0);
    EXPECT_EQ(acedOsnap(near, L"_cen", result), RTREJ);
    EXPECT_EQ(acedOsnap(near, L"_bobagem", result), RTERROR);
    EXPECT_EQ(snapModes(L"_endp , int"), 33);
    EXPECT_EQ(snapModes(L"_none"), 0);
    // Three letters, with or without the accent.
    EXPECT_EQ(snapModes(L"pró,no,int,extensao,per"), 512 + 8 + 32 + 4096 + 128);
    EXPECT_EQ(snapModes(L"pro"), 512);
    EXPECT_FALSE(snapModes(L"_proximos").has_value());
}

}  // namespace
