// SPDX-License-Identifier: MIT
// Leaders in files.
#pragma once

#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

/// LEADER with what its class holds.
EntityType leaderType();

}  // namespace prancheta::dxf
