// SPDX-License-Identifier: MIT
// The tabs at the window's edge that show panels and fold them away.
#pragma once

#include <QToolBar>

class QDockWidget;

namespace prancheta::desktop {

/// One tab a panel, its title written upwards. A click shows the panel in the place of the one that
/// stands at its edge of the window; a click on a panel that is shown folds it away.
class SideTabs : public QToolBar {
    Q_OBJECT
public:
    explicit SideTabs(QWidget* parent = nullptr);
    /// `width`: when it is shown first; later ones as it had when it was folded away.
    void add(QDockWidget* panel, int width);
    /// Shows the panel; others at the same edge of the window are folded away.
    static void show(QDockWidget* panel);
};

}  // namespace prancheta::desktop
