// SPDX-License-Identifier: MIT
// Command CORTARPECA: an end of a piece up to an edge, with the edge's angle.
#pragma once

namespace perfis {

inline constexpr const wchar_t* kCutCommand = L"CORTARPECA";
/// The form without a dialog, as drafting commands have it: the same.
inline constexpr const wchar_t* kCutCommandDash = L"-CORTARPECA";

/// Asks for a piece, picked near the end that is cut, for the edge, and for the gap. A piece that
/// was selected before is cut at the end that is nearer to the edge. No exception leaves it.
void cutPeca();

}  // namespace perfis
