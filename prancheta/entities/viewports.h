// SPDX-License-Identifier: MIT
// Viewports as they stand, without opening them.
#pragma once

#include <vector>

#include "dbviewport.h"
#include "prancheta/geometry/box.h"
#include "prancheta/geometry/vec2.h"

namespace prancheta {

/// Null for what is no viewport, or none any more.
const AcDbViewport* viewportOf(AcDbObjectId id);
/// Of a block, in drawing order, without the sheet's own.
std::vector<AcDbObjectId> viewportsOf(AcDbObjectId block);
/// The sheet's own view is no object that a user knows.
bool isSheetsOwn(AcDbObjectId entity);
/// On the sheet.
Box2d frameOf(const AcDbViewport& viewport);
/// Corners of the outline, on the sheet, that bounds what is seen; circles as polygons. Empty for a
/// viewport that is bounded by its frame, and for an outline that is no closed curve.
std::vector<Vec2> clipOutline(const AcDbViewport& viewport);
/// The same ids with the outlines of the viewports among them: those go where their viewport goes.
std::vector<AcDbObjectId> withClips(std::vector<AcDbObjectId> ids);

}  // namespace prancheta
