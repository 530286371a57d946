// SPDX-License-Identifier: MIT
// Oblique ends of a piece: planes that cut it off where its axis starts and ends.
#pragma once

#include "zp/objects/peca.h"

namespace zp::cortes {

/// Places in Peca::cortes.
inline constexpr std::size_t kStart = 0;
inline constexpr std::size_t kEnd = 1;

/// How much further out the piece reaches per mm of its view: upwards in it, and towards who looks.
/// Zero in a section and for a plate.
struct Slope {
    double w = 0.0;
    double p = 0.0;
    bool square() const { return w == 0.0 && p == 0.0; }
};
Slope slopeOf(const Peca& peca, std::size_t end);

/// Largest angle of a cut from square, radians.
inline constexpr double kSteepest = 85.0 * 3.14159265358979323846 / 180.0;
/// Angle of an end from square in the plane of the piece's view, radians; positive where the edge
/// at the left of who goes from the start to the end is the longer one.
double angleOf(const Peca& peca, std::size_t end);
/// The same in degrees, as users see it.
double degreesOf(const Peca& peca, std::size_t end);
/// Angle of an end from square across the view, degrees; positive where the side towards who looks
/// is the longer one.
double depthDegreesOf(const Peca& peca, std::size_t end);
/// The cut of an end that reaches out like this; the piece is no section and no plate.
Corte withSlope(const Peca& peca, const Slope& slope);
/// The cut of an end that has this angle; across the view it is what it is. Square under 0.01
/// degrees. The piece is no section and no plate.
Corte withAngle(const Peca& peca, std::size_t end, double angle);
/// The same of the angle across the view, as depthDegreesOf has it, radians.
Corte withDepthAngle(const Peca& peca, std::size_t end, double angle);

/// False where both ends are square, and for a plate.
bool oblique(const Peca& peca);

/// How far out an end reaches over a rectangle between two points of the view, mm.
struct Reach {
    double least = 0.0;
    double most = 0.0;
};
Reach reachOver(const Peca& peca, std::size_t end, const secao::VistaPoint& a,
                const secao::VistaPoint& b);
/// Where the edge of an end is at height w of the view, from the end of the axis outwards, mm:
/// that which reaches furthest of what the view shows behind one another.
double edgeAt(const Peca& peca, std::size_t end, double w);
/// The furthest that an end reaches from the end of the axis outwards, mm; negative where all of
/// the section lies on the shorter side.
double furthest(const Peca& peca, std::size_t end);
/// A fibre of a longitudinal view: its height, and where along the axis it goes; mm, in the piece's
/// frame.
struct Fibre {
    double w = 0.0;
    double from = 0.0;
    double to = 0.0;
};
/// That of the edge nearest to height w.
Fibre fibreAt(const Peca& peca, double w);
/// The longest one, which is bought; where all are as long, fibreAt.
Fibre longestFibre(const Peca& peca, double w);
/// Corners of the picture: upper and lower at the start, upper and lower at the end, in the piece's
/// frame, on the edges that are seen. The box's, of what has no oblique end.
std::array<secao::Point, 4> corners(const Peca& peca);
/// True for a point of the piece's frame where it ends, along its axis: at the end of the axis,
/// where the picture or the longest fibre ends, or on the edge of the end.
bool onEnd(const Peca& peca, const AcGeVector3d& point);
/// Longest fibre: what is bought of the piece, mm; a section says what its member does. The length
/// of what has no oblique end.
double longest(const Peca& peca);
/// Volume over the section's area, mm: exact, since planes are linear over it.
double mean(const Peca& peca);

/// Mass of what is left after the cuts, kg.
double netMass(const Peca& peca);

/// Why the piece cannot have such ends, for the user; empty when it can.
std::wstring fault(const Peca& peca);
/// Cuts of one body, whatever the views are.
bool same(const Peca& a, const Peca& b);

}  // namespace zp::cortes
