// SPDX-License-Identifier: MIT
// The material lists of a drawing, as a module reports them.
#pragma once

#include <QString>

#include <string>
#include <vector>

#include "dbapserv.h"
#include "prancheta/base/result.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

struct MaterialRow {
    std::vector<QString> texts;   ///< as shown, one a column
    std::vector<double> numbers;  ///< of the columns that are numbers
    AcDbObjectId record;          ///< what the module knows the row by
    // Entities, erased ones included.
    std::vector<AcDbObjectId> ids;     ///< what the row is tied to: its marks
    std::vector<AcDbObjectId> pieces;  ///< drawn ones, further views too
    int list = 0;                      ///< number of its list; 0 when the report does not tell
    QString group;
    bool erased = false;  ///< does not count any more
};

/// How the lists are shown and what their command does, in words of our own: the module that
/// reports it may go.
struct MaterialSchema {
    struct Column {
        std::wstring key;
        QString title;    ///< with its unit
        QString heading;  ///< as short as it can be understood
        QString unit;
        int decimals;  ///< -1: a text
        int width;     ///< characters
        bool summed;
        bool editable;
        bool shown;  ///< until the user chooses otherwise
        bool operator==(const Column&) const = default;
    };
    struct Format {
        QString word;
        QString name;
        QString extension;
        bool operator==(const Format&) const = default;
    };
    QString command;
    QString draw;
    std::vector<Column> columns;  ///< those that are wanted most at first
    std::vector<Format> formats;
    bool operator==(const MaterialSchema&) const = default;
};

/// Empty when no module reports a list.
MaterialSchema materialSchema();

/// Empty when no module reports a list. O(rows).
std::vector<MaterialRow> materialRows(AcDbDatabase& database, const MaterialSchema& schema);

/// What the user typed for a column of a row; one step of undo. A failure says why, and nothing
/// changed.
Result<void> changeMaterial(Editor& editor, const MaterialRow& row,
                            const MaterialSchema::Column& column, const QString& text);

}  // namespace prancheta::desktop
