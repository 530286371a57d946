// SPDX-License-Identifier: MIT
// The types of foreign entities that are drawn and moved.
#pragma once

#include "prancheta/entities/foreign_entity.h"

namespace prancheta {

/// Draws what it can; nothing for unknown types.
void drawForeign(const ForeignEntity& entity, AcGiWorldDraw& draw);

void drawMtext(const RawTags& tags, AcGiGeometry& to);
void drawHatch(const RawTags& tags, AcGiGeometry& to);

/// Moves, turns and scales the groups of a type. False, and no change, for an unknown type, for
/// anything but a similarity without mirror, and for one that leaves the plane of a type kept in
/// its own plane.
bool transformForeign(const std::string& typeName, RawTags& tags, const AcGeMatrix3d& m);

/// Plane of an entity whose groups are told in it, from group 210; z when there is none.
AcGeVector3d planeNormal(const RawTags& tags);

/// End of the groups that this version knows: newer files append a nested object after group 101.
std::size_t knownLength(const RawTags& tags);

}  // namespace prancheta
