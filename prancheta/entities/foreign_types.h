// SPDX-License-Identifier: MIT
// The types of foreign entities that are drawn and moved.
#pragma once

#include <vector>

#include "dbents.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/foreign_motion.h"
#include "prancheta/entities/paragraphs.h"

namespace prancheta {

/// Draws what it can; nothing for unknown types.
void drawForeign(const ForeignEntity& entity, AcGiWorldDraw& draw);

/// The groups of a MTEXT, with the properties of the entity. Paragraphs in columns are shown in
/// one.
void drawMtext(const RawTags& tags, const ForeignEntity& entity, AcGiWorldDraw& draw);
/// Text of one line, in the plane of its normal. The group of the vertical justification is 73 for
/// texts, 74 for attributes.
void drawText(const RawTags& tags, int verticalCode, AcGiGeometry& to);
void readText(AcDbText& text, const RawTags& tags, int verticalCode);
/// Direction in which paragraphs run, unit length.
AcGeVector3d paragraphDirection(const RawTags& tags);
/// References with attributes or arrays.
void drawInsert(const ForeignEntity& entity, AcGiWorldDraw& draw);
/// Dimensions without a class here come with a block that shows them in the drawing's coordinates,
/// where they stood before they were moved.
void drawDimensionBlock(const ForeignEntity& entity, AcGiWorldDraw& draw);

/// Moves, turns, scales and mirrors the groups of a type; texts stay readable. False, and no
/// change, for an unknown type and for anything but a similarity.
bool transformForeign(const std::string& typeName, RawTags& tags, const AcGeMatrix3d& m);
/// What a text has to do beyond moving its places: `before` is the entity as it was.
void turnText(RawTags& tags, const RawTags& before, int verticalCode, const Motion& plane);
void turnParagraphs(RawTags& tags, const RawTags& before, const Motion& world, const Motion&);
void turnTolerance(RawTags& tags, const RawTags& before, const Motion& world, const Motion&);
void turnMultileader(RawTags& tags, const RawTags& before, const Motion& world, const Motion&);

/// True for dimensions of all kinds, which a block shows.
bool isDimension(std::string_view typeName);

/// Plane of an entity whose groups are told in it, from group 210; z when there is none.
AcGeVector3d planeNormal(const RawTags& tags);

/// The entity and the records that belong to it, each with its group 0 (the entity itself has
/// none).
std::vector<RawTags> recordsOf(const RawTags& tags);

/// End of the groups that this version knows: newer files append a nested object after group 101.
std::size_t knownLength(const RawTags& tags);

}  // namespace prancheta
