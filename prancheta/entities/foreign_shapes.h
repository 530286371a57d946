// SPDX-License-Identifier: MIT
// Entities of other programs that have no class here, drawn from their groups.
#pragma once

#include <string_view>

#include "acgi.h"
#include "prancheta/entities/foreign_entity.h"

namespace prancheta {

/// POLYLINE that is a net or a body of faces, with its VERTEX records: its edges.
void drawNet(const RawTags& tags, AcGiGeometry& to);
/// MESH: the edges of its faces, not refined.
void drawMesh(const RawTags& tags, AcGiGeometry& to);
/// The lines of its elements.
void drawMline(const RawTags& tags, AcGiGeometry& to);
/// Its leaders with their arrows, and its text.
void drawMultileader(const ForeignEntity& entity, AcGiWorldDraw& draw);
/// Its text in a frame.
void drawTolerance(const ForeignEntity& entity, AcGiWorldDraw& draw);
/// IMAGE: the frame, clipped where it is.
void drawImageFrame(const RawTags& tags, AcGiGeometry& to);
/// WIPEOUT: an area that hides what lies under it, with a frame when WIPEOUTFRAME says so.
void drawWipeout(const ForeignEntity& entity, AcGiWorldDraw& draw);

/// Whether entities of this type that are kept group by group are drawn at all.
bool isShownForeign(std::string_view typeName);

}  // namespace prancheta
