// SPDX-License-Identifier: MIT
// The displacement that MOVE, COPY and STRETCH ask for.
#pragma once

#include <functional>

#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// Makes a question show what a displacement from `base` to the pointer would do.
using ShowsDisplacement = std::function<void(Prompt& prompt, const AcGePoint3d& base)>;

/// One vector, the last one by default; `point` holds it, `status` RTCAN after Esc.
Task<InputValue> askDisplacement(CommandContext context, ShowsDisplacement shows);
/// The same by a base point and a second one, or by the option that asks for a vector.
Task<InputValue> askBaseAndSecond(CommandContext context, ShowsDisplacement shows);

/// These entities follow the pointer.
inline ShowsDisplacement moves(const Ids& ids) {
    return [ids](Prompt& prompt, const AcGePoint3d&) { prompt.moving(ids); };
}

}  // namespace prancheta::commands
