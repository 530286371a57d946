// SPDX-License-Identifier: MIT
// Circles that touch two curves. Everything in the XY plane.
#pragma once

#include <optional>

#include "gepnt3d.h"
#include "gevec3d.h"

namespace prancheta::commands {

/// What a circle is to touch: the whole circle of `radius` about `point`, or for radius 0 the line
/// through `point`, without ends, along a vector that is not zero.
struct TouchedCurve {
    AcGePoint3d point;
    AcGeVector3d along;
    double radius = 0.0;
    AcGePoint3d pick;  ///< near which the circle is to touch it
};

/// Centre of the circle of this radius that touches both curves nearest to their picks, at the
/// first curve's height; nothing when there is none.
std::optional<AcGePoint3d> centerTouching(const TouchedCurve& first, const TouchedCurve& second,
                                          double radius);

}  // namespace prancheta::commands
