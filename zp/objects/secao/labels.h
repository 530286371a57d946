// SPDX-License-Identifier: MIT
// What sizes are called before the user, with the trade's symbol: "Altura (h)".
#pragma once

#include "zp/objects/secao/kinds.h"

namespace zp::secao {

/// The label of a value in a class; empty for a role that no user sees.
const wchar_t* label(Role role, Kind kind);

}  // namespace zp::secao
