// SPDX-License-Identifier: MIT
// Report of pieces to any host that asks.
#pragma once

namespace zp::report {

/// Attaches the report to the class of all pieces, and takes it away again.
void install();
void uninstall();

}  // namespace zp::report
