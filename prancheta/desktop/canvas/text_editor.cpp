// SPDX-License-Identifier: MIT
// Edits a text where it stands in the drawing.
#include "prancheta/desktop/canvas/text_editor.h"

#include <QFontMetricsF>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace prancheta::desktop {

namespace {

constexpr double kLeastLetters = 9.0;  ///< height of capitals, pixels
constexpr double kMostLetters = 120.0;
constexpr int kLeastWidth = 160;
constexpr int kLinesShown = 4;

}  // namespace

TextEditor::TextEditor(std::shared_ptr<const TextFrame> frame, QWidget* canvas)
    : QPlainTextEdit(canvas), m_frame(std::move(frame)) {
    setObjectName("textoNoLugar");
    setAccessibleName("Texto");
    QString text = QString::fromStdWString(m_frame->text);
    if (m_frame->lines) text.replace("\\P", "\n");
    setPlainText(text);
    selectAll();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (!m_frame->lines) setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(false);
}

void TextEditor::place(const Viewport& viewport) {
    const double letters =
        std::clamp(m_frame->height / viewport.unit(), kLeastLetters, kMostLetters);
    QFont own = font();
    own.setPixelSize(100);
    own.setPixelSize(
        static_cast<int>(std::lround(100.0 * letters / QFontMetricsF(own).capHeight())));
    if (own != font()) setFont(own);
    const QFontMetricsF metrics(own);
    const int lines = m_frame->lines ? std::max(kLinesShown, blockCount() + 1) : 1;
    const int room = static_cast<int>(std::ceil(metrics.lineSpacing() * lines)) + 12;
    const double longest = metrics.horizontalAdvance(toPlainText() + "MMMMMM") + 16.0;
    const double wanted =
        m_frame->width > 0.0 ? m_frame->width / viewport.unit() + 16.0 : std::min(longest, 600.0);
    const QRect all = parentWidget()->rect();
    const int width = std::min(std::max(kLeastWidth, static_cast<int>(wanted)), all.width());
    const int height = std::min(room, all.height());
    const QPoint corner = viewport.toScreen(m_frame->corner).toPoint() - QPoint(6, 6);
    const QRect next(std::clamp(corner.x(), 0, std::max(0, all.width() - width)),
                     std::clamp(corner.y(), 0, std::max(0, all.height() - height)), width, height);
    if (geometry() != next) setGeometry(next);
}

void TextEditor::finish() {
    if (std::exchange(m_done, true)) return;
    emit finished(toPlainText() + "\n");
}

void TextEditor::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        if (!std::exchange(m_done, true)) emit givenUp();
        return;
    }
    if (enter && (!m_frame->lines || event->modifiers().testFlag(Qt::ControlModifier)))
        return finish();
    QPlainTextEdit::keyPressEvent(event);
}

void TextEditor::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    // Another window, or its own menu, is no answer.
    if (event->reason() == Qt::MouseFocusReason || event->reason() == Qt::TabFocusReason) finish();
}

}  // namespace prancheta::desktop
