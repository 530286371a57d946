// SPDX-License-Identifier: MIT
// A button that shows the drawing's scale and gives it another one.
#pragma once

#include <QToolButton>

namespace prancheta {
class Editor;
}

namespace prancheta::desktop {

class ScaleButton : public QToolButton {
    Q_OBJECT
public:
    explicit ScaleButton(QWidget* parent = nullptr);
    void setEditor(Editor* editor);
    /// The scale may be another one.
    void refresh();

signals:
    /// The command line that gives the drawing the scale that was chosen.
    void scaleWanted(const QString& command);

private:
    void fillMenu();

    Editor* m_editor = nullptr;
};

}  // namespace prancheta::desktop
