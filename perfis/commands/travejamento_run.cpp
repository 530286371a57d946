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
#include "zp/objects/member.h"

namespace perfis {
namespace {

constexpr const wchar_t* kToggle = L"travejar";

class TravejamentoRun : public PerfilRun {
public:
    TravejamentoRun(const PerfilDescription& description, const ToggleTravejamento& travejamento)
        : PerfilRun(description), m_travejamento(travejamento) {}

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
    std::optional<Fault> fault() override;
    std::optional<Fault> lace(const PecaOrder& order) override;
    bool travejamentoSuits() override;
    ChapaLaying chapaLaying() override;
    void takePeca(const PecaValues& peca) override;
    LastPeca asLast() const override {
        LastPeca last = PerfilRun::asLast();
        last.chapas = m_chapas;
        last.spacing = m_spacing;
        return last;
    }
    void takeLast(const LastPeca& last) override {
        PerfilRun::takeLast(last);
        m_chapas = last.chapas;
        m_spacing = last.spacing;
    }
    bool laysAgain() const override { return m_asked; }

private:
    bool isBarra() { return !state().vistas.secaoOnly && state().vistas.comprimento > 0.0; }
    TravejamentoLimites limits();
    bool openTravejamento();
    LaidChapas layChapas(ZpObject& peca, const AcGePoint3d& point, ChapaSupply& supply);
    void onToggle(const ads_callback_packet& packet);

    const ToggleTravejamento& m_travejamento;
    TravejamentoParams m_chapas;  ///< A = 0: no lacing
    double m_spacing = 0.0;
    std::optional<PecaTravejamento> m_kept;  ///< of a piece that stands, until it is edited
    TravejamentoParams m_shown;              ///< of that piece, for whoever edits it
    bool m_asked = false;                    ///< the user touched the toggle
};

TravejamentoLimites TravejamentoRun::limits() {
    const VistasChoice& vistas = state().vistas;
    TravejamentoLimites limits;
    limits.somenteAltura = vistas.secaoOnly ? 1 : 0;
    limits.pickngo = vistas.pickAndGo ? 1 : 0;
    limits.comp = vistas.comprimento;
    limits.maxA = m_travejamento.maxAltura(state().medidas);
    return limits;
}

/// False when the dialog was left without lacing.
bool TravejamentoRun::openTravejamento() {
    const VistasChoice& vistas = state().vistas;
    TravejamentoParams params = m_shown;
    if (params.A == 0.0) CalcPartes(params, vistas.comprimento, m_spacing);
    if (EditTravejamento(params, limits()) == 0 || params.A == 0.0) return false;
    m_chapas = params;
    m_kept.reset();
    (void)CalcEspacamento(m_chapas, vistas.comprimento, m_spacing);
    return true;
}

void TravejamentoRun::onToggle(const ads_callback_packet& packet) {
    m_chapas = {};
    m_spacing = 0.0;
    m_kept.reset();
    m_asked = true;
    readMedidas(packet.dialog);
    if (texts::toInt(packet.value) == 0 || openTravejamento()) return;
    m_spacing = 0.0;
    setToggle(packet.dialog, kToggle, false);
}

LaidChapas TravejamentoRun::layChapas(ZpObject& peca, const AcGePoint3d& point,
                                      ChapaSupply& supply) {
    const Medidas& medidas = state().medidas;
    ChapaMaker maker(peca, {m_chapas.C, medidas.t, m_chapas.A}, supply);
    // The view of the piece, not of the dialog: an angle seen from the left is drawn as seen from
    // the right, after half a turn.
    const bool onEdge = peca.vista() == ZpObject::kVistaDireita;
    const bool turned = zp::edit::valuesOf(peca)[zp::secao::Role::Giro] != 0.0;
    const double row = m_travejamento.edgeRow(medidas);
    const double line = turned ? -row : row;
    const double half = m_chapas.A / 2.0;
    const zp::secao::Bounds body{-half, line - medidas.t / 2.0, half, line + medidas.t / 2.0};
    const ChapaRule rule = onEdge ? onEdgeSwapped(line, {body}) : flat(half, {body});
    const ChapaSpacing spacing{state().vistas.comprimento, m_spacing};
    zp::member::lace(peca, lacingFor(m_chapas.A, m_chapas.C, spacing, 0));
    LaidChapas chapas;
    chapas.add(maker.row(point, spacing, rule));
    return chapas;
}

void TravejamentoRun::takePeca(const PecaValues& peca) {
    PerfilRun::takePeca(peca);
    m_kept = travejamentoOf(peca);
    m_chapas = m_shown = m_kept->chapas;
}

std::optional<Fault> TravejamentoRun::lace(const PecaOrder& order) {
    const OrderedChapas& chapas = *order.chapas;
    if (!isBarra()) return Fault{L"Só a peça vista de lado leva chapas.", kToggle};
    if (order.plano) return Fault{L"Só as duas cantoneiras em cruz têm planos.", L"plano"};
    m_chapas = {chapas.A.value_or(0.0), chapas.C, chapas.n};
    if (m_chapas.A == 0.0) return Fault{L"Falta A, a altura das chapas.", L"altura"};
    m_spacing = chapas.spacing;
    if (m_spacing <= 0.0) (void)CalcEspacamento(m_chapas, state().vistas.comprimento, m_spacing);
    return travejamentoFault(m_chapas, limits());
}

std::optional<Fault> TravejamentoRun::fault() {
    std::optional<Fault> fault = PerfilRun::fault();
    if (fault || travejamentoSuits()) return fault;
    if (m_kept && state().vistas.comprimento < m_kept->comprimento)
        return Fault{tooManyParts(*m_kept, state().vistas.comprimento), kToggle};
    return Fault{kInvalidTravejamento, kToggle};
}

/// Section and length may have changed since the lacing was edited.
bool TravejamentoRun::travejamentoSuits() {
    if (m_chapas.A == 0.0 || !isBarra() || state().vistas.pickAndGo) return true;
    const double comprimento = state().vistas.comprimento;
    const double spacing = m_kept ? spacingFor(*m_kept, comprimento) : m_spacing;
    TravejamentoParams params = m_chapas;
    double fitted = spacing;
    CalcPartes(params, comprimento, fitted);
    return spacing > params.C && !travejamentoFault(params, limits()) &&
           rowHolds({comprimento, spacing}, params.C);
}

ChapaLaying TravejamentoRun::chapaLaying() {
    if (m_chapas.A <= 0.0 || !isBarra()) return nullptr;
    if (m_kept) m_spacing = spacingFor(*m_kept, state().vistas.comprimento);
    return [this](ZpObject& peca, const AcGePoint3d& point, ChapaSupply& supply) {
        return layChapas(peca, point, supply);
    };
}

}  // namespace

std::unique_ptr<PerfilRun> makeTravejado(const PerfilDescription& description,
                                         const ToggleTravejamento& travejamento) {
    return std::make_unique<TravejamentoRun>(description, travejamento);
}

}  // namespace perfis
