// SPDX-License-Identifier: MIT
// Saint-Venant torsion constants of the shapes, mm4; sizes in mm.
#pragma once

namespace zp::secao {

/// A strip of one thickness, straight or bent: its mid-line is as long as area over thickness,
/// times t^3 / 3.
double torsionOfStrip(double area, double t);

/// Closed cell of two equal upright and two equal lying walls, b wide and h high on the mid-line,
/// whose corners have the mean radius r: Bredt, 4 Am^2 / sum(l / t), with the open walls' own
/// part as EN 10210-2, annex B, has it.
struct Cell {
    double b = 0.0;
    double h = 0.0;
    double tUpright = 0.0;
    double tLying = 0.0;
    double r = 0.0;
};
double torsionOfCell(const Cell& cell);

// Rolled shapes: rectangles and tapered rectangles, less what their free ends lack (Roark,
// Formulas for Stress and Strain, table of torsion), with the term of the joints 2 alpha D^4 by
// El Darwish and Johnston, Torsion of structural shapes, J. Struct. Div. ASCE 91 (1965). Against
// print: W and HP within 1.6 %, American standard I within 5 % but for three heavy webs (8 %),
// U within 5 %.

/// Sizes of a rolled I or U; r the root radius, `fall` the difference between flange thickness at
/// the middle of the overhang and at its ends (0: parallel).
struct RolledSizes {
    double h = 0.0;
    double b = 0.0;
    double tf = 0.0;
    double tw = 0.0;
    double r = 0.0;
    double fall = 0.0;
};
double torsionOfI(const RolledSizes& m);
double torsionOfU(const RolledSizes& m);
double torsionOfL(double h, double b, double t, double r);

/// Welded I: its three plates, the web from mid flange to mid flange.
double torsionOfPlates(double h, double bc, double tc, double bb, double tb, double tw);

}  // namespace zp::secao
