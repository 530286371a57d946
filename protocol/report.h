// SPDX-License-Identifier: MIT
// What a module can tell any host about its entities and its drawing, by names instead of types.
//
// Header only, on the run-time class system alone: a host that never asks costs nothing, and a host
// that asks needs no knowledge of the module.
#pragma once

#include <span>

#include "dbapserv.h"
#include "dbidar.h"

namespace protocol {

/// Receives values in a fixed order. Names are keys for programs; texts are as the user reads them.
/// Inside a list, `name` is null.
class PropertyVisitor {
public:
    virtual ~PropertyVisitor() = default;
    /// Drawing units, radians, kg, m2: as the name is documented.
    virtual void number(const ACHAR* name, double value) = 0;
    virtual void integer(const ACHAR* name, long long value) = 0;
    /// Null: there is none.
    virtual void text(const ACHAR* name, const ACHAR* value) = 0;
    /// World coordinates.
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

/// A column of a drawing's list.
struct ListColumn {
    const ACHAR* key;       ///< under which the report tells a row's value
    const ACHAR* title;     ///< short, as a table has it
    const ACHAR* name;      ///< in full
    const ACHAR* unit;      ///< empty: none
    int decimals;           ///< -1: a text
    int width;              ///< characters that usual values take
    bool summed;            ///< a total is told
    bool usual = true;      ///< shown to a user who asked for no columns
    bool editable = false;  ///< taken by DrawingReport::set
};

/// A file that the list's command writes when it is answered `_word` and the file's name.
struct ListFormat {
    const ACHAR* word;
    const ACHAR* name;
    const ACHAR* extension;  ///< without its dot
};

/// How a front end shows the list and asks for what its command does.
struct ListSchema {
    const ACHAR* command;  ///< global name
    const ACHAR* draw;     ///< word, behind an underscore, that draws it as a table
    std::span<const ListColumn> columns;
    std::span<const ListFormat> formats;
    /// Keys of the columns that a front end shows at first, the most wanted before the others.
    std::span<const ACHAR* const> shown;
};

/// Where the lists' tables go on a sheet, mm. They are read upwards from the lower right corner,
/// the title lowest; what does not fit above it goes on in further blocks to the left.
struct TablePlace {
    AcDbObjectId space;
    AcGePoint3d corner;  ///< lower right
    double width;        ///< to the left of the corner
    double height;       ///< above it
    double text;         ///< height of the texts
};

/// Object of the system registry under kDrawingReportKey: what a module knows of a whole drawing.
class DrawingReport : public AcRxObject {
public:
    /// Of the list kListKey that it describes; good as long as the module is loaded.
    virtual const ListSchema& schema() const = 0;
    virtual void describe(AcDbDatabase& database, PropertyVisitor& visitor) const = 0;
    /// The same list as it is printed: its rows in the order of their marks, numbers rounded, so
    /// that what a front end shows and sums is what table and files say.
    virtual void describePrinted(AcDbDatabase& database, PropertyVisitor& visitor) const = 0;
    /// Changes the value of an editable column in the row that is told under kRowKey; what is tied
    /// to it follows. The host has an undo group open. False, with a Portuguese reason in `message`
    /// (freed with acutDelString), when the value is refused; nothing changed then.
    virtual bool set(AcDbObjectId row, const ACHAR* key, const ACHAR* value,
                     ACHAR*& message) const = 0;
    /// Draws the tables that stand in the drawing again, as it is now and at its scale; their
    /// number. The host has an undo group open.
    virtual int drawTablesAgain(AcDbDatabase& database) const = 0;
    /// Draws the tables of all lists that have rows anew; what it drew is the caller's, who erases
    /// it before it asks again. False when they do not fit: nothing is drawn then. The host has an
    /// undo group open.
    virtual bool drawTables(AcDbDatabase& database, const TablePlace& place,
                            AcDbObjectIdArray& drawn) const = 0;
};
inline constexpr const ACHAR* kListKey = L"lista_material";
inline constexpr const ACHAR* kRowKey = L"linha";
inline constexpr const ACHAR* kDrawingReportKey = L"ZP_DRAWING_REPORT";

}  // namespace protocol
