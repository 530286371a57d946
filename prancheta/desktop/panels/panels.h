// SPDX-License-Identifier: MIT
// The panels beside the drawing area.
#pragma once

#include <QWidget>

#include <memory>

#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// What all panels have in common. A panel changes the drawing only while no command is active,
/// each change one step of undo.
class Panel : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    /// Null takes the editor away. To be called again when the editor's drawing was replaced.
    virtual void setEditor(Editor* editor) = 0;
    /// The drawing or the selection may have changed; cheap when they have not.
    virtual void refresh() = 0;

signals:
    /// The panel changed the drawing or the selection.
    void changed();
    /// To be run as if typed at "Comando:": a command, a blank, then what it asks for, one answer a
    /// line.
    void commandWanted(const QString& line);
    /// A command has something to show in the panel.
    void wanted();
    /// Text for the command line's log.
    void messageWanted(const QString& text);
};

std::unique_ptr<Panel> makeLayersPanel();
std::unique_ptr<Panel> makePropertiesPanel();
std::unique_ptr<Panel> makeMaterialPanel();
std::unique_ptr<Panel> makeCheckPanel();
std::unique_ptr<Panel> makePlanPanel();

/// "3 peças  124,50 kg  5,20 m²" of the selection; empty when nothing counts.
QString selectionTotals(Editor& editor);

}  // namespace prancheta::desktop
