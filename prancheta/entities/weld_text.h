// SPDX-License-Identifier: MIT
// A weld as one line of text, such as "filete 6 60-150 ambos campo".
#pragma once

#include <string>

namespace prancheta {

enum class WeldKind { Fillet, Square, V, U, J, Bevel };
enum class WeldSide { Arrow, Other, Both };

/// What the symbol says. Texts are as they were typed, so that a size may be "6" or "1/4\"".
struct Weld {
    WeldKind kind = WeldKind::Fillet;
    WeldSide side = WeldSide::Arrow;
    std::wstring size;    ///< leg of a fillet, depth of a groove; may be empty
    std::wstring angle;   ///< of a groove, degrees; may be empty
    std::wstring length;  ///< "60" or "60-150"; may be empty
    std::wstring tail;    ///< may be empty
    bool allRound = false;
    bool field = false;
};

/// Reads a line; words in any order behind the kind, which comes first. False, and what is not
/// understood and what would be in `why`.
bool readWeld(const std::wstring& line, Weld& weld, std::wstring& why);

}  // namespace prancheta
