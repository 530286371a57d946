// SPDX-License-Identifier: MIT
// The window and the host behind it, from start to end.
#pragma once

#include <QTimer>
#include <QTranslator>

#include <memory>

#include "prancheta/desktop/shell/main_window.h"
#include "prancheta/desktop/shell/recovery.h"
#include "prancheta/editor/host.h"

namespace prancheta::desktop {

struct ApplicationOptions {
    std::filesystem::path drawing;       ///< opened at start; empty: none
    std::filesystem::path installation;  ///< empty: what the environment says, or the program's own
    std::filesystem::path programs;      ///< where the modules stand; empty: beside the program
};

/// Needs a QApplication; one per process.
class Application {
public:
    explicit Application(const ApplicationOptions& options);
    ~Application();

    /// Shows the window and serves the editor until its input ends, or until the system wants the
    /// program to end, where main() had that caught.
    void run();
    /// Ends whatever waits or stands open and then run(), without a question; unsaved work stays as
    /// a recovery copy.
    void end();

    MainWindow& window() { return *m_window; }
    Editor& editor() { return m_host->editor(); }

    Recovery& recovery() { return *m_recovery; }

private:
    void offerLeftCopies();
    bool recover(const LeftCopy& left);
    void keepRecoveryUp();
    void settle();
    void endStep();

    std::unique_ptr<QTranslator> m_translator;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Host> m_host;
    std::unique_ptr<Recovery> m_recovery;
    std::filesystem::path m_drawing;
    bool m_recoveryFailed = false;
    QTimer m_ending;  ///< runs while the program is being ended
};

}  // namespace prancheta::desktop
