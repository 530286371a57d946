// SPDX-License-Identifier: MIT
// Sheets with a title block: its fields are attributes of an insertion, out of sight; what is seen
// are plain texts in their places, so that they stand in programs that know no attributes, too.
#pragma once

#include "dbents.h"
#include "prancheta/database/layouts.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/geometry/box.h"

namespace prancheta::commands {

/// Layer of what belongs to a sheet.
inline constexpr const wchar_t* kSheetLayer = L"FOLHA";
/// File of the row of the table of revisions. What it offers makes the table's head.
inline constexpr const wchar_t* kRevisionFile = L"revisao";
/// Field whose place, in a title block that has it, is the lower right corner of the material list.
inline constexpr const wchar_t* kListField = L"LISTA";

/// The block of the drawing that this file of sheetFolder() makes; the file is read when there is
/// none yet. Null, after saying why not.
AcDbObjectId sheetBlock(const CommandContext& context, const std::wstring& file);
/// An insertion of it, not resident, with the values that it offers.
std::unique_ptr<AcDbBlockReference> fieldsAt(AcDbObjectId block, const AcGePoint3d& at);
/// Puts something that belongs to a sheet on its layer and, as addEntity(), in the current space.
AcDbObjectId addToSheet(const CommandContext& context, std::unique_ptr<AcDbEntity> entity);

/// The title block of a sheet; null when it has none.
AcDbObjectId titleOf(AcDbObjectId space);
/// Rows of the table of revisions, the head first.
Ids revisionsOf(AcDbObjectId space);
/// The viewport whose scale is the sheet's; null when there is none.
AcDbObjectId mainViewport(AcDbObjectId space);

/// What an entity covers of its space.
Box2d entityBox(const AcDbEntity& entity);
/// Where the drawing may begin above the title block, and above room for revisions where these
/// stand on it. The sheet has both.
double topOfTitle(AcDbObjectId space);

/// Value of a field; empty where there is none.
std::wstring fieldOf(const AcDbBlockReference& title, std::wstring_view tag);
/// Gives a field a value; nothing where there is none.
void setField(AcDbBlockReference& title, std::wstring_view tag, const std::wstring& value);

/// The sheets that have a title block, in tab order.
std::vector<Tab> titledSheets(const AcDbDatabase& database);
/// Fills scale, number, weight, file and date of every sheet and writes all its texts anew; their
/// number. O(sheets' entities).
std::size_t refreshSheets(const CommandContext& context);
/// Writes today into the date of a sheet that has a title block and another date.
void refreshDate(const CommandContext& context, AcDbObjectId space);

}  // namespace prancheta::commands
