// SPDX-License-Identifier: MIT
// The flow of the built-up commands: lacing dialog, acceptance, generation with plates.
#include "perfis/commands/built_up_run.h"

#include <optional>

#include "perfis/commands/perfil_generator.h"
#include "perfis/commands/travejamento_values.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/dialogs/travejamento.h"
#include "texts/number.h"
#include "zp/objects/member.h"

namespace perfis {
namespace {

constexpr const wchar_t* kTravejamentoTile = L"travejar";
constexpr const wchar_t* kPlanesTile = L"plano";
constexpr const wchar_t* kPlaneNames[] = {L"Plano horizontal", L"Plano vertical", L"Os dois planos",
                                          kEndMark};

/// The opposite side of a member that looks the same from both.
int drawnSide(int vista) {
    if (vista == ZpObject::kVistaInferior) return ZpObject::kVistaSuperior;
    if (vista == ZpObject::kVistaEsquerda) return ZpObject::kVistaDireita;
    return vista;
}

class BuiltUpRun : public PerfilRun {
public:
    BuiltUpRun(const PerfilDescription& description, const BuiltUpRule& rule)
        : PerfilRun(description), m_rule(rule) {}

protected:
    void wireOwnTiles(ads_hdlg dialog) override;
    void showOwnTiles(ads_hdlg dialog) override;
    std::optional<Fault> fault() override;
    std::optional<Fault> lace(const PecaOrder& order) override;
    ChapaLaying chapaLaying() override;
    bool travejamentoSuits() override { return isTravejada() && chapaFits(); }
    void takePeca(const PecaValues& peca) override;
    LastPeca asLast() const override {
        LastPeca last = PerfilRun::asLast();
        last.chapas = {m_A, m_C};
        last.spacing = m_L1;
        last.planes = m_planes;
        return last;
    }
    void takeLast(const LastPeca& last) override {
        PerfilRun::takeLast(last);
        m_A = last.chapas.A;
        m_C = last.chapas.C;
        m_L1 = last.spacing;
        m_planes = last.planes;
    }
    bool laysAgain() const override { return m_asked; }
    bool reopensAfter(int status) const override {
        return status == kDialogReopen || status == kDialogReopenAtOnce;
    }

private:
    void onTravejamento(const ads_callback_packet& packet);
    void onPlanes(const ads_callback_packet& packet);
    TravejamentoLimites limits();
    void keepSpacing();
    bool isTravejada();
    bool chapaFits() { return m_A == 0.0 || m_A <= m_rule.maxAltura(state().medidas); }
    LaidChapas layChapas(ZpObject& peca, const AcGePoint3d& point, ChapaSupply& supply);

    const BuiltUpRule& m_rule;
    double m_A = 0.0;  ///< plate height; 0: no plates
    double m_C = 0.0;  ///< plate width along the member
    double m_L1 = 0.0;
    std::optional<PecaTravejamento> m_kept;  ///< of a piece that stands, until it is edited
    bool m_asked = false;                    ///< the user left the lacing dialog with OK
    TravejamentoPlanes m_planes = TravejamentoPlanes::kBoth;
};

void BuiltUpRun::wireOwnTiles(ads_hdlg dialog) {
    wireTile(dialog, {kTravejamentoTile, dialogCallback<BuiltUpRun, &BuiltUpRun::onTravejamento>},
             this);
    if (m_rule.choosesPlanes)
        wireTile(dialog, {kPlanesTile, dialogCallback<BuiltUpRun, &BuiltUpRun::onPlanes>}, this);
}

void BuiltUpRun::showOwnTiles(ads_hdlg dialog) {
    if (!m_rule.choosesPlanes) return;
    (void)fillFixedList(dialog, kPlanesTile, kPlaneNames);
    setTile(dialog, kPlanesTile, static_cast<int>(m_planes) - 1);
}

void BuiltUpRun::onPlanes(const ads_callback_packet& packet) {
    const int choice = texts::toInt(packet.value) + 1;
    if (choice >= static_cast<int>(TravejamentoPlanes::kHorizontal) &&
        choice <= static_cast<int>(TravejamentoPlanes::kBoth))
        m_planes = static_cast<TravejamentoPlanes>(choice);
}

TravejamentoLimites BuiltUpRun::limits() {
    const Medidas& medidas = state().medidas;
    const VistasChoice& vistas = state().vistas;
    TravejamentoLimites limits;
    limits.somenteAltura = vistas.secaoOnly ? 1 : 0;
    limits.pickngo = vistas.pickAndGo ? 1 : 0;
    limits.alturaEditavel = m_rule.chapaAltura == ChapaAltura::kUser ? 1 : 0;
    limits.comp = vistas.comprimento;
    limits.minA = m_rule.minAltura(medidas);
    limits.maxA = m_rule.maxAltura(medidas);
    return limits;
}

std::optional<Fault> BuiltUpRun::lace(const PecaOrder& order) {
    const bool userAltura = m_rule.chapaAltura == ChapaAltura::kUser;
    const double given = state().medidas.a;
    const OrderedChapas& chapas = *order.chapas;
    if (userAltura && !chapas.A) return Fault{L"Falta A, a altura das chapas.", L"altura"};
    if (!userAltura && chapas.A && *chapas.A != given)
        return Fault{L"A deve ser igual a " + texts::withPoint(given, 2), L"altura"};
    const TravejamentoParams params{chapas.A.value_or(given), chapas.C, chapas.n};
    if (std::optional<Fault> fault = travejamentoFault(params, limits())) return fault;
    m_A = params.A;
    m_C = params.C;
    m_L1 = chapas.spacing;
    if (m_L1 <= 0.0) (void)CalcEspacamento(params, state().vistas.comprimento, m_L1);
    if (!order.plano) return {};
    if (!m_rule.choosesPlanes || *order.plano < 0 || *order.plano > 2)
        return Fault{L"Só as duas cantoneiras em cruz têm planos: 0, 1 ou 2.", L"plano"};
    m_planes = static_cast<TravejamentoPlanes>(*order.plano + 1);
    return {};
}

void BuiltUpRun::onTravejamento(const ads_callback_packet& packet) {
    readMedidas(packet.dialog);
    keepSpacing();
    const Medidas& medidas = state().medidas;
    const VistasChoice& vistas = state().vistas;
    const bool userAltura = m_rule.chapaAltura == ChapaAltura::kUser;
    TravejamentoParams params;
    params.A = userAltura ? m_A : medidas.a;
    params.C = m_C;
    // The stored spacing is made to fit the length even when the dialog is then left by Cancel.
    if (m_kept)
        params.n = m_kept->chapas.n;
    else
        CalcPartes(params, vistas.comprimento, m_L1);
    if (EditTravejamento(params, limits()) == 0) return;
    m_A = userAltura ? params.A : medidas.a;
    m_C = params.C;
    m_kept.reset();
    m_asked = true;
    (void)CalcEspacamento(params, vistas.comprimento, m_L1);
}

void BuiltUpRun::keepSpacing() {
    if (m_kept) m_L1 = spacingFor(*m_kept, state().vistas.comprimento);
}

bool BuiltUpRun::isTravejada() {
    const Medidas& medidas = state().medidas;
    // Pieces that touch have no width told.
    const bool fromLargura = m_rule.clearance == Clearance::kLargura && medidas.a != 0.0;
    TravejamentoTest test;
    test.space = fromLargura ? medidas.a - 2.0 * medidas.b : medidas.a;
    test.minAltura = m_rule.minAltura(medidas);
    test.secaoOnly = state().vistas.secaoOnly;
    if (state().vistas.pickAndGo) return true;
    if (!travejamentoHolds(m_A, m_C, m_L1, test)) return false;
    // The spacing was made for the length that the member had then.
    return test.secaoOnly || m_A <= 0.0 || rowHolds({state().vistas.comprimento, m_L1}, m_C);
}

std::optional<Fault> BuiltUpRun::fault() {
    keepSpacing();
    if (lacksComprimento()) return kLacksComprimento;
    if (!isTravejada()) {
        const double comprimento = state().vistas.comprimento;
        if (m_kept && !state().vistas.secaoOnly && comprimento < m_kept->comprimento)
            return Fault{tooManyParts(*m_kept, comprimento), kTravejamentoTile};
        const bool noRoom = description().wrong(state().medidas) == &Medidas::a;
        return Fault{kInvalidTravejamento, noRoom ? L"a" : kTravejamentoTile};
    }
    if (const wchar_t* const tile = wrongTile()) return Fault{kInvalidSecao, tile};
    if (!chapaFits()) return Fault{kInvalidSecao, kTravejamentoTile};
    return {};
}

LaidChapas BuiltUpRun::layChapas(ZpObject& peca, const AcGePoint3d& point, ChapaSupply& supply) {
    const ChapaSpacing spacing{state().vistas.comprimento, m_L1};
    const int planes = m_rule.choosesPlanes ? static_cast<int>(m_planes) : 0;
    zp::member::lace(peca, lacingFor(m_A, m_C, spacing, planes));
    ZpObject::ZpVistas vista = chosenVista(state().vistas);
    if (m_rule.sides == SidesDrawn::kAboveAndRight)
        vista = static_cast<ZpObject::ZpVistas>(drawnSide(vista));
    return m_rule.layChapas(
        {peca, point, vista, state().medidas, m_C, m_A, spacing, m_planes, supply});
}

void BuiltUpRun::takePeca(const PecaValues& peca) {
    PerfilRun::takePeca(peca);
    const PecaTravejamento travejamento = travejamentoOf(peca);
    if (travejamento.chapas.A <= 0.0) return;
    m_A = m_rule.chapaAltura == ChapaAltura::kClearance ? state().medidas.a : travejamento.chapas.A;
    m_C = travejamento.chapas.C;
    m_planes = travejamento.planes;
    // The plates of a section do not tell how they are spread.
    if (m_C > 0.0 && travejamento.chapas.n > 0) m_kept = travejamento;
    keepSpacing();
}

ChapaLaying BuiltUpRun::chapaLaying() {
    // A piece that is seen from below or from the left, as a further view, stays so.
    if (m_rule.sides == SidesDrawn::kAboveAndRight && state().vistas.vista != takenVista())
        state().vistas.vista = drawnSide(state().vistas.vista);
    if (m_A <= 0.0) return nullptr;
    return [this](ZpObject& peca, const AcGePoint3d& point, ChapaSupply& supply) {
        return layChapas(peca, point, supply);
    };
}

}  // namespace

std::unique_ptr<PerfilRun> makeBuiltUp(const PerfilDescription& description,
                                       const BuiltUpRule& rule) {
    return std::make_unique<BuiltUpRun>(description, rule);
}

bool travejamentoHolds(double A, double C, double L1, const TravejamentoTest& test) {
    const bool touching = test.space == 0.0;
    const bool spread = test.secaoOnly || (C > 0.0 && L1 > 3.0 * C);
    if (test.space > 0.0) return A > test.minAltura && spread;
    return touching && (test.secaoOnly || A == 0.0 || (A > 0.0 && spread));
}

}  // namespace perfis
