// SPDX-License-Identifier: MIT
// Rows of a list tile for the views of Qt, and how they are drawn with tab stops.
#pragma once

#include <QAbstractListModel>
#include <QFont>
#include <QStyledItemDelegate>

#include <string>
#include <vector>

#include "prancheta/dcl/dialog.h"
#include "prancheta/dcl/row_cells.h"

namespace prancheta::desktop {

/// Keeps its own rows: a program may change those of the tile at any moment, the views only when
/// they are told.
class RowModel : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    /// False when the rows are the same already. O(rows).
    bool setRows(const std::vector<std::wstring>& rows);
    const std::wstring& row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<std::wstring> m_rows;
};

/// Text of a row in its columns.
class RowPainter {
public:
    /// `dialog`: metrics by which the dialog was laid out; `font`: of the rows.
    RowPainter(const dcl::Tile& list, const dcl::Metrics& dialog, const QFont& font);

    void paint(QPainter& painter, const QRect& room, const std::wstring& row) const;
    /// The words of a title over the columns of the list's first row.
    void paintHeading(QPainter& painter, const QRect& room, const std::wstring& heading) const;
    int rowHeight() const;

private:
    void paint(QPainter& painter, const QRect& room, const std::vector<dcl::Cell>& cells) const;

    const dcl::Tile& m_list;
    QFont m_font;
    dcl::Metrics m_metrics;
};

class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    RowDelegate(const RowPainter& rows, const RowModel& model, QObject* parent)
        : QStyledItemDelegate(parent), m_rows(rows), m_model(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const RowPainter& m_rows;
    const RowModel& m_model;
};

}  // namespace prancheta::desktop
