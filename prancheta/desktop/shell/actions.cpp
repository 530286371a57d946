// SPDX-License-Identifier: MIT
// What the main window itself does on behalf of menus and keys.
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QShortcut>
#include <QToolBar>

#include "prancheta/desktop/shell/icons.h"
#include "prancheta/desktop/shell/main_window.h"
#include "prancheta/desktop/shell/status_bar.h"
#include "prancheta/editor/picking.h"

namespace prancheta::desktop {

void MainWindow::registerActions() {
    m_windowActions = {
        {"desfazer", [this] { undo(); }},
        {"selecionar-tudo", [this] { selectAll(); }},
        {"copiar-texto", [this] { copyText(); }},
        {"colar-texto",
         [this] { m_commandLine->edit().pasteText(QApplication::clipboard()->text()); }},
        {"texto", [this] { showLog(); }},
        {"opcoes", [this] { showOptions(); }},
        {"plotar", [this] { showPlot(); }},
        {"manual", [this] { showHelp(); }},
        {"sobre", [this] { showAbout(); }},
        {"sair", [this] { close(); }},
        {"snap", [this] { m_status->toggle("SNAP"); }},
        {"grade", [this] { m_status->toggle("GRADE"); }},
        {"orto", [this] { m_status->toggle("ORTO"); }},
        {"passo", [this] { m_status->toggle("PASSO"); }},
        {"espessura", [this] { m_status->toggle("ESPESSURA"); }},
    };
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
    m_editor->pickfirst() = allEntities(*m_editor);
    m_canvas->refresh();
    showAll();
}

void MainWindow::copyText() {
    const AnswerEdit& edit = m_commandLine->edit();
    const QString chosen =
        edit.hasSelectedText() ? edit.selectedText() : m_commandLine->selectedText();
    if (!chosen.isEmpty()) QApplication::clipboard()->setText(chosen);
}

void MainWindow::openFile(const QString& file) {
    if (!m_ui->idle()) return;
    (void)m_files->open(toPath(file));  // told what went wrong
    showChanges();
    showAll();
}

void MainWindow::fillRecent() {
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

QAction* MainWindow::actionOf(const MenuItem& item, const std::filesystem::path& folder) {
    auto* const action = new QAction(item.title, this);
    QIcon icon = item.slide.isEmpty()
                     ? drawnIcon(item.icon, palette())
                     : slideIcon(folder / "Perfis" / "Slides", item.slide, palette());
    action->setIcon(icon);
    const QString plain = QString(item.title).remove('&').remove("...");
    action->setToolTip(item.tip.isEmpty() ? plain : plain + "\n" + item.tip);
    action->setStatusTip(item.tip);
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

void MainWindow::addItems(QMenu& menu, const std::vector<MenuItem>& items,
                          const std::filesystem::path& folder) {
    for (const MenuItem& item : items) {
        if (item.separator()) {
            menu.addSeparator();
        } else if (item.action == "recentes") {
            m_recent = menu.addMenu(item.title);
            connect(m_files, &DrawingFiles::recentChanged, this, &MainWindow::fillRecent);
            fillRecent();
        } else if (item.action == "paineis") {
            QMenu* const panels = menu.addMenu(item.title);
            connect(panels, &QMenu::aboutToShow, this, [this, panels] { fillView(*panels); });
        } else if (!item.items.empty()) {
            addItems(*menu.addMenu(item.title), item.items, folder);
        } else {
            menu.addAction(actionOf(item, folder));
        }
    }
}

void MainWindow::addToolbar(const Toolbar& bar) {
    if (bar.newRow) addToolBarBreak();
    QToolBar* const toolbar = addToolBar(bar.title);
    toolbar->setObjectName("barra_" + bar.title);
    toolbar->setIconSize({24, 24});
    for (const QString& entry : bar.entries) {
        if (entry.isEmpty()) {
            toolbar->addSeparator();
        } else if (QAction* const action = m_entries.value(entry)) {
            toolbar->addAction(action);
        }
    }
}

void MainWindow::setMenus(const std::filesystem::path& folder) {
    m_installation = folder;
    const auto menus = readMenus(folder / "Prancheta" / "menus.json");
    if (!menus) {
        m_commandLine->print("Os menus não puderam ser lidos; a linha de comando funciona. " +
                             QString::fromStdString(menus.error().message()) + "\n");
        return;
    }
    for (const MenuItem& menu : menus->menus)
        addItems(*menuBar()->addMenu(menu.title), menu.items, folder);
    for (const Toolbar& bar : menus->toolbars) addToolbar(bar);
}

}  // namespace prancheta::desktop
