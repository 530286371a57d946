// SPDX-License-Identifier: MIT
// A dimension as a file has it, until somebody changes it.
#pragma once

#include "dbdim.h"
#include "prancheta/database/object_extra.h"

namespace prancheta {

/// What another program drew and wrote. It is shown and written back as long as neither the
/// dimension nor the values of its style are changed; then the dimension lays out its own picture.
struct FiledDimension {
    AcDbObjectId block;  ///< holds the picture, in the drawing's coordinates
    PackedTags tags;     ///< groups of the type, from its first marker on
    PackedTags xdata;
    AcGePoint3d textMiddle;
    std::size_t style = 0;  ///< see styleMark()
};

/// A number that changes with the values by which the dimension is laid out.
std::size_t styleMark(const AcDbDimension& dimension);

}  // namespace prancheta
