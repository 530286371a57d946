// SPDX-License-Identifier: MIT
// Object snap points of pictures, seen from above.
#pragma once

#include <vector>

#include "prancheta/graphics/edges.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Appends the points of one kind. `pick` counts for nearest and chooses the edge of perpendicular,
/// `last` is where perpendiculars and tangents come from. Insertion points are the starts of texts,
/// nodes are single points.
void appendSnaps(const Picture& picture, AcDb::OsnapMode mode, const AcGePoint3d& pick,
                 const AcGePoint3d& last, std::vector<AcGePoint3d>& out);

/// An edge, and whose it is: a number of the caller's.
struct NearEdge {
    Edge edge;
    std::size_t owner = 0;
};
struct Crossing {
    AcGePoint3d point;
    std::size_t first = 0;  ///< owners of the two edges
    std::size_t second = 0;
};

/// Appends the edges that come within `reach` of `near`.
void appendEdgesNear(const Picture& picture, const AcGePoint3d& near, double reach,
                     std::size_t owner, std::vector<NearEdge>& out);
/// Crossings of the edges, with those of their own owner too, that lie within `reach` of `near`.
/// O(n log n + pairs of edges whose extents overlap).
std::vector<Crossing> crossingsOf(const std::vector<NearEdge>& edges, const AcGePoint3d& near,
                                  double reach);

/// Appends the crossings of two pictures (or of one with itself) that lie within `reach` of `near`.
/// Only edges that come so near are compared with each other.
void appendIntersections(const Picture& first, const Picture& second, const AcGePoint3d& near,
                         double reach, std::vector<AcGePoint3d>& out);

}  // namespace prancheta
