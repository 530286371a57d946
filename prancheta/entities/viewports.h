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
/// The viewport shows annotations of the model in the size that they have on paper at the drawing's
/// scale, whatever its own. Kept with it under an application of its own, so that those of other
/// programs show what they always showed.
bool sizesAnnotations(const AcDbViewport& viewport);
/// Open for write, or in no drawing yet; `database` is to be its drawing.
void sizeAnnotations(AcDbDatabase& database, AcDbViewport& viewport, bool sizes);
/// How many times as large as the model has them the viewport shows annotations; exactly 1 for one
/// of the drawing's scale, and for one that does not size them.
double annotationFactor(const AcDbViewport& viewport);
/// The same ids with the outlines of the viewports among them: those go where their viewport goes.
std::vector<AcDbObjectId> withClips(std::vector<AcDbObjectId> ids);

}  // namespace prancheta
