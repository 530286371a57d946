// SPDX-License-Identifier: MIT
// Report of pieces to any host that asks.
#pragma once

namespace zp::relatorio {

/// Attaches the report to the class of all pieces, and takes it away again.
void instala();
void retira();

}  // namespace zp::relatorio
