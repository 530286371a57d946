// SPDX-License-Identifier: MIT
// What a longitudinal view shows of a section: the heights of its edges, seen or hidden.
#pragma once

#include <utility>
#include <vector>

#include "zp/objects/secao/outline.h"

namespace zp::secao {

/// One edge line of the view; w is the drawing's vertical, from the member's axis.
struct Nivel {
    double w = 0.0;
    bool visivel = false;
};

struct Vista {
    std::vector<Nivel> niveis;  ///< ascending in w
    /// Stretches of w covered by steel, ascending: one end line each.
    std::vector<std::pair<double, double>> trechos;
    double wMin = 0.0;
    double wMax = 0.0;
    bool eixo = false;  ///< the axis is drawn
};

/// View 1 from above, 2 below, 3 right, 4 left (of the section seen from the start). O(n^2) for the
/// n <= 64 segments.
Vista vistaLongitudinal(const std::vector<Contorno>& contornos, int vista);

}  // namespace zp::secao
