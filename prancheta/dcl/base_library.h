// SPDX-License-Identifier: MIT
// The predefined tiles, written in the language itself.
#pragma once

#include <string_view>

namespace prancheta::dcl {

/// Read before any file. The bare kinds (`button`, `row`, ...) exist already; what stands here
/// gives them their defaults and builds the exit buttons on them. `children_equal_width` is our own
/// attribute: it gives the buttons of a row one width.
extern const std::string_view kBaseText;

}  // namespace prancheta::dcl
