// SPDX-License-Identifier: MIT
// The toolbars of the window and its start page, as menus.json has them.
#include <QApplication>
#include <QMenu>
#include <QSettings>
#include <QToolBar>
#include <QToolButton>

#include "prancheta/desktop/shell/icons.h"
#include "prancheta/desktop/shell/main_window.h"
#include "prancheta/desktop/shell/object_fields.h"
#include "prancheta/desktop/shell/start_page.h"

namespace prancheta::desktop {
namespace {

constexpr auto kLastUsed = "familias/";
constexpr int kIcon = 20;  // side, pixels of the layout

}  // namespace

/// The button shows the entry that was used last, also by menu or in a former session.
QWidget* MainWindow::familyButton(const Family& family, QToolBar& bar,
                                  QToolButton::ToolButtonPopupMode mode) {
    auto* const button = new QToolButton(&bar);
    button->setObjectName("familia_" + family.title);
    button->setAccessibleName(family.title);
    button->setPopupMode(mode);
    if (mode == QToolButton::DelayedPopup) {
        button->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(button, &QWidget::customContextMenuRequested, button, &QToolButton::showMenu);
    }
    auto* const menu = new QMenu(family.title, button);
    button->setMenu(menu);
    const QString last = QSettings().value(kLastUsed + family.title).toString();
    QAction* shown = nullptr;
    for (const QString& entry : family.entries) {
        QAction* const action = m_entries.value(entry);
        if (action == nullptr) continue;
        menu->addAction(action);
        if (shown == nullptr || entry == last) shown = action;
        connect(action, &QAction::triggered, button, [button, action, entry, family] {
            button->setDefaultAction(action);
            QSettings().setValue(kLastUsed + family.title, entry);
        });
    }
    if (shown != nullptr) button->setDefaultAction(shown);
    return button;
}

void MainWindow::addToolbar(const Toolbar& bar) {
    const Qt::ToolBarArea area = bar.left ? Qt::LeftToolBarArea : Qt::TopToolBarArea;
    if (bar.newRow) addToolBarBreak(area);
    auto* const toolbar = new QToolBar(bar.title, this);
    addToolBar(area, toolbar);
    toolbar->setObjectName("barra_" + bar.title);
    toolbar->setIconSize({kIcon, kIcon});
    if (auto* const more = toolbar->findChild<QToolButton*>("qt_toolbar_ext_button"))
        more->setAccessibleName("Mais ferramentas de " + bar.title);
    for (const ToolbarItem& item : bar.items) {
        if (item.family) {
            // A narrow column has no room for an arrow of its own.
            toolbar->addWidget(
                familyButton(*item.family, *toolbar,
                             bar.left ? QToolButton::DelayedPopup : QToolButton::MenuButtonPopup));
        } else if (!item.field.isEmpty()) {
            toolbar->addWidget(m_fields->make(item.field, toolbar));
        } else if (item.entry.isEmpty()) {
            toolbar->addSeparator();
        } else if (QAction* const action = m_entries.value(item.entry)) {
            toolbar->addAction(action);
        }
    }
}

void MainWindow::fillStartPage(const std::vector<Family>& families) {
    for (const Family& family : families) {
        QList<QAction*> actions;
        for (const QString& entry : family.entries)
            if (QAction* const action = m_entries.value(entry)) actions += action;
        m_start->addFamily(family.title, actions);
    }
}

void MainWindow::drawIcons() {
    // That of the window follows later when the program's changes.
    const QPalette colors = QApplication::palette();
    for (const auto& [action, item] : m_drawn)
        action->setIcon(item.slide.isEmpty()
                            ? drawnIcon(item.icon, colors)
                            : slideIcon(m_installation / "Perfis" / "Slides", item.slide, colors));
}

}  // namespace prancheta::desktop
