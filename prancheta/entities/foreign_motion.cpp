// SPDX-License-Identifier: MIT
// A similarity as the groups of a foreign entity need it.
#include "prancheta/entities/foreign_motion.h"

#include <cmath>

#include "prancheta/entities/common.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta {

Motion motionOf(const AcGeMatrix3d& m) {
    Motion motion{m, m.scale()};
    // Turning alone must leave no tail of digits in lengths.
    if (std::abs(motion.scale - 1.0) < 1e-12) motion.scale = 1.0;
    motion.mirrored = m.det() < 0.0;
    motion.turn = angleInPlane(m * AcGeVector3d::kXAxis, AcGeVector3d::kZAxis) * 180.0 / kPi;
    motion.flat = m.entry[2][0] == 0.0 && m.entry[2][1] == 0.0 && m.entry[2][3] == 0.0;
    motion.onlyMoves = true;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            if (m.entry[row][column] != (row == column ? 1.0 : 0.0)) motion.onlyMoves = false;
    return motion;
}

Motion motionInPlane(const Motion& world, const AcGeVector3d& normal) {
    const AcGeVector3d moved = mappedNormal(world.matrix, normal);
    const AcGeVector3d& z = AcGeVector3d::kZAxis;
    if (normal.isEqualTo(z) && moved.isEqualTo(z)) return world;
    return motionOf(planeToWorld(moved).inverse() * world.matrix * planeToWorld(normal));
}

double movedAngle(double degrees, const Motion& motion) {
    const double angle =
        std::fmod(motion.mirrored ? motion.turn - degrees : degrees + motion.turn, 360.0);
    return angle < 0.0 ? angle + 360.0 : angle;
}

bool isReadable(const AcGeVector3d& along) {
    return along.x > 1e-9 || (along.x > -1e-9 && along.y > 0.0);
}

double movedReadingAngle(double degrees, const Motion& motion) {
    const double angle = movedAngle(degrees, motion);
    const bool turned =
        motion.mirrored && !isReadable(directionInPlane(angle * kPi / 180.0, AcGeVector3d::kZAxis));
    return turned ? std::fmod(angle + 180.0, 360.0) : angle;
}

void moveAngle(RawTag& tag, const Motion& motion) {
    if (motion.turn != 0.0 || motion.mirrored) setNumber(tag, movedAngle(tagNumber(tag), motion));
}

void movePoint(RawTags& tags, std::size_t i, const Motion& motion) {
    setPointAt(tags, i, motion.matrix * pointAt(tags, i));
}

void moveVector(RawTags& tags, std::size_t i, const Motion& motion, Length length) {
    if (motion.onlyMoves) return;
    const AcGeVector3d v = motion.matrix * pointAt(tags, i).asVector();
    setPointAt(tags, i, AcGePoint3d::kOrigin + (length == Length::Scaled ? v : v / motion.scale));
}

void moveLength(RawTag& tag, const Motion& motion) {
    setNumber(tag, tagNumber(tag) * motion.scale);
}

void moveElevation(RawTag& tag, const Motion& motion) {
    setNumber(tag, tagNumber(tag) * motion.scale + motion.matrix.entry[2][3]);
}

void moveBulge(RawTag& tag, const Motion& motion) {
    if (motion.mirrored) setNumber(tag, 0.0 - tagNumber(tag));
}

}  // namespace prancheta
