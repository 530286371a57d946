// SPDX-License-Identifier: MIT
// The drawing's file as the window handles it: file windows, unsaved work, recent files.
#pragma once

#include <QObject>
#include <QStringList>

#include <filesystem>

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
    /// Saves under the drawing's name, or asks for one. False when nothing was saved; failures were
    /// shown.
    bool save();
    /// Opens at once, after asking about unsaved changes. False when the present drawing stays.
    bool open(const std::filesystem::path& path);

    /// Last files first, only those that still exist.
    QStringList recent() const;
    /// Puts the drawing's file at the head of the recent ones.
    void remember();
    /// Title for the window: name of the drawing, with the place of the mark for changes.
    QString title() const;

signals:
    void recentChanged();

private:
    void fail(const QString& what, const Error& error);

    QWidget& m_window;
    Editor* m_editor = nullptr;
};

/// Paths of the host are UTF-8 whatever the locale.
QString toQString(const std::filesystem::path& path);
std::filesystem::path toPath(const QString& text);

}  // namespace prancheta::desktop
