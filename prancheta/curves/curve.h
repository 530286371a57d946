// SPDX-License-Identifier: MIT
// Plane curves: lines, rays, arcs, ellipses and chains of them, one class for all.
//
// A place on a curve is its parameter: the number of whole segments before it plus the part of its
// own. A polyline's parameters count its vertices, therefore. Of an open curve the parameters go
// on beyond both ends, along the line or the circle; a closed one is passed again and again.
#pragma once

#include <optional>
#include <vector>

#include "prancheta/curves/segment.h"

namespace prancheta {

enum class CurveEnd { Start, End };

class Curve {
public:
    Curve() = default;
    explicit Curve(const Segment& one) : Curve(std::vector<Segment>{one}, one.isWhole()) {}
    /// Each begins where the one before it ends, `closed`: the first one where the last one ends.
    /// Segments without length are allowed.
    Curve(std::vector<Segment> chain, bool closed);

    const std::vector<Segment>& segments() const { return m_segments; }
    bool empty() const { return m_segments.empty(); }
    bool closed() const { return m_closed; }
    /// The last parameter.
    double count() const { return static_cast<double>(m_segments.size()); }
    /// Of all segments; infinite for an unbounded line.
    const Box2d& box() const { return m_box; }
    /// Distance in the plan below which two places are one: rounding at this place and this size.
    double tolerance() const;

    Vec2 at(double t) const;
    Vec2 start() const { return at(0.0); }
    Vec2 end() const { return at(count()); }
    /// Where it goes there, unit vector. In a corner that of the segment that begins.
    Vec2 tangent(double t) const;
    /// Of the bounded part; drawing units.
    double length() const { return m_ends.empty() ? 0.0 : m_ends.back(); }
    /// From the start, negative before it; and the parameter at such a length. O(log segments).
    double lengthAt(double t) const;
    double parameterAt(double length) const;
    /// Of its point nearest to p. O(segments).
    double nearest(const Vec2& p) const;
    /// Enclosed when the end is joined to the start, counter-clockwise above 0.
    double area() const;

    /// What lies between two parameters, `from` < `to`; an open curve is lengthened where they are
    /// beyond its ends, a closed one passed on over its start.
    Curve part(double from, double to) const;
    Curve reversed() const;

private:
    struct Place {
        std::size_t segment;
        double t;
    };
    Place placeOf(double t) const;

    std::vector<Segment> m_segments;
    std::vector<double> m_ends;  // length from the start to each one's end
    Box2d m_box;
    bool m_closed = false;
};

/// What a curve runs along beyond one of its ends, from that end on: a ray, or the rest of the
/// circle or ellipse.
struct Extension {
    Curve curve;
    double begin = 0.0;  ///< parameter of the extended curve where this one begins
    double scale = 1.0;  ///< its parameters over those of this one
    /// Parameter of the extended curve for one of `curve`.
    double parameter(double t) const { return begin + scale * t; }
};
/// Nothing for a closed curve, and for an end that is unbounded or has no direction.
std::optional<Extension> extensionOf(const Curve& curve, CurveEnd end);

}  // namespace prancheta
