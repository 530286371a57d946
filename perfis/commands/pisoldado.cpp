// SPDX-License-Identifier: MIT
// Command vigai: welded I with equal flanges, from the user's favourites or a standard series.
#include "perfis/catalogues/welded_series.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/i_secoes.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/dialogs/installation.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpvigas.h"
#include "texts/number.h"

namespace perfis {
namespace {

constexpr MedidaTile kTiles[] = {
    {L"h", &Medidas::h, L"0"},
    {L"b", &Medidas::b, L"0"},
    {L"t", &Medidas::t, L"0.00"},
    {.key = L"a", .value = &Medidas::a, .initialText = L"0", .hasAction = false},
};

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {Bc, &Medidas::b}, {Bb, &Medidas::b},
    {Tw, &Medidas::a}, {Tc, &Medidas::t}, {M, &Medidas::m},
};

void setSeries(ZpObject& peca, const PecaRequest& request) {
    (void)static_cast<ZpISoldado&>(peca).setSubType(
        static_cast<ZpISoldado::SubType>(request.source));
}

const PerfilDescription kVigaI = {
    .dialog = L"vi_geracao",
    .list = L"vi.lst",
    .edits = CatalogueEdits::kWrittenBack,
    .buildRow = rowOfHbta,
    .slides = L"vi",
    .figures = 2,
    .tiles = kTiles,
    .insertions = kBoxEdges<&Medidas::b>,
    .wrong = wrongHbta,
    .barraShift = boxBarraShift,
    .pecas = kPecaClass<ZpISoldado, Kind::ISoldado>,
    .values = kValues,
    .cotaSecao = cotaISecao,
    .insertionPrompt = kIInsertionPrompt,
    .pickAndGo = PickAndGo::kAsksBothEnds,
    .listsAtOwnPoint = true,
    .finish = setSeries,
};

/// The state's source is the sub-type; only the favourites are edited and kept.
class WeldedRun : public PerfilRun {
public:
    WeldedRun() : PerfilRun(kVigaI) {}

    int sourceCount() const override { return kWeldedSourceCount; }

protected:
    void wireOwnTiles(ads_hdlg dialog) override;
    void showOwnTiles(ads_hdlg dialog) override;
    void refresh(ads_hdlg dialog) override;
    void loadList() override;
    std::vector<ListRow> rows() override;
    void showList(ads_hdlg dialog) override;
    void pickRow(ads_hdlg dialog, int index) override;
    /// The sizes of a series come from its list alone.
    const wchar_t* wrongTile() override {
        const wchar_t* const tile = PerfilRun::wrongTile();
        return tile == nullptr || showsFavourites() ? tile : L"lista";
    }
    bool listsFit(std::wstring_view folder) const override;
    void keepEdits(const std::wstring& path) override;
    void takePeca(const PecaValues& peca) override {
        PerfilRun::takePeca(peca);
        state().source = peca.series;
    }

private:
    template <int Source>
    void onSource(const ads_callback_packet& packet) {
        changeSource(packet.dialog, Source);
    }
    bool showsFavourites() { return state().source == kFavourites; }
    void changeSource(ads_hdlg dialog, int source);
    void takeValues(ads_hdlg dialog, const std::vector<std::wstring>& fields);

    std::vector<std::wstring> m_values;  ///< lines of the series' value file
};

void WeldedRun::wireOwnTiles(ads_hdlg dialog) {
    static constexpr CLIENTFUNC kCallbacks[] = {
        dialogCallback<WeldedRun, &WeldedRun::onSource<0>>,
        dialogCallback<WeldedRun, &WeldedRun::onSource<1>>,
        dialogCallback<WeldedRun, &WeldedRun::onSource<2>>,
        dialogCallback<WeldedRun, &WeldedRun::onSource<3>>,
    };
    static_assert(std::size(kCallbacks) == kWeldedSourceCount);
    for (int source = 0; source < kWeldedSourceCount; ++source)
        wireTile(dialog, {weldedSource(source).radio, kCallbacks[source]}, this);
}

void WeldedRun::showOwnTiles(ads_hdlg dialog) {
    const WeldedSource& source = weldedSource(state().source);
    setTile(dialog, source.radio, 1);
    setTile(dialog, L"vitxt", source.header);
}

void WeldedRun::refresh(ads_hdlg dialog) {
    for (const MedidaTile& tile : kTiles) enableTile(dialog, tile.key, showsFavourites());
    if (showsFavourites()) {
        PerfilRun::refresh(dialog);
        return;
    }
    readMedidas(dialog);
    for (const wchar_t* const button : {L"addtolist", L"substolist"})
        enableTile(dialog, button, false);
    enableRemove(dialog, false);
}

/// Also drops favourites that are not in the file yet.
void WeldedRun::loadList() {
    const WeldedSource& source = weldedSource(state().source);
    const std::wstring folder = installationFolder().value_or(L"");
    catalogue().clear();
    if (const auto path = listPath(folder, source.shown)) catalogue().read(*path);
    const auto values = listPath(folder, source.values);
    m_values = values && !showsFavourites() ? weldedRows(*values) : std::vector<std::wstring>();
}

std::vector<ListRow> WeldedRun::rows() {
    if (showsFavourites()) return PerfilRun::rows();
    std::vector<ListRow> all;
    for (std::wstring& shown : catalogue().rows()) {
        const std::size_t line = all.size();
        all.push_back({std::move(shown), line < m_values.size() ? splitRow(m_values[line])
                                                                : std::vector<std::wstring>()});
    }
    return all;
}

void WeldedRun::showList(ads_hdlg dialog) {
    loadList();
    fillList(dialog);
}

void WeldedRun::changeSource(ads_hdlg dialog, int source) {
    if (source == state().source) return;
    state().source = source;
    setTile(dialog, L"vitxt", weldedSource(source).header);
    if (showsFavourites()) {
        state().medidas.m = 0.0;
    } else {
        for (const MedidaTile& tile : kTiles) setTile(dialog, tile.key, std::wstring());
    }
    listChanged(dialog);
    showList(dialog);
    refresh(dialog);
    followTyped(dialog);
}

void WeldedRun::pickRow(ads_hdlg dialog, int index) {
    if (showsFavourites()) {
        PerfilRun::pickRow(dialog, index);
        return;
    }
    rememberRow(index);
    const std::wstring folder = installationFolder().value_or(L"");
    const auto path = listPath(folder, weldedSource(state().source).values);
    takeValues(dialog, path ? weldedValues(*path, index) : std::vector<std::wstring>());
    notePicked(dialog);
    refresh(dialog);
    showPreview(dialog);
}

void WeldedRun::takeValues(ads_hdlg dialog, const std::vector<std::wstring>& fields) {
    std::size_t column = 0;
    for (const MedidaTile& tile : kTiles) {
        setTile(dialog, tile.key, column < fields.size() ? fields[column] : std::wstring());
        ++column;
    }
    state().medidas.m = column < fields.size() ? texts::toReal(fields[column]) : 0.0;
}

bool WeldedRun::listsFit(std::wstring_view folder) const {
    for (int i = 0; i < kWeldedSourceCount; ++i)
        if (!listPath(folder, weldedSource(i).shown) || !listPath(folder, weldedSource(i).values))
            return false;
    return PerfilRun::listsFit(folder);
}

void WeldedRun::keepEdits(const std::wstring& path) {
    if (showsFavourites()) PerfilRun::keepEdits(path);
}

}  // namespace

const PerfilCommand pisoldado{kVigaI, newRunOf<WeldedRun>};

}  // namespace perfis
