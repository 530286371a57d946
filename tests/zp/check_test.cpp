// SPDX-License-Identifier: MIT
// Checks of the job: a sound sheet without findings, and the same with each fault planted once.
#include "zp/matlist/check.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "tests/zp/matlist.h"
#include "zp/matlist/book.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/ends.h"
#include "zp/objects/member.h"
#include "zp/objects/published.h"

namespace {

using namespace zp_tests;
using zp::matlist::Fault;
using Kinds = std::vector<Fault>;

class Checked : public DrawingWithCommands {
protected:
    /// A listed U 200x75x3 seen from the right, dimensioned.
    AcDbObjectId drawU(const char* comprimento, const wchar_t* point) {
        return draw(L"perfilu",
                    {"h=200", "b=75", "t=3.00", "vista0=0", "OutraVista", "fig1", comprimento,
                     "gerar_matlist=1", "num_pecas=1", "accept", "dimensionar=1", "accept"},
                    point);
    }
    /// A listed laced 2U ][ 200x75x3.
    AcDbObjectId draw2U(const char* figure, const char* comprimento, const wchar_t* point) {
        return draw(L"perfil2u",
                    {"h=200", "b=75", "t=3.00", "a=8", "vista0=0", "OutraVista", figure,
                     comprimento, "gerar_matlist=1", "num_pecas=1", "accept", "dimensionar=1",
                     "travejar", "largura=50", "n_partes=4", "accept", "accept"},
                    point);
    }
    template <class T>
    std::vector<AcDbObjectId> all() const {
        std::vector<AcDbObjectId> found;
        for (const AcDbObjectId& id : entities())
            if (id.objectClass()->isDerivedFrom(T::desc())) found.push_back(id);
        return found;
    }
    template <class T, class F>
    void open(AcDbObjectId id, F f) {
        const AcDbObjectPointer<T> opened(id, AcDb::kForWrite);
        ASSERT_EQ(opened.openStatus(), Acad::eOk);
        f(*opened.object());
    }
    /// MOVE and COPY of one object.
    void take(const wchar_t* command, AcDbObjectId id, const wchar_t* to) {
        type({command});
        pick(0, 0, {id});
        type({L"", L"0,0", to});
        if (std::wstring_view(command) == L"_copy") type({L""});
    }
};

/// U at the origin, 2U above it, their dimensions, plates and marks P1, P2 and P3, and the table.
class Planted : public Checked {
public:
    Planted() {
        barra = drawU("l=1000", L"0,0");
        composta = draw2U("fig1", "l=1200", L"0,1000");
        type({L"LISTAMATERIAL", L"", L"0,-500"});
    }
    AcDbObjectId barra;
    AcDbObjectId composta;

    std::vector<AcDbObjectId> records() {
        const auto lists = zp::matlist::materialLists(editor->database());
        return zp::matlist::Book::of(editor->database()).records(lists.front().id);
    }
    AcGePoint3d start() {
        AcGePoint3d p;
        (void)Read<ZpObject>(barra)->StartPoint(p);
        return p;
    }
    AcDbObjectId aCota() { return zp::edit::cotasOf(*Read<ZpObject>(barra).object()).front(); }
    std::vector<AcDbObjectId> chapas() {
        return zp::edit::chapasOf(*Read<ZpObject>(composta).object());
    }
    AcDbObjectId aChapa() { return chapas().front(); }
    /// One with bars of 600, at these x from the first bar's start.
    AcDbObjectId block(const std::vector<double>& xs) {
        AcDbBlockTable* table = nullptr;
        EXPECT_EQ(editor->database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* const block = new AcDbBlockTableRecord;
        (void)block->setName(L"ELEMENTO");
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, block), Acad::eOk);
        (void)table->close();
        for (const double x : xs) {
            auto* const peca =
                new ZpUDobrado(start() + AcGeVector3d(x, 0, 0), ZpObject::kVistaDireita, 200, 75,
                               75, 3, 3, 0.5 * kPi, 0.5 * kPi, 600, 0, 0, 0);
            AcDbObjectId added;
            EXPECT_EQ(block->appendAcDbEntity(added, peca), Acad::eOk);
            (void)peca->close();
        }
        (void)block->close();
        return id;
    }
    void write(const std::function<void(Linha&)>& change) {
        auto row = zp::matlist::storedRow(records().front());
        ASSERT_TRUE(row);
        change(*row);
        EXPECT_TRUE(zp::matlist::rewrite(records().front(), *row));
    }

    struct Case {
        const char* name;
        void (*plant)(Planted&);
        Kinds kinds;
    };
    static const std::vector<Case>& cases();
};

const std::vector<Planted::Case>& Planted::cases() {
    using enum Fault;
    static const std::vector<Case> all = {
        {"nothing", [](Planted&) {}, {}},
        {"the piece of a row erased",
         [](Planted& t) {
             t.type({L"_erase"});
             t.pick(0, 0, {t.barra});
             t.type({L""});
         },
         {RowWithoutPeca}},
        {"a row of another size",
         [](Planted& t) { t.write([](Linha& row) { row.dimensoes = L"200x75x2"; }); },
         {RowSaysOther}},
        {"a row of another number",
         [](Planted& t) { t.write([](Linha& row) { row.quantidade = 7; }); },
         {RowSaysOther}},
        {"a piece that is not what its row is",
         [](Planted& t) {
             const AcDbObjectId other = t.u(0, 5000, 640);
             // Not as a change of the user's, which the lists would follow.
             const zp::matlist::Book::OwnWork own(zp::matlist::Book::of(t.editor->database()));
             t.open<ZpObject>(
                 other, [&](ZpObject& peca) { zp::member::tie(peca, t.records().front(), 0); });
         },
         {RowSaysOther}},
        {"a mark drawn with another text",
         [](Planted& t) {
             t.open<ZpMarca>(t.all<ZpMarca>().front(), [](ZpMarca& m) { m.setMarca(L"P9"); });
         },
         {RowSaysOther}},
        {"the same piece listed again",
         [](Planted& t) { t.drawU("l=1000.3", L"0,5000"); },
         {EqualWithTwoMarcas}},
        {"the same piece as a twin",
         [](Planted& t) {
             t.drawU("l=1000", L"0,5000");
             EXPECT_TRUE(zp::matlist::renameRow(t.records().back(), L"P1E"));
         },
         {}},
        {"another piece under the same mark",
         [](Planted& t) {
             t.drawU("l=700", L"0,5000");
             EXPECT_TRUE(zp::matlist::renameRow(t.records().back(), L"P1"));
         },
         {OneMarcaForTwo}},
        {"a mark moved away",
         [](Planted& t) { t.take(L"_move", t.all<ZpMarca>().front(), L"0,9000"); },
         {MarcaOnNothing}},
        {"a mark moved along its piece",
         [](Planted& t) { t.take(L"_move", t.all<ZpMarca>().front(), L"300,-50"); },
         {}},
        {"a mark without a piece",
         [](Planted& t) {
             t.put(new ZpMarca({0, 0, 0}, {9, 9, 0}, L"P8", 2.5));
         },
         {MarcaOnNothing}},
        {"a piece in no list", [](Planted& t) { t.u(0, 5000, 700); }, {PecaWithoutMarca}},
        {"a piece in no list with another's mark",
         [](Planted& t) {
             t.put(new ZpMarca({0, 5000, 0}, {9, 5009, 0}, L"P1", 2.5, t.u(0, 5000, 700)));
         },
         {OneMarcaForTwo}},
        {"a plate in no list", [](Planted& t) { t.chapa(0, 5000, 50, 100); }, {PecaWithoutMarca}},
        {"plates whose mark was erased",
         [](Planted& t) {
             t.type({L"_erase"});
             t.pick(0, 0, {t.all<ZpMarca>().back()});
             t.type({L""});
         },
         {PecaWithoutMarca}},
        {"a section in no list", [](Planted& t) { t.u(0, 5000, 700, ZpObject::kVistaSecao); }, {}},
        {"a listed piece copied alone",
         [](Planted& t) { t.take(L"_copy", t.barra, L"0,5000"); },
         {PecaWithoutMarca}},
        {"a dimension that measures between edges",
         [](Planted& t) {
             t.open<AcDbAlignedDimension>(t.aCota(), [&](AcDbAlignedDimension& cota) {
                 (void)cota.setXLine1Point(t.start() + AcGeVector3d(333, 40, 0));
             });
         },
         {CotaOfNothing}},
        {"the length of a piece whose ends are cut alike",
         [](Planted& t) {
             t.open<ZpObject>(t.barra, [](ZpObject& peca) {
                 zp::ends::Ends ends = zp::ends::endsOf(zp::Access::of(peca));
                 for (const std::size_t end : {zp::cortes::kStart, zp::cortes::kEnd})
                     ends.cortes[end] = zp::cortes::withAngle(zp::Access::of(peca), end,
                                                              end == zp::cortes::kEnd ? 0.5 : -0.5);
                 zp::ends::move(peca, ends);
             });
         },
         {}},
        {"a dimension of one point", [](Planted& t) { t.cota(5, 5, 5, 5, 9, 9); }, {CotaOfNothing}},
        {"a plate beyond the end",
         [](Planted& t) { t.take(L"_move", t.aChapa(), L"-20,0"); },
         {ChapaOutside}},
        {"a plate beside its member",
         [](Planted& t) { t.take(L"_move", t.aChapa(), L"300,400"); },
         {ChapaOutside}},
        {"a plate erased that a dimension measures to",
         [](Planted& t) {
             const double x = zp::edit::facesOf(*Read<ZpObject>(t.chapas()[2]).object()).f[0].x;
             t.type({L"_erase"});
             for (const AcDbObjectId& id : t.chapas())
                 if (zp::edit::facesOf(*Read<ZpObject>(id).object()).f[0].x == x)
                     t.pick(0, 0, {id});
             t.type({L""});
         },
         {CotaOfNothing}},
        {"a plate drawn twice",
         [](Planted& t) { t.take(L"_copy", t.aChapa(), L"0.4,-0.4"); },
         {ChapasCoincide}},
        {"a view that shows one plane",
         [](Planted& t) { t.draw2U("fig2", "l=1400", L"0,5000"); },
         {OnePlaneOfTwo}},
        {"a bar over the other's end",
         [](Planted& t) { t.u(t.start().x + 1100, t.start().y, 102.5, ZpObject::kVistaSuperior); },
         {PecaWithoutMarca}},
        {"a bar beyond the other's end",
         [](Planted& t) { t.u(t.start().x + 998, t.start().y, 500); },
         {PecaWithoutMarca, BarsOverlap}},
        {"a bar from the other side",
         [](Planted& t) {
             const AcGePoint3d p = t.start();
             t.put(new ZpUDobrado(p + AcGeVector3d(1500, 0, 0), p + AcGeVector3d(998, 0, 0),
                                  ZpObject::kVistaDireita, 200, 75, 75, 3, 3, 0.5 * kPi, 0.5 * kPi,
                                  0, 0));
         },
         {PecaWithoutMarca, BarsOverlap}},
        {"a bar that touches the other's end",
         [](Planted& t) { t.u(t.start().x + 999.5, t.start().y, 500); },
         {PecaWithoutMarca}},
        {"two bars in a block",
         [](Planted& t) {
             (void)t.block({0, 500});
         },
         {PecaWithoutMarca, PecaWithoutMarca, BarsOverlap}},
        {"a table written over",
         [](Planted& t) {
             t.open<AcDbText>(t.all<AcDbText>().back(),
                              [](AcDbText& text) { (void)text.setTextString(L"1"); });
         },
         {TableStale}},
        {"a block with a listed bar, twice as large",
         [](Planted& t) {
             auto* const insertion = new AcDbBlockReference({0, 5000, 0}, t.block({0}));
             (void)insertion->setScaleFactors({2, 2, 2});
             t.put(insertion);
             t.type({L"MARCAS", L"A", L""});
         },
         {BlockScaled}},
        {"a cutting plan of another list",
         [](Planted& t) {
             t.type({L"PLANOCORTE", L"", L"", L"", L"0,-2000"});
             t.drawU("l=700", L"0,5000");
         },
         {TableStale}},
        {"a cutting plan of the list, whose marks changed",
         [](Planted& t) {
             t.type({L"PLANOCORTE", L"", L"", L"", L"0,-2000"});
             EXPECT_TRUE(zp::matlist::renameRow(t.records().front(), L"V7"));
             zp::matlist::settle(t.editor->database());
         },
         {}},
        {"a size that no catalogue has",
         [](Planted& t) {
             t.put(new ZpUDobrado(AcGePoint3d(0, 5000, 0), ZpObject::kVistaSecao, 200, 75, 75, 3.1,
                                  3.1, 0.5 * kPi, 0.5 * kPi, 1000, 0, 0, 0));
         },
         {SizeUnknown}},
        {"a table that changed since, and a piece of before tables were kept",
         [](Planted& t) {
             for (const auto& kept : {std::make_shared<zp::Commercial>(zp::Commercial{
                                          L"W 150 x 13,0", 12.9, {10.0, -1.0, 1660.0}}),
                                      std::make_shared<zp::Commercial>(zp::Commercial{
                                          L"W 150 x 13", 13.0, {10.0, -1.0, 1660.0}}),
                                      std::shared_ptr<zp::Commercial>()}) {
                 auto* const i = new ZpILaminadoUSA(AcGePoint3d(0, 5000, 0), ZpObject::kVistaSecao,
                                                    148, 100, 4.3, 4.9, ZpILaminadoUSA::kAcoMinas,
                                                    0, 0, 1000, 13 * 127.1848, 13);
                 zp::published::keep(*i, kept);
                 t.put(i);
             }
         },
         {TableSaysOther, TableSaysOther}},
    };
    return all;
}

class PlantedCase : public Planted, public testing::WithParamInterface<std::size_t> {};

TEST_P(PlantedCase, IsFoundAndNothingElse) {
    const Case& c = cases()[GetParam()];
    SCOPED_TRACE(c.name);
    c.plant(*this);
    Kinds kinds;
    std::wstring texts;
    for (const zp::matlist::Finding& f : zp::matlist::check(editor->database())) {
        kinds.push_back(f.kind);
        texts += f.text + L"\n";
        EXPECT_EQ(f.severity == protocol::Severity::Hint,
                  f.kind == Fault::SizeUnknown || f.kind == Fault::TableSaysOther);
    }
    EXPECT_EQ(kinds, c.kinds) << testing::PrintToString(texts);
}

INSTANTIATE_TEST_SUITE_P(, PlantedCase, testing::Range<std::size_t>(0, Planted::cases().size()));

TEST_F(Checked, TextsOfCotas) {
    struct Case {
        const wchar_t* text;
        bool wrong;
    };
    // The rotated one measures 1000, too.
    for (const AcDbObjectId& id :
         {cota(0, 0, 1000, 0, 0, 50),
          put(new AcDbRotatedDimension(0.0, AcGePoint3d(0, 900, 0), AcGePoint3d(1000, 1500, 0),
                                       AcGePoint3d(0, 1600, 0)))})
        for (const Case& c : {Case{L"", false},
                              {L"<>", false},
                              {L"<> (999)", false},
                              {L"L=1000 mm", false},
                              {L"2x 1000", false},
                              {L"1.000", false},
                              {L"1000,001", false},
                              {L"VER NOTA", false},
                              {L"\\A1;1000", false},
                              {L"\\H2.5;VER NOTA", false},
                              {L"%%c%%010", false},
                              {L"999", true},
                              {L"1.001", true},
                              {L"1000,01", true},
                              {L"\\A1000;999", true},
                              {L"%%c100", true}}) {
            open<AcDbDimension>(id, [&](AcDbDimension& d) { (void)d.setDimensionText(c.text); });
            EXPECT_EQ(zp::matlist::check(editor->database()).size(), c.wrong ? 1U : 0U)
                << testing::PrintToString(std::wstring(c.text));
            open<AcDbDimension>(id, [&](AcDbDimension& d) { (void)d.setDimensionText(L""); });
        }
}

TEST_F(Checked, SizesAndTheNearestOfTheCatalogues) {
    const AcGePoint3d at;
    const auto kSecao = ZpObject::kVistaSecao;
    const double right = 0.5 * kPi;
    const auto u = [&](double t) {
        return new ZpUDobrado(at, kSecao, 200, 75, 75, t, t, right, right, 1000, 0, 0, 0);
    };
    struct Case {
        ZpObject* peca;
        const wchar_t* nearest;  ///< null: it is in a catalogue
    };
    for (const Case& c :
         {Case{u(3), nullptr},
          {u(3.1), L"U 200x75x3."},
          // The distance of two pieces is nobody's size.
          {new ZpIDobrado(at, kSecao, 200, 75, 75, 3, 3, 31, 1000, 0, 0, 0), nullptr},
          {new ZpIDobrado(at, kSecao, 200, 75, 75, 3.3, 3.3, 31, 1000, 0, 0, 0),
           L"2U ][ 200x75x3,35 a=31."},
          {new ZpTubo(at, at + AcGeVector3d(100, 0, 0), kSecao, 60.3, 52.3), nullptr},
          {new ZpTubo(at, at + AcGeVector3d(100, 0, 0), kSecao, 60, 52), L"TC 60,3x4."},
          // A size of a series counts also where it was typed; its row says 15 kg/m.
          {new ZpISoldado(at, kSecao, 150, 100, 100, 4.75, 6.3, 1000, 0, 0, 0), nullptr},
          {new ZpISoldado(at, kSecao, 150, 100, 100, 4.75, 6.5, 1000, 0, 0, 0), L"VS 150x15."},
          // A web typed over that of IPE 200.
          {new ZpILaminadoUSA(at, kSecao, 200, 100, 7.5, 8.5, ZpILaminadoUSA::ISolType(0), 0, 0,
                              1000, 0, 22.4),
           L"IPE 200."}}) {
        const AcDbObjectId id = put(c.peca);
        const std::vector<zp::matlist::Finding> found = zp::matlist::check(editor->database());
        const std::wstring text = found.empty() ? std::wstring() : found.front().text;
        SCOPED_TRACE(testing::PrintToString(text));
        EXPECT_EQ(found.size(), c.nearest != nullptr ? 1U : 0U);
        EXPECT_TRUE(c.nearest == nullptr ||
                    text.ends_with(L"; a mais próxima é " + std::wstring(c.nearest)));
        change(id, [](ZpObject& peca) { EXPECT_EQ(peca.erase(), Acad::eOk); });
    }
}

TEST_F(Planted, ARowThatIsWrongFollowsAnEdit) {
    write([](Linha& row) { row.dimensoes = L"200x75x2"; });
    ui.keys = {"accept"};
    type({L"EDITAPERFIL"});
    pick(0, 0, {barra});
    EXPECT_TRUE(zp::matlist::check(editor->database()).empty());
}

TEST_F(Planted, ChapasThatComeBackHaveTheirRowAndTheirMarca) {
    const AcDbObjectId marca = all<ZpMarca>().back();
    const AcDbObjectId pointedAt = Read<ZpMarca>(marca)->peca();
    const AcGePoint3d tip = Read<ZpMarca>(marca)->tip();
    const std::wstring text = Read<ZpMarca>(marca)->marca();
    const auto erase = [&](const std::vector<AcDbObjectId>& picked) {
        type({L"_erase"});
        pick(0, 0, picked);
        type({L""});
    };
    erase({pointedAt});
    EXPECT_NE(Read<ZpMarca>(marca)->peca(), pointedAt);
    type({L"_oops"});
    EXPECT_EQ(Read<ZpMarca>(marca)->peca(), pointedAt);
    EXPECT_TRUE(Read<ZpMarca>(marca)->tip().isEqualTo(tip));

    erase(chapas());
    ui.keys = {"travejar", "accept", "accept"};
    type({L"EDITAPERFIL"});
    pick(0, 0, {composta});
    EXPECT_EQ(zp::matlist::marcaOf(zp::matlist::recordOf(chapas().front())), text);
    EXPECT_EQ(records().size(), 3u);
    EXPECT_TRUE(zp::matlist::check(editor->database()).empty());
}

TEST_F(Planted, GroupingKeepsTwinsApart) {
    type({L"_mirror"});
    pick(0, 0, {barra});
    type({L"", L"0,-400", L"10,-400", L"", L"MARCAS", L"R", L"1", L"", L"Sim"});
    const AcDbObjectId mirrored = all<ZpUDobrado>().back();
    const std::wstring marca = zp::matlist::marcaOf(zp::matlist::recordOf(barra));
    const auto twin = [&] { return zp::matlist::marcaOf(zp::matlist::recordOf(mirrored)); };
    ASSERT_EQ(twin(), marca + L"E");
    type({L"MARCAS", L"A", L""});
    EXPECT_EQ(twin(), marca + L"E");
    EXPECT_EQ(zp::matlist::marcaOf(zp::matlist::recordOf(barra)), marca);
}

TEST_F(Checked, TheLinesSayWhereAndWhatToDo) {
    type({L"CONFERIR"});
    EXPECT_TRUE(said(L"\nNenhuma falha encontrada.\n"));
    // Without a list nobody has to mark anything.
    const AcDbObjectId bar = u(0, 0, 500);
    type({L"_CONFERIR"});
    ACHAR handle[17];
    bar.handle().getIntoAsciiBuffer(handle);
    EXPECT_TRUE(said(L"\naviso: [" + std::wstring(handle) +
                     L"] (sem marca): a peça U 200x75x3, 500 mm não tem marca. Marque-a com MARCAS "
                     L"Agrupar.\nNenhuma falha encontrada; 1 aviso.\n"));
    draw2U("fig2", "l=1400", L"0,5000");
    ui.printed.clear();
    type({L"CONFERIR"});
    EXPECT_TRUE(said(L"] P2: a vista mostra um plano de chapas; a peça tem dois. "));
    EXPECT_TRUE(said(L"\n2 falhas.\n"));  // the bar, too: there is a list now
}

/// Outline that stands on CORTE of a file, mm; texts on GRAVACAO and NOTA.
struct Cut {
    double length = 0.0;
    double width = 0.0;
    std::wstring engraved;
    std::wstring note;
};
Cut readCut(const std::filesystem::path& file) {
    AcDbDatabase drawing(false, true);
    EXPECT_EQ(drawing.dxfIn(file.wstring().c_str()), Acad::eOk) << file;
    Cut cut;
    for (const AcDbObjectId& id : drawing.core().modelSpace()) {
        const Read<AcDbEntity> entity(id);
        const std::wstring layer = entity->layer();
        const auto* text = AcDbText::cast(entity.object());
        if (text != nullptr) (layer == L"NOTA" ? cut.note : cut.engraved) = text->textStringConst();
        AcDbExtents box;
        if (layer != L"CORTE" || entity->getGeomExtents(box) != Acad::eOk) continue;
        EXPECT_EQ(cut.length, 0.0) << "one outline";
        cut.length = box.maxPoint().x - box.minPoint().x;
        cut.width = box.maxPoint().y - box.minPoint().y;
    }
    return cut;
}

TEST_F(Planted, WhatIsCutFromSheetsGoesToTheShopWhenNothingIsFoundInIt) {
    ui.mayComplain = true;
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(testing::TempDir()) / ("corte-" + std::to_string(getpid()));
    const std::wstring typed = folder.wstring();
    // P1 is found without a mark; a bar that is in no list is none of the shop's.
    u(0, 8000, 500);
    take(L"_copy", barra, L"0,3000");
    type({L"EXPORTAR", L"h"});
    EXPECT_TRUE(said(L"P1: CONFERIR aponta 1 falha nestas pe\u00E7as; nada foi gravado."));
    type({L"_u"});
    type({L"EXPORTAR", L"h", L"", typed.c_str()});
    EXPECT_TRUE(said(L"3 marcas, "));
    // Flats 69 + 188 + 69 and two quarters of mean radius 4.5.
    const double strip = 69 + 188 + 69 + 4.5 * kPi;
    const auto chapas = static_cast<long long>(this->chapas().size());
    const Read<ZpObject> chapa(aChapa());
    const struct {
        const wchar_t* marca;
        double length, width;
        std::wstring count;
    } parts[] = {
        {L"P1", 1000, strip, L"P1: 1 x chapa 3 x 340,1 x 1000"},
        {L"P2", 1200, strip, L"P2: 2 x chapa 3 x 340,1 x 1200"},
        {L"P3", chapa->getComprimentoReal(), 50, L"P3: " + std::to_wstring(chapas) + L" x chapa "}};
    for (const auto& part : parts) {
        const Cut cut = readCut(folder / (std::wstring(part.marca) + L".dxf"));
        EXPECT_EQ(cut.engraved, part.marca);
        EXPECT_EQ(cut.note.substr(0, part.count.size()), part.count);
        EXPECT_NEAR(cut.length, part.length, 1e-3);
        EXPECT_NEAR(cut.width, part.width, 1e-3);
    }
    // What is forced is written whatever is found; what stands there is asked about.
    take(L"_copy", barra, L"0,3000");
    type({L"EXPORTAR", L"_Forcar", L"h", L"", typed.c_str(), L"Sim"});
    EXPECT_EQ(readCut(folder / "P1.dxf").note.substr(0, 9), L"P1: 2 x c");
    const std::wstring table = (folder / "conferencia.csv").wstring();
    type({L"EXPORTAR", L"_Check", table.c_str()});
    std::ifstream read(folder / "conferencia.csv", std::ios::binary);
    const std::string csv{std::istreambuf_iterator<char>(read), {}};
    EXPECT_EQ(std::ranges::count(csv, '\n'), 1 + 2) << csv;  // the copy, and what is in no list
    EXPECT_NE(csv.find("\r\nfalha;P1;"), std::string::npos);
    fs::remove_all(folder);
}

}  // namespace
