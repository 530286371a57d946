// SPDX-License-Identifier: MIT
// Grips: the points of an entity that a pointer can take hold of.
#pragma once

#include <vector>

#include "dbmain.h"
#include "gepnt3d.h"

namespace prancheta {

struct Grip {
    AcDbObjectId entity;
    int index = 0;   ///< as AcDbEntity::moveGripPointsAt counts
    AcGePoint3d at;  ///< world
};

/// Appends the grips of one entity; none when it has none or cannot be opened.
void appendGrips(AcDbObjectId entity, std::vector<Grip>& out);

}  // namespace prancheta
