// SPDX-License-Identifier: MIT
// Rows, marks and tables that follow the drawn pieces at the end of each command.
#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "dbapserv.h"
#include "zp/matlist/zpmatlist.h"

namespace zp::matlist {

/// From now on lists follow their pieces: a copy counts in its row, a piece that became another
/// member gets a row of its own or joins that of its equals, marks go with their pieces.
void startFollowing();
void stopFollowing();
/// To be called when a drawing goes away: its ids may come back as those of another one.
void forgetErased();
/// A drawing that came into an editor: lists of before pieces knew their rows are tied to them,
/// with a line that says what does not count.
void followFrom(AcDbDatabase* drawing);

/// After a command that changed rows itself, as Book::OwnWork: records and tables say what the
/// pieces make of them, tables also what was written to the row `record`.
void settle(AcDbDatabase& drawing);

/// Bars among what was selected, in their age; a plate or a mark stands for the bar that it belongs
/// to.
std::vector<AcDbObjectId> barsAmong(AcDbDatabase& drawing, const std::vector<AcDbObjectId>& ids);

/// A row of a list that has this mark; null when there is none.
AcDbObjectId rowOfMarca(AcDbDatabase& drawing, const std::wstring& marca);
/// A drawn bar of the row; null when it has none.
AcDbObjectId barIn(AcDbObjectId record);
/// A bar that was just entered joins another row, with its plates those of that row's bars, and
/// counts so often there; its own rows go.
void joinRow(AcDbObjectId peca, AcDbObjectId record, int count);

/// Another view of a drawn bar: it belongs to its row and does not count, its plates to the rows of
/// the other view's plates. Where the bar is in no list the view will not count either.
void enterVista(AcDbObjectId base, AcDbObjectId view);

/// Record of the row that a mark's piece, or a piece, belongs to; null when there is none.
AcDbObjectId recordOf(AcDbObjectId marcaOrPeca);
/// Mark of the row with this record; empty when there is none.
std::wstring marcaOf(AcDbObjectId record);
/// True when the piece belongs to a row.
bool isListed(AcDbObjectId peca);
bool isChapa(AcDbObjectId peca);
/// The bar of a plate; null when it has none.
AcDbObjectId barOf(AcDbObjectId chapa);
/// Seen along its bar a plate does not show all of its sizes.
bool chapaInSecao(AcDbObjectId chapa);
/// How many members the drawn piece counts for; 0 for a further view of one.
int countOf(AcDbObjectId peca);

/// The piece belongs to the row from now on and counts so often, its drawn marks say the row's.
/// False when it cannot be changed.
bool enterRow(AcDbObjectId peca, AcDbObjectId record, int count);
/// The same for all plates of one bar that are seen like this one; each counts as often as the bar.
bool enterChapas(AcDbObjectId chapa, AcDbObjectId record);
/// Row of equal plates of another bar in the same row as this plate's; null when there is none.
AcDbObjectId rowOfSiblings(AcDbObjectId chapa);
/// The rows whose pieces are gone, by what they say. They are read once, when the first one is
/// asked for: for one piece of work that leaves no others behind.
class OldRows {
public:
    /// One of the same list that says the same; null when there is none. O(rows) the first time.
    AcDbObjectId like(AcDbObjectId fresh);

private:
    /// List, descricao, dimensoes, material, comprimento.
    using Words = std::tuple<AcDbObjectId, std::wstring, std::wstring, std::wstring, double>;
    std::set<AcDbObjectId> m_lists;  ///< read
    std::map<Words, std::vector<AcDbObjectId>> m_records;
};
/// Plates that were laid again after all had been erased, and have a row of their own since, stand
/// in that of their list whose pieces are gone and which says the same, where there is one.
/// O(rows).
void takeOldRow(AcDbObjectId chapa);
/// Takes the piece out of its list; its marks are erased.
void leaveRow(AcDbObjectId peca);
/// A row that the program itself emptied goes; one whose pieces were erased stays.
void dropEmptied(AcDbObjectId record);
/// What a row says that its pieces do not, before it has a mark.
Linha freshRow(AcDbObjectId peca);
/// A row for this piece alone: like the one with record `from`, under the next free mark with the
/// same letters. Null when it cannot be written.
AcDbObjectId rowOfItsOwn(AcDbObjectId peca, AcDbObjectId from);

/// The row's pieces are of this steel. False when one of them cannot be changed.
bool changeGrade(AcDbObjectId record, const std::wstring& grade);

/// A mark stands for the piece from now on. False, and nothing changed, when either is null or the
/// mark cannot be changed.
bool tieMarca(AcDbObjectId marca, AcDbObjectId peca);
/// Row and drawn marks have this text from now on. False when something cannot be changed.
bool renameRow(AcDbObjectId record, const std::wstring& marca);

}  // namespace zp::matlist
