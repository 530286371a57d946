// SPDX-License-Identifier: MIT
// TRIM, EXTEND, BREAK, JOIN, LENGTHEN, OFFSET, FILLET, CHAMFER.
#include <cmath>
#include <cstdio>

#include "acutmem.h"
#include "dbsymtb.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/picture.h"
#include "protocol/attach.h"
#include "protocol/length.h"
#include "rxregsvc.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

std::string number(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", std::abs(v) < 5e-4 ? 0.0 : v);
    std::string s = text;
    s.erase(s.find_last_not_of('0') + 1);
    if (s.back() == '.') s.pop_back();
    return s;
}

std::string place(const AcGePoint3d& p) { return number(p.x) + "," + number(p.y); }
std::string degrees(double a) { return number(a * 180.0 / prancheta::kPi); }

/// "L 0,0 5,0", "A centre radius from-to", "C centre radius", "P" or "PC" of a closed one with its
/// vertices, each with its bulge behind "b" and its width behind "w" where it has one.
std::string described(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (const auto* line = AcDbLine::cast(entity.object()))
        return "L " + place(line->startPoint()) + " " + place(line->endPoint());
    if (const auto* arc = AcDbArc::cast(entity.object()))
        return "A " + place(arc->center()) + " " + number(arc->radius()) + " " +
               degrees(arc->startAngle()) + "-" + degrees(arc->endAngle());
    if (const auto* circle = AcDbCircle::cast(entity.object()))
        return "C " + place(circle->center()) + " " + number(circle->radius());
    if (const auto* const ellipse = AcDbEllipse::cast(entity.object()))
        return "E " + place(ellipse->center()) + " " + degrees(ellipse->startParam()) + "-" +
               degrees(ellipse->startParam() + ellipse->sweep());
    const auto* const polyline = AcDbPolyline::cast(entity.object());
    if (polyline == nullptr) return "?";
    std::string text = polyline->isClosed() ? "PC" : "P";
    for (unsigned i = 0; i < polyline->numVerts(); ++i) {
        AcGePoint3d p;
        double bulge = 0.0, start = 0.0, end = 0.0;
        (void)polyline->getPointAt(i, p);
        (void)polyline->getBulgeAt(i, bulge);
        (void)polyline->getWidthsAt(i, start, end);
        text += " " + place(p);
        if (bulge != 0.0) text += "b" + number(bulge);
        if (start != 0.0 || end != 0.0) text += "w" + number(start) + "-" + number(end);
    }
    return text;
}

using Lines = std::vector<const wchar_t*>;
struct Case {
    const char* what;
    Lines drawn;
    Lines typed;
    std::vector<std::string> left;
    const wchar_t* said = nullptr;
};

class Cut : public Builtin {
protected:
    void typeAll(const Lines& lines) {
        for (const wchar_t* const line : lines) type({line});
    }
    std::vector<std::string> drawing() const {
        std::vector<std::string> all;
        for (const AcDbObjectId& id : entities())
            if (!id.isErased()) all.push_back(described(id));
        return all;
    }
    void run(const std::vector<Case>& cases) {
        for (const Case& c : cases) {
            typeAll({L"_erase", L"_all", L""});
            typeAll(c.drawn);
            const std::vector<std::string> before = drawing();
            ui.complaints.clear();
            ui.output.clear();
            typeAll(c.typed);
            EXPECT_EQ(drawing(), c.left) << c.what;
            if (c.said != nullptr)
                EXPECT_TRUE(said(c.said)) << c.what;
            else
                EXPECT_TRUE(ui.complaints.empty()) << c.what;
            if (before == c.left) continue;
            type({L"_u"});
            EXPECT_EQ(drawing(), before) << c.what << ": one step of undo";
        }
    }
};

const Lines kCross = {L"_line", L"0,0", L"1000,0", L"", L"_line", L"500,-100", L"500,100", L""};

Lines with(Lines first, const Lines& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

TEST_F(Cut, TrimGoesUpToTheNearestEdgesOnBothSidesOfThePick) {
    const Lines ladder = {L"_line", L"0,0", L"100,0", L"",      L"_line", L"20,-9",
                          L"20,9",  L"",    L"_line", L"80,-9", L"80,9",  L""};
    const Lines circle = {L"_circle", L"0,0", L"50", L"_line", L"-90,30", L"90,30", L""};
    // 40 = sqrt(50^2 - 30^2), asin(30/50) = 36.87 deg
    run({
        {"end", kCross, {L"_trim", L"", L"900,0", L""}, {"L 0,0 500,0", "L 500,-100 500,100"}},
        {"start",
         kCross,
         {L"aparar", L"", L"100,0", L""},
         {"L 500,0 1000,0", "L 500,-100 500,100"}},
        {"middle: two",
         ladder,
         {L"TR", L"", L"50,0", L""},
         {"L 0,0 20,0", "L 20,-9 20,9", "L 80,-9 80,9", "L 80,0 100,0"}},
        {"only chosen edges cut",
         ladder,
         {L"_trim", L"20,5", L"", L"50,0", L""},
         {"L 0,0 20,0", "L 20,-9 20,9", "L 80,-9 80,9"}},
        {"two picks, one taken back",
         ladder,
         {L"_trim", L"", L"50,0", L"20,8", L"_u", L""},
         {"L 0,0 20,0", "L 20,-9 20,9", "L 80,-9 80,9", "L 80,0 100,0"}},
        {"no edge",
         {L"_line", L"0,0", L"9,0", L""},
         {L"_trim", L"", L"5,0", L""},
         {"L 0,0 9,0"},
         L"O objeto não cruza uma aresta de corte."},
        {"a dimension is no edge",
         {L"_line", L"0,0", L"9,0", L"", L"_dimlinear", L"4,-5", L"6,-5", L"5,5"},
         {L"_trim", L"", L"1,0", L""},
         {"L 0,0 9,0", "?"},
         L"O objeto não cruza uma aresta de corte."},
        {"what cannot be cut lies over what can",
         {L"_line", L"0,0", L"9,0", L"", L"_line", L"5,-3", L"5,3", L"", L"_dimaligned", L"0,0",
          L"9,0", L"4,0"},
         {L"_trim", L"", L"8,0", L""},
         {"L 0,0 5,0", "L 5,-3 5,3", "?"}},
        {"an edge at its end is none",
         {L"_line", L"0,0", L"9,0", L"", L"_line", L"9,-1", L"9,1", L""},
         {L"_trim", L"", L"5,0", L""},
         {"L 0,0 9,0", "L 9,-1 9,1"},
         L"O objeto não cruza uma aresta de corte."},
        {"a circle opens",
         circle,
         {L"_trim", L"", L"0,50", L""},
         {"L -90,30 90,30", "A 0,0 50 143.13-36.87"}},
        {"the other side",
         circle,
         {L"_trim", L"", L"0,-50", L""},
         {"L -90,30 90,30", "A 0,0 50 36.87-143.13"}},
        {"an ellipse opens, an arc of one is cut",
         {L"_ellipse", L"_c", L"0,0", L"50,0", L"25", L"_line", L"30,-90", L"30,90", L""},
         {L"_trim", L"", L"50,0", L"-30,20", L""},
         {"E 0,0 53.13-306.87", "L 30,-90 30,90"},
         L"O objeto não cruza uma aresta de corte."},
        {"one touch opens no circle",
         {L"_circle", L"0,0", L"50", L"_line", L"-9,50", L"9,50", L""},
         {L"_trim", L"", L"50,0", L""},
         {"C 0,0 50", "L -9,50 9,50"},
         L"O objeto não cruza uma aresta de corte."},
        {"a closed polyline opens, its arc is cut, widths stay",
         {L"_pline", L"0,0", L"_w", L"2", L"2", L"100,0", L"100,50", L"0,50", L"_c", L"_line",
          L"50,-9", L"50,90", L""},
         {L"_trim", L"", L"100,20", L""},
         {"P 50,50w2-2 0,50w2-2 0,0w2-2 50,0", "L 50,-9 50,90"}},
        {"fence",
         with(ladder, {L"_line", L"0,3", L"100,3", L""}),
         {L"_trim", L"", L"_f", L"50,-5", L"50,5", L"", L""},
         {"L 0,0 20,0", "L 20,-9 20,9", "L 80,-9 80,9", "L 0,3 20,3", "L 80,0 100,0",
          "L 80,3 100,3"}},
        {"crossing",
         with(ladder, {L"_line", L"0,3", L"100,3", L""}),
         {L"_trim", L"", L"z", L"45,-1", L"55,4", L""},
         {"L 0,0 20,0", "L 20,-9 20,9", "L 80,-9 80,9", "L 0,3 20,3", "L 80,0 100,0",
          "L 80,3 100,3"}},
        {"a text is nothing to cut",
         with(kCross, {L"_text", L"0,50", L"10", L"0", L"abc", L""}),
         {L"_trim", L"", L"2,52", L""},
         {"L 0,0 1000,0", "L 500,-100 500,100", "?"},
         L"Só linhas, arcos"},
        {"edges go on where asked for",
         {L"_line", L"0,0", L"100,0", L"", L"_line", L"50,10", L"50,20", L""},
         {L"_trim", L"", L"a", L"e", L"90,0", L"a", L"n", L""},
         {"L 0,0 50,0", "L 50,10 50,20"}},
        {"erased between", kCross, {L"_trim", L"", L"p", L"500,90", L"", L""}, {"L 0,0 1000,0"}},
    });
    const Lines locked = {L"_-layer", L"_m",      L"presa", L"",  L"_line", L"0,9",   L"1000,9",
                          L"",        L"_-layer", L"_s",    L"0", L"_lo",   L"presa", L""};
    run({{"locked",
          with(kCross, locked),
          {L"_trim", L"", L"900,9", L""},
          {"L 0,0 1000,0", "L 500,-100 500,100", "L 0,9 1000,9"},
          L"camada bloqueada"}});
}

TEST_F(Cut, TrimByThePictureOfABlock) {
    typeAll({L"_line", L"500,-100", L"500,100", L"", L"_block", L"b", L"0,0", L"_l", L"", L"_line",
             L"0,0", L"1000,0", L"", L"_trim", L"", L"900,0", L""});
    EXPECT_EQ(drawing(), (std::vector<std::string>{"?", "L 0,0 500,0"}));
}

TEST_F(Cut, ExtendGoesOnToTheNearestEdge) {
    const Lines posts = {L"_line", L"0,0", L"10,0",  L"",      L"_line", L"50,-9",
                         L"50,9",  L"",    L"_line", L"80,-9", L"80,9",  L""};
    const Lines quarter = {L"_arc", L"50,0",  L"35.35533905932738,35.35533905932738",
                           L"0,50", L"_line", L"-90,30",
                           L"0,30", L""};
    run({
        {"line",
         posts,
         {L"_extend", L"", L"9,0", L""},
         {"L 0,0 50,0", "L 50,-9 50,9", "L 80,-9 80,9"}},
        {"twice, to the next",
         posts,
         {L"EX", L"", L"9,0", L"40,0", L""},
         {"L 0,0 80,0", "L 50,-9 50,9", "L 80,-9 80,9"}},
        {"Shift trims, in EXTEND",
         kCross,
         {L"_extend", L"", L"shift", L"900,0", L""},
         {"L 0,0 500,0", "L 500,-100 500,100"}},
        {"and extends in TRIM",
         posts,
         {L"_trim", L"", L"shift", L"9,0", L""},
         {"L 0,0 50,0", "L 50,-9 50,9", "L 80,-9 80,9"}},
        {"nothing there",
         posts,
         {L"_extend", L"", L"1,0", L""},
         {"L 0,0 10,0", "L 50,-9 50,9", "L 80,-9 80,9"},
         L"O objeto não alcança uma aresta."},
        {"an arc along its circle",
         quarter,
         {L"_extend", L"", L"0,50", L""},
         {"A 0,0 50 0-143.13", "L -90,30 0,30"}},
        {"a polyline's end",
         {L"_pline", L"0,50", L"0,0", L"10,0", L"", L"_line", L"50,-9", L"50,9", L""},
         {L"_extend", L"", L"9,0", L""},
         {"P 0,50 0,0 50,0", "L 50,-9 50,9"}},
        {"closed",
         {L"_circle", L"0,0", L"50"},
         {L"_extend", L"", L"50,0", L""},
         {"C 0,0 50"},
         L"fechado"},
    });
}

TEST_F(Cut, BreakJoinAndLengthen) {
    const Lines line = {L"_line", L"0,0", L"100,0", L""};
    const Lines quarter = {L"_arc", L"50,0", L"35.35533905932738,35.35533905932738", L"0,50"};
    run({
        {"two points", line, {L"_break", L"30,0", L"60,0"}, {"L 0,0 30,0", "L 60,0 100,0"}},
        {"one point", line, {L"_break", L"30,0", L"@"}, {"L 0,0 30,0", "L 30,0 100,0"}},
        {"beyond the end", line, {L"BR", L"60,0", L"200,0"}, {"L 0,0 60,0"}},
        {"first point anew",
         line,
         {L"quebrar", L"50,0", L"_f", L"20,0", L"40,0"},
         {"L 0,0 20,0", "L 40,0 100,0"}},
        {"circle, counter-clockwise",
         {L"_circle", L"0,0", L"50"},
         {L"_break", L"50,0", L"0,50"},
         {"A 0,0 50 90-0"}},
        {"all of it", line, {L"_break", L"0,0", L"100,0"}, {"L 0,0 100,0"}, L"objeto todo"},
        {"in line, with a gap",
         {L"_line", L"0,0", L"10,0", L"", L"_line", L"30,0", L"20,0", L""},
         {L"_join", L"_all", L""},
         {"L 0,0 30,0"},
         L"2 objetos unidos em 1."},
        {"arcs of one circle",
         with(quarter, {L"_arc", L"-50,0", L"-35.35533905932738,-35.35533905932738", L"0,-50"}),
         {L"J", L"_all", L""},
         {"A 0,0 50 0-270"},
         L"2 objetos unidos em 1."},
        {"whole turn",
         with(quarter, {L"_arc", L"0,50", L"-50,0", L"50,0"}),
         {L"_join", L"_all", L""},
         {"C 0,0 50"},
         L"unidos"},
        {"ends that touch, in any order",
         with(quarter, {L"_line", L"90,0", L"50,0", L"", L"_line", L"0,50", L"0,90", L""}),
         {L"unir", L"_all", L""},
         {"P 90,0 50,0b0.414 0,50 0,90"},
         L"3 objetos unidos em 1."},
        {"ring",
         {L"_line", L"0,0", L"9,0", L"9,9", L"0,0", L""},
         {L"_join", L"_all", L""},
         {"PC 0,0 9,0 9,9"},
         L"3 objetos unidos em 1."},
        {"apart",
         {L"_line", L"0,0", L"9,0", L"", L"_line", L"0,5", L"9,5", L""},
         {L"_join", L"_all", L""},
         {"L 0,0 9,0", "L 0,5 9,5"},
         L"nada foi unido"},
        {"delta", line, {L"_lengthen", L"_de", L"25", L"90,0", L""}, {"L 0,0 125,0"}},
        {"less, at the start", line, {L"LEN", L"_de", L"-25", L"9,0", L""}, {"L 25,0 100,0"}},
        {"percent", line, {L"comprimento", L"p", L"150", L"9,0", L""}, {"L -50,0 100,0"}},
        {"total of an arc",
         quarter,
         {L"_lengthen", L"t", L"157.0796327", L"0,50", L""},
         {"A 0,0 50 0-180"}},
        {"more than a turn",
         quarter,
         {L"_lengthen", L"t", L"400", L"0,50", L""},
         {"A 0,0 50 0-90"},
         L"a volta toda"},
        {"dynamic", line, {L"_lengthen", L"_dy", L"90,0", L"130,7", L""}, {"L 0,0 130,0"}},
        {"nothing left",
         line,
         {L"_lengthen", L"_de", L"-100", L"90,0", L""},
         {"L 0,0 100,0"},
         L"sem comprimento"},
    });
    typeAll({L"_lengthen", L"90,0", L""});
    EXPECT_TRUE(said(L"Comprimento atual: 100"));
}

TEST_F(Cut, OffsetKeepsCornersAndSaysWhatVanishes) {
    const Lines circle = {L"_circle", L"0,0", L"100"};
    const Lines square = {L"_pline", L"0,0",     L"_w",    L"2", L"2",
                          L"100,0",  L"100,100", L"0,100", L"_c"};
    run({
        {"circle inwards",
         circle,
         {L"_offset", L"10", L"100,0", L"0,0", L""},
         {"C 0,0 100", "C 0,0 90"}},
        {"outwards", circle, {L"O", L"10", L"100,0", L"300,0", L""}, {"C 0,0 100", "C 0,0 110"}},
        {"vanishes",
         circle,
         {L"_offset", L"100", L"100,0", L"0,0", L"^C"},
         {"C 0,0 100"},
         L"não resta nada"},
        {"through",
         {L"_line", L"0,0", L"100,0", L""},
         {L"deslocar", L"a", L"50,0", L"70,30", L""},
         {"L 0,0 100,0", "L 0,30 100,30"}},
        {"polyline with its width",
         square,
         {L"_offset", L"10", L"50,0", L"50,50", L""},
         {"PC 0,0w2-2 100,0w2-2 100,100w2-2 0,100w2-2",
          "PC 10,10w2-2 90,10w2-2 90,90w2-2 10,90w2-2"}},
        {"outwards, sharp",
         square,
         {L"_offset", L"10", L"50,0", L"50,-50", L""},
         {"PC 0,0w2-2 100,0w2-2 100,100w2-2 0,100w2-2",
          "PC -10,-10w2-2 110,-10w2-2 110,110w2-2 -10,110w2-2"}},
        {"again and again",
         circle,
         {L"_offset", L"10", L"100,0", L"_m", L"0,0", L"0,0", L"", L""},
         {"C 0,0 100", "C 0,0 90", "C 0,0 80"}},
        {"the original goes",
         circle,
         {L"_offset", L"_e", L"_y", L"10", L"100,0", L"0,0", L""},
         {"C 0,0 90"}},
    });
}

TEST_F(Cut, OffsetOfAnEllipseIsAPolylineOfArcs) {
    // Half axes 50 and 25; 10 outside they are 60 and 35.
    typeAll({L"_ellipse", L"_c", L"0,0", L"50,0", L"25", L"_offset", L"10", L"50,0", L"90,0", L""});
    const AcDbObjectPointer<AcDbEntity> beside(entities().back(), AcDb::kForRead);
    ASSERT_NE(AcDbPolyline::cast(beside.object()), nullptr);
    AcDbExtents box;
    ASSERT_EQ(beside->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().x, 60.0, 1e-3);
    EXPECT_NEAR(box.minPoint().y, -35.0, 1e-3);
}

TEST_F(Cut, FilletAndChamfer) {
    const Lines corner = {L"_line", L"0,0", L"100,0", L"", L"_line", L"0,0", L"0,100", L""};
    const Lines parallels = {L"_line", L"0,0", L"100,0", L"", L"_line", L"0,40", L"90,40", L""};
    const Lines square = {L"_pline", L"0,0", L"100,0", L"100,100", L"0,100", L"_c"};
    run({
        {"radius 0: both end where they cross",
         kCross,
         {L"_fillet", L"_r", L"0", L"100,0", L"500,90"},
         {"L 0,0 500,0", "L 500,0 500,100"}},
        {"round",
         corner,
         {L"_fillet", L"_r", L"20", L"90,0", L"0,90"},
         {"L 20,0 100,0", "L 0,20 0,100", "A 20,20 20 180-270"}},
        {"lengthened to meet",
         {L"_line", L"30,0", L"100,0", L"", L"_line", L"0,30", L"0,100", L""},
         {L"F", L"90,0", L"0,90"},
         {"L 20,0 100,0", "L 0,20 0,100", "A 20,20 20 180-270"}},
        {"Shift: sharp",
         kCross,
         {L"_fillet", L"100,0", L"shift", L"500,90"},
         {"L 0,0 500,0", "L 500,0 500,100"}},
        {"sides stay",
         corner,
         {L"_fillet", L"_t", L"_n", L"90,0", L"0,90"},
         {"L 0,0 100,0", "L 0,0 0,100", "A 20,20 20 180-270"}},
        {"sides go again",
         corner,
         {L"_fillet", L"_t", L"_t", L"_r", L"200", L"90,0", L"0,90", L"^C"},
         {"L 0,0 100,0", "L 0,0 0,100"},
         L"não cabe"},
        {"parallel: a half circle",
         parallels,
         {L"concord", L"90,0", L"80,40"},
         {"L 0,0 100,0", "L 0,40 100,40", "A 100,20 20 270-90"}},
        {"parallel lines, whatever the radius",
         {L"_line", L"0,0", L"100,0", L"", L"_line", L"0,40", L"100,40", L""},
         {L"_fillet", L"_r", L"0", L"90,0", L"90,40"},
         {"L 0,0 100,0", "L 0,40 100,40", "A 100,20 20 270-90"}},
        // Circle of 30 at 0,0 and line y = 60, radius 20: centre at height 40, 50 from 0,0: x = 30.
        {"line and circle",
         {L"_circle", L"0,0", L"30", L"_line", L"0,60", L"90,60", L""},
         {L"_fillet", L"_r", L"20", L"18,24", L"40,60"},
         {"C 0,0 30", "L 30,60 90,60", "A 30,40 20 90-233.13"}},
        {"every corner of a polyline",
         square,
         {L"_fillet", L"_r", L"10", L"p", L"50,0"},
         {"PC 10,0 90,0b0.414 100,10 100,90b0.414 90,100 10,100b0.414 0,90 0,10b0.414"},
         L"4 cantos feitos."},
        {"one corner of it",
         square,
         {L"_fillet", L"50,0", L"100,50"},
         {"PC 0,0 90,0b0.414 100,10 100,100 0,100"}},
        {"chamfer",
         corner,
         {L"_chamfer", L"_d", L"30", L"20", L"90,0", L"0,90"},
         {"L 30,0 100,0", "L 0,20 0,100", "L 30,0 0,20"}},
        // 10 along the first, 60 deg: 10 tan 60 = 17.321
        {"by an angle",
         corner,
         {L"CHA", L"n", L"10", L"60", L"90,0", L"0,90"},
         {"L 10,0 100,0", "L 0,17.321 0,100", "L 10,0 0,17.321"}},
        {"polyline, picked backwards",
         square,
         {L"chanfro", L"di", L"30", L"20", L"100,50", L"50,0"},
         {"PC 0,0 80,0 100,30 100,100 0,100"}},
        {"parallel",
         parallels,
         {L"_chamfer", L"90,0", L"80,40", L"^C"},
         {"L 0,0 100,0", "L 0,40 90,40"},
         L"paralelas"},
    });
}

// --- Bars of a module ----------------------------------------------------------------------------

/// An axis; refuses to become shorter than 10.
class Bar : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(Bar);
    Bar() = default;
    Bar(const AcGePoint3d& start, const AcGePoint3d& end) : start(start), end(end) {}
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
        (void)AcDbEntity::dwgOutFields(filer);
        filer->writePoint3d(start);
        filer->writePoint3d(end);
        return filer->filerStatus();
    }
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
        assertWriteEnabled();
        (void)AcDbEntity::dwgInFields(filer);
        filer->readPoint3d(&start);
        filer->readPoint3d(&end);
        return filer->filerStatus();
    }

    AcGePoint3d start;
    AcGePoint3d end;

protected:
    /// 20 high about the axis.
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override {
        const AcGeVector3d up(0, 10, 0);
        const AcGePoint3d p[] = {start - up, end - up, end + up, start + up, start - up};
        draw->geometry().polyline(5, p);
        return Adesk::kTrue;
    }
};
ACRX_DXF_DEFINE_MEMBERS(Bar, AcDbEntity, 0, 0, 0, BARRA, "Testes")

class BarLength : public protocol::EntityLength {
public:
    const ACHAR* axis(const AcDbEntity& entity, AcGePoint3d& start,
                      AcGePoint3d& end) const override {
        const Bar* const bar = Bar::cast(&entity);
        if (bar->start.y < 0.0) return L"Uma seção não tem comprimento a aparar.";
        start = bar->start;
        end = bar->end;
        return nullptr;
    }
    bool takesAlong(const AcDbEntity&, AcDbObjectId) const override { return false; }
    bool setEnds(AcDbObjectId id, double from, double to, ACHAR*& message) const override {
        const AcDbObjectPointer<Bar> bar(id, AcDb::kForWrite);
        if (to - from < 10.0) {
            acutUpdString(L"As chapas não cabem no comprimento novo.", message);
            return false;
        }
        const AcGePoint3d start = bar->start;
        const AcGeVector3d along = (bar->end - start).normal();
        bar->assertWriteEnabled();
        bar->start = start + along * from;
        bar->end = start + along * to;
        return true;
    }
    bool takeOut(AcDbObjectId id, double from, double to, AcDbObjectId& rest,
                 ACHAR*& message) const override {
        AcGePoint3d start, end;
        {
            const AcDbObjectPointer<Bar> bar(id, AcDb::kForRead);
            start = bar->start;
            end = bar->end;
        }
        const AcGeVector3d along = (end - start).normal();
        const AcDbObjectPointer<AcDbBlockTableRecord> space(
            acdbHostApplicationServices()->workingDatabase()->currentSpaceId(), AcDb::kForWrite);
        auto* const added = new Bar(start + along * to, end);
        (void)space->appendAcDbEntity(rest, added);
        (void)added->close();
        return setEnds(id, 0.0, from, message);
    }
};

class CutBars : public Cut {
protected:
    CutBars() {
        Bar::rxInit();
        acrxBuildClassHierarchy();
        protocol::attach(Bar::desc(), protocol::kEntityLengthClass, m_length);
    }
    ~CutBars() override {
        editor.reset();
        protocol::detach(Bar::desc(), protocol::kEntityLengthClass);
        protocol::retire(protocol::kEntityLengthClass);
        deleteAcRxClass(Bar::desc());
    }
    AcDbObjectId add(const AcGePoint3d& start, const AcGePoint3d& end) {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                            AcDb::kForWrite);
        auto* const bar = new Bar(start, end);
        bar->setDatabaseDefaults(&editor->database());
        AcDbObjectId id;
        (void)space->appendAcDbEntity(id, bar);
        (void)bar->close();
        return id;
    }
    std::vector<std::string> bars() const {
        std::vector<std::string> all;
        for (const AcDbObjectId& id : entities()) {
            const AcDbObjectPointer<Bar> bar(id, AcDb::kForRead);
            if (bar.openStatus() == Acad::eOk)
                all.push_back(place(bar->start) + " " + place(bar->end));
        }
        return all;
    }
    using Texts = std::vector<std::string>;

private:
    BarLength m_length;
};

TEST_F(CutBars, AreCutWhereEdgesCrossTheirAxisAndAreEdgesByTheirPicture) {
    const AcDbObjectId bar = add({0, 0, 0}, {1000, 0, 0});
    typeAll({L"_line", L"300,-50", L"300,50", L"", L"_line", L"700,-50", L"700,50", L"", L"_line",
             L"900,5", L"900,50", L""});
    // The last line only crosses what the bar shows, not its axis.
    typeAll({L"_trim", L"", L"500,10", L""});
    EXPECT_EQ(bars(), (Texts{"0,0 300,0", "700,0 1000,0"}));
    typeAll({L"_u", L"_trim", L"", L"990,10", L""});
    EXPECT_EQ(bars(), (Texts{"0,0 700,0"}));
    typeAll({L"_line", L"750,-50", L"750,50", L"", L"_extend", L"", L"690,10", L""});
    EXPECT_EQ(bars(), (Texts{"0,0 750,0"}));
    typeAll({L"_break", L"100,10", L"200,0"});
    EXPECT_EQ(bars(), (Texts{"0,0 100,0", "200,0 750,0"}));
    typeAll({L"_lengthen", L"_t", L"80", L"90,10", L""});
    EXPECT_EQ(bars(), (Texts{"0,0 80,0", "200,0 750,0"}));
    EXPECT_FALSE(bar.isErased());
    // A line is cut by what a bar shows: 10 above and below its axis.
    typeAll({L"_line", L"40,-90", L"40,90", L"", L"_trim", L"", L"40,-50", L""});
    EXPECT_EQ(described(last()), "L 40,-10 40,90");
}

TEST_F(CutBars, TellTheModulesReasonsAndShowTheirOutline) {
    (void)add({0, -100, 0}, {200, -100, 0});  // a section
    (void)add({0, 100, 0}, {200, 100, 0});
    typeAll({L"_line", L"5,-150", L"5,150", L"", L"_trim", L"", L"200,-95", L"0,95", L""});
    EXPECT_TRUE(said(L"Uma seção não tem comprimento a aparar."));
    typeAll({L"_lengthen", L"_t", L"4", L"200,105", L""});
    EXPECT_TRUE(said(L"As chapas não cabem no comprimento novo."));
    EXPECT_EQ(bars(), (Texts{"0,-100 200,-100", "5,100 200,100"}));
    typeAll({L"_offset", L"5", L"200,-95", L"100,-50", L""});
    EXPECT_EQ(described(last()), "PC -5,-115 205,-115 205,-85 -5,-85");
}

TEST_F(Cut, PolylinesAreEdited) {
    const Lines corner = {L"_pline", L"0,0", L"10,0", L"10,10", L""};
    const Lines arcs = {L"_pline", L"0,0", L"10,0", L"_a", L"10,10", L"_l", L"0,10", L""};
    run({
        {"closed", corner, {L"editpol", L"10,5", L"_c", L""}, {"PC 0,0 10,0 10,10"}},
        {"closed and opened",
         corner,
         {L"_pedit", L"10,5", L"f", L"a", L"_w", L"2", L""},
         {"P 0,0w2-2 10,0w2-2 10,10w2-2"}},
        {"a line becomes one and takes what touches it",
         {L"_line", L"0,0", L"10,0", L"10,10", L"", L"_line", L"50,0", L"60,0", L""},
         {L"PE", L"5,0", L"", L"_j", L"_all", L"", L""},
         {"L 50,0 60,0", "P 0,0 10,0 10,10"}},
        {"a line stays one",
         {L"_line", L"0,0", L"10,0", L""},
         {L"_pedit", L"5,0", L"_n"},
         {"L 0,0 10,0"}},
        {"joined all the way round",
         with(corner, {L"_line", L"10,10", L"0,0", L""}),
         {L"_pedit", L"10,5", L"_j", L"_all", L"", L""},
         {"PC 0,0 10,0 10,10"}},
        {"nothing touches",
         with(corner, {L"_line", L"50,0", L"60,0", L""}),
         {L"_pedit", L"10,5", L"_j", L"_all", L"", L""},
         {"P 0,0 10,0 10,10", "L 50,0 60,0"},
         L"Nenhuma ponta toca a polilinha"},
        {"arcs made straight", arcs, {L"_pedit", L"5,0", L"_d", L""}, {"P 0,0 10,0 10,10 0,10"}},
        {"no curve is fitted",
         corner,
         {L"_pedit", L"10,5", L"_s", L""},
         {"P 0,0 10,0 10,10"},
         L"não são feitas aqui"},
        {"vertices moved, put in, taken away",
         corner,
         {L"_pedit", L"10,5", L"_e", L"", L"_m", L"12,0", L"_i", L"20,5", L"_p", L"_p", L"_r",
          L"_x", L""},
         {"P 12,0 20,5 10,10"}},
        {"two vertices stay",
         {L"_pline", L"0,0", L"10,0", L""},
         {L"_pedit", L"5,0", L"_e", L"_r", L"_x", L""},
         {"P 0,0 10,0"},
         L"ao menos dois vértices"},
        {"straight from the first to the last; width of one segment; one step taken back",
         arcs,
         {L"_pedit", L"5,0", L"_e", L"_s", L"_p", L"_g", L"_w", L"1", L"3", L"_x", L"_c", L"_u",
          L""},
         {"P 0,0w1-3 0,10"}},
    });
}

TEST_F(Cut, ThePreviewShowsWhatAPickDoesAndWhatItDoesWithShift) {
    type({L"_line", L"0,0", L"100,0", L"", L"_line", L"60,-10", L"60,10", L"", L"_line", L"150,-10",
          L"150,10", L"", L"_trim", L"", L"?"});  // no pick: it is asked again
    ASSERT_TRUE(ui.last.preview && ui.last.shiftPreview);
    const auto shown = [](const auto& preview) {
        prancheta::Picture out;
        preview(AcGePoint3d(90, 0, 0), out);
        return out.extents();
    };
    EXPECT_NEAR(shown(ui.last.preview).minPoint().x, 60, 1e-9);
    EXPECT_NEAR(shown(ui.last.preview).maxPoint().x, 100, 1e-9);
    EXPECT_NEAR(shown(ui.last.shiftPreview).minPoint().x, 100, 1e-9);
    EXPECT_NEAR(shown(ui.last.shiftPreview).maxPoint().x, 150, 1e-9);
    type({L"^C"});
}

}  // namespace
}  // namespace builtin
