// SPDX-License-Identifier: MIT
// The panel of the material lists.
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

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
};

/// What a module reports of a drawing; other values stand before, between and after.
class Report : public protocol::DrawingReport {
public:
    const protocol::ListSchema& schema() const override {
        static const std::array<protocol::ListColumn, 7> columns{
            {{L"marca", L"Marca", L"", L"", -1, 9, false},
             {L"quantidade", L"Quant.", L"", L"", 0, 9, false},
             {L"descricao", L"Descrição", L"", L"", -1, 16, false},
             {L"comprimento", L"Compr.", L"", L"mm", 1, 13, false},
             {L"peso_unitario", L"Peso unit.", L"", L"kg", 2, 16, false},
             {L"peso_total", L"Peso total", L"", L"kg", 2, 17, true},
             {L"area_pintura", L"Pintura", L"", L"m²", 3, 14, true}}};
        static const std::array<protocol::ListFormat, 2> formats{
            {{L"Csv", L"CSV", L"csv"}, {L"Txt", L"texto", L"txt"}}};
        static const protocol::ListSchema schema{L"LISTAMATERIAL", L"Table", columns, formats};
        return schema;
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
            v.text(L"marca", piece.mark);
            v.integer(L"quantidade", 2);
            v.text(L"descricao", L"Perfil\tU");
            v.number(L"comprimento", 1500.25);
            v.number(L"peso_unitario", piece.mass / 2.0);
            v.number(L"peso_total", piece.mass);
            v.number(L"area_pintura", piece.paint);
            v.integer(L"lista", piece.list);
            v.text(L"grupo", piece.list == 1 ? L"Perfil" : L"Treliça");
            v.integer(L"apagada", piece.erased ? 1 : 0);
            v.beginList(L"ids");
            for (const AcDbObjectId& id : piece.ids) v.object(nullptr, id);
            v.endList();
            v.beginList(L"pecas");
            for (const AcDbObjectId& id : piece.pieces) v.object(nullptr, id);
            v.endList();
            v.endGroup();
        }
        v.endList();
    }
    std::vector<Piece> pieces;
};

class MaterialList : public PanelTest {
protected:
    MaterialList() {
        acrxSysRegistry()->atPut(protocol::kDrawingReportKey, &report);
        type({L"_line", L"0,0", L"9,0", L"9,9", L"0,9", L""});
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
    EXPECT_EQ(totals(), "Total: 124,50 kg   2,75 m²");
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
                     {L"P3", 1, 1.0, 1.0, false, {lines[0]}, {lines[2]}}};
    openPanel();
    EXPECT_TRUE(editor->selection().empty());
    click(view, view->model()->index(0, 2));
    EXPECT_EQ(editor->selection().ids(), std::vector{lines[0]});
    click(view, view->model()->index(1, 2), Qt::ControlModifier);
    EXPECT_EQ(editor->selection().ids(), (std::vector{lines[0], lines[2]}));
    EXPECT_EQ(changes->count(), 2);
    // The piece is meant, not its mark; and again after Esc in the drawing.
    for (int i = 0; i < 2; ++i) {
        click(view, view->model()->index(2, 2));
        EXPECT_EQ(editor->selection().ids(), std::vector{lines[2]});
        editor->selection().clear();
    }
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
    EXPECT_EQ(view->model()->headerData(6, Qt::Horizontal).toString(),
              QString::fromUtf8("Pintura (m²)"));
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
