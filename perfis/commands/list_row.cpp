// SPDX-License-Identifier: MIT
// From the texts of a list to the numbers of a dialog.
#include "perfis/commands/list_row.h"

#include <algorithm>
#include <cmath>

#include "perfis/catalogues/trade_words.h"
#include "texts/number.h"
#include "zp/matlist/check.h"
#include "zp/objects/secao/secao.h"

namespace perfis {
namespace {

/// A number that the piece keeps and that is no distance.
bool tells(const PerfilDescription& description, Medida medida) {
    const auto value = std::ranges::find(description.values, medida, &RoleValue::medida);
    if (value == description.values.end()) return description.readBack != nullptr;
    return value->role != zp::secao::Role::Vao && value->role != zp::secao::Role::VaoV;
}

/// A box is also asked for by its outside; its width stands in the list where users choose it.
std::wstring outsideOfCaixa(const PerfilDescription& description, const Medidas& medidas) {
    const auto total =
        std::ranges::find(description.values, zp::secao::Role::Vao, &RoleValue::role);
    const double listed = total == description.values.end() ? 0.0 : medidas.*total->medida;
    return L"caixa " + texts::withComma(medidas.h) + L'x' +
           texts::withComma(std::max(2.0 * medidas.b, listed)) + L'x' + texts::withComma(medidas.t);
}

}  // namespace

Medidas medidasOf(const PerfilDescription& description, const ListRow& row) {
    Medidas medidas;
    std::size_t column = 0;
    const auto next = [&] {
        return column < row.fields.size() ? texts::toReal(row.fields[column++]) : 0.0;
    };
    for (const MedidaTile& tile : description.tiles)
        if (tile.rowUse == RowUse::kFills) medidas.*tile.value = next();
    medidas.m = next();
    return medidas;
}

bool isLike(const PerfilDescription& description, const ListRow& row, const Medidas& medidas) {
    const Medidas its = medidasOf(description, row);
    return std::ranges::all_of(description.tiles, [&](const MedidaTile& tile) {
        return tile.rowUse == RowUse::kNone ||
               std::abs(its.*tile.value - medidas.*tile.value) <= kSameSize;
    });
}

std::vector<Medida> tellingMedidas(const PerfilDescription& description) {
    std::vector<Medida> told;
    for (const MedidaTile& tile : description.tiles)
        if (tile.rowUse == RowUse::kFills && tells(description, tile.value))
            told.push_back(tile.value);
    return told;
}

std::wstring sizeName(const PerfilDescription& description, const Medidas& medidas, int source) {
    const PecaRequest request{.medidas = medidas, .comprimento = 1.0, .source = source};
    const std::unique_ptr<ZpObject> peca = makeAtPoint(description, AcGePoint3d::kOrigin, request);
    if (description.finish != nullptr) description.finish(*peca, request);
    return zp::matlist::sizeOf(*peca);
}

std::vector<std::wstring> writingsOf(const PerfilDescription& description, const ListRow& row,
                                     int source) {
    std::vector<std::wstring> writings{row.shown};
    if (row.empty()) return writings;
    std::wstring numbers;
    for (const std::wstring& field : row.fields) numbers += field + L' ';
    const Medidas medidas = medidasOf(description, row);
    // The name comes last: the numbers of the list are those of the tiles.
    writings.push_back(numbers);
    if (description.wrong(medidas) != nullptr) return writings;
    const std::wstring name = sizeName(description, medidas, source);
    writings.push_back(name);
    if (const auto making = makingIn(zp::secao::description(description.pecas.kind).name);
        !making.empty())
        writings.emplace_back(making);
    // Mills mark the wide ones of the series with an H; narrow ones have flanges below 0.67 h.
    constexpr double kWide = 0.7;
    if (name.starts_with(L"W ") && medidas.b >= kWide * medidas.h) writings.push_back(L"H");
    if (name.starts_with(L"2U") && name.find(L"[]") != std::wstring::npos)
        writings.push_back(outsideOfCaixa(description, medidas));
    return writings;
}

}  // namespace perfis
