// SPDX-License-Identifier: MIT
// Where curves meet.
#pragma once

#include <vector>

#include "prancheta/curves/box_tree.h"

namespace prancheta {

/// A place on two curves: crossed, touched, or the end of a stretch that both share.
struct Meeting {
    double first = 0.0;   ///< parameter of the first curve
    double second = 0.0;  ///< of the second
    Vec2 point;
};

/// Of two segments; a shared stretch gives its ends.
void appendMeetings(const Segment& a, const Segment& b, std::vector<Meeting>& out);

/// A curve that is held against many segments: O(n) to make, O(log n + k) for each segment.
class CurveIndex {
public:
    /// The curve must outlive it.
    explicit CurveIndex(const Curve& curve);
    const Curve& curve() const { return m_curve; }
    /// False when nothing within the box can meet the curve.
    bool mayMeet(const Box2d& box) const;
    /// Places of the curve, `first`, and of the segment.
    void appendMeetingsWith(const Segment& segment, std::vector<Meeting>& out) const;

private:
    const Curve& m_curve;
    BoxTree m_tree;
};

/// Places of two curves, as they are, along the first one; places that rounding cannot part are
/// one. O(n + k log n) for k segments of the shorter against n of the longer chain that do not fill
/// the plane.
std::vector<Meeting> meetingsOf(const Curve& a, const Curve& b);

/// Where a curve meets itself, corners of the chain apart; `first` < `second`.
std::vector<Meeting> meetingsWithin(const Curve& curve);

}  // namespace prancheta
