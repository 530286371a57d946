// SPDX-License-Identifier: MIT
// What of a drawing lies inside a closed border.
#pragma once

#include <vector>

#include "prancheta/curves/curve.h"

namespace prancheta {

/// The parts of a bounded curve inside a closed border, along the curve; what runs along the border
/// is left out. O(m log m) for m meetings beside meetingsOf().
std::vector<Curve> partsInside(const Curve& curve, const Curve& border);

/// A filled polygon within a convex one, which runs counter-clockwise (Sutherland and Hodgman: what
/// falls apart hangs together by edges along the border). Empty when nothing is left. O(n m).
std::vector<Vec2> polygonInside(std::vector<Vec2> polygon, const std::vector<Vec2>& convex);

/// Corners of a polygon for polygonInside(): the ends of straight segments, and points on round
/// ones; counter-clockwise.
std::vector<Vec2> cornersOf(const Curve& border);

}  // namespace prancheta
