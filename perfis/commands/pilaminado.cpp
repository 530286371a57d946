// SPDX-License-Identifier: MIT
// Command perfilil: rolled I from one of three catalogues.
#include <array>

#include "perfis/catalogues/rolled_sources.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/i_secoes.h"
#include "perfis/commands/listed_sizes.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/dialogs/installation.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpvigas.h"
#include "texts/number.h"

namespace perfis {
namespace {

using zp::secao::Kind;
using zp::secao::RoleValues;
using enum zp::secao::Role;

constexpr const wchar_t* kInconsistent =
    L"Listas de favoritos inconsistentes. Contate o suporte.\n";

constexpr MedidaTile kTiles[] = {
    {L"h", &Medidas::h, L"0", RowUse::kFills, false},
    {L"b", &Medidas::b, L"0", RowUse::kFills, false},
    {L"t", &Medidas::t, L"0.00", RowUse::kFills, false},
    {L"a", &Medidas::a, L"0", RowUse::kFills, false},
};

/// mm2, in the factors in which the trade has it.
double areaOf(const Medidas& m) { return m.m * 100.0 * 1.271848; }

void addType(RoleValues& values, const PecaRequest& request) {
    values[Type] = rolledSource(request.source).secaoType;
}

ZpILaminadoUSA::ISolType typeOf(const RoleValues& v) {
    return static_cast<ZpILaminadoUSA::ISolType>(v[Type]);
}

/// The class takes its type as an enumeration among the numbers.
constexpr PecaClass kPecas{
    Kind::ILaminadoUSA,
    [](const AcGePoint3d& point, ZpObject::ZpVistas vista,
       const RoleValues& v) -> std::unique_ptr<ZpObject> {
        return std::make_unique<ZpILaminadoUSA>(point, vista, v[H], v[B1], v[Tw], v[Tf1], typeOf(v),
                                                0.0, 0.0, v[L], v[A], v[M]);
    },
    [](const AcGePoint3d& start, const AcGePoint3d& end, ZpObject::ZpVistas vista,
       const RoleValues& v) -> std::unique_ptr<ZpObject> {
        return std::make_unique<ZpILaminadoUSA>(start, end, vista, v[H], v[B1], v[Tw], v[Tf1],
                                                typeOf(v), 0.0, v[A], v[M]);
    }};

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},   {B1, &Medidas::b}, {Tw, &Medidas::a},
    {Tf1, &Medidas::t}, {A, areaOf},       {M, &Medidas::m},
};

const PerfilDescription kPerfilIL = {
    .dialog = L"vi_lam_geracao",
    .list = nullptr,
    .edits = CatalogueEdits::kNone,
    .slides = L"vi_lam",
    .figures = 4,
    .tiles = kTiles,
    .insertions = kBoxEdges<&Medidas::b>,
    .wrong = wrongHbta,
    .barraShift = boxBarraShift,
    .pecas = kPecas,
    .values = kValues,
    .complete = addType,
    .cotaSecao = cotaISecao,
    .insertionPrompt = kIInsertionPrompt,
    .pickAndGo = PickAndGo::kAsksBothEnds,
    .listsAtOwnPoint = true,
};

/// Each source keeps the index of its own selection.
class RolledRun : public PerfilRun {
public:
    RolledRun() : PerfilRun(kPerfilIL) {}

    int sourceCount() const override { return kRolledSourceCount; }

protected:
    void wireOwnTiles(ads_hdlg dialog) override;
    void showOwnTiles(ads_hdlg dialog) override;
    void loadList() override { (void)loadFiles(); }
    std::vector<ListRow> rows() override;
    void showList(ads_hdlg dialog) override;
    void fillList(ads_hdlg dialog) override { (void)perfis::fillList(dialog, L"lista", m_sizes); }
    void pickRow(ads_hdlg dialog, int index) override;
    bool loadsOnce() const override { return true; }
    void takePeca(const PecaValues& peca) override;
    void takeFirst(ads_hdlg dialog, const ListedSize& size) override {
        selected() = size.row;
        PerfilRun::takeFirst(dialog, size);
    }
    void takeLast(const LastPeca& last) override {
        PerfilRun::takeLast(last);
        selected() = kLikePeca;
    }
    bool listsFit(std::wstring_view folder) const override;

private:
    template <int Source>
    void onSource(const ads_callback_packet& packet) {
        if (Source == state().source) return;
        state().source = Source;
        listChanged(packet.dialog);
        showList(packet.dialog);
        followTyped(packet.dialog);
    }
    const RolledSource& source() { return rolledSource(state().source); }
    int& selected() { return m_selected.at(static_cast<std::size_t>(state().source)); }

    /// How far they could be read: what is missing leaves everything behind it as it was.
    enum class Loaded { kNothing, kSizes, kAll };
    Loaded loadFiles();
    int rowLike(const Medidas& medidas);

    /// The row is found once the list is there.
    static constexpr int kLikePeca = -2;
    static constexpr int kNoRow = ListedSize::kInNoList;
    std::array<int, kRolledSourceCount> m_selected{};
    ZpStringList m_sizes;  ///< of the source in force, as they are shown
    ZpStringList m_data;   ///< their numbers
};

void RolledRun::wireOwnTiles(ads_hdlg dialog) {
    static constexpr CLIENTFUNC kCallbacks[] = {
        dialogCallback<RolledRun, &RolledRun::onSource<0>>,
        dialogCallback<RolledRun, &RolledRun::onSource<1>>,
        dialogCallback<RolledRun, &RolledRun::onSource<2>>,
    };
    static_assert(std::size(kCallbacks) == kRolledSourceCount);
    for (int i = 0; i < kRolledSourceCount; ++i)
        wireTile(dialog, {rolledSource(i).radio, kCallbacks[i]}, this);
}

void RolledRun::showOwnTiles(ads_hdlg dialog) {
    for (const wchar_t* const button : {L"addtolist", L"substolist", L"deltolist"})
        enableTile(dialog, button, false);
    setTile(dialog, source().radio, 1);
}

bool RolledRun::listsFit(std::wstring_view folder) const {
    for (int i = 0; i < kRolledSourceCount; ++i)
        if (!listPath(folder, rolledSource(i).sizes) || !listPath(folder, rolledSource(i).data))
            return false;
    return PerfilRun::listsFit(folder);
}

/// The list of the piece's type; European and American ones have their own.
void RolledRun::takePeca(const PecaValues& peca) {
    PerfilRun::takePeca(peca);
    const auto type = static_cast<int>(peca.values[zp::secao::Role::Type]);
    for (int i = 0; i < kRolledSourceCount; ++i)
        if (rolledSource(i).secaoType == type) state().source = i;
    selected() = kLikePeca;
}

int RolledRun::rowLike(const Medidas& m) {
    for (int row = 0; row < m_data.length(); ++row) {
        const RolledSize size = rolledSize(source(), m_data.at(row));
        if (texts::toReal(size.H) == m.h && texts::toReal(size.B) == m.b &&
            texts::toReal(size.tf) == m.t && texts::toReal(size.tw) == m.a &&
            texts::toReal(size.mass) == m.m)
            return row;
    }
    return kNoRow;
}

RolledRun::Loaded RolledRun::loadFiles() {
    const std::wstring folder = installationFolder().value_or(L"");
    const auto sizesPath = listPath(folder, source().sizes);
    if (!sizesPath || !readRolledLines(*sizesPath, m_sizes)) return Loaded::kNothing;
    const auto dataPath = listPath(folder, source().data);
    return dataPath && readRolledLines(*dataPath, m_data) ? Loaded::kAll : Loaded::kSizes;
}

std::vector<ListRow> RolledRun::rows() {
    std::vector<ListRow> all;
    for (int row = 0; row < m_sizes.length(); ++row) {
        ListRow listed{m_sizes.at(row).str(), {}};
        if (row < m_data.length()) {
            const RolledSize size = rolledSize(source(), m_data.at(row));
            listed.fields = {size.H, size.B, size.tf, size.tw, size.mass};
        }
        all.push_back(std::move(listed));
    }
    return all;
}

void RolledRun::showList(ads_hdlg dialog) {
    const Loaded loaded = loadFiles();
    if (loaded == Loaded::kNothing) return;
    fillList(dialog);
    if (loaded == Loaded::kSizes) return;
    if (selected() == kLikePeca) selected() = rowLike(state().medidas);
    if (selected() >= 0) {
        markRow(dialog, selected());
        pickRow(dialog, selected());
    }
    setTile(dialog, L"vilam_dlg", source().title);
    setTile(dialog, L"list_title", source().header);
}

void RolledRun::pickRow(ads_hdlg dialog, int index) {
    rememberRow(index);
    selected() = index;
    if (index >= m_data.length()) {
        (void)acdbFail(kInconsistent);
        (void)ads_done_dialog(dialog, kDialogCancelled);
        return;
    }
    const RolledSize size = rolledSize(source(), m_data.at(index));
    setTile(dialog, L"h", size.H);
    setTile(dialog, L"b", size.B);
    setTile(dialog, L"t", size.tf);
    setTile(dialog, L"a", size.tw);
    state().medidas.m = texts::toReal(size.mass);
    notePicked(dialog);
}

}  // namespace

const PerfilCommand pilaminado{kPerfilIL, newRunOf<RolledRun>};

}  // namespace perfis
