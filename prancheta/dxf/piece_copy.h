// SPDX-License-Identifier: MIT
// The copy of a piece's data that outlives programs which drop extended data: a text in the block
// of its picture, on a layer that is frozen.
//
//     TEXT on layer PRANCHETA_COPIA: "PRANCHETA-1 " class " " what the class says of itself
//
// Of 200 bytes at most, and one in a block, which all pieces share that look alike and say the
// same.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dbmain.h"
#include "dbsymtb.h"

namespace prancheta::dxf {

constexpr const wchar_t* kCopyLayer = L"PRANCHETA_COPIA";
constexpr std::size_t kMostCopyBytes = 200;

/// Empty for a piece whose class says nothing of itself, or too much.
std::wstring copyTextOf(const AcDbEntity& piece);

struct PieceCopy {
    std::wstring className;
    std::wstring text;  ///< that the class reads
};
/// Nothing for any other text.
std::optional<PieceCopy> copyIn(std::wstring_view text);

/// The text of a block with such a copy, and what it says.
struct BlockCopy {
    AcDbObjectId text;
    PieceCopy copy;
};
/// Nothing for a space, and for a block that is erased.
std::optional<BlockCopy> copyOfBlock(const AcDbBlockTableRecord& block);

}  // namespace prancheta::dxf
