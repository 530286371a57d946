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

class LacedRun : public ProfileRun {
public:
    LacedRun(const ProfileDescription& description, const ToggleLacing& lacing)
        : ProfileRun(description), m_lacing(lacing) {}

protected:
    void wireOwnTiles(ads_hdlg dialog) override {
        wireTile(dialog, {kToggle, dialogCallback<LacedRun, &LacedRun::onToggle>}, this);
    }
    void showOwnTiles(ads_hdlg dialog) override { setToggle(dialog, kToggle, m_plates.A > 0.0); }
    void refresh(ads_hdlg dialog) override {
        ProfileRun::refresh(dialog);
        enableTile(dialog, kToggle, wrongTile() == nullptr && isMember());
    }
    std::optional<Fault> acceptFault(ads_hdlg dialog) override;
    bool lacingSuits() override;
    PlateLaying plateLaying() override;
    void takePiece(const PieceValues& piece) override;

private:
    bool isMember() { return !state().views.sectionOnly && state().views.length > 0.0; }
    TravejamentoLimites limits();
    bool editLacing();
    LaidPlates layPlates(ZpObject& piece, const AcGePoint3d& point, PlateSupply& supply);
    void onToggle(const ads_callback_packet& packet);

    const ToggleLacing& m_lacing;
    TravejamentoParams m_plates;  ///< A = 0: no lacing
    double m_spacing = 0.0;
    std::optional<PieceLacing> m_kept;  ///< of a piece that stands, until it is edited
};

TravejamentoLimites LacedRun::limits() {
    const ViewsChoice& views = state().views;
    TravejamentoLimites limites;
    limites.somenteAltura = views.sectionOnly ? 1 : 0;
    limites.pickngo = views.pickAndGo ? 1 : 0;
    limites.comp = views.length;
    limites.maxA = m_lacing.maxHeight(state().medidas);
    return limites;
}

/// False when the dialog was left without lacing.
bool LacedRun::editLacing() {
    const ViewsChoice& views = state().views;
    TravejamentoParams params;
    CalcPartes(params, views.length, m_spacing);
    if (EditTravejamento(params, limits()) == 0 || params.A == 0.0) return false;
    m_plates = params;
    m_kept.reset();
    (void)CalcEspacamento(m_plates, views.length, m_spacing);
    return true;
}

void LacedRun::onToggle(const ads_callback_packet& packet) {
    m_plates = {};
    m_spacing = 0.0;
    m_kept.reset();
    readMedidas(packet.dialog);
    if (texts::toInt(packet.value) == 0 || editLacing()) return;
    m_spacing = 0.0;
    setToggle(packet.dialog, kToggle, false);
}

LaidPlates LacedRun::layPlates(ZpObject& piece, const AcGePoint3d& point, PlateSupply& supply) {
    const Medidas& medidas = state().medidas;
    PlateMaker maker(piece, {m_plates.C, medidas.t, m_plates.A}, supply);
    // The view of the piece, not of the dialog: an angle seen from the left is drawn as seen from
    // the right, after half a turn.
    const bool onEdge = piece.vista() == ZpObject::kVistaDireita;
    const bool turned = zp::edicao::valoresDe(piece)[zp::secao::Papel::Giro] != 0.0;
    const double line = m_lacing.edgeRow(medidas);
    const PlateRule rule = onEdge ? onEdgeSwapped(turned ? -line : line) : flat(m_plates.A / 2.0);
    LaidPlates plates;
    plates.ids = maker.row(point, {state().views.length, m_spacing}, rule);
    plates.rows.push_back({plates.ids[1], static_cast<int>(plates.ids.size()), {}});
    return plates;
}

void LacedRun::takePiece(const PieceValues& piece) {
    ProfileRun::takePiece(piece);
    m_kept = lacingOf(piece);
    m_plates = m_kept->plates;
}

std::optional<Fault> LacedRun::acceptFault(ads_hdlg dialog) {
    std::optional<Fault> fault = ProfileRun::acceptFault(dialog);
    if (fault || lacingSuits()) return fault;
    return Fault{kInvalidLacing, kToggle};
}

/// Section and length may have changed since the lacing was edited.
bool LacedRun::lacingSuits() {
    if (m_plates.A == 0.0 || !isMember() || state().views.pickAndGo) return true;
    const double length = state().views.length;
    const double spacing = m_kept ? spacingFor(*m_kept, length) : m_spacing;
    TravejamentoParams params = m_plates;
    double fitted = spacing;
    CalcPartes(params, length, fitted);
    return spacing > params.C && !falhaDoTravejamento(params, limits()) &&
           rowHolds({length, spacing}, params.C);
}

PlateLaying LacedRun::plateLaying() {
    if (m_plates.A <= 0.0 || !isMember()) return nullptr;
    if (m_kept) m_spacing = spacingFor(*m_kept, state().views.length);
    return [this](ZpObject& piece, const AcGePoint3d& point, PlateSupply& supply) {
        return layPlates(piece, point, supply);
    };
}

}  // namespace

std::unique_ptr<ProfileRun> makeLaced(const ProfileDescription& description,
                                      const ToggleLacing& lacing) {
    return std::make_unique<LacedRun>(description, lacing);
}

}  // namespace perfis
