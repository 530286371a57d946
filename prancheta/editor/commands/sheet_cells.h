// SPDX-License-Identifier: MIT
// The cells of a title block, as its upright lines make them.
#pragma once

#include <vector>

#include "dbents.h"
#include "prancheta/curves/curve.h"

namespace prancheta::commands {

class SheetCells {
public:
    /// O(entities of the block).
    explicit SheetCells(const AcDbBlockReference& title);
    /// Narrows a text in no drawing, which stands as a field of the title block does, so that it
    /// stays within its cell; false when it would have to be narrower than kNarrowest, which it has
    /// then. What is bounded on no side fits.
    bool fit(AcDbText& text) const;

    static constexpr double kNarrowest = 0.7;  ///< width factor

private:
    AcGeMatrix3d m_toBlock;
    std::vector<Segment> m_sides;  ///< upright lines, in the block's coordinates
};

}  // namespace prancheta::commands
