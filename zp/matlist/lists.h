// SPDX-License-Identifier: MIT
// Material lists as they are kept in a drawing: one dictionary per list, one record per row.
//
//     ZP_LISTAS_MATERIAL / "LISTA1" / "CABECALHO", "L1", "L2", ...
//
// A row of its own record makes adding cost the same however long the list is, and undo keep only
// that row.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dbidar.h"
#include "zp/matlist/zpmatlist.h"

class AcDbDatabase;

namespace zp::matlist {

struct Header {
    std::wstring group;
    AcGePoint3d point;                     ///< upper left corner of the table
    std::vector<AcDbSoftPointerId> table;  ///< entities of the drawn table
};

struct MaterialList {
    int number = 0;  ///< from 1
    AcDbObjectId id;
    Header header;
};

/// Lists of a drawing in the order of their numbers.
std::vector<MaterialList> materialLists(AcDbDatabase& drawing);
/// A new list with the lowest free number; nothing when the drawing cannot be written.
std::optional<MaterialList> newList(AcDbDatabase& drawing, const std::wstring& group);

std::optional<Header> readHeader(AcDbObjectId list);
bool writeHeader(AcDbObjectId list, const Header& header);
/// True when something of its drawn table is left.
bool hasTable(const Header& header);

/// Rows in the order in which they were added.
std::vector<Linha> rows(AcDbObjectId list);
bool hasNoRows(AcDbObjectId list);
bool add(AcDbObjectId list, const Linha& row);
/// A row's record and its number, which grows from row to row.
struct RowRecord {
    int number = 0;
    AcDbObjectId id;
};
std::vector<RowRecord> records(AcDbObjectId list);
/// Rows and whatever else the list's dictionary holds; no row is read for it.
std::size_t entryCount(AcDbObjectId list);
/// The record with this number; null when there is none.
AcDbObjectId recordNumbered(AcDbObjectId list, int number);
std::optional<Linha> rowAt(AcDbObjectId record);
bool rewrite(AcDbObjectId record, const Linha& row);
/// To be called when a drawing goes away: its ids may come back as those of another one.
void forget();

/// Lowest n for which no row has the mark "P<n>" and which is not among `given`.
int lowestFreeMarca(AcDbObjectId list, const std::vector<int>& given);

/// What became of what a row stands for.
enum class State {
    Alive,
    MarcaErased,  ///< all that it is tied to is erased
    PecaErased,   ///< a mark is left, but not its piece
};
State stateOf(const Linha& row);
/// True for a row that no longer counts.
bool erased(const Linha& row);
/// Takes the rows that no longer count out of the list, and the marks that they leave; how many.
int removeErased(AcDbObjectId list);
/// The row's remark; says also that what it stands for was erased.
std::wstring observacaoOf(const Linha& row);

}  // namespace zp::matlist
