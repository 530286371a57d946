// SPDX-License-Identifier: MIT
// Entities from pictures: what EXPLODE leaves.
#pragma once

#include "dbmain.h"
#include "prancheta/database/entity_picture.h"

namespace prancheta {

/// What the entity draws in the world. The entity must be open for read or not resident.
Picture pictureOf(AcDbEntity& entity);

/// Appends new entities, not resident, owned by the caller: lines, polylines, circles, arcs, texts,
/// solids, and hatches for filled areas of more than four corners.
void appendEntities(const Picture& picture, AcDbVoidPtrArray& out);

}  // namespace prancheta
