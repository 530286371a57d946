// SPDX-License-Identifier: MIT
// Panel of layers: states by a click, names in place, colours and linetypes by popups.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

#include "dbsymtb.h"
#include "prancheta/desktop/panels/color_popup.h"
#include "prancheta/desktop/panels/icons.h"
#include "prancheta/desktop/panels/layer_model.h"
#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/desktop/panels/watch.h"
#include "prancheta/editor/commands/layers.h"
#include "prancheta/editor/edit_group.h"

namespace prancheta::desktop {
namespace {

using commands::Ids;
using Change = std::function<bool(const CommandContext&, AcDbLayerTableRecord&)>;

/// "P2" before "P10"; rows that the search leaves out are not shown.
class LayerOrder : public QSortFilterProxyModel {
public:
    explicit LayerOrder(QObject* parent) : QSortFilterProxyModel(parent) {
        setSortRole(LayerModel::kSortRole);
        setFilterKeyColumn(LayerModel::Name);
        setFilterCaseSensitivity(Qt::CaseInsensitive);
        setDynamicSortFilter(true);
    }

protected:
    bool lessThan(const QModelIndex& a, const QModelIndex& b) const override {
        const QVariant left = a.data(sortRole());
        const QVariant right = b.data(sortRole());
        if (left.typeId() == QMetaType::QString)
            return naturalCompare(left.toString(), right.toString()) < 0;
        return left.toInt() < right.toInt();
    }
};

/// A click into a cell that acts like a button keeps a selection of several rows; Enter edits in
/// place, as F2 does.
class LayerView : public QTableView {
public:
    using QTableView::QTableView;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter || !edit(currentIndex(), EditKeyPressed, event))
            QTableView::keyPressEvent(event);
    }
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override {
        const bool mouse = event != nullptr && (event->type() == QEvent::MouseButtonPress ||
                                                event->type() == QEvent::MouseButtonRelease ||
                                                event->type() == QEvent::MouseMove);
        const bool plain =
            mouse && static_cast<const QMouseEvent*>(event)->modifiers() == Qt::NoModifier;
        if (plain && index.isValid() && index.column() >= LayerModel::On &&
            selectionModel()->isRowSelected(index.row()))
            return QItemSelectionModel::NoUpdate;
        return QTableView::selectionCommand(index, event);
    }
};

/// Cells with a picture alone have it in the middle, under their title.
class LayerDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!option->text.isEmpty()) return;
        option->decorationAlignment = Qt::AlignCenter;
        option->decorationSize = QSize(option->rect.width() - 6, kIconSize);
    }
};

class LayersPanel : public Panel {
public:
    LayersPanel();
    void setEditor(Editor* editor) override;
    void refresh() override;

private:
    QToolButton* button(Glyph glyph, const char* name, const char* hint,
                        void (LayersPanel::*act)());
    void clicked(const QModelIndex& index);
    void chooseColor(const LayerRow& row, const QPoint& where);
    void chooseLinetype(const LayerRow& row, const QPoint& where);
    void chooseWeight(const LayerRow& row, const QPoint& where);
    void makeNew();
    void makeCurrent();
    void remove();
    void rename(AcDbObjectId id, const QString& name);
    /// The selected layers, or only this one when it is not among them.
    Ids targets(AcDbObjectId clicked) const;
    Ids selected() const;
    /// One step of undo; false when a command is in the way.
    bool edit(const wchar_t* name, const std::function<bool(const CommandContext&)>& change);
    void changeAll(const Ids& ids, const Change& change);

    Editor* m_editor = nullptr;
    Watch m_watch{Watch::Selection::Ignored};
    LayerModel* m_model;
    LayerOrder* m_order;
    LayerView* m_view;
    QLineEdit* m_search;
};

LayersPanel::LayersPanel()
    : m_model(new LayerModel(this)),
      m_order(new LayerOrder(this)),
      m_view(new LayerView),
      m_search(new QLineEdit) {
    m_order->setSourceModel(m_model);
    m_view->setModel(m_order);
    m_view->setItemDelegate(new LayerDelegate(this));
    m_view->setObjectName(QStringLiteral("camadas"));
    m_view->setAccessibleName(QStringLiteral("Camadas"));
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::EditKeyPressed);
    m_view->setShowGrid(false);
    m_view->setAlternatingRowColors(true);
    m_view->setSortingEnabled(true);
    m_view->setIconSize(QSize(kIconSize, kIconSize));
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(24);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* head = m_view->horizontalHeader();
    head->setMinimumSectionSize(20);
    head->setHighlightSections(false);
    constexpr int kWidths[LayerModel::kColumns] = {20, 78, 24, 24, 24, 76, 82, 58, 44};
    for (int i = 0; i < LayerModel::kColumns; ++i) head->resizeSection(i, kWidths[i]);
    m_view->sortByColumn(LayerModel::Name, Qt::AscendingOrder);

    m_search->setObjectName(QStringLiteral("busca"));
    m_search->setPlaceholderText(QStringLiteral("Buscar camada"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(button(Glyph::Add, "nova", "Nova camada", &LayersPanel::makeNew));
    bar->addWidget(button(Glyph::Remove, "excluir", "Excluir as camadas selecionadas (Del)",
                          &LayersPanel::remove));
    bar->addWidget(button(Glyph::Current, "atual", "Tornar atual", &LayersPanel::makeCurrent));
    bar->addSpacing(6);
    bar->addWidget(m_search);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addLayout(bar);
    layout->addWidget(m_view);

    m_model->onRename = [this](AcDbObjectId id, const QString& name) { rename(id, name); };
    connect(m_search, &QLineEdit::textChanged, m_order,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_view, &QAbstractItemView::clicked, this, &LayersPanel::clicked);
    // As a key the view would take it for a letter to look for.
    new QShortcut(Qt::Key_Delete, m_view, this, &LayersPanel::remove, Qt::WidgetShortcut);
    connect(m_view, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() <= LayerModel::Name) makeCurrent();
    });
}

QToolButton* LayersPanel::button(Glyph glyph, const char* name, const char* hint,
                                 void (LayersPanel::*act)()) {
    auto* made = new QToolButton;
    made->setObjectName(QString::fromUtf8(name));
    made->setIcon(glyphIcon(glyph, palette().color(QPalette::ButtonText)));
    made->setToolTip(QString::fromUtf8(hint));
    made->setAccessibleName(made->toolTip());
    made->setAutoRaise(true);
    connect(made, &QToolButton::clicked, this, act);
    return made;
}

void LayersPanel::setEditor(Editor* editor) {
    m_editor = editor;
    m_watch.forget();
    refresh();
}

void LayersPanel::refresh() {
    if (m_editor == nullptr)
        m_model->load(nullptr);
    else if (m_watch.news(*m_editor))
        m_model->load(m_editor);
}

Ids LayersPanel::selected() const {
    Ids ids;
    for (const QModelIndex& index : m_view->selectionModel()->selectedRows())
        ids.push_back(m_model->row(m_order->mapToSource(index).row()).id);
    return ids;
}

Ids LayersPanel::targets(AcDbObjectId clicked) const {
    Ids ids = selected();
    if (std::find(ids.begin(), ids.end(), clicked) == ids.end()) return {clicked};
    return ids;
}

bool LayersPanel::edit(const wchar_t* name,
                       const std::function<bool(const CommandContext&)>& change) {
    if (m_editor == nullptr) return false;
    if (!EditGroup::possible(*m_editor)) {
        emit messageWanted(
            QStringLiteral("Há um comando em execução; termine-o (Esc) antes de alterar camadas."));
        return false;
    }
    bool done = false;
    {
        EditGroup group(*m_editor, name);
        CommandRun run;
        done = change(CommandContext(*m_editor, run));
        if (!done) group.fail();
    }
    refresh();
    if (done) emit changed();
    return done;
}

void LayersPanel::changeAll(const Ids& ids, const Change& change) {
    edit(L"CAMADA", [&](const CommandContext& context) {
        bool any = false;
        for (const AcDbObjectId id : ids) {
            AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
            any |= layer.openStatus() == Acad::eOk && change(context, *layer.object());
        }
        return any;
    });
}

void LayersPanel::clicked(const QModelIndex& index) {
    const LayerRow row = m_model->row(m_order->mapToSource(index).row());
    const QRect cell = m_view->visualRect(index);
    const QPoint below = m_view->viewport()->mapToGlobal(cell.bottomLeft());
    const Ids ids = targets(row.id);
    switch (index.column()) {
        case LayerModel::On:
            return changeAll(ids, [&](const CommandContext& context, AcDbLayerTableRecord& layer) {
                if (layer.setIsOff(!row.off) != Acad::eOk) return false;
                if (!row.off && layer.objectId() == context.database().clayer())
                    commands::say(context, L"A camada \"" + commands::layerName(layer) +
                                               L"\" é a atual: o que for desenhado agora não "
                                               L"aparecerá.");
                return true;
            });
        case LayerModel::Freeze:
            return changeAll(ids, [&](const CommandContext& context, AcDbLayerTableRecord& layer) {
                return row.frozen ? layer.setIsFrozen(false) == Acad::eOk
                                  : commands::freezeLayer(context, layer);
            });
        case LayerModel::Lock:
            return changeAll(ids, [&](const CommandContext&, AcDbLayerTableRecord& layer) {
                return layer.setIsLocked(!row.locked) == Acad::eOk;
            });
        case LayerModel::Plot:
            return changeAll(ids, [&](const CommandContext&, AcDbLayerTableRecord& layer) {
                return layer.setIsPlottable(!row.plotted) == Acad::eOk;
            });
        case LayerModel::Color:
            return chooseColor(row, below);
        case LayerModel::Linetype:
            return chooseLinetype(row, below);
        case LayerModel::Weight:
            return chooseWeight(row, below);
        default:
            return;
    }
}

void LayersPanel::chooseColor(const LayerRow& row, const QPoint& where) {
    auto* popup =
        new ColorPopup(row.color < kTrueColors ? row.color : -1, ColorPopup::Logical::No, this);
    const Ids ids = targets(row.id);
    connect(popup, &ColorPopup::chosen, this, [this, ids](int color) {
        changeAll(ids, [color](const CommandContext&, AcDbLayerTableRecord& layer) {
            return layer.setColorIndex(static_cast<Adesk::UInt16>(color)) == Acad::eOk;
        });
    });
    popup->showAt(where);
}

void LayersPanel::chooseLinetype(const LayerRow& row, const QPoint& where) {
    if (m_editor == nullptr) return;
    CommandRun run;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const Ids ids = targets(row.id);
    for (const std::wstring& name : commands::linetypeChoices(CommandContext(*m_editor, run))) {
        QAction* action = menu->addAction(qt(name));
        action->setCheckable(true);
        action->setChecked(qt(name) == row.linetype);
        connect(action, &QAction::triggered, this, [this, ids, name] {
            changeAll(ids, [&name](const CommandContext& context, AcDbLayerTableRecord& layer) {
                return commands::applyLinetype(context, layer, name);
            });
        });
    }
    menu->popup(where);
}

void LayersPanel::chooseWeight(const LayerRow& row, const QPoint& where) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const Ids ids = targets(row.id);
    const auto offer = [&](int weight) {
        QAction* action = menu->addAction(weightText(weight));
        action->setCheckable(true);
        action->setChecked(weight == row.weight);
        connect(action, &QAction::triggered, this, [this, ids, weight] {
            changeAll(ids, [weight](const CommandContext&, AcDbLayerTableRecord& layer) {
                return layer.setLineWeight(static_cast<AcDb::LineWeight>(weight)) == Acad::eOk;
            });
        });
    };
    offer(AcDb::kLnWtByLwDefault);
    for (const int weight : commands::lineWeights()) offer(weight);
    menu->popup(where);
}

void LayersPanel::makeNew() {
    AcDbObjectId made;
    edit(L"CAMADA", [&](const CommandContext& context) {
        std::wstring name;
        for (int n = 1; name.empty() || !commands::layerNamed(context, name).isNull(); ++n)
            name = L"Camada" + std::to_wstring(n);
        made = commands::makeLayer(context, name);
        return !made.isNull();
    });
    if (made.isNull()) return;
    m_search->clear();
    const QModelIndex index =
        m_order->mapFromSource(m_model->index(m_model->rowOf(made), LayerModel::Name));
    m_view->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_view->scrollTo(index);
    m_view->edit(index);
}

void LayersPanel::makeCurrent() {
    const QModelIndex index = m_view->currentIndex();
    if (!index.isValid()) return;
    const LayerRow row = m_model->row(m_order->mapToSource(index).row());
    if (row.current) return;
    edit(L"CAMADA", [&](const CommandContext& context) {
        return commands::makeLayerCurrent(context, row.id);
    });
}

void LayersPanel::remove() {
    const Ids ids = selected();
    if (ids.empty()) return;
    edit(L"CAMADA",
         [&](const CommandContext& context) { return commands::eraseLayers(context, ids) > 0; });
}

void LayersPanel::rename(AcDbObjectId id, const QString& name) {
    edit(L"CAMADA", [&](const CommandContext& context) {
        return commands::renameLayer(context, id, name.toStdWString());
    });
}

}  // namespace

std::unique_ptr<Panel> makeLayersPanel() { return std::make_unique<LayersPanel>(); }

}  // namespace prancheta::desktop
