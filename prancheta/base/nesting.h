// SPDX-License-Identifier: MIT
// How deep things inside one another are followed.
#pragma once

namespace prancheta {

/// Levels that code which calls itself follows: blocks in blocks, dictionaries in dictionaries,
/// components of dialogs, files that include files. Far beyond what anybody draws or writes, and
/// little enough for the smallest stack that a thread is given.
inline constexpr int kDeepestNesting = 128;

}  // namespace prancheta
