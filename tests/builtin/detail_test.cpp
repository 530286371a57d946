// SPDX-License-Identifier: MIT
// DETALHE: live copies of a region, and their windows on sheets.
#include "prancheta/database/object_access.h"
#include "prancheta/editor/details.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/viewports.h"
#include "script_ui.h"

using namespace builtin;
using prancheta::Detail;

namespace {

/// The drawing is 1:20, so at 1:5 a detail is four times as large.
class Details : public Builtin {
protected:
    Details() {
        type({L"escaladesenho", L"20", L"_line", L"-500,10", L"500,10", L"", L"_circle", L"0,0",
              L"20"});
    }
    void draw(std::initializer_list<const wchar_t*> more = {L"5", L"", L"2000,0"}) {
        type({L"detalhe", L"-100,-50", L"100,50"});
        type(more);
    }
    std::vector<Detail> details() const { return prancheta::detailsOf(editor->database()); }
    std::vector<AcDbObjectId> content(const Detail& detail) const {
        const Read<AcDbBlockTableRecord> block(detail.block);
        std::vector<AcDbObjectId> ids = prancheta::ObjectAccess::entities(*block.object());
        std::erase_if(ids, [](AcDbObjectId id) { return id.isErased(); });
        return ids;
    }
    template <class T>
    std::vector<AcDbObjectId> content(const Detail& detail) const {
        std::vector<AcDbObjectId> ids = content(detail);
        std::erase_if(ids, [](AcDbObjectId id) { return id.objectClass() != T::desc(); });
        return ids;
    }
    bool erased(const Detail& detail) const {
        return detail.head.isErased() && detail.outline.isErased() && detail.mark.isErased();
    }
};

TEST_F(Details, ShowTheRegionAtTheirScaleAndFollowIt) {
    draw();
    ASSERT_EQ(details().size(), 1u);
    const Detail first = details()[0];
    EXPECT_EQ(first.letter, L"A");
    // The line ends at the border: 100 to each side, 10 above the middle, by four.
    ASSERT_EQ(content<AcDbLine>(first).size(), 1u);
    expectLine(content<AcDbLine>(first)[0], -400, 40, 400, 40);
    ASSERT_EQ(content<AcDbCircle>(first).size(), 1u);
    EXPECT_DOUBLE_EQ(Read<AcDbCircle>(content<AcDbCircle>(first)[0])->radius(), 80.0);
    ASSERT_EQ(content<AcDbText>(first).size(), 1u);
    {
        const Read<AcDbText> label(content<AcDbText>(first)[0]);
        EXPECT_STREQ(label->textStringConst(), L"DETALHE A - ESC. 1:5");
        EXPECT_DOUBLE_EQ(label->height(), 3.5 * 20.0);
    }

    const AcGePoint3d letter = Read<AcDbText>(first.mark)->position();
    type({L"_move", L"_all", L"", L"0,0", L"1000,0"});  // region and letter together
    EXPECT_NEAR(Read<AcDbText>(first.mark)->position().distanceTo(letter), 1000.0, 1e-9);
    type({L"_u"});
    EXPECT_EQ(Read<AcDbText>(first.mark)->position().distanceTo(letter), 0.0);

    type({L"_move", L"_last", L"", L"0,0", L"1,0"});  // the detail itself: nothing in it changes
    expectLine(content<AcDbLine>(details()[0])[0], -400, 40, 400, 40);
    type({L"_move", L"-500,10", L"", L"0,0", L"0,10"});
    expectLine(content<AcDbLine>(details()[0])[0], -400, 80, 400, 80);
    type({L"u"});
    expectLine(content<AcDbLine>(details()[0])[0], -400, 40, 400, 40);
    // Far away: the copy is not made anew.
    const AcDbObjectId kept = content<AcDbLine>(details()[0])[0];
    type({L"_line", L"0,900", L"10,900", L""});
    EXPECT_FALSE(kept.isErased());
    // Another scale of the drawing, 1:10: twice as large, the label half.
    type({L"escaladesenho", L"10", L"_n"});
    expectLine(content<AcDbLine>(details()[0])[0], -200, 20, 200, 20);
    EXPECT_DOUBLE_EQ(Read<AcDbText>(content<AcDbText>(details()[0])[0])->height(), 35.0);
}

TEST_F(Details, HatchesAreThoseOfTheEndOfTheStep) {
    type({L"hpscale", L"1", L"retang", L"-40,-30", L"0,30", L"_hatch", L"-35,-5", L""});
    draw();
    type({L"_move"});
    pick(-40, 20);
    type({L"", L"0,0", L"30,0"});
    AcDbExtents hatch;
    for (const AcDbObjectId id : content<AcDbLine>(details()[0])) {
        AcDbExtents line;
        (void)Read<AcDbLine>(id)->getGeomExtents(line);
        // The long one is the drawing's own.
        if (line.maxPoint().x - line.minPoint().x < 400.0) hatch.addExt(line);
    }
    ASSERT_FALSE(hatch.isEmpty());
    EXPECT_GT(hatch.minPoint().x, -10.0 * 4.0 - 1e-6);
    EXPECT_LT(hatch.maxPoint().x, 30.0 * 4.0 + 1e-6);
}

TEST_F(Details, AsLargeAsTheirInsertionIsScaled) {
    draw();
    const auto expect = [&](double half, double y, const wchar_t* scale) {
        expectLine(content<AcDbLine>(details()[0])[0], -half, y, half, y);
        const Read<AcDbText> label(content<AcDbText>(details()[0])[0]);
        EXPECT_EQ(label->textStringConst(), L"DETALHE A - ESC. " + std::wstring(scale));
        EXPECT_DOUBLE_EQ(label->height(), 70.0);
        const Read<AcDbBlockReference> head(details()[0].head);
        EXPECT_DOUBLE_EQ(head->scaleFactors().x, 1.0);
        expectPoint(head->position(), 2000, 0);
    };
    const std::initializer_list<const wchar_t*> twice = {L"_scale", L"2000,200", L"", L"2000,0",
                                                         L"2"};
    type(twice);
    expect(800, 80, L"1:2.5");
    type({L"_u"});
    expect(400, 40, L"1:5");
    // With its region it keeps its scale.
    type({L"_scale", L"2000,200", L"-100,-50", L"-500,10", L"", L"2000,0", L"2"});
    EXPECT_DOUBLE_EQ(details()[0].scale, 5.0);
    type({L"_u", L"_copy", L"2000,200", L"", L"0,0", L"0,2000", L""});
    type(twice);
    expect(400, 40, L"1:5");
    EXPECT_TRUE(said(L"O detalhe A fica na escala 1:5: há cópias dele."));
}

TEST_F(Details, MeasureTheModel) {
    type({L"_dimlinear", L"-20,0", L"20,0", L"0,-30"});
    draw();
    const std::vector<AcDbObjectId> copies = content<AcDbRotatedDimension>(details()[0]);
    ASSERT_EQ(copies.size(), 1u);
    const Read<AcDbRotatedDimension> copy(copies[0]);
    EXPECT_DOUBLE_EQ(copy->measurement(), 160.0);
    EXPECT_EQ(copy->shownText(), L"40");
    EXPECT_DOUBLE_EQ(copy->dimscale(), 20.0);
    // Drawn on the copy, and across its border.
    type({L"_dimlinear", L"1600,40", L"2400,40", L"2000,100"});
    EXPECT_EQ(Read<AcDbRotatedDimension>(last())->shownText(), L"200");
    type({L"_dimlinear", L"1500,40", L"2400,40", L"2000,100"});
    EXPECT_EQ(Read<AcDbRotatedDimension>(last())->shownText(), L"900");
}

TEST_F(Details, GoWithTheirMarkAndComeBack) {
    draw();
    const Detail first = details()[0];
    type({L"_erase", L"2000,200", L""});
    EXPECT_TRUE(erased(first));
    EXPECT_TRUE(first.block.isErased());
    EXPECT_TRUE(details().empty());
    EXPECT_EQ(prancheta::freeLetter(editor->database()), L"A");
    type({L"oops"});
    EXPECT_FALSE(first.head.isErased() || first.outline.isErased() || first.mark.isErased() ||
                 first.block.isErased());
    expectLine(content<AcDbLine>(first)[0], -400, 40, 400, 40);
    type({L"_copy", L"2000,200", L"", L"0,0", L"0,2000", L"", L"_erase", L"2000,200", L""});
    EXPECT_TRUE(first.head.isErased());
    EXPECT_FALSE(first.outline.isErased()) << "the other insertion shows it still";
    type({L"u", L"u"});
    // Without its outline it stays as it is.
    type({L"_erase", L"-100,-50", L"", L"_move", L"-500,10", L"", L"0,0", L"0,10"});
    EXPECT_TRUE(said(L"A marca do detalhe A foi apagada"));
    expectLine(content<AcDbLine>(details()[0])[0], -400, 40, 400, 40);
    type({L"u", L"u", L"_explode", L"2000,200", L""});
    EXPECT_TRUE(first.head.isErased());
    EXPECT_FALSE(first.outline.isErased());
    EXPECT_EQ(prancheta::freeLetter(editor->database()), L"B");
    type({L"u", L"_break", L"-100,-50", L"_f", L"0,-50", L"50,-50"});
    EXPECT_TRUE(said(L"A marca do detalhe A está aberta"));
}

TEST_F(Details, AreNoMirrorImages) {
    draw();
    const Detail first = details()[0];
    type({L"_mirror", L"2000,200", L"", L"3000,0", L"3000,100", L"_n"});
    type({L"_mirror", L"2000,200", L"", L"2500,0", L"2500,100", L"_y"});
    int shown = 0;
    for (const double x : {3000.0, 4000.0})
        for (const AcDbObjectId id : editor->database().core().modelSpace()) {
            if (id.isErased() || id.objectClass() != AcDbBlockReference::desc()) continue;
            const Read<AcDbBlockReference> insertion(id);
            if (insertion->position().x != x) continue;
            EXPECT_GT(insertion->blockTransform().det(), 0.0);
            ++shown;
        }
    EXPECT_EQ(shown, 2);
    expectLine(content<AcDbLine>(details()[0])[0], -400, 40, 400, 40);
}

/// A leader whose note lies outside, and a note whose leader does.
TEST_F(Details, TakeLeadersAndNotesTogether) {
    type({L"-diretriz", L"-50,30", L"50,30", L"_a", L"LONGA DEMAIS", L""});
    type({L"-diretriz", L"-150,-30", L"-90,-30", L"_a", L"I", L""});
    draw();
    EXPECT_EQ(content<AcDbLine>(details()[0]).size(), 1u);
    EXPECT_EQ(content<AcDbText>(details()[0]).size(), 1u);  // its label
}

TEST_F(Details, RefuseWhatCannotBe) {
    type({L"detalhe", L"1000,1000", L"1100,1100"});
    EXPECT_TRUE(said(L"Nada na região."));
    type({L"-100,-50", L"-100,50"});
    EXPECT_TRUE(said(L"A região precisa de largura e altura."));
    type({L"-100,-50", L"100,50", L"0"});
    EXPECT_TRUE(said(L"Requer uma escala"));
    type({L"1:5", L"", L"2000,0"});
    draw({L"5", L"a"});
    EXPECT_TRUE(said(L"Já há o detalhe A."));
    type({L"", L"4000,0"});
    EXPECT_EQ(details().back().letter, L"B");
    // A detail is not seen in another one.
    type({L"detalhe", L"1500,-300", L"2500,300"});
    EXPECT_EQ(ui.complaints.back(), L"Nada na região.");
    type({L"^C"});
    EXPECT_EQ(details().size(), 2u);
}

TEST_F(Details, AreWindowsOnSheets) {
    type({L"_layout", L"_set", L"Layout1", L"_mview", L"0,0",     L"200,100", L"_mview",
          L"_scale",  L"20",   L"_last",   L"",       L"_mspace", L"_zoom",   L"_c",
          L"0,0",     L"2000", L"_zoom",   L"0.05xp", L"detalhe", L"_circle", L"0,0",
          L"50",      L"1:2",  L"",        L"250,50"});
    ASSERT_EQ(details().size(), 1u);
    const Detail first = details()[0];
    const AcDbViewport* const window = prancheta::viewportOf(first.head);
    ASSERT_NE(window, nullptr);
    EXPECT_NEAR(window->customScale(), 0.5, 1e-12);
    EXPECT_NEAR(window->width(), 50.0, 1e-9);  // 100 of the model at 1:2
    expectPoint(window->centerPoint(), 250, 50);
    EXPECT_EQ(window->nonRectClipEntityId(), first.border);
    EXPECT_DOUBLE_EQ(Read<AcDbCircle>(first.border)->radius(), 25.0);
    const auto label = [&] { return std::wstring(Read<AcDbText>(first.label)->textStringConst()); };
    EXPECT_EQ(label(), L"DETALHE A - ESC. 1:2");
    type({L"_mview", L"_scale", L"1:4", L"225,30", L""});
    EXPECT_EQ(label(), L"DETALHE A - ESC. 1:4");
    EXPECT_NEAR(window->width(), 25.0, 1e-9);
    EXPECT_DOUBLE_EQ(Read<AcDbCircle>(first.border)->radius(), 12.5);
    EXPECT_TRUE(window->isLayerFrozenInViewport(Read<AcDbText>(first.mark)->layerId()));
    type({L"_copy", L"237.5,40", L"", L"0,0", L"0,60", L""});
    {
        const Read<AcDbBlockTableRecord> sheet(editor->spaces().tab());
        const AcDbObjectId copy = prancheta::ObjectAccess::entities(*sheet.object()).back();
        EXPECT_EQ(Read<AcDbText>(copy)->textStringConst(), label());
    }
    type({L"_erase", L"237.5,40", L""});
    EXPECT_TRUE(first.label.isErased() && first.outline.isErased() && first.border.isErased());
}

}  // namespace
