// SPDX-License-Identifier: MIT
// What lies under the pointer, inside a frame, near a snap point: entities of the current space as
// displayed.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "dbmain.h"
#include "gept3dar.h"

namespace prancheta {

class Editor;

/// How far a snap point may be from the pointer.
enum class SnapReach {
    Aperture,  ///< inside the aperture: running snaps
    Object,    ///< anywhere on an object under the aperture: snaps asked for
    Shown,     ///< so, but extensions only of what the view shows: for every move of a pointer
};

/// Half the side of the pick box in drawing units: PICKBOX pixels of the present view.
double pickTolerance(const Editor& editor);

/// Topmost entity within the pick box about a world point; null id when there is none.
AcDbObjectId entityAt(const Editor& editor, const AcGePoint3d& world);
/// Wholly inside; corners in world coordinates, as in the three below.
std::vector<AcDbObjectId> entitiesInWindow(const Editor& editor, const AcGePoint3d& a,
                                           const AcGePoint3d& b);
std::vector<AcDbObjectId> entitiesCrossing(const Editor& editor, const AcGePoint3d& a,
                                           const AcGePoint3d& b);
std::vector<AcDbObjectId> entitiesInPolygon(const Editor& editor,
                                            const std::vector<AcGePoint3d>& polygon, bool crossing);
std::vector<AcDbObjectId> entitiesOnFence(const Editor& editor,
                                          const std::vector<AcGePoint3d>& fence);
/// Corners of the rectangle between two opposite ones, all the way round.
std::vector<AcGePoint3d> cornersBetween(const AcGePoint3d& a, const AcGePoint3d& b);
/// Whether a point, seen from above, lies in a polygon or on its border. O(corners).
bool isInside(const std::vector<AcGePoint3d>& polygon, const AcGePoint3d& p);
/// Everything of the current space that is neither frozen nor locked, in drawing order.
std::vector<AcDbObjectId> allEntities(const Editor& editor);
/// Last created entity that is displayed.
AcDbObjectId lastEntity(const Editor& editor);
bool onLockedLayer(AcDbObjectId entity);

/// The part of a vector of the user system that lies along the nearer one of the two directions of
/// ORTHO: the axes turned by SNAPANG. The height stays.
AcGeVector3d alongNearerAxis(const AcGeVector3d& v, double snapAngle);

/// Bits of OSMODE for words such as "_end,_mid"; 0 for "_none", nothing for a word that is no snap.
std::optional<int> snapModes(std::wstring_view words);
struct SnapHit {
    AcGePoint3d point;
    int mode = 0;         ///< bit of OSMODE that it answers
    AcDbObjectId entity;  ///< whose point it is; of an intersection, the topmost of the two
};
/// Snap points of these modes (bits of OSMODE) on what lies under the aperture, best first: the
/// nearest one, of points at one distance an end, then an intersection, then the other modes;
/// points merely nearest on an object after all others. Points at one place are one; at most 64
/// of each kind. `base` is
/// where perpendiculars and tangents come from; LASTPOINT without one.
std::vector<SnapHit> snapHits(const Editor& editor, const AcGePoint3d& world, int modes,
                              SnapReach reach, const std::optional<AcGePoint3d>& base = {});
/// The first of them.
std::optional<SnapHit> snapHit(const Editor& editor, const AcGePoint3d& world, int modes,
                               SnapReach reach, const std::optional<AcGePoint3d>& base = {});
/// Its point.
std::optional<AcGePoint3d> snapPoint(const Editor& editor, const AcGePoint3d& world, int modes,
                                     SnapReach reach, const std::optional<AcGePoint3d>& base = {});

/// A text, a dimension, ...: EDITATEXTO edits it where it stands.
bool hasTextToEdit(AcDbObjectId id);

}  // namespace prancheta
