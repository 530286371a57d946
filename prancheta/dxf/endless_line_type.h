// SPDX-License-Identifier: MIT
// Construction lines as entity types.
#pragma once

#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

EntityType xlineType();
EntityType rayType();

}  // namespace prancheta::dxf
