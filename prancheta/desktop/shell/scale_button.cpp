// SPDX-License-Identifier: MIT
// The button of the drawing's scale.
#include "prancheta/desktop/shell/scale_button.h"

#include <QMenu>

#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"

namespace prancheta::desktop {
namespace {

/// Usual scales of a drawing, 1 to this.
constexpr int kDrawingScales[] = {1, 2, 5, 10, 15, 20, 25, 30, 40, 50, 75, 100, 200, 500};

}  // namespace

ScaleButton::ScaleButton(QWidget* parent) : QToolButton(parent) {
    setToolTip("Escala do desenho: cotas, marcas, textos, tabelas, hachuras");
    setAccessibleName("Escala do desenho");
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setPopupMode(QToolButton::InstantPopup);
    setMenu(new QMenu(this));
    connect(menu(), &QMenu::aboutToShow, this, &ScaleButton::fillMenu);
}

void ScaleButton::setEditor(Editor* editor) {
    m_editor = editor;
    refresh();
}

void ScaleButton::refresh() {
    if (m_editor == nullptr) return;
    setText(QString::fromStdWString(paperScaleText(drawingScale(m_editor->database()))));
}

void ScaleButton::fillMenu() {
    menu()->clear();
    const auto add = [this](const QString& shown, const QString& command) {
        QAction* const action = menu()->addAction(shown);
        connect(action, &QAction::triggered, this, [this, command] { emit scaleWanted(command); });
        return action;
    };
    for (const int scale : kDrawingScales) {
        const QString shown = QString("1:%1").arg(scale);
        QAction* const action = add(shown, "_ESCALADESENHO " + shown);
        action->setCheckable(true);
        action->setChecked(text() == shown);
    }
    menu()->addSeparator();
    add("&Outra...", "_ESCALADESENHO");
}

}  // namespace prancheta::desktop
