// SPDX-License-Identifier: MIT
// A similarity as the groups of a foreign entity need it.
#pragma once

#include "gemat3d.h"
#include "prancheta/database/database_core.h"

namespace prancheta {

/// A similarity, taken apart. In a plane it keeps z upright: `turn` and `mirrored` then say where
/// its x axis goes and whether angles run the other way round.
struct Motion {
    AcGeMatrix3d matrix;
    double scale = 1.0;
    double turn = 0.0;  ///< degrees about z
    bool mirrored = false;
    bool onlyMoves = false;  ///< nothing is turned, mirrored or scaled
    bool flat = false;       ///< what lies in z = 0 stays there
};

Motion motionOf(const AcGeMatrix3d& m);
/// The same motion from the plane of a normal into the plane of mappedNormal().
Motion motionInPlane(const Motion& world, const AcGeVector3d& normal);

/// Where a direction given in degrees goes, [0, 360).
double movedAngle(double degrees, const Motion& motion);
/// The same for a text: turned round when it would be read upside down.
double movedReadingAngle(double degrees, const Motion& motion);
/// Whether a text that runs in this direction of its plane is read without turning the head round.
bool isReadable(const AcGeVector3d& along);

void moveAngle(RawTag& tag, const Motion& motion);
void movePoint(RawTags& tags, std::size_t i, const Motion& motion);
enum class Length { Kept, Scaled };
void moveVector(RawTags& tags, std::size_t i, const Motion& motion, Length length);
void moveLength(RawTag& tag, const Motion& motion);
/// Height of a plane above its origin.
void moveElevation(RawTag& tag, const Motion& motion);
/// Arcs of polylines change their side in a mirror.
void moveBulge(RawTag& tag, const Motion& motion);

}  // namespace prancheta
