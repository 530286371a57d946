// SPDX-License-Identifier: MIT
// The types of foreign entities that are drawn and moved.
#pragma once

#include <vector>

#include "prancheta/entities/foreign_entity.h"

namespace prancheta {

/// Draws what it can; nothing for unknown types.
void drawForeign(const ForeignEntity& entity, AcGiWorldDraw& draw);

void drawMtext(const RawTags& tags, AcGiGeometry& to);
void drawHatch(const RawTags& tags, AcGiGeometry& to);
/// Text of one line, in the plane of its normal. The group of the vertical justification is 73 for
/// texts, 74 for attributes.
void drawText(const RawTags& tags, int verticalCode, AcGiGeometry& to);
/// References with attributes or arrays.
void drawInsert(const ForeignEntity& entity, AcGiWorldDraw& draw);
/// Dimensions without a class here come with a block that shows them in the drawing's coordinates.
void drawDimensionBlock(const ForeignEntity& entity, AcGiWorldDraw& draw);

/// Moves, turns and scales the groups of a type. False, and no change, for an unknown type, for
/// anything but a similarity without mirror, and for one that leaves the plane of a type kept in
/// its own plane.
bool transformForeign(const std::string& typeName, RawTags& tags, const AcGeMatrix3d& m);

/// Plane of an entity whose groups are told in it, from group 210; z when there is none.
AcGeVector3d planeNormal(const RawTags& tags);

/// The entity and the records that belong to it, each with its group 0 (the entity itself has
/// none).
std::vector<RawTags> recordsOf(const RawTags& tags);

/// End of the groups that this version knows: newer files append a nested object after group 101.
std::size_t knownLength(const RawTags& tags);

}  // namespace prancheta
