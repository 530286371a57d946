// SPDX-License-Identifier: MIT
// Plates of built-up members: on a face, at both flanges, through the axis.
#include "perfis/commands/chapa_schemes.h"

#include <iterator>

namespace perfis {
namespace {

constexpr ChapaTurn kUpright{};

ChapaMaker makerFor(const BarraTravejada& barra) {
    return {barra.peca, {barra.C, barra.medidas.t, barra.A}, barra.supply};
}

bool isSecao(const BarraTravejada& barra) { return barra.vista == ZpObject::kVistaSecao; }

/// Point at (x, y) from the member's.
AcGePoint3d offset(const BarraTravejada& barra, double x, double y) {
    return barra.point + AcGeVector3d(x, y, 0.0);
}

double larguraInSecao(const BarraTravejada& barra) {
    return barra.C > 0.0 ? barra.C : kUnknownLargura;
}

/// Adds the plates; the one of slot 1, or the only one, stands for them in the material list.
void add(LaidChapas& laid, const std::vector<AcDbObjectId>& chapas) {
    const AcDbObjectId first = chapas.size() > 1 ? chapas[1] : chapas.front();
    laid.rows.push_back({first, static_cast<int>(chapas.size()), {}});
    laid.ids.insert(laid.ids.end(), chapas.begin(), chapas.end());
}

/// With fewer than three plates the next one is at the far end.
double pitchOf(const BarraTravejada& barra) {
    const std::vector<double> stations = chapaStations(barra.spacing, barra.C);
    return stations.size() > 2 ? stations[2] : stations[1];
}

/// One plate seen along the member, lying on a face at `face`.
std::vector<AcDbObjectId> lyingInSecao(const BarraTravejada& barra, double face) {
    return {makerFor(barra).chapa(offset(barra, -barra.A / 2.0, face), ZpObject::kVistaEsquerda,
                                  larguraInSecao(barra), barra.medidas.t, barra.A, kUpright)};
}

std::vector<AcDbObjectId> standingInSecao(const BarraTravejada& barra) {
    const double t = barra.medidas.t;
    return {makerFor(barra).chapa(offset(barra, -t / 2.0, -barra.A / 2.0), ZpObject::kVistaEsquerda,
                                  larguraInSecao(barra), barra.A, t, kUpright)};
}

std::vector<AcDbObjectId> rowOf(const BarraTravejada& barra, const ChapaRule& rule) {
    return makerFor(barra).row(barra.point, barra.spacing, rule);
}

}  // namespace

LaidChapas layOnFace(const BarraTravejada& barra, double face) {
    LaidChapas laid;
    if (isSecao(barra)) {
        add(laid, lyingInSecao(barra, face));
        return laid;
    }
    const bool onEdgeSeen = barra.vista == ZpObject::kVistaDireita;
    add(laid, rowOf(barra, onEdgeSeen ? onEdgeSwapped(face + barra.medidas.t / 2.0)
                                      : flat(barra.A / 2.0)));
    laid.pitch = pitchOf(barra);
    return laid;
}

LaidChapas layOnBothFlanges(const BarraTravejada& barra) {
    const double t = barra.medidas.t;
    const double flange = barra.medidas.h / 2.0 - t / 2.0;
    LaidChapas laid;
    std::vector<AcDbObjectId> chapas;
    if (isSecao(barra)) {
        // Seen along the member a plate is A wide; its depth does not show.
        for (const double y : {flange, -flange})
            chapas.push_back(makerFor(barra).chapa(offset(barra, -barra.A / 2.0, y),
                                                   ZpObject::kVistaSecao, barra.A, t, 1.0,
                                                   kUpright));
        add(laid, chapas);
        return laid;
    }
    if (barra.vista == ZpObject::kVistaDireita) {
        chapas = rowOf(barra, onEdge(flange));
        const std::vector<AcDbObjectId> lower = rowOf(barra, onEdge(-flange));
        chapas.insert(chapas.end(), lower.begin(), lower.end());
    } else {
        chapas = rowOf(barra, flat(barra.A / 2.0));
    }
    add(laid, chapas);
    laid.pitch = pitchOf(barra);
    return laid;
}

LaidChapas layThroughAxis(const BarraTravejada& barra) {
    const bool fromTheSide = barra.vista == ZpObject::kVistaDireita;
    const ChapaRule edge = onEdgeSwapped(0.0);
    const ChapaRule face = flat(barra.A / 2.0);
    LaidChapas laid;
    if (barra.planes != TravejamentoPlanes::kVertical) {
        add(laid, isSecao(barra) ? lyingInSecao(barra, -barra.medidas.t / 2.0)
                                 : rowOf(barra, fromTheSide ? edge : face));
    }
    if (barra.planes != TravejamentoPlanes::kHorizontal) {
        add(laid,
            isSecao(barra) ? standingInSecao(barra) : rowOf(barra, fromTheSide ? face : edge));
    }
    if (!isSecao(barra)) laid.pitch = pitchOf(barra);
    return laid;
}

}  // namespace perfis
