// SPDX-License-Identifier: MIT
// What the user is told of entities that could not follow.
#pragma once

#include "zp/objects/id_queue.h"

namespace zp {

/// "2 chapas e 1 cota ...; desbloqueie a camada para alterar."; nothing for no entities. `one` and
/// `many` say what became of them, and why.
void sayHeld(const IdQueue& ids, const wchar_t* one, const wchar_t* many);

}  // namespace zp
