// SPDX-License-Identifier: MIT
// The variables of dimension styles that the host draws by.
#pragma once

#include <span>
#include <string_view>

#include "dbsymtb.h"

namespace prancheta {

/// One member of the values is set: a number, a whole number, a text or a block.
struct DimVariable {
    const wchar_t* name;
    int group;  ///< code in the record of a style, and of an override of one dimension
    double AcDbDimStyleValues::*real = nullptr;
    Adesk::Int16 AcDbDimStyleValues::*integer = nullptr;
    std::wstring AcDbDimStyleValues::*text = nullptr;
    AcDbObjectId AcDbDimStyleValues::*block = nullptr;
};

/// All but DIMTXSTY, in the order in which they are listed.
std::span<const DimVariable> dimVariables();
/// Null for none of them.
const DimVariable* dimVariable(std::wstring_view name);
const DimVariable* dimVariable(int group);

}  // namespace prancheta
