// SPDX-License-Identifier: MIT
// Part of a picture.
#pragma once

#include "prancheta/curves/curve.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// What lies inside a closed border, which is convex, seen from above: lines, arcs and polylines
/// end at it, filled areas are cut along it, texts stay when they are wholly inside. What hides
/// what lies below it is left out. O(picture x border).
Picture insideOf(const Picture& picture, const Curve& border);

}  // namespace prancheta
