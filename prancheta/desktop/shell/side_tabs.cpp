// SPDX-License-Identifier: MIT
// The tabs at the window's edge.
#include "prancheta/desktop/shell/side_tabs.h"

#include <QDockWidget>
#include <QLayout>
#include <QMainWindow>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolButton>

namespace prancheta::desktop {
namespace {

/// A button whose text runs upwards.
class UprightButton : public QToolButton {
public:
    using QToolButton::QToolButton;
    QSize sizeHint() const override {
        return {fontMetrics().height() + 8, fontMetrics().horizontalAdvance(text()) + 18};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        option.text.clear();
        painter.drawComplexControl(QStyle::CC_ToolButton, option);
        painter.translate(0, height());
        painter.rotate(-90);
        painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                       QPalette::ButtonText));
        painter.drawText(QRect(0, 0, height(), width()), Qt::AlignCenter, text());
    }
};

constexpr auto kWidth = "largura";

void fold(QDockWidget* panel) {
    panel->setProperty(kWidth, panel->width());
    panel->hide();
}

}  // namespace

SideTabs::SideTabs(QWidget* parent) : QToolBar("Abas dos painéis", parent) {
    setObjectName("abas_dos_paineis");
    setMovable(false);
    setContentsMargins(0, 0, 0, 0);
    layout()->setContentsMargins(0, 0, 0, 0);
    layout()->setSpacing(0);
}

void SideTabs::show(QDockWidget* panel) {
    auto* const window = qobject_cast<QMainWindow*>(panel->parentWidget());
    if (panel->isHidden() && window != nullptr && !panel->isFloating()) {
        for (QDockWidget* const other : window->findChildren<QDockWidget*>())
            if (other->property(kWidth).isValid() && !other->isFloating() && !other->isHidden() &&
                window->dockWidgetArea(other) == window->dockWidgetArea(panel))
                fold(other);
        panel->show();
        window->resizeDocks({panel}, {panel->property(kWidth).toInt()}, Qt::Horizontal);
    }
    panel->show();
    panel->raise();
}

void SideTabs::add(QDockWidget* panel, int width) {
    panel->setProperty(kWidth, width);
    auto* const tab = new UprightButton(this);
    tab->setText(panel->windowTitle());
    tab->setObjectName("aba_" + panel->objectName());
    tab->setToolTip(panel->windowTitle() + ": mostra ou recolhe o painel");
    tab->setCheckable(true);
    tab->setAutoRaise(true);
    tab->setFocusPolicy(Qt::TabFocus);
    addWidget(tab);
    connect(tab, &QToolButton::clicked, panel,
            [panel](bool wanted) { wanted ? show(panel) : fold(panel); });
    connect(panel, &QDockWidget::visibilityChanged, tab,
            [panel, tab] { tab->setChecked(!panel->isHidden()); });
}

}  // namespace prancheta::desktop
