// SPDX-License-Identifier: MIT
// The tabs of a drawing: the model and its sheets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dblayout.h"
#include "prancheta/base/result.h"
#include "prancheta/geometry/box.h"

namespace prancheta {

/// A tab. A drawing that never had sheets has the model and one empty sheet, for which there are no
/// objects yet.
struct Tab {
    std::wstring name;    ///< "Model" for the model
    AcDbObjectId block;   ///< holds its entities
    AcDbObjectId layout;  ///< null: no object yet
};

/// In tab order, the model first. O(tabs log tabs).
std::vector<Tab> tabsOf(const AcDbDatabase& database);
/// Case ignored; "Modelo" is the model. Null block when there is none.
Tab tabNamed(const AcDbDatabase& database, std::wstring_view name);
/// Of the block of a space.
Tab tabOf(const AcDbDatabase& database, AcDbObjectId block);

/// The sheet as it lies, mm: the printable corner is the origin of what is drawn on it.
Box2d sheetOf(const AcDbLayout& layout);
Box2d sheetOf(const Tab& tab);
/// Why this cannot be the name of a new tab, in Portuguese; empty when it can.
std::wstring tabNameRefusal(const AcDbDatabase& database, std::wstring_view name);
/// "Layout1" or the next free one.
std::wstring freeTabName(const AcDbDatabase& database);

/// The objects of all tabs, made where they are missing. An error when the drawing's own cannot be
/// changed.
Result<void> makeLayouts(AcDbDatabase& database);
/// A sheet without entities behind the last one, of the size of the last one. The name is free.
Result<Tab> addTab(AcDbDatabase& database, const std::wstring& name);
/// With copies of the entities, right behind the original's place in the order.
Result<Tab> copyTab(AcDbDatabase& database, const Tab& from, const std::wstring& name);
Result<void> renameTab(AcDbDatabase& database, const Tab& tab, const std::wstring& name);
/// A sheet of this size as it lies, mm, without margins.
Result<void> setSheet(AcDbDatabase& database, AcDbObjectId block, double width, double height);
/// With everything on it; the model and the only sheet stay.
Result<void> eraseTab(AcDbDatabase& database, const Tab& tab);

}  // namespace prancheta
