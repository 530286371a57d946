// SPDX-License-Identifier: MIT
// Makes the tiles of a dialog from its definition.
#pragma once

#include <memory>

#include "prancheta/dcl/definition.h"

namespace prancheta::dcl {

/// The whole tree with the state that the file gives it: values, rows, enabled or not.
std::unique_ptr<Tile> build(const DefinitionPtr& definition);

}  // namespace prancheta::dcl
