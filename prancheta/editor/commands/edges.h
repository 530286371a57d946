// SPDX-License-Identifier: MIT
// Edges at which objects are cut, or up to which they go on.
#pragma once

#include <optional>
#include <unordered_set>

#include "prancheta/curves/crossings.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/graphics/edges.h"

namespace prancheta {
class Editor;
}

namespace prancheta::commands {

/// Lines, arcs, circles and polylines, and of everything else that has edges, blocks and pieces
/// included, what its picture shows.
class CuttingEdges {
public:
    /// No ids: everything that is displayed in the current space.
    explicit CuttingEdges(const Ids& chosen) { choose(chosen); }
    void choose(const Ids& chosen);
    /// A part of an edge is one, too.
    void follow(AcDbObjectId edge, const Ids& parts);

    /// Nearest places before and behind the parameter `at` at which edges meet the curve; of a
    /// closed one they may lie beyond its start and its end. What meets the very ends of an open
    /// one does not count. `self` and what goes with it, as the plates of a bar do, is no edge.
    /// `implied`: lines, arcs and polylines count as far as they could go on. Cost: boxes that the
    /// curve's meets, and the pictures of the nearest of what it passes.
    struct Between {
        std::optional<double> before;
        std::optional<double> behind;
    };
    Between around(const Editor& editor, const Curve& curve, double at, AcDbObjectId self,
                   bool implied) const;

private:
    std::unordered_set<Adesk::LongPtr> m_chosen;
};

}  // namespace prancheta::commands
