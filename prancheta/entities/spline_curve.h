// SPDX-License-Identifier: MIT
// The curve of a spline.
#pragma once

#include <vector>

#include "dbspline.h"
#include "prancheta/database/object_extra.h"

namespace prancheta {

/// What the groups of a file tell of one.
SplineData splineOf(const RawTags& tags);

/// Whether the data are a curve, see AcDbSpline::setData().
bool isCurve(const SplineData& data);

/// How the curve is drawn: by arcs through three places each, the first, third, fifth ... of which
/// are their ends, for one at one height; or by chords.
enum class By { Arcs, Chords };
/// Places along the curve, an odd number, so that what is drawn leaves it by less than 1e-5 of its
/// size. O(control points). `knots` gets their knot values, of controlledBy().
std::vector<AcGePoint3d> splinePlaces(const SplineData& data, By by,
                                      std::vector<double>* knots = nullptr);

/// The same curve, also of one that is told by fit points only.
SplineData controlledBy(const SplineData& data);

}  // namespace prancheta
