// SPDX-License-Identifier: MIT
// Rows of the material lists as a table.
#pragma once

#include <QAbstractTableModel>

#include <functional>

#include "prancheta/desktop/panels/material_rows.h"

namespace prancheta::desktop {

class MaterialModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// Numbers by their value, texts as they are.
    static constexpr int kSortRole = Qt::UserRole;
    /// All texts of a row, for the search.
    static constexpr int kSearchRole = Qt::UserRole + 1;
    /// Number of the row's list.
    static constexpr int kListRole = Qt::UserRole + 2;

    using QAbstractTableModel::QAbstractTableModel;

    /// Called with what was typed in place, row and column.
    std::function<void(int, int, const QString&)> onEdit;

    void setRows(std::vector<MaterialRow> rows, MaterialSchema schema);
    const MaterialSchema& schema() const { return m_schema; }
    const std::vector<MaterialRow>& rows() const { return m_rows; }
    const MaterialRow& row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    MaterialSchema m_schema;
    std::vector<MaterialRow> m_rows;
};

}  // namespace prancheta::desktop
