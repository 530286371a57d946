// SPDX-License-Identifier: MIT
// Property sheets of pieces for any host that shows them.
#pragma once

namespace zp::sheets {

/// Attaches the sheets to the class of all pieces, and takes them away again.
void install();
void uninstall();

}  // namespace zp::sheets
