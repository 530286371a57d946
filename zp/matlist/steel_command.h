// SPDX-License-Identifier: MIT
// The command ACO: the steel of the drawing's pieces that have none of their own.
#pragma once

namespace zp::matlist {

void steelCommand();

}  // namespace zp::matlist
