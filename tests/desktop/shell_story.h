// SPDX-License-Identifier: MIT
// A person before the window: one step after the other, each when the window waits for somebody.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <vector>

#include "prancheta/database/database_core.h"
#include "prancheta/desktop/shell/application.h"

namespace shell {

using prancheta::desktop::Application;
using prancheta::desktop::ApplicationOptions;

/// The modules of the build, on a copy of the installation folder.
inline ApplicationOptions withModules(const std::filesystem::path& folder) {
    namespace fs = std::filesystem;
    const fs::path build = HOUSE_BINARY_DIR;
    ApplicationOptions options;
    options.programs = build / "bin";
    options.installation = folder / "instalacao";
    fs::copy(build / "instalacao", options.installation, fs::copy_options::recursive);
    return options;
}

/// A folder of its own for what a window writes.
class Window : public testing::Test {
protected:
    std::filesystem::path folder() const { return m_folder.path().toStdString(); }
    std::filesystem::path recoveries() const { return folder() / "prancheta" / "recuperacao"; }

    void SetUp() override {
        ASSERT_TRUE(m_folder.isValid());
        qputenv("XDG_DATA_HOME", m_folder.path().toLocal8Bit());
        // What a former window left names a folder that is gone.
        qunsetenv("ZPFORJA2010");
    }

private:
    QTemporaryDir m_folder;
};

/// Runs the window until the steps are done. Steps go on inside modal windows, too. What is left
/// open at the end is closed without saving.
class Story {
public:
    explicit Story(const ApplicationOptions& options = {}) : m_application(options) {}

    Application& application() { return m_application; }
    prancheta::desktop::MainWindow& window() { return m_application.window(); }
    prancheta::Editor& editor() { return m_application.editor(); }
    prancheta::desktop::Canvas& canvas() { return window().canvas(); }
    prancheta::desktop::AnswerEdit& edit() { return window().commandLine().edit(); }

    Story& then(std::function<void()> step) {
        m_steps.push_back({nullptr, std::move(step)});
        return *this;
    }
    /// Waits until `condition` holds; the story fails when that takes more than ten seconds.
    Story& when(std::function<bool()> condition, std::function<void()> step) {
        m_steps.push_back({std::move(condition), std::move(step)});
        return *this;
    }
    /// Types into whatever has the keyboard: Return for every line feed.
    Story& type(const QString& keys) {
        return then([this, keys] { press(keys); });
    }
    /// Draws a circle and saves the drawing; then `step`.
    Story& afterSavedCircle(const std::filesystem::path& file, std::function<void()> step) {
        type("c 50,50 25 ");
        return when([this] { return idle() && entities() == 1; },
                    [this, file, step = std::move(step)] {
                        ASSERT_TRUE(editor().file().save(file));
                        step();
                    });
    }
    void press(const QString& keys) {
        for (const QChar key : keys) {
            if (key == '\n')
                QTest::keyClick(&edit(), Qt::Key_Return);
            else if (key == '\x1b')
                QTest::keyClick(&edit(), Qt::Key_Escape);
            else if (key == '\t')
                QTest::keyClick(&edit(), Qt::Key_Tab);
            else
                QTest::keyClick(&edit(), key.toLatin1());
        }
    }
    /// A click in the drawing, world coordinates.
    Story& click(double x, double y) {
        return then([this, x, y] {
            const QPoint at = pixel(x, y);
            QTest::mouseMove(&canvas(), at);
            QTest::mouseClick(&canvas(), Qt::LeftButton, {}, at);
        });
    }
    QPoint pixel(double x, double y) {
        const prancheta::View& view = editor().screen().view();
        const double size = editor().screen().pixelSize();
        return QPointF(canvas().width() / 2.0 + (x - view.centre.x) / size,
                       canvas().height() / 2.0 - (y - view.centre.y) / size)
            .toPoint();
    }
    /// Presses a button of the message box of this name, once it is there.
    Story& choose(const QString& box, const QString& button) {
        return when([box] { return boxOf(box) != nullptr; },
                    [box, button] {
                        for (QAbstractButton* const b : boxOf(box)->buttons())
                            if (b->text().remove('&') == button) return b->click();
                        ADD_FAILURE() << "no button " << button.toStdString();
                    });
    }
    static QMessageBox* boxOf(const QString& name) {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        return box != nullptr && box->objectName() == name ? box : nullptr;
    }
    AcDbObjectId entity(std::size_t index) {
        return editor().database().core().modelSpace().at(index);
    }
    std::size_t entities() { return editor().database().core().modelSpace().size(); }
    /// True when the window waits at "Comando:".
    bool idle() { return window().ui().idle() && !editor().runner().active(); }

    /// False when the story did not come to its end, or the window did not close.
    bool run() {
        QTimer clock;
        QObject::connect(&clock, &QTimer::timeout, [this] { tick(); });
        clock.start(15);
        m_application.run();
        return m_next >= m_steps.size() && !m_stuck;
    }
    /// True when the last step closed the window by itself: nothing was left to be ended.
    bool closedItself() const { return !m_ended; }

private:
    struct Step {
        std::function<bool()> condition;
        std::function<void()> act;
    };

    void tick() {
        // Nobody acts while a program works.
        if (window().ui().request() == nullptr && !QApplication::activeModalWidget()) return;
        if (m_next < m_steps.size()) {
            // Taken before it runs: it may open a modal window, in which the next ones run.
            Step& step = m_steps[m_next];
            if (step.condition && !step.condition()) {
                if (++m_waited > kMostTicks) {
                    m_stuck = true;
                    ADD_FAILURE() << "step " << m_next << " waits in vain:\n"
                                  << window().commandLine().document()->toPlainText().toStdString();
                    m_next = m_steps.size();
                }
                return;
            }
            m_waited = 0;
            ++m_next;
            return step.act();
        }
        if (++m_waited < kGrace) return;
        m_ended = true;
        if (QWidget* const modal = QApplication::activeModalWidget()) return void(modal->close());
        editor().requestQuit();
        window().ui().cancel();
    }

    static constexpr int kMostTicks = 660;
    /// A window that closes itself needs a moment.
    static constexpr int kGrace = 20;

    Application m_application;
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_waited = 0;
    bool m_stuck = false;
    bool m_ended = false;
};

}  // namespace shell
