// SPDX-License-Identifier: MIT
// Area properties of a section, exact over lines and arcs.
#pragma once

#include <vector>

#include "zp/objects/secao/outline.h"

namespace zp::secao {

/// mm and its powers. Inertias are about the centroid, parallel to x and y. All zero for a section
/// without area.
struct Properties {
    double area = 0.0;
    double perimetro = 0.0;  ///< all loops, holes included
    double xg = 0.0;
    double yg = 0.0;
    double ix = 0.0;
    double iy = 0.0;
    double ixy = 0.0;
    double i1 = 0.0;  ///< largest principal inertia
    double i2 = 0.0;
    double principalAngle = 0.0;  ///< from x to the axis of i1, (-pi/2, pi/2]
    double rx = 0.0;              ///< radii of gyration
    double ry = 0.0;
    double r1 = 0.0;
    double r2 = 0.0;
    double wxUpper = 0.0;  ///< elastic moduli: inertia over the distance to the extreme fibre
    double wxLower = 0.0;
    double wyLeft = 0.0;
    double wyRight = 0.0;
};

Properties properties(const std::vector<Outline>& outlines);

/// Plastic moduli about the lines parallel to x and to y that halve the area, mm3; exact over lines
/// and arcs. `p` are the properties of the same outlines. Zero for a section without area.
struct PlasticModuli {
    double zx = 0.0;
    double zy = 0.0;
};
PlasticModuli plasticModuli(const std::vector<Outline>& outlines, const Properties& p);

}  // namespace zp::secao
