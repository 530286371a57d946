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
struct FormatRow;

class PlotDialog : public QDialog {
    Q_OBJECT
public:
    /// The editor must outlive the dialog.
    PlotDialog(Editor& editor, QWidget* parent);

    PlotSettings settings() const;
    /// What is plotted: that, or the layouts.
    std::vector<PlotSettings> sheets() const;

    /// Result of exec() when the user wants to point at what is plotted: to be called then, and
    /// exec() again.
    static constexpr int kPickWindow = 2;
    void pickWindow();

public slots:
    /// Asks for the file, or takes the chosen printer, and plots; closes when it is written, shows
    /// why not otherwise.
    void accept() override;

private:
    void showSettings();
    /// Empty when the user chose none.
    std::filesystem::path askFile(const FormatRow& row);
    Result<void> plotTo(const FormatRow& row, const std::filesystem::path& file);

    Editor& m_editor;
    QComboBox* m_paper;
    QComboBox* m_orientation;
    QComboBox* m_area;
    QComboBox* m_scale;
    QComboBox* m_format;
    QCheckBox* m_monochrome;
    QCheckBox* m_lineWeights;
    QCheckBox* m_layers;
    QCheckBox* m_sheets;
    QCheckBox* m_footer;
    QLabel* m_told;
    SheetPreview* m_preview;
    std::optional<Box2d> m_window;  ///< world; what the user pointed at
};

}  // namespace prancheta::desktop
