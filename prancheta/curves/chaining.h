// SPDX-License-Identifier: MIT
// Stretches of a curve joined where they meet.
#pragma once

#include <vector>

#include "prancheta/curves/curve.h"

namespace prancheta {

/// From parameter to parameter, `from` < `to`; of a closed curve also over its start.
struct Stretch {
    double from = 0.0;
    double to = 0.0;
};

/// Each goes on with one that begins where it ends, the next along the curve first. Closed where
/// the last ends at the first one's beginning. Of stretches that run one upon the other one counts.
/// O(n log n).
std::vector<Curve> chained(const Curve& curve, const std::vector<Stretch>& stretches);

}  // namespace prancheta
