// SPDX-License-Identifier: MIT
// What an entity draws, recorded.
#pragma once

#include <functional>

#include "dbmain.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Appends what the entity draws in world coordinates, with its own properties where it sets none.
void recordPicture(AcDbEntity& entity, Picture& picture, AcGiRegenType type = kAcGiStandardDisplay,
                   bool dragging = false);

/// Makes new entities, owned by the caller, of a picture; set by the room that knows lines and
/// arcs. The default explode of every entity goes through it.
extern std::function<void(const Picture&, AcDbVoidPtrArray&)> pictureExploder;

}  // namespace prancheta
