// SPDX-License-Identifier: MIT
// Viewports as they stand, without opening them.
#pragma once

#include <vector>

#include "dbviewport.h"
#include "prancheta/geometry/box.h"

namespace prancheta {

/// Null for what is no viewport, or none any more.
const AcDbViewport* viewportOf(AcDbObjectId id);
/// Of a block, in drawing order, without the sheet's own.
std::vector<AcDbObjectId> viewportsOf(AcDbObjectId block);
/// The sheet's own view is no object that a user knows.
bool isSheetsOwn(AcDbObjectId entity);
/// On the sheet.
Box2d frameOf(const AcDbViewport& viewport);

}  // namespace prancheta
