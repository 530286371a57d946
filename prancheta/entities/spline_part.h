// SPDX-License-Identifier: MIT
// Parts of splines.
#pragma once

#include "prancheta/curves/curve.h"
#include "prancheta/entities/spline_curve.h"

namespace prancheta {

/// The curve as chords, seen from above; its parameters are those of splinePart().
Curve chordsOf(const SplineData& curve);

/// The same curve from parameter to parameter, `from` < `to`, told by control points: both are
/// numbers of chords, and lie within the curve's ends.
SplineData splinePart(const SplineData& curve, double from, double to);

}  // namespace prancheta
