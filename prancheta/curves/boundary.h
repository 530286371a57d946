// SPDX-License-Identifier: MIT
// The area around a point, bounded by curves that cross and touch as they please.
//
// The arrangement of all curves is never made: the border is walked from crossing to crossing, and
// only what it passes is cut. Cost: O(n log n) once for a tree over the boxes, then what lies along
// the border and inside it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "prancheta/curves/curve.h"

namespace prancheta {

class BoundaryFinder {
public:
    struct Edge {
        Segment segment;          ///< bounded
        std::uint32_t owner = 0;  ///< a number of the caller's
    };
    /// Closed, without the stretches that lead into the area and end there.
    struct Loop {
        Curve curve;
        std::vector<std::uint32_t> owners;  ///< of the edges along it, ascending, each once
    };
    struct Area {
        Loop outer;
        /// Borders of all that stands free inside, also of what stands in another one of these: the
        /// area lies between them by the even-odd rule.
        std::vector<Loop> islands;
    };
    struct Gap {
        double width = 0.0;
        Vec2 at;  ///< its middle
    };

    explicit BoundaryFinder(std::vector<Edge> edges);
    ~BoundaryFinder();

    /// Nothing where the point lies in the open. What ends nearer to another curve than some
    /// millionths of a drawing unit touches it.
    std::optional<Area> around(const Vec2& p) const;
    /// Outer borders of everything, as islands of the open.
    std::vector<Loop> borders() const;
    /// Of a point in the open: the widest of the gaps that would have to be closed to shut it in,
    /// those as narrow as can be. Nothing when no closing of free ends shuts it in.
    std::optional<Gap> gapAround(const Vec2& p) const;

private:
    class Walk;
    bool enclose(const Vec2& p, Walk& walk) const;
    std::vector<Loop> freeBorders(const std::vector<std::uint32_t>& within,
                                  std::vector<std::uint8_t> seen) const;

    std::vector<Edge> m_edges;
    struct Index;
    std::unique_ptr<const Index> m_index;
};

}  // namespace prancheta
