// SPDX-License-Identifier: MIT
// The main window: drawing area, command line, panels, menus, status bar.
#pragma once

#include <QHash>
#include <QLabel>
#include <QMainWindow>
#include <QToolButton>

#include <memory>
#include <vector>

#include "prancheta/desktop/canvas/canvas.h"
#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/shell/command_line.h"
#include "prancheta/desktop/shell/drawing_files.h"
#include "prancheta/desktop/shell/menu_file.h"
#include "prancheta/desktop/shell/window_ui.h"

namespace prancheta::desktop {

class HelpWindow;
class LayoutTabs;
class ObjectFields;
class StartPage;
class StatusBar;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow();
    ~MainWindow() override;

    /// Shows the editor's drawing; null before the editor goes.
    void setEditor(Editor* editor);
    /// Fills menus and toolbars; `folder` is the installation folder. What is wrong with the file
    /// is told in the log, and the window does with the command line alone.
    void setMenus(const std::filesystem::path& folder);

    WindowUi& ui() { return *m_ui; }
    DrawingFiles& files() { return *m_files; }
    Canvas& canvas() { return *m_canvas; }
    CommandLine& commandLine() { return *m_commandLine; }
    /// Keeps size and arrangement for the next time.
    void saveLayout() const;
    /// The entry of a menu by its command or action; null when there is none.
    QAction* entry(const QString& name) const { return m_entries.value(name); }

signals:
    /// The options were changed in their dialog.
    void optionsChanged();
    /// The editor has another drawing; the former one is gone.
    void documentReplaced();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeUsualSize();
    void makeCanvas();
    void makeCommandLine();
    void makePanels();
    void showOutput(const QString& lines);
    void connectUi();
    AnswerEdit::Fields fieldsOf(const InputRequest& request) const;
    void registerActions();
    void addItems(QMenu& menu, const std::vector<MenuItem>& items);
    QAction* actionOf(const MenuItem& item);
    void addToolbar(const Toolbar& bar);
    QWidget* familyButton(const Family& family, QToolBar& bar,
                          QToolButton::ToolButtonPopupMode mode);
    void fillStartPage(const std::vector<Family>& families);
    /// In the colours of the palette.
    void drawIcons();
    void fillRecent();
    void fillView(QMenu& menu);
    void showChanges();
    void showAll();
    void showContextMenu(const QPoint& global);
    void showSnapMenu(const QPoint& global);
    void undo();
    void selectAll();
    void editEntity(AcDbObjectId entity);
    bool textIsMeant() const;
    bool copyText();
    void openFile(const QString& file);
    void openWanted();
    void showTool(Tool tool);
    void showPanel(const QString& name);
    void showToggles(const QMenu& menu);
    void tellCommands();
    QString namesOf(const QString& line) const;
    void showLog();
    void showHelp();
    void showDialogHelp(QWidget& window, const QString& dialog);
    QString runningCommand() const;
    void showOptions();
    void showAbout();
    void applyOptions();
    void restoreLayout();

    Editor* m_editor = nullptr;
    bool m_laidOut = false;
    QString m_fileWanted;  ///< opened as soon as no command runs
    int m_cancelsForFile = 0;
    std::filesystem::path m_installation;
    Canvas* m_canvas = nullptr;
    LayoutTabs* m_tabs = nullptr;
    CommandLine* m_commandLine = nullptr;
    StatusBar* m_status = nullptr;
    QLabel* m_output = nullptr;
    ObjectFields* m_fields = nullptr;
    StartPage* m_start = nullptr;
    DrawingFiles* m_files = nullptr;
    WindowUi* m_ui = nullptr;
    HelpWindow* m_help = nullptr;
    QWidget* m_logWindow = nullptr;
    QMenu* m_recent = nullptr;
    QMenu* m_contextMenu = nullptr;
    std::vector<Panel*> m_panels;
    QHash<QString, std::function<void()>> m_windowActions;
    QHash<QString, QAction*> m_entries;  ///< by command or action
    std::vector<std::pair<QAction*, MenuItem>> m_drawn;
};

}  // namespace prancheta::desktop
