// SPDX-License-Identifier: MIT
// Attributes of the language: what their values must look like.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "prancheta/dcl/definition.h"

namespace prancheta::dcl {

/// Why the value does not suit the attribute, in Portuguese; empty when it does. Any value suits an
/// attribute that the language does not know: it is the program's own.
std::string whyUnsuitable(std::string_view attribute, const Value& value);

/// Colour index of a value of `color`: 0..255, or one of the negative indices of the interface.
std::optional<int> colorIndex(std::string_view text);

}  // namespace prancheta::dcl
