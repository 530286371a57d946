// SPDX-License-Identifier: MIT
// The layers of a drawing as rows of a table.
#pragma once

#include <QAbstractTableModel>

#include <functional>
#include <string>
#include <vector>

#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

struct LayerRow {
    AcDbObjectId id;
    QString name;
    QString linetype;
    int color = 7;
    int weight = -3;
    bool current = false;
    bool off = false;
    bool frozen = false;
    bool locked = false;
    bool plotted = true;
    bool operator==(const LayerRow&) const = default;
};

class LayerModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Current, Name, On, Freeze, Lock, Color, Linetype, Weight, Plot, kColumns };
    /// What a column is sorted by.
    static constexpr int kSortRole = Qt::UserRole;

    using QAbstractTableModel::QAbstractTableModel;

    /// Reads the layers anew; views keep their selection unless layers went. O(layers).
    void load(Editor* editor);
    const LayerRow& row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }
    /// -1 when it is not there.
    int rowOf(AcDbObjectId id) const;
    /// Called with a name that was typed in place.
    std::function<void(AcDbObjectId, const QString&)> onRename;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<LayerRow> m_rows;
};

}  // namespace prancheta::desktop
