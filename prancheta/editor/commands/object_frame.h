// SPDX-License-Identifier: MIT
// The plane frame that an object suggests to the user's coordinate system.
#pragma once

#include <optional>
#include <string>

#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// World coordinates.
struct ObjectFrame {
    AcGePoint3d origin;
    AcGeVector3d along;  ///< the X axis; of any length above 0
};
/// Lines, segments of polylines and pieces: from the end nearer to the pick to the other one; arcs
/// and circles: from the centre to the nearer end or to the pick; texts and insertions: as they are
/// turned; dimensions: along what they measure. Nothing, and `whyNot`, of what has no direction.
std::optional<ObjectFrame> frameOfObject(AcDbObjectId id, const AcGePoint3d& pick,
                                         std::wstring& whyNot);
/// From the frame's coordinates to the world's; Z stays. Nothing where `along` has no direction in
/// the plane.
std::optional<AcGeMatrix3d> systemAlong(const AcGePoint3d& origin, const AcGeVector3d& along);

}  // namespace prancheta::commands
