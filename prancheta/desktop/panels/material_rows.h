// SPDX-License-Identifier: MIT
// The material lists of a drawing, as a module reports them.
#pragma once

#include <QString>

#include <array>
#include <vector>

#include "dbapserv.h"

namespace prancheta::desktop {

enum class MaterialColumn {
    Mark,
    Quantity,
    Description,
    Sizes,
    Material,
    Length,
    UnitMass,
    TotalMass,
    PaintArea,
    Remark,
    kCount,
};
inline constexpr int kMaterialColumns = static_cast<int>(MaterialColumn::kCount);

struct MaterialColumnInfo {
    const wchar_t* name;  ///< as reported
    const char* title;
    int decimals;  ///< -1: a text
};
extern const std::array<MaterialColumnInfo, kMaterialColumns> kMaterialColumnInfos;

struct MaterialRow {
    std::array<QString, kMaterialColumns> texts;     ///< as shown
    std::array<double, kMaterialColumns> numbers{};  ///< of the columns that are numbers
    std::vector<AcDbObjectId> ids;  ///< what the row is tied to, erased entities included
    int list = 0;                   ///< number of its list; 0 when the report does not tell
    QString group;
    bool erased = false;  ///< does not count any more
};

struct MaterialTotals {
    double mass = 0.0;       ///< kg
    double paintArea = 0.0;  ///< m2
};

/// Empty when no module reports a list. O(rows).
std::vector<MaterialRow> materialRows(AcDbDatabase& database);

}  // namespace prancheta::desktop
