// SPDX-License-Identifier: MIT
// The pictures of a family's library.
#pragma once

#include <vector>

#include "families.h"
#include "prancheta/slides/library.h"
#include "prancheta/slides/slide.h"

namespace tools {

/// SECAO, FLECHA, one IP for each insertion point, BT1 to BT4, VI1 to VI4 and what is extra.
std::vector<prancheta::slides::LibraryEntry> libraryOf(const Family& family);

/// A channel looked at from four sides, each arrow with the number of its figure.
prancheta::slides::Slide vistaDirections();

}  // namespace tools
