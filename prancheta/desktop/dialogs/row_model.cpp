// SPDX-License-Identifier: MIT
// Model, painting and delegate of list rows.
#include "prancheta/desktop/dialogs/row_model.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "prancheta/dcl/row_cells.h"
#include "prancheta/dcl/tile_value.h"
#include "prancheta/desktop/dialogs/list_tiles.h"

namespace prancheta::desktop {

bool RowModel::setRows(const std::vector<std::wstring>& rows) {
    if (rows == m_rows) return false;
    beginResetModel();
    m_rows = rows;
    endResetModel();
    return true;
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) return {};
    return QString::fromStdWString(row(index.row()));
}

RowPainter::RowPainter(const dcl::Tile& list, const dcl::Metrics& dialog, const QFont& font)
    : m_list(list), m_font(font) {
    const QFontMetricsF metrics(font);
    const bool fixed = dcl::flagAttribute(list, "fixed_width_font");
    m_metrics.characterWidth =
        fixed ? metrics.horizontalAdvance(QLatin1Char('0')) : dialog.characterWidth;
    m_metrics.characterHeight = metrics.lineSpacing();
    m_metrics.textWidth = [metrics](std::wstring_view text) {
        return metrics.horizontalAdvance(
            QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size())));
    };
}

int RowPainter::rowHeight() const {
    return static_cast<int>(std::ceil(m_metrics.characterHeight)) + 1;
}

void RowPainter::paint(QPainter& painter, const QRect& room, const std::wstring& row) const {
    paint(painter, room, dcl::cellsOf(m_list, row, m_metrics));
}

void RowPainter::paintHeading(QPainter& painter, const QRect& room,
                              const std::wstring& heading) const {
    const std::wstring first = m_list.rows.empty() ? std::wstring() : m_list.rows.front();
    paint(painter, room, dcl::headingOver(m_list, first, heading, m_metrics));
}

void RowPainter::paint(QPainter& painter, const QRect& room,
                       const std::vector<dcl::Cell>& cells) const {
    painter.setFont(m_font);
    const QFontMetricsF metrics(m_font);
    for (const dcl::Cell& cell : cells) {
        QRectF place(room);
        place.setLeft(room.left() + cell.x);
        if (cell.room > 0) place.setRight(std::min(place.right(), place.left() + cell.room));
        const QString text =
            metrics.elidedText(QString::fromStdWString(cell.text), Qt::ElideRight, place.width());
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    item.text.clear();
    const QStyle* style = item.widget != nullptr ? item.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    const bool enabled = item.state.testFlag(QStyle::State_Enabled);
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setPen(item.palette.color(enabled ? QPalette::Active : QPalette::Disabled,
                                       selected ? QPalette::HighlightedText : QPalette::Text));
    m_rows.paint(*painter, item.rect.adjusted(kCellMargin, 0, -kCellMargin, 0),
                 m_model.row(index.row()));
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {option.rect.width(), m_rows.rowHeight()};
}

}  // namespace prancheta::desktop
