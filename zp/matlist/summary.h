// SPDX-License-Identifier: MIT
// What the rows of a material list come to, by what is bought: each built-up member as its single
// shapes.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "perfis/entities/zpobject.h"
#include "zp/matlist/zpmatlist.h"

namespace zp::matlist {

/// What `of` says of the first piece of the row that is drawn.
template <class Of>
auto ofDrawn(const Linha& row, Of of) -> decltype(of(std::declval<const ZpObject&>())) {
    for (const auto* drawn : {&row.pecas, &row.vistas})
        for (const AcDbObjectId& id : *drawn) {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() != nullptr) return of(*peca.object());
        }
    return {};
}

/// In the description of a plate's row.
inline constexpr const wchar_t* kPlate = L"Chapa";

/// A row and how many single shapes its members come to.
struct Share {
    const Linha* row = nullptr;
    long long pieces = 0;
};
/// Rows of one designation, material and shape.
struct Product {
    std::wstring
        designation;     ///< of the single shape; with its sizes where two shapes share a name
    std::wstring sizes;  ///< the same by its text and sizes
    std::wstring material;
    bool bar = true;  ///< not a plate
    std::vector<Share> shares;
};
/// Rows that count, by product, in the order of the list. They point into `rows`.
std::vector<Product> productsOf(const std::vector<Linha>& rows);

/// Width of the strip that the row's single shape is bent from, mm; nothing when it is bent from
/// none, or no piece of the row is drawn.
std::optional<double> stripOf(const Linha& row);

struct SummaryLine {
    std::wstring designation;
    std::wstring material;
    long long pieces = 0;
    double metres = 0.0;
    double kg = 0.0;
    double m2 = 0.0;     ///< to be painted
    double strip = 0.0;  ///< width of the strip it is bent from, mm; 0: none
    bool bar = true;     ///< not a plate
};
/// One line a product, in the order of the list.
std::vector<SummaryLine> summaryOf(const std::vector<Linha>& rows);

}  // namespace zp::matlist
