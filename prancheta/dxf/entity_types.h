// SPDX-License-Identifier: MIT
// The entity types that have a class here: their groups, and how values and objects become each
// other.
#pragma once

#include <memory>

#include "dbmain.h"
#include "prancheta/dxf/fields.h"

namespace prancheta::dxf {

/// What makes one entity type. A new type is one more table and one more line of entityTypes().
struct EntityType {
    const char* name;
    AcRxClass* (*desc)();
    std::span<const Field> fields;
    /// True when the class holds all that the values and the remaining groups say; a type that does
    /// not suit is kept group by group instead.
    bool (*suits)(const Values& values, const Tags& rest);
    /// Null when only the making shows that the type does not suit.
    std::unique_ptr<AcDbEntity> (*make)(const Values& values);
    void (*take)(const AcDbEntity& entity, Values& values);
};

std::span<const EntityType> entityTypes();
/// Null for types without a class here.
const EntityType* entityTypeNamed(std::string_view name);
const EntityType* entityTypeOf(const AcDbEntity& entity);

}  // namespace prancheta::dxf
