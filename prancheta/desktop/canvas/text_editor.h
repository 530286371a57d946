// SPDX-License-Identifier: MIT
// Edits a text where it stands in the drawing.
#pragma once

#include <QPlainTextEdit>

#include <memory>

#include "prancheta/desktop/canvas/viewport.h"

namespace prancheta::desktop {

/// Enter ends a single line, Ctrl+Enter or a click elsewhere ends paragraphs, Esc gives up. The end
/// of a paragraph shows as a line end; other codes are edited as they are.
class TextEditor : public QPlainTextEdit {
    Q_OBJECT
public:
    TextEditor(std::shared_ptr<const TextFrame> frame, QWidget* canvas);
    /// Puts itself over the text's place, letters as high as they are drawn.
    void place(const Viewport& viewport);

signals:
    /// All lines, each with its line end.
    void finished(const QString& lines);
    void givenUp();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void finish();

    std::shared_ptr<const TextFrame> m_frame;
    bool m_done = false;
};

}  // namespace prancheta::desktop
