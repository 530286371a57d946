// SPDX-License-Identifier: MIT
// Splines in files.
#pragma once

#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

EntityType splineType();

}  // namespace prancheta::dxf
