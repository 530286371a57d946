// SPDX-License-Identifier: MIT
// Picking: is a picture near a point, inside a window, touched by one? Seen from above.
#pragma once

#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Rectangle of the plane from any two opposite corners.
struct Window {
    Window(const AcGePoint3d& corner, const AcGePoint3d& opposite);
    /// World coordinates; the edge counts.
    bool contains(const AcGePoint3d& p) const {
        return p.x >= left && p.x <= right && p.y >= bottom && p.y <= top;
    }
    bool overlaps(const AcDbExtents& box) const;

    double left, bottom, right, top;
};

/// Distances from the nearest line (borders of filled areas too), text and filled area; 0 inside of
/// the latter two, infinite where the picture has none.
struct Nearness {
    double line;
    double text;
    double area;
};
Nearness nearness(const Picture& picture, const AcGePoint3d& p);

/// The least of them; infinite for an empty picture.
double distanceTo(const Picture& picture, const AcGePoint3d& p);

/// All of it inside; false for an empty picture.
bool isInside(const Picture& picture, const Window& window);

/// Any of it inside or on the border; a filled area around the window counts.
bool touches(const Picture& picture, const Window& window);

}  // namespace prancheta
