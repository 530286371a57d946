// SPDX-License-Identifier: MIT
// The shapes that sections are built of, each as one loop in a frame of its own.
#pragma once

#include "zp/objects/secao/outline.h"

namespace zp::secao {

/// A loop and whether its sizes had to be replaced by the rectangle of their box.
struct Block {
    Loop loop;
    bool invalid = false;
};

/// Cold-formed U: web on x = 0..t, flanges to the right, y from -h/2 to h/2. ri inner bend radius;
/// angles between web and flange. A lip (positive inwards, negative outwards) not longer than t is
/// none.
struct MedidasU {
    double h = 0.0;
    double bUpper = 0.0;
    double bLower = 0.0;
    double t = 0.0;
    double ri = 0.0;
    double angUpper = 0.0;
    double angLower = 0.0;
    double aba = 0.0;
};
Block uDobrado(const MedidasU& m);

/// Length of the outer contour of such a U up to its toes (plain) or to the inner end of its lip
/// bends.
double outerOutline(const Block& block);

/// Cold-formed angle: heel at the origin (upper left), leg b to the right, leg h down.
Block cantoneiraDobrada(double h, double b, double t, double ri, double angle);

/// Rolled angle in the same attitude with the radii of root and toes.
Block cantoneiraLaminada(double h, double b, double t, double root, double toe);

/// Cold-formed Z, centre at the origin, upper flange to the left; aba = lip.
Block zDobrado(double h, double b, double aba, double t, double ri, double angUpper,
               double angLower);

/// Hat, centre at mid width and mid height; top b, outward lips measured from the side's inner
/// face.
Block cartola(double h, double b, double t, double ri, double aba);

/// Rolled U with flanges tapered 1:6 on the inside: tf at mid overhang, D half the fall.
struct MedidasUR {
    double h = 0.0;
    double bUpper = 0.0;
    double bLower = 0.0;
    double t = 0.0;
    double tfUpper = 0.0;
    double tfLower = 0.0;
    double radius = 0.0;
    double toe = -1.0;  ///< negative: half the root radius, at most half the toe's thickness
};
Block uLaminado(const MedidasUR& m);

/// I centred on its web at mid height; c upper, b lower flange; raio = root radius.
struct MedidasI {
    double h = 0.0;
    double bc = 0.0;
    double bb = 0.0;
    double tc = 0.0;
    double tb = 0.0;
    double tw = 0.0;
    double radius = 0.0;
};
Block perfilI(const MedidasI& m);

/// I with flanges tapered 1:6, tf at mid overhang; toe as in MedidasUR.
Block perfilITapered(double h, double b, double tf, double tw, double radius, double toe);

/// Rectangle centred at the origin with corners of one radius; a hole runs clockwise.
Block rectangle(double largura, double altura, double radius, bool hole);

/// Half the fall of the inner face of a rolled U's flange: slope 1:6 over the overhang b - t.
double halfFlangeFall(double b, double t);

}  // namespace zp::secao
