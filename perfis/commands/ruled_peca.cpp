// SPDX-License-Identifier: MIT
// Pieces and plates as rules make them, and how the drawn ones differ.
#include "perfis/commands/ruled_peca.h"

#include <algorithm>
#include <cmath>

#include "perfis/commands/perfil_generator.h"
#include "zp/objects/edit.h"
#include "zp/objects/published.h"

namespace perfis {
namespace {

using zp::secao::Role;

/// Keeps the plates out of the drawing.
class KeptChapas : public ChapaSupply {
public:
    explicit KeptChapas(std::vector<std::unique_ptr<ZpChapa>>& chapas) : m_chapas(chapas) {}
    AcDbObjectId place(ZpObject&, std::unique_ptr<ZpChapa> chapa) override {
        m_chapas.push_back(std::move(chapa));
        return {};
    }

private:
    std::vector<std::unique_ptr<ZpChapa>>& m_chapas;
};

/// Plates nearer to one another than this stand in one place, mm.
constexpr double kSamePlace = 1e-4;

bool near(double a, double b) { return std::abs(a - b) <= kSamePlace; }

/// The picture of a plate of a rule, from the start of its piece.
zp::secao::Bounds pictureOf(const ZpChapa& chapa, const AcGePoint3d& start) {
    zp::secao::Bounds bounds;
    for (const AcGePoint3d& corner : zp::edit::facesOf(chapa).f)
        bounds.include(corner.x - start.x, corner.y - start.y);
    return bounds;
}

bool samePlace(const zp::secao::Bounds& a, const zp::secao::Bounds& b) {
    return near(a.x0, b.x0) && near(a.y0, b.y0) && near(a.x1, b.x1) && near(a.y1, b.y1);
}

/// The piece as the command makes it, at its start and along X.
std::unique_ptr<ZpObject> makeModel(const PerfilDescription& description, const RunState& state,
                                    const PecaValues& peca) {
    AcGePoint3d start = peca.start;
    const PecaRequest request = requestFor(state, chosenVista(state.vistas));
    const AcGePoint3d end = start + AcGeVector3d::kXAxis * state.vistas.comprimento;
    const bool between = peca.twoPoints && !state.vistas.secaoOnly;
    std::unique_ptr<ZpObject> model = between ? makeBetween(description, start, end, request)
                                              : makeAtPoint(description, start, request);
    // A figure of the dialog may show the body turned; one that was not chosen anew turns nothing.
    const bool sameVista = request.vista == peca.vista ||
                           (!state.vistas.secaoOnly &&
                            state.vistas.vista == figureOf(description, peca.vista, peca.giro));
    zp::secao::RoleValues values = zp::edit::valuesOf(*model);
    if (sameVista && !between &&
        (model->vista() != peca.vista || values[Role::Giro] != peca.giro)) {
        values[Role::Giro] = peca.giro;
        values[Role::L] = model->getComprimentoReal();
        const auto commercial = zp::Access::of(*model).commercial;
        model = description.pecas.atPoint(start, peca.vista, values);
        zp::published::keep(*model, commercial);
    }
    (void)model->settipoBarra(static_cast<ZpObject::TipoBarra>(state.tipoBarra));
    if (description.finish != nullptr) description.finish(*model, request);
    zp::Access::of(*model).cortes = peca.cortes;
    return model;
}

}  // namespace

RuledPeca ruledPeca(const PerfilDescription& description, const RunState& state,
                    const PecaValues& peca, const ChapaLaying& layChapas) {
    RuledPeca rule{state, makeModel(description, state, peca), {}, 0.0};
    KeptChapas supply(rule.chapas);
    if (layChapas) rule.pitch = layChapas(*rule.peca, peca.start, supply).pitch;
    return rule;
}

RuledPeca ruledPeca(const PerfilDescription& description, const RunState& state,
                    const ChapaLaying& layChapas) {
    RuledPeca rule{state, nullptr, {}, 0.0};
    NewPeca made = newPeca(description, rule.state, AcGePoint3d::kOrigin);
    rule.peca = std::move(made.peca);
    KeptChapas supply(rule.chapas);
    if (layChapas) rule.pitch = layChapas(*rule.peca, made.point, supply).pitch;
    return rule;
}

bool sameChapas(const RuledPeca& a, const RuledPeca& b) {
    return std::ranges::equal(a.chapas, b.chapas, [](const auto& x, const auto& y) {
        return x->vista() == y->vista() && near(x->getLargura(), y->getLargura()) &&
               near(x->getEspessura(), y->getEspessura()) &&
               near(x->getComprimentoReal(), y->getComprimentoReal()) &&
               samePlace(pictureOf(*x, AcGePoint3d::kOrigin), pictureOf(*y, AcGePoint3d::kOrigin));
    });
}

bool hasLockedChapa(const PecaValues& peca) {
    return std::ranges::any_of(
        peca.chapas, [](const ChapaValues& chapa) { return zp::edit::onLockedLayer(chapa.id); });
}

std::size_t movedChapas(const PecaValues& peca, const RuledPeca& before, const RuledPeca& after) {
    std::vector<zp::secao::Bounds> places;
    for (const RuledPeca* const rule : {&before, &after})
        for (const auto& chapa : rule->chapas) places.push_back(pictureOf(*chapa, peca.start));
    // Plates at the end go with it, in the size that they had.
    const double longer = after.peca->getComprimentoReal() - before.peca->getComprimentoReal();
    for (std::size_t i = 0, n = before.chapas.size(); i < n; ++i) {
        zp::secao::Bounds gone = places[i];
        gone.x0 += longer;
        gone.x1 += longer;
        places.push_back(gone);
    }
    std::ranges::sort(places, {}, &zp::secao::Bounds::x0);
    return static_cast<std::size_t>(
        std::ranges::count_if(peca.chapas, [&](const ChapaValues& chapa) {
            auto place = std::ranges::lower_bound(places, chapa.picture.x0 - kSamePlace, {},
                                                  &zp::secao::Bounds::x0);
            while (place != places.end() && place->x0 <= chapa.picture.x0 + kSamePlace &&
                   !samePlace(*place, chapa.picture))
                ++place;
            return place == places.end() || !samePlace(*place, chapa.picture);
        }));
}

}  // namespace perfis
