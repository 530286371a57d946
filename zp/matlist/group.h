// SPDX-License-Identifier: MIT
// Marks for the pieces of a drawing: equal members under one, numbers in an order.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "dbapserv.h"
#include "zp/matlist/lists.h"

namespace zp::matlist {

/// What grouping changed.
struct Grouping {
    int unmarked = 0;  ///< pieces that had no row
    int before = 0;    ///< rows that the pieces had
    int after = 0;     ///< rows that they have
};
/// Equal members get one row and one mark, that with the lowest mark where there are several;
/// pieces without a row get one in `list`, and a drawn mark. Plates go with their bars. O(n log n).
Grouping groupPecas(const MaterialList& list, const std::vector<AcDbObjectId>& pecas);

/// Pieces of the drawing that may stand in a list: bars, in model space and in blocks; sections
/// where they are listed already.
std::vector<AcDbObjectId> barsOf(AcDbDatabase& drawing);

enum class Order { Place, Perfil, Comprimento };
/// How rows are numbered anew.
struct Numbering {
    int first = 1;
    Order order = Order::Place;
    bool twins = false;  ///< mirrored pieces stand in a row of their own, "V1E" beside "V1"
    /// Letters by what a piece is, in lower case: "banzo", "montante", "diagonal", "viga", "pilar",
    /// "terça", "chapa", or a profile's short name; what has none gets "P".
    std::map<std::wstring, std::wstring> letters;
};
/// Letters as the file marcas.ini of the installation says; the usual ones without it.
std::map<std::wstring, std::wstring> readLetters();
/// Rows of the list get new marks; how many changed.
int renumber(const MaterialList& list, const Numbering& numbering);

}  // namespace zp::matlist
