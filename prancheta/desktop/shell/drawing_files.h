// SPDX-License-Identifier: MIT
// The drawing's file as the window handles it: file windows, unsaved work, recent files.
#pragma once

#include <QLockFile>
#include <QObject>
#include <QStringList>

#include <filesystem>
#include <memory>

#include "prancheta/editor/editor.h"

class QWidget;

namespace prancheta::desktop {

class DrawingFiles : public QObject {
    Q_OBJECT
public:
    explicit DrawingFiles(QWidget& window);
    void setEditor(Editor* editor) { m_editor = editor; }

    /// Empty when the user chose none.
    std::filesystem::path choose(const FileQuestion& question);
    /// Asks about unsaved changes and saves them when the user wants it; false: stay.
    bool mayLeave();
    /// Asks what becomes of the drawing's file, which another program changed.
    ChangedFile replaceChanged();
    /// Saves under the drawing's name, or asks for one. False when nothing was saved; failures were
    /// shown.
    bool save();
    /// Opens at once, after asking about unsaved changes. False when the present drawing stays.
    bool open(const std::filesystem::path& path);

    /// Last files first, only those that still exist.
    QStringList recent() const;
    /// Puts the drawing's file at the head of the recent ones, and warns when another window has
    /// it open, too.
    void remember();
    /// Title for the window: name of the drawing, with the place of the mark for changes.
    QString title() const;

signals:
    void recentChanged();

private:
    void mark();
    void fail(const QString& what, const Error& error);

    QWidget& m_window;
    Editor* m_editor = nullptr;
    std::filesystem::path m_marked;
    std::unique_ptr<QLockFile> m_mark;  ///< says that the drawing is open here
};

/// Where file windows begin: beside the drawing, else in the folder of the options, else where the
/// last file was chosen, else among the user's documents.
QString folderOf(const std::filesystem::path& drawing);
/// Paths of the host are UTF-8 whatever the locale.
QString toQString(const std::filesystem::path& path);
std::filesystem::path toPath(const QString& text);

}  // namespace prancheta::desktop
