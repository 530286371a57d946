// SPDX-License-Identifier: MIT
// What is wrong with the meaning of a dialog file, though its syntax is right.
#pragma once

#include "prancheta/dcl/definition.h"

namespace prancheta::dcl {

/// Adds what it notices to the library's findings, each with its severity. Looks once at every
/// definition, and once at every tile of every dialog.
void check(Library& library);

}  // namespace prancheta::dcl
