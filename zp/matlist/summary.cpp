// SPDX-License-Identifier: MIT
// Rows of a material list by what is bought for them.
#include "zp/matlist/summary.h"

#include <map>
#include <utility>

#include "zp/matlist/columns.h"
#include "zp/matlist/lists.h"
#include "zp/objects/secao/single.h"
#include "zp/objects/strip_rules.h"

namespace zp::matlist {
namespace {

/// Text and sizes of the row's single shape.
std::wstring sizesOf(const Linha& row) {
    const secao::Single single = secao::singleOf(row.descricao, row.dimensoes);
    return secao::designacaoText(single.perfil, single.dimensoes, {});
}

}  // namespace

std::optional<double> stripOf(const Linha& row) {
    for (const auto* drawn : {&row.pecas, &row.vistas})
        for (const AcDbObjectId& id : *drawn) {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() == nullptr) continue;
            const std::optional<secao::Strip> strip = zp::stripOf(*peca.object());
            return strip ? std::optional(strip->width) : std::nullopt;
        }
    return {};
}

std::vector<Product> productsOf(const std::vector<Linha>& rows) {
    // Rows of before their size had a name belong to those that have it.
    std::map<std::wstring, std::wstring> names;
    for (const Linha& row : rows)
        if (!row.nome.empty()) names.try_emplace(sizesOf(row), row.nome);
    std::vector<Product> products;
    std::map<std::pair<std::wstring, std::wstring>, std::size_t> places;
    for (const Linha& row : rows) {
        if (erased(row)) continue;
        const std::wstring sizes = sizesOf(row);
        const auto named = names.find(sizes);
        const std::wstring& older = named != names.end() ? named->second : sizes;
        const std::wstring& designation = row.nome.empty() ? older : row.nome;
        const auto [place, fresh] =
            places.try_emplace({designation, row.material}, products.size());
        if (fresh)
            products.push_back({designation, sizes, row.material, row.descricao != kPlate, {}});
        const int singles = secao::singleOf(row.descricao, row.dimensoes).count;
        products[place->second].shares.push_back(
            {&row, static_cast<long long>(row.quantidade) * singles});
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
            if (line.bar && line.strip == 0.0) line.strip = stripOf(*share.row).value_or(0.0);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace zp::matlist
