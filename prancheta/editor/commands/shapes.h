// SPDX-License-Identifier: MIT
// Closed polylines that commands draw at once.
#pragma once

#include <span>

#include "dbpl.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

struct ShapeCorner {
    AcGePoint3d at;      ///< world
    double bulge = 0.0;  ///< of the segment that leaves it
};

/// Closed, at the height of its first corner; a corner on the one before it is left out. `width` in
/// drawing units.
std::unique_ptr<AcDbPolyline> closedPolyline(std::span<const ShapeCorner> corners,
                                             double width = 0.0);

}  // namespace prancheta::commands
