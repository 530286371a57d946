// SPDX-License-Identifier: MIT
// Lines that hold the pointer: polar directions from the base, directions from points that were
// pointed at, extensions of edges, parallels to edges.
#pragma once

#include <optional>
#include <vector>

#include "prancheta/editor/picking.h"

namespace prancheta {

/// A line from a point, world coordinates.
struct TrackLine {
    enum class Kind { Polar, Object, Extension, Parallel };
    Kind kind = Kind::Polar;
    AcGePoint3d from;
    AcGeVector3d direction;  ///< of length 1, towards the pointer
    int mode = 0;            ///< of Object: the snap (bit of OSMODE) that gave `from`
};

struct TrackHit {
    AcGePoint3d point;             ///< on every one of the lines
    std::vector<TrackLine> lines;  ///< one, or two that cross
};

/// Bits of AUTOSNAP.
inline constexpr int kPolarTracking = 8;
inline constexpr int kObjectTracking = 16;

class Tracking {
public:
    /// The most points, and the most edges, that are kept; the oldest go first.
    static constexpr std::size_t kMost = 7;

    struct Point {
        AcGePoint3d at;
        int mode = 0;                     ///< bit of OSMODE
        std::vector<AcGeVector3d> edges;  ///< straight ones that end there, outwards, of length 1
    };

    /// The pointer rested at a world point while a point was asked for: the snap point of these
    /// modes (bits of OSMODE) under it is taken up, or let go when it was there already; with
    /// Parallel among them, the straight edge under it. False when nothing of the kind was there.
    bool rest(const Editor& editor, const AcGePoint3d& pointer, int modes);
    /// Forgets everything, as at the end of a command.
    void clear();
    const std::vector<Point>& points() const { return m_points; }

    /// The line within the aperture that is nearest to the pointer, and the crossing with another
    /// one there. By AUTOSNAP, POLARANG and SNAPANG, and by Extension and Parallel of the modes;
    /// angles are the user system's. Nothing when no line is near.
    std::optional<TrackHit> hold(const Editor& editor, const AcGePoint3d& pointer,
                                 const std::optional<AcGePoint3d>& base, int modes) const;

private:
    std::vector<TrackLine> linesNear(const Editor& editor, const AcGePoint3d& pointer,
                                     const std::optional<AcGePoint3d>& base, int modes) const;

    std::vector<Point> m_points;
    std::vector<AcGeVector3d> m_parallels;
};

}  // namespace prancheta
