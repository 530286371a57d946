// SPDX-License-Identifier: MIT
// Ellipses as an entity type.
#pragma once

#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

EntityType ellipseType();

}  // namespace prancheta::dxf
