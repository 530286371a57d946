// SPDX-License-Identifier: MIT
// Object snap points of pictures, seen from above.
#pragma once

#include <vector>

#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Appends the points of one kind. `pick` counts for nearest and chooses the edge of perpendicular,
/// `last` is where perpendiculars and tangents come from. Insertion points are the starts of texts,
/// nodes are single points.
void appendSnaps(const Picture& picture, AcDb::OsnapMode mode, const AcGePoint3d& pick,
                 const AcGePoint3d& last, std::vector<AcGePoint3d>& out);

/// Appends the crossings of two pictures (or of one with itself) that lie within `reach` of `near`.
/// Only edges that come so near are compared with each other.
void appendIntersections(const Picture& first, const Picture& second, const AcGePoint3d& near,
                         double reach, std::vector<AcGePoint3d>& out);

}  // namespace prancheta
