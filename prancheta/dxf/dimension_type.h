// SPDX-License-Identifier: MIT
// The aligned dimension as an entity type, and the scale that a dimension has of its own.
#pragma once

#include "dbdim.h"
#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

/// Texts 1 is the name of the block that holds the picture.
EntityType alignedDimensionType();

/// A point that the dimension line passes through, as the file has it: at the second extension
/// line.
AcGePoint3d filedThroughPoint(const AcDbAlignedDimension& dimension);

/// The dimension with its through point where the file will have it, so that what is drawn before
/// saving and after loading is the same to the last bit. Not resident, with the original's style.
std::unique_ptr<AcDbAlignedDimension> asFiled(const AcDbAlignedDimension& dimension);

/// The scale stands among the overrides in the extended data: takes it out of the groups, 0 when
/// there is none, or puts it in.
double takeDimscale(RawTags& xdata);
/// Factor from sizes on paper to drawing units.
void putDimscale(RawTags& xdata, double scale);

/// The through point as it was given stands in our own extended data, because the dimension's own
/// group only has the point at the second extension line: takes it out of the groups and puts it in
/// force when it still lies on the dimension line.
void takeThroughPoint(RawTags& xdata, AcDbAlignedDimension& dimension);

}  // namespace prancheta::dxf
