// SPDX-License-Identifier: MIT
// Sections as thin walls on their mid-line: warping, elements, what a strip is bent along.
#pragma once

#include <span>
#include <vector>

#include "zp/objects/secao/outline.h"

namespace zp::secao {

/// A flat element; mm. The width that its slenderness b/t goes by: of a bent sheet the flat part;
/// of a rolled or welded shape as NBR 8800, annex F, has it: a leg or flange whole, that of an I
/// half, a web between its roundings. Thickness of a tapered flange at mid overhang.
struct Element {
    double b = 0.0;  ///< 0 of a bend, which is none
    double t = 0.0;
};

/// A straight or bent wall on its mid-line; section plane, mm.
struct Wall {
    Segment line;
    double tBegin = 0.0;
    double tEnd = 0.0;
    int from = -1;  ///< place of the wall at whose end it begins; -1: at the root of all
    Element element{};
};

/// The walls of one loop: bent sheets, angles, U and I. A bend keeps its mean radius. The walls of
/// rolled shapes meet at points, their roundings left out, and a tapered flange has its mid-line
/// where it is at mid overhang; along it the thickness of an I changes, that of a U does not, as
/// handbooks calculate either. Empty for any other loop.
std::vector<Wall> wallsOf(const Loop& loop);
bool isBent(const Loop& loop);

/// The walls begin where they ended, in reverse order. For a chain, each wall after the other.
std::vector<Wall> reversed(const std::vector<Wall>& chain);
/// Mirrored in the upright line at x.
std::vector<Wall> mirrored(const std::vector<Wall>& walls, double x);

/// Integral of the squared sectorial coordinate about a pole, its mean taken off, mm6.
double sectorialMoment(std::span<const Wall> walls, Point pole);

/// Shear centre in the section plane and warping constant about it, mm6, of an open section by the
/// theory of sectorial coordinates (Vlasov), exact on the mid-line but for the quadrature of bends
/// (error below 1e-7).
struct Warping {
    Point shearCentre;
    double cw = 0.0;
};
Warping warping(std::span<const Wall> walls);

}  // namespace zp::secao
