// SPDX-License-Identifier: MIT
// A panel before an editor, and what clicks and types in it.
#pragma once

#include <QAbstractItemView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "prancheta/desktop/panels/panels.h"
#include "tests/builtin/script_ui.h"

namespace panels {

using prancheta::desktop::Panel;

class PanelTest : public builtin::Builtin {
protected:
    void open(std::unique_ptr<Panel> made) {
        panel = std::move(made);
        panel->resize(900, 600);
        panel->show();
        panel->setEditor(editor.get());
        changes = std::make_unique<QSignalSpy>(panel.get(), &Panel::changed);
        QObject::connect(panel.get(), &Panel::messageWanted,
                         [this](const QString& text) { messages << text; });
        QObject::connect(panel.get(), &Panel::commandWanted,
                         [this](const QString& line) { commands << line; });
    }
    template <class View>
    View* find(const char* name) {
        return panel->findChild<View*>(QString::fromUtf8(name));
    }
    /// Row whose text in the column is this one; invalid when there is none.
    static QModelIndex cellOf(QAbstractItemView* view, const QString& text, int column = 0) {
        const QModelIndexList found =
            view->model()->match(view->model()->index(0, column), Qt::DisplayRole, text, 1,
                                 Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.front();
    }
    static void click(QAbstractItemView* view, const QModelIndex& index,
                      Qt::KeyboardModifiers keys = Qt::NoModifier) {
        ASSERT_TRUE(index.isValid());
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, view->visualRect(index).center());
    }
    /// Replaces the text of the editor that stands open in the view.
    static void typeInPlace(QAbstractItemView* view, const char* text) {
        auto* edit = view->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr) << "no editor is open";
        edit->selectAll();
        edit->insert(QString::fromUtf8(text));
        QTest::keyClick(edit, Qt::Key_Return);
        settle();
    }
    /// The toolkit takes an entry, and deletes its editor, from the event loop; what a panel makes
    /// of the entry may come in the next round.
    static void settle() {
        for (int round = 0; round < 2; ++round) QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void undo() {
        ASSERT_TRUE(editor->database().core().undo().undo());
        panel->refresh();
    }
    std::size_t steps() { return editor->database().core().undo().groupCount(); }
    void select(std::vector<AcDbObjectId> ids) {
        editor->selection().select(std::move(ids));
        panel->refresh();
    }

    std::unique_ptr<Panel> panel;
    std::unique_ptr<QSignalSpy> changes;
    QStringList messages;
    QStringList commands;
};

}  // namespace panels
