// SPDX-License-Identifier: MIT
// VISTAS: places further views in the first angle; they are views of the one member, whose row
// counts once.
#include "zp/matlist/vistas_command.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "protocol/answers.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

using Peca = AcDbObjectPointer<ZpObject>;
using Vista = ZpObject::ZpVistas;

/// In the first angle what is seen from above stands below, what is seen from below above; the back
/// follows below that.
constexpr std::array kFromTop{ZpObject::kVistaInferior, ZpObject::kVistaDireita,
                              ZpObject::kVistaSuperior, ZpObject::kVistaEsquerda};
/// Between two views, times the drawing scale: room for dimensions on both sides.
constexpr double kUsualDistance = 50.0;
constexpr double kMostDistance = 1e6;  ///< mm

struct VistaChoice {
    Option words;
    std::vector<Vista> vistas;
};

const std::array<VistaChoice, 6>& choices() {
    static const std::array<VistaChoice, 6> all{
        {{{L"sUperior", L"Top"}, {ZpObject::kVistaSuperior}},
         {{L"Inferior", L"Bottom"}, {ZpObject::kVistaInferior}},
         {{L"Direita", L"Right"}, {ZpObject::kVistaDireita}},
         {{L"Esquerda", L"Left"}, {ZpObject::kVistaEsquerda}},
         {{L"Seção", L"Section"}, {ZpObject::kVistaSecao}},
         {{L"Todas", L"All"},
          {ZpObject::kVistaInferior, ZpObject::kVistaDireita, ZpObject::kVistaSuperior,
           ZpObject::kVistaEsquerda, ZpObject::kVistaSecao}}}};
    return all;
}

/// Lower and upper edge of a longitudinal view, from the axis.
struct Reach {
    double lower = 0.0;
    double upper = 0.0;
};

Reach reachOf(const zp::Peca& p, Vista vista) {
    const secao::Vista& v = p.secao().vista(vista);
    return {v.wMin, v.wMax};
}

/// From the axis of the drawn view up to that of the other one, mm.
double climb(const zp::Peca& p, Vista from, Vista to, double distance) {
    const auto at = [](Vista v) { return std::ranges::find(kFromTop, v) - kFromTop.begin(); };
    double way = 0.0;
    const bool down = at(to) > at(from);
    for (auto i = at(from); i != at(to); i += down ? 1 : -1) {
        const auto next = static_cast<std::size_t>(i + (down ? 1 : -1));
        const Reach near = reachOf(p, kFromTop[static_cast<std::size_t>(i)]);
        const Reach far = reachOf(p, kFromTop[next]);
        way += down ? near.lower - distance - far.upper : near.upper + distance - far.lower;
    }
    return way;
}

/// Where the other view starts, in the frame of the drawn one, before mirroring.
AcGePoint3d placeOf(const zp::Peca& p, Vista to, double distance) {
    const auto from = static_cast<Vista>(p.vista);
    if (to != ZpObject::kVistaSecao) return {0.0, climb(p, from, to, distance), 0.0};
    // Seen from its start a member shows its section beyond its end.
    return {p.picture().x1 + distance - p.secao().bounds().x0, 0.0, 0.0};
}

/// From X at the origin into the frame of the drawn view.
AcGeMatrix3d intoFrame(const zp::Peca& p) {
    const Frame frame = p.frame();
    AcGeMatrix3d m;
    m.setCoordSystem(frame.origin, frame.x, frame.y, AcGeVector3d::kZAxis);
    return m;
}

AcDbObjectId draw(AcDbObjectId base, Vista vista, double distance, bool cotas) {
    AcGePoint3d start;
    AcGeMatrix3d place;
    {
        const Peca peca(base, AcDb::kForRead);
        const zp::Peca& p = Access::of(*peca.object());
        start = placeOf(p, vista, distance);
        place = intoFrame(p);
    }
    const edit::DrawnVista drawn = edit::vistaMaker()(base, vista, start, cotas);
    std::vector<AcDbObjectId> all = drawn.chapas;
    all.push_back(drawn.peca);
    all.insert(all.end(), drawn.cotas.begin(), drawn.cotas.end());
    for (const AcDbObjectId& id : all) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.object() != nullptr) (void)entity->transformBy(place);  // a motion is taken
    }
    return drawn.peca;
}

}  // namespace

void vistasCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    if (edit::vistaMaker() == nullptr) {
        protocol::fail(L"O módulo dos perfis não está carregado; carregue-o com o comando ARX.");
        return;
    }
    const AcDbObjectId base = askBar(*drawing);
    if (base.isNull()) return;
    Vista drawn = ZpObject::kVistaSecao;
    {
        const Peca peca(base, AcDb::kForRead);
        drawn = peca->vista();
    }
    if (drawn == ZpObject::kVistaSecao) {
        acutPrintf(L"\n%ls\n", kNoLength);
        return;
    }
    std::vector<Option> words;
    for (const VistaChoice& choice : choices()) words.push_back(choice.words);
    const std::optional<std::size_t> chosen = askOption(L"\nVista", words, words.size() - 1);
    if (!chosen) return;
    const std::optional<double> distance = askNumber(
        L"\nDistância entre as vistas", kUsualDistance * GetScale(), 0.0, kMostDistance, L"mm");
    if (!distance) return;
    const Answer cotas = confirm(L"\nDimensionar", Answer::No);
    if (cotas == Answer::GiveUp) return;
    for (const Vista vista : choices()[*chosen].vistas) {
        if (vista == drawn) continue;
        const AcDbObjectId view = draw(base, vista, *distance, cotas == Answer::Yes);
        if (view.isNull()) {
            protocol::fail(L"A vista não pôde ser desenhada.");
            return;
        }
        enterVista(base, view);
    }
    if (!isListed(base))
        acutPrintf(
            L"\nA peça não está na lista de material: as vistas só ficam ligadas a ela depois de "
            L"MARCAS Agrupar.\n");
}

}  // namespace zp::matlist
