// SPDX-License-Identifier: MIT
// The manual's window.
#include "prancheta/desktop/shell/help_window.h"

#include <QAction>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "prancheta/base/file.h"

namespace prancheta::desktop {

HelpWindow::HelpWindow(const std::filesystem::path& manual, QWidget* parent)
    : QWidget(parent, Qt::Window), m_text(new QTextBrowser(this)), m_word(new QLineEdit(this)) {
    setWindowTitle("Manual da Prancheta");
    resize(820, 700);
    m_text->setOpenExternalLinks(false);
    m_text->setAccessibleName("Manual");
    m_word->setPlaceholderText("Procurar no manual");
    m_word->setAccessibleName(m_word->placeholderText());
    m_word->setClearButtonEnabled(true);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_word);
    column->addWidget(m_text, 1);
    m_text->setSearchPaths({QString::fromStdString(manual.parent_path().string())});
    if (const auto text = readFile(manual)) {
        m_text->setMarkdown(QString::fromStdString(*text));
    } else {
        m_text->setPlainText(QString::fromStdString(text.error().message()));
    }
    connect(m_word, &QLineEdit::returnPressed, this, [this] { find(m_word->text()); });
    auto* const close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::hide);
    addAction(close);
}

void HelpWindow::find(const QString& word) {
    if (word.isEmpty()) return;
    QTextCursor here = m_text->textCursor();
    for (QTextBlock block = m_text->document()->begin(); block.isValid(); block = block.next()) {
        const bool heading = block.blockFormat().headingLevel() > 0;
        if (!heading || !block.text().contains(word, Qt::CaseInsensitive)) continue;
        if (block.position() <= here.position() && here.hasSelection()) continue;
        QTextCursor found(block);
        found.select(QTextCursor::BlockUnderCursor);
        return showPlace(found);
    }
    if (m_text->find(word)) return;
    m_text->moveCursor(QTextCursor::Start);
    (void)m_text->find(word);  // from the start again; nothing found leaves the start
}

/// A chapter about a command has the command's name as the last word of its title.
void HelpWindow::showCommand(const QString& name) {
    if (name.isEmpty()) return;
    const QTextDocument& text = *m_text->document();
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        if (block.text().section(' ', -1).compare(name, Qt::CaseInsensitive) != 0) continue;
        return showPlace(QTextCursor(block));
    }
    QTextCursor found(m_text->document());
    do found = text.find(name, found, QTextDocument::FindWholeWords);
    while (!found.isNull() && !found.charFormat().fontFixedPitch());
    showPlace(found.isNull() ? QTextCursor(m_text->document()) : found);
}

void HelpWindow::showDialog(const QString& command, const QString& dialog) {
    const QString picture = "-" + dialog + ".png";
    QTextBlock chapter;
    QTextBlock found;
    for (QTextBlock block = m_text->document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0) chapter = block;
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (!format.isImageFormat()) continue;
            const QString name = format.toImageFormat().name().section('/', -1);
            if (!name.endsWith(picture)) continue;
            const bool own = name.compare(command + picture, Qt::CaseInsensitive) == 0;
            if (own || !found.isValid()) found = chapter;
            if (own) return showPlace(QTextCursor(found));
        }
    }
    if (!found.isValid()) return showCommand(command);
    showPlace(QTextCursor(found));
}

/// At the top of the window.
void HelpWindow::showPlace(const QTextCursor& place) {
    m_text->moveCursor(QTextCursor::End);
    m_text->setTextCursor(place);
    m_text->ensureCursorVisible();
}

}  // namespace prancheta::desktop
