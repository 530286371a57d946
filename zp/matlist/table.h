// SPDX-License-Identifier: MIT
// The material list as a table in the drawing, and its command.
#pragma once

#include <filesystem>
#include <string>

#include "protocol/report.h"
#include "zp/matlist/lists.h"

namespace zp::matlist {

/// Draws the table in place of the one drawn before, where and in which space that stands by now;
/// without one in the current space with its upper left corner at the list's point. False when the
/// list cannot be read or written.
bool drawTable(const MaterialList& list);

/// True when the drawn table does not say what drawTable would write into it now.
bool tableIsStale(const MaterialList& list);

/// As protocol::DrawingReport::drawTables().
bool drawTablesOn(AcDbDatabase& drawing, const protocol::TablePlace& place,
                  AcDbObjectIdArray& drawn);

/// The command LISTAMATERIAL.
void materialListCommand();

}  // namespace zp::matlist
