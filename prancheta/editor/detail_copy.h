// SPDX-License-Identifier: MIT
// What a detail shows in the model: the content of its region, at another size.
#pragma once

#include <memory>
#include <vector>

#include "prancheta/editor/details.h"

namespace prancheta {

using NewEntities = std::vector<std::unique_ptr<AcDbEntity>>;

/// Copies of what the model shows inside a border, in no drawing, `factor` times as large about the
/// border's middle, which lies in the origin. Lines end at the border; texts, notes and dimensions
/// come along whole or not at all, keep their size, and say what they say in the model. Without
/// details and what belongs to them. O(entities about the region).
NewEntities detailCopy(Editor& editor, const Curve& border, double factor);

}  // namespace prancheta
