// SPDX-License-Identifier: MIT
// Recovery copies: what a window would lose in a crash, and what crashed windows left.
#pragma once

#include <QDateTime>
#include <QLockFile>
#include <QObject>
#include <QTimer>

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "aced.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// A copy whose window is gone. While it lives no other window can claim the same copy.
struct LeftCopy {
    std::filesystem::path copy;
    std::filesystem::path drawing;   ///< the drawing's own file; empty: it had none
    std::optional<FileStamp> stamp;  ///< of that file as the window had read or saved it
    QDateTime when;
    std::vector<std::wstring> commands;  ///< the last ones, oldest first, by their local names
    std::unique_ptr<QLockFile> claim;
};

/// Global names of the commands that were begun last.
class CommandTrail : public AcEditorReactor {
public:
    /// `added` is called after each one.
    explicit CommandTrail(std::function<void()> added) : m_added(std::move(added)) {}

    void commandWillStart(const ACHAR* name) override;
    const std::deque<std::wstring>& names() const { return m_names; }

private:
    std::deque<std::wstring> m_names;
    std::function<void()> m_added;
};

/// Keeps one copy of the window's drawing while it has unsaved changes. Each window has files of
/// its own, named by a lock that the system frees when the window dies.
class Recovery : public QObject {
    Q_OBJECT
public:
    /// `folder` is made when it is needed.
    Recovery(std::filesystem::path folder, QObject* parent);
    /// A clean end: the window's copy goes, but for one that was left.
    ~Recovery() override;

    void setEditor(Editor* editor);
    /// 0: no copies.
    void setMinutes(int minutes);
    /// How long after the last change a copy is due that costs nobody anything, ms.
    void setRest(int milliseconds) { m_rest.setInterval(milliseconds); }
    /// To be called when nothing changes the drawing: at a question, in a dialog. Writes the copy
    /// when it is due, drops it after a save.
    Result<void> keepUp();
    /// The former drawing was left by its user: its copy goes.
    void documentReplaced() { drop(); }
    /// Writes the copy at once, replacing the former one atomically.
    Result<void> write();
    /// The program ends with its work unsaved: a copy of it stays for the next window.
    Result<void> leave();
    /// Copies of windows that are gone, oldest first. What else such windows left is removed.
    std::vector<LeftCopy> leftCopies() const;
    static void discard(LeftCopy& left);

signals:
    /// A copy is due; keepUp() writes it as soon as somebody is asked.
    void due();

private:
    std::filesystem::path file(const char* ending) const;
    void removeRemains() const;
    Result<void> prepare();
    void drop();
    void noteCommands() const;

    std::filesystem::path m_folder;
    QString m_id;
    std::unique_ptr<QLockFile> m_lock;
    Editor* m_editor = nullptr;
    QTimer m_timer;  ///< copies whatever they cost
    QTimer m_rest;   ///< since the last change, while copies are quick
    bool m_due = false;
    qint64 m_cost = 0;         ///< of the last copy, ms
    std::uint64_t m_seen = 0;  ///< revision that the rest is counted from
    CommandTrail m_trail;
    bool m_left = false;
    std::optional<std::uint64_t> m_written;  ///< revision of the copy; none: there is no copy
};

}  // namespace prancheta::desktop
