// SPDX-License-Identifier: MIT
// Plates of built-up members: on a face, at both flanges, through the axis.
#include "perfis/commands/chapa_schemes.h"

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

/// A plate of the section that lies, or stands, across the axis at height y.
zp::secao::Bounds lying(const BarraTravejada& barra, double y) {
    const double t = barra.medidas.t;
    return {-barra.A / 2.0, y - t / 2.0, barra.A / 2.0, y + t / 2.0};
}
zp::secao::Bounds standing(const BarraTravejada& barra) {
    const double t = barra.medidas.t;
    return {-t / 2.0, -barra.A / 2.0, t / 2.0, barra.A / 2.0};
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
        laid.add(lyingInSecao(barra, face));
        return laid;
    }
    const bool onEdgeSeen = barra.vista == ZpObject::kVistaDireita;
    const double y = face + barra.medidas.t / 2.0;
    laid.add(rowOf(barra, onEdgeSeen ? onEdgeSwapped(y, {lying(barra, y)})
                                     : flat(barra.A / 2.0, {lying(barra, y)})));
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
        laid.add(chapas);
        return laid;
    }
    if (barra.vista == ZpObject::kVistaDireita) {
        chapas = rowOf(barra, onEdge(flange, {lying(barra, flange)}));
        const std::vector<AcDbObjectId> lower =
            rowOf(barra, onEdge(-flange, {lying(barra, -flange)}));
        chapas.insert(chapas.end(), lower.begin(), lower.end());
    } else {
        chapas = rowOf(barra, flat(barra.A / 2.0, {lying(barra, flange), lying(barra, -flange)}));
    }
    laid.add(chapas);
    laid.pitch = pitchOf(barra);
    return laid;
}

LaidChapas layThroughAxis(const BarraTravejada& barra) {
    const auto row = [&](const zp::secao::Bounds& body, ZpObject::ZpVistas onEdgeFrom) {
        return rowOf(barra, barra.vista == onEdgeFrom ? onEdgeSwapped(0.0, {body})
                                                      : flat(barra.A / 2.0, {body}));
    };
    LaidChapas laid;
    if (barra.planes != TravejamentoPlanes::kVertical) {
        laid.add(isSecao(barra) ? lyingInSecao(barra, -barra.medidas.t / 2.0)
                                : row(lying(barra, 0.0), ZpObject::kVistaDireita));
    }
    if (barra.planes != TravejamentoPlanes::kHorizontal) {
        laid.add(isSecao(barra) ? standingInSecao(barra)
                                : row(standing(barra), ZpObject::kVistaSuperior));
    }
    if (!isSecao(barra)) laid.pitch = pitchOf(barra);
    return laid;
}

}  // namespace perfis
