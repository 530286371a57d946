// SPDX-License-Identifier: MIT
// Handles inside content that is kept group by group.
#pragma once

#include <functional>

#include "prancheta/database/database_core.h"

namespace prancheta::dxf {

/// Calls `visit` for every handle that kept tables, objects and sections give to something.
/// References are not visited. O(kept groups).
void forEachKeptRecord(DatabaseCore& core, const std::function<void(Adesk::UInt64)>& visit);

/// The same for parts of objects: ends of blocks, vertices of old polylines, attributes; 0 for an
/// attribute that has none yet. O(kept groups + entities).
void forEachKeptPart(DatabaseCore& core, const std::function<void(Adesk::UInt64)>& visit);

/// Both.
void forEachKeptHandle(DatabaseCore& core, const std::function<void(Adesk::UInt64)>& visit);

/// Handle that a record gives itself: its group 5 or 105 before the first marker; 0 when it has
/// none.
Adesk::UInt64 ownHandle(const RawTags& record);

/// Handle of what it says it belongs to: its group 330 before the first marker, outside of braces;
/// 0 when it has none.
Adesk::UInt64 ownerHandle(const RawTags& record);

}  // namespace prancheta::dxf
