// SPDX-License-Identifier: MIT
// The polyline that PLINE is drawing.
#pragma once

#include <vector>

#include "prancheta/editor/commands/support.h"

class AcDbPolyline;

namespace prancheta::commands {

/// Stands in the drawing from its second corner on, so that it is seen while it grows. A segment
/// costs the same however many there are.
class PlineDraft {
public:
    PlineDraft(CommandContext context, const AcGePoint3d& start) : m_context(context) {
        m_corners.push_back({start, 0.0});
    }

    /// World coordinates.
    const AcGePoint3d& start() const { return m_corners.front().point; }
    /// World coordinates.
    const AcGePoint3d& end() const { return m_corners.back().point; }
    std::size_t segments() const { return m_corners.size() - 1; }
    /// Of the tangent at the end, radians; 0 before the first segment.
    double endDirection() const;

    /// False when the drawing refused it.
    bool add(const AcGePoint3d& to, double bulge, double startWidth, double endWidth);
    bool removeLast();
    /// Widths in drawing units; false when the polyline refuses.
    bool close(double bulge, double startWidth, double endWidth);

private:
    struct Corner {
        AcGePoint3d point;
        double bulge;  // of the segment that leaves it
    };
    bool leave(AcDbPolyline& polyline, double bulge, double startWidth, double endWidth);

    CommandContext m_context;
    std::vector<Corner> m_corners;
    AcDbObjectId m_id;
};

/// Asks for what an arc option of PLINE needs, after its keyword (global word) or, for an empty
/// one, for the end point `end`. `number` is the bulge and `point` the end; `status` RTCAN after
/// Esc, RTERROR, after saying so, when there is no such arc.
Task<InputValue> plineArc(CommandContext context, AcGePoint3d start, double direction,
                          InputValue choice);

}  // namespace prancheta::commands
