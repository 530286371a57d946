// SPDX-License-Identifier: MIT
// The hatch as an entity type.
#pragma once

#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

EntityType hatchType();

}  // namespace prancheta::dxf
