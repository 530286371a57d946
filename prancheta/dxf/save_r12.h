// SPDX-License-Identifier: MIT
// Drawings as R12 knows them.
#pragma once

#include <string>

#include "prancheta/dxf/tag_writer.h"

namespace prancheta::dxf {

/// Writes what the model shows, without blocks: see Version::R12. Layers that are off or frozen are
/// written as such. The drawing stays as it is. The answer is a line about what is not in the file
/// and about changed names, in Portuguese; empty for neither.
std::string saveR12(AcDbDatabase& database, TagWriter& out);

}  // namespace prancheta::dxf
