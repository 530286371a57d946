// SPDX-License-Identifier: MIT
// MARCAS: marks and rows of the drawn pieces.
#pragma once

namespace zp::matlist {

void marcasCommand();

}  // namespace zp::matlist
