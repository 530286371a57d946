// SPDX-License-Identifier: MIT
// Plotting with a live picture of the sheet.
#pragma once

#include <QDialog>

#include "prancheta/editor/plotter.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace prancheta::desktop {

class SheetPreview;

class PlotDialog : public QDialog {
    Q_OBJECT
public:
    /// The editor must outlive the dialog.
    PlotDialog(Editor& editor, QWidget* parent);

    PlotSettings settings() const;
    PlotFormat format() const;

public slots:
    /// Asks for the file and plots; closes when it is written, shows why not otherwise.
    void accept() override;

private:
    void showSettings();

    Editor& m_editor;
    QComboBox* m_paper;
    QComboBox* m_orientation;
    QComboBox* m_area;
    QComboBox* m_scale;
    QComboBox* m_format;
    QCheckBox* m_monochrome;
    QCheckBox* m_lineWeights;
    QLabel* m_told;
    SheetPreview* m_preview;
};

}  // namespace prancheta::desktop
