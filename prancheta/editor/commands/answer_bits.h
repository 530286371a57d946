// SPDX-License-Identifier: MIT
// What several commands ask of a number.
#pragma once

#include "adscodes.h"

namespace prancheta::commands {

/// Above 0.
inline constexpr int kPositive = RSG_NOZERO | RSG_NONEG;

}  // namespace prancheta::commands
