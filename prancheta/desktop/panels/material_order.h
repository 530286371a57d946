// SPDX-License-Identifier: MIT
// The rows of the material lists as a user sorts and looks for them.
#pragma once

#include <QSortFilterProxyModel>

namespace prancheta::desktop {

/// The rows of one list, or of all, that the search finds; "P2" before "P10". Over a
/// MaterialModel.
class MaterialOrder : public QSortFilterProxyModel {
    Q_OBJECT
public:
    explicit MaterialOrder(QObject* parent);
    /// 0: all.
    void setList(int list);

protected:
    bool lessThan(const QModelIndex& a, const QModelIndex& b) const override;
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    int m_list = 0;
};

}  // namespace prancheta::desktop
