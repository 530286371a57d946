// SPDX-License-Identifier: MIT
// Rows and marks of the material list that follow their pieces.
#pragma once

#include "dbid.h"

namespace zp::matlist {

/// From now on the row and the mark of a piece that is edited follow it: texts, length, masses,
/// areas, and the mark's tip where it stands on a corner of the picture.
void startFollowing();
void stopFollowing();

/// Record of the row that a mark, or the mark of a piece, belongs to; null when there is none.
/// While rows are only added none is read twice.
AcDbObjectId recordOf(AcDbObjectId marcaOrPeca);
/// Describes all rows of a list again by their pieces, which may have been stretched or scaled
/// since their rows were written. What cannot be written stays as it was.
void describeAgain(AcDbObjectId list);
/// To be called when a drawing goes away: its ids may come back as those of another one.
void forgetRows();

/// Number of pieces in the row of a piece; 0 when it is in no list.
int listedQuantidade(AcDbObjectId peca);
/// The row and the mark of `before` stand for `peca` from now on, so many times. False when there
/// is none.
bool changeListed(AcDbObjectId before, AcDbObjectId peca, int quantidade);
/// The mark stands for the piece from now on. False, and nothing changed, when either is null or
/// the mark cannot be changed.
bool tieMarca(AcDbObjectId marca, AcDbObjectId peca);
/// Erases the mark of a piece, which takes its row out of the count.
void removeListed(AcDbObjectId peca);

}  // namespace zp::matlist
