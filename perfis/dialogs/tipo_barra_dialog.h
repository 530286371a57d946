// SPDX-License-Identifier: MIT
// The small dialog in which the user says what structural role a bar plays.
#pragma once

namespace perfis {

/// Edits a bar type (0 plain bar, 1 to 9 as ZpObject::TipoBarra). It changes only when the dialog
/// is accepted. RTNORM, or the host's status when the dialog cannot be opened.
int editTipoBarra(int& tipoBarra);

}  // namespace perfis
