// SPDX-License-Identifier: MIT
// The panel of the material lists.
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

#include "acutmem.h"
#include "protocol/report.h"
#include "rxdict.h"
#include "tests/desktop/panels_fixture.h"

namespace panels {
namespace {

struct Piece {
    const wchar_t* mark;
    int list;
    double mass;
    double paint;
    bool erased;
    std::vector<AcDbObjectId> ids;
    std::vector<AcDbObjectId> pieces = {};
    std::vector<AcDbObjectId> views = {};
    std::wstring remark = {};
};

/// What a module reports of a drawing; other values stand before, between and after.
class Report : public protocol::DrawingReport {
public:
    const protocol::ListSchema& schema() const override {
        static const std::array<protocol::ListColumn, 9> columns{
            {{L"observacao", L"Obs.", L"", L"", -1, 9, false, true, true},
             {L"marca", L"Marca", L"", L"", -1, 9, false},
             {L"quantidade", L"Quant.", L"", L"", 0, 9, false},
             {L"descricao", L"Descrição", L"", L"", -1, 16, false},
             {L"comprimento", L"Compr.", L"", L"mm", 1, 13, false},
             {L"peso_unitario", L"Peso unit.", L"", L"kg", 2, 16, false},
             {L"peso_total", L"Peso total", L"", L"kg", 2, 17, true},
             {L"area_pintura", L"Pintura", L"", L"m²", 3, 14, true},
             {L"peso_liquido", L"Líquido", L"", L"kg", 2, 14, true}}};
        static const std::array<protocol::ListFormat, 2> formats{
            {{L"Csv", L"CSV", L"csv"}, {L"Txt", L"texto", L"txt"}}};
        static constexpr std::array shown{L"marca",       L"quantidade",  L"descricao",
                                          L"comprimento", L"falta",       L"peso_unitario",
                                          L"peso_total",  L"area_pintura"};
        static const protocol::ListSchema schema{L"LISTAMATERIAL", L"Table", columns, formats,
                                                 shown};
        return schema;
    }
    int drawTablesAgain(AcDbDatabase&) const override { return 0; }
    bool drawTables(AcDbDatabase&, const protocol::TablePlace&, AcDbObjectIdArray&) const override {
        return true;
    }
    void describe(AcDbDatabase&, protocol::PropertyVisitor&) const override {
        ADD_FAILURE() << "the panel shows what is printed";
    }
    void describePrinted(AcDbDatabase&, protocol::PropertyVisitor& v) const override {
        v.integer(L"lista", 77);
        v.beginList(L"outra");
        v.beginGroup(nullptr);
        v.text(L"marca", L"nenhuma");
        v.endGroup();
        v.endList();
        v.beginList(L"lista_material");
        for (const Piece& piece : pieces) {
            v.beginGroup(nullptr);
            v.text(L"observacao", piece.remark.c_str());
            if (!piece.ids.empty()) v.object(protocol::kRowKey, piece.ids.front());
            v.text(L"marca", piece.mark);
            v.integer(L"quantidade", 2);
            v.text(L"descricao", L"Perfil\tU");
            v.number(L"comprimento", 1500.25);
            v.number(L"peso_unitario", piece.mass / 2.0);
            v.number(L"peso_total", piece.mass);
            v.number(L"area_pintura", piece.paint);
            // One of them has cut ends.
            v.number(L"peso_liquido",
                     piece.mass - (std::wstring(piece.mark) == L"P10" ? 1.0 : 0.0));
            v.integer(L"lista", piece.list);
            v.text(L"grupo", piece.list == 1 ? L"Perfil" : L"Treliça");
            v.integer(L"apagada", piece.erased ? 1 : 0);
            v.beginList(L"ids");
            for (const AcDbObjectId& id : piece.ids) v.object(nullptr, id);
            v.endList();
            v.beginList(L"pecas");
            for (const AcDbObjectId& id : piece.pieces) v.object(nullptr, id);
            v.endList();
            v.beginList(L"vistas");
            for (const AcDbObjectId& id : piece.views) v.object(nullptr, id);
            v.endList();
            v.endGroup();
        }
        v.endList();
    }
    /// Takes remarks, and paints what the row is known by.
    bool set(AcDbObjectId row, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        AcDbObjectPointer<AcDbEntity> entity(row, AcDb::kForWrite);
        EXPECT_EQ(entity->setColorIndex(1), Acad::eOk);
        if (std::wstring_view(value) == L"não") {
            EXPECT_EQ(acutNewString(L"Isto não.", message), Acad::eOk);
            return false;
        }
        EXPECT_EQ(std::wstring(key), L"observacao");
        const auto same = [&](const Piece& p) { return !p.ids.empty() && p.ids.front() == row; };
        std::ranges::find_if(pieces, same)->remark = value;
        return true;
    }
    mutable std::vector<Piece> pieces;
};

class MaterialList : public PanelTest {
protected:
    MaterialList() {
        acrxSysRegistry()->atPut(protocol::kDrawingReportKey, &report);
        type({L"_line", L"0,0", L"9,0", L"9,9", L"0,9", L"0,5", L""});
        lines = entities();
    }
    ~MaterialList() override {
        panel.reset();
        acrxSysRegistry()->remove(protocol::kDrawingReportKey);
    }
    void openPanel() {
        open(prancheta::desktop::makeMaterialPanel());
        view = find<QTableView>("lista_material");
    }
    std::string totals() { return find<QLabel>("totais")->text().toStdString(); }
    void press(const char* button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    std::string text(int row, int column) {
        return view->model()->index(row, column).data().toString().toStdString();
    }

    /// Clicks the title in the menu of the columns.
    void chooseColumn(const char* title) {
        QHeaderView* const head = view->horizontalHeader();
        emit head->customContextMenuRequested(QPoint(5, 5));
        auto* const menu = panel->findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        for (QAction* const entry : menu->actions())
            if (entry->text() == QString::fromUtf8(title)) entry->trigger();
        menu->close();
        settle();
    }

    Report report;
    std::vector<AcDbObjectId> lines;
    QTableView* view = nullptr;
};

TEST_F(MaterialList, RowsAndTotalsOfWhatCounts) {
    report.pieces = {{L"P2", 1, 100.5, 2.25, false, {}},
                     {L"P10", 1, 24.0, 0.5, false, {}},
                     {L"P1", 1, 1000.0, 9.0, true, {}}};
    openPanel();
    ASSERT_EQ(view->model()->rowCount(), 3);
    EXPECT_EQ(text(0, 0), "P2");
    EXPECT_EQ(text(0, 3), "1500,2");
    EXPECT_EQ(text(0, 5), "100,50");
    EXPECT_EQ(text(1, 6), "0,500");
    EXPECT_EQ(totals(), "Total: 124,50 kg   2,75 m²   Líquido 123,50 kg");
    EXPECT_FALSE(find<QComboBox>("lista")->isVisible());
    view->sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(text(0, 0) + text(1, 0) + text(2, 0), "P1P2P10");
    view->sortByColumn(5, Qt::DescendingOrder);
    EXPECT_EQ(text(0, 0) + text(1, 0) + text(2, 0), "P1P2P10");
    find<QLineEdit>("busca")->setText("p2");
    EXPECT_EQ(view->model()->rowCount(), 1);
    EXPECT_EQ(totals(), "Total: 100,50 kg   2,25 m²");
}

TEST_F(MaterialList, RowsSelectTheirPieces) {
    {
        AcDbObjectPointer<AcDbEntity> gone(lines[1], AcDb::kForWrite);
        ASSERT_EQ(gone->erase(), Acad::eOk);
    }
    report.pieces = {{L"P1", 1, 1.0, 1.0, false, {lines[0], lines[1]}},
                     {L"P2", 1, 1.0, 1.0, false, {lines[2], lines[0]}},
                     {L"P3", 1, 1.0, 1.0, false, {lines[0]}, {lines[2]}, {lines[1], lines[3]}}};
    openPanel();
    EXPECT_TRUE(editor->selection().empty());
    click(view, view->model()->index(0, 2));
    EXPECT_EQ(editor->selection().ids(), std::vector{lines[0]});
    click(view, view->model()->index(1, 2), Qt::ControlModifier);
    EXPECT_EQ(editor->selection().ids(), (std::vector{lines[0], lines[2]}));
    EXPECT_EQ(changes->count(), 2);
    // The pieces are meant, further views too, not the mark; and again after Esc in the drawing.
    for (int i = 0; i < 2; ++i) {
        click(view, view->model()->index(2, 2));
        EXPECT_EQ(editor->selection().ids(), (std::vector{lines[2], lines[3]}));
        editor->selection().clear();
    }
}

TEST_F(MaterialList, PiecesAndMarksMarkTheirRows) {
    for (int i = 0; i < 300; ++i)
        report.pieces.push_back({L"P", 1, 1.0, 1.0, false, {}, {}, {}, std::to_wstring(i)});
    report.pieces[40] = {L"P40", 1, 1.0, 1.0, false, {lines[0]}, {}, {lines[1]}};
    report.pieces[200] = {L"P200", 1, 1.0, 1.0, false, {}, {lines[2]}};
    openPanel();
    view->sortByColumn(1, Qt::AscendingOrder);
    const auto marked = [&] {
        std::set<std::string> marks;
        for (const QModelIndex& row : view->selectionModel()->selectedRows())
            marks.insert(row.data().toString().toStdString());
        return marks;
    };
    for (const auto& [line, mark] :
         std::map<int, std::string>{{0, "P40"}, {1, "P40"}, {2, "P200"}}) {
        select({lines[static_cast<std::size_t>(line)], lines[3]});
        EXPECT_EQ(marked(), std::set{mark}) << line;
        const QModelIndex row = view->selectionModel()->selectedRows().front();
        EXPECT_TRUE(view->viewport()->rect().intersects(view->visualRect(row))) << mark;
    }
    type({L"_circle", L"0,0", L"5"});
    select({lines[0], lines[2]});
    EXPECT_EQ(marked(), (std::set<std::string>{"P200", "P40"})) << "read again, marked again";
    EXPECT_EQ(editor->selection().ids(), (std::vector{lines[0], lines[2]}));
    select({});
    EXPECT_TRUE(marked().empty());
    EXPECT_EQ(changes->count(), 0) << "the drawing chose, not the panel";
}

TEST_F(MaterialList, RemarksAreEditedInPlace) {
    report.pieces = {{L"P1", 1, 1.0, 1.0, false, {lines[0]}},
                     {L"P2", 1, 1.0, 1.0, false, {lines[1]}},
                     {L"P3", 1, 1.0, 1.0, true, {lines[2]}}};
    openPanel();
    constexpr int kRemark = 7;
    ASSERT_TRUE(view->isColumnHidden(kRemark)) << "not among those that are shown at first";
    chooseColumn("Obs.");
    ASSERT_FALSE(view->isColumnHidden(kRemark));
    const auto red = [&](int line) {
        return tests::Read<AcDbEntity>(lines[static_cast<std::size_t>(line)])->colorIndex() == 1;
    };
    const std::size_t before = steps();
    for (const int row : {0, 1}) {
        const QModelIndex cell = view->model()->index(row, kRemark);
        click(view, cell);
        if (row == 0)
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {},
                               view->visualRect(cell).center());
        else
            QTest::keyClick(view, Qt::Key_F2);
        typeInPlace(view, "galvanizar");
        EXPECT_EQ(text(row, kRemark), "galvanizar");
        EXPECT_TRUE(red(row));
        EXPECT_EQ(view->currentIndex(), view->model()->index(row, kRemark)) << "it stays there";
    }
    EXPECT_EQ(steps(), before + 2);
    undo();
    EXPECT_FALSE(red(1));
    // Enter; refused: told, nothing changed, no step.
    click(view, view->model()->index(1, kRemark));
    QTest::keyClick(view, Qt::Key_Return);
    typeInPlace(view, "não");
    EXPECT_EQ(messages, QStringList{"Obs.: Isto não."});
    EXPECT_EQ(text(1, kRemark), "galvanizar");
    EXPECT_FALSE(red(1));
    EXPECT_EQ(steps(), before + 1);
    // Neither other columns nor what was erased.
    for (const auto& [at, column] : std::vector<std::pair<int, int>>{{0, 1}, {2, kRemark}})
        EXPECT_FALSE(view->model()->index(at, column).flags() & Qt::ItemIsEditable);
}

TEST_F(MaterialList, LongListsAreQuick) {
    for (int i = 50000; i > 0; --i)
        report.pieces.push_back({L"", 1, 1.0, 1.0, false, {}, {}, {}, L"P" + std::to_wstring(i)});
    for (std::size_t i = 0; i < lines.size(); ++i) report.pieces[1000 * i].ids = {lines[i]};
    QElapsedTimer clock;
    clock.start();
    openPanel();
    view->sortByColumn(7, Qt::AscendingOrder);
    EXPECT_EQ(text(1, 7), "P2");
    view->selectAll();
    select(lines);
    find<QLineEdit>("busca")->setText("p4999");
    EXPECT_EQ(view->model()->rowCount(), 11);
    RecordProperty("rows_50000_ms", static_cast<int>(clock.elapsed()));
    // Ten times what it takes; what is quadratic takes minutes.
    EXPECT_LT(clock.elapsed(), 10000);
}

TEST_F(MaterialList, LookingForRowsSelectsNothing) {
    report.pieces = {{L"P1", 1, 1.0, 1.0, false, {lines[0]}},
                     {L"P2", 2, 1.0, 1.0, false, {lines[1]}}};
    openPanel();
    for (const auto& look : std::initializer_list<std::function<void()>>{
             [&] { find<QLineEdit>("busca")->setText("P2"); },
             [&] { find<QComboBox>("lista")->setCurrentIndex(2); }}) {
        find<QLineEdit>("busca")->clear();
        click(view, view->model()->index(0, 0));
        ASSERT_EQ(editor->selection().ids(), std::vector{lines[0]});
        look();
        ASSERT_EQ(view->model()->rowCount(), 1);
        EXPECT_EQ(editor->selection().ids(), std::vector{lines[0]});
    }
}

TEST_F(MaterialList, FollowsTheDrawingAndUpdatesOnDemand) {
    openPanel();
    EXPECT_EQ(view->model()->rowCount(), 0);
    report.pieces = {{L"P1", 1, 1.0, 1.0, false, {}}};
    panel->refresh();
    EXPECT_EQ(view->model()->rowCount(), 0) << "read again though the drawing is the same";
    press("atualizar");
    EXPECT_EQ(view->model()->rowCount(), 1);
    report.pieces.push_back({L"P2", 1, 1.0, 1.0, false, {}});
    type({L"_line", L"0,0", L"5,5", L""});
    panel->refresh();
    EXPECT_EQ(view->model()->rowCount(), 2);
    // The module goes, and what it told of its columns with it.
    acrxSysRegistry()->remove(protocol::kDrawingReportKey);
    EXPECT_EQ(view->model()->headerData(6, Qt::Horizontal).toString(), QString::fromUtf8("m²"));
    press("atualizar");
    EXPECT_EQ(view->model()->columnCount(), 0);
    EXPECT_EQ(totals(), "Total: ");
    press("tabela");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(messages.size(), 1);
    EXPECT_EQ(panel->findChild<QPushButton*>("csv"), nullptr);
    acrxSysRegistry()->atPut(protocol::kDrawingReportKey, &report);
}

TEST_F(MaterialList, SeveralLists) {
    report.pieces = {{L"P1", 1, 10.0, 1.0, false, {}}, {L"P1", 3, 5.0, 0.5, false, {}}};
    openPanel();
    auto* list = find<QComboBox>("lista");
    ASSERT_TRUE(list->isVisible());
    EXPECT_EQ(list->itemText(2), "3: Treliça");
    press("tabela");
    // Without a choice the command asks which one; a file is not begun without one.
    EXPECT_EQ(commands, QStringList{"LISTAMATERIAL _Table"});
    press("csv");
    EXPECT_EQ(messages.size(), 1);
    list->setCurrentIndex(2);
    EXPECT_EQ(view->model()->rowCount(), 1);
    EXPECT_EQ(totals(), "Total: 5,00 kg   0,50 m²");
    press("tabela");
    EXPECT_EQ(commands.back(), "LISTAMATERIAL _Table\n3");
}

TEST_F(MaterialList, CopiesRowsForASpreadsheet) {
    report.pieces = {{L"P1", 1, 10.0, 1.0, false, {}}, {L"P2", 1, 5.0, 0.5, false, {}}};
    openPanel();
    click(view, view->model()->index(1, 0));
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    const QStringList copied = QGuiApplication::clipboard()->text().split('\n');
    ASSERT_EQ(copied.size(), 3);
    EXPECT_EQ(copied[0].split('\t').back(), QString::fromUtf8("Pintura (m²)"));
    EXPECT_EQ(find<QPushButton>("txt")->text(), QString::fromUtf8("texto…"));
    EXPECT_EQ(copied[1], QString::fromUtf8("P2\t2\tPerfil U\t1500,2\t2,50\t5,00\t0,500"));
}

}  // namespace
}  // namespace panels
