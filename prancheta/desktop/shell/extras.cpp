// SPDX-License-Identifier: MIT
// The main window's other windows: log, manual, options, about, context menu.
#include <QApplication>
#include <QCursor>
#include <QFontDatabase>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "prancheta/desktop/dialogs/run_dialog.h"
#include "prancheta/desktop/shell/help_window.h"
#include "prancheta/desktop/shell/main_window.h"
#include "prancheta/desktop/shell/object_fields.h"
#include "prancheta/desktop/shell/options_dialog.h"
#include "prancheta/desktop/shell/plot_dialog.h"
#include "prancheta/desktop/shell/status_bar.h"
#include "prancheta/editor/snap_modes.h"

namespace prancheta::desktop {

/// The same text as above the command line, in a large window; F2 opens and closes it.
void MainWindow::showLog() {
    if (m_logWindow == nullptr) {
        m_logWindow = new QWidget(this, Qt::Window);
        m_logWindow->setWindowTitle("Janela de texto — Prancheta");
        m_logWindow->resize(760, 560);
        auto* const text = new QPlainTextEdit(m_logWindow);
        text->setReadOnly(true);
        text->setDocument(m_commandLine->document());
        auto* const column = new QVBoxLayout(m_logWindow);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(text);
        for (const int key : {Qt::Key_F2, Qt::Key_Escape}) {
            auto* const close = new QAction(m_logWindow);
            close->setShortcut(key);
            connect(close, &QAction::triggered, m_logWindow, &QWidget::hide);
            m_logWindow->addAction(close);
        }
    }
    m_logWindow->show();
    m_logWindow->raise();
    m_logWindow->activateWindow();
    if (auto* const text = m_logWindow->findChild<QPlainTextEdit*>())
        text->verticalScrollBar()->setValue(text->verticalScrollBar()->maximum());
}

/// Local name of the command that runs; empty when none does.
QString MainWindow::runningCommand() const {
    if (m_ui->idle() || m_editor == nullptr) return {};
    const QString typed = QString::fromStdWString(m_editor->runner().activeName());
    const QString name = namesOf(typed).section(' ', 0, 0);
    return name.isEmpty() ? typed : name;
}

void MainWindow::showHelp() {
    if (m_help == nullptr)
        m_help = new HelpWindow(m_installation / "Prancheta" / "manual.md", this);
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
    m_help->showCommand(runningCommand());
}

/// A window of the dialog's own: while a dialog waits, only what belongs to it can be used.
void MainWindow::showDialogHelp(QWidget& window, const QString& dialog) {
    auto* help = window.findChild<HelpWindow*>();
    if (help == nullptr) help = new HelpWindow(m_installation / "Prancheta" / "manual.md", &window);
    help->show();
    help->raise();
    help->activateWindow();
    help->showDialog(runningCommand(), dialog);
}

/// At once, whatever stands on the screen.
void MainWindow::applyOptions() {
    const WindowOptions options = WindowOptions::load();
    static const QFont theUsualFont = QApplication::font();
    const auto fontOf = [](const QString& kept, QFont usual) {
        if (!kept.isEmpty()) usual.fromString(kept);
        return usual;
    };
    applyTheme(options.theme);
    QApplication::setFont(fontOf(options.font, theUsualFont));
    announceMetrics(*this);
    m_commandLine->setTextFont(
        fontOf(options.commandFont, QFontDatabase::systemFont(QFontDatabase::FixedFont)));
    QLocale::setDefault(options.decimalPoint ? QLocale(QLocale::English, QLocale::UnitedStates)
                                             : QLocale(QLocale::Portuguese, QLocale::Brazil));
    drawIcons();
    const Palette colors = options.colors();
    m_canvas->setColors(colors);
    announceGround(colors.ground);
    if (m_editor == nullptr) return;
    const struct {
        const wchar_t* name;
        int value;
    } kVariables[] = {{L"CURSORSIZE", options.crosshair},
                      {L"PICKBOX", options.pickBox},
                      {L"GRIPS", options.grips},
                      {L"GRIPSIZE", options.gripSize},
                      {L"OSMODE", options.snaps}};
    for (const auto& variable : kVariables)  // in range
        (void)m_editor->variables().set(variable.name, static_cast<short>(variable.value));
    // Their texts and pictures are made anew.
    for (Panel* const panel : m_panels) panel->setEditor(m_editor);
    m_fields->setEditor(m_editor);
    m_status->refresh();
    m_canvas->refresh();
}

void MainWindow::showOptions() {
    WindowOptions now = WindowOptions::load();
    // As they are set at the moment, by whatever means.
    const SystemVariables& variables = m_editor->variables();
    now.crosshair = variables.number(L"CURSORSIZE");
    now.pickBox = variables.number(L"PICKBOX");
    now.grips = variables.number(L"GRIPS") != 0;
    now.gripSize = variables.number(L"GRIPSIZE");
    now.snaps = variables.number(L"OSMODE");
    OptionsDialog dialog(now, this);
    if (dialog.exec() != QDialog::Accepted) return;
    dialog.options().save();
    applyOptions();
    emit optionsChanged();
}

void MainWindow::showAbout() {
    QMessageBox::about(
        this, "Sobre a Prancheta",
        "<h3>Prancheta " + QApplication::applicationVersion() +
            "</h3><p>Perfis de aço formados a frio, laminados e soldados, com cotas, "
            "chapas e lista de material.</p><p>Licença MIT.</p>");
}

void MainWindow::showContextMenu(const QPoint& global) {
    QMenu menu(this);
    const QString line = QString::fromStdWString(m_editor->runner().lastCommand());
    if (!line.isEmpty()) {
        const QString name = namesOf(line).section(' ', 0, 0);
        connect(menu.addAction("&Repetir " + (name.isEmpty() ? line : name)), &QAction::triggered,
                this, [this] { m_ui->answerText({}); });
        menu.addSeparator();
    }
    for (const char* const entry :
         {"_EDITAPERFIL", "_MOVE", "_COPY", "_ROTATE", "_MIRROR", "_ERASE", "'_ZOOM _E"})
        if (QAction* const action = m_entries.value(entry)) menu.addAction(action);
    if (!menu.isEmpty()) menu.exec(global);
}

/// The snap chosen counts for the point that is asked for.
void MainWindow::showSnapMenu(const QPoint& global) {
    QMenu menu(this);
    const auto add = [&](const wchar_t* name, int bit) {
        RawInput input;
        input.kind = RawInput::Kind::Snap;
        input.text = name;
        input.snapModes = bit;
        connect(menu.addAction(QString::fromWCharArray(name)), &QAction::triggered, m_ui,
                [this, input] { m_ui->answer(input); });
    };
    for (const SnapMode& mode : kSnapModes) add(mode.local, mode.bit);
    menu.addSeparator();
    add(L"Nenhum", 0);
    menu.exec(global);
}

}  // namespace prancheta::desktop
