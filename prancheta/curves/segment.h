// SPDX-License-Identifier: MIT
// A straight or round piece of a plane curve.
#pragma once

#include "prancheta/geometry/box.h"
#include "prancheta/geometry/vec2.h"

namespace prancheta {

/// Straight: `origin` + `u` t. Round: `origin` + `u` cos a + `v` sin a with a = `start` + `sweep`
/// t; `u` and `v` are any two conjugate radii, so a circle in a tilted plane is one, too. The
/// parameter t runs from `low` to `high`: 0 to 1, of straight ones also from or to infinity.
struct Segment {
    Vec2 origin;
    Vec2 u;
    Vec2 v;
    double start = 0.0;  ///< radians
    double sweep = 0.0;  ///< radians, signed, two pi at most; 0: straight
    double low = 0.0;
    double high = 1.0;

    bool isRound() const { return sweep != 0.0; }
    /// A whole turn: ends where it begins.
    bool isWhole() const;
    /// Part of a circle, not of another ellipse.
    bool isCircular() const;
    /// Of a circular one; drawing units.
    double radius() const { return u.length(); }
    /// Where the next whole number of the parameter is reached by a finite one.
    bool isBounded() const;

    Vec2 at(double t) const;
    /// Derivative by t; zero only for a straight one without length.
    Vec2 tangent(double t) const;
    /// From t to t of a bounded part, which may lie beyond 0 and 1; drawing units, negative
    /// backwards.
    double lengthBetween(double from, double to) const;
    /// The parameter so far from 0; the other way round.
    double parameterAt(double length) const;
    /// Of the point nearest to p, among those of the segment.
    double nearest(const Vec2& p) const;
    /// What the segment contributes to the area left of a closed chain, seen from `about`.
    double areaAbout(const Vec2& about) const;
    /// Of a point on the ellipse: the parameter in [0, 2 pi / |sweep|) at which it is passed.
    double parameterOfAngle(double angle) const;
    /// Angle a of the direction in which a point lies from the centre; round ones.
    double angleTo(const Vec2& p) const;
    Box2d box() const;

    Segment part(double from, double to) const;
    Segment reversed() const;
};

Segment straight(const Vec2& a, const Vec2& b);
Segment circular(const Vec2& center, double radius, double start, double sweep);
/// From a to b with a bulge of the drawing format; straight for one of 0.
Segment bulged(const Vec2& a, const Vec2& b, double bulge);

}  // namespace prancheta
