// SPDX-License-Identifier: MIT
// Panel of the properties of what is selected.
#include <QHeaderView>
#include <QLabel>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/desktop/panels/icons.h"
#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/panels/property_delegate.h"
#include "prancheta/desktop/panels/property_rows.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/desktop/panels/watch.h"

namespace prancheta::desktop {
namespace {

enum Column { kName, kValue, kColumns };
constexpr int kRowRole = Qt::UserRole;

/// Fainter than what can be edited, and still easy to read on the palette's ground.
QColor readOnlyInk(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Text);
    const QColor ground = palette.color(QPalette::Base);
    const auto mix = [](int a, int b) { return (2 * a + b) / 3; };
    return {mix(text.red(), ground.red()), mix(text.green(), ground.green()),
            mix(text.blue(), ground.blue())};
}

class PropertiesPanel : public Panel {
public:
    PropertiesPanel();
    void setEditor(Editor* editor) override;
    void refresh() override;

private:
    const PropertyRow* rowAt(const QModelIndex& index) const;
    void commit(const PropertyRow& row, const std::wstring& input);
    void load();
    void rebuild();
    void widenNames();
    void show(QTreeWidgetItem* item, const PropertyRow& row);
    void showHeading();
    bool sameShape(const std::vector<PropertyRow>& rows) const;
    void refuse(const std::wstring& key, const QString& reason);

    Editor* m_editor = nullptr;
    Watch m_watch{Watch::Selection::Counts};
    std::vector<AcDbObjectId> m_shown;
    std::vector<PropertyRow> m_rows;
    std::vector<QTreeWidgetItem*> m_items;  ///< one for each row; owned by the tree
    std::wstring m_refused;                 ///< key of the row whose last input made no sense
    QLabel* m_heading;
    QTreeWidget* m_tree;
    QLabel* m_reason;
};

PropertiesPanel::PropertiesPanel()
    : m_heading(new QLabel), m_tree(new QTreeWidget), m_reason(new QLabel) {
    m_heading->setObjectName(QStringLiteral("titulo"));
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_heading->setMargin(2);
    m_tree->setObjectName(QStringLiteral("propriedades"));
    m_tree->setAccessibleName(QStringLiteral("Propriedades"));
    m_tree->setColumnCount(kColumns);
    m_tree->setHeaderLabels({QStringLiteral("Propriedade"), QStringLiteral("Valor")});
    m_tree->header()->setStretchLastSection(true);
    m_tree->header()->resizeSection(kName, 170);
    m_tree->setAlternatingRowColors(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setRootIsDecorated(true);
    m_tree->setIndentation(12);
    m_tree->setEditTriggers(QAbstractItemView::EditKeyPressed);
    m_tree->setIconSize(QSize(kIconSize, kIconSize));
    m_reason->setObjectName(QStringLiteral("motivo"));
    m_reason->setWordWrap(true);
    m_reason->setMargin(4);
    m_reason->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_heading);
    layout->addWidget(m_tree);
    layout->addWidget(m_reason);

    auto* delegate = new PropertyDelegate(this);
    delegate->rowAt = [this](const QModelIndex& index) { return rowAt(index); };
    // The cell is closed first: what is changed may ask something.
    delegate->onCommit = [this](const PropertyRow& row, const std::wstring& input) {
        QTimer::singleShot(0, this, [this, row, input] { commit(row, input); });
    };
    m_tree->setItemDelegate(delegate);
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int column) {
        if (column == kValue) m_tree->editItem(item, kValue);
    });
    connect(m_tree, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item, int) { m_tree->editItem(item, kValue); });
    showHeading();
}

void PropertiesPanel::setEditor(Editor* editor) {
    m_editor = editor;
    m_watch.forget();
    refresh();
}

void PropertiesPanel::refresh() {
    if (m_editor != nullptr && !m_watch.news(*m_editor)) return;
    load();
}

const PropertyRow* PropertiesPanel::rowAt(const QModelIndex& index) const {
    if (index.column() != kValue) return nullptr;
    bool known = false;
    const std::size_t row =
        static_cast<std::size_t>(index.siblingAtColumn(kName).data(kRowRole).toInt(&known));
    return known && row < m_rows.size() ? &m_rows[row] : nullptr;
}

void PropertiesPanel::load() {
    std::vector<AcDbObjectId> ids;
    if (m_editor != nullptr) ids = m_editor->selection().ids();
    std::erase_if(ids, [](AcDbObjectId id) { return id.isErased(); });
    if (ids != m_shown) refuse({}, {});
    m_shown = std::move(ids);
    std::vector<PropertyRow> rows;
    if (m_editor != nullptr)
        rows = m_shown.empty() ? generalRows(*m_editor, {}) : propertyRows(*m_editor, m_shown);
    const bool inPlace = sameShape(rows);
    m_rows = std::move(rows);
    if (inPlace)
        for (std::size_t i = 0; i < m_rows.size(); ++i) show(m_items[i], m_rows[i]);
    else
        rebuild();
    showHeading();
}

bool PropertiesPanel::sameShape(const std::vector<PropertyRow>& rows) const {
    const auto alike = [](const PropertyRow& a, const PropertyRow& b) {
        return a.key == b.key && a.kind == b.kind && a.label == b.label && a.group == b.group;
    };
    return rows.size() == m_items.size() &&
           std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(), alike);
}

void PropertiesPanel::rebuild() {
    m_tree->clear();
    m_items.clear();
    QTreeWidgetItem* group = nullptr;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const PropertyRow& row = m_rows[i];
        if (group == nullptr || group->text(kName) != qt(row.group)) {
            group = new QTreeWidgetItem(m_tree, {qt(row.group)});
            group->setFlags(Qt::ItemIsEnabled);
            QFont bold = m_tree->font();
            bold.setBold(true);
            group->setFont(kName, bold);
            group->setBackground(kName, m_tree->palette().button());
            group->setFirstColumnSpanned(true);
            group->setExpanded(true);
        }
        auto* item = new QTreeWidgetItem(group, {qt(row.label)});
        item->setData(kName, kRowRole, static_cast<int>(i));
        item->setToolTip(kName, qt(row.label));
        m_items.push_back(item);
        show(item, row);
    }
    widenNames();
}

/// Names that are cut say too little ("Momento de inércia (..."): the column grows for them, but
/// leaves the values their share.
void PropertiesPanel::widenNames() {
    constexpr double kMostShare = 0.66;
    int widest = 0;
    for (const PropertyRow& row : m_rows)
        widest = std::max(widest, m_tree->fontMetrics().horizontalAdvance(qt(row.label)));
    const int wanted = widest + 3 * m_tree->indentation();
    const int most = static_cast<int>(m_tree->viewport()->width() * kMostShare);
    const int width = std::min(wanted, most);
    if (width > m_tree->header()->sectionSize(kName)) m_tree->header()->resizeSection(kName, width);
}

void PropertiesPanel::show(QTreeWidgetItem* item, const PropertyRow& row) {
    QString value = row.number ? shownNumber(qt(row.value)) : qt(row.value);
    if (!row.unit.empty() && !row.varies)
        value += row.unit == L"°" ? qt(row.unit) : QStringLiteral(" ") + qt(row.unit);
    const bool shown = row.kind == PropertyRow::Kind::Show;
    const QPalette& colors = m_tree->palette();
    item->setText(kValue, value);
    item->setFlags(shown ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                         : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
    const bool refused = !m_refused.empty() && row.key == m_refused;
    item->setForeground(kValue, refused ? QBrush(QColor(215, 50, 45))
                                : shown ? QBrush(readOnlyInk(colors))
                                        : colors.brush(QPalette::Text));
    item->setToolTip(kValue, refused ? m_reason->text() : value);
    if (row.kind == PropertyRow::Kind::Color)
        item->setIcon(
            kValue,
            row.varies ? QIcon() : swatchIcon(qt(row.input).toInt(), colors.color(QPalette::Text)));
}

void PropertiesPanel::showHeading() {
    if (m_shown.empty())
        m_heading->setText(QStringLiteral("Nada selecionado: do que for desenhado"));
    else if (m_shown.size() == 1 && !m_rows.empty())
        m_heading->setText(qt(m_rows.front().value));
    else
        m_heading->setText(QStringLiteral("%1 objetos").arg(m_shown.size()));
}

void PropertiesPanel::refuse(const std::wstring& key, const QString& reason) {
    m_refused = key;
    m_reason->setText(reason);
    m_reason->setVisible(!reason.isEmpty());
    QPalette red = palette();
    red.setColor(QPalette::WindowText, QColor(215, 50, 45));
    m_reason->setPalette(red);
    // The colours of a selected row would hide the red.
    if (!key.empty()) m_tree->clearSelection();
}

void PropertiesPanel::commit(const PropertyRow& row, const std::wstring& input) {
    if (m_editor == nullptr) return;
    const Result<void> done = m_shown.empty() ? changeCurrent(*m_editor, row.key, input)
                                              : changeProperty(*m_editor, m_shown, row.key, input);
    if (done)
        refuse({}, {});
    else
        refuse(row.key, qt(row.label) + QStringLiteral(": ") +
                            QString::fromStdString(done.error().message()));
    m_watch.forget();
    refresh();
    if (done) emit changed();
}

}  // namespace

std::unique_ptr<Panel> makePropertiesPanel() { return std::make_unique<PropertiesPanel>(); }

}  // namespace prancheta::desktop
