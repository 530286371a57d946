// SPDX-License-Identifier: MIT
// MOVE, COPY, ARRAY, ALIGN, DIVIDE, MEASURE, MATCHPROP, SCALE, STRETCH, MIRROR, ERASE, OOPS,
// EXPLODE.
#include <sstream>

#include "dbmtext.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/picture.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

class Modify : public Builtin {
protected:
    Modify() { type({L"_line", L"10,0", L"20,0", L""}); }
};

TEST_F(Modify, MoveByTwoPointsAndByDisplacement) {
    type({L"mover", L"_l", L"", L"0,0", L"3,4"});
    expectLine(last(), 13, 4, 23, 4);
    // Enter at the second point: the first one is the displacement.
    type({L"_move", L"_l", L"", L"7,-4", L""});
    expectLine(last(), 20, 0, 30, 0);
    type({L"_move", L"_l", L"", L"_d", L"0,5"});
    expectLine(last(), 20, 5, 30, 5);
    // Enter at the base asks for a displacement too, and Enter there takes the last one.
    type({L"_move", L"_l", L"", L"", L""});
    EXPECT_TRUE(asked(L"Especifique o deslocamento <0.0000, 5.0000, 0.0000>:"));
    expectLine(last(), 20, 10, 30, 10);
    EXPECT_EQ(count(), 1u);
}

TEST_F(Modify, WhatCannotBeTransformedIsTold) {
    type({L"_line", L"0,0", L"1,0", L""});
    {
        // Open elsewhere, an object cannot be changed; the others move all the same.
        const Read<AcDbLine> held(entities()[0]);
        type({L"_move", L"_all", L"", L"0,0", L"0,7"});
    }
    EXPECT_TRUE(said(L"1 objeto não pôde ser transformado."));
    expectLine(entities()[0], 10, 0, 20, 0);
    expectLine(entities()[1], 0, 7, 1, 7);
}

TEST_F(Modify, WhatCannotBeTransformedIsNotCopied) {
    auto solid = std::make_unique<prancheta::ForeignEntity>();
    ASSERT_EQ(solid->setContent("3DSOLID", {{100, "AcDbModelerGeometry"}}), Acad::eOk);
    AcDbObjectId id;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                            AcDb::kForWrite);
        ASSERT_EQ(space->appendAcDbEntity(id, solid.get()), Acad::eOk);
        (void)solid.release()->close();
    }
    const std::initializer_list<const wchar_t*> commands[] = {
        {L"_copy", L"_all", L"", L"0,0", L"0,5", L"0,10", L"_a", L"3", L"9,9", L""},
        {L"_copy", L"_all", L"", L"0,0", L"_a", L"5", L"0,10", L""},
        {L"_mirror", L"_all", L"", L"0,0", L"0,5", L"_n"},
        {L"_rotate", L"_all", L"", L"0,0", L"_c", L"30"},
        {L"_scale", L"_all", L"", L"0,0", L"_c", L"3"},
        {L"_array", L"_all", L"", L"_r", L"2", L"3", L"9", L"30"},
    };
    const std::size_t copies[] = {4, 4, 1, 1, 1, 5};
    for (std::size_t i = 0; i < std::size(commands); ++i) {
        ui.output.clear();
        type(commands[i]);
        EXPECT_EQ(count(), 2 + copies[i]) << i;
        EXPECT_EQ(entities()[1], id) << i;
        const std::wstring line = L"1 objeto não pôde ser transformado e não foi copiado.\n";
        ASSERT_TRUE(said(line)) << i;
        EXPECT_EQ(ui.output.find(line), ui.output.rfind(line)) << "told once: " << i;
        type({L"_u"});
        EXPECT_EQ(count(), 2u) << i;
    }
}

TEST_F(Modify, CopyAgainAndAgain) {
    type({L"copiar", L"_l", L"", L"0,0", L"0,10", L"0,20", L"_u", L"0,30", L""});
    EXPECT_TRUE(said(L"Configurações atuais: Modo de cópia = Múltiplo\n"));
    ASSERT_EQ(count(), 3u);
    expectLine(entities()[0], 10, 0, 20, 0);
    expectLine(entities()[1], 10, 10, 20, 10);
    expectLine(entities()[2], 10, 30, 20, 30);
    EXPECT_TRUE(said(L"Modo de cópia = Múltiplo"));
    type({L"_u"});
    EXPECT_EQ(count(), 1u);
    // Esc after the first copy ends the row; what was copied stays.
    type({L"_copy", L"_l", L"", L"0,0", L"0,1", L"^C"});
    EXPECT_EQ(count(), 2u);
}

TEST_F(Modify, CopyInARow) {
    // Three items, 5 apart; then four items between 0 and 30 upwards, that is 10 apart.
    type({L"_copy", L"_l", L"", L"0,0", L"_a", L"3", L"5,0", L""});
    ASSERT_EQ(count(), 3u);
    expectLine(entities()[2], 20, 0, 30, 0);
    type({L"_copy", L"_l", L"", L"0,0", L"_a", L"4", L"_f", L"0,30", L""});
    ASSERT_EQ(count(), 6u);
    expectLine(entities()[3], 20, 10, 30, 10);
    expectLine(entities()[5], 20, 30, 30, 30);
    // 36 objects 32767 times over are refused; the command goes on.
    type({L"_copy", L"all", L"", L"0,0", L"_a", L"6", L"0,100", L""});
    ASSERT_EQ(count(), 36u);
    type({L"_copy", L"all", L"", L"0,0", L"_a", L"32767"});
    ASSERT_EQ(ui.complaints.size(), 1u);
    EXPECT_TRUE(editor->runner().active());
    type({L"1,0", L""});
    EXPECT_EQ(count(), 72u);
}

TEST_F(Modify, CopyOnceAndByDisplacement) {
    type({L"_copy", L"_l", L"", L"_o", L"_s", L"0,0", L"0,10"});
    EXPECT_FALSE(editor->runner().active());
    EXPECT_EQ(count(), 2u);
    type({L"_copy", L"_l", L"", L"_d", L"1,1"});
    ASSERT_EQ(count(), 3u);
    expectLine(last(), 11, 11, 21, 11);
}

TEST_F(Modify, CopyKeepsLayerAndColour) {
    type({L"_-layer", L"_m", L"Eixos", L""});
    type({L"_line", L"0,0", L"5,0", L"", L"_-layer", L"_s", L"0", L""});
    type({L"_copy", L"_l", L"", L"0,0", L"0,5", L""});
    EXPECT_EQ(layerOf(last()), L"Eixos");
}

/// Shape and place of everything, in drawing order.
std::string shapes(const std::vector<AcDbObjectId>& ids) {
    std::ostringstream text;
    text.precision(5);
    const auto put = [&](std::initializer_list<double> numbers) {
        for (const double n : numbers) text << (std::abs(n) < 1e-9 ? 0.0 : n) << ' ';
    };
    for (const AcDbObjectId& id : ids) {
        const Read<AcDbEntity> entity(id);
        if (const auto* line = AcDbLine::cast(entity.object())) {
            const AcGePoint3d a = line->startPoint(), b = line->endPoint();
            put({a.x, a.y, b.x, b.y});
        } else if (const auto* arc = AcDbArc::cast(entity.object())) {
            put({arc->center().x, arc->center().y, arc->radius()});
        } else if (const auto* circle = AcDbCircle::cast(entity.object())) {
            put({circle->center().x, circle->center().y, circle->radius()});
        } else if (const auto* line = AcDbText::cast(entity.object())) {
            put({line->position().x, line->position().y});
        } else if (const auto* cota = AcDbAlignedDimension::cast(entity.object())) {
            put({cota->measurement(), cota->dimLinePoint().y});
            text << (cota->isUsingDefaultTextPosition() ? "" : "moved ");
        } else if (const auto* polyline = AcDbPolyline::cast(entity.object())) {
            AcGePoint3d p;
            double bulge = 0;
            for (unsigned i = 0; i < polyline->numVerts(); ++i) {
                EXPECT_EQ(polyline->getPointAt(i, p), Acad::eOk);
                EXPECT_EQ(polyline->getBulgeAt(i, bulge), Acad::eOk);
                put({p.x, p.y, bulge});
            }
        }
        text << "| ";
    }
    return text.str();
}

TEST_F(Modify, ArrayInRowsAndAboutACentre) {
    struct Case {
        std::initializer_list<const wchar_t*> answers;
        const char* copies;
    };
    // Of the line from 10,0 to 20,0.
    const Case cases[] = {
        {{L"", L"2", L"3", L"-5", L"30"},
         "40 0 50 0 | 70 0 80 0 | 10 -5 20 -5 | 40 -5 50 -5 | 70 -5 80 -5 | "},
        // Where there is one row nobody asks how far apart.
        {{L"_r", L"", L"2", L"100"}, "110 0 120 0 | "},
        {{L"r", L"3", L"1", L"7"}, "10 7 20 7 | 10 14 20 14 | "},
        {{L"r", L"1", L""}, ""},
        {{L"_polar", L"0,0", L"4", L"", L""}, "0 10 0 20 | -10 0 -20 0 | 0 -10 0 -20 | "},
        {{L"p", L"0,0", L"3", L"180", L"s"}, "0 10 0 20 | -10 0 -20 0 | "},
        // The middle, 15 from the centre, goes down a quarter of a turn; the line stays level.
        {{L"p", L"0,0", L"2", L"-90", L"n"}, "-5 -15 5 -15 | "},
        // More than a turn, and fewer than two, are asked again.
        {{L"p", L"0,0", L"1", L"2", L"400", L"180", L""}, "-10 0 -20 0 | "},
        {{L"r", L"20000", L"20000"}, ""},
    };
    const std::string original = shapes(entities());
    for (const Case& each : cases) {
        type({L"matriz", L"_l", L""});
        type(each.answers);
        EXPECT_FALSE(editor->runner().active()) << each.copies;
        EXPECT_EQ(shapes(entities()), original + each.copies);
        if (*each.copies != '\0') type({L"_u"});
        EXPECT_EQ(shapes(entities()), original);
    }
    EXPECT_TRUE(said(L"nada foi copiado."));
    EXPECT_TRUE(said(L"A matriz faria mais de 1.000.000 de cópias."));
    EXPECT_EQ(ui.complaints.size(), 3u);
    // Rows and columns run along the axes of the user's system: here turned by a quarter.
    editor->setUcs(AcGeMatrix3d::rotation(prancheta::kPi / 2, AcGeVector3d::kZAxis, {}));
    type({L"_array", L"_l", L"", L"", L"1", L"2", L"100"});
    expectLine(last(), 10, 100, 20, 100);
}

TEST_F(Modify, ArrayAlongAPath) {
    struct Case {
        std::initializer_list<const wchar_t*> path;
        std::initializer_list<const wchar_t*> answers;
        const char* copies;
    };
    // Of the line from 10,0 to 20,0, by the path drawn first.
    const Case cases[] = {
        {{L"_line", L"0,9", L"300,9", L""},
         {L"_d", L"4"},
         "110 0 120 0 | 210 0 220 0 | 310 0 320 0 | "},
        // From the end that is nearer to the objects; the last whole step ends at 240.
        {{L"_line", L"300,9", L"0,9", L""}, {L"m", L"120"}, "130 0 140 0 | 250 0 260 0 | "},
        {{L"_line", L"0,9", L"300,9", L""}, {L"m", L"301", L"300"}, "310 0 320 0 | "},
        // About the centre of a circle they turn with it: a closed path has no copy at its end.
        {{L"_circle", L"0,0", L"50"}, {L"", L"4"}, "0 10 0 20 | -10 0 -20 0 | 0 -10 0 -20 | "},
        {{L"_arc", L"5,0", L"5<45", L"0,5"}, {L"d", L"2"}, "0 10 0 20 | "},
        // Along 10 to the right and half a circle upwards, to 10,20: from there it runs backwards.
        {{L"_pline", L"0,0", L"10,0", L"_a", L"10,20", L""}, {L"d", L"2"}, "0 20 -10 20 | "},
    };
    for (const Case& each : cases) {
        type({L"_erase", L"_all", L""});
        type(each.path);
        type({L"_line", L"10,0", L"20,0", L""});
        const std::string before = shapes(entities());
        type({L"_array", L"_l", L"", L"c"});
        pick(20, 0, {last()});
        type({L"^C", L"_array", L"_l", L"", L"_path"});
        pick(0, 0, {entities()[0]});
        type(each.answers);
        EXPECT_FALSE(editor->runner().active());
        EXPECT_EQ(shapes(entities()), before + each.copies);
    }
    type({L"_point", L"0,0", L"_array", L"_l", L"", L"c"});
    pick(0, 0, {last()});
    EXPECT_TRUE(said(L"Nenhum caminho aí"));
}

TEST_F(Modify, StretchByTheLastCrossingFrame) {
    // How the line from 10,0 to 20,0 is selected, and how it stands after a displacement of 5,3.
    struct Case {
        std::initializer_list<const wchar_t*> selecting;
        const char* after;
    };
    const Case cases[] = {
        {{L"_c", L"15,-5", L"25,5"}, "10 0 25 3 | "},
        {{L"25,5", L"15,-5"}, "10 0 25 3 | "},
        {{L"_cp", L"18,-5", L"25,0", L"18,5", L""}, "10 0 25 3 | "},
        // A vertex on the frame is inside.
        {{L"_c", L"5,-5", L"10,5"}, "15 3 20 0 | "},
        {{L"_c", L"5,-5", L"25,5"}, "15 3 25 3 | "},
        {{L"_c", L"5,-5", L"12,5", L"_c", L"18,-5", L"25,5"}, "10 0 25 3 | "},
        {{L"_c", L"5,-5", L"12,5", L"_c", L"18,-5", L"25,5", L"_u"}, "15 3 20 0 | "},
        // A frame that finds nothing does not count.
        {{L"_c", L"5,-5", L"12,5", L"_c", L"118,-5", L"125,5"}, "15 3 20 0 | "},
        // Picked otherwise, all moves.
        {{L"_w", L"5,-5", L"25,5"}, "15 3 25 3 | "},
        {{L"_l", L"_c", L"18,-5", L"25,5"}, "15 3 25 3 | "},
        {{L"_c", L"18,-5", L"25,5", L"_r", L"_l", L"_a", L"_l"}, "15 3 25 3 | "},
    };
    const std::string before = shapes(entities());
    for (const Case& each : cases) {
        type({L"esticar"});
        type(each.selecting);
        type({L"", L"100,100", L"@5,3"});
        EXPECT_EQ(shapes(entities()), each.after);
        type({L"_u"});
        EXPECT_EQ(shapes(entities()), before) << "one step of undo";
    }
    EXPECT_TRUE(asked(L"Selecione objetos por uma janela de cruzamento:"));
    type({L"_stretch", L"_c", L"14,-1", L"16,1", L""});
    EXPECT_FALSE(editor->runner().active());
    EXPECT_TRUE(said(L"Nenhum vértice está dentro da janela"));
    type({L"_stretch", L"_c", L"15,-5", L"25,5", L"", L"_d", L"1,1"});
    expectLine(last(), 10, 0, 21, 1);
    type({L"_-layer", L"_lo", L"0", L"", L"_stretch", L"_c", L"15,-5", L"25,5", L""});
    EXPECT_TRUE(said(L"camada bloqueada"));
    expectLine(last(), 10, 0, 21, 1);
}

TEST_F(Modify, WhatStretchDoesToEachKind) {
    // Drawn first; then what is in the frame from 50,-100 to 200,100 moves by 30,0.
    struct Case {
        std::initializer_list<const wchar_t*> drawing;
        const char* after;
    };
    const Case cases[] = {
        {{L"_pline", L"0,0", L"100,0", L"_a", L"100,20", L"_l", L"0,20", L"_c"},
         "0 0 0 130 0 1 130 20 0 0 20 0 | "},
        // Half a circle of radius 60 about 40,0 is 60 high; its chord grows from 120 to 150, so
        // that the radius is (75^2 + 60^2) / (2 x 60) and the centre that much below the top.
        {{L"_arc", L"100,0", L"40,60", L"-20,0"}, "55 -16.875 76.875 | "},
        {{L"_circle", L"100,0", L"60"}, "130 0 60 | "},
        {{L"_circle", L"40,0", L"60"}, "40 0 60 | "},
        {{L"_text", L"60,0", L"20", L"0", L"abc", L""}, "90 0 | "},
        {{L"_text", L"40,0", L"20", L"0", L"abcdef", L""}, "40 0 | "},
        // Measures anew; the line stays at its height and the text in its middle.
        {{L"_dimaligned", L"0,0", L"100,0", L"0,-20"}, "130 -20 | "},
        {{L"_dimaligned", L"60,0", L"100,0", L"60,-20"}, "40 -20 | "},
    };
    for (const Case& each : cases) {
        type({L"_erase", L"_all", L""});
        type(each.drawing);
        type({L"_line", L"45,90", L"60,90", L"", L"_stretch", L"_c", L"50,-100", L"200,100", L"",
              L"0,0", L"30,0"});
        EXPECT_EQ(shapes(entities()), std::string(each.after) + "45 90 90 90 | ");
    }
}

TEST_F(Modify, StretchShowsWhatItWillDo) {
    type({L"_line", L"100,0", L"200,0", L"", L"_stretch", L"_c", L"15,-5", L"130,5", L"", L"0,0",
          L"?"});  // no point: it is asked again
    ASSERT_TRUE(ui.last.preview && ui.last.moving);
    prancheta::Picture shown;
    ui.last.preview(AcGePoint3d(0, 40, 0), shown);
    const prancheta::Box2d box = prancheta::boxOf(shown.extents());
    // Both lines follow with the end that is in the frame.
    EXPECT_EQ(shown.size(), 2u);
    EXPECT_NEAR(box.top, 40, 1e-9);
    EXPECT_NEAR(box.bottom, 0, 1e-9);
    type({L"^C"});
    expectLine(last(), 100, 0, 200, 0);
}

TEST_F(Modify, Scale) {
    // About (10,10): (10,0) lies 10 below it, (20,0) 10 to the right and below.
    type({L"escala", L"_l", L"", L"10,10", L"2"});
    expectLine(last(), 10, -10, 30, -10);
    // By reference 20 : 5, a quarter.
    type({L"_scale", L"_l", L"", L"10,10", L"_r", L"20", L"5"});
    expectLine(last(), 10, 5, 15, 5);
    // The factor is the distance of the point from the base; the copy alone is scaled.
    type({L"_scale", L"_l", L"", L"10,5", L"_c", L"10,8"});
    ASSERT_EQ(count(), 2u);
    expectLine(entities()[0], 10, 5, 15, 5);
    expectLine(entities()[1], 10, 5, 25, 5);
    // No factor of zero or less.
    type({L"_scale", L"_l", L"", L"0,0", L"0", L"-1", L"1"});
    EXPECT_EQ(ui.complaints.size(), 2u);
    expectLine(last(), 10, 5, 25, 5);
}

TEST_F(Modify, Mirror) {
    // In the line y = x coordinates change places.
    type({L"espelhar", L"_l", L"", L"0,0", L"5,5", L""});
    ASSERT_EQ(count(), 2u);
    expectLine(entities()[0], 10, 0, 20, 0);
    expectLine(entities()[1], 0, 10, 0, 20);
    // In the vertical x = 5, the original given up; a line needs two points that differ.
    const AcDbObjectId mirrored = last();
    type({L"_mirror", L"_l", L"", L"5,0", L"5,0", L"5,9", L"_y"});
    ASSERT_EQ(count(), 2u);
    EXPECT_EQ(last(), mirrored);
    expectLine(last(), 10, 10, 10, 20);
    EXPECT_TRUE(said(L"Os dois pontos da linha de espelhamento coincidem."));
}

TEST_F(Modify, MirroredArcTurnsTheOtherWay) {
    // The quarter of the unit circle between 0 and 90 degrees, seen in the Y axis: between 90 and
    // 180.
    type({L"_arc", L"1,0", L"1<45", L"0,1", L"_mirror", L"_l", L"", L"0,0", L"0,1", L"_y"});
    const Read<AcDbArc> arc(last());
    ASSERT_NE(arc.object(), nullptr);
    AcDbExtents box;
    ASSERT_EQ(arc->getGeomExtents(box), Acad::eOk);
    expectPoint(box.minPoint(), -1, 0);
    expectPoint(box.maxPoint(), 0, 1);
}

TEST_F(Modify, EraseAndOops) {
    type({L"_line", L"0,0", L"1,1", L"", L"apagar", L"_all", L""});
    EXPECT_EQ(count(), 0u);
    type({L"oops"});
    EXPECT_EQ(count(), 2u);
    type({L"oops"});
    EXPECT_TRUE(said(L"Não há objetos apagados para restaurar."));
    // An OOPS that is undone leaves its set to another one.
    type({L"_u"});
    EXPECT_EQ(count(), 0u);
    type({L"oops"});
    EXPECT_EQ(count(), 2u);
    // Undone, an ERASE is no set to bring back: the line that was undone too stays away.
    type({L"_line", L"5,5", L"6,6", L"", L"_erase", L"_l", L"", L"_u", L"_u", L"_oops"});
    EXPECT_EQ(count(), 2u);
    // Whatever is drawn in between.
    type({L"_line", L"5,5", L"6,6", L"", L"_erase", L"_l", L"", L"_undo", L"2", L"_point", L"9,9",
          L"_oops"});
    EXPECT_EQ(count(), 3u);
    EXPECT_EQ(layerOf(last()), L"0");
    expectPoint(Read<AcDbPoint>(last())->position(), 9, 9);
}

TEST_F(Modify, GripsTakenHoldOfGoWithTheirSelection) {
    const AcDbObjectId a = last();
    type({L"_line", L"10,50", L"20,50", L""});
    const AcDbObjectId b = last();
    const auto take = [&](AcDbObjectId id, double x, double y) {
        std::vector<prancheta::Grip> all;
        prancheta::appendGrips(id, all);
        for (const prancheta::Grip& grip : all)
            if (grip.at == AcGePoint3d(x, y, 0)) editor->selection().heat(grip);
    };
    take(a, 20, 0);
    take(b, 20, 50);
    editor->selection().select({b});
    type({L"_grips", L"@5,0"});
    expectLine(a, 10, 0, 20, 0);
    expectLine(b, 10, 50, 25, 50);

    take(a, 20, 0);
    type({L"_point", L"0,0"});  // a command that does not work on the selection
    EXPECT_TRUE(editor->selection().hotGrips().empty());
    take(a, 20, 0);
    ASSERT_EQ(editor->selection().hotGrips().size(), 1u);
    ASSERT_TRUE(editor->file().makeNew());
    EXPECT_TRUE(editor->selection().hotGrips().empty());
}

TEST_F(Modify, SelectedBeforeTheCommand) {
    pick(15, 0, {last()});
    type({L"_erase"});
    EXPECT_EQ(count(), 0u);
    EXPECT_FALSE(editor->runner().active());
}

TEST_F(Modify, ExplodeOneLevel) {
    // A line, then a half circle of diameter 10 bulging to the right.
    type({L"_pline", L"0,0", L"10,0", L"_a", L"10,10", L""});
    type({L"explodir", L"_l", L""});
    ASSERT_EQ(count(), 3u);
    expectLine(entities()[1], 0, 0, 10, 0);
    const Read<AcDbArc> arc(entities()[2]);
    ASSERT_NE(arc.object(), nullptr);
    expectPoint(arc->center(), 10, 5);
    EXPECT_NEAR(arc->radius(), 5, 1e-9);
    type({L"_u"});
    ASSERT_EQ(count(), 2u);
    EXPECT_NE(Read<AcDbPolyline>(last()).object(), nullptr);
}

TEST_F(Modify, WhatCannotBeExplodedIsTold) {
    type({L"_explode", L"_l", L""});
    EXPECT_EQ(count(), 1u);
    EXPECT_TRUE(said(L"1 objeto não pôde ser explodido."));
}

TEST_F(Modify, PropertiesOfAnotherObject) {
    type({L"_-layer", L"_m", L"cotas", L""});
    type({L"_text", L"0,0", L"5", L"0", L"um", L""});
    type({L"_dimaligned", L"0,0", L"8,0", L"4,5", L"_dimaligned", L"0,0", L"9,0", L"4,9"});
    type({L"_setvar", L"CLAYER", L"0", L"_text", L"0,50", L"2", L"0", L"dois", L""});
    const std::vector<AcDbObjectId> all = entities();  // line, text, two dimensions, text
    ASSERT_EQ(all.size(), 5u);
    {
        const AcDbObjectPointer<AcDbText> text(all[1], AcDb::kForWrite);
        (void)text->setColorIndex(3);
        (void)text->setLinetypeScale(2.5);
        (void)text->setOblique(0.25);
        const AcDbObjectPointer<AcDbDimension> dimension(all[2], AcDb::kForWrite);
        (void)dimension->setDimscale(7.0);
    }
    // A picked origin, Esc where its object is asked for, and a point with nothing there.
    type({L"copiarprop", L"500,500"});
    EXPECT_EQ(ui.complaints.size(), 1u);
    type({L"^C", L"_matchprop"});
    pick(0, 0, {all[1]});
    type({L"_l", L""});
    {
        const Read<AcDbText> text(all[4]);
        EXPECT_EQ(layerOf(all[4]), L"cotas");
        EXPECT_EQ(text->colorIndex(), 3);
        EXPECT_EQ(text->linetypeScale(), 2.5);
        EXPECT_EQ(text->height(), 5.0);
        EXPECT_EQ(text->oblique(), 0.25);
        EXPECT_STREQ(text->textStringConst(), L"dois");
    }
    type({L"_u"});
    EXPECT_EQ(layerOf(all[4]), L"0");
    EXPECT_EQ(Read<AcDbText>(all[4])->height(), 2.0);
    // What is selected before is the origin; without colour, and then with it again.
    editor->selection().select({all[1]});
    type({L"_ma", L"_s", L"_c", L""});
    pick(10, 0, {all[0]});
    type({L""});
    EXPECT_EQ(layerOf(all[0]), L"cotas");
    EXPECT_EQ(Read<AcDbLine>(all[0])->colorIndex(), 256);
    EXPECT_TRUE(said(L"Propriedades copiadas: camada, tipo de linha, escala"));
    // Several selected before are what is to be like the one that is picked.
    editor->selection().select({all[0], all[3]});
    type({L"_matchprop"});
    pick(0, 0, {all[2]});
    EXPECT_FALSE(editor->runner().active());
    EXPECT_EQ(Read<AcDbDimension>(all[3])->ownDimscale(), 7.0);
    // Paragraphs take the height of a line of text.
    type({L"_mtext", L"0,90", L"50,80", L"tres", L"", L"_matchprop"});
    pick(0, 0, {all[1]});
    type({L"_l", L""});
    EXPECT_EQ(Read<AcDbMText>(last())->textHeight(), 5.0);
}

TEST_F(Modify, AlignedByTwoPairsOfPoints) {
    // From (10,0)-(20,0) to (1,1) in the direction of (1,9): turned by a right angle.
    type({L"alinhar", L"_l", L"", L"10,0", L"1,1", L"20,0", L"1,1", L"1,9", L""});
    EXPECT_EQ(ui.complaints.size(), 1u) << "the second pair has no direction";
    expectLine(last(), 1, 1, 1, 11);
    type({L"_u", L"_al", L"_l", L"", L"10,0", L"1,1", L"20,0", L"1,31", L"_y"});
    expectLine(last(), 1, 1, 1, 31);
    type({L"_u", L"_align", L"_l", L"", L"10,0", L"1,1", L""});
    expectLine(last(), 1, 1, 11, 1);
}

TEST_F(Modify, PointsAlongCurves) {
    const auto places = [&](std::size_t from) {
        std::vector<AcGePoint3d> all;
        for (std::size_t i = from; i < count(); ++i)
            all.push_back(Read<AcDbPoint>(entities()[i])->position());
        return all;
    };
    type({L"dividir", L"_l", L"1", L"40000", L"4"});
    ASSERT_EQ(ui.complaints.size(), 2u) << "one part is no division";
    EXPECT_EQ(ui.complaints[1], L"Requer um inteiro entre 1 e 32767.");
    std::vector<AcGePoint3d> at = places(1);
    ASSERT_EQ(at.size(), 3u);
    expectPoint(at[0], 12.5, 0);
    expectPoint(at[2], 17.5, 0);
    type({L"_u", L"_me"});
    pick(19, 0, {entities()[0]});
    type({L"50", L"4"});
    at = places(1);  // from the end that was picked
    ASSERT_EQ(at.size(), 2u);
    expectPoint(at[0], 16, 0);
    expectPoint(at[1], 12, 0);
    EXPECT_TRUE(said(L"O objeto tem 10,0000: o trecho não cabe nele."));
    // A length that goes in whole leaves no point on the end; a circle has one where it begins.
    type({L"_u", L"_measure", L"_l", L"5"});
    ASSERT_EQ(places(1).size(), 1u);
    type({L"_erase", L"_all", L"", L"_circle", L"0,0", L"5", L"_div", L"_l", L"4"});
    at = places(1);
    ASSERT_EQ(at.size(), 4u);
    expectPoint(at[0], 5, 0);
    expectPoint(at[3], 0, -5);
    // A quarter of an ellipse is as long as the next one.
    type(
        {L"_erase", L"_all", L"", L"_ellipse", L"_c", L"0,0", L"10,0", L"4", L"_div", L"_l", L"4"});
    at = places(1);
    ASSERT_EQ(at.size(), 4u);
    expectPoint(at[1], 0, 4);
    expectPoint(at[2], -10, 0);
    type({L"_u", L"_u", L"_u"});
    // Blocks stand along the curve.
    type({L"_-block", L"seta", L"0,0", L"_l", L"", L"_divide"});
    pick(5, 0, {entities()[0]});
    type({L"_b", L"nada", L"SETA", L"", L"4"});
    const Read<AcDbBlockReference> second(entities()[count() - 3]);
    ASSERT_NE(second.object(), nullptr);
    expectPoint(second->position(), 0, 5);
    EXPECT_NEAR(second->rotation(), prancheta::kPi, 1e-9);
}

TEST_F(Modify, APickTakesTheNearestLineThenTextsThenFills) {
    // A pick box reaches 1.5 about; the fills lie on top of what they fill.
    type({L"_hpdraworder",
          L"0",
          L"_rectang",
          L"0,20",
          L"100,60",
          L"_hatch",
          L"_p",
          L"_p",
          L"solid",
          L"50,40",
          L"",
          L"_text",
          L"40,50",
          L"5",
          L"0",
          L"VIGA",
          L"",
          L"_line",
          L"0,81",
          L"99,81",
          L"",
          L"_line",
          L"0,80",
          L"99,80",
          L"",
          L"_text",
          L"40,80",
          L"5",
          L"0",
          L"VIGA",
          L""});
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 7u);
    const struct {
        const char* what;
        AcGePoint3d at;
        std::size_t taken;
    } picks[] = {{"boundary under its fill", {0, 40, 0}, 1}, {"fill", {50, 40, 0}, 2},
                 {"text over a fill", {42, 52, 0}, 3},       {"nearer line", {20, 80.7, 0}, 4},
                 {"line under a text", {42, 80, 0}, 5},      {"text", {42, 84, 0}, 6}};
    for (const auto& pick : picks)
        EXPECT_EQ(prancheta::entityAt(*editor, pick.at), all[pick.taken]) << pick.what;
}

/// The letters of three lines, 10 apart, from back to front; undo gives back what was.
TEST_F(Modify, OrderOfDrawingIsThatOfThePickAndOfTheFile) {
    type({L"_erase", L"_all", L"", L"_line", L"0,0", L"9,0", L"", L"_line", L"0,0", L"0,9", L"",
          L"_line", L"0,0", L"9,9", L""});
    const std::vector<AcDbObjectId> lines = entities();
    const auto order = [&] {
        std::string names;
        for (const prancheta::DisplayList::Item& item : editor->display().find({-1, -1, 9, 9}))
            names += "abc"[std::find(lines.begin(), lines.end(), item.id) - lines.begin()];
        return names;
    };
    ASSERT_EQ(order(), "abc");
    type({L"ordem", L"9,9", L"", L""});
    EXPECT_EQ(order(), "cab") << "Enter: behind all";
    type({L"_dr", L"9,0", L"", L"_f"});
    EXPECT_EQ(order(), "cba");
    type({L"_draworder", L"9,9", L"0,9", L"", L"a", L"9,0", L""});
    EXPECT_EQ(order(), "acb") << "they keep their order among themselves";
    type({L"_draworder", L"0,9", L"", L"_u", L"9,9", L""});
    EXPECT_EQ(order(), "abc");
    type({L"_u", L"_draworder", L"9,0", L"", L"_under", L"9,0", L""});
    EXPECT_EQ(order(), "acb");
    EXPECT_TRUE(said(L"Os objetos de referência são os próprios"));
    // A copy comes on top; what was under the pointer is what lies on top there.
    type({L"_copy", L"0,9", L"", L"0,0", L"0,0", L""});
    EXPECT_EQ(editor->display().find({-1, -1, 9, 9}).back().id, last());
    type({L"_u", L"_u", L"_u"});
    EXPECT_EQ(order(), "cab");
    type({L"_u"});
    EXPECT_EQ(order(), "abc");
}

}  // namespace
}  // namespace builtin
