// SPDX-License-Identifier: MIT
// The layers of a drawing as rows of a table.
#include "prancheta/desktop/panels/layer_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

#include "dbsymtb.h"
#include "prancheta/desktop/panels/icons.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/editor/commands/layers.h"

namespace prancheta::desktop {
namespace {

struct Head {
    const char* title;
    const char* hint;
};
constexpr Head kHeads[LayerModel::kColumns] = {
    {"", "Camada atual (duplo clique numa linha a torna atual)"},
    {"Nome", "Nome da camada"},
    {"", "Ligada ou desligada"},
    {"", "Congelada ou não"},
    {"", "Bloqueada ou não"},
    {"Cor", "Cor dos objetos PorCamada"},
    {"Tipo", "Tipo de linha dos objetos PorCamada"},
    {"Esp.", "Espessura de linha dos objetos PorCamada"},
    {"Plot.", "Plotada ou não"},
};

LayerRow readLayer(AcDbObjectId id, AcDbObjectId current) {
    LayerRow row;
    row.id = id;
    row.current = id == current;
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.object() == nullptr) return row;
    row.name = qt(commands::layerName(*layer.object()));
    row.linetype = qt(recordName(layer->linetypeObjectId()));
    row.color = colorNumber(*layer.object(), layer->colorIndex());
    row.weight = layer->lineWeight();
    row.off = layer->isOff();
    row.frozen = layer->isFrozen();
    row.locked = layer->isLocked();
    row.plotted = layer->isPlottable();
    return row;
}

QVariant iconOf(const LayerRow& row, int column) {
    const QColor ink = QGuiApplication::palette().color(QPalette::Text);
    const auto icon = [&](Glyph glyph) { return QVariant(glyphIcon(glyph, ink)); };
    switch (column) {
        case LayerModel::Current:
            return row.current ? icon(Glyph::Current) : QVariant();
        case LayerModel::On:
            return icon(row.off ? Glyph::Off : Glyph::On);
        case LayerModel::Freeze:
            return icon(row.frozen ? Glyph::Frozen : Glyph::Thawed);
        case LayerModel::Lock:
            return icon(row.locked ? Glyph::Locked : Glyph::Unlocked);
        case LayerModel::Plot:
            return icon(row.plotted ? Glyph::Plotted : Glyph::NotPlotted);
        case LayerModel::Color:
            return swatchIcon(row.color, ink);
        default:
            return {};
    }
}

QVariant textOf(const LayerRow& row, int column) {
    switch (column) {
        case LayerModel::Name:
            return row.name;
        case LayerModel::Color:
            return colorText(row.color);
        case LayerModel::Linetype:
            return row.linetype;
        case LayerModel::Weight:
            return weightText(row.weight);
        default:
            return {};
    }
}

QVariant sortKey(const LayerRow& row, int column) {
    switch (column) {
        case LayerModel::Current:
            return !row.current;
        case LayerModel::On:
            return row.off;
        case LayerModel::Freeze:
            return row.frozen;
        case LayerModel::Lock:
            return row.locked;
        case LayerModel::Plot:
            return !row.plotted;
        case LayerModel::Color:
            return row.color;
        case LayerModel::Weight:
            return row.weight;
        default:
            return textOf(row, column);
    }
}

QVariant tipOf(const LayerRow& row, int column) {
    switch (column) {
        case LayerModel::On:
            return row.off ? QStringLiteral("Desligada") : QStringLiteral("Ligada");
        case LayerModel::Freeze:
            return row.frozen ? QStringLiteral("Congelada") : QStringLiteral("Não congelada");
        case LayerModel::Lock:
            return row.locked ? QStringLiteral("Bloqueada") : QStringLiteral("Não bloqueada");
        case LayerModel::Plot:
            return row.plotted ? QStringLiteral("Plotada") : QStringLiteral("Não plotada");
        case LayerModel::Name:
            return row.name;
        default:
            return {};
    }
}

}  // namespace

void LayerModel::load(Editor* editor) {
    std::vector<LayerRow> rows;
    if (editor != nullptr) {
        CommandRun run;
        const CommandContext context(*editor, run);
        const AcDbObjectId current = editor->database().clayer();
        for (const AcDbObjectId id : commands::allLayers(context))
            rows.push_back(readLayer(id, current));
    }
    const auto sameLayer = [](const LayerRow& a, const LayerRow& b) { return a.id == b.id; };
    const bool grows = rows.size() >= m_rows.size() &&
                       std::equal(m_rows.begin(), m_rows.end(), rows.begin(), sameLayer);
    if (!grows) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
        return;
    }
    const std::size_t before = m_rows.size();
    int first = -1;
    int last = -1;
    for (std::size_t i = 0; i < before; ++i) {
        if (m_rows[i] == rows[i]) continue;
        m_rows[i] = rows[i];
        last = static_cast<int>(i);
        if (first < 0) first = last;
    }
    // One signal: views sort and lay out anew at each.
    if (first >= 0) emit dataChanged(index(first, 0), index(last, kColumns - 1));
    if (rows.size() == before) return;
    beginInsertRows({}, static_cast<int>(before), static_cast<int>(rows.size()) - 1);
    m_rows = std::move(rows);
    endInsertRows();
}

int LayerModel::rowOf(AcDbObjectId id) const {
    const auto it =
        std::find_if(m_rows.begin(), m_rows.end(), [&](const LayerRow& r) { return r.id == id; });
    return it == m_rows.end() ? -1 : static_cast<int>(it - m_rows.begin());
}

int LayerModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LayerModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant LayerModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const LayerRow& layer = row(index.row());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return textOf(layer, index.column());
        case Qt::DecorationRole:
            return iconOf(layer, index.column());
        case Qt::ToolTipRole:
            return tipOf(layer, index.column());
        case kSortRole:
            return sortKey(layer, index.column());
        case Qt::FontRole: {
            QFont font;
            font.setBold(layer.current);
            return layer.current && index.column() == Name ? QVariant(font) : QVariant();
        }
        default:
            return {};
    }
}

bool LayerModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || index.column() != Name) return false;
    const LayerRow& layer = row(index.row());
    const QString name = value.toString().trimmed();
    if (name == layer.name || !onRename) return false;
    onRename(layer.id, name);
    return true;
}

QVariant LayerModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= kColumns) return {};
    if (role == Qt::DisplayRole) return QString::fromUtf8(kHeads[section].title);
    if (role == Qt::ToolTipRole) return QString::fromUtf8(kHeads[section].hint);
    if (role == Qt::DecorationRole) {
        // Narrow columns have no room for a word.
        const QColor ink = QGuiApplication::palette().color(QPalette::ButtonText);
        if (section == On) return glyphIcon(Glyph::On, ink);
        if (section == Freeze) return glyphIcon(Glyph::Frozen, ink);
        if (section == Lock) return glyphIcon(Glyph::Locked, ink);
    }
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((section == Name || section >= Color) && section != Plot
                                    ? Qt::AlignLeft | Qt::AlignVCenter
                                    : Qt::AlignCenter);
    return {};
}

Qt::ItemFlags LayerModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Name ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace prancheta::desktop
