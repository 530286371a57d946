// SPDX-License-Identifier: MIT
// Records of files older than R2000, made complete.
#pragma once

#include <functional>

#include "prancheta/database/database_core.h"

namespace prancheta::dxf {

/// Puts subclass markers before the groups of an entity type that has none: each group goes to the
/// subclass that the table names, what no subclass names to the last one. Types that are not known
/// get none.
void addSubclassMarkers(std::string_view type, RawTags& tags);

/// Completes a record inside the content of another entity (VERTEX, ATTRIB, SEQEND, from its group
/// 0 on): handle, owner, AcDbEntity, and the markers of its type. What is complete stays as it is.
void completePart(RawTags& part, Adesk::UInt64 owner, const std::function<Adesk::UInt64()>& fresh);

/// The same for a table that is kept (from 0 TABLE on, `owner` 0) and for its records.
void completeTableRecord(RawTags& record, Adesk::UInt64 owner,
                         const std::function<Adesk::UInt64()>& fresh);

/// An object of a file that does not name owners: it belongs to the dictionary that names it
/// (`owner`, 0 none), to its first reactor, or to the root dictionary.
void completeObject(RawTags& record, Adesk::UInt64 owner, Adesk::UInt64 root);

}  // namespace prancheta::dxf
