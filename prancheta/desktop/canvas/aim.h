// SPDX-License-Identifier: MIT
// From where the mouse stands to the point that is meant: object snaps, ortho, the grid.
#pragma once

#include <optional>
#include <vector>

#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"

namespace prancheta::desktop {

/// True when a click answers the request with a point.
bool asksForPoint(const InputRequest& request);
/// Name of a snap mode as users read it beside the marker.
const wchar_t* snapName(int mode);

class Aim {
public:
    /// The mouse stands at `world`. O(what lies under the aperture).
    void take(Editor& editor, const InputRequest* request, const AcGePoint3d& world, bool shift);
    /// The next of several catches (Tab).
    void cycle();
    /// World coordinates.
    const AcGePoint3d& point() const { return m_point; }
    /// Null when the aim caught nothing.
    const SnapHit* caught() const;
    /// True when the point was rounded to the snap grid: the cursor stands there, too.
    bool onGrid() const { return m_onGrid; }

private:
    std::vector<SnapHit> m_catches;
    std::size_t m_chosen = 0;
    AcGePoint3d m_point;
    bool m_onGrid = false;
};

}  // namespace prancheta::desktop
