// SPDX-License-Identifier: MIT
// What the user sets for the window, kept between sessions.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace prancheta::desktop {

struct WindowOptions {
    bool darkGround = true;
    int recoveryMinutes = 5;  ///< 0: no recovery copies
    int crosshair = 100;      ///< percent of the screen, CURSORSIZE
    QString templateFile;     ///< of new drawings; empty: that of the installation folder

    static WindowOptions load();
    void save() const;
};

class OptionsDialog : public QDialog {
    Q_OBJECT
public:
    OptionsDialog(const WindowOptions& options, QWidget* parent);
    WindowOptions options() const;

private:
    QComboBox* m_ground;
    QSpinBox* m_minutes;
    QSpinBox* m_crosshair;
    QLineEdit* m_template;
};

}  // namespace prancheta::desktop
