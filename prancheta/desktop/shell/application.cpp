// SPDX-License-Identifier: MIT
// Start and end of the window.
#include "prancheta/desktop/shell/application.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QThread>

#include <cstdio>

#include "prancheta/base/library.h"
#include "prancheta/desktop/dialogs/run_dialog.h"
#include "prancheta/desktop/shell/options.h"
#include "prancheta/editor/installation.h"

/// Resources of a static library have to be asked for; outside namespaces, as the macro wants it.
static void useResources() { Q_INIT_RESOURCE(shell); }

namespace prancheta::desktop {
namespace {

/// The drawing area keeps its size this long: docks are laid out and the window has the size that
/// the system gave it, ms.
constexpr int kSettled = 80;
constexpr int kMostSettling = 1000;
/// What stands open is closed one after the other, ms.
constexpr int kEndStep = 10;

std::filesystem::path recoveryFolder() {
    return toPath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) /
           "prancheta" / "recuperacao";
}

/// Buttons and file windows of the toolkit, and dates, in the language of all other texts.
void speakPortuguese(QTranslator& translator) {
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    // Without the system's package of translations those few texts are English.
    if (translator.load("qtbase_pt_BR", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
}

HostOptions hostOptions(const ApplicationOptions& options, MainWindow& window) {
    HostOptions out;
    out.programFolder = options.programs.empty() ? Host::programFolder() : options.programs;
    out.installation = options.installation;
    if (out.installation.empty() && Host::installationFolder().empty()) {
        if (auto folder = usableInstallation(out.programFolder)) {
            out.installation = *folder;
        } else {
            window.commandLine().print(QString::fromStdString(folder.error().message()) + "\n");
        }
    }
    out.installationOverrides = !options.installation.empty();
    return out;
}

/// Of new drawings: the user's own, or that of the installation folder, if there is one.
std::wstring templateFile(const WindowOptions& options) {
    if (!options.templateFile.isEmpty()) return options.templateFile.toStdWString();
    const std::filesystem::path usual = Host::installationFolder() / "modelo.dxf";
    std::error_code error;
    const bool there = !Host::installationFolder().empty() && std::filesystem::exists(usual, error);
    return there ? toQString(usual).toStdWString() : std::wstring();
}

}  // namespace

Application::Application(const ApplicationOptions& options)
    : m_translator(std::make_unique<QTranslator>()),
      m_window(std::make_unique<MainWindow>()),
      m_host(std::make_unique<Host>(m_window->ui(), hostOptions(options, *m_window))),
      m_recovery(std::make_unique<Recovery>(recoveryFolder(), nullptr)),
      m_drawing(options.drawing) {
    useResources();
    speakPortuguese(*m_translator);
    QApplication::setWindowIcon(QIcon(":/icones/prancheta.svg"));
    if (auto started = m_host->start(); !started)
        m_window->commandLine().print(QString::fromStdString(started.error().message()) + "\n");
    announceMetrics(*m_window);
    m_window->setMenus(Host::installationFolder());
    m_window->setEditor(&m_host->editor());
    m_recovery->setEditor(&m_host->editor());
    const auto readOptions = [this] {
        const WindowOptions set = WindowOptions::load();
        m_recovery->setMinutes(set.recoveryMinutes);
        (void)m_host->editor().variables().set(L"MODELO", templateFile(set));  // a text
    };
    readOptions();
    if (const Result<void> made = m_host->editor().file().makeNew(); !made)
        m_window->commandLine().print(QString::fromStdString(made.error().message()) +
                                      "\nO desenho começa vazio, na escala 1:1.\n");
    QObject::connect(m_window.get(), &MainWindow::optionsChanged, m_recovery.get(), readOptions);
    QObject::connect(m_window.get(), &MainWindow::documentReplaced, m_recovery.get(),
                     &Recovery::documentReplaced);
    QObject::connect(&m_window->ui(), &WindowUi::waiting, m_recovery.get(),
                     [this] { keepRecoveryUp(); });
    QObject::connect(m_recovery.get(), &Recovery::due, m_window.get(),
                     [this] { keepRecoveryUp(); });
    QObject::connect(&m_ending, &QTimer::timeout, m_window.get(), [this] { endStep(); });
}

Application::~Application() {
    m_window->hide();
    m_recovery.reset();
    m_window->setEditor(nullptr);
    m_host.reset();
}

void Application::keepRecoveryUp() {
    // While nobody is asked a command may be in the middle of a change.
    if (m_window->ui().request() == nullptr && !isDialogOpen()) return;
    const Result<void> kept = m_recovery->keepUp();
    // Told once: the reason seldom goes by itself, and the log is there to be worked with.
    if (!kept && !std::exchange(m_recoveryFailed, true))
        m_window->commandLine().print(
            "Sem cópia de recuperação: " + QString::fromStdString(kept.error().message()) + "\n");
    if (kept) m_recoveryFailed = false;
}

bool Application::recover(const LeftCopy& left) {
    Result<void> done = m_host->editor().file().recover(left.copy, left.drawing, left.stamp);
    // The copy that was left may go only when there is another one.
    if (done) done = m_recovery->write();
    if (done) return true;
    QMessageBox::warning(m_window.get(), "Prancheta",
                         "A recuperação falhou; a cópia fica guardada em " + toQString(left.copy) +
                             ".\n\n" + QString::fromStdString(done.error().message()));
    return false;
}

void Application::offerLeftCopies() {
    for (LeftCopy& left : m_recovery->leftCopies()) {
        const QString name =
            left.drawing.empty() ? QString("um desenho sem nome") : toQString(left.drawing);
        QMessageBox box(QMessageBox::Question, "Prancheta",
                        "A Prancheta não terminou bem da última vez. Há uma cópia de " + name +
                            ", de " + left.when.toString("dd/MM/yyyy 'às' HH:mm") +
                            ", com alterações que não foram salvas.",
                        QMessageBox::NoButton, m_window.get());
        box.setObjectName("recuperar");
        QStringList last;
        for (const std::wstring& command : left.commands) last += QString::fromStdWString(command);
        if (!last.isEmpty())
            box.setInformativeText("Últimos comandos, o mais novo no fim: " + last.join(", ") +
                                   ".");
        const QPushButton* const take = box.addButton("&Recuperar", QMessageBox::AcceptRole);
        const QPushButton* const drop = box.addButton("&Descartar", QMessageBox::DestructiveRole);
        box.addButton("D&ecidir depois", QMessageBox::RejectRole);
        box.exec();
        if (box.clickedButton() == drop) Recovery::discard(left);
        if (box.clickedButton() != take) continue;
        if (!recover(left)) continue;
        Recovery::discard(left);
        // One window shows one drawing; other copies are offered by the next one.
        m_drawing.clear();
        return;
    }
}

/// A drawing is opened to fit the drawing area as it will be.
void Application::settle() {
    QElapsedTimer total, same;
    total.start();
    same.start();
    QSize size;
    while (same.elapsed() < kSettled && total.elapsed() < kMostSettling) {
        QApplication::processEvents();
        QThread::msleep(5);
        if (std::exchange(size, m_window->canvas().size()) != m_window->canvas().size())
            same.restart();
    }
}

void Application::end() { m_ending.start(kEndStep); }

void Application::endStep() {
    if (QWidget* const popup = QApplication::activePopupWidget()) return void(popup->close());
    QWidget* const modal = QApplication::activeModalWidget();
    if (auto* const dialog = qobject_cast<QDialog*>(modal)) return dialog->reject();
    if (modal != nullptr) return void(modal->close());
    m_window->ui().requestEnd();
}

void Application::run() {
    if (endWishDescriptor() >= 0) {
        auto* const wish =
            new QSocketNotifier(endWishDescriptor(), QSocketNotifier::Read, m_window.get());
        QObject::connect(wish, &QSocketNotifier::activated, m_window.get(), [this, wish] {
            wish->setEnabled(false);
            end();
        });
    }
    m_window->show();
    m_window->commandLine().edit().setFocus();
    settle();
    offerLeftCopies();
    if (!m_drawing.empty()) (void)m_window->files().open(m_drawing);  // told what went wrong
    m_host->editor().run();
    m_window->saveLayout();
    if (!m_ending.isActive()) return;
    m_ending.stop();
    if (const Result<void> kept = m_recovery->leave(); !kept)
        std::fprintf(stderr, "prancheta: sem cópia de recuperação: %s\n",
                     kept.error().message().c_str());
}

}  // namespace prancheta::desktop
