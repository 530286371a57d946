// SPDX-License-Identifier: MIT
// A curve as a way along which things are set out.
#pragma once

#include <optional>
#include <vector>

#include "dbmain.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta::commands {

class Path {
public:
    /// Of a line, arc, circle, ellipse or polyline with some length; nothing of anything else.
    static std::optional<Path> of(AcDbObjectId curve);

    /// Drawing units.
    double length() const { return m_length; }
    /// Ends where it begins.
    bool closed() const;
    AcGePoint3d start() const { return at(0.0).place; }
    AcGePoint3d end() const { return at(m_length).place; }
    /// From now on it is gone the other way.
    void reverse() { m_backwards = !m_backwards; }

    struct Place {
        AcGePoint3d place;   ///< world
        AcGeVector3d along;  ///< where the path goes there, unit vector
    };
    /// `distance` from the start, 0 to length(). O(log legs).
    Place at(double distance) const;

private:
    /// Short enough to go evenly: centre + cos t * major + sin t * minor.
    struct EllipsePart {
        AcGePoint3d center;
        AcGeVector3d major;
        AcGeVector3d minor;
        double start;
        double sweep;
        AcGePoint3d at(double part) const;
        AcGeVector3d speed(double part) const;
    };
    struct Leg {
        AcGePoint3d from;
        AcGePoint3d to;
        std::optional<BulgeArc> arc;  ///< none: straight
        AcGeVector3d normal = AcGeVector3d::kZAxis;
        std::optional<EllipsePart> ellipse{};
        double end = 0.0;  ///< from the start of the first one
    };
    void add(Leg leg);
    void add(const EllipsePart& whole);

    std::vector<Leg> m_legs;
    double m_length = 0.0;
    bool m_backwards = false;
};

}  // namespace prancheta::commands
