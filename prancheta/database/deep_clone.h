// SPDX-License-Identifier: MIT
// Copies that refer to each other as their originals do.
#pragma once

#include <unordered_map>

#include "acadstrc.h"
#include "dbidar.h"

namespace prancheta {

/// Copies by their originals.
using Copies = std::unordered_map<AcDbStub*, AcDbObjectId>;

/// References of the copies, which are in the drawing and closed, to one of the originals go to its
/// copy from now on. Cost: O(copies).
void translateReferences(const Copies& copies);

/// Copies entities of one drawing to a space or block of another (or of the same), as
/// AcDbDatabase::deepCloneObjects does inside one. Layers, linetypes, styles, blocks with what they
/// hold and registered applications that the target lacks come along; those of the same name are
/// the target's. References to anything else become null. `left` grows by the entities that are
/// nothing without what their own file keeps, in blocks too; they stay behind. `copies` receives as
/// many ids as there are originals, null for what stays.
Acad::ErrorStatus cloneAcross(const AcDbObjectIdArray& ids, AcDbObjectId owner,
                              AcDbObjectIdArray& copies, std::size_t& left);

}  // namespace prancheta
