// SPDX-License-Identifier: MIT
// Extents as a rectangle of the plan.
#pragma once

#include "dbmain.h"
#include "prancheta/geometry/box.h"

namespace prancheta {

inline Box2d boxOf(const AcDbExtents& extents) {
    if (extents.isEmpty()) return {};
    return {extents.minPoint().x, extents.minPoint().y, extents.maxPoint().x, extents.maxPoint().y};
}

}  // namespace prancheta
