// SPDX-License-Identifier: MIT
// Copies that refer to each other as their originals do.
#pragma once

#include <unordered_map>

#include "dbid.h"

namespace prancheta {

/// Copies by their originals.
using Copies = std::unordered_map<AcDbStub*, AcDbObjectId>;

/// References of the copies, which are in the drawing and closed, to one of the originals go to its
/// copy from now on. Cost: O(copies).
void translateReferences(const Copies& copies);

}  // namespace prancheta
