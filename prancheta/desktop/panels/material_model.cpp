// SPDX-License-Identifier: MIT
// Rows of the material lists as a table.
#include "prancheta/desktop/panels/material_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

namespace prancheta::desktop {
void MaterialModel::setRows(std::vector<MaterialRow> rows, MaterialSchema schema) {
    beginResetModel();
    m_schema = std::move(schema);
    m_rows = std::move(rows);
    endResetModel();
}

int MaterialModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int MaterialModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_schema.columns.size());
}

QVariant MaterialModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const MaterialRow& material = row(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    const bool number = m_schema.columns[column].decimals >= 0;
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return material.texts[column];
        case Qt::TextAlignmentRole:
            return static_cast<int>((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        case Qt::ForegroundRole:
            if (!material.erased) return {};
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        case Qt::FontRole: {
            if (!material.erased) return {};
            QFont font;
            font.setStrikeOut(true);
            return font;
        }
        case Qt::ToolTipRole:
            return material.erased ? QStringLiteral("Peça apagada: fora dos totais")
                                   : material.texts[column];
        case kSortRole:
            return number ? QVariant(material.numbers[column]) : QVariant(material.texts[column]);
        case kSearchRole: {
            QString all;
            for (const QString& text : material.texts) all += text + u'\n';
            return all;
        }
        case kListRole:
            return material.list;
        default:
            return {};
    }
}

bool MaterialModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || value == data(index, role)) return false;
    if (onEdit) onEdit(index.row(), index.column(), value.toString());
    return true;
}

/// What an erased piece's row says is half the module's.
Qt::ItemFlags MaterialModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const bool editable = index.isValid() && !row(index.row()).erased &&
                          m_schema.columns[static_cast<std::size_t>(index.column())].editable;
    return editable ? flags | Qt::ItemIsEditable : flags;
}

QVariant MaterialModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const MaterialSchema::Column& column = m_schema.columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.heading;
    if (role == Qt::ToolTipRole) return column.title;
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((column.decimals >= 0 ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    return {};
}

}  // namespace prancheta::desktop
