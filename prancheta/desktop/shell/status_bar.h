// SPDX-License-Identifier: MIT
// Coordinates, drawing aids and totals of the selection.
#pragma once

#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>

#include <functional>
#include <vector>

#include "prancheta/desktop/shell/scale_button.h"
#include "prancheta/desktop/shell/viewport_button.h"

namespace prancheta::desktop {

class StatusBar : public QStatusBar {
    Q_OBJECT
public:
    /// `tabs` stand at its beginning.
    explicit StatusBar(QWidget* tabs, QWidget* parent = nullptr);
    void setEditor(Editor* editor);
    /// Brings buttons and totals up to date with the variables and the selection.
    void refresh();
    /// Drawing units.
    void showPointer(const AcGePoint3d& world);
    /// Switches the drawing aid whose button has this name ("ORTO", "SNAP", "GRADE", ...).
    void toggle(const QString& name);
    bool isOn(const QString& name) const;

signals:
    /// A variable or a viewport was changed.
    void changed();
    /// The user asked for another scale of the drawing, which this command line gives it.
    void scaleWanted(const QString& command);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Aid {
        const char* name;
        const char* shown;
        const wchar_t* variable;
        short bit;      ///< of the variable; what the button shows is its being set
        bool inverted;  ///< shown when the bit is not set
        const char* tip;
        QMenu* (StatusBar::*menu)() = nullptr;  ///< of the right button; the caller deletes it
    };
    bool shownAsOn(const Aid& aid) const;
    static const Aid kAids[];
    void toggle(std::size_t index);
    void setVariable(const wchar_t* name, int value);
    QMenu* snapMenu();
    QMenu* angleMenu();

    Editor* m_editor = nullptr;
    QLabel* m_coordinates;
    QLabel* m_totals;
    ViewportButton* m_viewport;
    ScaleButton* m_scale;
    std::vector<QToolButton*> m_buttons;
};

}  // namespace prancheta::desktop
