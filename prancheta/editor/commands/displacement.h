// SPDX-License-Identifier: MIT
// The displacement that MOVE and COPY ask for instead of two points.
#pragma once

#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// One vector, the last one by default; `point` holds it, `status` RTCAN after Esc.
Task<InputValue> askDisplacement(CommandContext context, Ids ids);

}  // namespace prancheta::commands
