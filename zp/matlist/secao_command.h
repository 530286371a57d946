// SPDX-License-Identifier: MIT
// The commands TABELASECAO and DESENVOLVIMENTO: a piece's section as a table, its strip as a blank.
#pragma once

namespace zp::matlist {

/// A table of the section's properties with the section beside it, as large as there is room, its
/// axes through the centroid and, where it is defined, its shear centre (CT).
void secaoTableCommand();

/// The flat strip of one single shape of a piece, at its size, with its bend lines: in the drawing,
/// in a DXF file of its own, or both.
void blankCommand();

}  // namespace zp::matlist
