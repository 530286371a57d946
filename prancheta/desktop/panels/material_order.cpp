// SPDX-License-Identifier: MIT
// The rows of the material lists as a user sorts and looks for them.
#include "prancheta/desktop/panels/material_order.h"

#include "prancheta/desktop/panels/material_model.h"
#include "prancheta/desktop/panels/text.h"

namespace prancheta::desktop {

MaterialOrder::MaterialOrder(QObject* parent) : QSortFilterProxyModel(parent) {
    setSortRole(MaterialModel::kSortRole);
    setFilterRole(MaterialModel::kSearchRole);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
}

void MaterialOrder::setList(int list) {
    m_list = list;
    invalidateFilter();
}

bool MaterialOrder::lessThan(const QModelIndex& a, const QModelIndex& b) const {
    const QVariant left = a.data(sortRole());
    const QVariant right = b.data(sortRole());
    if (left.typeId() == QMetaType::QString)
        return naturalCompare(left.toString(), right.toString()) < 0;
    return left.toDouble() < right.toDouble();
}

bool MaterialOrder::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    return (m_list == 0 || index.data(MaterialModel::kListRole).toInt() == m_list) &&
           QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

}  // namespace prancheta::desktop
