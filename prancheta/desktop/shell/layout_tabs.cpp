// SPDX-License-Identifier: MIT
// The tabs below the drawing.
#include "prancheta/desktop/shell/layout_tabs.h"

#include <QContextMenuEvent>
#include <QInputDialog>
#include <QMenu>
#include <QSignalBlocker>

#include <algorithm>

namespace prancheta::desktop {
namespace {

/// Many tabs are leafed through, so that the rest of the row keeps its place.
constexpr int kMostWidth = 280;

}  // namespace

LayoutTabs::LayoutTabs(QWidget* parent) : QTabBar(parent) {
    setObjectName("layouts");
    setShape(QTabBar::RoundedSouth);
    setDrawBase(false);
    setExpanding(false);
    setMaximumHeight(fontMetrics().height() + 8);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QTabBar::currentChanged, this, &LayoutTabs::choose);
}

void LayoutTabs::setEditor(Editor* editor) {
    m_editor = editor;
    refresh();
}

void LayoutTabs::refresh() {
    if (m_editor == nullptr) return;
    const QSignalBlocker blocker(this);
    const std::vector<Tab> tabs = tabsOf(m_editor->database());
    const int wanted = static_cast<int>(tabs.size());
    while (count() > wanted) removeTab(count() - 1);
    while (count() < wanted) addTab(QString());
    for (int i = 0; i < wanted; ++i) {
        const Tab& tab = tabs[static_cast<std::size_t>(i)];
        const QString name = QString::fromStdWString(tab.name);
        // The texts of tabs take & for a mnemonic.
        const QString shown = i == 0 ? QStringLiteral("Modelo") : QString(name).replace('&', "&&");
        if (tabText(i) != shown) setTabText(i, shown);
        setTabData(i, name);
        if (tab.block == m_editor->spaces().tab() && currentIndex() != i) setCurrentIndex(i);
    }
    setMinimumWidth(std::min(sizeHint().width(), kMostWidth));
}

/// The command shows it; until then, and when it does not run, the former tab stays.
void LayoutTabs::choose(int index) {
    const QString name = nameAt(index);
    refresh();
    emit commandWanted("_LAYOUT _Set\n" + name);
}

void LayoutTabs::rename(const QString& name) {
    bool accepted = false;
    const QString typed =
        QInputDialog::getText(this, "Renomear layout", "Nome:", QLineEdit::Normal, name, &accepted);
    if (accepted && !typed.trimmed().isEmpty() && typed.trimmed() != name)
        emit commandWanted("_LAYOUT _Rename\n" + name + "\n" + typed.trimmed());
}

void LayoutTabs::contextMenuEvent(QContextMenuEvent* event) {
    if (m_editor == nullptr) return;
    const int index = tabAt(event->pos());
    QMenu menu(this);
    menu.addAction("&Novo layout", this, [this] { emit commandWanted("_LAYOUT _New\n"); });
    if (index > 0) {
        const QString name = nameAt(index);
        menu.addAction("&Renomear...", this, [this, name] { rename(name); });
        menu.addAction("&Copiar", this,
                       [this, name] { emit commandWanted("_LAYOUT _Copy\n" + name + "\n"); });
        QAction* const erase = menu.addAction(
            "&Apagar", this, [this, name] { emit commandWanted("_LAYOUT _Delete\n" + name); });
        erase->setEnabled(count() > 2);
    }
    menu.exec(event->globalPos());
}

}  // namespace prancheta::desktop
