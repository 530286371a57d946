// SPDX-License-Identifier: MIT
// How a module lets any host edit its entities: by the dialog that made them, and value by value.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include "dbapserv.h"

namespace protocol {

/// Receives the rows of a property sheet in the order in which they are shown.
class PropertySheet {
public:
    virtual ~PropertySheet() = default;
    /// Rows that follow stand under this title.
    virtual void group(const ACHAR* title) = 0;
    /// A row to be read only. `key` is stable and for programs; `value` is as the user reads it,
    /// unit included.
    virtual void show(const ACHAR* key, const ACHAR* label, const ACHAR* value) = 0;
    /// A row that takes a text; `unit` may be null and is not part of `value`.
    virtual void edit(const ACHAR* key, const ACHAR* label, const ACHAR* value,
                      const ACHAR* unit) = 0;
    /// A row that takes one of `count` texts; the value is its index in decimal.
    virtual void choose(const ACHAR* key, const ACHAR* label, int current, int count,
                        const ACHAR* const* choices) = 0;
};

/// Protocol extension of an entity class, attached with AcRxClass::addX under the class named
/// kEntityPropertiesClass, which the module enters in the class dictionary.
class EntityProperties : public AcRxObject {
public:
    /// The entity is open for read.
    virtual void list(const AcDbEntity& entity, PropertySheet& sheet) const = 0;
    /// Changes one value; everything tied to the entity follows. The entity is closed; the host has
    /// an undo group open. False, with a Portuguese reason in `message` (freed with acutDelString),
    /// when the value is refused; nothing changed then.
    virtual bool set(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
                     ACHAR*& message) const = 0;
    /// The same for this entity alone, whatever else shows the same thing: nobody is asked.
    virtual bool setAlone(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
                          ACHAR*& message) const {
        return set(entity, key, value, message);
    }
    /// Figures for running totals: number of pieces, mass in kg, paint area in m2; zeros for an
    /// entity that does not count.
    struct Totals {
        int pieces = 0;
        double mass = 0.0;
        double paintArea = 0.0;
    };
    virtual Totals totals(const AcDbEntity& entity) const = 0;
};
/// Key of the row that says what the entity is for, whatever its sizes: one of choices that are the
/// same for all entities that have the row.
inline constexpr const ACHAR* kRoleKey = L"tipo_barra";
inline constexpr const ACHAR* kEntityPropertiesClass = L"ZpEntityProperties";

/// Protocol extension under kEntityEditorClass: the dialog that made an entity.
class EntityEditor : public AcRxObject {
public:
    /// Null when the entity can be edited, otherwise why not, in Portuguese (static text).
    virtual const ACHAR* whyNot(const AcDbEntity& entity) const = 0;
    /// Opens the dialog with the entity's values and rebuilds the entity in place on OK: same
    /// object, same links. The entity is closed; a command of the host is running. RTNORM, RTCAN,
    /// RTERROR.
    virtual int edit(AcDbObjectId entity) const = 0;
};
inline constexpr const ACHAR* kEntityEditorClass = L"ZpEntityEditor";

}  // namespace protocol
