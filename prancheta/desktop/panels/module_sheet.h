// SPDX-License-Identifier: MIT
// What a module tells of its entities through protocol::EntityProperties.
#pragma once

#include <vector>

#include "prancheta/desktop/panels/property_rows.h"
#include "protocol/edit.h"

namespace prancheta::desktop {

/// Null for an entity of whose class nobody tells.
const protocol::EntityProperties* moduleProperties(const AcDbEntity& entity);

/// Rows of a module's sheet, keys with kModuleKey before them. The entity is open for read.
void addModuleRows(const protocol::EntityProperties& properties, const AcDbEntity& entity,
                   std::vector<PropertyRow>& rows);

/// The entity is closed; an undo group is open. `key` without kModuleKey.
Result<void> setModuleProperty(const protocol::EntityProperties& properties, AcDbObjectId entity,
                               const std::wstring& key, const std::wstring& input);

}  // namespace prancheta::desktop
