// SPDX-License-Identifier: MIT
// The shapes that sections are built of, each as one loop in a frame of its own.
#pragma once

#include "zp/objects/secao/outline.h"

namespace zp::secao {

/// A loop and whether its sizes had to be replaced by the rectangle of their box.
struct Bloco {
    Laco laco;
    bool invalido = false;
};

/// Cold-formed U: web on x = 0..t, flanges to the right, y from -h/2 to h/2. ri inner bend radius;
/// angles between web and flange. A lip (positive inwards, negative outwards) not longer than t is
/// none.
struct MedidasU {
    double h = 0.0;
    double bSup = 0.0;
    double bInf = 0.0;
    double t = 0.0;
    double ri = 0.0;
    double angSup = 0.0;
    double angInf = 0.0;
    double aba = 0.0;
};
Bloco uDobrado(const MedidasU& m);

/// Length of the outer contour of such a U up to its toes (plain) or to the inner end of its lip
/// bends.
double contornoExterno(const Bloco& bloco);

/// Cold-formed angle: heel at the origin (upper left), leg b to the right, leg h down.
Bloco cantoneiraDobrada(double h, double b, double t, double ri, double angulo);

/// Rolled angle in the same attitude; raio = root radius, the toes have half of it.
Bloco cantoneiraLaminada(double h, double b, double t, double raio);

/// Cold-formed Z, centre at the origin, upper flange to the left; aba = lip.
Bloco zDobrado(double h, double b, double aba, double t, double ri, double angSup, double angInf);

/// Hat, centre at mid width and mid height; top b, outward lips measured from the side's inner
/// face.
Bloco cartola(double h, double b, double t, double ri, double aba);

/// Rolled U with flanges tapered 1:6 on the inside: tf at mid overhang, D half the fall.
struct MedidasUR {
    double h = 0.0;
    double bSup = 0.0;
    double bInf = 0.0;
    double t = 0.0;
    double tfSup = 0.0;
    double tfInf = 0.0;
    double raio = 0.0;
};
Bloco uLaminado(const MedidasUR& m);

/// I centred on its web at mid height; c upper, b lower flange; raio = root radius.
struct MedidasI {
    double h = 0.0;
    double bc = 0.0;
    double bb = 0.0;
    double tc = 0.0;
    double tb = 0.0;
    double tw = 0.0;
    double raio = 0.0;
};
Bloco perfilI(const MedidasI& m);

/// I with flanges tapered 1:6, tf at mid overhang.
Bloco perfilICunha(double h, double b, double tf, double tw, double raio);

/// Rectangle centred at the origin with corners of one radius; a hole runs clockwise.
Bloco retangulo(double largura, double altura, double raio, bool furo);

/// Half the fall of the inner face of a rolled U's flange: slope 1:6 over the overhang b - t.
double deslocamentoFlange(double b, double t);

}  // namespace zp::secao
