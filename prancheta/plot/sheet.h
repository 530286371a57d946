// SPDX-License-Identifier: MIT
// The plotted sheet: where the drawing stands on the paper, and its picture for any device.
#pragma once

#include <QPainter>
#include <QRectF>
#include <QTransform>

#include "prancheta/editor/plotter.h"
#include "prancheta/plot/marks.h"

namespace prancheta {

/// Millimetres of paper from the upper left corner, y down.
struct SheetLayout {
    double width = 0.0;  ///< the sheet as it lies
    double height = 0.0;
    double scale = 1.0;  ///< mm of paper for one drawing unit
    QTransform fromWorld;
    QRectF clip;  ///< nothing is drawn outside
    Box2d shown;  ///< the same in world coordinates
};

/// The area (nothing: extents of what is displayed) centred between the margins. A drawing without
/// extents gives an empty sheet, scale 1 unless one is asked for.
SheetLayout layoutSheet(Editor& editor, const PlotSettings& settings);

/// Draws the sheet's content, paper not included, so that the sheet fills `target`, which should
/// have its proportions. PDF, SVG, PNG and preview are all made by this; only line ends and
/// smoothing are the device's. The painter comes back as it was. `layers` is told where what lies
/// on each layer begins and ends.
void paintSheet(QPainter& painter, const QRectF& target, Editor& editor,
                const PlotSettings& settings, LayerMarks* layers = nullptr);

}  // namespace prancheta
