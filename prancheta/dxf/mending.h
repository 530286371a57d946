// SPDX-License-Identifier: MIT
// The text of a damaged file as one that can be read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prancheta/dxf/document.h"

namespace prancheta::dxf {

/// The type of a record in the mended text, and where that stood in the damaged one.
struct MendedLine {
    int line;
    int former;
    std::size_t at;  ///< byte of the mended text where the record begins, with its group 0
};

struct Mended {
    std::string text;
    std::vector<Finding> losses;      ///< what was left out or added; lines of the damaged text
    std::vector<MendedLine> origins;  ///< ascending

    /// Line of the damaged text for one of the mended text; 0 stays 0.
    int formerLine(int line) const;
    /// Leaves out the record of a line of the mended text, too, and says why; false for a line that
    /// belongs to none.
    bool leaveOut(int line, const std::string& why);
};

/// Leaves out what makes no sense: garbage between groups, records with values that do not suit
/// their codes, parts and records out of place; adds what is missing about the rest: beginnings and
/// ends of sections, tables, blocks and sequences, the end of the file. What is whole stays as it
/// stands. O(text).
Mended mend(std::string_view text);

}  // namespace prancheta::dxf
