// SPDX-License-Identifier: MIT
// Areas bounded by curves.
#pragma once

#include <span>

#include "prancheta/curves/curve.h"

namespace prancheta {

/// Whether a point lies inside an odd number of the loops, each closed or joined from its end to
/// its start; on a border either answer. O(segments).
bool insideOddly(std::span<const Curve> loops, const Vec2& p);

}  // namespace prancheta
