// SPDX-License-Identifier: MIT
// What of an object was picked.
#pragma once

#include <optional>

#include "prancheta/editor/commands/support.h"
#include "prancheta/graphics/edges.h"

namespace prancheta::commands {

/// The edge of the picked object, as displayed, that is nearest to the pick; nothing for an object
/// without edges. World coordinates.
std::optional<Edge> pickedEdge(const CommandContext& context, const InputValue& picked);

}  // namespace prancheta::commands
