// SPDX-License-Identifier: MIT
// Panel of the material lists: rows, totals, the way into drawing and spreadsheet.
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <unordered_set>

#include "prancheta/desktop/panels/material_model.h"
#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/desktop/panels/watch.h"

namespace prancheta::desktop {
namespace {

/// Longest file name that the command takes.
constexpr qsizetype kLongestName = 131;
/// Pixels of a usual character.
constexpr int kCharacterWidth = 8;

/// The rows of one list, or of all, that the search finds; "P2" before "P10".
class MaterialOrder : public QSortFilterProxyModel {
public:
    explicit MaterialOrder(QObject* parent) : QSortFilterProxyModel(parent) {
        setSortRole(MaterialModel::kSortRole);
        setFilterRole(MaterialModel::kSearchRole);
        setFilterCaseSensitivity(Qt::CaseInsensitive);
    }
    /// 0: all.
    void setList(int list) {
        m_list = list;
        invalidateFilter();
    }

protected:
    bool lessThan(const QModelIndex& a, const QModelIndex& b) const override {
        const QVariant left = a.data(sortRole());
        const QVariant right = b.data(sortRole());
        if (left.typeId() == QMetaType::QString)
            return naturalCompare(left.toString(), right.toString()) < 0;
        return left.toDouble() < right.toDouble();
    }
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const QModelIndex index = sourceModel()->index(row, 0, parent);
        return (m_list == 0 || index.data(MaterialModel::kListRole).toInt() == m_list) &&
               QSortFilterProxyModel::filterAcceptsRow(row, parent);
    }

private:
    int m_list = 0;
};

class MaterialPanel : public Panel {
public:
    MaterialPanel();
    void setEditor(Editor* editor) override;
    void refresh() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <class Act>
    QPushButton* button(const QString& name, const QString& text, const QString& hint, Act act);
    void load();
    void showSchema();
    void loadLists();
    void showTotals();
    void selectPieces();
    void copy();
    void drawTable();
    void update();
    void write(const MaterialSchema::Format& format);
    /// Number of the list to work on; 0 leaves the question to the command, which asks it only when
    /// there are several; -1: the user has to choose one first.
    int chosenList() const;
    std::vector<int> visibleRows() const;

    Editor* m_editor = nullptr;
    Watch m_watch{Watch::Selection::Ignored};
    /// Rows that come anew, or that are looked for, are no choice of pieces.
    bool m_selecting = false;
    std::map<int, QString> m_lists;  ///< number and group
    MaterialModel* m_model;
    MaterialOrder* m_order;
    QTableView* m_view;
    QLineEdit* m_search;
    QComboBox* m_list;
    QLabel* m_totals;
    QWidget* m_files;  ///< buttons of the file formats
};

MaterialPanel::MaterialPanel()
    : m_model(new MaterialModel(this)),
      m_order(new MaterialOrder(this)),
      m_view(new QTableView),
      m_search(new QLineEdit),
      m_list(new QComboBox),
      m_totals(new QLabel),
      m_files(new QWidget) {
    m_order->setSourceModel(m_model);
    m_view->setModel(m_order);
    m_view->setObjectName(QStringLiteral("lista_material"));
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setShowGrid(false);
    m_view->setAlternatingRowColors(true);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(24);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* head = m_view->horizontalHeader();
    head->setHighlightSections(false);
    head->setStretchLastSection(true);
    // As listed until a title is clicked.
    head->setSortIndicator(-1, Qt::AscendingOrder);
    m_view->setSortingEnabled(true);

    m_list->setObjectName(QStringLiteral("lista"));
    m_list->setToolTip(QStringLiteral("Lista de material que se mostra"));
    m_search->setObjectName(QStringLiteral("busca"));
    m_search->setPlaceholderText(QStringLiteral("Buscar na lista"));
    m_search->setClearButtonEnabled(true);
    m_totals->setObjectName(QStringLiteral("totais"));
    QFont bold = m_totals->font();
    bold.setBold(true);
    m_totals->setFont(bold);
    m_totals->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* files = new QHBoxLayout(m_files);
    files->setContentsMargins(0, 0, 0, 0);
    auto* top = new QHBoxLayout;
    top->addWidget(m_list);
    top->addWidget(m_search, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(button(QStringLiteral("tabela"), QStringLiteral("Tabela"),
                             QStringLiteral("Desenha a tabela no desenho, ou a põe em dia"),
                             &MaterialPanel::drawTable));
    bottom->addWidget(button(QStringLiteral("atualizar"), QStringLiteral("Atualizar"),
                             QStringLiteral("Lê a lista de novo"), &MaterialPanel::update));
    bottom->addWidget(m_files);
    bottom->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addLayout(top);
    layout->addWidget(m_view);
    layout->addWidget(m_totals);
    layout->addLayout(bottom);

    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        const QScopedValueRollback guard(m_selecting, true);
        m_order->setFilterFixedString(text);
        showTotals();
    });
    connect(m_list, &QComboBox::currentIndexChanged, this, [this] {
        const QScopedValueRollback guard(m_selecting, true);
        m_order->setList(m_list->currentData().toInt());
        showTotals();
    });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MaterialPanel::selectPieces);
    // A row that is chosen already, after Esc in the drawing.
    connect(m_view, &QTableView::clicked, this, &MaterialPanel::selectPieces);
    loadLists();
}

template <class Act>
QPushButton* MaterialPanel::button(const QString& name, const QString& text, const QString& hint,
                                   Act act) {
    auto* made = new QPushButton(text);
    made->setObjectName(name);
    made->setToolTip(hint);
    connect(made, &QPushButton::clicked, this, act);
    return made;
}

void MaterialPanel::setEditor(Editor* editor) {
    m_editor = editor;
    m_watch.forget();
    refresh();
}

void MaterialPanel::refresh() {
    if (m_editor != nullptr && !m_watch.news(*m_editor)) return;
    load();
}

void MaterialPanel::load() {
    const QScopedValueRollback guard(m_selecting, true);
    MaterialSchema schema = materialSchema();
    const bool other = schema != m_model->schema();
    std::vector<MaterialRow> rows;
    if (m_editor != nullptr) rows = materialRows(m_editor->database(), schema);
    m_model->setRows(std::move(rows), std::move(schema));
    if (other) showSchema();
    loadLists();
    showTotals();
}

/// Widths of the columns, and a button for each file format.
void MaterialPanel::showSchema() {
    const MaterialSchema& schema = m_model->schema();
    for (std::size_t i = 0; i < schema.columns.size(); ++i)
        m_view->horizontalHeader()->resizeSection(static_cast<int>(i),
                                                  kCharacterWidth * schema.columns[i].width);
    qDeleteAll(m_files->findChildren<QPushButton*>());
    for (const MaterialSchema::Format& format : schema.formats)
        m_files->layout()->addWidget(
            button(format.extension, format.name + u'…',
                   QStringLiteral("Grava a lista num arquivo ") + format.name,
                   [this, format] { write(format); }));
}

void MaterialPanel::loadLists() {
    std::map<int, QString> lists;
    for (const MaterialRow& row : m_model->rows())
        if (row.list > 0) lists.emplace(row.list, row.group);
    m_list->setVisible(lists.size() > 1);
    if (lists == m_lists && m_list->count() > 0) return;
    const int before = m_list->currentData().toInt();
    m_lists = std::move(lists);
    m_list->clear();
    m_list->addItem(QStringLiteral("Todas as listas"), 0);
    for (const auto& [number, group] : m_lists)
        m_list->addItem(QStringLiteral("%1: %2").arg(number).arg(group), number);
    m_list->setCurrentIndex(std::max(0, m_list->findData(before)));
}

std::vector<int> MaterialPanel::visibleRows() const {
    std::vector<int> rows;
    for (int i = 0; i < m_order->rowCount(); ++i)
        rows.push_back(m_order->mapToSource(m_order->index(i, 0)).row());
    return rows;
}

void MaterialPanel::showTotals() {
    const std::vector<int> visible = visibleRows();
    const std::vector<MaterialSchema::Column>& columns = m_model->schema().columns;
    QStringList sums;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].summed) continue;
        double sum = 0.0;
        for (const int row : visible)
            if (!m_model->row(row).erased) sum += m_model->row(row).numbers[i];
        sums << commaText(sum, 2) + u' ' + columns[i].unit;
    }
    m_totals->setText(QStringLiteral("Total: ") + sums.join(QStringLiteral("   ")));
}

/// Before the menus, which copy the text of the command line.
bool MaterialPanel::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->accept();
        return true;
    }
    return Panel::event(event);
}

void MaterialPanel::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copy();
    else
        Panel::keyPressEvent(event);
}

void MaterialPanel::selectPieces() {
    if (m_editor == nullptr || m_selecting || m_editor->runner().active()) return;
    std::vector<AcDbObjectId> ids;
    std::unordered_set<Adesk::LongPtr> taken;
    for (const QModelIndex& index : m_view->selectionModel()->selectedRows())
        for (const AcDbObjectId id : m_model->row(m_order->mapToSource(index).row()).ids)
            if (!id.isErased() && taken.insert(id.asOldId()).second) ids.push_back(id);
    if (m_editor->selection().ids() == ids) return;
    m_editor->selection().select(std::move(ids));
    emit changed();
}

/// Titles and rows with tabs between, for a spreadsheet; all rows when none is selected.
void MaterialPanel::copy() {
    QModelIndexList chosen = m_view->selectionModel()->selectedRows();
    std::sort(chosen.begin(), chosen.end());
    std::vector<int> rows;
    for (const QModelIndex& index : chosen) rows.push_back(m_order->mapToSource(index).row());
    if (rows.empty()) rows = visibleRows();
    QStringList titles;
    for (const MaterialSchema::Column& column : m_model->schema().columns) titles << column.title;
    QString text = titles.join(u'\t') + u'\n';
    for (const int row : rows) {
        QStringList cells;
        for (QString cell : m_model->row(row).texts) cells << cell.replace(u'\t', u' ');
        text += cells.join(u'\t') + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
}

int MaterialPanel::chosenList() const {
    if (m_lists.size() < 2) return 0;
    const int chosen = m_list->currentData().toInt();
    return chosen > 0 ? chosen : -1;
}

void MaterialPanel::update() {
    m_watch.forget();
    refresh();
}

void MaterialPanel::drawTable() {
    if (m_model->schema().command.isEmpty()) {
        emit messageWanted(QStringLiteral(
            "Nenhum módulo com lista de material está carregado; carregue-o com o comando ARX."));
        return;
    }
    const int list = chosenList();
    QString line = m_model->schema().command + QStringLiteral(" _") + m_model->schema().draw;
    if (list > 0) line += QStringLiteral("\n%1").arg(list);
    emit commandWanted(line);
}

void MaterialPanel::write(const MaterialSchema::Format& format) {
    const int list = chosenList();
    if (list < 0) {
        emit messageWanted(
            QStringLiteral("O desenho tem várias listas; escolha no painel a que se grava."));
        return;
    }
    QString name = QFileDialog::getSaveFileName(
        this, QStringLiteral("Gravar lista de material"),
        QStringLiteral("lista.") + format.extension,
        QStringLiteral("Planilha %1 (*.%2)").arg(format.name, format.extension));
    if (name.isEmpty()) return;
    // Only a name that the window showed was confirmed there.
    bool confirmed = QFileInfo::exists(name);
    if (!name.endsWith(u'.' + format.extension, Qt::CaseInsensitive)) {
        name += u'.' + format.extension;
        confirmed = false;
    }
    if (name.size() > kLongestName) {
        emit messageWanted(
            QStringLiteral("O caminho passa de 131 caracteres; escolha uma pasta mais curta: ") +
            name);
        return;
    }
    QString line = m_model->schema().command + QStringLiteral(" _") + format.word;
    if (list > 0) line += QStringLiteral("\n%1").arg(list);
    line += u'\n' + name;
    if (confirmed) line += QStringLiteral("\n_Yes");
    emit commandWanted(line);
}

}  // namespace

std::unique_ptr<Panel> makeMaterialPanel() { return std::make_unique<MaterialPanel>(); }

}  // namespace prancheta::desktop
