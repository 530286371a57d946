// SPDX-License-Identifier: MIT
// Pieces and marks that were made of their texts: rows, plates and marks as they were.
#pragma once

namespace zp::matlist {

/// Texts of marks, and what ties all that came of texts.
void installRevival();
void uninstallRevival();

}  // namespace zp::matlist
