// SPDX-License-Identifier: MIT
// Property sheets of marks for any host that shows them.
#pragma once

namespace zp::matlist {

/// Attaches the sheets to the class of marks, and takes them away again.
void installSheets();
void uninstallSheets();

}  // namespace zp::matlist
