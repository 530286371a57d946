// SPDX-License-Identifier: MIT
// The command line: what was said above, the prompt and what is being typed below.
#pragma once

#include <QCompleter>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>
#include <QWidget>

#include <deque>
#include <functional>
#include <memory>

#include "prancheta/editor/dynamic_input.h"
#include "prancheta/editor/user_interface.h"

class QAbstractItemModel;

namespace prancheta::desktop {

/// The line in which answers are typed. Enter and Space end an answer, but for the Space inside a
/// text that may have blanks or inside quotation marks. Tab and Shift+Tab go through the names that
/// begin with what was typed.
class AnswerEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit AnswerEdit(QWidget* parent = nullptr);

    void setBlanksAllowed(bool allowed) { m_blanksAllowed = allowed; }
    /// Names offered while the first word is typed; the edit owns nothing of it. Null: none.
    void setCompletions(QAbstractItemModel* names);
    void offerCompletions(bool offered) { m_offersCompletions = offered; }
    /// While nothing is asked keys are kept: what a key means depends on the next question.
    /// resume() takes them, up to the next answer. Held at first.
    void hold() { m_holding = true; }
    void resume();
    /// Asked at an Esc that would be kept; true when it ended what goes on, and the kept keys go
    /// with it.
    void setInterrupt(std::function<bool()> interrupt) { m_interrupt = std::move(interrupt); }
    /// What Tab makes of the line while an answer is typed, and what Enter makes of it; null
    /// functions: nothing.
    struct Fields {
        std::function<TypedLine(const TypedLine&)> next;
        std::function<std::wstring(std::wstring_view)> answered;
    };
    void setFields(Fields fields) { m_fields = std::move(fields); }
    /// Goes on to the next value of the answer; false when there is none.
    bool goToNextField();
    /// Inserts one line; several lines leave as they are, with what was typed before them.
    void pasteText(const QString& text);

signals:
    void entered(const QString& text);
    /// Several answers at once, as a keyboard would give them.
    void typedAhead(const QString& keys);
    void cancelled();
    /// Del with nothing typed: meant for what is selected in the drawing.
    void erased();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void submit();
    bool blankIsText() const;
    void recall(int step);
    void complete();
    bool offering() const;
    void takeOffered(int step);

    Fields m_fields;
    bool m_holding = true;
    std::deque<std::unique_ptr<QKeyEvent>> m_held;
    std::function<bool()> m_interrupt;
    bool m_blanksAllowed = false;
    bool m_offersCompletions = false;
    QCompleter* m_completer = nullptr;
    int m_taken = -1;  ///< row of the completion that Tab put here; -1: none
    QStringList m_history;
    qsizetype m_recalled = 0;  ///< index in the history; its size: the line being typed
};

class CommandLine : public QWidget {
    Q_OBJECT
public:
    explicit CommandLine(QWidget* parent = nullptr);

    /// Text as the editor prints it, line feeds where they stand.
    void print(const QString& text);
    /// Shows the question and its options.
    void ask(const InputRequest& request);
    /// Notes the answer beside its prompt. Nothing is asked until the next ask().
    void answered(const QString& text);
    AnswerEdit& edit() { return *m_edit; }
    void setTextFont(const QFont& font);
    /// A key that was pressed elsewhere in the window.
    void takeKey(QKeyEvent* event);
    /// What was said, for a larger window.
    QTextDocument* document() const { return m_log->document(); }

    /// What is selected of what was said, lines ended by line feeds.
    QString selectedText() const {
        return m_log->textCursor().selectedText().replace(QChar::ParagraphSeparator, '\n');
    }

signals:
    void entered(const QString& text);
    void typedAhead(const QString& keys);
    void cancelled();
    /// What came since the last answer is more than the log shows: its last lines.
    void outputHidden(const QString& lines);
    /// The next answer came.
    void outputRead();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void append(QString text);
    QString lastLines(int count) const;

    QPlainTextEdit* m_log;
    QLabel* m_prompt;
    AnswerEdit* m_edit;
    QString m_shownPrompt;  ///< last line of the present prompt, empty when nothing is asked
    bool m_atLineStart = true;
    int m_fresh = 0;  ///< lines that came since the last answer
};

/// The prompt as rich text: options between brackets are links with the option's word as target,
/// defaults between angles stand out.
QString promptMarkup(const QString& prompt, const Keywords& keywords);

}  // namespace prancheta::desktop
