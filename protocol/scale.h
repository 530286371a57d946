// SPDX-License-Identifier: MIT
// How a module lets any host lay out again what was sized by the drawing's scale.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include "dbapserv.h"

namespace protocol {

/// Protocol extension of an entity class, attached with AcRxClass::addX under the class named
/// kScaleFollowerClass, which the module enters in the class dictionary.
class ScaleFollower : public AcRxObject {
public:
    /// Gives the entity, or what belongs to it, the sizes and distances of the scale that the
    /// drawing has now; places that the user chose stay. The entity is closed; the host has an undo
    /// group open. The number of entities that changed; `locked` grows by one when the entity would
    /// have, did its layer let it.
    virtual int layAgain(AcDbObjectId entity, int& locked) const = 0;
};
inline constexpr const ACHAR* kScaleFollowerClass = L"ZpScaleFollower";

}  // namespace protocol
