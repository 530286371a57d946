// SPDX-License-Identifier: MIT
// LAYOUT objects in files.
#pragma once

#include "dblayout.h"
#include "prancheta/database/object_extra.h"
#include "prancheta/dxf/encoding.h"
#include "prancheta/dxf/load_names.h"
#include "prancheta/dxf/tag_writer.h"

namespace prancheta::dxf {

/// Takes from the groups what the class holds; they are kept beside it. False when they do not suit
/// it: no name, no block, a sheet without a size.
bool readLayout(const Tags& body, LoadNames& names, AcDbLayout& layout);

/// The groups from the first marker on: those that came with the layout as they stand, but for what
/// was changed since; usual ones for a layout that was made here. `block` is the handle of its
/// block.
void writeLayout(const AcDbLayout& layout, const RawTags& kept, Adesk::UInt64 block,
                 TagWriter& out);

}  // namespace prancheta::dxf
