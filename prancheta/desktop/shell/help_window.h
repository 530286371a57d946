// SPDX-License-Identifier: MIT
// The manual in a window of its own.
#pragma once

#include <QWidget>

#include <filesystem>

class QLineEdit;
class QTextBrowser;
class QTextCursor;

namespace prancheta::desktop {

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    /// Reads `manual` (Markdown); a file that is missing is told in the window.
    HelpWindow(const std::filesystem::path& manual, QWidget* parent);
    /// Shows the first place where the word stands in a heading, else anywhere.
    void find(const QString& word);
    /// Shows the chapter of a command by its local name, else where the name first stands as
    /// something to be typed, else the beginning.
    void showCommand(const QString& name);
    /// Shows the chapter with the picture of this command's dialog, else of that dialog of any
    /// command, else the command's.
    void showDialog(const QString& command, const QString& dialog);

private:
    void showPlace(const QTextCursor& place);

    QTextBrowser* m_text;
    QLineEdit* m_word;
};

}  // namespace prancheta::desktop
