// SPDX-License-Identifier: MIT
// Viewports in files.
#pragma once

#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

EntityType viewportType();

}  // namespace prancheta::dxf
