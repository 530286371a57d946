// SPDX-License-Identifier: MIT
// What of an object was picked.
#include "prancheta/editor/commands/picked_edge.h"

#include <limits>

#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

std::optional<Edge> pickedEdge(const CommandContext& context, const InputValue& picked) {
    std::optional<Edge> best;
    double least = std::numeric_limits<double>::infinity();
    for (const PrimitiveView p : context.editor().display().picture(picked.entities.front()))
        forEachEdge(p, [&](const Edge& edge) {
            const double distance = planeDistance(nearestOn(edge, picked.point), picked.point);
            if (distance >= least) return;
            least = distance;
            best = edge;
        });
    return best;
}

}  // namespace prancheta::commands
