// SPDX-License-Identifier: MIT
// Lacing from plates.
#include "perfis/commands/travejamento_values.h"

#include <algorithm>
#include <cmath>

namespace perfis {
namespace {

/// Plates whose lines are nearer than this are one row, mm.
constexpr double kSameRow = 1e-6;

bool isFlat(const ChapaValues& plate) { return plate.view == ZpObject::kVistaEsquerda; }

/// In a section a plate shows its thickness and its height: lying, standing, or as a rectangle of
/// its own without depth.
PecaTravejamento inSecao(const PecaValues& piece) {
    PecaTravejamento lacing;
    bool lying = false;
    bool standing = false;
    for (const ChapaValues& plate : piece.plates) {
        if (!isFlat(plate)) {
            lacing.plates.A = plate.d1;
            continue;
        }
        const bool lies = plate.d2 <= plate.d3;
        lying = lying || lies;
        standing = standing || !lies;
        lacing.plates.A = std::max(plate.d2, plate.d3);
        if (plate.d1 != kUnknownLargura) lacing.plates.C = plate.d1;
    }
    if (lying != standing)
        lacing.planes = lying ? TravejamentoPlanes::kHorizontal : TravejamentoPlanes::kVertical;
    return lacing;
}

/// Places of plates on the line of the first one. A plate may stand on another one: where the
/// spacing and the width add up, the last one between the ends meets the far end.
int firstRow(const PecaValues& piece) {
    const ChapaValues& first = piece.plates.front();
    std::vector<double> places;
    for (const ChapaValues& plate : piece.plates)
        if (isFlat(plate) == isFlat(first) && std::abs(plate.y - first.y) <= kSameRow)
            places.push_back(plate.x);
    std::ranges::sort(places);
    const auto same = [](double a, double b) { return b - a <= kSameRow; };
    const auto repeated = std::ranges::unique(places, same);
    return static_cast<int>(places.size() - repeated.size());
}

}  // namespace

PecaTravejamento travejamentoOf(const PecaValues& piece) {
    if (piece.plates.empty()) return {};
    if (piece.view == ZpObject::kVistaSecao) return inSecao(piece);
    const ChapaValues& first = piece.plates.front();
    PecaTravejamento lacing;
    lacing.plates = {first.d3, first.d1, std::max(1, firstRow(piece) - 1)};
    lacing.pitch = chapaPitch(piece);
    lacing.length = piece.comprimentoTravejado;
    const bool flat = std::ranges::any_of(piece.plates, isFlat);
    const bool onEdge = !std::ranges::all_of(piece.plates, isFlat);
    if (flat == onEdge) return lacing;
    // Seen from the side the horizontal plates stand on edge, seen from above the vertical ones.
    const bool fromTheSide = piece.view == ZpObject::kVistaDireita;
    lacing.planes =
        onEdge == fromTheSide ? TravejamentoPlanes::kHorizontal : TravejamentoPlanes::kVertical;
    return lacing;
}

double spacingFor(const PecaTravejamento& lacing, double length) {
    double spacing = lacing.pitch;
    const bool asLong = std::abs(length - lacing.length) <= kSameRow;
    if (!asLong || !(spacing > 0.0)) (void)CalcEspacamento(lacing.plates, length, spacing);
    return spacing;
}

double chapaPitch(const PecaValues& piece) {
    double pitch = 0.0;
    for (const ChapaValues& plate : piece.plates)
        if (plate.x > kSameRow && (pitch == 0.0 || plate.x < pitch)) pitch = plate.x;
    return pitch;
}

}  // namespace perfis
