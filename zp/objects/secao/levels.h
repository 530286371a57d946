// SPDX-License-Identifier: MIT
// What a longitudinal view shows of a section: the heights of its edges, seen or hidden.
#pragma once

#include <utility>
#include <vector>

#include "zp/objects/secao/outline.h"

namespace zp::secao {

/// Point of a view from the member's axis: w up in the drawing, p towards the viewer.
struct VistaPoint {
    double w = 0.0;
    double p = 0.0;
};
/// A point of the section as a view shows it. The same for a vector.
VistaPoint see(int vista, const Point& point);

/// One edge line of the view; w is the drawing's vertical, from the member's axis.
struct Level {
    double w = 0.0;
    bool visible = false;
    double p = 0.0;  ///< of the edge at this height that is nearest to the viewer
};

struct Vista {
    std::vector<Level> levels;  ///< ascending in w
    /// Stretches of w covered by steel, ascending: one end line each.
    std::vector<std::pair<double, double>> stretches;
    double wMin = 0.0;
    double wMax = 0.0;
    bool axis = false;  ///< the axis is drawn
};

/// View 1 from above, 2 below, 3 right, 4 left (of the section seen from the start). O(n^2) for the
/// n <= 64 segments.
Vista vistaLongitudinal(const std::vector<Outline>& outlines, int vista);

/// What is nearest to the viewer between two heights, in straight parts, as long as it is steel:
/// ends of parts, two by two. `from` < `to` are heights of neighbouring edges.
std::vector<VistaPoint> frontBetween(const std::vector<Outline>& outlines, int vista, double from,
                                     double to);

/// Depths p between which an edge at height w is seen once all that is nearer is cut away, the cut
/// face itself apart: the nearer one first.
std::vector<std::pair<double, double>> seenBehind(const std::vector<Outline>& outlines, int vista,
                                                  double w);

}  // namespace zp::secao
