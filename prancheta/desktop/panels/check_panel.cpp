// SPDX-License-Identifier: MIT
// Panel of the check: what a module finds wrong with the job, and the way to where it is.
#include <QAbstractTableModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/desktop/panels/watch.h"
#include "protocol/check.h"
#include "rxdict.h"

namespace prancheta::desktop {
namespace {

/// Pixels.
constexpr int kSeverityWidth = 28;
constexpr int kMarkWidth = 64;
/// Room about what is shown, over its size; the least side of what is shown, drawing units.
constexpr double kRoomAround = 0.25;
constexpr double kLeastSide = 100.0;

/// A finding in words of our own: the module that told it may go.
struct Row {
    bool hint = false;
    QString mark;
    QString text;
    QString remedy;
    AcGePoint3d place;
    std::vector<AcDbObjectId> objects;
};

class FindingModel : public QAbstractTableModel, public protocol::FindingVisitor {
public:
    enum Column { Severity, Mark, Text, kColumns };
    using QAbstractTableModel::QAbstractTableModel;

    void finding(const protocol::Finding& f) override {
        m_tally.count(f);
        m_rows.push_back({f.severity == protocol::Severity::Hint,
                          qt(f.mark),
                          qt(f.text),
                          qt(f.remedy),
                          f.place,
                          {f.objects.begin(), f.objects.end()}});
    }
    /// `fill` tells the findings.
    template <class Fill>
    void reset(Fill fill) {
        beginResetModel();
        m_rows.clear();
        m_tally = {};
        fill(*this);
        endResetModel();
    }
    const Row& row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }
    QString summary() const { return qt(m_tally.summary()); }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : kColumns;
    }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return section == Mark   ? QStringLiteral("Marca")
               : section == Text ? QStringLiteral("O que há")
                                 : QString();
    }

private:
    std::vector<Row> m_rows;
    protocol::Tally m_tally;
};

QVariant FindingModel::data(const QModelIndex& index, int role) const {
    const Row& r = row(index.row());
    if (role == Qt::ToolTipRole) return QString(r.text + u'\n' + r.remedy);
    if (index.column() == Severity) {
        const QString name = r.hint ? QStringLiteral("Aviso") : QStringLiteral("Falha");
        if (role == Qt::AccessibleTextRole) return name;
        if (role == Qt::DecorationRole)
            return static_cast<QWidget*>(QObject::parent())
                ->style()
                ->standardIcon(r.hint ? QStyle::SP_MessageBoxInformation
                                      : QStyle::SP_MessageBoxWarning);
        return {};
    }
    if (role != Qt::DisplayRole) return {};
    return index.column() == Mark ? r.mark : r.text;
}

class CheckPanel : public Panel {
public:
    CheckPanel();
    void setEditor(Editor* editor) override;
    void refresh() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void check();
    void showText();
    void showPlace();

    Editor* m_editor = nullptr;
    Watch m_watch{Watch::Selection::Ignored};
    bool m_checked = false;
    FindingModel* m_model;
    QTableView* m_view;
    QLabel* m_text;  ///< of the current finding, whole
    QLabel* m_summary;
};

CheckPanel::CheckPanel()
    : m_model(new FindingModel(this)),
      m_view(new QTableView),
      m_text(new QLabel),
      m_summary(new QLabel) {
    m_view->setModel(m_model);
    m_view->setObjectName(QStringLiteral("achados"));
    m_view->setAccessibleName(QStringLiteral("Achados da conferência"));
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setShowGrid(false);
    m_view->setAlternatingRowColors(true);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(24);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->horizontalHeader()->setHighlightSections(false);
    m_view->horizontalHeader()->setStretchLastSection(true);
    m_view->horizontalHeader()->resizeSection(FindingModel::Severity, kSeverityWidth);
    m_view->horizontalHeader()->resizeSection(FindingModel::Mark, kMarkWidth);
    m_text->setObjectName(QStringLiteral("texto"));
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_summary->setObjectName(QStringLiteral("resumo"));
    m_summary->setWordWrap(true);

    auto* run = new QPushButton(QStringLiteral("Conferir"));
    run->setObjectName(QStringLiteral("conferir"));
    run->setToolTip(QStringLiteral("Confere peças, lista e cotas do desenho"));
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(run);
    bottom->addWidget(m_summary, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_view);
    layout->addWidget(m_text);
    layout->addLayout(bottom);
    connect(run, &QPushButton::clicked, this, &CheckPanel::check);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CheckPanel::showText);
    connect(m_model, &QAbstractItemModel::modelReset, m_text, &QLabel::clear);
    connect(m_view, &QTableView::doubleClicked, this, &CheckPanel::showPlace);
}

void CheckPanel::setEditor(Editor* editor) {
    m_editor = editor;
    m_checked = false;
    m_model->reset([](FindingModel&) {});
    m_summary->clear();
}

/// Findings stay to be worked off, with a word that they are of before.
void CheckPanel::refresh() {
    if (m_editor == nullptr || !m_checked || !m_watch.news(*m_editor)) return;
    m_checked = false;
    m_summary->setText(m_model->summary() + QStringLiteral(" O desenho mudou depois."));
}

void CheckPanel::check() {
    if (m_editor == nullptr) return;
    const auto* const check = static_cast<const protocol::DrawingCheck*>(
        acrxSysRegistry()->at(protocol::kDrawingCheckKey));
    if (check == nullptr) {
        emit messageWanted(QStringLiteral(
            "Nenhum módulo que confere desenhos está carregado; carregue-o com o comando ARX."));
        return;
    }
    m_model->reset([&](FindingModel& model) { check->check(m_editor->database(), model); });
    m_watch.forget();
    (void)m_watch.news(*m_editor);
    m_checked = true;
    m_summary->setText(m_model->summary());
}

void CheckPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        showPlace();
    else
        Panel::keyPressEvent(event);
}

void CheckPanel::showText() {
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid()) return m_text->clear();
    const Row& row = m_model->row(current.row());
    m_text->setText(row.text + u' ' + row.remedy);
}

/// Selects what the finding is about, and zooms there. What stands in a block cannot be selected.
void CheckPanel::showPlace() {
    const QModelIndex current = m_view->currentIndex();
    if (m_editor == nullptr || !current.isValid() || m_editor->runner().active()) return;
    const Row& row = m_model->row(current.row());
    std::vector<AcDbObjectId> ids;
    AcDbExtents box;
    for (const AcDbObjectId& id : row.objects) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.object() == nullptr) continue;
        if (entity->ownerId() != m_editor->database().currentSpaceId()) {
            emit messageWanted(QStringLiteral("O objeto da falha está em %1.")
                                   .arg(qt(recordName(entity->ownerId()))));
            return;
        }
        AcDbExtents own;
        if (entity->getGeomExtents(own) == Acad::eOk) box.addExt(own);
        ids.push_back(id);
    }
    // What has no picture of its own is shown by its place.
    if (ids.empty()) box.addPoint(row.place);
    m_editor->selection().select(std::move(ids));
    emit changed();
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    const double room = kRoomAround * std::max({size.x, size.y, kLeastSide});
    const auto corner = [](double x, double y) {
        return QStringLiteral("%1,%2").arg(x, 0, 'f', 3).arg(y, 0, 'f', 3);
    };
    emit commandWanted(QStringLiteral("'_ZOOM _Window\n") +
                       corner(box.minPoint().x - room, box.minPoint().y - room) + u'\n' +
                       corner(box.maxPoint().x + room, box.maxPoint().y + room));
}

}  // namespace

std::unique_ptr<Panel> makeCheckPanel() { return std::make_unique<CheckPanel>(); }

}  // namespace prancheta::desktop
