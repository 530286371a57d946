// SPDX-License-Identifier: MIT
// Plotting with a live picture of the sheet.
#pragma once

#include <QDialog>

#include "prancheta/editor/plotter.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;

namespace prancheta::desktop {

class SheetPreview;
struct FormatRow;

class PlotDialog : public QDialog {
    Q_OBJECT
public:
    /// The editor must outlive the dialog.
    PlotDialog(Editor& editor, QWidget* parent);

    /// What is shown in the picture: the model or a layout.
    PlotSettings settings() const;
    /// What is plotted: that, or the ticked layouts.
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
    void addLayouts();
    /// What one chooses for the model a layout knows; a picture is one sheet.
    void enableChoices();
    void showSettings();
    /// With the pens, layers and footer that are chosen.
    PlotSettings inWays(PlotSettings sheet) const;
    /// Empty when the user chose none.
    std::filesystem::path askFile(const FormatRow& row);
    Result<void> plotTo(const FormatRow& row, const std::filesystem::path& file);

    Editor& m_editor;
    std::vector<Tab> m_tabs;  ///< the layouts that hold something
    QComboBox* m_what;        ///< the model, then those
    QComboBox* m_paper;
    QComboBox* m_orientation;
    QComboBox* m_area;
    QComboBox* m_scale;
    QComboBox* m_format;
    QCheckBox* m_monochrome;
    QCheckBox* m_lineWeights;
    QCheckBox* m_layers;
    QCheckBox* m_sheets;
    QListWidget* m_layouts;  ///< the layouts, to be ticked
    QCheckBox* m_footer;
    QLabel* m_told;
    SheetPreview* m_preview;
    std::optional<Box2d> m_window;  ///< world; what the user pointed at
};

}  // namespace prancheta::desktop
