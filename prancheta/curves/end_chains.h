// SPDX-License-Identifier: MIT
// Curves put one behind the other where their ends touch.
#pragma once

#include <span>
#include <vector>

#include "prancheta/curves/curve.h"

namespace prancheta {

struct EndChain {
    struct Link {
        std::size_t curve;  ///< place in the list
        bool reversed;
    };
    std::vector<Link> links;
    bool closed = false;

    /// All segments in their order.
    Curve curve(std::span<const Curve> of) const;
};

/// Every curve in one chain, closed ones alone. Ends within `near` of each other touch; where more
/// than two do, the first ones in the list go together. O(n log n).
std::vector<EndChain> endChains(std::span<const Curve> curves, double near);

}  // namespace prancheta
