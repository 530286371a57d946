// SPDX-License-Identifier: MIT
// Whether two pictures show the same, of whatever primitives they are made.
#pragma once

#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Compares what is drawn as lines, what is filled and what is written, seen on the plan: length or
/// area, first and second moments, texts. The order, where a line begins and where it is cut into
/// pieces do not matter, nor do layers and colours. Coordinates may differ by 1e-4 drawing units.
bool sameDrawn(const Picture& a, const Picture& b);

}  // namespace prancheta
