// SPDX-License-Identifier: MIT
// The model as a viewport of a sheet shows it.
#pragma once

#include <functional>

#include "dbviewport.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/plot/painter.h"

namespace prancheta {

/// Factor of dashes on sheets: with PSLTSCALE they are as long as the drawing's scale makes them on
/// paper, through every viewport; without, as LTSCALE says in the units of what they are drawn in.
double dashScaleOnSheet(const AcDbDatabase& database);

struct ThroughViewport {
    /// Of the sheet; what the painter draws on it.
    PicturePainter::Settings sheet;
    /// Of the sheet: what lies outside need not be drawn.
    Box2d area;
    /// Layers to be left out beside those that are frozen in the viewport; may be empty.
    std::function<bool(AcDbObjectId layer)> hides;
    /// Called after each entity with its picture, for highlights; may be empty.
    std::function<void(PicturePainter&, const DisplayList::Item&, const Picture&)> after;
};

/// Draws inside the frame, and the outline where it has one, and nothing outside; not the frame
/// itself. Nothing for a viewport that is off.
void paintThrough(QPainter& painter, Editor& editor, const AcDbViewport& viewport,
                  const ThroughViewport& how);

}  // namespace prancheta
