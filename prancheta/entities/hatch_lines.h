// SPDX-License-Identifier: MIT
// The lines of a hatch's pattern, cut off at its boundary.
#pragma once

#include <functional>

#include "prancheta/entities/hatch_area.h"

namespace prancheta {

/// More strokes than this are shown as a grey mass at any scale, and cost seconds: such a hatch
/// shows its boundary only.
constexpr std::size_t kMostStrokes = 100000;

/// Calls `stroke(a, b)` for each line or dash of the families between the outlines (even-odd rule),
/// in the plane of the hatch; a dot is a very short one. Arcs are cut exactly. False when there
/// would be more than kMostStrokes; `stroke` was not called then. Sweep line by line:
/// O(crossings log crossings).
bool patternStrokes(std::span<const HatchOutline> outlines, std::span<const HatchFamily> families,
                    const std::function<void(const AcGePoint2d&, const AcGePoint2d&)>& stroke);

}  // namespace prancheta
