// SPDX-License-Identifier: MIT
// Plates of built-up members: on a face, at both flanges, through the axis.
#include "perfis/commands/chapa_schemes.h"

#include <iterator>

namespace perfis {
namespace {

constexpr ChapaTurn kUpright{};

ChapaMaker makerFor(const BarraTravejada& member) {
    return {member.piece, {member.C, member.medidas.t, member.A}, member.supply};
}

bool isSecao(const BarraTravejada& member) { return member.view == ZpObject::kVistaSecao; }

/// Point at (x, y) from the member's.
AcGePoint3d offset(const BarraTravejada& member, double x, double y) {
    return member.point + AcGeVector3d(x, y, 0.0);
}

double larguraInSecao(const BarraTravejada& member) {
    return member.C > 0.0 ? member.C : kUnknownLargura;
}

/// Adds the plates; the one of slot 1, or the only one, stands for them in the material list.
void add(LaidChapas& laid, const std::vector<AcDbObjectId>& plates) {
    const AcDbObjectId first = plates.size() > 1 ? plates[1] : plates.front();
    laid.rows.push_back({first, static_cast<int>(plates.size()), {}});
    laid.ids.insert(laid.ids.end(), plates.begin(), plates.end());
}

/// With fewer than three plates the next one is at the far end.
double pitchOf(const BarraTravejada& member) {
    const std::vector<double> stations = chapaStations(member.spacing, member.C);
    return stations.size() > 2 ? stations[2] : stations[1];
}

/// One plate seen along the member, lying on a face at `face`.
std::vector<AcDbObjectId> lyingInSecao(const BarraTravejada& member, double face) {
    return {makerFor(member).plate(offset(member, -member.A / 2.0, face), ZpObject::kVistaEsquerda,
                                   larguraInSecao(member), member.medidas.t, member.A, kUpright)};
}

std::vector<AcDbObjectId> standingInSecao(const BarraTravejada& member) {
    const double t = member.medidas.t;
    return {makerFor(member).plate(offset(member, -t / 2.0, -member.A / 2.0),
                                   ZpObject::kVistaEsquerda, larguraInSecao(member), member.A, t,
                                   kUpright)};
}

std::vector<AcDbObjectId> rowOf(const BarraTravejada& member, const ChapaRule& rule) {
    return makerFor(member).row(member.point, member.spacing, rule);
}

}  // namespace

LaidChapas layOnFace(const BarraTravejada& member, double face) {
    LaidChapas laid;
    if (isSecao(member)) {
        add(laid, lyingInSecao(member, face));
        return laid;
    }
    const bool onEdgeSeen = member.view == ZpObject::kVistaDireita;
    add(laid, rowOf(member, onEdgeSeen ? onEdgeSwapped(face + member.medidas.t / 2.0)
                                       : flat(member.A / 2.0)));
    laid.pitch = pitchOf(member);
    return laid;
}

LaidChapas layOnBothFlanges(const BarraTravejada& member) {
    const double t = member.medidas.t;
    const double flange = member.medidas.h / 2.0 - t / 2.0;
    LaidChapas laid;
    std::vector<AcDbObjectId> plates;
    if (isSecao(member)) {
        // Seen along the member a plate is A wide; its depth does not show.
        for (const double y : {flange, -flange})
            plates.push_back(makerFor(member).plate(offset(member, -member.A / 2.0, y),
                                                    ZpObject::kVistaSecao, member.A, t, 1.0,
                                                    kUpright));
        add(laid, plates);
        return laid;
    }
    if (member.view == ZpObject::kVistaDireita) {
        plates = rowOf(member, onEdge(flange));
        const std::vector<AcDbObjectId> lower = rowOf(member, onEdge(-flange));
        plates.insert(plates.end(), lower.begin(), lower.end());
    } else {
        plates = rowOf(member, flat(member.A / 2.0));
    }
    add(laid, plates);
    laid.pitch = pitchOf(member);
    return laid;
}

LaidChapas layThroughAxis(const BarraTravejada& member) {
    const bool fromTheSide = member.view == ZpObject::kVistaDireita;
    const ChapaRule edge = onEdgeSwapped(0.0);
    const ChapaRule face = flat(member.A / 2.0);
    LaidChapas laid;
    if (member.planes != TravejamentoPlanes::kVertical) {
        add(laid, isSecao(member) ? lyingInSecao(member, -member.medidas.t / 2.0)
                                  : rowOf(member, fromTheSide ? edge : face));
    }
    if (member.planes != TravejamentoPlanes::kHorizontal) {
        add(laid,
            isSecao(member) ? standingInSecao(member) : rowOf(member, fromTheSide ? face : edge));
    }
    if (!isSecao(member)) laid.pitch = pitchOf(member);
    return laid;
}

}  // namespace perfis
