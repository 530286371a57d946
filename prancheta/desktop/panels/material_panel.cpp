// SPDX-License-Identifier: MIT
// Panel of the material lists: rows, totals, the way into drawing and spreadsheet.
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "prancheta/desktop/panels/list_file.h"
#include "prancheta/desktop/panels/material_model.h"
#include "prancheta/desktop/panels/material_order.h"
#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/desktop/panels/watch.h"

namespace prancheta::desktop {
namespace {

/// Of a text, in a column that nobody widened.
constexpr qsizetype kMostCharacters = 14;

/// What a row stands for in the drawing: its pieces, or what it is tied to in their place.
const std::vector<AcDbObjectId>& drawnFor(const MaterialRow& row) {
    return row.pieces.empty() ? row.ids : row.pieces;
}

class MaterialPanel : public Panel {
public:
    MaterialPanel();
    void setEditor(Editor* editor) override;
    void refresh() override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <class Act>
    QPushButton* button(const QString& name, const QString& text, const QString& hint, Act act);
    void load();
    void show(std::vector<MaterialRow> rows, MaterialSchema schema);
    void showSchema();
    void widenColumns();
    void loadLists();
    void showTotals();
    void selectPieces();
    void markRows();
    void edit(int row, int column, const QString& text);
    std::vector<std::size_t> shownColumns() const;
    void chooseColumns(const QPoint& where);
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
    Watch m_selection{Watch::Selection::Counts};
    std::unordered_map<Adesk::LongPtr, int> m_rowOf;  ///< by piece or mark
    std::map<std::wstring, bool> m_chosenColumns;     ///< shown or not, as the user wants
    std::set<std::wstring> m_setByUser;               ///< columns with a width of his
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
    m_view->setAccessibleName(QStringLiteral("Lista de material"));
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_view->setShowGrid(false);
    m_view->setAlternatingRowColors(true);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(24);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* head = m_view->horizontalHeader();
    head->setHighlightSections(false);
    head->setStretchLastSection(true);
    head->setSectionsMovable(true);
    head->setContextMenuPolicy(Qt::CustomContextMenu);
    // As listed until a title is clicked.
    head->setSortIndicator(-1, Qt::AscendingOrder);
    m_view->setSortingEnabled(true);

    m_list->setObjectName(QStringLiteral("lista"));
    m_list->setToolTip(QStringLiteral("Lista de material que se mostra"));
    m_search->setObjectName(QStringLiteral("busca"));
    m_search->setPlaceholderText(QStringLiteral("Buscar na lista"));
    m_search->setAccessibleName(m_search->placeholderText());
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
    connect(head, &QHeaderView::customContextMenuRequested, this, &MaterialPanel::chooseColumns);
    connect(head, &QHeaderView::sectionResized, this, [this](int column) {
        if (QGuiApplication::mouseButtons() != Qt::NoButton)
            m_setByUser.insert(m_model->schema().columns[static_cast<std::size_t>(column)].key);
    });
    m_model->onEdit = [this](int row, int column, const QString& text) { edit(row, column, text); };
    connect(m_view, &QTableView::activated, this, [this](const QModelIndex& index) {
        if (index.flags().testFlag(Qt::ItemIsEditable)) m_view->edit(index);
    });
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
    // What is shown belongs to a drawing that may have gone.
    show({}, materialSchema());
    m_watch.forget();
    m_selection.forget();
    refresh();
}

void MaterialPanel::refresh() {
    // Long lists are read when somebody sees them.
    if (m_editor == nullptr || !isVisible()) return;
    if (m_watch.news(*m_editor)) load();
    if (m_selection.news(*m_editor)) markRows();
}

void MaterialPanel::showEvent(QShowEvent* event) {
    Panel::showEvent(event);
    if (m_editor != nullptr && !m_editor->runner().active()) refresh();
}

/// Reads the list again; the cell that the keyboard is in stays the same, and so does what is seen.
void MaterialPanel::load() {
    const QModelIndex at = m_order->mapToSource(m_view->currentIndex());
    const AcDbObjectId current = at.isValid() ? m_model->row(at.row()).record : AcDbObjectId();
    const int top = m_view->verticalScrollBar()->value();
    MaterialSchema schema = materialSchema();
    std::vector<MaterialRow> rows = materialRows(m_editor->database(), schema);
    show(std::move(rows), std::move(schema));
    m_view->doItemsLayout();
    m_view->verticalScrollBar()->setValue(top);
    const auto same = std::find_if(
        m_model->rows().begin(), m_model->rows().end(),
        [&](const MaterialRow& row) { return !current.isNull() && row.record == current; });
    if (same == m_model->rows().end()) return;
    const auto row = static_cast<int>(same - m_model->rows().begin());
    m_view->selectionModel()->setCurrentIndex(
        m_order->mapFromSource(m_model->index(row, at.column())), QItemSelectionModel::NoUpdate);
}

void MaterialPanel::show(std::vector<MaterialRow> rows, MaterialSchema schema) {
    const QScopedValueRollback guard(m_selecting, true);
    const bool other = schema != m_model->schema();
    m_model->setRows(std::move(rows), std::move(schema));
    // Rows come without their marks again.
    m_selection.forget();
    m_rowOf.clear();
    for (std::size_t i = 0; i < m_model->rows().size(); ++i)
        for (const auto* ids : {&m_model->rows()[i].pieces, &m_model->rows()[i].ids})
            for (const AcDbObjectId& id : *ids)
                m_rowOf.try_emplace(id.asOldId(), static_cast<int>(i));
    if (other) showSchema();
    widenColumns();
    loadLists();
    showTotals();
}

/// The columns that are wanted, and a button for each file format.
void MaterialPanel::showSchema() {
    const MaterialSchema& schema = m_model->schema();
    QHeaderView* const head = m_view->horizontalHeader();
    for (std::size_t i = 0; i < schema.columns.size(); ++i) {
        const auto chosen = m_chosenColumns.find(schema.columns[i].key);
        const bool shown =
            chosen != m_chosenColumns.end() ? chosen->second : schema.columns[i].shown;
        head->setSectionHidden(static_cast<int>(i), !shown);
        if (shown) head->resizeSection(static_cast<int>(i), head->minimumSectionSize());
    }
    qDeleteAll(m_files->findChildren<QPushButton*>());
    for (const MaterialSchema::Format& format : schema.formats)
        m_files->layout()->addWidget(
            button(format.extension, format.name + u'…',
                   QStringLiteral("Grava a lista num arquivo ") + format.name,
                   [this, format] { write(format); }));
}

/// As wide as title and longest text, but no text takes the place of the others. Columns never get
/// narrower of themselves, and those that the user set stay so.
void MaterialPanel::widenColumns() {
    const QFontMetrics metrics = m_view->fontMetrics();
    QHeaderView* const head = m_view->horizontalHeader();
    const int margin =
        2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_view) + 2);
    for (std::size_t i = 0; i < m_model->schema().columns.size(); ++i) {
        const MaterialSchema::Column& column = m_model->schema().columns[i];
        if (m_setByUser.contains(column.key)) continue;
        QString longest;
        for (const MaterialRow& row : m_model->rows())
            if (row.texts[i].size() > longest.size()) longest = row.texts[i];
        longest.truncate(kMostCharacters);
        const int wanted = margin + std::max(metrics.horizontalAdvance(longest),
                                             metrics.horizontalAdvance(column.heading));
        if (wanted > head->sectionSize(static_cast<int>(i)))
            head->resizeSection(static_cast<int>(i), wanted);
    }
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
    std::map<QString, QString> known;  // by unit, the first sum
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].summed) continue;
        double sum = 0.0;
        for (const int row : visible)
            if (!m_model->row(row).erased) sum += m_model->row(row).numbers[i];
        const QString text = commaText(sum, 2) + u' ' + columns[i].unit;
        const auto [first, isNew] = known.emplace(columns[i].unit, text);
        // The net mass of members without cuts is the mass.
        if (isNew)
            sums << text;
        else if (first->second != text)
            sums << columns[i].title.section(QStringLiteral(" ("), 0, 0) + u' ' + text;
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
        for (const AcDbObjectId id : drawnFor(m_model->row(m_order->mapToSource(index).row())))
            if (!id.isErased() && taken.insert(id.asOldId()).second) ids.push_back(id);
    if (m_editor->selection().ids() == ids) return;
    m_editor->selection().select(std::move(ids));
    // The rows stay as they were chosen, those without pieces, too.
    (void)m_selection.news(*m_editor);
    emit changed();
}

/// The rows of what is selected in the drawing, and the first of them in sight.
void MaterialPanel::markRows() {
    const QScopedValueRollback guard(m_selecting, true);
    std::set<int> marked;
    for (const AcDbObjectId id : m_editor->selection().ids()) {
        const auto row = m_rowOf.find(id.asOldId());
        if (row == m_rowOf.end()) continue;
        const QModelIndex index = m_order->mapFromSource(m_model->index(row->second, 0));
        if (index.isValid()) marked.insert(index.row());
    }
    // Neighbours are one range: a selection costs by its ranges.
    QItemSelection rows;
    for (const int row : marked)
        if (!rows.isEmpty() && rows.last().bottom() == row - 1)
            rows.last() = {rows.last().topLeft(), m_order->index(row, 0)};
        else
            rows.append({m_order->index(row, 0), m_order->index(row, 0)});
    m_view->selectionModel()->select(
        rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (marked.empty()) return;
    m_view->doItemsLayout();  // new rows, or a new order, are laid out later
    m_view->scrollTo(m_order->index(*marked.begin(), std::max(0, m_view->currentIndex().column())));
}

/// Once the cell's editor is closed, since the rows are read again.
void MaterialPanel::edit(int row, int column, const QString& text) {
    const MaterialSchema::Column what = m_model->schema().columns[static_cast<std::size_t>(column)];
    const auto change = [this, text, what, given = m_model->row(row)] {
        if (m_editor == nullptr) return;
        if (const Result<void> done = changeMaterial(*m_editor, given, what, text); !done) {
            emit messageWanted(what.title + QStringLiteral(": ") +
                               QString::fromStdString(done.error().message()));
            return;
        }
        update();
        emit changed();
    };
    QMetaObject::invokeMethod(this, change, Qt::QueuedConnection);
}

/// Columns as they are shown, from left to right.
std::vector<std::size_t> MaterialPanel::shownColumns() const {
    const QHeaderView* const head = m_view->horizontalHeader();
    std::vector<std::size_t> shown;
    for (int i = 0; i < head->count(); ++i)
        if (const int column = head->logicalIndex(i); !head->isSectionHidden(column))
            shown.push_back(static_cast<std::size_t>(column));
    return shown;
}

void MaterialPanel::chooseColumns(const QPoint& where) {
    QHeaderView* const head = m_view->horizontalHeader();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int i = 0; i < m_model->columnCount(); ++i) {
        const MaterialSchema::Column& column =
            m_model->schema().columns[static_cast<std::size_t>(i)];
        QAction* const entry = menu->addAction(column.title);
        entry->setCheckable(true);
        entry->setChecked(!head->isSectionHidden(i));
        // Without any there would be no title to click.
        entry->setEnabled(!entry->isChecked() || shownColumns().size() > 1);
        connect(entry, &QAction::toggled, this, [this, head, i, key = column.key](bool shown) {
            m_chosenColumns[key] = shown;
            head->setSectionHidden(i, !shown);
        });
    }
    menu->popup(head->mapToGlobal(where));
}

/// Titles and rows with tabs between, for a spreadsheet; all rows when none is selected.
void MaterialPanel::copy() {
    QModelIndexList chosen = m_view->selectionModel()->selectedRows();
    std::sort(chosen.begin(), chosen.end());
    std::vector<int> rows;
    for (const QModelIndex& index : chosen) rows.push_back(m_order->mapToSource(index).row());
    if (rows.empty()) rows = visibleRows();
    const std::vector<std::size_t> columns = shownColumns();
    QStringList titles;
    for (const std::size_t i : columns) titles << m_model->schema().columns[i].title;
    QString text = titles.join(u'\t') + u'\n';
    for (const int row : rows) {
        QStringList cells;
        for (const std::size_t i : columns)
            cells << QString(m_model->row(row).texts[i]).replace(u'\t', u' ');
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
    writeListFile(*this, m_model->schema(), format,
                  {QStringLiteral("Gravar lista de material"), QStringLiteral("lista"), {}, list});
}

}  // namespace

std::unique_ptr<Panel> makeMaterialPanel() { return std::make_unique<MaterialPanel>(); }

}  // namespace prancheta::desktop
