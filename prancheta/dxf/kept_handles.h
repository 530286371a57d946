// SPDX-License-Identifier: MIT
// Handles inside content that is kept group by group.
#pragma once

#include <functional>

#include "prancheta/database/database_core.h"

namespace prancheta::dxf {

/// Calls `visit` for every handle that kept content gives to something: kept objects and tables,
/// ends of blocks, parts of old polylines. References are not visited. O(kept groups + entities).
void forEachKeptHandle(DatabaseCore& core, const std::function<void(Adesk::UInt64)>& visit);

/// Handle that a record gives itself: its group 5 or 105 before the first marker; 0 when it has
/// none.
Adesk::UInt64 ownHandle(const RawTags& record);

}  // namespace prancheta::dxf
