// SPDX-License-Identifier: MIT
// What the options of PEDIT share.
#pragma once

#include <vector>

#include "prancheta/editor/commands/support.h"
#include "prancheta/entities/polyline_vertices.h"

namespace prancheta::commands {

/// Vertices of the polyline; empty when it cannot be read.
std::vector<PolylineVertex> verticesIn(AcDbObjectId polyline);
/// They take its vertices' place; false, after saying so, when the drawing refuses.
bool putVertices(const CommandContext& context, AcDbObjectId polyline,
                 const std::vector<PolylineVertex>& vertices);

/// The vertices one by one, until the user leaves; RTCAN after Esc.
Task<int> editVertices(CommandContext context, AcDbObjectId polyline);

}  // namespace prancheta::commands
