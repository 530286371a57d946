// SPDX-License-Identifier: MIT
// Editors of the values in the property table.
#pragma once

#include <QStyledItemDelegate>

#include <functional>

#include "prancheta/desktop/panels/property_rows.h"

namespace prancheta::desktop {

class PropertyDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The row behind an index; null for titles and the column of names.
    std::function<const PropertyRow*(const QModelIndex&)> rowAt;
    /// Called with a value that differs from the row's.
    std::function<void(const PropertyRow&, const std::wstring& input)> onCommit;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QWidget* choiceEditor(QWidget* parent, const PropertyRow& row) const;
    QWidget* colorEditor(QWidget* parent, const PropertyRow& row) const;
};

}  // namespace prancheta::desktop
