// SPDX-License-Identifier: MIT
// The toggle "travejar": turned on it asks for the lacing, turned off it forgets it.
#include "perfis/commands/travejamento_run.h"

#include <optional>

#include "perfis/commands/travejamento_values.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/dialogs/travejamento.h"
#include "perfis/output/chapas.h"
#include "texts/number.h"
#include "zp/objects/edit.h"

namespace perfis {
namespace {

constexpr const wchar_t* kToggle = L"travejar";

class TravejamentoRun : public PerfilRun {
public:
    TravejamentoRun(const PerfilDescription& description, const ToggleTravejamento& lacing)
        : PerfilRun(description), m_travejamento(lacing) {}

protected:
    void wireOwnTiles(ads_hdlg dialog) override {
        wireTile(dialog, {kToggle, dialogCallback<TravejamentoRun, &TravejamentoRun::onToggle>},
                 this);
    }
    void showOwnTiles(ads_hdlg dialog) override { setToggle(dialog, kToggle, m_chapas.A > 0.0); }
    void refresh(ads_hdlg dialog) override {
        PerfilRun::refresh(dialog);
        enableTile(dialog, kToggle, wrongTile() == nullptr && isBarra());
    }
    std::optional<Fault> acceptFault(ads_hdlg dialog) override;
    bool travejamentoSuits() override;
    ChapaLaying chapaLaying() override;
    void takePeca(const PecaValues& piece) override;

private:
    bool isBarra() { return !state().views.secaoOnly && state().views.length > 0.0; }
    TravejamentoLimites limits();
    bool openTravejamento();
    LaidChapas layChapas(ZpObject& piece, const AcGePoint3d& point, ChapaSupply& supply);
    void onToggle(const ads_callback_packet& packet);

    const ToggleTravejamento& m_travejamento;
    TravejamentoParams m_chapas;  ///< A = 0: no lacing
    double m_spacing = 0.0;
    std::optional<PecaTravejamento> m_kept;  ///< of a piece that stands, until it is edited
};

TravejamentoLimites TravejamentoRun::limits() {
    const VistasChoice& views = state().views;
    TravejamentoLimites limites;
    limites.somenteAltura = views.secaoOnly ? 1 : 0;
    limites.pickngo = views.pickAndGo ? 1 : 0;
    limites.comp = views.length;
    limites.maxA = m_travejamento.maxAltura(state().medidas);
    return limites;
}

/// False when the dialog was left without lacing.
bool TravejamentoRun::openTravejamento() {
    const VistasChoice& views = state().views;
    TravejamentoParams params;
    CalcPartes(params, views.length, m_spacing);
    if (EditTravejamento(params, limits()) == 0 || params.A == 0.0) return false;
    m_chapas = params;
    m_kept.reset();
    (void)CalcEspacamento(m_chapas, views.length, m_spacing);
    return true;
}

void TravejamentoRun::onToggle(const ads_callback_packet& packet) {
    m_chapas = {};
    m_spacing = 0.0;
    m_kept.reset();
    readMedidas(packet.dialog);
    if (texts::toInt(packet.value) == 0 || openTravejamento()) return;
    m_spacing = 0.0;
    setToggle(packet.dialog, kToggle, false);
}

LaidChapas TravejamentoRun::layChapas(ZpObject& piece, const AcGePoint3d& point,
                                      ChapaSupply& supply) {
    const Medidas& medidas = state().medidas;
    ChapaMaker maker(piece, {m_chapas.C, medidas.t, m_chapas.A}, supply);
    // The view of the piece, not of the dialog: an angle seen from the left is drawn as seen from
    // the right, after half a turn.
    const bool onEdge = piece.vista() == ZpObject::kVistaDireita;
    const bool turned = zp::edicao::valoresDe(piece)[zp::secao::Papel::Giro] != 0.0;
    const double line = m_travejamento.edgeRow(medidas);
    const ChapaRule rule = onEdge ? onEdgeSwapped(turned ? -line : line) : flat(m_chapas.A / 2.0);
    LaidChapas plates;
    plates.ids = maker.row(point, {state().views.length, m_spacing}, rule);
    plates.rows.push_back({plates.ids[1], static_cast<int>(plates.ids.size()), {}});
    return plates;
}

void TravejamentoRun::takePeca(const PecaValues& piece) {
    PerfilRun::takePeca(piece);
    m_kept = travejamentoOf(piece);
    m_chapas = m_kept->plates;
}

std::optional<Fault> TravejamentoRun::acceptFault(ads_hdlg dialog) {
    std::optional<Fault> fault = PerfilRun::acceptFault(dialog);
    if (fault || travejamentoSuits()) return fault;
    return Fault{kInvalidTravejamento, kToggle};
}

/// Section and length may have changed since the lacing was edited.
bool TravejamentoRun::travejamentoSuits() {
    if (m_chapas.A == 0.0 || !isBarra() || state().views.pickAndGo) return true;
    const double length = state().views.length;
    const double spacing = m_kept ? spacingFor(*m_kept, length) : m_spacing;
    TravejamentoParams params = m_chapas;
    double fitted = spacing;
    CalcPartes(params, length, fitted);
    return spacing > params.C && !travejamentoFault(params, limits()) &&
           rowHolds({length, spacing}, params.C);
}

ChapaLaying TravejamentoRun::chapaLaying() {
    if (m_chapas.A <= 0.0 || !isBarra()) return nullptr;
    if (m_kept) m_spacing = spacingFor(*m_kept, state().views.length);
    return [this](ZpObject& piece, const AcGePoint3d& point, ChapaSupply& supply) {
        return layChapas(piece, point, supply);
    };
}

}  // namespace

std::unique_ptr<PerfilRun> makeTravejado(const PerfilDescription& description,
                                         const ToggleTravejamento& lacing) {
    return std::make_unique<TravejamentoRun>(description, lacing);
}

}  // namespace perfis
