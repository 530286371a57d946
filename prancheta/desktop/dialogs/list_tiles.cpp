// SPDX-License-Identifier: MIT
// Choosing rows by mouse and keyboard.
#include "prancheta/desktop/dialogs/list_tiles.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStylePainter>
#include <QWheelEvent>

#include "prancheta/base/text.h"
#include "prancheta/dcl/tile_value.h"
#include "prancheta/desktop/dialogs/settings.h"

namespace prancheta::desktop {
namespace {

constexpr int kMostVisibleRows = 16;

QFont rowFont(const dcl::Tile& list, const QFont& dialog) {
    return dcl::flagAttribute(list, "fixed_width_font") ? fixedFont(dialog) : dialog;
}

}  // namespace

ListBox::ListBox(TileHost& host, dcl::Tile& tile)
    : QListView(&host.face()),
      m_host(host),
      m_tile(tile),
      m_rows(tile, host.dialog().metrics(), rowFont(tile, host.face().font())) {
    setFont(rowFont(tile, host.face().font()));
    setModel(&m_model);
    setItemDelegate(new RowDelegate(m_rows, m_model, this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    const bool several = dcl::flagAttribute(tile, "multiple_select");
    setSelectionMode(several ? ExtendedSelection : SingleSelection);
}

void ListBox::showTile() {
    m_model.setRows(m_tile.rows);
    if (selection() == m_tile.value) return;
    QItemSelection chosen;
    QModelIndex first;
    for (std::size_t row : dcl::rowNumbers(m_tile.value).value_or(std::vector<std::size_t>())) {
        const QModelIndex index = m_model.index(static_cast<int>(row));
        if (!first.isValid()) first = index;
        chosen.select(index, index);
    }
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
    if (first.isValid()) scrollTo(first);
}

/// Ascending, one blank between.
std::wstring ListBox::selection() const {
    QModelIndexList rows = selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end());
    std::wstring text;
    for (const QModelIndex& index : rows) {
        if (!text.empty()) text += L' ';
        text += std::to_wstring(index.row());
    }
    return text;
}

void ListBox::report() {
    m_host.act(m_tile, [&] { return m_host.dialog().type(m_tile.key, toUtf8(selection())); });
}

void ListBox::reportChange() {
    if (selection() != m_tile.value) report();
}

// The view has done its own part before the program is told: its callback may refill the list.

void ListBox::mousePressEvent(QMouseEvent* event) {
    QListView::mousePressEvent(event);
    const bool onRow = indexAt(event->position().toPoint()).isValid();
    if (event->button() == Qt::LeftButton && onRow) report();
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    QListView::mouseMoveEvent(event);
    if (event->buttons() & Qt::LeftButton) reportChange();
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex row = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !row.isValid()) return;
    // The first click may have changed the list: what lies there now was not clicked twice.
    if (!selectionModel()->isSelected(row)) return mousePressEvent(event);
    m_host.act(m_tile, [&] { return m_host.dialog().secondClick(m_tile.key); });
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    QListView::keyPressEvent(event);
    reportChange();
}

PopupBox::PopupBox(TileHost& host, dcl::Tile& tile)
    : QComboBox(&host.face()),
      m_host(host),
      m_tile(tile),
      m_rows(tile, host.dialog().metrics(), rowFont(tile, host.face().font())) {
    setFont(rowFont(tile, host.face().font()));
    setModel(&m_model);
    setItemDelegate(new RowDelegate(m_rows, m_model, this));
    setMaxVisibleItems(kMostVisibleRows);
    connect(this, &QComboBox::activated, this, [this](int row) {
        m_host.act(m_tile, [&] { return m_host.dialog().type(m_tile.key, std::to_string(row)); });
    });
}

void PopupBox::showTile() {
    m_model.setRows(m_tile.rows);
    const auto rows = dcl::rowNumbers(m_tile.value);
    setCurrentIndex(rows && !rows->empty() ? static_cast<int>(rows->front()) : -1);
}

void PopupBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    if (currentIndex() < 0) return;
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    m_rows.paint(painter, room.adjusted(1, 0, 0, 0), m_model.row(currentIndex()));
}

void PopupBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

}  // namespace prancheta::desktop
