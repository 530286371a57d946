// SPDX-License-Identifier: MIT
// Report of marks and of the material list to any host that asks.
#pragma once

namespace zp::matlist {

void installReport();
void uninstallReport();

}  // namespace zp::matlist
