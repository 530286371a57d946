// SPDX-License-Identifier: MIT
// From where the mouse stands to the point that is meant: object snaps, ortho, the grid,
// tracking.
#pragma once

#include <optional>
#include <vector>

#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/tracking.h"

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
    /// The mouse rested there: what it points at is tracked from now on, or no longer. False when
    /// that changed nothing.
    bool rest(Editor& editor, const InputRequest& request, const AcGePoint3d& world);
    /// Nothing is tracked any longer.
    void forget();
    /// World coordinates.
    const AcGePoint3d& point() const { return m_point; }
    /// Null when the aim caught nothing.
    const SnapHit* caught() const;
    /// True when the point was rounded to the snap grid: the cursor stands there, too.
    bool onGrid() const { return m_onGrid; }
    /// Lines that hold the point; none when a snap was caught.
    const std::vector<TrackLine>& lines() const { return m_lines; }
    const Tracking& tracking() const { return m_tracking; }

private:
    std::vector<SnapHit> m_catches;
    std::size_t m_chosen = 0;
    AcGePoint3d m_point;
    bool m_onGrid = false;
    Tracking m_tracking;
    std::vector<TrackLine> m_lines;
};

}  // namespace prancheta::desktop
