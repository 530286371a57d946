// SPDX-License-Identifier: MIT
// What a module can tell any host about its entities and its drawing, by names instead of types.
//
// Header only, on the run-time class system alone: a host that never asks costs nothing, and a host
// that asks needs no knowledge of the module.
#pragma once

#include "dbapserv.h"

namespace protocol {

/// Receives values in a fixed order. Names are keys for programs; texts are as the user reads them.
/// Inside a list, `name` is null.
class PropertyVisitor {
public:
    virtual ~PropertyVisitor() = default;
    virtual void number(const ACHAR* name, double value) = 0;
    virtual void integer(const ACHAR* name, long long value) = 0;
    virtual void text(const ACHAR* name, const ACHAR* value) = 0;
    virtual void point(const ACHAR* name, const AcGePoint3d& value) = 0;
    /// Reference to another object of the drawing.
    virtual void object(const ACHAR* name, const AcDbObjectId& value) = 0;
    virtual void beginList(const ACHAR* name) = 0;
    virtual void endList() = 0;
    /// A group of named values.
    virtual void beginGroup(const ACHAR* name) = 0;
    virtual void endGroup() = 0;
};

/// Protocol extension of an entity class, attached with AcRxClass::addX under the class named
/// kEntityReportClass, which the module enters in the class dictionary.
class EntityReport : public AcRxObject {
public:
    virtual void describe(const AcDbEntity& entity, PropertyVisitor& visitor) const = 0;
};
inline constexpr const ACHAR* kEntityReportClass = L"ZpEntityReport";

/// Object of the system registry under kDrawingReportKey: what a module knows of a whole drawing.
class DrawingReport : public AcRxObject {
public:
    virtual void describe(AcDbDatabase& database, PropertyVisitor& visitor) const = 0;
};
inline constexpr const ACHAR* kDrawingReportKey = L"ZP_DRAWING_REPORT";

}  // namespace protocol
