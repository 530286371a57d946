// SPDX-License-Identifier: MIT
// How a module lets any host trim, extend and break its bars.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include "dbapserv.h"

namespace protocol {

/// Protocol extension of an entity class, attached with AcRxClass::addX under the class named
/// kEntityLengthClass: entities that have an axis, and can become shorter or longer along it.
///
/// The two that change take the closed entity while the host has an undo group open. They answer
/// false, with a Portuguese reason in `message` (freed with acutDelString), when the entity
/// refuses; nothing changed then.
class EntityLength : public AcRxObject {
public:
    /// Null, and the ends of the axis in world coordinates; or why the entity has no length to
    /// change, in Portuguese (static text). The entity is open for read.
    virtual const ACHAR* axis(const AcDbEntity& entity, AcGePoint3d& start,
                              AcGePoint3d& end) const = 0;
    /// True for an entity that goes with this one, open for read, whatever its length becomes, as
    /// its plates do: that is no edge of it.
    virtual bool takesAlong(const AcDbEntity& entity, AcDbObjectId other) const = 0;
    /// The ends go to these distances from where the start is now, along the axis (`start` may be
    /// negative, `end` beyond the length). Dimensions, plates, mark and list follow.
    virtual bool setEnds(AcDbObjectId entity, double start, double end, ACHAR*& message) const = 0;
    /// What lies between the two distances goes: the entity keeps the part at its start, `rest`
    /// becomes a new entity that shows the other one. Equal distances part it at a point.
    virtual bool takeOut(AcDbObjectId entity, double from, double to, AcDbObjectId& rest,
                         ACHAR*& message) const = 0;
};
inline constexpr const ACHAR* kEntityLengthClass = L"ZpEntityLength";

}  // namespace protocol
