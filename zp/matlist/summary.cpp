// SPDX-License-Identifier: MIT
// Rows of a material list by what is bought for them.
#include "zp/matlist/summary.h"

#include <map>
#include <utility>

#include "zp/matlist/columns.h"
#include "zp/matlist/lists.h"
#include "zp/objects/edit.h"
#include "zp/objects/secao/single.h"

namespace zp::matlist {
namespace {

/// Of a drawn piece of the row; 0 when it is bent from no strip or none is drawn.
double stripOf(const Linha& row) {
    for (const auto* drawn : {&row.pecas, &row.vistas})
        for (const AcDbObjectId& id : *drawn) {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() == nullptr) continue;
            const secao::Kind kind = edit::kindOf(*peca.object());
            return secao::tira(kind, secao::Secao(kind, edit::valuesOf(*peca.object())));
        }
    return 0.0;
}

}  // namespace

std::vector<Product> productsOf(const std::vector<Linha>& rows) {
    std::vector<Product> products;
    std::map<std::pair<std::wstring, std::wstring>, std::size_t> places;
    for (const Linha& row : rows) {
        if (erased(row)) continue;
        const secao::Single single = secao::singleOf(row.descricao, row.dimensoes);
        const std::wstring designation =
            single.count == 1 ? designationOf(row) : single.perfil + L" " + single.dimensoes;
        const auto [place, fresh] =
            places.try_emplace({designation, row.material}, products.size());
        if (fresh) products.push_back({designation, row.material, row.descricao != kPlate, {}});
        products[place->second].shares.push_back(
            {&row, static_cast<long long>(row.quantidade) * single.count});
    }
    return products;
}

std::vector<SummaryLine> summaryOf(const std::vector<Linha>& rows) {
    std::vector<SummaryLine> lines;
    for (const Product& product : productsOf(rows)) {
        SummaryLine line{.designation = product.designation, .material = product.material};
        line.bar = product.bar;
        for (const Share& share : product.shares) {
            line.pieces += share.pieces;
            line.metres += static_cast<double>(share.pieces) * share.row->comprimento / 1000.0;
            line.kg += share.row->pesoTotal;
            line.m2 += share.row->areaPintura;
            if (line.bar && line.strip == 0.0) line.strip = stripOf(*share.row);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace zp::matlist
