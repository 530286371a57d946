// SPDX-License-Identifier: MIT
// Sizes of pieces against the rows of their commands' lists, each list read once a check.
#include "perfis/commands/catalogue_check.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

#include "perfis/commands/listed_sizes.h"
#include "perfis/commands/peca_editor.h"
#include "perfis/commands/peca_values.h"
#include "texts/number.h"
#include "zp/matlist/check.h"
#include "zp/objects/edit.h"

namespace perfis {
namespace {

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

SizeList readSizes(const PerfilCommand& command) {
    SizeList list{tellingMedidas(command.description), {}};
    for (const ListedSize& size : listedSizes(command))
        list.sizes.push_back({medidasOf(command.description, size.text), size.source});
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
        const std::wstring found = sizeName(description, named.medidas, named.source);
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
