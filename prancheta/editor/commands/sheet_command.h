// SPDX-License-Identifier: MIT
// The parts of FOLHA.
#pragma once

#include "prancheta/editor/commands/support.h"
#include "prancheta/geometry/box.h"

namespace prancheta::commands {

inline constexpr double kUsualScale = 20.0;  ///< 1:20

/// `20` or `1:20`: `number` has drawing units per mm; Enter takes the present scale.
Task<InputValue> askSheetScale(CommandContext context, double present);
/// Says so when all of the model is too large for the frame at this scale (drawing units per mm).
void tellWhetherFits(const CommandContext& context, const Box2d& frame, double scale);

CommandTask newSheet(CommandContext context);

}  // namespace prancheta::commands
