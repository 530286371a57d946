// SPDX-License-Identifier: MIT
// What bounds the hatches of a drawing: the edges of its objects as loops.
#pragma once

#include <optional>
#include <vector>

#include "dbhatch.h"
#include "prancheta/curves/boundary.h"

namespace prancheta {

class DisplayList;

/// Edges of lines, curves, blocks and pieces as they are displayed; texts, dimensions and hatches
/// have none. Seen from above, in world coordinates. Good for as long as the drawing stays as it
/// is.
class HatchBoundary {
public:
    /// Everything in the current space, also what the view does not show. O(n log n).
    explicit HatchBoundary(DisplayList& display);
    HatchBoundary(DisplayList& display, const std::vector<AcDbObjectId>& objects);

    /// The area around a point: its outer loop, then its islands. Empty where it is open.
    std::vector<HatchLoop> around(const AcGePoint3d& p) const;
    /// The outlines of all.
    std::vector<HatchLoop> outlines() const;
    std::optional<BoundaryFinder::Gap> gapAround(const AcGePoint3d& p) const;
    /// Points on both sides of the edges, a hair away: in each area lies one, at least.
    std::vector<AcGePoint3d> besideEdges() const;

private:
    HatchLoop loopOf(const BoundaryFinder::Loop& found, int kind) const;

    std::vector<AcDbObjectId> m_owners;
    std::vector<BoundaryFinder::Edge> m_edges;
    BoundaryFinder m_finder;
};

}  // namespace prancheta
