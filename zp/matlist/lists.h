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
    std::wstring columns;  ///< keys of the chosen columns, commas between; empty: the usual ones
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

/// A row's record and its number, which grows from row to row.
struct RowRecord {
    int number = 0;
    AcDbObjectId id;
};
/// What stands in the drawing, in the order of the numbers.
std::vector<RowRecord> storedRecords(AcDbObjectId list);
std::optional<Linha> storedRow(AcDbObjectId record);
/// The same of what others know it by, alone.
struct RowNames {
    std::wstring marca;
    std::vector<AcDbSoftPointerId> ids;
};
std::optional<RowNames> storedNames(AcDbObjectId record);
/// A new row at the end of the list: its record, null when it cannot be written.
AcDbObjectId add(AcDbObjectId list, const Linha& row);
bool rewrite(AcDbObjectId record, const Linha& row);

/// A row as its drawn pieces make it at this moment; what the drawing holds of it where it has
/// none.
std::optional<Linha> rowAt(AcDbObjectId record);
/// All rows of a list, in the order in which they were added.
std::vector<Linha> rows(AcDbObjectId list);
bool hasNoRows(AcDbObjectId list);

/// True for a row that no longer counts: what it stands for was erased.
bool erased(const Linha& row);
/// Takes the rows that no longer count out of the list, and the marks that they leave; how many.
int removeErased(AcDbObjectId list);
/// The row's remark; says also that what it stands for was erased.
std::wstring observacaoOf(const Linha& row);

}  // namespace zp::matlist
