// SPDX-License-Identifier: MIT
// Axis-aligned rectangle of the plan.
#pragma once

#include <algorithm>

namespace prancheta {

/// World coordinates; empty until something is added.
struct Box2d {
    double left = 1e300;
    double bottom = 1e300;
    double right = -1e300;
    double top = -1e300;

    bool empty() const { return left > right || bottom > top; }
    /// Drawing units, 0 when empty.
    double width() const { return empty() ? 0.0 : right - left; }
    /// Drawing units, 0 when empty.
    double height() const { return empty() ? 0.0 : top - bottom; }
    /// The edge counts.
    bool contains(double x, double y) const {
        return x >= left && x <= right && y >= bottom && y <= top;
    }
    /// Touching counts.
    bool meets(const Box2d& other) const {
        return left <= other.right && right >= other.left && bottom <= other.top &&
               top >= other.bottom;
    }
    /// Drawing units.
    void add(double x, double y) {
        left = std::min(left, x);
        right = std::max(right, x);
        bottom = std::min(bottom, y);
        top = std::max(top, y);
    }
    void add(const Box2d& other) {
        if (other.empty()) return;
        add(other.left, other.bottom);
        add(other.right, other.top);
    }
    /// Grown by `margin` on every side.
    Box2d grown(double margin) const {
        return {left - margin, bottom - margin, right + margin, top + margin};
    }
    bool operator==(const Box2d&) const = default;
};

}  // namespace prancheta
