// SPDX-License-Identifier: MIT
// Outlines of what is not a curve itself.
#pragma once

#include <optional>

#include "prancheta/curves/curve.h"
#include "prancheta/graphics/picture.h"

namespace prancheta::commands {

/// The loop of a picture that encloses most: closed lines, circles, and lines and arcs whose ends
/// touch. Nothing without one.
std::optional<Curve> outlineOf(const Picture& picture);

}  // namespace prancheta::commands
