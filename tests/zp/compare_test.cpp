// SPDX-License-Identifier: MIT
// Two drawings of one job: what became of its members.
#include "zp/matlist/compare.h"

#include <fstream>

#include "prancheta/editor/drawing_file.h"
#include "tests/zp/drawing.h"
#include "zp/matlist/book.h"

namespace {

using namespace zp_tests;
using zp::matlist::Difference;
using zp::matlist::MemberChange;
using Lines = std::vector<std::wstring>;

class Compared : public DrawingWithCommands {
protected:
    ~Compared() override { std::filesystem::remove(m_file); }

    void peca(const wchar_t* line, const wchar_t* point, const wchar_t* angle = L"0") {
        type({L"PECA", line, point, angle});
    }
    /// A node of a truss: three bars from one point, and a member that the drawing counts thrice.
    void drawJob(bool backwards) {
        const std::function<void()> steps[] = {
            [&] { peca(L"U 100x50x3 L=2000 marca=D1 lista tipo=diagonal", L"0,0", L"45"); },
            [&] { peca(L"U 100x50x3 L=2000 marca=D1 lista tipo=diagonal", L"0,0", L"135"); },
            [&] { peca(L"U 150x60x3 L=6000 marca=B1 lista tipo=banzo_superior", L"0,0"); },
            [&] { peca(L"U 200x75x3 L=3000 n=3 marca=V1 lista", L"0,-1000"); },
            [&] { peca(L"L 50x50x3 L=700", L"0,-2000"); }};
        const std::size_t n = std::size(steps);
        for (std::size_t i = 0; i < n; ++i) steps[backwards ? n - 1 - i : i]();
    }
    void keep() { ASSERT_TRUE(static_cast<bool>(editor->file().saveCopy(m_file))); }

    std::vector<MemberChange> changes() {
        AcDbDatabase* const working = acdbHostApplicationServices()->workingDatabase();
        AcDbDatabase before(false, true);
        EXPECT_EQ(before.dxfIn(m_file.wstring().c_str()), Acad::eOk);
        EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), working);
        const auto members = zp::matlist::membersOf(before);
        const auto now = zp::matlist::membersOf(editor->database());
        auto found = zp::matlist::compareMembers(members, now);
        double heavier = 0.0;
        for (const MemberChange& change : found) heavier += change.kg;
        EXPECT_NEAR(heavier, massOf(now) - massOf(members), 1e-6);
        zp::matlist::Book::forget(&before);
        return found;
    }
    Lines lines() {
        Lines all;
        for (const MemberChange& change : changes()) all.push_back(lineOf(change));
        return all;
    }
    /// The piece that starts here in this direction, degrees.
    AcDbObjectId at(double x, double y, double degrees = 0.0) {
        for (const AcDbObjectId& id : entities()) {
            if (!id.objectClass()->isDerivedFrom(ZpObject::desc())) continue;
            AcGePoint3d start, end;
            const Read<ZpObject> opened(id);
            (void)opened->StartPoint(start);
            (void)opened->EndPoint(end);
            const double angle = std::atan2(end.y - start.y, end.x - start.x) * 180.0 / kPi;
            if (start.distanceTo({x, y, 0}) < 1e-6 && std::abs(angle - degrees) < 1e-6) return id;
        }
        ADD_FAILURE() << "nothing at " << x << ", " << y;
        return {};
    }
    void take(const wchar_t* command, AcDbObjectId id, std::initializer_list<const wchar_t*> rest) {
        type({command});
        pick(0, 0, {id});
        type({L""});
        type(rest);
    }

    static double massOf(const std::vector<zp::matlist::JobMember>& members) {
        double kg = 0.0;
        for (const auto& m : members) kg += m.kg * static_cast<double>(m.count);
        return kg;
    }
    std::filesystem::path m_file = std::filesystem::path(testing::TempDir()) /
                                   ("compara-" + std::to_string(::getpid()) + ".dxf");
};

TEST_F(Compared, OneJobDrawnInAnotherOrderIsTheSame) {
    drawJob(false);
    keep();
    ASSERT_TRUE(static_cast<bool>(editor->file().makeNew()));
    drawJob(true);
    EXPECT_EQ(lines(), Lines());
    type({L"_ERASE", L"_All", L""});
    EXPECT_EQ(changes().size(), 4U);
    for (const MemberChange& change : changes()) EXPECT_EQ(change.kind, Difference::Gone);
}

TEST_F(Compared, EveryChangeIsToldOnceWithItsMass) {
    // Centre line of a bent U: h + 2b - 4t - 2r of flats and two quarters of radius 1.5t.
    const auto kgMetro = [](double h, double b) {
        return (h + 2.0 * b - 8.0 * 3.0 + 2.0 * 0.5 * kPi * 4.5) * 3.0 * 0.00785;
    };
    struct Case {
        const wchar_t* name;
        std::function<void()> change;
        Lines lines;
        double kg;
    };
    const double d1 = kgMetro(100, 50) * 2.0;
    const double v1 = kgMetro(200, 75) * 3.0;
    const Case cases[] = {
        {L"nothing", [] {}, {}, 0.0},
        {L"one of a node longer, which takes its mark along",
         [&] {
             const AcDbObjectId id = at(0, 0, 45);
             type({L"_LENGTHEN", L"_DE", L"500"});
             pick(1400, 1400, {id});
             type({L""});
         },
         {L"D2: marca D1 -> D2, L 2000 -> 2500"},
         d1 / 4.0},
        {L"the other way round, at its start",
         [&] {
             const AcDbObjectId id = at(0, -1000);
             type({L"_LENGTHEN", L"_DE", L"-500"});
             pick(10, -1000, {id});
             type({L""});
         },
         {L"V1 (3 pe\u00E7as): L 3000 -> 2500"},
         -v1 / 2.0},
        {L"another steel",
         [&] {
             type({L"ACO", L"A572"});
         },
         {L"(sem marca): a\u00E7o sem nome -> A572", L"B1: a\u00E7o sem nome -> A572",
          L"D1 (2 pe\u00E7as): a\u00E7o sem nome -> A572",
          L"V1 (3 pe\u00E7as): a\u00E7o sem nome -> A572"},
         0.0},
        {L"one erased, its equal moved",
         [&] {
             take(L"_ERASE", at(0, 0, 135), {});
             take(L"_MOVE", at(0, 0, 45), {L"0,0", L"0,300"});
         },
         {L"D1: quantidade 2 -> 1", L"D1: movida 0; 300"},
         -d1},
        {L"one in no list",
         [&] { take(L"_ERASE", at(0, -2000), {}); },
         {L"(sem marca): retirada, L 50x50x3, 700 mm (fora da lista)"},
         0.0},
        {L"turned about its middle",
         [&] {
             take(L"_ROTATE", at(0, -1000), {L"1500,-1000", L"180"});
         },
         {L"V1 (3 pe\u00E7as): movida 3000; 0, girada"},
         0.0},
        {L"turned about its own axis",
         [&] {
             take(L"_ERASE", at(0, -1000), {});
             peca(L"U 200x75x3 L=3000 n=3 marca=V2 giro=90", L"0,-1000");
         },
         {L"V2 (3 pe\u00E7as): marca V1 -> V2, giro 0\u00B0 -> 90\u00B0"},
         0.0},
        {L"copied",
         [&] {
             take(L"_COPY", at(0, -1000), {L"0,0", L"0,-700", L""});
         },
         {L"V1: quantidade 3 -> 6"},
         3.0 * v1},
    };
    drawJob(false);
    keep();
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(c.name)));
        type({L"_UNDO", L"_Mark"});
        c.change();
        const std::vector<MemberChange> found = changes();
        ASSERT_EQ(found.size(), c.lines.size());
        double kg = 0.0;
        for (std::size_t i = 0; i < found.size(); ++i) {
            EXPECT_EQ(lineOf(found[i]).substr(0, c.lines[i].size()), c.lines[i]);
            if (!found[i].marca.empty()) kg += found[i].kg;
        }
        EXPECT_NEAR(kg, c.kg, 0.002);
        type({L"_UNDO", L"_Back"});
    }
    EXPECT_EQ(lines(), Lines());
}

TEST_F(Compared, CloudsGoAroundWhatChangedAndGoAway) {
    drawJob(false);
    keep();
    take(L"_MOVE", at(0, -1000), {L"0,0", L"0,-5000"});
    const std::size_t before = entities().size();
    const std::wstring path = m_file.wstring();
    type({L"COMPARAR", path.c_str()});
    EXPECT_TRUE(said(L"\nV1 (3 pe\u00E7as): movida 0; -5000\n1 diferen\u00E7a: 1 movida."));
    AcDbExtents cloud;
    for (const AcDbObjectId& id : entities())
        if (id.objectClass() == AcDbPolyline::desc())
            (void)Read<AcDbPolyline>(id)->getGeomExtents(cloud);
    EXPECT_LT(cloud.minPoint().y, -6000.0);
    EXPECT_GT(cloud.maxPoint().y, -6000.0);
    EXPECT_LT(cloud.maxPoint().y, -5000.0);  // nothing else is in it
    const std::size_t drawn = entities().size();
    EXPECT_GT(drawn, before);
    type({L"COMPARAR", path.c_str()});
    EXPECT_EQ(entities().size(), drawn);  // they are replaced
    const std::filesystem::path book = std::filesystem::path(m_file).replace_extension(".xlsx");
    type({L"COMPARAR", L"_xlsx", book.wstring().c_str(), path.c_str()});
    EXPECT_TRUE(std::filesystem::remove(book));
    type({L"COMPARAR", L"_Clear"});
    EXPECT_EQ(entities().size(), before);
    EXPECT_EQ(lines().size(), 1U);
}

TEST_F(Compared, CloudsAreNoMoreThanCanBeLookedAt) {
    // 24 rows of 24 bars that stand apart: the chessboard over them has 22 rows of 22 cells.
    MemberChange change;
    for (int i = 0; i < 24 * 24; ++i) {
        zp::matlist::JobMember member;
        member.peca = u(i % 24 * 3000.0, i / 24 * 3000.0, 500);
        member.block = Read<AcDbEntity>(member.peca)->ownerId();
        change.after.push_back(member);
    }
    EXPECT_EQ(zp::matlist::drawRevision(editor->database(), L"", {change}).clouds, 22U * 22U);
    change.after.resize(24 * 20);
    EXPECT_EQ(zp::matlist::eraseRevision(editor->database()).locked, 0U);
    EXPECT_EQ(zp::matlist::drawRevision(editor->database(), L"", {change}).clouds, 24U * 20U);
}

TEST_F(Compared, AFileThatIsNoDrawingIsRefused) {
    ui.mayComplain = true;
    const std::wstring path = m_file.wstring();
    type({L"COMPARAR", path.c_str()});
    EXPECT_TRUE(said(L": o arquivo n\u00E3o pode ser lido"));
    std::ofstream(m_file) << "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n";
    type({L"COMPARAR", path.c_str()});
    EXPECT_TRUE(said(L": o desenho est\u00E1 danificado; abra-o com RECUPERAR"));
}

}  // namespace
