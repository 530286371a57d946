// SPDX-License-Identifier: MIT
// The scale of the viewports of a sheet that are selected, or of the one that is drawn through.
#pragma once

#include <QToolButton>

#include <functional>
#include <vector>

#include "dbviewport.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// Hidden without a viewport. Its menu gives them another scale, unless they are locked, and locks
/// them; each choice is one step of undo.
class ViewportButton : public QToolButton {
    Q_OBJECT
public:
    explicit ViewportButton(QWidget* parent = nullptr);
    void setEditor(Editor* editor) { m_editor = editor; }
    void refresh();

signals:
    /// The drawing was changed.
    void changed();

private:
    std::vector<AcDbObjectId> viewports() const;
    void fillMenu();
    void change(const std::function<void(AcDbViewport&)>& by);

    Editor* m_editor = nullptr;
};

}  // namespace prancheta::desktop
