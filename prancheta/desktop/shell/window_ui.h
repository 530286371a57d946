// SPDX-License-Identifier: MIT
// The editor's front end with a window: a question waits in a nested event loop for whoever
// answers.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <chrono>
#include <deque>
#include <functional>

#include "prancheta/editor/editor.h"
#include "prancheta/editor/user_interface.h"

class QEventLoop;
class QWidget;

namespace prancheta::desktop {

class DrawingFiles;

class WindowUi : public QObject, public UserInterface {
    Q_OBJECT
public:
    /// A program that asks again after so many refusals is let alone.
    static constexpr int kMostCancels = 50;

    /// Dialogs stand over `window`; `files` asks for files. Both must outlive the object.
    WindowUi(QWidget& window, DrawingFiles& files);

    /// Null before the editor goes.
    void setEditor(Editor* editor) { m_editor = editor; }

    void print(std::wstring_view text) override;
    void alert(std::wstring_view text) override;
    RawInput ask(const InputRequest& request) override;
    void runDialog(dcl::Dialog& dialog) override;
    void complain(std::wstring_view text, Complaint kind) override;
    std::optional<std::filesystem::path> chooseFile(const FileQuestion& question) override;
    std::optional<bool> mayLeaveDrawing() override;
    std::optional<ChangedFile> replaceChangedFile() override;
    bool mayLoad(const std::filesystem::path& module) override;
    bool showTool(Tool tool) override;
    bool pass(std::chrono::milliseconds time) override;
    void offerCopied(const Clipboard& clipboard) override;
    void takeOffered(Clipboard& clipboard) override;
    void refresh() override;

    /// The question that waits; null while a program works or a dialog stands open.
    const InputRequest* request() const { return m_request; }
    /// True when "Comando:" waits: the drawing may be changed from outside commands.
    bool idle() const { return m_request != nullptr && m_request->kind == InputKind::Command; }
    /// True while time passes without a question: cancel() ends that.
    bool passing() const { return m_request == nullptr && m_loop != nullptr; }
    /// What the waiting question gets. Typed answers that come while nothing waits are kept for the
    /// next question; others are dropped.
    void answer(const RawInput& input);
    void answerText(const QString& text);
    /// Answers as a keyboard gives them, blanks and line ends between them.
    void typeAhead(const QString& keys);
    void cancel();
    /// Runs a line as if typed at "Comando:", ending what waits; one that begins with ' runs inside
    /// it.
    void runCommand(const QString& line);
    /// Ends what waits, then asks about unsaved work, then ends the input.
    void requestClose();
    /// The same without a question, also while nothing can be answered.
    void requestEnd();
    /// True from requestClose(), or a command that ends what waits, until "Comando:".
    bool leaving() const { return m_closing || m_line; }
    /// Gives where the pointer stands, for typed answers.
    void setPointer(std::function<std::optional<AcGePoint3d>()> pointer) {
        m_pointer = std::move(pointer);
    }

signals:
    void asked(const prancheta::InputRequest& request);
    /// The question is answered; `echo` is the typed answer.
    void answered(const QString& echo);
    void printed(const QString& text);
    /// A command leaves its work to a window or panel.
    void toolWanted(prancheta::Tool tool);
    /// The question waits no longer.
    void released();
    /// Something visible changed; told at most once before the next question or every so often.
    void changed();
    /// A question is about to wait.
    void waiting();

private:
    std::optional<RawInput> withoutWaiting(const InputRequest& request);
    RawInput lookAgain() const;
    void showChanges();
    void waitAgain();
    void release(const RawInput& input);
    void endWaiting();

    QWidget& m_window;
    DrawingFiles& m_files;
    Editor* m_editor = nullptr;
    std::function<std::optional<AcGePoint3d>()> m_pointer;
    const InputRequest* m_request = nullptr;
    QEventLoop* m_loop = nullptr;
    std::optional<RawInput> m_input;
    std::deque<QString> m_early;    ///< typed while nothing waited
    std::optional<QString> m_line;  ///< command that waits for "Comando:"
    bool m_closing = false;
    bool m_ending = false;
    int m_cancels = 0;  ///< given in a row to get back to "Comando:"
    bool m_changed = false;
    bool m_escaped = false;  ///< Esc while pass() waits
    QElapsedTimer m_sinceShown;
    QElapsedTimer m_sinceLooked;  ///< at what the user does
};

}  // namespace prancheta::desktop
