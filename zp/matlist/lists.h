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

namespace zp::lista {

struct Header {
    std::wstring grupo;
    AcGePoint3d ponto;                      ///< upper left corner of the table
    std::vector<AcDbSoftPointerId> tabela;  ///< entities of the drawn table
};

struct Lista {
    int numero = 0;  ///< from 1
    AcDbObjectId id;
    Header header;
};

/// Lists of a drawing in the order of their numbers.
std::vector<Lista> listas(AcDbDatabase& desenho);
/// A new list with the lowest free number; nothing when the drawing cannot be written.
std::optional<Lista> nova(AcDbDatabase& desenho, const std::wstring& grupo);

std::optional<Header> readHeader(AcDbObjectId lista);
bool writeHeader(AcDbObjectId lista, const Header& header);
/// True when something of its drawn table is left.
bool hasTable(const Header& header);

/// Rows in the order in which they were added.
std::vector<Linha> linhas(AcDbObjectId lista);
bool hasNoRows(AcDbObjectId lista);
bool acrescenta(AcDbObjectId lista, const Linha& linha);
/// A row's record and its number, which grows from row to row.
struct RowRecord {
    int numero = 0;
    AcDbObjectId id;
};
std::vector<RowRecord> registros(AcDbObjectId lista);
/// Rows and whatever else the list's dictionary holds; no row is read for it.
std::size_t entryCount(AcDbObjectId lista);
/// The record with this number; null when there is none.
AcDbObjectId recordNumbered(AcDbObjectId lista, int numero);
std::optional<Linha> rowAt(AcDbObjectId registro);
bool rewrite(AcDbObjectId registro, const Linha& linha);
/// To be called when a drawing goes away: its ids may come back as those of another one.
void esquece();

/// Lowest n for which no row has the mark "P<n>" and which is not among `given`.
int lowestFreeMarca(AcDbObjectId lista, const std::vector<int>& given);

/// What became of what a row stands for.
enum class Estado {
    Alive,
    MarcaErased,  ///< all that it is tied to is erased
    PecaErased,   ///< a mark is left, but not its piece
};
Estado stateOf(const Linha& linha);
/// True for a row that no longer counts.
bool apagada(const Linha& linha);
/// Takes the rows that no longer count out of the list, and the marks that they leave; how many.
int removeErased(AcDbObjectId lista);
/// The row's remark; says also that what it stands for was erased.
std::wstring observacaoOf(const Linha& linha);

}  // namespace zp::lista
