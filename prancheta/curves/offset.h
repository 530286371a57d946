// SPDX-License-Identifier: MIT
// Curves beside a curve.
#pragma once

#include <vector>

#include "prancheta/curves/curve.h"

namespace prancheta {

/// Whether segments of another ellipse than a circle are absent: those have no curve beside them
/// that could be said.
bool canOffset(const Curve& curve);

/// What lies at a distance on one side: left of the curve above 0. Corners stay sharp; what would
/// come nearer to the curve than the distance, or turn inside out, is left out, so there may be
/// several parts or none. Of a closed curve all are closed. O(n log n) for n segments that do not
/// fill the plane.
std::vector<Curve> offset(const Curve& curve, double distance);

}  // namespace prancheta
