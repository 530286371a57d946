// SPDX-License-Identifier: MIT
// Trimming, extending and breaking of pieces for any host.
#pragma once

namespace zp::lengths {

/// Attaches it to the class of all pieces, and takes it away again.
void install();
void uninstall();

}  // namespace zp::lengths
