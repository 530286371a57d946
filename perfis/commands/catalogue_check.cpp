// SPDX-License-Identifier: MIT
// Sizes of pieces against the rows of their commands' lists, each list read once a check.
#include "perfis/commands/catalogue_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>

#include "perfis/catalogues/rolled_sources.h"
#include "perfis/catalogues/welded_series.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/peca_editor.h"
#include "perfis/commands/peca_values.h"
#include "perfis/dialogs/installation.h"
#include "texts/number.h"
#include "zp/matlist/check.h"
#include "zp/objects/edit.h"

namespace perfis {
namespace {

/// Sizes nearer than this are one, mm: lists have two decimals, inches a third.
constexpr double kSameSize = 0.006;

/// A size of a catalogue: the dialog's numbers of its row, and the list that it stands in.
struct Size {
    Medidas medidas;
    int source = 0;
};

/// The sizes of one command, and by which numbers they are told apart: not by the distance of two
/// pieces, which every user chooses.
struct SizeList {
    std::vector<Medida> told;
    std::vector<Size> sizes;
};

/// A number that the piece keeps and that is no distance.
bool tells(const PerfilDescription& description, Medida medida) {
    const auto value = std::ranges::find(description.values, medida, &RoleValue::medida);
    if (value == description.values.end()) return description.readBack != nullptr;
    return value->role != Vao && value->role != VaoV;
}

/// Numbers of a row in the order of the tiles, the linear mass behind them.
Medidas medidasOfRow(const PerfilDescription& description, const std::vector<std::wstring>& fields,
                     bool withPeso) {
    Medidas medidas;
    std::size_t column = 0;
    const auto next = [&] {
        return column < fields.size() ? texts::toReal(fields[column++]) : 0.0;
    };
    for (const MedidaTile& tile : description.tiles)
        if (tile.rowUse == RowUse::kFills) medidas.*tile.value = next();
    if (withPeso) medidas.m = next();
    return medidas;
}

void readList(const PerfilDescription& description, const wchar_t* file, bool withPeso, int source,
              SizeList& list) {
    const auto path = listPath(installationFolder().value_or(L""), file);
    if (!path) return;
    const std::unique_ptr<Catalogue> catalogue = description.makeCatalogue();
    catalogue->read(*path);
    std::wstring row;
    for (int i = 0; i < catalogue->count(); ++i)
        if (catalogue->rowAt(i, row) && !row.empty())
            list.sizes.push_back({medidasOfRow(description, splitRow(row), withPeso), source});
}

void readRolled(SizeList& list) {
    for (int i = 0; i < kRolledSourceCount; ++i) {
        const auto path = listPath(installationFolder().value_or(L""), rolledSource(i).data);
        ZpStringList lines;
        if (!path || !readRolledLines(*path, lines)) continue;
        for (int line = 0; line < lines.length(); ++line) {
            const RolledSize size = rolledSize(rolledSource(i), lines.at(line));
            Medidas m;
            m.h = texts::toReal(size.H);
            m.b = texts::toReal(size.B);
            m.t = texts::toReal(size.tf);
            m.a = texts::toReal(size.tw);
            m.m = texts::toReal(size.mass);
            if (m.h > 0.0) list.sizes.push_back({m, i});
        }
    }
}

SizeList readSizes(const PerfilCommand& command) {
    const PerfilDescription& description = command.description;
    SizeList list;
    for (const MedidaTile& tile : description.tiles)
        if (tile.rowUse == RowUse::kFills && tells(description, tile.value))
            list.told.push_back(tile.value);
    if (&command == &pilaminado)
        readRolled(list);
    else if (&command == &pisoldado)
        for (int i = 0; i < kWeldedSourceCount; ++i)
            readList(description, weldedSource(i).values, true, i, list);
    else
        readList(description, description.list, description.pesoColumn, 0, list);
    return list;
}

/// Sum of the numbers' differences over their sizes; 0 for the same size.
double distance(const SizeList& list, const Medidas& a, const Medidas& b) {
    double sum = 0.0;
    for (const Medida medida : list.told) {
        const double difference = std::abs(a.*medida - b.*medida);
        if (difference > kSameSize)
            sum += difference / std::max(std::abs(a.*medida), std::abs(b.*medida));
    }
    return sum;
}

std::wstring wordsFor(const PerfilDescription& description, const Size& size) {
    const PecaRequest request{.medidas = size.medidas, .comprimento = 1.0, .source = size.source};
    const std::unique_ptr<ZpObject> peca = makeAtPoint(description, AcGePoint3d::kOrigin, request);
    if (description.finish != nullptr) description.finish(*peca, request);
    return zp::matlist::sizeOf(*peca);
}

class ListCatalogues : public zp::matlist::Catalogues {
public:
    std::optional<std::wstring> nearestTo(const ZpObject& peca) override {
        PecaValues values;
        values.kind = zp::edit::kindOf(peca);
        values.values = zp::edit::valuesOf(peca);
        const PerfilCommand* const command = commandOf(values);
        if (command == nullptr) return {};
        const PerfilDescription& description = command->description;
        const SizeList& list = sizesOf(*command);
        if (list.sizes.empty()) return {};  // a list that cannot be read says nothing
        const Medidas medidas = medidasOf(description, values.values);
        const auto [answer, fresh] = m_answers.try_emplace({command, sizeKey(list, medidas)});
        if (fresh) answer->second = search(description, list, medidas, zp::matlist::sizeOf(peca));
        return answer->second;
    }

private:
    using SizeKey = std::vector<double>;

    const SizeList& sizesOf(const PerfilCommand& command) {
        const auto [found, fresh] = m_lists.try_emplace(&command);
        if (fresh) found->second = readSizes(command);
        return found->second;
    }
    static SizeKey sizeKey(const SizeList& list, const Medidas& medidas) {
        SizeKey key;
        for (const Medida medida : list.told) key.push_back(medidas.*medida);
        return key;
    }
    static std::optional<std::wstring> search(const PerfilDescription& description,
                                              const SizeList& list, const Medidas& medidas,
                                              const std::wstring& words) {
        const Size* nearest = nullptr;
        double least = std::numeric_limits<double>::max();
        for (const Size& size : list.sizes) {
            const double away = distance(list, size.medidas, medidas);
            if (away >= least) continue;
            least = away;
            nearest = &size;
        }
        if (nearest == nullptr || least == 0.0) return {};
        Size named = *nearest;
        for (const MedidaTile& tile : description.tiles)
            if (std::ranges::find(list.told, tile.value) == list.told.end())
                named.medidas.*tile.value = medidas.*tile.value;
        const std::wstring found = wordsFor(description, named);
        return found != words ? found : found + numbersOf(list, *nearest);
    }
    /// " (h x b x ...)", for sizes that have one name and differ all the same.
    static std::wstring numbersOf(const SizeList& list, const Size& size) {
        std::wstring numbers;
        for (const Medida medida : list.told)
            numbers += (numbers.empty() ? L" (" : L"x") + texts::withComma(size.medidas.*medida);
        return numbers + L")";
    }

    std::map<const PerfilCommand*, SizeList> m_lists;
    std::map<std::pair<const PerfilCommand*, SizeKey>, std::optional<std::wstring>> m_answers;
};

}  // namespace

void installCatalogueCheck() {
    zp::matlist::setCatalogues([]() -> std::unique_ptr<zp::matlist::Catalogues> {
        return std::make_unique<ListCatalogues>();
    });
}

void removeCatalogueCheck() { zp::matlist::setCatalogues(nullptr); }

}  // namespace perfis
