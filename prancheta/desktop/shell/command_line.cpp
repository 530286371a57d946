// SPDX-License-Identifier: MIT
// The command line.
#include "prancheta/desktop/shell/command_line.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>

#include "prancheta/desktop/shell/copied_data.h"

namespace prancheta::desktop {
namespace {

constexpr int kLogLines = 5000;
constexpr qsizetype kHistory = 200;
constexpr int kVisibleLogLines = 1;
/// Of an output that is longer than the log shows.
constexpr int kMostShown = 12;

}  // namespace

AnswerEdit::AnswerEdit(QWidget* parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textEdited, this, [this] { complete(); });
    connect(this, &QLineEdit::textChanged, this, [this] { m_taken = -1; });
}

void AnswerEdit::setCompletions(QAbstractItemModel* names) {
    m_completer = new QCompleter(names, this);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setCompletionRole(Qt::UserRole);
    m_completer->setMaxVisibleItems(10);
    // The edit drives it: attached with setCompleter it would offer names in answers, too.
    m_completer->setWidget(this);
    connect(m_completer, qOverload<const QString&>(&QCompleter::activated), this,
            [this](const QString& name) {
                setText(name);
                submit();
            });
}

void AnswerEdit::complete() {
    if (m_completer == nullptr) return;
    if (!m_offersCompletions || text().trimmed().isEmpty()) {
        m_completer->popup()->hide();
        return;
    }
    m_completer->setCompletionPrefix(text());
    if (m_completer->completionCount() == 0) {
        m_completer->popup()->hide();
        return;
    }
    m_completer->popup()->setCurrentIndex({});
    QRect place = rect();
    place.setWidth(std::min(width(), 320));
    m_completer->complete(place);
}

bool AnswerEdit::offering() const {
    return m_completer != nullptr && m_completer->popup()->isVisible();
}

/// Puts the next of the names that begin with what was typed, or the one before, in its place.
void AnswerEdit::takeOffered(int step) {
    if (m_completer == nullptr || !m_offersCompletions) return;
    if (m_taken < 0) m_completer->setCompletionPrefix(text());
    const QAbstractItemModel& names = *m_completer->completionModel();
    const int count = names.rowCount();
    if (count == 0) return;
    const QModelIndex chosen = offering() ? m_completer->popup()->currentIndex() : QModelIndex();
    int row = chosen.isValid() ? chosen.row() : m_taken >= 0 ? m_taken : step > 0 ? -1 : count;
    const auto name = [&] { return names.index(row, 0).data(Qt::UserRole).toString(); };
    do {
        row = (row + step + count) % count;
    } while (count > 1 && name().compare(text(), Qt::CaseInsensitive) == 0);
    setText(name());
    m_taken = row;
    if (offering()) m_completer->popup()->setCurrentIndex(names.index(row, 0));
}

/// With something typed, or kept for later, Tab means it; else it goes on to the next widget.
bool AnswerEdit::focusNextPrevChild(bool next) {
    if (!m_holding && next && m_fields.next) return false;
    return !m_holding && text().isEmpty() && QLineEdit::focusNextPrevChild(next);
}

bool AnswerEdit::goToNextField() {
    if (!m_fields.next) return false;
    const TypedLine now{text().toStdWString(), static_cast<std::size_t>(cursorPosition())};
    const TypedLine then = m_fields.next(now);
    setText(QString::fromStdWString(then.text));
    setCursorPosition(static_cast<int>(then.caret));
    return !(then == now);
}

bool AnswerEdit::blankIsText() const { return m_blanksAllowed || text().count('"') % 2 == 1; }

void AnswerEdit::submit() {
    QString typed = text();
    if (m_fields.answered) typed = QString::fromStdWString(m_fields.answered(typed.toStdWString()));
    if (m_completer != nullptr) m_completer->popup()->hide();
    clear();
    if (!typed.trimmed().isEmpty()) {
        m_history.removeAll(typed);
        m_history.append(typed);
        if (m_history.size() > kHistory) m_history.removeFirst();
    }
    m_recalled = m_history.size();
    emit entered(typed);
}

void AnswerEdit::recall(int step) {
    const qsizetype wanted = std::clamp<qsizetype>(m_recalled + step, 0, m_history.size());
    if (wanted == m_recalled) return;
    m_recalled = wanted;
    setText(wanted < m_history.size() ? m_history[wanted] : QString());
}

void AnswerEdit::pasteText(const QString& text) {
    QString lines = text;
    lines.replace("\r\n", "\n").replace('\r', '\n');
    if (!lines.contains('\n')) {
        insert(lines);
        complete();
        return;
    }
    if (!lines.endsWith('\n')) lines += '\n';
    const QString keys = this->text() + lines;
    clear();
    emit typedAhead(keys);
}

/// Keys that have nothing to work on here belong to the window: undo always means the drawing.
bool AnswerEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const bool nothingTyped = text().isEmpty() && key->matches(QKeySequence::SelectAll);
        const bool nothingChosen = !hasSelectedText() && (key->matches(QKeySequence::Copy) ||
                                                          key->matches(QKeySequence::Cut));
        const bool objects =
            text().isEmpty() && key->matches(QKeySequence::Paste) && drawingIsOffered();
        if (nothingTyped || nothingChosen || objects || key->matches(QKeySequence::Undo) ||
            key->matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return QLineEdit::event(event);
}

void AnswerEdit::resume() {
    m_holding = false;
    while (!m_holding && !m_held.empty()) {
        const std::unique_ptr<QKeyEvent> key = std::move(m_held.front());
        m_held.pop_front();
        keyPressEvent(key.get());
    }
}

void AnswerEdit::keyPressEvent(QKeyEvent* event) {
    if (m_holding) {
        if (event->key() == Qt::Key_Escape && m_interrupt && m_interrupt()) return m_held.clear();
        m_held.emplace_back(event->clone());
        return;
    }
    if (event->matches(QKeySequence::Paste)) return pasteText(QApplication::clipboard()->text());
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (offering()) {
                const QModelIndex chosen = m_completer->popup()->currentIndex();
                if (chosen.isValid()) setText(chosen.data(Qt::UserRole).toString());
            }
            return submit();
        case Qt::Key_Space:
            if (blankIsText()) break;
            return submit();
        case Qt::Key_Escape:
            if (m_completer != nullptr) m_completer->popup()->hide();
            clear();
            m_recalled = m_history.size();
            emit cancelled();
            return;
        case Qt::Key_Delete:
            if (text().isEmpty()) emit erased();
            break;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            if (m_fields.next) return void(goToNextField());
            takeOffered((event->modifiers() & Qt::ShiftModifier) ? -1 : 1);
            return;
        case Qt::Key_Up:
            return recall(-1);
        case Qt::Key_Down:
            return recall(+1);
        default:
            break;
    }
    QLineEdit::keyPressEvent(event);
}

CommandLine::CommandLine(QWidget* parent)
    : QWidget(parent),
      m_log(new QPlainTextEdit(this)),
      m_prompt(new QLabel(this)),
      m_edit(new AnswerEdit(this)) {
    m_log->setReadOnly(true);
    m_log->setAccessibleName("Histórico de comandos");
    m_log->setMaximumBlockCount(kLogLines);
    m_log->setUndoRedoEnabled(false);
    m_log->setFocusPolicy(Qt::ClickFocus);
    m_log->setFrameShape(QFrame::NoFrame);
    m_log->document()->setDocumentMargin(2);
    m_prompt->setTextFormat(Qt::RichText);
    m_prompt->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    m_prompt->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    setTextFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_edit->setFrame(false);
    m_edit->setMinimumWidth(160);
    m_edit->setAccessibleName("Linha de comando");
    m_edit->setObjectName("resposta");

    auto* const row = new QHBoxLayout;
    row->setContentsMargins(4, 0, 0, 0);
    row->addWidget(m_prompt);
    row->addWidget(m_edit, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_log, 1);
    column->addLayout(row);

    connect(m_edit, &AnswerEdit::entered, this, &CommandLine::entered);
    connect(m_edit, &AnswerEdit::typedAhead, this, &CommandLine::typedAhead);
    connect(m_edit, &AnswerEdit::cancelled, this, &CommandLine::cancelled);
    connect(m_prompt, &QLabel::linkActivated, this, [this](const QString& word) {
        m_edit->clear();
        emit entered(word);
    });
}

void CommandLine::setTextFont(const QFont& font) {
    for (QWidget* const part : {static_cast<QWidget*>(m_log), static_cast<QWidget*>(m_prompt),
                                static_cast<QWidget*>(m_edit)})
        part->setFont(font);
    m_log->setMinimumHeight(QFontMetrics(font).lineSpacing() * kVisibleLogLines + 4);
}

/// The last line stays in view.
void CommandLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_log->verticalScrollBar()->setValue(m_log->verticalScrollBar()->maximum());
}

void CommandLine::append(QString text) {
    // Prompts and messages begin with a line feed of their own.
    if (m_atLineStart && text.startsWith('\n')) text.remove(0, 1);
    if (text.isEmpty()) return;
    m_fresh += static_cast<int>(text.count('\n'));
    // A line feed is written with what follows it: the log's last line is never an empty one.
    if (m_atLineStart && !m_log->document()->isEmpty()) text.prepend('\n');
    m_atLineStart = text.endsWith('\n');
    if (m_atLineStart) text.chop(1);
    QScrollBar* const bar = m_log->verticalScrollBar();
    const bool following = bar->value() == bar->maximum();
    QTextCursor end(m_log->document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    if (following) bar->setValue(bar->maximum());
}

QString CommandLine::lastLines(int count) const {
    QStringList lines;
    for (QTextBlock block = m_log->document()->lastBlock(); block.isValid() && count > 0;
         block = block.previous(), --count)
        lines.prepend(block.text());
    return lines.join('\n');
}

void CommandLine::print(const QString& text) { append(text); }

void CommandLine::ask(const InputRequest& request) {
    QString prompt = QString::fromStdWString(request.prompt);
    const qsizetype last = prompt.lastIndexOf('\n');
    if (last >= 0) {
        const QString before = prompt.left(last + 1);
        if (before.trimmed().isEmpty()) {
            if (!m_atLineStart) append("\n");
        } else {
            append(before);
        }
        prompt.remove(0, last + 1);
    }
    if (prompt != m_shownPrompt) {
        m_prompt->setText(promptMarkup(prompt, request.keywords));
        m_prompt->setToolTip(prompt);
    }
    m_shownPrompt = prompt;
    if (m_fresh > kVisibleLogLines) emit outputHidden(lastLines(std::min(m_fresh, kMostShown)));
    m_edit->setBlanksAllowed(request.blanksAllowed);
    m_edit->offerCompletions(request.kind == InputKind::Command);
}

void CommandLine::answered(const QString& text) {
    append(m_shownPrompt + text + "\n");
    m_fresh = 0;
    emit outputRead();
    m_shownPrompt.clear();
    m_prompt->clear();
}

void CommandLine::takeKey(QKeyEvent* event) {
    QKeyEvent copy(event->type(), event->key(), event->modifiers(), event->text(),
                   event->isAutoRepeat());
    m_edit->setFocus();
    QApplication::sendEvent(m_edit, &copy);
    event->accept();
}

QString promptMarkup(const QString& prompt, const Keywords& keywords) {
    const qsizetype open = prompt.indexOf('[');
    const qsizetype close = prompt.indexOf(']', open + 1);
    const auto plain = [](const QString& text) {
        QString out = text.toHtmlEscaped();
        return out.replace(' ', "&nbsp;");
    };
    const auto tail = [&](const QString& text) {
        const qsizetype from = text.indexOf('<');
        const qsizetype to = text.lastIndexOf('>');
        if (from < 0 || to < from) return plain(text);
        return plain(text.left(from)) + "<b>" + plain(text.mid(from, to - from + 1)) + "</b>" +
               plain(text.mid(to + 1));
    };
    if (open < 0 || close < 0) return tail(prompt);
    QStringList options;
    for (const QString& option : prompt.mid(open + 1, close - open - 1).split('/')) {
        QString target = option.trimmed();
        for (const Keyword& keyword : keywords) {
            if (QString::fromStdWString(keyword.local).compare(target, Qt::CaseInsensitive) != 0)
                continue;
            if (!keyword.global.empty()) target = "_" + QString::fromStdWString(keyword.global);
            break;
        }
        options += "<a href=\"" + target.toHtmlEscaped() + "\">" + plain(option) + "</a>";
    }
    return plain(prompt.left(open + 1)) + options.join("/") + "]" + tail(prompt.mid(close + 1));
}

}  // namespace prancheta::desktop
