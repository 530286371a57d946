// SPDX-License-Identifier: MIT
// Paragraphs of text in files.
#pragma once

#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

/// MTEXT with what its class holds; paragraphs in columns do not suit.
EntityType mtextType();

}  // namespace prancheta::dxf
