// SPDX-License-Identifier: MIT
// Outlines of what is not a curve itself.
#include "prancheta/editor/commands/outline.h"

#include <cmath>

#include "prancheta/curves/end_chains.h"
#include "prancheta/entities/plane_curve.h"

namespace prancheta::commands {

std::optional<Curve> outlineOf(const Picture& picture) {
    std::vector<Curve> edges;
    double near = 0.0;
    for (const PrimitiveView& primitive : picture)
        forEachEdge(primitive, [&](const Edge& edge) {
            edges.emplace_back(segmentOf(edge));
            near = std::max(near, 64.0 * edges.back().tolerance());
        });
    if (!(near > 0.0)) return {};
    std::optional<Curve> best;
    for (const EndChain& chain : endChains(edges, near)) {
        if (!chain.closed) continue;
        Curve loop = chain.curve(edges);
        if (!best || std::abs(loop.area()) > std::abs(best->area())) best = std::move(loop);
    }
    return best;
}

}  // namespace prancheta::commands
