// SPDX-License-Identifier: MIT
// The main window: its parts and how they talk.
#include "prancheta/desktop/shell/main_window.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QTextEdit>
#include <QTimer>
#include <QToolBar>

#include "prancheta/desktop/shell/command_names.h"
#include "prancheta/desktop/shell/layout_tabs.h"
#include "prancheta/desktop/shell/object_fields.h"
#include "prancheta/desktop/shell/side_tabs.h"
#include "prancheta/desktop/shell/start_page.h"
#include "prancheta/desktop/shell/status_bar.h"
#include "prancheta/editor/picking.h"

namespace prancheta::desktop {
namespace {

constexpr auto kGeometryKey = "janela/geometria";
constexpr auto kStateKey = "janela/arranjo";
/// Grows when docks or toolbars get other names: an older arrangement is forgotten then.
constexpr int kStateVersion = 2;

/// Pixels, until the user sets them otherwise.
constexpr QSize kUsualSize(1280, 800);
/// What the system puts around a window, at least.
constexpr QSize kFrame(8, 40);
/// The widest panel does not decide for all that share its place.
constexpr int kLeastPanelWidth = 160;

struct PanelRow {
    const char* name;
    const char* title;
    std::unique_ptr<Panel> (*make)();
    int width;  ///< until the user sets it otherwise
};

std::unique_ptr<Panel> makeStartPage() { return std::make_unique<StartPage>(); }

/// The first one is shown at first.
constexpr PanelRow kPanels[] = {
    {"inicio", "Início", makeStartPage, 226},
    {"camadas", "Camadas", makeLayersPanel, 400},
    {"propriedades", "Propriedades", makePropertiesPanel, 300},
    {"material", "Lista de material", makeMaterialPanel, 420},
    {"conferencia", "Conferência", makeCheckPanel, 380},
    {"plano", "Plano de corte", makePlanPanel, 420},
};

/// True for widgets in which a person writes; keys typed elsewhere go to the command line.
bool takesText(const QWidget* widget) {
    if (qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget))
        return true;
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget)) return !edit->isReadOnly();
    if (const auto* edit = qobject_cast<const QTextEdit*>(widget)) return !edit->isReadOnly();
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    return combo != nullptr && combo->isEditable();
}

/// True for a table that the keyboard is in, at a cell that can be edited in place.
bool editsInPlace(const QWidget* widget) {
    const auto* const view = qobject_cast<const QAbstractItemView*>(widget);
    return view != nullptr && view->editTriggers().testFlag(QAbstractItemView::EditKeyPressed) &&
           view->currentIndex().flags().testFlag(Qt::ItemIsEditable);
}

}  // namespace

MainWindow::MainWindow() {
    setObjectName("janela");
    setAcceptDrops(true);
    setDockNestingEnabled(true);
    // A drawing area that grows for a while would not know what to show.
    setAnimated(false);
    m_files = new DrawingFiles(*this);
    m_ui = new WindowUi(*this, *m_files);
    makeCanvas();
    makeCommandLine();
    makePanels();
    if (!restoreGeometry(QSettings().value(kGeometryKey).toByteArray())) takeUsualSize();
    m_status = new StatusBar(m_tabs, this);
    setStatusBar(m_status);
    m_fields = new ObjectFields(this);
    connectUi();
    registerActions();
    // Keys typed anywhere in the window belong to the command line.
    qApp->installEventFilter(this);
}

/// On a small screen the whole of it, so that the command line is not below its edge.
void MainWindow::takeUsualSize() {
    const QSize room = screen()->availableSize() - kFrame;
    resize(kUsualSize.boundedTo(room));
    if (size() != kUsualSize) setWindowState(Qt::WindowMaximized);
}

MainWindow::~MainWindow() { qApp->removeEventFilter(this); }

void MainWindow::makeCanvas() {
    m_canvas = new Canvas(this);
    m_canvas->setObjectName("desenho");
    m_tabs = new LayoutTabs(this);
    setCentralWidget(m_canvas);
    connect(m_tabs, &LayoutTabs::commandWanted, m_ui, &WindowUi::runCommand);
    connect(m_canvas, &Canvas::answered, m_ui, &WindowUi::answer);
    connect(m_canvas, &Canvas::keyTyped, this,
            [this](QKeyEvent* event) { m_commandLine->takeKey(event); });
    connect(m_canvas, &Canvas::commandWanted, m_ui, &WindowUi::runCommand);
    connect(m_canvas, &Canvas::selectionChanged, this, &MainWindow::showAll);
    connect(m_canvas, &Canvas::entityActivated, this, &MainWindow::editEntity);
    connect(m_canvas, &Canvas::contextMenuWanted, this, &MainWindow::showContextMenu);
    connect(m_canvas, &Canvas::snapMenuWanted, this, &MainWindow::showSnapMenu);
    m_ui->setPointer([this] { return m_canvas->pointer(); });
}

void MainWindow::makeCommandLine() {
    auto* const dock = new QDockWidget("Comando", this);
    dock->setObjectName("linha_de_comando");
    m_commandLine = new CommandLine(dock);
    dock->setWidget(m_commandLine);
    // Without it nobody gets on: it can be moved, not closed.
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable |
                      QDockWidget::DockWidgetVerticalTitleBar);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    connect(m_commandLine, &CommandLine::entered, m_ui, &WindowUi::answerText);
    m_output = new QLabel(m_canvas);
    m_output->setObjectName("saida");
    m_output->setAutoFillBackground(true);
    m_output->setMargin(4);
    m_output->setTextFormat(Qt::PlainText);
    m_output->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_output->hide();
    connect(m_commandLine, &CommandLine::outputHidden, this, &MainWindow::showOutput);
    connect(m_commandLine, &CommandLine::outputRead, m_output, &QWidget::hide);
    connect(m_canvas, &Canvas::selectionChanged, m_output, &QWidget::hide);
    connect(m_commandLine, &CommandLine::typedAhead, m_ui, &WindowUi::typeAhead);
    connect(m_commandLine, &CommandLine::cancelled, this, [this] {
        if (!m_canvas->escape()) m_ui->cancel();
    });
    m_commandLine->edit().setInterrupt([this] {
        if (!m_ui->passing()) return false;
        m_ui->cancel();
        return true;
    });
    connect(&m_commandLine->edit(), &AnswerEdit::erased, this, [this] {
        if (m_ui->idle() && !m_editor->selection().empty()) m_ui->runCommand("_ERASE");
    });
}

/// Over the lower edge of the drawing, until the next answer: the command line grows, and the
/// drawing stays where it is.
void MainWindow::showOutput(const QString& lines) {
    m_output->setFont(m_commandLine->edit().font());
    m_output->setText(lines);
    m_output->adjustSize();
    m_output->move(0, m_canvas->height() - m_output->height());
    m_output->show();
}

void MainWindow::makePanels() {
    auto* const tabs = new SideTabs(this);
    addToolBar(Qt::RightToolBarArea, tabs);
    QDockWidget* former = nullptr;
    for (const PanelRow& row : kPanels) {
        Panel* const panel = row.make().release();
        if (m_start == nullptr) m_start = qobject_cast<StartPage*>(panel);
        panel->setMinimumWidth(kLeastPanelWidth);
        auto* const dock = new QDockWidget(row.title, this);
        dock->setObjectName(row.name);
        dock->setWidget(panel);
        addDockWidget(Qt::RightDockWidgetArea, dock);
        if (former != nullptr) tabifyDockWidget(former, dock);
        dock->setVisible(former == nullptr);
        former = dock;
        tabs->add(dock, row.width);
        m_panels.push_back(panel);
        m_windowActions.insert(row.name, [this, &row] { showPanel(row.name); });
        connect(panel, &Panel::changed, this, [this] {
            m_canvas->refresh();
            showAll();
        });
        connect(panel, &Panel::wanted, this, [this, &row] { showPanel(row.name); });
        connect(panel, &Panel::commandWanted, m_ui, &WindowUi::runCommand);
        connect(panel, &Panel::messageWanted, m_commandLine,
                [this](const QString& text) { m_commandLine->print(text + "\n"); });
    }
    connect(m_start, &StartPage::fileWanted, this, &MainWindow::openFile);
}

void MainWindow::connectUi() {
    connect(m_ui, &WindowUi::asked, m_commandLine, &CommandLine::ask);
    connect(m_ui, &WindowUi::printed, m_commandLine, &CommandLine::print);
    connect(m_ui, &WindowUi::answered, m_commandLine, &CommandLine::answered);
    connect(m_ui, &WindowUi::changed, this, &MainWindow::showChanges);
    connect(m_ui, &WindowUi::toolWanted, this, &MainWindow::showTool);
    connect(m_ui, &WindowUi::waiting, this, [this] {
        m_canvas->setRequest(m_ui->request());
        if (m_ui->idle()) showAll();
        // A question that an edit in a panel brings is answered where it stands.
        const bool inCanvas = m_canvas->hasFocus() || m_ui->request()->inPlace != nullptr;
        if (!m_ui->idle() && !inCanvas) m_commandLine->edit().setFocus();
        m_commandLine->edit().setFields(fieldsOf(*m_ui->request()));
        m_commandLine->edit().resume();
        if (!m_fileWanted.isEmpty()) QTimer::singleShot(0, this, &MainWindow::openWanted);
    });
    connect(m_ui, &WindowUi::released, this, [this] {
        m_canvas->setRequest(nullptr);
        m_commandLine->edit().setFields({});
        m_commandLine->edit().hold();
    });
    const auto showTyped = [this] {
        m_canvas->setTyped(m_commandLine->edit().text(), m_commandLine->edit().cursorPosition());
    };
    connect(&m_commandLine->edit(), &QLineEdit::textChanged, this, showTyped);
    connect(&m_commandLine->edit(), &QLineEdit::cursorPositionChanged, this, showTyped);
    connect(m_canvas, &Canvas::fieldWanted, this, [this] {
        m_commandLine->edit().setFocus();
        (void)m_commandLine->edit().goToNextField();
    });
    connect(m_canvas, &Canvas::pointerMoved, m_status, &StatusBar::showPointer);
    connect(m_status, &StatusBar::scaleWanted, m_ui, &WindowUi::runCommand);
    connect(m_fields, &ObjectFields::scaleWanted, m_ui, &WindowUi::runCommand);
    connect(m_fields, &ObjectFields::messageWanted, m_commandLine,
            [this](const QString& text) { m_commandLine->print(text + "\n"); });
    connect(m_fields, &ObjectFields::changed, this, [this] {
        m_canvas->refresh();
        showAll();
    });
    connect(m_status, &StatusBar::changed, this, [this] {
        m_canvas->refresh();
        if (m_ui->idle()) showAll();
    });
}

/// Of the values beside the cursor, where the question has some.
AnswerEdit::Fields MainWindow::fieldsOf(const InputRequest& request) const {
    if (m_editor == nullptr || dynamicFields(*m_editor, request, {}, {}).empty()) return {};
    return {
        [this, &request](const TypedLine& typed) { return nextField(*m_editor, request, typed); },
        withoutEmptyField};
}

void MainWindow::setEditor(Editor* editor) {
    m_editor = editor;
    m_ui->setEditor(editor);
    m_files->setEditor(editor);
    m_canvas->setEditor(editor);
    for (Panel* const panel : m_panels) panel->setEditor(editor);
    m_status->setEditor(editor);
    m_fields->setEditor(editor);
    m_tabs->setEditor(editor);
    if (editor == nullptr) return;
    editor->onDrawingReplaced = [this] {
        m_canvas->setEditor(m_editor);
        for (Panel* const panel : m_panels) panel->setEditor(m_editor);
        m_fields->setEditor(m_editor);
        // What waits goes on waiting.
        m_canvas->setRequest(m_ui->request());
        emit documentReplaced();
    };
    m_commandLine->edit().setCompletions(makeCommandNames(*editor, this));
    tellCommands();
    applyOptions();
    showAll();
}

void MainWindow::restoreLayout() {
    resizeDocks({findChild<QDockWidget*>("linha_de_comando")}, {1}, Qt::Vertical);
    resizeDocks({findChild<QDockWidget*>(kPanels[0].name)}, {kPanels[0].width}, Qt::Horizontal);
    restoreState(QSettings().value(kStateKey).toByteArray(), kStateVersion);
}

/// Sizes of docks mean something only in a window that is there; those that the user left come
/// after.
void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(m_laidOut, true)) QTimer::singleShot(0, this, &MainWindow::restoreLayout);
}

/// What may have changed at every step.
void MainWindow::showChanges() {
    m_canvas->refresh();
    m_tabs->refresh();
}

/// What is looked at between commands only.
void MainWindow::showAll() {
    if (m_editor == nullptr) return;
    for (Panel* const panel : m_panels) panel->refresh();
    m_status->refresh();
    m_fields->refresh();
    m_tabs->refresh();
    setWindowTitle(m_files->title());
    setWindowFilePath(toQString(m_editor->file().name()));
    setWindowModified(m_editor->file().modified());
    m_files->remember();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // The end of the input closes the window; until then the editor still works with it.
    event->ignore();
    m_ui->requestClose();
}

void MainWindow::saveLayout() const {
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kStateKey, saveState(kStateVersion));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.first().toLocalFile().endsWith(".dxf", Qt::CaseInsensitive))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    openFile(event->mimeData()->urls().first().toLocalFile());
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::ShortcutOverride && editsInPlace(widget) &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_F2) {
        event->accept();  // not the window of texts, then
        return true;
    }
    if (event->type() != QEvent::KeyPress) return QMainWindow::eventFilter(watched, event);
    // A field passes Enter on to what stands around it: still a key typed in the field.
    const bool elsewhere = widget == nullptr || widget->window() != this || !isActiveWindow() ||
                           takesText(QApplication::focusWidget()) || takesText(widget) ||
                           widget == m_canvas;
    if (elsewhere) return QMainWindow::eventFilter(watched, event);
    auto* const key = static_cast<QKeyEvent*>(event);
    const bool plain =
        !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    // Del is about what has the keyboard: rows of a panel, or what is selected in the drawing.
    const bool typed = plain && !key->text().isEmpty() && key->key() != Qt::Key_Tab &&
                       key->key() != Qt::Key_Delete;
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (!typed || (enter && m_ui->idle() && editsInPlace(widget)))
        return QMainWindow::eventFilter(watched, event);
    m_commandLine->takeKey(key);
    return true;
}

}  // namespace prancheta::desktop
