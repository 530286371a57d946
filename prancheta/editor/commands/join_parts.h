// SPDX-License-Identifier: MIT
// Open curves that JOIN and PEDIT put one behind the other.
#pragma once

#include <optional>

#include "prancheta/curves/end_chains.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/entities/plane_curve.h"

namespace prancheta::commands {

struct JoinPart {
    AcDbObjectId id;
    Curve curve;
    double height = 0.0;               ///< z of all of it
    std::vector<SegmentWidth> widths;  ///< one a segment
};

/// Of flat open curves; nothing of all else.
std::optional<JoinPart> joinPartOf(AcDbObjectId id);
/// Distance below which ends touch.
double nearOf(const std::vector<JoinPart>& parts);
/// The chain as a polyline in no drawing, with the widths of its parts.
std::unique_ptr<AcDbPolyline> joinedPolyline(const std::vector<JoinPart>& parts,
                                             const std::vector<Curve>& curves,
                                             const EndChain& chain, double height);

}  // namespace prancheta::commands
