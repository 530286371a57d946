// SPDX-License-Identifier: MIT
// Corners of polylines, rounded or cut off.
#pragma once

#include "prancheta/editor/commands/corner.h"

namespace prancheta::commands {

/// Every corner of straight segments that is long enough; tells how many were and how many were
/// not.
bool cutAllCorners(const CommandContext& context, const CornerMaker& maker, AcDbObjectId polyline);
/// That between the picked segment and the one beside it; false, after telling why, when there is
/// none or it does not fit.
bool cutCornerBetween(const CommandContext& context, const CornerMaker& maker,
                      const CornerSide& picked, std::size_t other);

}  // namespace prancheta::commands
