// SPDX-License-Identifier: MIT
// Whether a drawn table stays on its sheet of paper.
#pragma once

#include "zp/matlist/lists.h"

namespace zp::matlist {

/// True when a line of the list's table lies beyond the paper of the layout on which it stands;
/// false in the model, and where the layout has no paper yet.
bool passesSheet(const MaterialList& list);

}  // namespace zp::matlist
