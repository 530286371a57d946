// SPDX-License-Identifier: MIT
// Recovery copies: what a window would lose in a crash, and what crashed windows left.
#pragma once

#include <QDateTime>
#include <QLockFile>
#include <QObject>
#include <QTimer>

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// A copy whose window is gone. While it lives no other window can claim the same copy.
struct LeftCopy {
    std::filesystem::path copy;
    std::filesystem::path drawing;   ///< the drawing's own file; empty: it had none
    std::optional<FileStamp> stamp;  ///< of that file as the window had read or saved it
    QDateTime when;
    std::unique_ptr<QLockFile> claim;
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
    /// To be called when no command runs: writes the copy when it is due, drops it after a save.
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
    /// A copy is due; keepUp() writes it as soon as no command runs.
    void due();

private:
    std::filesystem::path file(const char* ending) const;
    void removeRemains() const;
    Result<void> prepare();
    void drop();

    std::filesystem::path m_folder;
    QString m_id;
    std::unique_ptr<QLockFile> m_lock;
    Editor* m_editor = nullptr;
    QTimer m_timer;
    bool m_due = false;
    bool m_left = false;
    std::optional<std::uint64_t> m_written;  ///< revision of the copy; none: there is no copy
};

}  // namespace prancheta::desktop
