// SPDX-License-Identifier: MIT
// The tabs below the drawing: the model and its sheets.
#pragma once

#include <QTabBar>

#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// A click shows a sheet, the right button makes, copies, renames and erases sheets. Everything by
/// the command LAYOUT.
class LayoutTabs : public QTabBar {
    Q_OBJECT
public:
    explicit LayoutTabs(QWidget* parent = nullptr);
    /// Null before the editor goes.
    void setEditor(Editor* editor);
    /// The drawing's tabs may be others.
    void refresh();

signals:
    void commandWanted(const QString& line);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void choose(int index);
    void rename(const QString& name);
    QString nameAt(int index) const { return tabData(index).toString(); }

    Editor* m_editor = nullptr;
};

}  // namespace prancheta::desktop
