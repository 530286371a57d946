// SPDX-License-Identifier: MIT
// Rows of a material list by what is bought for them.
#include "zp/matlist/summary.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "texts/number.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/lists.h"
#include "zp/objects/published.h"
#include "zp/objects/secao/single.h"
#include "zp/objects/strip_rules.h"

namespace zp::matlist {
namespace {

/// Text and sizes of the row's single shape.
std::wstring sizesOf(const Linha& row) {
    const secao::Single single = secao::singleOf(row.descricao, row.dimensoes);
    return secao::designacaoText(single.perfil, single.dimensoes, {});
}

/// Which shape is bought, whatever it is called: "laminado 100x50x6"; empty where no table could
/// hold it, or nothing of the row is drawn.
std::wstring shapeOf(const Linha& row) {
    const auto size =
        ofDrawn(row, [](const ZpObject& peca) { return published::sizeOf(Access::of(peca)); });
    if (!size) return {};
    using enum tables::Family;
    constexpr std::array kRolled{W, Ipe, I, U, L};
    constexpr std::array kWelded{Vs, Cvs, Cs};
    const auto among = [&](const auto& families) {
        return std::ranges::find(families, size->family) != families.end();
    };
    std::wstring text = among(kRolled) ? L"laminado" : among(kWelded) ? L"soldado" : L"dobrado";
    for (std::size_t i = 0; i < size->v.size() && size->v[i] > 0.0; ++i)
        text += (i == 0 ? L" " : L"x") + texts::withComma(size->v[i]);
    return text;
}

struct Known {
    std::wstring name;
    std::wstring shape;
};

/// Shapes that share a name are told apart in it.
void tellApart(std::vector<Product>& products, const std::vector<std::wstring>& shapes) {
    std::map<std::wstring, std::set<std::wstring>> byName;
    for (std::size_t i = 0; i < products.size(); ++i)
        byName[products[i].designation].insert(shapes[i]);
    for (std::size_t i = 0; i < products.size(); ++i)
        if (byName[products[i].designation].size() > 1 && !shapes[i].empty())
            products[i].designation += L" (" + shapes[i] + L")";
}

}  // namespace

std::optional<double> stripOf(const Linha& row) {
    const auto strip = ofDrawn(row, [](const ZpObject& peca) { return zp::stripOf(peca); });
    return strip ? std::optional(strip->width) : std::nullopt;
}

std::vector<Product> productsOf(const std::vector<Linha>& rows) {
    // Rows of before their size had a name, or without a drawn piece, belong to those that have it.
    std::map<std::wstring, Known> known;
    std::vector<std::wstring> shapeOfRow;
    for (const Linha& row : rows) {
        shapeOfRow.push_back(shapeOf(row));
        Known& k = known[sizesOf(row)];
        if (k.name.empty()) k.name = row.nome;
        if (k.shape.empty()) k.shape = shapeOfRow.back();
    }
    std::vector<Product> products;
    std::vector<std::wstring> shapes;
    std::map<std::array<std::wstring, 3>, std::size_t> places;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Linha& row = rows[i];
        if (erased(row)) continue;
        const std::wstring sizes = sizesOf(row);
        const Known& k = known.at(sizes);
        const std::wstring& older = k.name.empty() ? sizes : k.name;
        const std::wstring& designation = row.nome.empty() ? older : row.nome;
        const std::wstring& shape = shapeOfRow[i].empty() ? k.shape : shapeOfRow[i];
        const auto [place, fresh] =
            places.try_emplace({designation, row.material, shape}, products.size());
        if (fresh) {
            products.push_back({designation, sizes, row.material, row.descricao != kPlate, {}});
            shapes.push_back(shape);
        }
        const int singles = secao::singleOf(row.descricao, row.dimensoes).count;
        products[place->second].shares.push_back(
            {&row, static_cast<long long>(row.quantidade) * singles});
    }
    tellApart(products, shapes);
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
