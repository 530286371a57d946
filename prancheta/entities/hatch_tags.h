// SPDX-License-Identifier: MIT
// A hatch as the groups of a file, in their order.
#pragma once

#include "dbhatch.h"
#include "prancheta/database/database_core.h"

namespace prancheta {

/// Fills the hatch from its groups. `references` are the objects of the groups 330, in order; those
/// beyond its end are none. False when a group is out of place or says what a hatch does not hold;
/// what came before it is in the hatch then, enough to show it. Takes areas of several polygons,
/// which say the same in another order, too.
bool readHatch(const RawTags& tags, const std::vector<AcDbObjectId>& references, AcDbHatch& hatch);

/// All that readHatch() reads, behind the marker of the subclass. Objects that are erased are left
/// out.
RawTags hatchTags(const AcDbHatch& hatch);

}  // namespace prancheta
