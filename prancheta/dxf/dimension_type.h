// SPDX-License-Identifier: MIT
// Dimensions as entity types, and the scale that a dimension has of its own.
#pragma once

#include <array>
#include <vector>

#include "dbdim.h"
#include "prancheta/dxf/entity_types.h"

namespace prancheta::dxf {

/// One for each kind. Texts 1 is the name of the block that holds the picture.
std::array<EntityType, 6> dimensionTypes();

/// False when the style, or the overrides in the extended data, ask for something that is not drawn
/// here: the dimension then keeps the picture of its file.
bool isDrawnAsFiled(AcDbObjectId style, const Tags& xdata);

/// The definition points as the file has them: of a linear dimension the point of its line is the
/// one at the second extension line.
std::vector<AcGePoint3d> filedPoints(const AcDbDimension& dimension);

/// The dimension with its points where the file will have them, so that what is drawn before saving
/// and after loading is the same to the last bit. Not resident, with the original's style; null
/// when it could not be copied.
std::unique_ptr<AcDbDimension> asFiled(const AcDbDimension& dimension);

/// The scale stands among the overrides in the extended data: takes it out of the groups, 0 when
/// there is none, or puts it in.
double takeDimscale(RawTags& xdata);
/// Factor from sizes on paper to drawing units.
void putDimscale(RawTags& xdata, double scale);

/// The through point as it was given stands in our own extended data, because the dimension's own
/// group only has the point at the second extension line: takes it out of the groups and puts it in
/// force when it still lies on the dimension line.
void takeThroughPoint(RawTags& xdata, PranchetaLinearDimension& dimension);

}  // namespace prancheta::dxf
