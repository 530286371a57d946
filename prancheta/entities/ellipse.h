// SPDX-License-Identifier: MIT
// Chords of ellipses and splines.
#pragma once

#include <span>
#include <vector>

#include "gepnt3d.h"

namespace prancheta {

/// Half axis `major`, the other one `ratio` times as long, from one parameter to the other
/// (radians; counter-clockwise about the normal when `to` is the greater).
void appendEllipse(const AcGePoint3d& center, const AcGeVector3d& major, const AcGeVector3d& normal,
                   double ratio, double from, double to, std::vector<AcGePoint3d>& out);

/// B-spline by de Boor's algorithm, a fixed number of chords per span; weights may be empty.
/// Nothing is appended when the knots do not fit the control points.
void appendSpline(int degree, std::span<const double> knots, std::span<const AcGePoint3d> control,
                  std::span<const double> weights, std::vector<AcGePoint3d>& out);

}  // namespace prancheta
