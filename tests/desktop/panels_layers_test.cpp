// SPDX-License-Identifier: MIT
// The panel of layers: what clicks and names do to the drawing.
#include <QElapsedTimer>
#include <QTableView>
#include <QToolButton>
#include <QWindow>

#include "prancheta/desktop/panels/color_popup.h"
#include "prancheta/desktop/panels/layer_model.h"
#include "tests/desktop/panels_fixture.h"

namespace panels {
namespace {

using prancheta::desktop::ColorPopup;
using Column = prancheta::desktop::LayerModel::Column;
using Record = AcDbLayerTableRecord;

class Layers : public PanelTest {
protected:
    void openWith(const wchar_t* names) {
        type({L"_-layer", L"_n", names, L""});
        open(prancheta::desktop::makeLayersPanel());
        view = find<QTableView>("camadas");
    }
    AcDbObjectId layerId(const wchar_t* name) {
        AcDbLayerTable* table = nullptr;
        AcDbObjectId id;
        if (editor->database().getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return id;
        if (table->getAt(name, id) != Acad::eOk) id.setNull();
        (void)table->close();
        return id;
    }
    template <class F>
    auto of(const wchar_t* name, F f) {
        const builtin::Read<Record> layer(layerId(name));
        return (layer.object()->*f)();
    }
    QModelIndex cell(const char* name, int column) {
        return cellOf(view, QString::fromUtf8(name), Column::Name).siblingAtColumn(column);
    }
    void selectRow(const char* name, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        click(view, cell(name, Column::Name), keys);
    }
    void press(const char* button) { QTest::mouseClick(find<QToolButton>(button), Qt::LeftButton); }
    /// The n-th of the large boxes with which the popup begins.
    void pickStandardColor(int n) {
        auto* popup = panel->findChild<ColorPopup*>();
        ASSERT_NE(popup, nullptr);
        QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier, QPoint(8 + (n - 1) * 24 + 10, 18));
    }

    QTableView* view = nullptr;
};

TEST_F(Layers, AColourGoesToAllSelectedLayersAsOneStep) {
    openWith(L"Perfis,Cotas,Chapas");
    const std::size_t before = steps();
    selectRow("Perfis");
    selectRow("Cotas", Qt::ControlModifier);
    click(view, cell("Cotas", Column::Color));
    pickStandardColor(5);
    EXPECT_EQ(of(L"Perfis", &Record::colorIndex), 5);
    EXPECT_EQ(of(L"Cotas", &Record::colorIndex), 5);
    EXPECT_EQ(of(L"Chapas", &Record::colorIndex), 7);
    EXPECT_EQ(cell("Perfis", Column::Color).data().toString(), "azul");
    EXPECT_EQ(changes->count(), 1);
    EXPECT_EQ(steps(), before + 1);
    undo();
    EXPECT_EQ(of(L"Perfis", &Record::colorIndex), 7);
    EXPECT_EQ(of(L"Cotas", &Record::colorIndex), 7);
    EXPECT_EQ(cell("Perfis", Column::Color).data().toString(), "branco");
}

TEST_F(Layers, ColoursStayOnTheScreen) {
    openWith(L"Perfis");
    const QRect screen = panel->screen()->availableGeometry();
    panel->move(screen.bottomRight() - QPoint(400, 60));
    click(view, cell("Perfis", Column::Color));
    auto* const popup = panel->findChild<ColorPopup*>();
    ASSERT_NE(popup, nullptr);
    EXPECT_TRUE(screen.contains(QRect(popup->windowHandle()->framePosition(), popup->size())));
    popup->close();
}

TEST_F(Layers, StatesByAClick) {
    openWith(L"Perfis,Cotas");
    selectRow("0");
    selectRow("Perfis", Qt::ControlModifier);
    // The current layer stays thawed; the other one does not suffer for it.
    click(view, cell("Perfis", Column::Freeze));
    EXPECT_FALSE(of(L"0", &Record::isFrozen));
    EXPECT_TRUE(of(L"Perfis", &Record::isFrozen));
    EXPECT_TRUE(said(L"Não é possível congelar a camada \"0\"."));
    // A click outside the selection is about that row alone.
    click(view, cell("Cotas", Column::On));
    click(view, cell("Cotas", Column::Lock));
    EXPECT_TRUE(of(L"Cotas", &Record::isOff) && of(L"Cotas", &Record::isLocked));
    EXPECT_FALSE(of(L"Perfis", &Record::isOff) || of(L"0", &Record::isLocked));
    // What is drawn on the current layer would be missed.
    EXPECT_FALSE(said(L"é a atual"));
    click(view, cell("0", Column::On));
    EXPECT_TRUE(of(L"0", &Record::isOff));
    EXPECT_TRUE(said(L"A camada \"0\" é a atual"));
    click(view, cell("Perfis", Column::Freeze));
    EXPECT_FALSE(of(L"Perfis", &Record::isFrozen));
}

TEST_F(Layers, ADoubleClickMakesCurrentButNotAFrozenLayer) {
    openWith(L"Perfis,Fria");
    type({L"_-layer", L"_f", L"Fria", L""});
    panel->refresh();
    const auto twice = [&](const char* name) {
        const QPoint at = view->visualRect(cell(name, Column::Name)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    };
    twice("Perfis");
    EXPECT_EQ(editor->variables().text(L"CLAYER"), L"Perfis");
    const std::size_t before = steps();
    twice("Fria");
    EXPECT_EQ(editor->variables().text(L"CLAYER"), L"Perfis");
    EXPECT_TRUE(said(L"Uma camada congelada não pode ser a atual."));
    EXPECT_EQ(steps(), before);
}

TEST_F(Layers, ANewLayerIsNamedInPlace) {
    openWith(L"Camada1");
    press("nova");
    EXPECT_FALSE(layerId(L"Camada2").isNull());
    typeInPlace(view, "Contraventamento");
    EXPECT_FALSE(layerId(L"Contraventamento").isNull());
    EXPECT_TRUE(layerId(L"Camada2").isNull());
    const auto rename = [&](const char* from, const char* to) {
        view->setCurrentIndex(cell(from, Column::Name));
        view->edit(cell(from, Column::Name));
        typeInPlace(view, to);
    };
    rename("Contraventamento", "a|b");
    rename("Contraventamento", "CAMADA1");
    rename("0", "Zero");
    EXPECT_FALSE(layerId(L"Contraventamento").isNull());
    EXPECT_FALSE(layerId(L"0").isNull());
    EXPECT_TRUE(layerId(L"Zero").isNull());
    EXPECT_TRUE(said(L"A camada não pode ter o nome \"a|b\"."));
    EXPECT_TRUE(said(L"A camada \"0\" não pode ser renomeada."));
    EXPECT_TRUE(cell("Contraventamento", Column::Name).isValid());
}

TEST_F(Layers, OnlyUnusedLayersGo) {
    type({L"_-layer", L"_n", L"Livre,EmUso,NoBloco", L"_s", L"EmUso", L"", L"_line", L"0,0", L"9,0",
          L""});
    AcDbObjectId blockId;
    {
        AcDbBlockTable* table = nullptr;
        ASSERT_EQ(editor->database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* block = new AcDbBlockTableRecord;
        ASSERT_EQ(block->setName(L"Peca"), Acad::eOk);
        ASSERT_EQ(table->add(blockId, block), Acad::eOk);
        auto* line = new AcDbLine({0, 0, 0}, {1, 0, 0});
        ASSERT_EQ(block->appendAcDbEntity(line), Acad::eOk);
        EXPECT_EQ(line->setLayer(L"NoBloco"), Acad::eOk);
        (void)line->close();
        (void)block->close();
        (void)table->close();
    }
    type({L"_-layer", L"_s", L"0", L""});
    open(prancheta::desktop::makeLayersPanel());
    view = find<QTableView>("camadas");
    view->selectAll();
    press("excluir");
    EXPECT_TRUE(layerId(L"Livre").isNull());
    for (const wchar_t* name : {L"0", L"EmUso", L"NoBloco"}) EXPECT_FALSE(layerId(name).isNull());
    EXPECT_TRUE(said(L"A camada \"NoBloco\" não foi excluída"));
    EXPECT_EQ(view->model()->rowCount(), 3);
    undo();
    EXPECT_FALSE(layerId(L"Livre").isNull());
    EXPECT_EQ(view->model()->rowCount(), 4);
}

TEST_F(Layers, NothingChangesWhileACommandWaits) {
    openWith(L"Perfis");
    type({L"_line", L"0,0"});
    ASSERT_TRUE(editor->runner().active());
    click(view, cell("Perfis", Column::On));
    press("nova");
    EXPECT_FALSE(of(L"Perfis", &Record::isOff));
    EXPECT_TRUE(layerId(L"Camada1").isNull());
    EXPECT_EQ(messages.size(), 2);
    EXPECT_EQ(changes->count(), 0);
}

TEST_F(Layers, SearchAndOrderOfAThousand) {
    std::wstring names = L"P0";
    for (int i = 1; i < 1000; ++i) names += L",P" + std::to_wstring(i);
    openWith(names.c_str());
    const auto name = [&](int row) {
        return view->model()->index(row, Column::Name).data().toString();
    };
    ASSERT_EQ(view->model()->rowCount(), 1001);
    // By number, not by letter.
    EXPECT_EQ(name(0), "0");
    EXPECT_EQ(name(3), "P2");
    EXPECT_EQ(name(11), "P10");
    find<QLineEdit>("busca")->setText(QStringLiteral("p99"));
    EXPECT_EQ(view->model()->rowCount(), 11);
    find<QLineEdit>("busca")->clear();

    QElapsedTimer clock;
    clock.start();
    view->selectAll();
    click(view, cell("P500", Column::Lock));
    EXPECT_TRUE(of(L"P0", &Record::isLocked) && of(L"P999", &Record::isLocked));
    RecordProperty("lock_1000_ms", static_cast<int>(clock.elapsed()));
    // Ten times what it takes on a slow machine; a quadratic change takes seconds.
    EXPECT_LT(clock.elapsed(), 1000);
}

}  // namespace
}  // namespace panels
