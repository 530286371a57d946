// SPDX-License-Identifier: MIT
// MTEXT, DDEDIT, FIND, STYLE, LEADER, SOLDA, REVCLOUD, and the height offered for texts.
#include <cmath>

#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "prancheta/entities/weld_symbol.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

using prancheta::WeldSymbol;

class Texts : public Builtin {
protected:
    std::wstring contents(AcDbObjectId id) const {
        const Read<AcDbMText> text(id);
        return text.object() != nullptr ? text->contentsConst() : L"";
    }
};

TEST_F(Texts, ParagraphsStandInTheirFrame) {
    type({L"mt", L"10,50", L"_h", L"3", L"50,20", L"Chapa 1", L"%%c 50", L""});
    ASSERT_EQ(count(), 1u);
    EXPECT_TRUE(asked(L"\nPrimeiro canto: "));
    EXPECT_TRUE(
        asked(L"\nCanto oposto ou [Altura/Justificar/espaçamento de "
              L"Linha/Rotação/Estilo/larGura]: "));
    EXPECT_EQ(contents(last()), L"Chapa 1\\P%%c 50");
    {
        const Read<AcDbMText> text(last());
        expectPoint(text->location(), 10, 50);
        EXPECT_EQ(text->width(), 40);
        EXPECT_EQ(text->textHeight(), 3);
        EXPECT_EQ(text->attachment(), AcDbMText::kTopLeft);
    }
    // The middle of the frame, corners in any order; the height is offered again.
    type({L"textom", L"50,20", L"j", L"mc", L"l", L"9", L"1.5", L"10,50", L"A", L""});
    {
        const Read<AcDbMText> text(last());
        expectPoint(text->location(), 30, 35);
        EXPECT_EQ(text->textHeight(), 3);
        EXPECT_EQ(text->lineSpacingFactor(), 1.5);
        EXPECT_EQ(ui.complaints.size(), 1u);
    }
    // Turned by 90 degrees its width runs upwards; a width ends the frame; nothing typed, nothing
    // drawn.
    type({L"_mtext", L"0,0", L"r", L"90", L"30,-40", L"B", L""});
    EXPECT_EQ(Read<AcDbMText>(last())->width(), 40);
    expectPoint(Read<AcDbMText>(last())->location(), 0, -40);
    type({L"_mtext", L"0,0", L"g", L"25", L"C", L""});
    EXPECT_EQ(Read<AcDbMText>(last())->width(), 25);
    type({L"_mtext", L"0,0", L"9,9", L""});
    EXPECT_EQ(count(), 4u);
    EXPECT_TRUE(said(L"Sem texto: nada foi desenhado."));
    // Who edits in place answers with all lines at once.
    type({L"_mtext", L"0,0", L"9,9", L"um\n\ndois\n"});
    EXPECT_EQ(contents(last()), L"um\\P\\Pdois");
}

TEST_F(Texts, HeightFollowsTheScaleUntilItIsSet) {
    type({L"_dimscale", L"20", L"_text", L"0,0", L"", L"", L"A", L""});
    EXPECT_EQ(Read<AcDbText>(last())->height(), 50);
    type({L"_textsize", L"7", L"_dimscale", L"10", L"_text", L"0,0", L"", L"", L"A", L""});
    EXPECT_EQ(Read<AcDbText>(last())->height(), 7);
    // Enter instead of a point goes on below the last one.
    type({L"_text", L"", L"B", L""});
    expectPoint(Read<AcDbText>(last())->position(), 0, -7 * 5.0 / 3);
}

TEST_F(Texts, WordsAreEditedAndReplaced) {
    type({L"_text", L"0,0", L"5", L"0", L"Viga V1", L""});
    const AcDbObjectId line = last();
    type({L"_mtext", L"0,50", L"90,0", L"{\\C1;Vi}ga \\H2x;V1", L"", L"_dimaligned", L"0,0",
          L"100,0", L"_t", L"V1 <>", L"0,30"});
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 3u);
    type({L"_find", L"v1", L"V22"});
    EXPECT_TRUE(said(L"3 ocorrências substituídas em 3 objetos."));
    EXPECT_STREQ(Read<AcDbText>(line)->textStringConst(), L"Viga V22");
    EXPECT_EQ(contents(all[1]), L"{\\C1;Vi}ga \\H2x;V22");
    EXPECT_STREQ(Read<AcDbAlignedDimension>(all[2])->dimensionTextConst(), L"V22 <>");
    type({L"_u"});
    EXPECT_STREQ(Read<AcDbText>(line)->textStringConst(), L"Viga V1");
    // Across a change of format the codes stay; codes are no letters.
    type({L"_find", L"viga", L"C{1}", L"_find", L"H2", L"x", L"_find", L"C{", L""});
    EXPECT_EQ(contents(all[1]), L"{\\C1;C\\{1\\}} \\H2x;V1");
    EXPECT_TRUE(said(L"\"H2\" não foi encontrado."));
    EXPECT_TRUE(said(L"1 ocorrência em 1 objeto."));
    ASSERT_EQ(editor->selection().ids().size(), 1u) << "what was found is selected";
    editor->selection().clear();

    type({L"ed", L"20,2", L"Terça", L"", L"editatexto", L"500,500", L"_l", L"<>", L""});
    EXPECT_STREQ(Read<AcDbText>(line)->textStringConst(), L"Terça");
    EXPECT_EQ(Read<AcDbAlignedDimension>(all[2])->shownText(), L"100");
    EXPECT_TRUE(said(L"Nenhum texto aí"));
    editor->selection().select({all[1]});
    type({L"_ddedit", L"\\LA", L"B", L""});
    EXPECT_EQ(contents(all[1]), L"\\LA\\PB");
}

TEST_F(Texts, StylesAreMadeAndChanged) {
    type({L"st", L"Titulo", L"arial.ttf", L"-1", L"5", L"0.8", L"15"});
    EXPECT_TRUE(said(L"\"Titulo\" foi criado e é o estilo atual."));
    EXPECT_TRUE(said(L"A altura não é negativa."));
    {
        const Read<AcDbTextStyleTableRecord> style(editor->database().textstyle());
        EXPECT_EQ(style->fileName(), L"arial.ttf");
        EXPECT_EQ(style->textSize(), 5);
        EXPECT_EQ(style->xScale(), 0.8);
        EXPECT_NEAR(style->obliquingAngle() * 12, 3.14159265358979, 1e-9);
    }
    // A style's height is not asked; the letters take its width and slant.
    type({L"_text", L"0,0", L"", L"A", L""});
    EXPECT_EQ(Read<AcDbText>(last())->height(), 5);
    EXPECT_EQ(Read<AcDbText>(last())->widthFactor(), 0.8);
    EXPECT_GT(Read<AcDbText>(last())->oblique(), 0.2);
    type({L"_style", L"?", L"_style", L"a/b", L"", L"", L"0", L"", L"-10"});
    EXPECT_TRUE(said(L"\"Titulo\"  fonte: arial.ttf"));
    EXPECT_TRUE(said(L"não serve"));
    EXPECT_EQ(Read<AcDbTextStyleTableRecord>(editor->database().textstyle())->textSize(), 0);
    EXPECT_LT(Read<AcDbTextStyleTableRecord>(editor->database().textstyle())->obliquingAngle(), 0);
}

TEST_F(Texts, AnotherScaleOfTheDrawing) {
    type({L"_escaladesenho", L"10"});
    EXPECT_FALSE(asked(L"Atualizar"));  // nothing stands
    // Gaps of notes 0.625, hooks 2.5; the lines of ANSI31 stand 3.175 apart.
    type({L"le",      L"0,0",    L"100,100", L"",       L"A",     L"",      L"_dimlinear",
          L"0,0",     L"1000,0", L"0,-500",  L"solda",  L"0,0",   L"50,50", L"filete 6",
          L"_circle", L"0,0",    L"500",     L"_hatch", L"0,450", L""});
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 6u);
    const auto expectScale = [&](double scale) {
        const Read<AcDbMText> note(all[1]);
        expectPoint(note->location(), 100 + 3.125 * scale, 100);
        EXPECT_EQ(note->textHeight(), 2.5 * scale);
        expectPoint(Read<AcDbLeader>(all[0])->lastVertex(), 100, 100);
        EXPECT_EQ(Read<AcDbLeader>(all[0])->ownDimscale(), scale);
        EXPECT_EQ(Read<AcDbDimension>(all[2])->dimscale(), scale);
        EXPECT_EQ(Read<WeldSymbol>(all[3])->scale(), scale);
        const Read<AcDbHatch> hatch(all[5]);
        EXPECT_EQ(hatch->patternScale(), scale);
        EXPECT_NEAR(hatch->families().at(0).offset.length(), 3.175 * scale, 1e-9);
    };
    expectScale(10);
    type({L"escaladesenho", L"1:0", L"um", L"1:20", L""});
    EXPECT_TRUE(asked(L"Escala do desenho 1: <10>: "));
    EXPECT_EQ(ui.complaints.size(), 2u);
    EXPECT_TRUE(said(L"1:20. 4 objetos a acompanham."));
    expectScale(20);
    EXPECT_EQ(editor->database().ltscale(), 8);
    type({L"_u"});
    expectScale(10);
    EXPECT_EQ(editor->database().ltscale(), 4);
    type({L"_-layer", L"_lo", L"0", L"", L"_escaladesenho", L"20", L""});
    EXPECT_TRUE(said(L"1:20. 4 objetos em camadas bloqueadas não a acompanham."));
    type({L"_u", L"_u"});
    // Not updated: only what comes; 2:1 is half a unit for a millimetre.
    type({L"_escaladesenho", L"2:1", L"_No", L"_text", L"0,0", L"", L"", L"B", L""});
    expectScale(10);
    EXPECT_EQ(Read<AcDbText>(last())->height(), 1.25);
}

TEST_F(Texts, LeaderAndItsNoteStayTogether) {
    // At scale 10 letters and arrows are 25, gaps 6.25; a steep end gets a hook of an arrow.
    type({L"_dimscale", L"10", L"le", L"0,0", L"100,100", L"", L"Furo %%c 18", L"passante", L""});
    ASSERT_EQ(count(), 2u);
    const AcDbObjectId leader = entities()[0];
    const AcDbObjectId note = entities()[1];
    EXPECT_EQ(contents(note), L"Furo %%c 18\\Ppassante");
    expectPoint(Read<AcDbMText>(note)->location(), 131.25, 100);
    EXPECT_EQ(Read<AcDbMText>(note)->attachment(), AcDbMText::kMiddleLeft);
    EXPECT_TRUE(Read<AcDbLeader>(leader)->hasHookLine());
    // The note takes the end along, the arrow stays; both together; undo.
    type({L"_move", L"_l", L"", L"0,0", L"10,20"});
    expectPoint(Read<AcDbLeader>(leader)->lastVertex(), 110, 120);
    expectPoint(Read<AcDbLeader>(leader)->vertexAt(0), 0, 0);
    type({L"_move", L"_all", L"", L"0,0", L"1000,0"});
    expectPoint(Read<AcDbLeader>(leader)->vertexAt(0), 1000, 0);
    expectPoint(Read<AcDbLeader>(leader)->lastVertex(), 1110, 120);
    type({L"_u", L"_u"});
    expectPoint(Read<AcDbLeader>(leader)->lastVertex(), 100, 100);
    // Mirrored together the note is read on the other side.
    type({L"_mirror", L"_all", L"", L"0,0", L"0,1", L"_y"});
    expectPoint(Read<AcDbLeader>(leader)->lastVertex(), -100, 100);
    EXPECT_EQ(Read<AcDbMText>(note)->attachment(), AcDbMText::kMiddleRight);
    // A copy of the arrow alone is tied to nothing; copies of both are tied to each other.
    type({L"_copy", L"0,0", L"", L"0,0", L"0,500", L""});
    ASSERT_EQ(count(), 3u);
    expectPoint(Read<AcDbLeader>(last())->lastVertex(), -100, 600);
    type({L"_erase", L"_l", L"", L"_copy", L"_all", L"", L"0,0", L"0,1000", L""});
    ASSERT_EQ(count(), 4u);
    expectPoint(Read<AcDbLeader>(entities()[2])->lastVertex(), -100, 1100);
    type({L"_move", L"_l", L"", L"0,0", L"5,0"});
    expectPoint(Read<AcDbLeader>(entities()[2])->lastVertex(), -95, 1100);
    expectPoint(Read<AcDbLeader>(leader)->lastVertex(), -100, 100);
    // Points taken back and a curve; without a text it is an arrow alone.
    type({L"_leader", L"0,0", L"50,0", L"90,90", L"_u", L"60,30", L"_s", L"_a", L""});
    const Read<AcDbLeader> curve(last());
    ASSERT_NE(curve.object(), nullptr);
    EXPECT_EQ(curve->numVertices(), 3);
    EXPECT_TRUE(curve->isSplined());
    EXPECT_EQ(curve->annoType(), AcDbLeader::kNoAnno);
}

TEST_F(Texts, WeldsAreOneObjectOfWhatTheLineSays) {
    struct Case {
        const wchar_t* line;
        std::initializer_list<const wchar_t*> letters;
        std::size_t texts;
    };
    const Case cases[] = {
        {L"filete 6 ambos campo", {L"6"}, 2},
        {L"filete 6 60-150", {L"6", L"60-150"}, 2},
        {L"topo v 45", {L"45%%d"}, 1},
        {L"Topo Bisel 30 prof 8 outro contorno cauda E70XX - AWS",
         {L"8", L"30%%d", L"E70XX - AWS"},
         3},
        {L"topo i", {}, 0},
        {L"topo u", {}, 0},
        {L"topo j", {}, 0},
    };
    std::size_t made = 0;
    for (const Case& each : cases) {
        type({L"solda", L"0,0", L"30,30", each.line});
        ASSERT_EQ(count(), ++made) << prancheta::toUtf8(each.line);
        const Read<WeldSymbol> weld(last());
        ASSERT_NE(weld.object(), nullptr);
        AcDbVoidPtrArray pieces;
        ASSERT_EQ(weld->explode(pieces), Acad::eOk);
        std::vector<std::wstring> letters;
        for (void* piece : pieces) {
            if (auto* text = AcDbText::cast(static_cast<AcDbEntity*>(piece)))
                letters.emplace_back(text->textStringConst());
            delete static_cast<AcDbEntity*>(piece);
        }
        EXPECT_EQ(letters.size(), each.texts);
        for (const wchar_t* wanted : each.letters)
            EXPECT_NE(std::find(letters.begin(), letters.end(), wanted), letters.end())
                << prancheta::toUtf8(wanted);
    }
    type({L"solda", L"0,0", L"30,30", L"filete 6 xyz", L"_line", L"", L"ed", L"0,0",
          L"filete 8 campo", L""});
    EXPECT_TRUE(said(L"\"xyz\" não é entendido. A solda entende: filete ou topo"));
    EXPECT_EQ(count(), made);
    EXPECT_EQ(Read<WeldSymbol>(last())->description(), L"filete 8 campo");
}

TEST_F(Texts, CloudsBulgeOutwards) {
    // A square of 40 in arcs of 10, either way round, closed by Enter or at its first point: 16
    // arcs; each rises a quarter of its chord.
    for (const bool backwards : {false, true}) {
        type({L"_revcloud", L"_a", L"10", L"0,0", backwards ? L"0,40" : L"40,0", L"40,40",
              backwards ? L"40,0" : L"0,40", backwards ? L"0,0" : L""});
        const Read<AcDbPolyline> cloud(last());
        ASSERT_NE(cloud.object(), nullptr);
        EXPECT_EQ(cloud->numVerts(), 16u);
        EXPECT_TRUE(cloud->isClosed());
        AcDbExtents box;
        ASSERT_EQ(cloud->getGeomExtents(box), Acad::eOk);
        expectPoint(box.minPoint(), -2.5, -2.5);
        expectPoint(box.maxPoint(), 42.5, 42.5);
    }
    // In the place of a circle of radius 50: 314 in arcs of 10.
    type({L"_circle", L"500,0", L"50", L"nuvemrev", L"", L"900,900", L"550,0"});
    EXPECT_EQ(Read<AcDbPolyline>(last())->numVerts(), 31u);
    EXPECT_EQ(count(), 3u);
    EXPECT_TRUE(said(L"Nenhum contorno fechado aí"));
}

}  // namespace
}  // namespace builtin
