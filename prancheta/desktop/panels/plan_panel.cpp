// SPDX-License-Identifier: MIT
// Panel of the cutting plan: what it is made for, its bars, the way into drawing and files.
#include <QComboBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>
#include <map>

#include "prancheta/desktop/panels/list_file.h"
#include "prancheta/desktop/panels/plan_bars.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/desktop/panels/watch.h"
#include "protocol/plan.h"
#include "rxdict.h"

namespace prancheta::desktop {
namespace {

const protocol::CuttingPlan* planner() {
    return static_cast<const protocol::CuttingPlan*>(
        acrxSysRegistry()->at(protocol::kCuttingPlanKey));
}

/// Stock lengths, saw cut and trim as typed.
using Typed = std::array<QString, 3>;

/// Keeps what a module tells.
class PlanReader : public protocol::PlanVisitor {
public:
    std::map<int, QString> lists;  ///< number and group
    Typed typed;
    int planned = 0;  ///< list that `products` are of
    std::vector<PlanProduct> products;
    std::function<void()> onEnd;

    void list(int number, const ACHAR* group) override { lists.emplace(number, qt(group)); }
    void answers(const Answers& given) override {
        typed = {qt(given.stock), qt(given.sawCut), qt(given.trim)};
    }
    void begin(int list) override {
        planned = list;
        products.clear();
    }
    void product(const ACHAR* line) override { products.push_back({qt(line), {}, {}}); }
    void note(const ACHAR* line) override { products.back().notes << qt(line); }
    void bar(const Bar& told) override {
        products.back().bars.push_back({told.length,
                                        told.count,
                                        told.leftOver,
                                        told.rest,
                                        told.utilisation,
                                        qt(told.cuts),
                                        {}});
    }
    void cut(const ACHAR* marca, double at, double length) override {
        products.back().bars.back().cuts.push_back({qt(marca), at, length});
    }
    void end() override { onEnd(); }
};

class PlanPanel : public Panel {
public:
    PlanPanel();
    ~PlanPanel() override { acrxSysRegistry()->remove(protocol::kPlanViewerKey); }
    void setEditor(Editor* editor) override;
    void refresh() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QPushButton* button(const QString& name, const QString& text, const QString& hint,
                        std::function<void()> act);
    QLayout* questions();
    void describe();
    void showFormats();
    void showTyped();
    void showPlan();
    void tell(const QString& notice);
    bool use(const Typed& typed);
    void compute();
    void draw();
    void write(const MaterialSchema::Format& format);
    /// To be said to a command; 0 when it does not ask.
    int listToSay() const { return m_reader.lists.size() > 1 ? m_reader.planned : 0; }

    Editor* m_editor = nullptr;
    Watch m_watch{Watch::Selection::Ignored};
    PlanReader m_reader;
    Typed m_planned;  ///< for what the plan is that is shown
    std::size_t m_stamp = 0;
    std::vector<MaterialSchema::Format> m_formats;
    QComboBox* m_list;
    std::array<QLineEdit*, 3> m_fields;
    QLabel* m_notice;
    PlanBars* m_bars;
    QWidget* m_outputs;  ///< what can be done with a plan
    QWidget* m_files;    ///< buttons of the file formats
};

PlanPanel::PlanPanel()
    : m_list(new QComboBox),
      m_fields{new QLineEdit, new QLineEdit, new QLineEdit},
      m_notice(new QLabel),
      m_bars(new PlanBars),
      m_outputs(new QWidget),
      m_files(new QWidget) {
    m_list->setObjectName(QStringLiteral("lista"));
    m_notice->setObjectName(QStringLiteral("aviso"));
    m_notice->setWordWrap(true);
    m_bars->setObjectName(QStringLiteral("barras"));
    auto* files = new QHBoxLayout(m_files);
    files->setContentsMargins(0, 0, 0, 0);
    auto* outputs = new QHBoxLayout(m_outputs);
    outputs->setContentsMargins(0, 0, 0, 0);
    outputs->addWidget(button(QStringLiteral("desenhar"), QStringLiteral("Desenhar no ponto…"),
                              QStringLiteral("Põe a tabela e as barras no desenho"),
                              [this] { draw(); }));
    outputs->addWidget(m_files);
    outputs->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_list);
    layout->addLayout(questions());
    layout->addWidget(m_notice);
    layout->addWidget(m_bars, 1);
    layout->addWidget(m_outputs);
    m_reader.onEnd = [this] { showPlan(); };
    acrxSysRegistry()->atPut(protocol::kPlanViewerKey, &m_reader);
}

QLayout* PlanPanel::questions() {
    const struct {
        const char* name;
        const char* label;
        const char* hint;
    } rows[] = {{"estoque", "Barras em estoque", "Comprimentos em mm, separados por vírgula"},
                {"corte", "Largura do corte", "Da serra, em mm"},
                {"refile", "Refile por ponta", "Perda em cada ponta da barra, em mm"}};
    auto* form = new QFormLayout;
    form->setSpacing(4);
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        m_fields[i]->setObjectName(QString::fromUtf8(rows[i].name));
        m_fields[i]->setToolTip(QString::fromUtf8(rows[i].hint));
        connect(m_fields[i], &QLineEdit::returnPressed, this, &PlanPanel::compute);
        form->addRow(QString::fromUtf8(rows[i].label), m_fields[i]);
    }
    form->addRow(button(QStringLiteral("calcular"), QStringLiteral("Calcular"),
                        QStringLiteral("Reparte as peças da lista pelas barras"),
                        [this] { compute(); }));
    return form;
}

QPushButton* PlanPanel::button(const QString& name, const QString& text, const QString& hint,
                               std::function<void()> act) {
    auto* made = new QPushButton(text);
    made->setObjectName(name);
    made->setToolTip(hint);
    connect(made, &QPushButton::clicked, this, std::move(act));
    return made;
}

void PlanPanel::setEditor(Editor* editor) {
    m_editor = editor;
    m_reader.products.clear();
    m_bars->setProducts({});
    m_outputs->setEnabled(false);
    tell({});
    m_watch.forget();
    refresh();
}

void PlanPanel::refresh() {
    if (m_editor == nullptr || !isVisible() || !m_watch.news(*m_editor)) return;
    describe();
    if (m_outputs->isEnabled() && planner() != nullptr &&
        planner()->stamp(m_editor->database(), m_reader.planned) != m_stamp)
        tell(QStringLiteral("A lista mudou depois deste plano; calcule-o de novo."));
}

void PlanPanel::showEvent(QShowEvent* event) {
    Panel::showEvent(event);
    if (m_editor != nullptr && !m_editor->runner().active()) refresh();
}

/// Lists, formats, and the answers where none are typed.
void PlanPanel::describe() {
    showFormats();
    const std::map<int, QString> before = std::exchange(m_reader.lists, {});
    if (planner() != nullptr) planner()->describe(m_editor->database(), m_reader);
    if (m_fields[0]->text().isEmpty()) showTyped();
    m_list->setVisible(m_reader.lists.size() > 1);
    if (m_reader.lists == before) return;
    const int chosen = m_list->currentData().toInt();
    m_list->clear();
    for (const auto& [number, group] : m_reader.lists)
        m_list->addItem(QStringLiteral("%1: %2").arg(number).arg(group), number);
    m_list->setCurrentIndex(std::max(0, m_list->findData(chosen)));
}

void PlanPanel::showFormats() {
    std::vector<MaterialSchema::Format> formats = materialSchema().formats;
    if (formats == m_formats) return;
    m_formats = std::move(formats);
    qDeleteAll(m_files->findChildren<QPushButton*>());
    for (const MaterialSchema::Format& format : m_formats)
        m_files->layout()->addWidget(
            button(format.extension, format.name + u'…',
                   QStringLiteral("Grava o plano num arquivo ") + format.name,
                   [this, format] { write(format); }));
}

void PlanPanel::showTyped() {
    for (std::size_t i = 0; i < m_fields.size(); ++i) m_fields[i]->setText(m_reader.typed[i]);
}

void PlanPanel::showPlan() {
    if (m_editor == nullptr || planner() == nullptr) return;
    m_planned = m_reader.typed;
    m_stamp = planner()->stamp(m_editor->database(), m_reader.planned);
    m_bars->setProducts(std::move(m_reader.products));
    m_outputs->setEnabled(true);
    tell({});
    describe();
    showTyped();
    m_list->setCurrentIndex(std::max(0, m_list->findData(m_reader.planned)));
    emit wanted();
}

void PlanPanel::tell(const QString& notice) {
    m_notice->setText(notice);
    m_notice->setVisible(!notice.isEmpty());
}

/// False when the module does not take them; the reason is told.
bool PlanPanel::use(const Typed& typed) {
    if (planner() == nullptr) {
        tell(QStringLiteral(
            "Nenhum módulo com plano de corte está carregado; carregue-o com o comando ARX."));
        return false;
    }
    ACHAR* message = nullptr;
    const std::wstring stock = typed[0].toStdWString();
    const std::wstring sawCut = typed[1].toStdWString();
    const std::wstring trim = typed[2].toStdWString();
    const bool taken = planner()->use({stock.c_str(), sawCut.c_str(), trim.c_str()}, message);
    const QString why = takenText(message);
    if (!taken) tell(why);
    return taken;
}

void PlanPanel::compute() {
    if (m_editor == nullptr) return;
    if (!use({m_fields[0]->text(), m_fields[1]->text(), m_fields[2]->text()})) return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    ACHAR* message = nullptr;
    const bool planned =
        planner()->plan(m_editor->database(), m_list->currentData().toInt(), m_reader, message);
    QGuiApplication::restoreOverrideCursor();
    const QString why = takenText(message);
    if (planned) return;
    m_bars->setProducts({});
    m_outputs->setEnabled(false);
    tell(why);
}

void PlanPanel::draw() {
    if (planner() == nullptr) return;
    QStringList answers(m_planned.begin(), m_planned.end());
    if (const int list = listToSay(); list > 0) answers.prepend(QString::number(list));
    emit commandWanted(qt(planner()->command()) + u' ' + answers.join(u'\n'));
}

void PlanPanel::write(const MaterialSchema::Format& format) {
    // The files are written with the answers given last, which may be others by now.
    if (!use(m_planned)) return;
    writeListFile(*this, materialSchema(), format,
                  {QStringLiteral("Gravar plano de corte"),
                   QStringLiteral("obra") + qt(protocol::kPlanFileEnd), qt(protocol::kPlanFileEnd),
                   listToSay()});
}

}  // namespace

std::unique_ptr<Panel> makePlanPanel() { return std::make_unique<PlanPanel>(); }

}  // namespace prancheta::desktop
