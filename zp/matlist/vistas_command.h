// SPDX-License-Identifier: MIT
// VISTAS: further views of a drawn member, in projection.
#pragma once

namespace zp::matlist {

void vistasCommand();

}  // namespace zp::matlist
