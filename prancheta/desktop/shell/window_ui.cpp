// SPDX-License-Identifier: MIT
// Questions, answers and messages of the window.
#include "prancheta/desktop/shell/window_ui.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "prancheta/base/text.h"
#include "prancheta/desktop/dialogs/run_dialog.h"
#include "prancheta/desktop/shell/copied_data.h"
#include "prancheta/desktop/shell/drawing_files.h"

namespace prancheta::desktop {
namespace {

/// A program that works longer than this without asking gets the window painted, ms.
constexpr qint64 kPaintPause = 80;

QString text(std::wstring_view wide) {
    return QString::fromWCharArray(wide.data(), static_cast<qsizetype>(wide.size()));
}

}  // namespace

WindowUi::WindowUi(QWidget& window, DrawingFiles& files)
    : QObject(&window), m_window(window), m_files(files) {
    m_sinceShown.start();
    m_sinceLooked.start();
}

void WindowUi::print(std::wstring_view what) { emit printed(text(what)); }

void WindowUi::complain(std::wstring_view what, Complaint) { emit printed(text(what) + "\n"); }

void WindowUi::alert(std::wstring_view what) {
    const QString shown = text(trim(what));
    emit printed("\n" + shown + "\n");
    QMessageBox::information(&m_window, "Prancheta", shown);
}

void WindowUi::runDialog(dcl::Dialog& dialog) {
    showChanges();
    desktop::runDialog(dialog, &m_window);
}

std::optional<std::filesystem::path> WindowUi::chooseFile(const FileQuestion& question) {
    return m_files.choose(question);
}

std::optional<bool> WindowUi::mayLeaveDrawing() { return m_files.mayLeave(); }

std::optional<ChangedFile> WindowUi::replaceChangedFile() { return m_files.replaceChanged(); }

bool WindowUi::mayLoad(const std::filesystem::path& module) {
    showChanges();
    QMessageBox box(QMessageBox::Warning, "Prancheta",
                    "Um script quer carregar o módulo " + toQString(module) +
                        ".\n\nUm módulo é um programa: ele pode fazer tudo o que você pode. "
                        "Carregue-o só se você sabe de onde ele vem.",
                    QMessageBox::NoButton, &m_window);
    box.setObjectName("carregarModulo");
    const QPushButton* const load = box.addButton("&Carregar", QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton("&Não carregar", QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == load;
}

bool WindowUi::showTool(Tool tool) {
    showChanges();
    emit toolWanted(tool);
    return true;
}

void WindowUi::offerCopied(const Clipboard& clipboard) {
    QGuiApplication::clipboard()->setMimeData(new CopiedData(clipboard));  // which owns it
}

void WindowUi::takeOffered(Clipboard& clipboard) {
    const Result<void> taken = takeOfferedDrawing(*m_editor, clipboard);
    if (!taken) complain(toWide(taken.error().message()), Complaint::Failed);
}

void WindowUi::refresh() {
    m_changed = true;
    if (m_request != nullptr) return showChanges();
    if (m_sinceShown.elapsed() < kPaintPause) return;
    showChanges();
    // Nobody asks, so nobody would paint; what the user does meanwhile waits for the next question.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_sinceShown.restart();
}

bool WindowUi::pass(std::chrono::milliseconds time) {
    if (time.count() == 0 && m_sinceLooked.elapsed() < kPaintPause) return true;
    showChanges();
    m_escaped = false;
    const InputRequest* const outerRequest = std::exchange(m_request, nullptr);
    QEventLoop loop;
    QEventLoop* const outerLoop = std::exchange(m_loop, &loop);
    if (time.count() == 0) {
        loop.processEvents();
    } else {
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }
    m_loop = outerLoop;
    m_request = outerRequest;
    m_sinceShown.restart();
    m_sinceLooked.restart();
    return !m_escaped;
}

void WindowUi::showChanges() {
    if (!std::exchange(m_changed, false)) return;
    emit changed();
}

RawInput WindowUi::lookAgain() const {
    // A position answers nothing; the editor then takes what is typed ahead.
    RawInput input;
    input.kind = RawInput::Kind::Move;
    const auto pointer = m_pointer ? m_pointer() : std::nullopt;
    input.point = pointer.value_or(m_editor->lastPoint());
    return input;
}

/// What is known before anybody is asked.
std::optional<RawInput> WindowUi::withoutWaiting(const InputRequest& request) {
    RawInput input;
    if (request.kind != InputKind::Command && (m_closing || m_line)) {
        if (++m_cancels > kMostCancels) return input;
        input.kind = RawInput::Kind::Cancel;
        return input;
    }
    if (request.kind == InputKind::Command) {
        m_cancels = 0;
        if (std::exchange(m_closing, false) && (m_ending || m_files.mayLeave())) return input;
    }
    if (m_line && m_editor != nullptr) {
        m_editor->typing().add((*std::exchange(m_line, {}) + "\n").toStdWString());
        return lookAgain();
    }
    if (m_early.empty()) return {};
    input.kind = RawInput::Kind::Text;
    input.text = m_early.front().toStdWString();
    m_early.pop_front();
    return input;
}

RawInput WindowUi::ask(const InputRequest& request) {
    emit asked(request);
    if (auto known = withoutWaiting(request)) {
        if (known->kind != RawInput::Kind::Move) release(*known);
        return *known;
    }
    const InputRequest* const outerRequest = std::exchange(m_request, &request);
    QEventLoop loop;
    QEventLoop* const outerLoop = std::exchange(m_loop, &loop);
    showChanges();
    m_input.reset();
    // Keys that were kept may answer at once.
    emit waiting();
    if (!m_input) loop.exec();
    m_loop = outerLoop;
    m_request = outerRequest;
    m_sinceShown.restart();
    m_sinceLooked.restart();
    RawInput input = m_input ? *std::exchange(m_input, {}) : RawInput();
    // Asked from inside an edit in a panel, while "Comando:" waits: that goes on waiting, once the
    // edit is done.
    if (outerRequest != nullptr)
        QMetaObject::invokeMethod(this, &WindowUi::waitAgain, Qt::QueuedConnection);
    return input;
}

void WindowUi::waitAgain() {
    if (!idle() || m_input) return;
    emit asked(*m_request);
    emit waiting();
}

/// Ends the waiting.
void WindowUi::release(const RawInput& input) {
    // Esc at "Comando:" answers nothing: the log has no line for it.
    const bool nothing = input.kind == RawInput::Kind::Cancel && idle();
    if (input.kind != RawInput::Kind::Move && !nothing)
        emit answered(QString::fromStdWString(input.text));
}

void WindowUi::answer(const RawInput& input) {
    if (m_request == nullptr || m_input) {
        if (input.kind == RawInput::Kind::Text)
            m_early.push_back(QString::fromStdWString(input.text));
        return;
    }
    m_input = input;
    if (input.kind == RawInput::Kind::Text && !m_input->pointer && m_pointer)
        m_input->pointer = m_pointer();
    release(input);
    emit released();
    m_loop->quit();
}

void WindowUi::answerText(const QString& typed) {
    RawInput input;
    input.kind = RawInput::Kind::Text;
    input.text = typed.toStdWString();
    answer(input);
}

void WindowUi::typeAhead(const QString& keys) {
    if (m_editor == nullptr) return;
    m_editor->typing().add(keys.toStdWString());
    if (m_request != nullptr && !m_input) answer(lookAgain());
}

void WindowUi::cancel() {
    m_early.clear();
    if (passing()) {
        m_escaped = true;
        m_loop->quit();
        return;
    }
    RawInput input;
    input.kind = RawInput::Kind::Cancel;
    answer(input);
}

void WindowUi::runCommand(const QString& line) {
    if (m_request == nullptr || m_input) return;
    const bool inside = line.startsWith('\'') && m_request->kind != InputKind::Text;
    if (inside || idle()) {
        // A view command runs inside a drag or a question as if its name were typed there.
        const qsizetype blank = line.indexOf(' ');
        if (blank > 0) m_editor->typing().add((line.mid(blank + 1) + "\n").toStdWString());
        return answerText(line.left(blank));
    }
    m_line = line;
    cancel();
}

void WindowUi::requestClose() {
    if (!passing() && (m_request == nullptr || m_input)) return;
    m_closing = true;
    endWaiting();
}

void WindowUi::requestEnd() {
    m_closing = m_ending = true;
    if (passing() || (m_request != nullptr && !m_input)) endWaiting();
}

void WindowUi::endWaiting() {
    if (passing() || !idle()) return cancel();
    answer(lookAgain());
}

}  // namespace prancheta::desktop
