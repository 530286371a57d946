// SPDX-License-Identifier: MIT
// What the main window itself does on behalf of menus and keys.
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QShortcut>
#include <QToolBar>

#include "prancheta/base/text.h"
#include "prancheta/desktop/dialogs/run_dialog.h"
#include "prancheta/desktop/shell/copied_data.h"
#include "prancheta/desktop/shell/main_window.h"
#include "prancheta/desktop/shell/plot_dialog.h"
#include "prancheta/desktop/shell/side_tabs.h"
#include "prancheta/desktop/shell/start_page.h"
#include "prancheta/desktop/shell/status_bar.h"
#include "prancheta/desktop/shell/style_dialog.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/picking.h"
#include "protocol/attach.h"
#include "protocol/edit.h"

namespace prancheta::desktop {
namespace {

/// Aids with a state, by the action of their entry; the name is that of the status bar's button.
const QHash<QString, QString>& toggles() {
    static const QHash<QString, QString> names{
        {"snap", "SNAP"},         {"grade", "GRADE"},        {"orto", "ORTO"},
        {"passo", "PASSO"},       {"polar", "POLAR"},        {"rastreio", "RASTREIO"},
        {"dinamica", "DINAMICA"}, {"espessura", "ESPESSURA"}};
    return names;
}

bool hasDialog(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity.openStatus() == Acad::eOk &&
           protocol::extensionOf<protocol::EntityEditor>(*entity.object(),
                                                         protocol::kEntityEditorClass) != nullptr;
}

}  // namespace

void MainWindow::registerActions() {
    announceHelp([main = QPointer(this)](QWidget& window, const QString& dialog) {
        if (main) main->showDialogHelp(window, dialog);
    });
    m_windowActions.insert({
        {"desfazer", [this] { undo(); }},
        {"selecionar-tudo", [this] { selectAll(); }},
        {"copiar",
         [this] {
             if (!textIsMeant() || !copyText()) m_ui->runCommand("_COPYCLIP");
         }},
        {"colar",
         [this] {
             const QString text = QApplication::clipboard()->text();
             if (drawingIsOffered() || text.isEmpty()) return m_ui->runCommand("_PASTECLIP");
             m_commandLine->edit().pasteText(text);
         }},
        {"copiar-texto", [this] { (void)copyText(); }},
        {"colar-texto",
         [this] { m_commandLine->edit().pasteText(QApplication::clipboard()->text()); }},
        {"texto", [this] { showLog(); }},
        {"opcoes", [this] { showOptions(); }},
        {"manual", [this] { showHelp(); }},
        {"sobre", [this] { showAbout(); }},
        {"sair", [this] { close(); }},
    });
    for (auto toggle = toggles().begin(); toggle != toggles().end(); ++toggle)
        m_windowActions.insert(toggle.key(),
                               [this, name = toggle.value()] { m_status->toggle(name); });
}

/// One step back: inside a command the point that was given last, where the command can.
void MainWindow::undo() {
    const InputRequest* const request = m_ui->request();
    if (request == nullptr) return;
    if (m_ui->idle()) return m_ui->runCommand("_U");
    for (const Keyword& keyword : request->keywords)
        if (keyword.global == L"Undo") return m_ui->answerText("_Undo");
}

void MainWindow::selectAll() {
    if (!m_ui->idle()) return;
    m_editor->selection().select(allEntities(*m_editor));
    m_canvas->refresh();
    showAll();
}

/// Double click: a piece's dialog, the properties of anything else.
void MainWindow::editEntity(AcDbObjectId entity) {
    if (!m_ui->idle()) return;
    m_editor->selection().select({entity});
    m_canvas->refresh();
    showAll();
    if (hasDialog(entity)) return m_ui->runCommand("_EDITAPERFIL");
    if (hasTextToEdit(entity)) return m_ui->runCommand("_DDEDIT");
    showPanel("propriedades");
}

void MainWindow::showPanel(const QString& name) {
    auto* const panel = findChild<QDockWidget*>(name);
    if (panel == nullptr) return;
    SideTabs::show(panel);
}

void MainWindow::showTool(Tool tool) {
    if (tool == Tool::Properties) showPanel("propriedades");
    if (tool == Tool::Layers) showPanel("camadas");
    if (tool == Tool::TextStyles)
        StyleDialog(m_editor->database(), StyleDialog::Kind::Text, this).exec();
    if (tool == Tool::DimensionStyles)
        StyleDialog(m_editor->database(), StyleDialog::Kind::Dimension, this).exec();
    if (tool == Tool::Plot) {
        PlotDialog dialog(*m_editor, this);
        while (dialog.exec() == PlotDialog::kPickWindow) {
            dialog.pickWindow();
            // Who does something else meanwhile does not want to plot any more.
            if (m_ui->leaving() || !m_fileWanted.isEmpty()) return;
        }
    }
}

/// Text that is selected on the command line, unless objects were selected since.
bool MainWindow::textIsMeant() const {
    return m_commandLine->edit().hasSelectedText() || m_editor->selection().empty();
}

/// False when none is selected.
bool MainWindow::copyText() {
    const AnswerEdit& edit = m_commandLine->edit();
    const QString chosen =
        edit.hasSelectedText() ? edit.selectedText() : m_commandLine->selectedText();
    if (!chosen.isEmpty()) QApplication::clipboard()->setText(chosen);
    return !chosen.isEmpty();
}

/// What waits is given up first, as a command of the menus does it.
void MainWindow::openFile(const QString& file) {
    m_fileWanted = file;
    m_cancelsForFile = 0;
    openWanted();
}

void MainWindow::openWanted() {
    if (m_fileWanted.isEmpty() || m_ui->request() == nullptr) return;
    if (!m_ui->idle()) {
        if (++m_cancelsForFile < WindowUi::kMostCancels) return m_ui->cancel();
        return m_fileWanted.clear();
    }
    (void)m_files->open(toPath(std::exchange(m_fileWanted, {})));  // told what went wrong
    showChanges();
    showAll();
}

void MainWindow::fillRecent() {
    m_start->setRecent(m_files->recent());
    if (m_recent == nullptr) return;
    m_recent->clear();
    int number = 0;
    for (const QString& file : m_files->recent()) {
        QAction* const action = m_recent->addAction(
            QString("&%1  %2").arg(++number).arg(QString(file).replace('&', "&&")));
        connect(action, &QAction::triggered, this, [this, file] { openFile(file); });
    }
    m_recent->setEnabled(number > 0);
}

/// Docks and toolbars that can be shown and hidden.
void MainWindow::fillView(QMenu& menu) {
    menu.clear();
    for (QDockWidget* const dock : findChildren<QDockWidget*>())
        menu.addAction(dock->toggleViewAction());
    menu.addSeparator();
    for (QToolBar* const bar : findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        menu.addAction(bar->toggleViewAction());
}

QAction* MainWindow::actionOf(const MenuItem& item) {
    auto* const action = new QAction(item.title, this);
    m_drawn.emplace_back(action, item);
    if (!item.tip.isEmpty()) action->setStatusTip(item.tip);
    action->setCheckable(toggles().contains(item.action));
    if (!item.shortcut.isEmpty()) action->setShortcut(QKeySequence(item.shortcut));
    if (!item.command.isEmpty()) {
        connect(action, &QAction::triggered, this,
                [this, line = item.command] { m_ui->runCommand(line); });
    } else if (const auto known = m_windowActions.constFind(item.action);
               known != m_windowActions.constEnd()) {
        connect(action, &QAction::triggered, this, known.value());
    } else {
        action->setEnabled(false);
        m_commandLine->print("menus.json: a ação \"" + item.action + "\" não é conhecida.\n");
    }
    m_entries.insert(item.command.isEmpty() ? item.action : item.command, action);
    return action;
}

/// Local name and short names of the command that a menu's line begins with.
QString MainWindow::namesOf(const QString& line) const {
    const std::wstring word = line.section(' ', 0, 0).toStdWString();
    const StackCommand* command = m_editor->commands().find(TypedName(word));
    if (command == nullptr)
        command = m_editor->commands().find(TypedName(m_editor->aliases().find(word)));
    if (command == nullptr) return {};
    QStringList aliases;
    for (const auto& [alias, target] : m_editor->aliases().all())
        if (equalNoCase(target, command->global))
            aliases += QString::fromStdWString(alias).toUpper();
    aliases.sort();
    const QString name = QString::fromStdWString(command->local).toUpper();
    return aliases.isEmpty() ? name : name + " (" + aliases.join(", ") + ")";
}

/// Tool tips teach what to type.
void MainWindow::tellCommands() {
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
        QAction& action = **entry;
        QString tip = action.text().remove('&').remove("...");
        if (!action.shortcut().isEmpty())
            tip += " (" + action.shortcut().toString(QKeySequence::NativeText) + ")";
        if (!action.statusTip().isEmpty()) tip += "\n" + action.statusTip();
        const QString names = m_windowActions.contains(entry.key()) ? "" : namesOf(entry.key());
        action.setToolTip(names.isEmpty() ? tip : tip + "\n" + names);
    }
}

void MainWindow::showToggles(const QMenu& menu) {
    for (QAction* const action : menu.actions()) {
        const QString name = toggles().value(m_entries.key(action));
        if (!name.isEmpty()) action->setChecked(m_status->isOn(name));
    }
}

void MainWindow::addItems(QMenu& menu, const std::vector<MenuItem>& items) {
    for (const MenuItem& item : items) {
        if (item.separator()) {
            menu.addSeparator();
        } else if (item.action == "recentes") {
            m_recent = menu.addMenu(item.title);
        } else if (item.action == "paineis") {
            QMenu* const panels = menu.addMenu(item.title);
            connect(panels, &QMenu::aboutToShow, this, [this, panels] { fillView(*panels); });
        } else if (!item.items.empty()) {
            addItems(*menu.addMenu(item.title), item.items);
        } else {
            menu.addAction(actionOf(item));
        }
    }
}

void MainWindow::setMenus(const std::filesystem::path& folder) {
    m_installation = folder;
    connect(m_files, &DrawingFiles::recentChanged, this, &MainWindow::fillRecent);
    fillRecent();
    const auto menus = readMenus(folder / "Prancheta" / "menus.json");
    if (!menus) {
        m_commandLine->print("Os menus não puderam ser lidos; a linha de comando funciona. " +
                             QString::fromStdString(menus.error().message()) + "\n");
        return;
    }
    for (const MenuItem& menu : menus->menus) {
        QMenu* const top = menuBar()->addMenu(menu.title);
        addItems(*top, menu.items);
        connect(top, &QMenu::aboutToShow, this, [this, top] { showToggles(*top); });
    }
    fillRecent();
    drawIcons();
    for (const Toolbar& bar : menus->toolbars) addToolbar(bar);
    fillStartPage(menus->start);
}

}  // namespace prancheta::desktop
