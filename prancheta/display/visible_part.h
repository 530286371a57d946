// SPDX-License-Identifier: MIT
// Pictures without what some of their traits draw.
#pragma once

#include <vector>

#include "prancheta/graphics/picture.h"

namespace prancheta {

/// The primitives whose traits are not marked, in their order; `hidden` has a mark for each of
/// Picture::allTraits().
Picture visiblePart(const Picture& picture, const std::vector<bool>& hidden);

}  // namespace prancheta
