// SPDX-License-Identifier: MIT
// The material lists of a drawing, as a module reports them.
#pragma once

#include <QString>

#include <string>
#include <vector>

#include "dbapserv.h"

namespace prancheta::desktop {

struct MaterialRow {
    std::vector<QString> texts;     ///< as shown, one a column
    std::vector<double> numbers;    ///< of the columns that are numbers
    std::vector<AcDbObjectId> ids;  ///< what the row is tied to, erased entities included
    int list = 0;                   ///< number of its list; 0 when the report does not tell
    QString group;
    bool erased = false;  ///< does not count any more
};

/// How the lists are shown and what their command does, in words of our own: the module that
/// reports it may go.
struct MaterialSchema {
    struct Column {
        std::wstring key;
        QString title;  ///< with its unit
        QString unit;
        int decimals;  ///< -1: a text
        int width;     ///< characters
        bool summed;
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
    std::vector<Column> columns;
    std::vector<Format> formats;
    bool operator==(const MaterialSchema&) const = default;
};

/// Empty when no module reports a list.
MaterialSchema materialSchema();

/// Empty when no module reports a list. O(rows).
std::vector<MaterialRow> materialRows(AcDbDatabase& database, const MaterialSchema& schema);

}  // namespace prancheta::desktop
