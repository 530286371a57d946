// SPDX-License-Identifier: MIT
// Chords of splines.
#pragma once

#include <span>
#include <vector>

#include "gepnt3d.h"

namespace prancheta {

/// B-spline by de Boor's algorithm, a fixed number of chords per span; weights may be empty.
/// Nothing is appended when the knots do not fit the control points.
void appendSpline(int degree, std::span<const double> knots, std::span<const AcGePoint3d> control,
                  std::span<const double> weights, std::vector<AcGePoint3d>& out);

}  // namespace prancheta
